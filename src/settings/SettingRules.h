#pragma once
// An ordered list of ranking rules for names, answered by "the first rule, in
// order, that matches". Used by SettingsNormalizer both for section names and
// for the keys inside a section.
#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "settings/NameHash.h"
#include "settings/NamePattern.h"

namespace DL {

// Rank of a name that no rule matches: after every ranked name.
inline constexpr unsigned long kUnrankedPriority = 100000;

// One rule.
struct SettingPriority {
  unsigned long priority = 0;  // rank; lower comes first
  NamePattern pattern;         // whole-name expression, or a literal prefix
  bool numeric = false;        // keys under this rule are ordered by their value as a number
  size_t children = 0;         // for a section rule: which parameter list orders its keys
};

class SettingRules {
 public:
  // Which rule a name fell under, and for a numeric rule the name's value.
  struct Match {
    const SettingPriority* rule = nullptr;  // null when no rule matched
    unsigned long long number = 0;          // value of the name under a numeric rule, else 0

    unsigned long Priority() const { return rule ? rule->priority : kUnrankedPriority; }
  };

  // Appends a rule; it ranks after all rules added before. The priority is its
  // position in the list.
  void Add(NamePattern pattern, bool numeric = false, size_t children = 0);

  // The first rule, in order, that the name matches. A numeric rule matches
  // only when the name also reads as a number the way std::stoull reads it
  // (leading digits; no digits at all or a value beyond 64 bits does not
  // read); otherwise the search goes on with the next rule.
  [[nodiscard]] Match Find(std::string_view name) const;

  size_t Size() const { return m_rules.size(); }
  const SettingPriority& operator[](size_t i) const { return m_rules[i]; }

 private:
  std::vector<SettingPriority> m_rules;
  // Literal names of the non-numeric choice rules: name -> first rule giving it.
  std::unordered_map<std::string, size_t, NameHasher, std::equal_to<>> m_literal;  // looked up by a view
  // Every other rule, by position, tested in turn: for the empty name all of
  // them, for another name those that a name of its first byte can match.
  std::vector<size_t> m_tested;
  std::array<std::vector<size_t>, 256> m_testedByFirstByte;
};

}  // namespace DL
