#include "base/TClassList.h"

#include <utility>

#include "base/TextHelpers.h"

namespace DL {

void TClassList::Assign(std::string_view text, EMode mode) {
  Clear();
  for (std::string& item : BoardListToVector(text, ',')) {
    if (mode == UpperNoRepeats) RealStrToUpper(item);
    Add(std::move(item), mode != KeepRepeats);
  }
}

void TClassList::AppendMissing(const TClassList& other) {
  for (const std::string& item : other.m_items) Add(item, true);
}

void TClassList::Clear() {
  m_items.clear();
  m_set.clear();
}

std::string TClassList::ToString() const { return ListToString(m_items, ','); }

void TClassList::Add(std::string item, bool unique) {
  const bool added = m_set.insert(item).second;
  if (added || !unique) m_items.push_back(std::move(item));
}

}  // namespace DL
