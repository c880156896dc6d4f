#include "cache/TSecurityDiscounts.h"

#include <cstdlib>
#include <vector>

namespace DL {

namespace {

constexpr std::size_t kMaxCodeLength = 12;

std::string_view Trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
  return s;
}

std::vector<std::string_view> SplitItems(std::string_view line) {
  std::vector<std::string_view> items;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= line.size(); ++i) {
    if (i == line.size() || line[i] == ',' || line[i] == '|') {
      items.push_back(Trim(line.substr(start, i - start)));
      start = i + 1;
    }
  }
  return items;
}

// The number of an item, or -1 when it is empty, unreadable or out of
// [low, high].
double ReadNumber(std::string_view item, double low, double high) {
  if (item.empty()) return -1.0;
  const std::string text(item);
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (end == text.c_str() || *end != '\0') return -1.0;
  if (v < low || v > high) return -1.0;
  return v;
}

bool ReadFlag(std::string_view item) {
  if (item.empty()) return false;
  const std::string text(item);
  return std::strtol(text.c_str(), nullptr, 10) != 0;
}

}  // namespace

TSecurityDiscounts TSecurityDiscounts::Parse(std::string_view line) {
  constexpr double kAny = 1e300;
  TSecurityDiscounts d;
  const std::vector<std::string_view> items = SplitItems(line);
  auto item = [&](std::size_t i) { return i < items.size() ? items[i] : std::string_view(); };
  d.KLong = ReadNumber(item(0), 0.0, kAny);
  d.KShort = ReadNumber(item(1), 0.0, kAny);
  d.DLong = ReadNumber(item(2), 0.0, 1.0);
  d.DShort = ReadNumber(item(3), 0.0, kAny);
  d.DLongMin = ReadNumber(item(4), 0.0, 1.0);
  d.DShortMin = ReadNumber(item(5), 0.0, kAny);
  d.RCur = std::string(item(6));
  d.flag1 = ReadFlag(item(7));
  d.flag2 = ReadFlag(item(8));
  return d;
}

bool TSecurityDiscounts::IsEmpty() const {
  return KLong < 0 && KShort < 0 && DLong < 0 && DShort < 0 && DLongMin < 0 && DShortMin < 0 && RCur.empty() &&
         !flag1 && !flag2;
}

void TSecurityDiscountsTable::Add(const std::string& key, std::string_view line) {
  const TSecurityDiscounts d = TSecurityDiscounts::Parse(line);
  if (d.IsEmpty() || key.empty()) return;
  if (key.size() > 1 && key.size() <= kMaxCodeLength && key.back() == '*')
    m_prefix[key.substr(0, key.size() - 1)] = d;
  else
    m_exact[key] = d;
}

const TSecurityDiscounts* TSecurityDiscountsTable::Find(std::string_view security, bool prefixSearch) const {
  if (!m_exact.empty()) {
    const auto it = m_exact.find(security);
    if (it != m_exact.end()) return &it->second;
  }
  if (!prefixSearch || m_prefix.empty()) return nullptr;
  std::string_view code = security;
  if (!code.empty() && code.back() == '*') code.remove_suffix(1);
  if (code.size() > kMaxCodeLength) code = code.substr(0, kMaxCodeLength);
  while (!code.empty()) {
    const auto it = m_prefix.find(code);
    if (it != m_prefix.end()) return &it->second;
    code.remove_suffix(1);
  }
  return nullptr;
}

}  // namespace DL
