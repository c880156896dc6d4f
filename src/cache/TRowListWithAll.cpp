#include "cache/TRowListWithAll.h"

#include <algorithm>

#include "base/TextHelpers.h"
#include "ini/TIniParser.h"

namespace DL {

void TRowListWithAll::FillFromStr(std::string_view text) {
  Clear();
  const std::string& all = TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL);
  for (std::string& item : BoardListToVectorWithoutDuplicates(text, ',')) {
    if (item == all) {
      m_all = true;
      continue;
    }
    m_items.push_back(std::move(item));
  }
  if (m_all) m_items.clear();
}

void TRowListWithAll::Clear() {
  m_all = false;
  m_items.clear();
}

bool TRowListWithAll::Contains(std::string_view code) const {
  if (m_all) return true;
  return std::any_of(m_items.begin(), m_items.end(),
                     [&](const std::string& item) { return IsStringsEqualOrMatchByPrefix(item, code); });
}

std::string TRowListWithAll::ToStr() const {
  return m_all ? TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL) : ListToString(m_items);
}

}  // namespace DL
