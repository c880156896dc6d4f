#pragma once
// Securities restricted for short positions at one level of the margin
// settings: a list by class (class -> securities) and a list by security
// (security -> classes), each item matched exactly or by a trailing "*".
#include <string>
#include <string_view>

#include "cache/TRowListWithAll.h"
#include "ini/SettingsText.h"

namespace DL {

struct TSecurityRestrictionLists {
  using TCodeToList = std::map<std::string, TRowListWithAll, StringMapComparerFunc>;

  bool restrictAll = false;  // "<ALL>" of every class: everything is restricted
  TCodeToList byClass;       // class -> securities
  TCodeToList bySecurity;    // security -> classes

  // Enters one list line: `classCode` "<ALL>" puts each security of the
  // list under every class, and "<ALL>" of "<ALL>" restricts everything.
  void AddClassLine(const std::string& classCode, std::string_view securities);
  bool Empty() const { return !restrictAll && byClass.empty() && bySecurity.empty(); }
  // The security as a key of the list by security: its "all" flag or the
  // class in its list; then the class as a key of the list by class: its
  // "all" flag or the security in its list. Does not look at restrictAll.
  static bool Test(const TCodeToList& classList, const TCodeToList& securityList, std::string_view classCode,
                   std::string_view secCode);

  bool operator==(const TSecurityRestrictionLists&) const = default;
};

}  // namespace DL
