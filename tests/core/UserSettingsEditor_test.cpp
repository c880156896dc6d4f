// Removing and listing the users' own settings sections.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/ResultCodes.h"
#include "core/TInfoStorage.h"
#include "core/TUserSettingsEditor.h"

namespace {

using DL::TInfoStorage;

const char* const kUsers =
    "[General]\n"
    "UsePGO=1\n"
    "[u12]\n"
    "COMMISSION=0.5\n"
    "[u-1]\n"
    "IGNORENEGDEALCHECK=1\n"
    "[u3]\n"
    "[user]\n"
    "[u4x]\n";

std::vector<int> Users(TInfoStorage& storage) {
  ZDL_ArrayIntNumbers* users = nullptr;
  EXPECT_EQ(storage.GetListOfUserSettings(&users), ZDL_OK);
  std::vector<int> out;
  if (users != nullptr)
    for (uint64_t i = 0; i < users->count; ++i) out.push_back(users->items[i]);
  return out;
}

std::string FullText(TInfoStorage& storage) {
  char* text = nullptr;
  EXPECT_EQ(storage.GetFullDealerLibrarySettings(&text), ZDL_OK);
  return text != nullptr ? text : "";
}

TEST(UserSettingsEditor, UsersWithASectionAreListedAscending) {
  TInfoStorage storage(kUsers, 2, false);
  // "user" and "u4x" are no user sections; "u3" has no keys and is dropped
  // by the load.
  EXPECT_EQ(Users(storage), (std::vector<int>{-1, 12}));
  EXPECT_EQ(storage.GetListOfUserSettings(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(UserSettingsEditor, RemoveChangesTheSectionsAndTheSave) {
  TInfoStorage storage(kUsers, 2, false);
  ASSERT_EQ(storage.RemoveUserSettings(12), ZDL_OK);
  EXPECT_EQ(Users(storage), (std::vector<int>{-1}));
  const std::string text = FullText(storage);
  EXPECT_EQ(text.find("[u12]"), std::string::npos);
  EXPECT_EQ(text.find("COMMISSION=0.5"), std::string::npos);
  EXPECT_NE(text.find("[u-1]"), std::string::npos);
  TInfoStorage again(text.c_str(), 2, false);
  EXPECT_EQ(Users(again), (std::vector<int>{-1}));
  EXPECT_EQ(FullText(again), text);
  EXPECT_EQ(again.RemoveUserSettings(-1), ZDL_OK);
  EXPECT_TRUE(Users(again).empty());
}

TEST(UserSettingsEditor, BadNumbersAndMissingUsersChangeNothing) {
  TInfoStorage storage(kUsers, 2, false);
  const std::string before = FullText(storage);
  EXPECT_EQ(storage.RemoveUserSettings(-2), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.RemoveUserSettings(99), ZDL_USER_SETTINGS_NOT_EXIST);
  EXPECT_EQ(storage.RemoveUserSettings(3), ZDL_USER_SETTINGS_NOT_EXIST);  // dropped by the load
  EXPECT_EQ(FullText(storage), before);
}

TEST(UserSettingsEditor, SectionNames) {
  EXPECT_EQ(DL::TUserSettingsEditor::SectionName(5), "u5");
  EXPECT_EQ(DL::TUserSettingsEditor::SectionName(-1), "u-1");
}

}  // namespace
