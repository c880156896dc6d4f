#pragma once
// The lists of the firm's own settings, read and edited by remote commands:
// one list per ZDL_GLOBAL_LIST row of core/GlobalLists.def, one operation per
// ZDL_GLOBAL_LIST_COMMAND row. Built over the hub for one call; it keeps no
// state.
//
// Each list has one home and an edit changes only that home: a list the hub
// parses itself (the save renders its section from it), a list row of the
// general settings, or a "," list in a raw parameter of "General" (the save
// copies it). An edit enters the list's section in the section map when the
// text had none, so that the next save writes it.
#include <string>
#include <vector>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

// The lists the hub parses itself.
enum class THubList {
  ProhibedTrdAcc,         // "GlobalProhibedTrdAcc" of its section
  ProhibitOrdersClients,  // "Clients" of "ProhibitOrders"
  NegDealClasses,         // "NegDealClasses" of its section
};

// Every list of the table.
enum class EGlobalList {
#define ZDL_GLOBAL_LIST(list, home, where, item) list,
#define ZDL_GLOBAL_LIST_COMMAND(verb, command, list)
#include "core/GlobalLists.def"
#undef ZDL_GLOBAL_LIST_COMMAND
#undef ZDL_GLOBAL_LIST
};

class TGlobalListEditor {
 public:
  explicit TGlobalListEditor(TStorageHub& hub) : m_hub(hub) {}

  [[nodiscard]] int Get(EGlobalList list, ZDL_ArrayStrings** out) const;
  [[nodiscard]] int Set(EGlobalList list, ZDL_ArrayStrings* items);
  [[nodiscard]] int Add(EGlobalList list, const char* item);
  [[nodiscard]] int Remove(EGlobalList list, const char* item);
  [[nodiscard]] int RemoveItems(EGlobalList list, ZDL_ArrayStrings* items);

  // One operation per command of the table, by its name.
#define ZDL_GLOBAL_LIST_Get(command, list) \
  [[nodiscard]] int command(ZDL_ArrayStrings** out) const { return Get(EGlobalList::list, out); }
#define ZDL_GLOBAL_LIST_Set(command, list) \
  [[nodiscard]] int command(ZDL_ArrayStrings* items) { return Set(EGlobalList::list, items); }
#define ZDL_GLOBAL_LIST_Add(command, list) \
  [[nodiscard]] int command(const char* item) { return Add(EGlobalList::list, item); }
#define ZDL_GLOBAL_LIST_Remove(command, list) \
  [[nodiscard]] int command(const char* item) { return Remove(EGlobalList::list, item); }
#define ZDL_GLOBAL_LIST_RemoveItems(command, list) \
  [[nodiscard]] int command(ZDL_ArrayStrings* items) { return RemoveItems(EGlobalList::list, items); }
#define ZDL_GLOBAL_LIST(list, home, where, item)
#define ZDL_GLOBAL_LIST_COMMAND(verb, command, list) ZDL_GLOBAL_LIST_##verb(command, list)
#include "core/GlobalLists.def"
#undef ZDL_GLOBAL_LIST_COMMAND
#undef ZDL_GLOBAL_LIST
#undef ZDL_GLOBAL_LIST_Get
#undef ZDL_GLOBAL_LIST_Set
#undef ZDL_GLOBAL_LIST_Add
#undef ZDL_GLOBAL_LIST_Remove
#undef ZDL_GLOBAL_LIST_RemoveItems

 private:
  // The items of a list, and whether its home is there at all (its
  // section, or "General" for a raw list).
  bool Read(EGlobalList list, std::vector<std::string>& items) const;
  void Write(EGlobalList list, const std::vector<std::string>& items);
  // 0, or the code that refuses an item of the list.
  static int CheckItem(EGlobalList list, const char* item);

  bool ReadHub(THubList list, std::vector<std::string>& items) const;
  void WriteHub(THubList list, const std::vector<std::string>& items);
  bool ReadGeneral(EGeneralParam code, std::vector<std::string>& items) const;
  void WriteGeneral(EGeneralParam code, const std::vector<std::string>& items);
  bool ReadRaw(const char* key, std::vector<std::string>& items) const;
  void WriteRaw(const char* key, const std::vector<std::string>& items);

  TStorageHub& m_hub;
};

}  // namespace DL
