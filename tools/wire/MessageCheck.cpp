#include "MessageCheck.h"

#include <cstdint>

namespace ZentWire {
namespace {

std::uint32_t Le32(const char* p) {
  const auto* u = reinterpret_cast<const unsigned char*>(p);
  return static_cast<std::uint32_t>(u[0]) | (static_cast<std::uint32_t>(u[1]) << 8) |
         (static_cast<std::uint32_t>(u[2]) << 16) | (static_cast<std::uint32_t>(u[3]) << 24);
}

// Width of the value of a fixed-size field; 0 for a counted field, -1 for an unknown code.
int FixedWidth(unsigned char type) {
  switch (type) {
    case 1: return 1;
    case 2: return 2;
    case 3: return 4;
    case 4: return 8;
    case 5: return 8;
    case 9: return 4;
    case 6:
    case 7:
    case 8: return 0;
    default: return -1;
  }
}

}  // namespace

bool IsWellFormedMessage(const char* data, std::size_t size, int depth) {
  if (depth > kMaxMessageDepth || size < 4) return false;
  const std::uint32_t counter = Le32(data);
  std::size_t at = 4;
  std::uint32_t fields = 0;
  while (at < size) {
    const auto type = static_cast<unsigned char>(data[at++]);
    const int width = FixedWidth(type);
    if (width < 0) return false;
    if (width > 0) {
      if (size - at < static_cast<std::size_t>(width)) return false;
      at += static_cast<std::size_t>(width);
    } else {
      if (size - at < 4) return false;
      const std::uint32_t length = Le32(data + at);
      at += 4;
      if (size - at < length) return false;
      if (type == 8 && length != 0 && !IsWellFormedMessage(data + at, length, depth + 1)) return false;
      at += length;
    }
    ++fields;
  }
  return fields == counter;
}

}  // namespace ZentWire
