#pragma once
// The exchange's fee for a deal on one board: the trading system's, the
// organiser's and the clearing house's part. Each board code of a firm maps
// to one object of this family (TBoardTariffs); the host engine asks
// CalcCommValue for each deal.
//
// Every rate is in per cent: a part is value * rate / Percent. A firm may
// replace each built-in rate with its own (INIRates); a negative firm rate
// means "not set", and a firm rate of 0 makes the part free.
//
// A tariff is a plain record of rates with its calculation: the fields are
// public so that the table that assigns tariffs to boards can set them.
// CalcCommValue changes nothing, so one object serves every deal of its
// board; the bond setters (SetSide, SetFederalLoanBondsFlag) are for a copy
// made with Clone.
#include <memory>

#include "base/TradingTypes.h"
#include "margin/ZDepoCount.h"

namespace DL {

class ABoardTariff {
 public:
  // The base of every rate.
  static constexpr double kPercent = 100.0;
  // A firm rate that is not set.
  static constexpr double kNotSet = -1.0;

  explicit ABoardTariff(const TExchCommRate& iniRates) : INIRates(iniRates) {}
  virtual ~ABoardTariff() = default;

  // The three parts for a deal of `value` in the deal's currency. `repoDays`
  // is the term of a repo, `bondDays` the term of a bond deal; each tariff
  // reads one of them or neither. `qty` is for tariffs that charge by
  // quantity; none of the board tariffs reads it.
  virtual TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays,
                                       unsigned bondDays) const = 0;
  // A copy of the whole object, rates and flags, owned by the caller.
  virtual std::unique_ptr<ABoardTariff> Clone() const = 0;
  // Replaces the firm's rates.
  virtual void SetINIRates(const TExchCommRate& rates) { INIRates = rates; }

  TExchCommRate INIRates;  // the firm's rates; negative means not set
  double Percent = kPercent;

 protected:
  ABoardTariff(const ABoardTariff&) = default;
  ABoardTariff& operator=(const ABoardTariff&) = default;

  // Each part whose firm rate is set (not below 0) becomes value * rate /
  // Percent; the others stay.
  void ApplyINIRates(TExchCommValue& out, double value) const;
};

// The second base of the bond and repo tariffs: federal loan bond rates and
// the side of the deal.
class ABondsTariff {
 public:
  void SetFederalLoanBondsFlag(bool on) { IsFederalLoanBonds = on; }
  // 'B' buy or 'S' sell.
  void SetSide(char side) { Side = side; }

  TExchCommRate FederalRatesPerDay;  // per day, for federal loan bonds
  TExchCommRate FederalRates;        // full term, for federal loan bonds
  bool IsFederalLoanBonds = false;
  char Side = 'B';
};

// Per cent of a value: value * rate / percent.
inline double PercentOf(double value, double rate, double percent) { return value * rate / percent; }

}  // namespace DL
