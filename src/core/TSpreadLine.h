#pragma once
// One spread tier line of a portfolio risk configuration. The key is
// "Spread_" + tier + "_" + first leg, and optionally "_" + second leg: one
// leg is a spread within one instrument kind or asset (both legs the same),
// two legs a spread between them. The legs are codes of at most 12
// characters, kept as written ("SPT", "FUT", "OPT", or a base asset). The
// value is a comma list of numbers, the first the spread rate; a second
// number, when given, is the rate of the second leg.
#include <string>
#include <string_view>
#include <vector>

#include "base/TClassList.h"

namespace DL {

struct TSpreadLine {
  std::string key;             // the key as written; empty for a default line
  std::string tier;            // as listed in "SpreadTiers"
  std::string leg1;
  std::string leg2;            // the same as leg1 for a one-leg line
  std::vector<double> values;  // at least one number for a read line
  bool isDefault = false;      // made by FillDefaultSpreadLine, not written out

  // The rate of each leg: the first number, and the second or else the first.
  double Rate1() const { return values.empty() ? 0.0 : values[0]; }
  double Rate2() const { return values.size() > 1 ? values[1] : Rate1(); }

  bool operator==(const TSpreadLine&) const = default;
};

// True when the key begins with "SPREAD_" (without regard to case): the key
// is a spread line, well formed or not.
bool IsSpreadLineKey(std::string_view key);
// Reads one line. The upper-cased key must begin with "SPREAD_", its tier
// must stand among `tiers` (without regard to case), it must have one or two
// legs of 1 to 12 characters, and the value must hold at least one number
// (StringListToDoubleVector). False for anything else: the line is skipped.
bool ParseSpreadLine(std::string_view key, std::string_view value, const TClassList& tiers, TSpreadLine& out);
// The line of a tier that the section names without a line of its own: the
// base asset against itself at a rate of 0.
TSpreadLine FillDefaultSpreadLine(const std::string& tier, const std::string& baseAsset);
// The value of a read line: its numbers joined with ",".
std::string SpreadLineValueToText(const TSpreadLine& line);

}  // namespace DL
