#pragma once
// Tariffs of the boards of the gas company's bonds and repo. Shares and bonds
// at the main and negotiated boards take the organiser's part only.
#include "commission/ABoardTariff.h"

namespace DL {

// Organiser only: per day of the bond term under 101 days, the full rate
// from 101.
class TGZBSharesBondsAtMain : public ABoardTariff, public ABondsTariff {
 public:
  explicit TGZBSharesBondsAtMain(const TExchCommRate& iniRates);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  double PerDay = 4.25e-05;
  double Full = 0.0053125;
};

// Organiser only: per day under 201 days, the full rate from 201, at most
// Max.
class TGZBBondsAtNegot : public ABoardTariff, public ABondsTariff {
 public:
  explicit TGZBBondsAtNegot(const TExchCommRate& iniRates);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  double PerDay = 4.25e-05;
  double Full = 0.0053125;
  double Max = 500000.0;
};

// Repo: per day of the repo term up to 100 days, the full rate beyond.
class TGZBBondsAtREPO : public ABoardTariff, public ABondsTariff {
 public:
  explicit TGZBBondsAtREPO(const TExchCommRate& iniRates);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  TExchCommRate PerDay{3e-05, 3.5e-05, 3.5e-05};
  TExchCommRate Full{0.003, 0.0035, 0.0035};
};

}  // namespace DL
