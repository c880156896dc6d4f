#pragma once
// The smallest order values, by class list and security list, of the firm
// (section "OrderMinValue"), of client and restriction templates and of a
// client's own settings (parameters "OrderMinValue_" + key of their section),
// for remote commands. Built over the hub for one call; it keeps no state.
//
// A row is a raw parameter, edited in the section map: its key is the class
// list, "_INSTR_" and the security list when there is one (each list joined
// with ","), its value the limit and, when there is one, "," and the
// currency. The family has no soft form: a scope other than 0 gives 19.
//
// Checks in this order: the owner's code (3 null or empty, 10 or 21 too
// long), the item (3 null, no class list, or a security count of 0 with a
// security array; 9 and 13 for codes longer than 12, 3 for an empty code, 11
// for a currency longer than 4), the scope (19), the owner (20 for a client
// without settings, 15 for a missing template), then the rows (16 when a row
// with a common class and a common security, or with the same key, exists;
// 4 when a row to remove is not there).
#include <set>
#include <string>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

class TMinOrderValueEditor {
 public:
  explicit TMinOrderValueEditor(TStorageHub& hub) : m_hub(hub) {}

  // The rows in key order (3 for a null out; 4 when the firm has no
  // "OrderMinValue" section).
  [[nodiscard]] int GetMinOrderValueFromGlobal(ZDL_SettingsScope scope, ZDL_ArrayMinOrderValue** rows) const;
  // One row more; the section is made when missing.
  [[nodiscard]] int AddMinOrderValueToGlobal(ZDL_SettingsScope scope, const ZDL_MinOrderValue* row);
  // All rows replaced (a null array empties the family). Every row is checked
  // before anything is written; a collision between two new rows gives 16
  // and keeps the rows written before it.
  [[nodiscard]] int SetMinOrderValueToGlobal(ZDL_SettingsScope scope, const ZDL_ArrayMinOrderValue* rows);
  // The row of the same class list and security list removed.
  [[nodiscard]] int RemoveMinOrderValueFromGlobal(ZDL_SettingsScope scope, const ZDL_MinOrderValue* row);

  // The same for a client's own settings; the reading takes a class code
  // and gives the rows of that class (or naming "<ALL>"), all rows for an
  // empty one.
  [[nodiscard]] int GetMinOrderValueFromClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                       const char* classCode, ZDL_ArrayMinOrderValue** rows) const;
  [[nodiscard]] int AddMinOrderValueToClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                     const ZDL_MinOrderValue* row);
  [[nodiscard]] int SetMinOrderValueToClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                     const ZDL_ArrayMinOrderValue* rows);
  [[nodiscard]] int RemoveMinOrderValueFromClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                          const ZDL_MinOrderValue* row);

  // The same for client and restriction templates.
  [[nodiscard]] int GetMinOrderValueFromClientTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                       ZDL_ArrayMinOrderValue** rows) const;
  [[nodiscard]] int AddMinOrderValueToClientTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                     const ZDL_MinOrderValue* row);
  [[nodiscard]] int SetMinOrderValueToClientTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                     const ZDL_ArrayMinOrderValue* rows);
  [[nodiscard]] int RemoveMinOrderValueFromClientTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                          const ZDL_MinOrderValue* row);
  [[nodiscard]] int GetMinOrderValueFromRestrictionTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                            ZDL_ArrayMinOrderValue** rows) const;
  [[nodiscard]] int AddMinOrderValueToRestrictionTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                          const ZDL_MinOrderValue* row);
  [[nodiscard]] int SetMinOrderValueToRestrictionTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                          const ZDL_ArrayMinOrderValue* rows);
  [[nodiscard]] int RemoveMinOrderValueFromRestrictionTemplate(ZDL_SettingsScope scope, const char* templateCode,
                                                               const ZDL_MinOrderValue* row);

 private:
  // Where an owner's rows stand: the section, the prefix of their keys,
  // whether a missing section is made, and the code of a missing owner.
  struct TOwner {
    std::string section;
    std::string prefix;
    bool makeSection = false;
    int missing = 0;  // 4, 15 or 20
  };
  // A checked row: its lists as sets, and its key and value texts.
  struct TRow {
    std::set<std::string> classes;
    std::set<std::string> securities;
    std::string key;    // without the owner's prefix
    std::string value;
  };

  static TOwner Global();
  // 0 and the owner, or 3 / 10 / 21 for the code.
  static int ClientOwner(const char* clientCode, TOwner& owner);
  static int TemplateOwner(const char* templateCode, int kind, TOwner& owner);
  // Checks the row and builds its texts: 0, 3, 9, 11 or 13.
  static int MakeRow(const ZDL_MinOrderValue* item, TRow& row);

  [[nodiscard]] int GetBody(int result, const TOwner& owner, ZDL_SettingsScope scope, const char* classCode,
                            ZDL_ArrayMinOrderValue** rows) const;
  [[nodiscard]] int AddBody(int result, const TOwner& owner, ZDL_SettingsScope scope, const ZDL_MinOrderValue* item);
  [[nodiscard]] int SetBody(int result, const TOwner& owner, ZDL_SettingsScope scope,
                            const ZDL_ArrayMinOrderValue* items);
  [[nodiscard]] int RemoveBody(int result, const TOwner& owner, ZDL_SettingsScope scope,
                               const ZDL_MinOrderValue* item);
  // The owner's keys, made when the owner allows it: null with *result set.
  TIniParser::TKeyMap* Keys(const TOwner& owner, int* result);
  // 16 when a row of the keys collides with the new one.
  static int Collides(const TIniParser::TKeyMap& keys, const std::string& prefix, const TRow& row);

  TStorageHub& m_hub;
};

}  // namespace DL
