#include "settings/KeyRankCache.h"

namespace DL {

void KeyRankCache::Add(std::string_view key, SettingRules::Match match) {
  const uint64_t hash = HashName(key);
  m_entries.push_back({std::string(key), hash, match});
  if (2 * m_entries.size() > m_slots.size()) {
    // Double the table and place every entry again.
    m_slots.assign(2 * m_slots.size(), 0);
    for (size_t i = 0; i < m_entries.size(); ++i) {
      m_slots[SlotOf(m_entries[i].key, m_entries[i].hash)] = static_cast<uint32_t>(i + 1);
    }
    return;
  }
  m_slots[SlotOf(key, hash)] = static_cast<uint32_t>(m_entries.size());
}

}  // namespace DL
