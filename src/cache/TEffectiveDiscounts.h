#pragma once
// The discounts of one security for one client, from the settings found for
// it (TEffectiveDiscounts) to the numbers the margin engine uses
// (TDiscountsEx): the coefficient formulas, the minimal discounts and the
// marks of a marginal security.
#include <string>

#include "core/DLTypes.h"

namespace DL {

// The credit type of clients that trade on margin by discounts.
inline constexpr int kCreditTypeMarginByDiscounts = 5;

// What GetActualEffectiveDiscountsSettings found for one security.
struct TEffectiveDiscounts {
  std::string secCode;
  std::string classCode;
  int limitKind = 0;        // the limit kind asked for
  double leverage = -1.0;   // the leverage asked for, -1 for none
  double KLong = -1.0;      // the line's numbers, -1 where unset
  double KShort = -1.0;
  double DLong = -1.0;
  double DShort = -1.0;
  double DLongMin = -1.0;
  double DShortMin = -1.0;
  double stockCoefLong = 1.0;   // exponent of the long discount (the line's, else the body's BaseDiscCoeff)
  double stockCoefShort = 1.0;  // the same, short
  int discountType = 3;         // GetDiscountType
  std::string RCur;             // currency of the line
  bool lineFlag1 = false;       // the line's two flags
  bool lineFlag2 = false;
  bool discountsSet = false;        // a line was found for the security
  bool useGlobalDiscounts = true;   // the body does not say DoNotUseGlobalDiscounts
  bool restrictCoeff = false;       // the limit kind 0 body holds a positive BaseDiscCoeff
  bool allowMarginTrading = false;  // the client's credit type trades on margin by discounts
  int creditType = 1;               // the client's credit type ("CREDITLAG", "ClientLag")
};

// The firm's switches and the request's own, for GetEffectiveDiscountsEx2.
struct TDiscountRequest {
  int creditType = 1;               // of the client (TGeneralSettings::GetCreditType)
  bool clientEmpty = false;         // the query is for the firm as a whole
  bool marginalSigns = false;       // "UseMarginalSignsFromDiscSettings"
  bool doNotApplyCoeffToOwn = false;  // "DoNotApplyCoeffToOwnDiscounts"
  bool discountTrdAcc = false;      // "DISCOUNTTRDACC" is set: discounts come from depo quantities
  bool marginal = false;            // the request asks for marginal treatment
  bool uncapped = false;            // a price-derived discount is not capped
  std::string currency;             // the request's currency
  double priceLong = -1.0;          // per cent; below 0 or exactly 100: the line alone
  double priceShort = -1.0;
  double qtyLong = 0.0;             // depo quantities of the discount trade account
  double qtyShort = 0.0;
};

// 1 - (1 - d1)^k against d2: with `own` the larger of the formula and d2,
// else the formula on the larger of d1 and d2. Never above 1.0.
double GetEffectiveDLong(double d1, double d2, double k, bool own);
// (1 + d1)^k - 1, the same way. Above 1e25 the result is 1e50 and
// `*forbidden` (when given) is set.
double GetEffectiveDShort(double d1, double d2, double k, bool own, bool* forbidden = nullptr);

// The discount of a long (short) position from the record and the request.
double GetEffectiveDiscountsLong(const TEffectiveDiscounts& rec, const TDiscountRequest& req, bool own);
double GetEffectiveDiscountsShort(const TEffectiveDiscounts& rec, const TDiscountRequest& req, bool own);
// The minimal discounts from the discounts already in `out`.
void GetEffectiveDiscountsLongMin(const TEffectiveDiscounts& rec, TDiscountsEx& out);
void GetEffectiveDiscountsShortMin(const TEffectiveDiscounts& rec, TDiscountsEx& out);

// Two currencies are one when their main currencies (`mainOf`) agree; an
// empty code equals nothing.
template <class MainOf>
bool IsEqualCurrencies(const std::string& a, const std::string& b, MainOf mainOf) {
  if (a.empty() || b.empty()) return false;
  return a == b || mainOf(a) == mainOf(b);
}

// Fills `out` from the record; returns 1 in every path. `sameCurrency`
// tells whether the record's currency and the request's are one.
int GetEffectiveDiscountsEx2(const TEffectiveDiscounts& rec, const TDiscountRequest& req, bool sameCurrency,
                             TDiscountsEx& out);

}  // namespace DL
