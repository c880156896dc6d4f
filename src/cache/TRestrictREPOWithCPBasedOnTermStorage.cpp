#include "cache/TRestrictREPOWithCPBasedOnTermStorage.h"

#include <cerrno>
#include <cstdlib>
#include <limits>

#include "base/TextHelpers.h"

namespace DL {

bool TRestrictREPOWithCPBasedOnTermStorage::ParseSettingString(const std::string& key, const std::string& value) {
  std::vector<std::string> texts;
  if (!SplitKeyByMarks(key, {"CP_", "_SETTLEMENTCURRENCY_", "_FACEVALUECURRENCY_", "_CLASSLIST_"}, texts))
    return false;
  std::set<std::string> classes = SplitCodeSet(texts[3]);
  if (classes.empty()) return false;
  const std::string v = TrimStr(value);
  if (v.empty()) return false;
  char* end = nullptr;
  errno = 0;
  const long term = std::strtol(v.c_str(), &end, 10);
  if (*end != '\0' || errno != 0 || term < std::numeric_limits<std::int16_t>::min() ||
      term > std::numeric_limits<std::int16_t>::max())
    return false;
  m_rows.emplace_back(texts[0], texts[1], texts[2], std::move(classes), static_cast<std::int16_t>(term));
  return true;
}

void TRestrictREPOWithCPBasedOnTermStorage::RebuildSettingsIndex() {
  for (auto& d : m_dims) d.Clear();
  m_index.clear();
  for (const auto& [cp, cur, face, classes, term] : m_rows) {
    m_dims[0].Add(cp);
    m_dims[1].Add(cur);
    m_dims[2].Add(face);
    for (const auto& c : classes) m_dims[3].Add(c);
  }
  for (auto& d : m_dims) d.Finish();
  for (const auto& [cp, cur, face, classes, term] : m_rows)
    for (const auto& c : classes)
      m_index.emplace(std::array<long, 4>{m_dims[0].Find(cp), m_dims[1].Find(cur), m_dims[2].Find(face),
                                          m_dims[3].Find(c)},
                      term);
}

bool TRestrictREPOWithCPBasedOnTermStorage::CheckRestriction(const std::string& cp, const std::string& currency,
                                                             const std::string& faceCurrency,
                                                             const std::string& classCode, int term,
                                                             int* found) const {
  if (m_rows.empty() || cp.empty() || currency.empty() || faceCurrency.empty() || classCode.empty()) return false;
  const std::vector<long> a = ApplicablePositions(m_dims[0], cp);
  const std::vector<long> b = ApplicablePositions(m_dims[1], currency);
  const std::vector<long> c = ApplicablePositions(m_dims[2], faceCurrency);
  const std::vector<long> d = ApplicablePositions(m_dims[3], classCode);
  if (a.empty() || b.empty() || c.empty() || d.empty()) return false;
  for (long i : a)
    for (long j : b)
      for (long k : c)
        for (long l : d) {
          auto it = m_index.find({i, j, k, l});
          if (it != m_index.end() && it->second < term) {
            if (found != nullptr) *found = it->second;
            return true;
          }
        }
  return false;
}

void TRestrictREPOWithCPBasedOnTermStorage::Make(std::string& out, const std::string& prefix) const {
  for (const auto& [cp, cur, face, classes, term] : m_rows) {
    out += prefix;
    out += "CP_" + cp + "_SettlementCurrency_" + cur + "_FaceValueCurrency_" + face + "_ClassList_" +
           GetRowWithDelimsFromListRows(classes);
    out += '=';
    out += IntToString(term);
    out += '\n';
  }
}

void TRestrictREPOWithCPBasedOnTermStorage::MakeSettingsString(std::string& out, bool soft) const {
  Make(out, std::string(soft ? "Soft_" : "") + kParam);
}

void TRestrictREPOWithCPBasedOnTermStorage::MakeSectionString(std::string& out) const { Make(out, std::string()); }

}  // namespace DL
