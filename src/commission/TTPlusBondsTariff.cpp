#include "commission/TTPlusBondsTariff.h"

#include "base/Numbers.h"

namespace DL {

namespace {
constexpr double kMoneyTolerance = 0.1;
}  // namespace

// ---- TTPlusBondsTariff ----

TTPlusBondsTariff::TTPlusBondsTariff(const TExchCommRate& iniRates, bool useMin)
    : ABoardTariff(iniRates), UseMin(useMin) {}

void TTPlusBondsTariff::ApplyCustomRatesIfNeeded(TExchCommValue& result, double value, TCustomFlags& flags) const {
  flags = TCustomFlags();
  if (MIsGE(INIRates.Org, 0.0, kMoneyTolerance)) {
    result.Org = value * INIRates.Org / Percent;
    flags.Org = true;
  }
  if (MIsGE(INIRates.Clearing, 0.0, kMoneyTolerance)) {
    result.Clearing = value * INIRates.Clearing / Percent;
    flags.Clearing = true;
  }
  if (MIsGE(INIRates.TS, 0.0, kMoneyTolerance)) {
    result.TS = value * INIRates.TS / Percent;
    flags.TS = true;
  }
}

void TTPlusBondsTariff::GetBoundedComm(double value, unsigned days, const TExchCommRate& full,
                                       const TExchCommRate& perDay, const TExchCommValue& max,
                                       const TExchCommValue& min, TExchCommValue& out) const {
  if (days != 0) {
    const double d = static_cast<double>(days);
    out.Org = DL::Min(d * value * perDay.Org / Percent, value * full.Org / Percent, kMoneyTolerance);
    out.Clearing = DL::Min(d * value * perDay.Clearing / Percent, value * full.Clearing / Percent, kMoneyTolerance);
  } else {
    out.Org = value * full.Org / Percent;
    out.Clearing = value * full.Clearing / Percent;
  }
  if (MIsGT(max.Org, 0.0, kMoneyTolerance)) out.Org = DL::Min(out.Org, max.Org, kMoneyTolerance);
  if (MIsGT(max.Clearing, 0.0, kMoneyTolerance)) out.Clearing = DL::Min(out.Clearing, max.Clearing, kMoneyTolerance);
  if (UseMin) {
    out.Org = DL::Max(out.Org, min.Org, kMoneyTolerance);
    out.Clearing = DL::Max(out.Clearing, min.Clearing, kMoneyTolerance);
  }
}

void TTPlusBondsTariff::SetMinCommValue(TExchCommValue& value) const {
  if (!UseMin) return;
  value.Org = DL::Max(value.Org, 1.0, kMoneyTolerance);
  value.Clearing = DL::Max(value.Clearing, 1.0, kMoneyTolerance);
  if (!NoMinTS) value.TS = DL::Max(value.TS, 1.0, kMoneyTolerance);
}

TExchCommValue TTPlusBondsTariff::CalcCommValue(double value, ZDepoCount, unsigned, unsigned bondDays) const {
  TExchCommValue custom;
  TCustomFlags flags;
  ApplyCustomRatesIfNeeded(custom, value, flags);
  TExchCommValue r;
  if (IsFederalLoanBonds && !FederalRatesPerDay.IsZero()) {
    // Federal loan bonds are neither capped nor raised to the board's minimum.
    const TExchCommValue none;
    GetBoundedComm(value, bondDays, FederalRates, FederalRatesPerDay, none, none, r);
  } else {
    GetBoundedComm(value, bondDays, Full, PerDay, Max, Min, r);
  }
  if (flags.TS) r.TS = custom.TS;
  if (flags.Org) r.Org = custom.Org;
  if (flags.Clearing) r.Clearing = custom.Clearing;
  if (UseMin) SetMinCommValue(r);
  return r;
}

std::unique_ptr<ABoardTariff> TTPlusBondsTariff::Clone() const { return std::make_unique<TTPlusBondsTariff>(*this); }

// ---- TRPCBondsTariff ----

TRPCBondsTariff::TRPCBondsTariff(const TExchCommRate& iniRates, bool useMin) : TTPlusBondsTariff(iniRates, useMin) {
  Full = TExchCommRate(0.0, 0.00575, 0.00425);
  Max = TExchCommValue(0.0, 201250.0, 148750.0);
}

std::unique_ptr<ABoardTariff> TRPCBondsTariff::Clone() const { return std::make_unique<TRPCBondsTariff>(*this); }

// ---- TNegDealBondsTariff ----

TNegDealBondsTariff::TNegDealBondsTariff(const TExchCommRate& iniRates, bool useMin)
    : TTPlusBondsTariff(iniRates, useMin) {
  Full = TExchCommRate(0.0, 0.00575, 0.00425);
  Max = TExchCommValue(0.0, 201250.0, 148750.0);
  Min = TExchCommValue(0.0, 5750.0, 4250.0);
  FederalRatesPerDay = TExchCommRate(0.0, 5.75e-05, 4.25e-05);
  FederalRates = TExchCommRate(0.0, 0.0071875, 0.0053125);
}

std::unique_ptr<ABoardTariff> TNegDealBondsTariff::Clone() const {
  return std::make_unique<TNegDealBondsTariff>(*this);
}

// ---- TRPCBondsTariffNoExpDate ----

TRPCBondsTariffNoExpDate::TRPCBondsTariffNoExpDate(const TExchCommRate& iniRates, bool useMin)
    : TTPlusBondsTariff(iniRates, useMin) {}

TExchCommValue TRPCBondsTariffNoExpDate::CalcCommValue(double value, ZDepoCount, unsigned, unsigned) const {
  TExchCommValue r;
  TCustomFlags flags;
  ApplyCustomRatesIfNeeded(r, value, flags);
  if (!flags.Org) r.Org = value * Rates.Org / Percent;
  if (!flags.Clearing) r.Clearing = value * Rates.Clearing / Percent;
  if (UseMin) SetMinCommValue(r);
  return r;
}

std::unique_ptr<ABoardTariff> TRPCBondsTariffNoExpDate::Clone() const {
  return std::make_unique<TRPCBondsTariffNoExpDate>(*this);
}

// ---- TBoardsWithClearingCommOnly ----

TBoardsWithClearingCommOnly::TBoardsWithClearingCommOnly(double rate, double minClearing,
                                                         const TExchCommRate& iniRates, bool useMin)
    : TTPlusBondsTariff(iniRates, useMin), MinClearing(minClearing) {
  PerDay = TExchCommRate(0.0, 0.0, rate);
  Full = TExchCommRate();
}

TExchCommValue TBoardsWithClearingCommOnly::CalcCommValue(double value, ZDepoCount, unsigned, unsigned) const {
  TExchCommValue r;
  TCustomFlags flags;
  ApplyCustomRatesIfNeeded(r, value, flags);
  if (!flags.Clearing) r.Clearing = value * PerDay.Clearing / Percent;
  if (UseMin) r.Clearing = DL::Max(r.Clearing, MinClearing, kMoneyTolerance);
  return r;
}

std::unique_ptr<ABoardTariff> TBoardsWithClearingCommOnly::Clone() const {
  return std::make_unique<TBoardsWithClearingCommOnly>(*this);
}

}  // namespace DL
