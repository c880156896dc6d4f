#pragma once
// A quick hash of a short name (section names, parameter keys): eight bytes
// a step, each step a multiply and a fold. Names are short, so a step or two
// covers them; the library's string hash costs several times more on them.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace DL {

inline uint64_t HashName(std::string_view name) {
  constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15ull;
  uint64_t h = name.size() * kMultiplier;
  const char* at = name.data();
  size_t left = name.size();
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

// For hashed containers of names, looked up by a view.
struct NameHasher {
  using is_transparent = void;
  size_t operator()(std::string_view name) const { return static_cast<size_t>(HashName(name)); }
};

}  // namespace DL
