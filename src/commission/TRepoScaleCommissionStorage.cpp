#include "commission/TRepoScaleCommissionStorage.h"

#include <cerrno>
#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/TradingTypes.h"

namespace DL {

namespace {

constexpr std::string_view kPrefixUp = "REPOSCALE_";

bool ReadTerm(const std::string& text, std::int16_t& out) {
  if (text.empty()) return false;
  char* end = nullptr;
  errno = 0;
  const long v = std::strtol(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != '\0' || errno != 0 || v < -32768 || v > 32767) return false;
  out = static_cast<std::int16_t>(v);
  return true;
}

}  // namespace

bool TRepoScaleCommissionStorage::ParseSettingString(const std::string& key, const std::string& value) {
  const std::string keyUp = StrUpper(TrimStr(key));
  if (keyUp.size() <= kPrefixUp.size() || keyUp.compare(0, kPrefixUp.size(), kPrefixUp) != 0) return false;
  const std::string rest = keyUp.substr(kPrefixUp.size());
  const std::size_t cut = rest.rfind('_');
  if (cut == std::string::npos || cut == 0) return false;
  const std::string classCode = rest.substr(0, cut);
  std::int16_t term = 0;
  if (!ReadTerm(rest.substr(cut + 1), term)) return false;
  TRepoCommRates rates;
  if (!ParseRepoCommRates(value, rates)) return false;
  SetStep(classCode, term, rates);
  return true;
}

void TRepoScaleCommissionStorage::SetStep(const std::string& classCode, std::int16_t term,
                                          const TRepoCommRates& rates) {
  if (classCode == AllMark)
    m_common[term] = rates;
  else
    m_byClass[classCode][term] = rates;
}

bool TRepoScaleCommissionStorage::GetCommissionScaleRates(const std::string& classCode, short term,
                                                          TRepoCommRates* out) const {
  const auto it = m_byClass.find(classCode);
  const TScale& scale = it != m_byClass.end() ? it->second : m_common;
  if (scale.empty()) return false;
  TRepoCommRates result = scale.begin()->second;
  for (auto step = scale.rbegin(); step != scale.rend(); ++step) {
    if (step->first > term) continue;
    if (step->second.CommType.value == rctNotSet) return false;
    result = step->second;
    break;
  }
  if (out != nullptr) *out = result;
  return true;
}

}  // namespace DL
