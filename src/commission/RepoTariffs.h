#pragma once
// Repo tariffs charged by the term of the repo in days (repoDays).
#include <array>

#include "commission/ABoardTariff.h"

namespace DL {

// Shares and eurobonds at repo: a fixed 1500.0 per part for a repo of 0
// days, overnight rates for 1 day, longer rates beyond, the clearing rate by
// the term. The constructor's three rates are the clearing rates of the
// three shortest terms.
class TSharesEuroBondsAtREPO : public ABoardTariff, public ABondsTariff {
 public:
  TSharesEuroBondsAtREPO(double clearingUpTo7, double clearingUpTo21, double clearingUpTo30,
                         const TExchCommRate& iniRates);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  double Fixed = 1500.0;
  double OvernightTS = 0.0025;   // trading system, 1 day
  double OvernightOrg = 0.0035;  // organiser, 1 day
  double LongTS = 0.0045;        // trading system, 2 days and more
  double LongOrg = 0.0045;       // organiser, 2 days and more
  // Clearing by term: under 8 days, 8 to 21, 22 to 30, 31 to 90, over 90.
  // The overnight repo takes the second.
  std::array<double, 5> ClearingByTerm{0.004, 0.006, 0.011, 0.02, 0.04};
};

// The modified repo: each part is at least Min; a firm rate replaces the
// part, minimum included.
class TModifiedREPO : public ABoardTariff, public ABondsTariff {
 public:
  // The three numbers are kept with the object; the calculation does not
  // read them.
  TModifiedREPO(double first, double second, double third, const TExchCommRate& iniRates);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  TExchCommRate Rates{0.0001, 0.0001, 0.00015};
  double Min = 500.0;
  double First = 0.0;
  double Second = 0.0;
  double Third = 0.0;
};

// The repo boards of the exchange: the value times the term at the rates,
// each part at least its minimum unless NoMin (the boards whose trading
// system fee is charged on both sides).
class TMoexREPO : public ABoardTariff, public ABondsTariff {
 public:
  TMoexREPO(double tsRate, double orgRate, double clearingRate, double tsMin, double orgMin, double clearingMin,
            const TExchCommRate& iniRates, bool noMin);
  // No trading-system part: its rate and minimum are 0.
  TMoexREPO(double orgRate, double clearingRate, double orgMin, double clearingMin, const TExchCommRate& iniRates,
            bool noMin);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  TExchCommRate Rates;
  TExchCommValue Min;
  bool NoMin = false;
};

}  // namespace DL
