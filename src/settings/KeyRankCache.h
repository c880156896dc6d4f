#pragma once
// Remembers, for the keys met while normalising, which parameter rule each
// key fell under. The same few dozen keys come back in section after section,
// so after the first meeting a key costs one hash of its bytes and one
// comparison instead of a walk through the rules.
//
// An open-addressed table with linear probing: slots hold positions in the
// list of entries, the table is a power of two long and at most half full.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "settings/NameHash.h"
#include "settings/SettingRules.h"

namespace DL {

class KeyRankCache {
 public:
  KeyRankCache() : m_slots(kFirstSize, 0) {}

  // The answer remembered for key, or null. Inline: it runs once a parameter.
  [[nodiscard]] const SettingRules::Match* Find(std::string_view key) const {
    const uint32_t held = m_slots[SlotOf(key, HashName(key))];
    return held == 0 ? nullptr : &m_entries[held - 1].match;
  }
  // Remembers the answer for a key that Find does not know.
  void Add(std::string_view key, SettingRules::Match match);

  size_t Size() const { return m_entries.size(); }

 private:
  static constexpr size_t kFirstSize = 64;

  struct Entry {
    std::string key;
    uint64_t hash;
    SettingRules::Match match;
  };

  // The slot holding key, or the empty slot where it would go.
  size_t SlotOf(std::string_view key, uint64_t hash) const {
    const size_t mask = m_slots.size() - 1;
    for (size_t slot = static_cast<size_t>(hash ^ (hash >> 32)) & mask;; slot = (slot + 1) & mask) {
      const uint32_t held = m_slots[slot];
      if (held == 0) return slot;
      const Entry& e = m_entries[held - 1];
      if (e.hash == hash && e.key == key) return slot;
    }
  }

  std::vector<Entry> m_entries;
  std::vector<uint32_t> m_slots;  // 1 + position in m_entries; 0 for an empty slot
};

}  // namespace DL
