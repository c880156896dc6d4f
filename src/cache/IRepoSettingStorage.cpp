#include "cache/IRepoSettingStorage.h"

#include <algorithm>

#include "base/TextHelpers.h"
#include "base/TradingTypes.h"

namespace DL {

void TRepoSettingDimension::Finish() {
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  allPos = GetVectorElemIndex(values, AllMark);
}

long TRepoSettingDimension::Find(std::string_view value) const { return GetVectorElemIndex(values, value); }

long GetVectorElemIndex(const std::vector<std::string>& sorted, std::string_view value) {
  auto it = std::lower_bound(sorted.begin(), sorted.end(), value,
                             [](const std::string& a, std::string_view b) { return std::string_view(a) < b; });
  if (it == sorted.end() || *it != value) return -1;
  return static_cast<long>(it - sorted.begin());
}

void AddIndexToListIfValid(std::vector<long>& list, long index) {
  if (index >= 0) list.push_back(index);
}

std::vector<long> ApplicablePositions(const TRepoSettingDimension& dim, std::string_view value, bool allowAll) {
  std::vector<long> out;
  const long own = dim.Find(value);
  AddIndexToListIfValid(out, own);
  if (allowAll && dim.allPos != own) AddIndexToListIfValid(out, dim.allPos);
  return out;
}

bool SplitKeyByMarks(std::string_view key, const std::vector<std::string_view>& marksUp,
                     std::vector<std::string>& texts, bool lastMayBeEmpty) {
  texts.clear();
  if (marksUp.empty()) return false;
  const std::string up = StrUpper(key);
  std::vector<size_t> pos;
  for (std::string_view mark : marksUp) {
    const size_t p = up.find(mark);
    if (p == std::string::npos) return false;
    if (!pos.empty() && p < pos.back() + marksUp[pos.size() - 1].size()) return false;  // out of order
    pos.push_back(p);
  }
  if (pos.front() != 0) return false;
  for (size_t i = 0; i < pos.size(); ++i) {
    const size_t from = pos[i] + marksUp[i].size();
    const size_t to = i + 1 < pos.size() ? pos[i + 1] : key.size();
    std::string text = TrimStr(key.substr(from, to - from));
    if (text.empty() && !(lastMayBeEmpty && i + 1 == pos.size())) return false;
    texts.push_back(std::move(text));
  }
  return true;
}

std::set<std::string> SplitCodeSet(std::string_view text) {
  std::set<std::string> out;
  ParseRowWithDelimsToListRows(text, ',', out);
  return out;
}

}  // namespace DL
