#pragma once
// The discount line of one security, as a margin section or the global
// section "SecurityDiscounts" writes it, and the table of such lines of one
// body: exact keys and prefix keys ("SB*").
#include <map>
#include <string>
#include <string_view>

#include "ini/SettingsText.h"

namespace DL {

// One discount line: items split at "," or "|", by position. An item that is
// empty, unreadable or out of its range leaves -1 (the currency: empty).
struct TSecurityDiscounts {
  double KLong = -1.0;      // 0: coefficient of the long discount, 0 or more
  double KShort = -1.0;     // 1: coefficient of the short discount, 0 or more
  double DLong = -1.0;      // 2: discount of a long position, 0 to 1
  double DShort = -1.0;     // 3: discount of a short position, 0 or more
  double DLongMin = -1.0;   // 4: minimal long discount, 0 to 1
  double DShortMin = -1.0;  // 5: minimal short discount, 0 or more
  std::string RCur;         // 6: currency of the discount
  bool flag1 = false;       // 7: nonzero is true
  bool flag2 = false;       // 8: nonzero is true; marks the security as marginal

  static TSecurityDiscounts Parse(std::string_view line);
  // Nothing set: no number, no currency, no flag.
  bool IsEmpty() const;
  bool operator==(const TSecurityDiscounts&) const = default;
};

class TSecurityDiscountsTable {
 public:
  // Enters the line of a key; an empty line is dropped. A key of at most 12
  // characters ending in "*", with something before the star, is a prefix
  // entry (kept without the star); every other key is exact.
  void Add(const std::string& key, std::string_view line);
  // The line of a security: the exact key first; then, when `prefixSearch`
  // is set and prefix entries exist, the code (its own trailing "*"
  // removed, at most 12 characters) shortened one character at a time until
  // a prefix key matches. Null when nothing matches.
  const TSecurityDiscounts* Find(std::string_view security, bool prefixSearch = true) const;
  bool Empty() const { return m_exact.empty() && m_prefix.empty(); }
  std::size_t Size() const { return m_exact.size() + m_prefix.size(); }

  bool operator==(const TSecurityDiscountsTable&) const = default;

 private:
  std::map<std::string, TSecurityDiscounts, StringMapComparerFunc> m_exact;
  std::map<std::string, TSecurityDiscounts, StringMapComparerFunc> m_prefix;  // without the star
};

}  // namespace DL
