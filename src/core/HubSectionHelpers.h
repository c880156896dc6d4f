#pragma once
// Small helpers shared by the hub's section readers and writers: line and
// section composition, and the strict readers of codes and numbers that
// decide whether a line is understood or kept raw.
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/HubGlobalSectionTypes.h"

namespace DL::HubText {

// Longest class, client, security, board and trade account code; longest
// currency code.
inline constexpr std::size_t kCodeMax = 12;
inline constexpr std::size_t kCurrencyMax = 4;

inline void AppendLine(std::string& out, std::string_view name, std::string_view value) {
  out += name;
  out += '=';
  out += value;
  out += '\n';
}

inline void AppendRawLines(std::string& out, const TRawLines& raw) {
  for (const auto& [key, value] : raw) AppendLine(out, key, value);
}

// "[name]" and the body; nothing when the body is empty.
inline void WriteSection(std::string& out, std::string_view name, const std::string& body) {
  if (body.empty()) return;
  out += '[';
  out += name;
  out += "]\n";
  out += body;
}

// A code of 1 to `max` bytes.
inline bool IsCode(std::string_view code, std::size_t max = kCodeMax) {
  return !code.empty() && code.size() <= max;
}

// A whole decimal integer (a sign allowed) and nothing else.
inline bool ReadWholeInt(const std::string& text, int& out) {
  if (text.empty()) return false;
  char* end = nullptr;
  errno = 0;
  const long v = std::strtol(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != '\0' || errno != 0 || v < -2147483647L - 1 || v > 2147483647L) return false;
  out = static_cast<int>(v);
  return true;
}

// A whole finite real number and nothing else.
inline bool ReadWholeDouble(const std::string& text, double& out) {
  if (text.empty()) return false;
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (end == text.c_str() || *end != '\0' || !std::isfinite(v)) return false;
  out = v;
  return true;
}

}  // namespace DL::HubText
