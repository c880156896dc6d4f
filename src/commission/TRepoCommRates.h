#pragma once
// The repo commission of one class (or one term of a class's scale): its
// kind, a rate per day in per cent and a money amount.
#include <string>

#include "commission/TREPOCommTypeEnum.h"

namespace DL {

struct TRepoCommRates {
  TREPOCommTypeEnum CommType;  // rctNotSet (4) means not set
  double Rate = 0.0;
  double Amount = 0.0;

  bool operator==(const TRepoCommRates&) const = default;
};

// A repo commission as the host engine takes it: the base kind (see
// TREPOCommTypeEnum::ToBaseCommType), the rate for the whole term and the
// amount.
struct TRepoCommission {
  int BaseCommType = 0;
  double Rate = 0.0;
  double Amount = 0.0;
};

// The commission of a deal of `term` days under `found`: REPOFIXED the rate
// times the term (a term of 0 leaves the rate as it is) and no amount;
// REPOTRADE no rate and the amount; REPOTRADE_MAX and REPOTRADE_SUM the rate
// times the term and the amount. The base kind is always set. Any other kind
// gives rate and amount 0 and false.
bool CalcRepoCommission(const TRepoCommRates& found, short term, TRepoCommission& out);

// Reads the numbers of a repo commission value, "a,b": for REPOFIXED a is
// the rate (the amount is 0), for REPOTRADE b is the amount (the rate is 0),
// for REPOTRADE_MAX and REPOTRADE_SUM a is the rate and b the amount. False,
// with rate and amount untouched, for a text without a comma, an empty or
// unreadable part, more than two parts, or a kind that is not set.
bool ParseSettingRepoPerDayAndScaleCommission(const std::string& text, TREPOCommTypeEnum type, double& rate,
                                              double& amount);

// A whole value "KIND,a,b": the kind by StrToEnumREPOCommType, then the
// numbers as above. False, with `out` untouched, when the kind is not one of
// the four or the numbers do not read.
bool ParseRepoCommRates(const std::string& value, TRepoCommRates& out);
// The value text of ParseRepoCommRates: "KIND,rate,amount".
std::string RepoCommRatesToStr(const TRepoCommRates& rates);

}  // namespace DL
