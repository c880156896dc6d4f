#include "commission/TRepoPerDayCommissionStorage.h"

#include "base/TextHelpers.h"
#include "base/TradingTypes.h"

namespace DL {

namespace {
constexpr std::string_view kPrefixUp = "REPOPERDAYCOMMISSION_";
}  // namespace

bool TRepoPerDayCommissionStorage::ParseSettingString(const std::string& key, const std::string& value) {
  const std::string keyUp = StrUpper(TrimStr(key));
  if (keyUp.size() <= kPrefixUp.size() || keyUp.compare(0, kPrefixUp.size(), kPrefixUp) != 0) return false;
  const std::string classCode = keyUp.substr(kPrefixUp.size());
  TRepoCommRates rates;
  if (!ParseRepoCommRates(value, rates)) return false;
  SetRates(classCode, rates);
  return true;
}

void TRepoPerDayCommissionStorage::SetRates(const std::string& classCode, const TRepoCommRates& rates) {
  if (classCode == AllMark)
    m_common = rates;
  else
    m_byClass[classCode] = rates;
}

bool TRepoPerDayCommissionStorage::GetCommissionRates(const std::string& classCode, TRepoCommRates* out) const {
  const auto it = m_byClass.find(classCode);
  if (it != m_byClass.end()) {
    if (out != nullptr) *out = it->second;
    return true;
  }
  if (m_common.CommType.value == rctNotSet) return false;
  if (out != nullptr) *out = m_common;
  return true;
}

}  // namespace DL
