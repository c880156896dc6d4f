#pragma once
// The volatility slopes of a portfolio risk configuration: for each of the
// four option positions, points read from "VolatilitySlope_" + position,
// a comma list of pairs of numbers.
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace DL {

struct TVolatilitySlopes {
  enum ESlope : int { LongCall = 0, ShortCall = 1, LongPut = 2, ShortPut = 3, SlopeCount = 4 };
  using TPoint = std::pair<double, double>;

  std::array<std::vector<TPoint>, SlopeCount> points;  // each sorted by sortVolSlopes

  // The parameter name of a slope: "VolatilitySlope_LONG_CALL" and so on.
  static const char* ParamName(ESlope slope);
  // The slope a key names (without regard to case); false for another key.
  static bool FindSlope(std::string_view key, ESlope& slope);
  // The points of a value: an even count of numbers (strtod each), taken in
  // pairs and sorted. An empty value, an odd count or an empty item fails.
  static bool ParsePoints(std::string_view value, std::vector<TPoint>& out);
  // The points as a comma list of numbers (13 decimals at most).
  static std::string PointsToText(const std::vector<TPoint>& points);

  bool operator==(const TVolatilitySlopes&) const = default;
};

// The order of the points of a slope: by the first number, then the second.
bool sortVolSlopes(const TVolatilitySlopes::TPoint& a, const TVolatilitySlopes::TPoint& b);

}  // namespace DL
