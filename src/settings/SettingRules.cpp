#include "settings/SettingRules.h"

#include <cerrno>
#include <cstdlib>

namespace DL {

namespace {

// std::stoull without the exceptions: strtoull in base 10, failing when no
// byte was read or the value does not fit.
bool ReadUnsigned(std::string_view name, unsigned long long* value) {
  const std::string text(name);  // strtoull reads up to a terminating zero
  errno = 0;
  char* end = nullptr;
  const unsigned long long v = std::strtoull(text.c_str(), &end, 10);
  if (end == text.c_str() || errno == ERANGE) return false;
  *value = v;
  return true;
}

}  // namespace

void SettingRules::Add(NamePattern pattern, bool numeric, size_t children) {
  const size_t index = m_rules.size();
  if (!numeric && !pattern.LiteralNames().empty()) {
    for (const std::string& name : pattern.LiteralNames()) m_literal.emplace(name, index);  // an earlier rule keeps the name
  } else {
    m_tested.push_back(index);
    const std::bitset<256> first = pattern.FirstBytes();
    for (size_t b = 0; b < 256; ++b) {
      if (first.test(b)) m_testedByFirstByte[b].push_back(index);
    }
  }
  m_rules.push_back({static_cast<unsigned long>(index), std::move(pattern), numeric, children});
}

SettingRules::Match SettingRules::Find(std::string_view name) const {
  size_t limit = m_rules.size();
  if (const auto it = m_literal.find(name); it != m_literal.end()) limit = it->second;
  const std::vector<size_t>& tested =
      name.empty() ? m_tested : m_testedByFirstByte[static_cast<unsigned char>(name[0])];
  for (size_t index : tested) {
    if (index >= limit) break;
    const SettingPriority& rule = m_rules[index];
    if (!rule.pattern.Matches(name)) continue;
    if (!rule.numeric) return {&rule, 0};
    unsigned long long value = 0;
    if (ReadUnsigned(name, &value)) return {&rule, value};
  }
  if (limit < m_rules.size()) return {&m_rules[limit], 0};
  return {};
}

}  // namespace DL
