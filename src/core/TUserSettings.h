#pragma once
// The hub's component for the users' own settings: the sections "u" plus a
// user number. It owns their parsing (load step 16) and the queries; the
// sections are saved from the section map as they stand.
#include <map>
#include <string>

#include "base/TClassList.h"
#include "core/HubSectionLists.h"
#include "ini/TIniParser.h"
#include "ini/TMaxOrderValue.h"

namespace DL {

// A user's own settings, from the section "u" + user number.
struct TUserIdSettings {
  int userId = 0;
  double commission = 0.0;          // "COMMISSION"
  double oblCommission = 0.0;       // "OBLCOMMISSION"
  double tradeCommission = 0.0;     // "TradeCommission"
  double tradeOblCommission = 0.0;  // "TradeOblCommission"
  bool ignoreNegDealCheck = false;  // "IGNORENEGDEALCHECK"
  TMaxOrderValue orderMaxValue;     // "OrderMaxValue"
  TClassList allowedTrdAcc;         // "AllowedTrdAcc"
  TClassList prohibedTrdAcc;        // "ProhibedTrdAcc"
  TClassList classesWithoutOrderCheck;
  TKeyToList securities;      // "<class>_SECURITY": the allowed securities of the class
  TKeyToList restSecurities;  // "<class>_RESTSECURITY": the restricted securities of the class
  // "FloodControlByInstrument_<code>": the code -> the value as written.
  std::map<std::string, std::string, StringMapComparerFunc> floodControlByInstrument;
};

class TUserSettings {
 public:
  using TByUser = std::map<int, TUserIdSettings>;

  // Load step 16: every section whose name is the user prefix and a whole
  // decimal number (a sign allowed); a later section of the same number wins.
  void Parse(const TIniParser& parser);
  // The users' settings by user number.
  const TByUser& ByUser() const { return m_users; }

  // The keys of a user section that end in "_SECURITY" (allowed) or
  // "_RESTSECURITY" (restricted): the class before the ending -> the
  // securities. A key with no class or a class longer than 12 characters is
  // left out. The catalogue must be filled (any TIniParser::Init does it).
  static void ParseSecurities(const TIniKeyMap& keys, TKeyToList& out);
  static void ParseRestSecurities(const TIniKeyMap& keys, TKeyToList& out);

 private:
  static void ParseSecuritiesBySuffix(const TIniKeyMap& keys, const std::string& suffixUp, TKeyToList& out);
  static void ParseSecuritiesAndFloodControl(const TIniKeyMap& keys, TUserIdSettings& out);

  TByUser m_users;
};

}  // namespace DL
