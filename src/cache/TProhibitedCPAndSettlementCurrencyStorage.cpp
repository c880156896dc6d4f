#include "cache/TProhibitedCPAndSettlementCurrencyStorage.h"

#include "base/TextHelpers.h"

namespace DL {

bool TProhibitedCPAndSettlementCurrencyStorage::ParseSettingString(const std::string& key, const std::string& value) {
  std::vector<std::string> texts;
  if (!SplitKeyByMarks(key, {"CP_", "_SETTLEMENTCURRENCY_", "_CLASSLIST_"}, texts)) return false;
  std::set<std::string> classes = SplitCodeSet(texts[2]);
  std::set<std::string> items = SplitCodeSet(value);
  if (classes.empty() || items.empty()) return false;
  m_rows.emplace_back(texts[0], texts[1], std::move(classes), std::move(items));
  return true;
}

void TProhibitedCPAndSettlementCurrencyStorage::RebuildSettingsIndex() {
  for (auto& d : m_dims) d.Clear();
  m_index.clear();
  for (const auto& [cp, cur, classes, items] : m_rows) {
    m_dims[0].Add(cp);
    m_dims[1].Add(cur);
    for (const auto& c : classes) m_dims[2].Add(c);
    for (const auto& i : items) m_dims[3].Add(i);
  }
  for (auto& d : m_dims) d.Finish();
  for (const auto& [cp, cur, classes, items] : m_rows) {
    const long a = m_dims[0].Find(cp);
    const long b = m_dims[1].Find(cur);
    for (const auto& c : classes)
      for (const auto& i : items) m_index.insert({a, b, m_dims[2].Find(c), m_dims[3].Find(i)});
  }
}

bool TProhibitedCPAndSettlementCurrencyStorage::CheckRestriction(const std::string& cp, const std::string& currency,
                                                                 const std::string& classCode,
                                                                 const std::string& item) const {
  if (m_rows.empty() || cp.empty() || currency.empty() || classCode.empty() || item.empty()) return false;
  const std::vector<long> a = ApplicablePositions(m_dims[0], cp);
  const std::vector<long> b = ApplicablePositions(m_dims[1], currency);
  const std::vector<long> c = ApplicablePositions(m_dims[2], classCode);
  const std::vector<long> d = ApplicablePositions(m_dims[3], item);
  if (a.empty() || b.empty() || c.empty() || d.empty()) return false;
  for (long i : a)
    for (long j : b)
      for (long k : c)
        for (long l : d)
          if (m_index.count({i, j, k, l}) != 0) return true;
  return false;
}

void TProhibitedCPAndSettlementCurrencyStorage::Make(std::string& out, const std::string& prefix) const {
  for (const auto& [cp, cur, classes, items] : m_rows) {
    out += prefix;
    out += "CP_" + cp + "_SettlementCurrency_" + cur + "_ClassList_" + GetRowWithDelimsFromListRows(classes);
    out += '=';
    out += GetRowWithDelimsFromListRows(items);
    out += '\n';
  }
}

void TProhibitedCPAndSettlementCurrencyStorage::MakeSettingsString(std::string& out, bool soft) const {
  Make(out, std::string(soft ? "Soft_" : "") + kParam);
}

void TProhibitedCPAndSettlementCurrencyStorage::MakeSectionString(std::string& out) const { Make(out, std::string()); }

}  // namespace DL
