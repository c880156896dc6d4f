#pragma once
// Removes and lists the users' own settings sections ("u" and the user
// number) for remote commands. The sections are raw in the section map, which
// is their home: the parsed user settings of the hub are refilled by the next
// load. Built over the hub for one call; it keeps no state of its own.
#include <string>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

class TUserSettingsEditor {
 public:
  explicit TUserSettingsEditor(TStorageHub& hub) : m_hub(hub) {}

  // Drops the user's section: 3 for a number below -1, 26 when there is none.
  [[nodiscard]] int RemoveUserSettings(int userId);
  // The numbers of the users that have a section, ascending (a section
  // without keys is dropped by the load and the save, so it names no user), in an array of
  // the firm's memory (*users); 3 for a null out.
  [[nodiscard]] int GetListOfUserSettings(ZDL_ArrayIntNumbers** users) const;

  // "u" and the number in decimal.
  static std::string SectionName(int userId);

 private:
  TStorageHub& m_hub;
};

}  // namespace DL
