#include "support/StringUtils.h"

#include <cctype>
#include <cstdio>

namespace Library::Utils {
namespace {

bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

constexpr char kBase64[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int Base64Value(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  if (c == '/') return 63;
  return -1;
}

}  // namespace

std::string TrimLeft(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) ++i;
  return std::string(text.substr(i));
}

std::string TrimRight(std::string_view text) {
  size_t n = text.size();
  while (n > 0 && IsSpace(text[n - 1])) --n;
  return std::string(text.substr(0, n));
}

std::string Trim(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) ++i;
  size_t n = text.size();
  while (n > i && IsSpace(text[n - 1])) --n;
  return std::string(text.substr(i, n - i));
}

std::vector<std::string> ParseStrToVector(std::string_view text, char delimiter, bool keepEmpty) {
  std::vector<std::string> items;
  if (text.empty()) return items;
  size_t start = 0;
  while (true) {
    size_t end = text.find(delimiter, start);
    std::string item = Trim(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
    if (keepEmpty || !item.empty()) items.push_back(std::move(item));
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  return items;
}

std::set<std::string> ParseStrToSet(std::string_view text, char delimiter) {
  std::vector<std::string> items = ParseStrToVector(text, delimiter, false);
  return std::set<std::string>(items.begin(), items.end());
}

std::string IntToStr(std::int64_t value) { return std::to_string(value); }

std::string DoubleToStr(double value, int precision) {
  char buffer[512];
  int n = std::snprintf(buffer, sizeof buffer, "%.*f", precision < 0 ? 0 : precision, value);
  if (n < 0) return std::string();
  if (static_cast<size_t>(n) < sizeof buffer) return std::string(buffer, static_cast<size_t>(n));
  std::string big(static_cast<size_t>(n) + 1, '\0');
  std::snprintf(big.data(), big.size(), "%.*f", precision < 0 ? 0 : precision, value);
  big.resize(static_cast<size_t>(n));
  return big;
}

std::string FormatDate(int year, int month, int day) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%02d.%02d.%04d", day, month, year);
  return buffer;
}

std::string FormatTime(int hour, int minute, int second) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", hour, minute, second);
  return buffer;
}

bool StringNoCaseEq(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

double StrToDouble(const std::string& text, double fallback) {
  double value = 0;
  return std::sscanf(text.c_str(), "%lf", &value) == 1 ? value : fallback;
}

std::string ConvertScaledInt64ToStr(std::int64_t value, int scale) {
  if (scale < 0) scale = 0;
  bool negative = value < 0;
  // The magnitude as unsigned, so that the lowest int64 has one too.
  std::uint64_t magnitude = negative ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
  std::string digits = std::to_string(magnitude);
  if (digits.size() <= static_cast<size_t>(scale)) digits.insert(0, static_cast<size_t>(scale) + 1 - digits.size(), '0');
  if (scale > 0) digits.insert(digits.size() - static_cast<size_t>(scale), 1, '.');
  return negative ? "-" + digits : digits;
}

std::string Base64Encode(std::string_view data) {
  std::string out;
  out.reserve((data.size() + 2) / 3 * 4);
  size_t i = 0;
  for (; i + 3 <= data.size(); i += 3) {
    std::uint32_t v = (static_cast<unsigned char>(data[i]) << 16) | (static_cast<unsigned char>(data[i + 1]) << 8) |
                      static_cast<unsigned char>(data[i + 2]);
    out += kBase64[v >> 18];
    out += kBase64[(v >> 12) & 63];
    out += kBase64[(v >> 6) & 63];
    out += kBase64[v & 63];
  }
  size_t rest = data.size() - i;
  if (rest > 0) {
    std::uint32_t v = static_cast<std::uint32_t>(static_cast<unsigned char>(data[i]) << 16);
    if (rest == 2) v |= static_cast<std::uint32_t>(static_cast<unsigned char>(data[i + 1]) << 8);
    out += kBase64[v >> 18];
    out += kBase64[(v >> 12) & 63];
    out += rest == 2 ? kBase64[(v >> 6) & 63] : '=';
    out += '=';
  }
  return out;
}

bool Base64Decode(std::string_view text, std::string& out) {
  out.clear();
  if (text.size() % 4 != 0) return false;
  out.reserve(text.size() / 4 * 3);
  for (size_t i = 0; i < text.size(); i += 4) {
    bool last = i + 4 == text.size();
    int pad = 0;
    if (last && text[i + 3] == '=') pad = text[i + 2] == '=' ? 2 : 1;
    std::uint32_t v = 0;
    for (size_t k = 0; k < 4; ++k) {
      int d = k < 4 - static_cast<size_t>(pad) ? Base64Value(text[i + k]) : 0;
      if (d < 0) {
        out.clear();
        return false;
      }
      v = (v << 6) | static_cast<std::uint32_t>(d);
    }
    out += static_cast<char>(v >> 16);
    if (pad < 2) out += static_cast<char>((v >> 8) & 0xFF);
    if (pad < 1) out += static_cast<char>(v & 0xFF);
  }
  return true;
}

}  // namespace Library::Utils
