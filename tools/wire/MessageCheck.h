#pragma once
// Tells whether bytes form a well-formed message before anything reads them:
// the field counter equals the number of fields, every type byte is a known
// code, every value fits in the bytes, and nested messages obey the same rules
// down to a bounded depth.
#include <cstddef>

namespace ZentWire {

inline constexpr int kMaxMessageDepth = 32;

[[nodiscard]] bool IsWellFormedMessage(const char* data, std::size_t size, int depth = 0);

}  // namespace ZentWire
