#include "cache/TRestrictMaxValueForSettlementCurrencyStorage.h"

#include "base/TextHelpers.h"
#include "base/Numbers.h"

namespace DL {

bool TRestrictMaxValueForSettlementCurrencyStorage::ParseSettingString(const std::string& key,
                                                                       const std::string& value) {
  std::vector<std::string> texts;
  // The currency mark opens the key, so it is searched without its first "_".
  if (!SplitKeyByMarks(key, {"SETTLEMENTCURRENCY_", "_CLASSLIST_", "_SIDE_"}, texts, true)) return false;
  std::set<std::string> classes = SplitCodeSet(texts[1]);
  if (classes.empty()) return false;
  const ESide side = StrToEnumSide(texts[2]);
  if (side == sdUndefined) return false;
  const std::string v = TrimStr(value);
  if (v.empty()) return false;
  const double maximum = StrToDouble(v.c_str());
  if (maximum < 0.0) return false;
  m_rows.emplace_back(texts[0], std::move(classes), side, maximum);
  return true;
}

void TRestrictMaxValueForSettlementCurrencyStorage::RebuildSettingsIndex() {
  for (auto& d : m_dims) d.Clear();
  m_index.clear();
  for (const auto& [cur, classes, side, maximum] : m_rows) {
    m_dims[0].Add(cur);
    for (const auto& c : classes) m_dims[1].Add(c);
  }
  for (auto& d : m_dims) d.Finish();
  for (const auto& [cur, classes, side, maximum] : m_rows)
    for (const auto& c : classes) m_index.emplace(std::make_tuple(m_dims[0].Find(cur), m_dims[1].Find(c), side), maximum);
}

bool TRestrictMaxValueForSettlementCurrencyStorage::CheckRestriction(const std::string& currency,
                                                                     const std::string& classCode, ESide side,
                                                                     double value, double* limit) const {
  if (m_rows.empty() || currency.empty() || classCode.empty() || limit == nullptr || value < 0.0) return false;
  const std::vector<long> a = ApplicablePositions(m_dims[0], currency, false);
  const std::vector<long> b = ApplicablePositions(m_dims[1], classCode);
  if (a.empty() || b.empty()) return false;
  std::vector<ESide> sides{side};
  if (side != sdBoth) sides.push_back(sdBoth);
  for (long i : a)
    for (long j : b)
      for (ESide s : sides) {
        auto it = m_index.find(std::make_tuple(i, j, s));
        if (it != m_index.end() && MIsLT(it->second, value)) {
          *limit = it->second;
          return true;
        }
      }
  return false;
}

void TRestrictMaxValueForSettlementCurrencyStorage::Make(std::string& out, const std::string& prefix) const {
  for (const auto& [cur, classes, side, maximum] : m_rows) {
    if (!MIsGTZero(maximum)) continue;
    out += prefix;
    out += "SettlementCurrency_" + cur + "_ClassList_" + GetRowWithDelimsFromListRows(classes) + "_Side_" +
           EnumSideToStr(side);
    out += '=';
    out += DoubleToString(maximum);
    out += '\n';
  }
}

void TRestrictMaxValueForSettlementCurrencyStorage::MakeSettingsString(std::string& out, bool soft) const {
  Make(out, std::string(soft ? "Soft_" : "") + kParam);
}

void TRestrictMaxValueForSettlementCurrencyStorage::MakeSectionString(std::string& out) const {
  Make(out, std::string());
}

}  // namespace DL
