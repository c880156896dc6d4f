#include "cache/TEffectiveDiscounts.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace DL {

namespace {

bool IsSet(double v) { return v >= 0.0; }

// x^e; the common exponent 1 needs no pow.
double Power(double x, double e) { return e == 1.0 ? x : std::pow(x, e); }

// A discount kept on the discount trade account: -1 is 1.0, 0 says nothing
// (the settings decide), any other value is thousandths.
bool DiscountFromQuantity(double qty, double cap, double& out) {
  if (qty == 0.0) return false;
  if (qty == -1.0) {
    out = 1.0;
    return true;
  }
  out = std::min(qty / 1000.0, cap);
  return true;
}

}  // namespace

double GetEffectiveDLong(double d1, double d2, double k, bool own) {
  const double r = own ? std::max(1.0 - std::pow(1.0 - d1, k), d2) : 1.0 - std::pow(1.0 - std::max(d1, d2), k);
  return std::min(r, 1.0);
}

double GetEffectiveDShort(double d1, double d2, double k, bool own, bool* forbidden) {
  const double r = own ? std::max(std::pow(1.0 + d1, k) - 1.0, d2) : std::pow(1.0 + std::max(d1, d2), k) - 1.0;
  if (r > ForbiddenLimit) {
    if (forbidden != nullptr) *forbidden = true;
    return ForbiddenValue;
  }
  return r;
}

double GetEffectiveDiscountsLong(const TEffectiveDiscounts& rec, const TDiscountRequest& req, bool own) {
  double fromQty = 0.0;
  if (req.discountTrdAcc && DiscountFromQuantity(req.qtyLong, 1.0, fromQty)) return fromQty;
  const double p = req.priceLong;
  if (p < 0.0 || p == 100.0) return IsSet(rec.DLong) ? rec.DLong : 1.0;
  double d = p / 100.0;
  if (!req.uncapped) d = std::min(d, 1.0);
  if (IsSet(rec.DLong) && IsSet(rec.KLong)) d = GetEffectiveDLong(d, rec.DLong, rec.KLong, own);
  return d;
}

double GetEffectiveDiscountsShort(const TEffectiveDiscounts& rec, const TDiscountRequest& req, bool own) {
  double fromQty = 0.0;
  if (req.discountTrdAcc && DiscountFromQuantity(req.qtyShort, ForbiddenLimit, fromQty)) return fromQty;
  const double p = req.priceShort;
  if (p < 0.0 || p == 100.0) return IsSet(rec.DShort) ? rec.DShort : 1.0;
  double d = p / 100.0;
  if (!req.uncapped) d = std::min(d, ForbiddenLimit);
  if (IsSet(rec.DShort) && IsSet(rec.KShort)) d = GetEffectiveDShort(d, rec.DShort, rec.KShort, own);
  return d;
}

void GetEffectiveDiscountsLongMin(const TEffectiveDiscounts& rec, TDiscountsEx& out) {
  if (out.DLong >= 1.0) {
    out.DLongMin = 1.0;
    return;
  }
  const double e = (1.0 + rec.stockCoefLong) * 0.5;
  const double m = 1.0 - Power(1.0 - out.DLong, e);
  out.DLongMin = std::min(std::max(m, rec.DLongMin), out.DLong);
}

void GetEffectiveDiscountsShortMin(const TEffectiveDiscounts& rec, TDiscountsEx& out) {
  if (out.DShort > ForbiddenLimit) {
    out.DShortMin = out.DShort;
    return;
  }
  const double e = (1.0 + rec.stockCoefShort) * 0.5;
  const double m = Power(1.0 + out.DShort, e) - 1.0;
  out.DShortMin = std::min(std::max(m, rec.DShortMin), out.DShort);
}

int GetEffectiveDiscountsEx2(const TEffectiveDiscounts& rec, const TDiscountRequest& req, bool sameCurrency,
                             TDiscountsEx& out) {
  const bool creditMargin = req.creditType == kCreditTypeMarginByDiscounts;
  const bool z = rec.stockCoefLong == 0.0 && rec.stockCoefShort == 0.0;
  if (creditMargin && req.marginalSigns && !z) {
    out.bC = true;
    out.bS = true;
    out.DLong = GetEffectiveDiscountsLong(rec, req, req.doNotApplyCoeffToOwn);
    out.DShort = GetEffectiveDiscountsShort(rec, req, req.doNotApplyCoeffToOwn);
    if (out.DShort > ForbiddenLimit) {
      out.bS = false;
      out.DShort = 1.0;
      out.DShortMin = 1.0;
      if (out.DLong == 1.0) out.bC = false;
    }
    if (rec.lineFlag2) out.bC = true;
  } else {
    out.DLong = GetEffectiveDiscountsLong(rec, req, false);
    out.DShort = GetEffectiveDiscountsShort(rec, req, false);
    out.bC = false;
    out.bS = false;
  }
  if (creditMargin && req.marginal) {
    if (out.DLong <= 0.0) out.DLong = 1.0;
    if (out.DShort <= 0.0 || out.DShort > ForbiddenLimit) out.DShort = 1.0;
    out.bC = true;
    out.bS = true;
  }
  if (!creditMargin || req.clientEmpty) {
    GetEffectiveDiscountsLongMin(rec, out);
    GetEffectiveDiscountsShortMin(rec, out);
    if (!creditMargin) return 1;
  } else {
    out.DLongMin = 1.0;
    out.DShortMin = ForbiddenValue;
  }
  if (!rec.RCur.empty()) {
    std::memset(out.RCur, 0, sizeof(out.RCur));
    std::memcpy(out.RCur, rec.RCur.data(), std::min(rec.RCur.size(), sizeof(out.RCur) - 1));
  }
  if (z && sameCurrency) {
    out.DLong = 0.0;
    out.DShort = 0.0;
    if (req.marginalSigns) {
      out.bC = true;
      out.bS = true;
    }
  }
  return 1;
}

}  // namespace DL
