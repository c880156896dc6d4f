#include "cache/TMaxSettleDateByAssetTypeAndClassListStorage.h"

#include <cerrno>
#include <cstdlib>
#include <limits>

#include "base/TextHelpers.h"
#include "base/Numbers.h"

namespace DL {

namespace {
constexpr std::string_view kParamUp = "MAXSETTLEDATEBYASSETTYPE";
}  // namespace

bool TMaxSettleDateByAssetTypeAndClassListStorage::ParseSettingString(const std::string& key,
                                                                      const std::string& value) {
  // Without the parameter name and the "_" that may follow it, the key opens
  // with "ClassList_".
  std::string_view rest(key);
  if (StrUpper(rest.substr(0, kParamUp.size())) == kParamUp) rest.remove_prefix(kParamUp.size());
  if (!rest.empty() && rest.front() == '_') rest.remove_prefix(1);
  std::vector<std::string> texts;
  if (!SplitKeyByMarks(rest, {"CLASSLIST_", "_ASSETTYPE_", "_SIDE_"}, texts)) return false;
  std::set<std::string> classes = SplitCodeSet(texts[0]);
  if (classes.empty()) return false;
  const ZDL_AssetType type = AssetTypeToEnum(texts[1]);
  if (type == ZDL_atUnknown) return false;
  if (texts[2].size() != 1) return false;
  const ESide side = CharToEnumSide(texts[2][0]);
  if (side == sdUndefined) return false;
  const std::string v = TrimStr(value);
  if (v.empty()) return false;
  char* end = nullptr;
  errno = 0;
  const long days = std::strtol(v.c_str(), &end, 10);
  if (errno != 0 || days <= 0 || days > std::numeric_limits<std::int32_t>::max()) return false;
  m_rows.emplace_back(std::move(classes), type, side, static_cast<std::int32_t>(days));
  return true;
}

void TMaxSettleDateByAssetTypeAndClassListStorage::RebuildSettingsIndex() {
  m_classes.Clear();
  m_index.clear();
  for (const auto& row : m_rows)
    for (const auto& c : std::get<0>(row)) m_classes.Add(c);
  m_classes.Finish();
  for (const auto& [classes, type, side, days] : m_rows)
    for (const auto& c : classes) m_index.emplace(std::make_tuple(m_classes.Find(c), type, side), days);
}

bool TMaxSettleDateByAssetTypeAndClassListStorage::CheckRestriction(const std::string& classCode,
                                                                    ZDL_AssetType& assetType, ESide& side,
                                                                    std::int32_t& days) const {
  if (assetType == ZDL_atUnknown || EnumToAssetType(assetType)[0] == '\0' || days < 0) return false;
  if (m_rows.empty() || classCode.empty()) return false;
  const std::vector<long> classes = ApplicablePositions(m_classes, classCode);
  if (classes.empty()) return false;
  std::vector<ESide> sides;
  if (side == sdBoth)
    sides = {sdBuy, sdSell};
  else
    sides = {side};
  for (long c : classes)
    for (ESide s : sides) {
      auto it = m_index.find(std::make_tuple(c, assetType, s));
      if (it != m_index.end() && it->second <= days) {
        side = s;
        days = it->second;
        return true;
      }
    }
  return false;
}

void TMaxSettleDateByAssetTypeAndClassListStorage::Make(std::string& out, const std::string& prefix) const {
  for (const auto& [classes, type, side, days] : m_rows) {
    if (!MIsGTZero(days)) continue;
    out += prefix;
    out += "ClassList_" + GetRowWithDelimsFromListRows(classes) + "_AssetType_" + EnumToAssetType(type) + "_Side_" +
           EnumSideToStr(side);
    out += '=';
    out += IntToString(days);
    out += '\n';
  }
}

void TMaxSettleDateByAssetTypeAndClassListStorage::MakeSettingsString(std::string& out) const { Make(out, kParam); }

void TMaxSettleDateByAssetTypeAndClassListStorage::MakeSectionString(std::string& out) const {
  Make(out, std::string());
}

}  // namespace DL
