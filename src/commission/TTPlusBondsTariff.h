#pragma once
// The bond tariffs of the T+ boards and their kin. The organiser and
// clearing parts are the smaller of the per-day and the full-term charge,
// bounded by Max and Min; each part with a firm rate (0 or more, tolerance
// 0.1) takes value * rate / Percent instead. With UseMin the parts are at
// least 1.0 (the trading system's too unless NoMinTS). Money is compared
// with the tolerance 0.1: on a tie the bound wins.
#include "commission/ABoardTariff.h"

namespace DL {

class TTPlusBondsTariff : public ABoardTariff, public ABondsTariff {
 public:
  // Which parts took a firm rate.
  struct TCustomFlags {
    bool TS = false;
    bool Org = false;
    bool Clearing = false;
  };

  // iniRates: the firm's rates of the board; useMin: the board is in the
  // firm's list of minimum commission boards.
  TTPlusBondsTariff(const TExchCommRate& iniRates, bool useMin);

  // `bondDays` is the term; 0 charges the full rate.
  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;
  // With UseMin: organiser and clearing at least 1.0, the trading system
  // too unless NoMinTS. Without UseMin nothing changes.
  virtual void SetMinCommValue(TExchCommValue& value) const;

  // Clears the flags; each part whose firm rate is 0 or more (tolerance 0.1)
  // becomes value * rate / Percent in `result` and is flagged.
  void ApplyCustomRatesIfNeeded(TExchCommValue& result, double value, TCustomFlags& flags) const;
  // Organiser and clearing of `out`: with days, the smaller of the per-day
  // and the full charge, else the full charge; then at most `max` where max
  // is above 0, and with UseMin at least `min`. The trading-system part is
  // left alone.
  void GetBoundedComm(double value, unsigned days, const TExchCommRate& full, const TExchCommRate& perDay,
                      const TExchCommValue& max, const TExchCommValue& min, TExchCommValue& out) const;

  TExchCommRate PerDay{0.0, 5.75e-05, 4.25e-05};
  TExchCommRate Full{0.0, 0.008625, 0.006375};
  TExchCommValue Max;
  TExchCommValue Min;
  bool UseMin = false;
  bool NoMinTS = true;
};

// Bonds of the negotiated boards with the central counterparty: full rates
// (0, 0.00575, 0.00425), capped at (0, 201250.0, 148750.0).
class TRPCBondsTariff : public TTPlusBondsTariff {
 public:
  TRPCBondsTariff(const TExchCommRate& iniRates, bool useMin);
  std::unique_ptr<ABoardTariff> Clone() const override;
};

// Negotiated deals in bonds: as TRPCBondsTariff with the minimum
// (0, 5750.0, 4250.0) and federal loan bond rates.
class TNegDealBondsTariff : public TTPlusBondsTariff {
 public:
  TNegDealBondsTariff(const TExchCommRate& iniRates, bool useMin);
  std::unique_ptr<ABoardTariff> Clone() const override;
};

// Negotiated boards without an expiry date: a plain per cent of the value
// for organiser and clearing, with the firm's rates and the minimum.
class TRPCBondsTariffNoExpDate : public TTPlusBondsTariff {
 public:
  TRPCBondsTariffNoExpDate(const TExchCommRate& iniRates, bool useMin);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  TExchCommRate Rates{0.0, 0.008625, 0.006375};
};

// Boards that charge the clearing part only: value * rate / Percent, with
// UseMin at least MinClearing. Organiser and trading system only by firm
// rates.
class TBoardsWithClearingCommOnly : public TTPlusBondsTariff {
 public:
  TBoardsWithClearingCommOnly(double rate, double minClearing, const TExchCommRate& iniRates, bool useMin);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;
  void SetMinComm(double minClearing) { MinClearing = minClearing; }

  double MinClearing = 0.0;
};

}  // namespace DL
