#include "settings/KeyRankCache.h"

#include <cstring>

namespace DL {

uint64_t KeyRankCache::Hash(std::string_view key) {
  // Eight bytes a step, each step a multiply and a fold: keys are short, so
  // a few steps cover them.
  constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15ull;
  uint64_t h = key.size() * kMultiplier;
  const char* at = key.data();
  size_t left = key.size();
  for (; left >= 8; at += 8, left -= 8) {
    uint64_t chunk;
    std::memcpy(&chunk, at, 8);
    h = (h ^ chunk) * kMultiplier;
    h ^= h >> 29;
  }
  if (left > 0) {
    uint64_t chunk = 0;
    for (size_t i = 0; i < left; ++i) chunk |= static_cast<uint64_t>(static_cast<unsigned char>(at[i])) << (8 * i);
    h = (h ^ chunk) * kMultiplier;
    h ^= h >> 29;
  }
  return h;
}

size_t KeyRankCache::SlotOf(std::string_view key, uint64_t hash) const {
  const size_t mask = m_slots.size() - 1;
  for (size_t slot = static_cast<size_t>(hash ^ (hash >> 32)) & mask;; slot = (slot + 1) & mask) {
    const uint32_t held = m_slots[slot];
    if (held == 0) return slot;
    const Entry& e = m_entries[held - 1];
    if (e.hash == hash && e.key == key) return slot;
  }
}

const SettingRules::Match* KeyRankCache::Find(std::string_view key) const {
  const uint32_t held = m_slots[SlotOf(key, Hash(key))];
  return held == 0 ? nullptr : &m_entries[held - 1].match;
}

void KeyRankCache::Add(std::string_view key, SettingRules::Match match) {
  const uint64_t hash = Hash(key);
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
