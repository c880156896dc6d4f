#include "core/TVolatilitySlopes.h"

#include <algorithm>
#include <cstdlib>

#include "base/TextHelpers.h"
#include "ini/SettingsText.h"

namespace DL {

namespace {

const char* const kSlopeNames[TVolatilitySlopes::SlopeCount] = {
    "VolatilitySlope_LONG_CALL", "VolatilitySlope_SHORT_CALL", "VolatilitySlope_LONG_PUT",
    "VolatilitySlope_SHORT_PUT"};

}  // namespace

const char* TVolatilitySlopes::ParamName(ESlope slope) { return kSlopeNames[slope]; }

bool TVolatilitySlopes::FindSlope(std::string_view key, ESlope& slope) {
  for (int i = 0; i < SlopeCount; ++i)
    if (IsSameSettingsName(key, kSlopeNames[i])) {
      slope = static_cast<ESlope>(i);
      return true;
    }
  return false;
}

bool TVolatilitySlopes::ParsePoints(std::string_view value, std::vector<TPoint>& out) {
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.empty() || items.size() % 2 != 0) return false;
  std::vector<TPoint> points;
  for (std::size_t i = 0; i < items.size(); i += 2) {
    if (items[i].empty() || items[i + 1].empty()) return false;
    points.emplace_back(std::strtod(items[i].c_str(), nullptr), std::strtod(items[i + 1].c_str(), nullptr));
  }
  std::stable_sort(points.begin(), points.end(), sortVolSlopes);
  out = std::move(points);
  return true;
}

std::string TVolatilitySlopes::PointsToText(const std::vector<TPoint>& points) {
  std::string text;
  for (const TPoint& p : points) {
    if (!text.empty()) text += ',';
    text += DoubleToString(p.first, 13);
    text += ',';
    text += DoubleToString(p.second, 13);
  }
  return text;
}

bool sortVolSlopes(const TVolatilitySlopes::TPoint& a, const TVolatilitySlopes::TPoint& b) {
  if (a.first != b.first) return a.first < b.first;
  return a.second < b.second;
}

}  // namespace DL
