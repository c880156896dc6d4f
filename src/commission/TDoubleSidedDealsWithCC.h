#pragma once
// Double-sided deals with the central counterparty: the organiser's part
// only, per day of the bond term under 51 days, the full rate from 51. Only
// the firm's organiser rate is read; with MinOne the part is at least 1.0,
// the firm's rate included.
#include "commission/ABoardTariff.h"

namespace DL {

class TDoubleSidedDealsWithCC : public ABoardTariff, public ABondsTariff {
 public:
  // iniRates: the firm's rates of the board; minOne: the board is in the
  // firm's list of minimum commission boards.
  TDoubleSidedDealsWithCC(const TExchCommRate& iniRates, bool minOne);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  double PerDay = 0.0001;
  double Full = 0.01;
  bool MinOne = false;
};

}  // namespace DL
