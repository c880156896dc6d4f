// The firm's lists end to end through Execute, one round trip per list of
// the table: every command the list has is run, read back, saved by
// "DLUpdateFile", reloaded and read again; the saved text is a fixed point.
// Refused items change nothing.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"

namespace {

using ztest::Module;
using TItems = std::vector<std::string>;

// Three codes of the list's kind in order, and one a character too long
// with the result that refuses it (none for a kind without a limit).
struct TItemKind {
  TItems samples;
  std::string tooLong;
  int tooLongResult;
};
const std::map<std::string, TItemKind>& ItemKinds() {
  static const std::map<std::string, TItemKind> kinds = {
      {"Class", {{"SPBFUT", "TQBR", "TQTF"}, "ABCDEFGHIJKLM", 1009}},
      {"Client", {{"C0001", "C0002", "C0003"}, "ABCDEFGHIJKLM", 1010}},
      {"TrdAcc", {{"L01", "L02", "L03"}, "ABCDEFGHIJKLM", 1014}},
      {"Partner", {{"P01", "P02", "P03"}, "ABCDEFGHIJKLM", 1017}},
      {"Tag", {{"EQTV", "RTOD", "SPBT"}, "ABCDE", 1022}},
      {"Type", {{"1", "2", "3"}, "", 0}},
  };
  return kinds;
}

struct TListRow {
  std::string list;
  std::string item;
  std::map<std::string, std::string> commands;  // verb -> command
};

// Every list of the table with its commands.
std::vector<TListRow> Lists() {
  std::vector<TListRow> rows;
  auto find = [&rows](const std::string& list) -> TListRow& {
    for (TListRow& r : rows)
      if (r.list == list) return r;
    return rows.front();
  };
#define ZDL_GLOBAL_LIST(list, home, where, item) rows.push_back({#list, #item, {}});
#define ZDL_GLOBAL_LIST_COMMAND(verb, command, list) find(#list).commands[#verb] = #command;
#include "core/GlobalLists.def"
#undef ZDL_GLOBAL_LIST_COMMAND
#undef ZDL_GLOBAL_LIST
  return rows;
}

class GlobalListCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session_ = std::make_unique<ztest::TLibrarySession>("gl", ztest::ReadSourceFile("examples/server/libs/broker.ini"));
    port_ = session_->Port();
    firm_ = session_->Firm();
  }
  std::string Save() { return session_->Save(); }
  std::string SaveAndReload() { return session_->SaveAndReload(); }
  // The list as read; a list whose section is missing reads empty, with its
  // result in `result`.
  TItems Read(const TListRow& row, int* result = nullptr) {
    TDL_StringAndArray r{firm_, {}};
    const int rc = ztest::Command(port_, row.commands.at("Get"), r, kUser);
    if (result != nullptr) *result = rc;
    return r.lsStrings;
  }
  int Items(const std::string& command, const TItems& items) {
    TDL_StringAndArray r{firm_, items};
    return ztest::Command(port_, command, r, kUser);
  }
  int One(const std::string& command, const std::string& item) {
    TDL_TwoStrings r{firm_, item};
    return ztest::Command(port_, command, r, kUser);
  }

  static constexpr int kUser = 2;
  std::unique_ptr<ztest::TLibrarySession> session_;
  int port_ = 0;
  std::string firm_;
};

TEST_F(GlobalListCommandsTest, EveryCommandOfTheTableIsServedAndEveryListCanBeRead) {
  for (const TListRow& row : Lists()) {
    EXPECT_TRUE(row.commands.count("Get")) << row.list;
    EXPECT_TRUE(ItemKinds().count(row.item)) << row.list;
    for (const auto& [verb, command] : row.commands) {
      const DL::TCommandRow* found = DL::FindCommand(command);
      ASSERT_NE(found, nullptr) << command;
      EXPECT_NE(found->handler, nullptr) << command;
      EXPECT_EQ(found->scope, DL::ECommandScope::Global) << command;
    }
  }
}

TEST_F(GlobalListCommandsTest, EveryListRoundTripsThroughTheSavedText) {
  for (const TListRow& row : Lists()) {
    SCOPED_TRACE(row.list);
    const TItems& s = ItemKinds().at(row.item).samples;
    TItems expected;
    if (row.commands.count("Set")) {
      ASSERT_EQ(Items(row.commands.at("Set"), {s[0], s[1], s[0]}), 0);  // a repeat is dropped
      expected = {s[0], s[1]};
      EXPECT_EQ(Read(row), expected);
    }
    if (row.commands.count("Add")) {
      ASSERT_EQ(One(row.commands.at("Add"), s[2]), 0);
      expected.push_back(s[2]);
      EXPECT_EQ(One(row.commands.at("Add"), s[2]), 1016);
      EXPECT_EQ(Read(row), expected);
    }
    if (row.commands.count("Remove")) {
      ASSERT_EQ(One(row.commands.at("Remove"), s[0]), 0);
      expected.erase(expected.begin());
      EXPECT_EQ(One(row.commands.at("Remove"), s[0]), 1004);
      EXPECT_EQ(Read(row), expected);
    }
    if (row.commands.count("RemoveItems")) {
      EXPECT_EQ(Items(row.commands.at("RemoveItems"), {s[0], s[2]}), 1004);  // s[2] is not there
      EXPECT_EQ(Read(row), expected);
      ASSERT_EQ(Items(row.commands.at("RemoveItems"), {s[0]}), 0);
      expected.erase(expected.begin());
      EXPECT_EQ(Read(row), expected);
    }
    const std::string saved = SaveAndReload();
    int result = -1;
    EXPECT_EQ(Read(row, &result), expected);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Save(), saved);
  }
}

TEST_F(GlobalListCommandsTest, ARefusedItemChangesNothing) {
  for (const TListRow& row : Lists()) {
    SCOPED_TRACE(row.list);
    const TItemKind& kind = ItemKinds().at(row.item);
    const TItems before = Read(row);
    std::vector<std::pair<TItems, int>> refused = {{{kind.samples[0], ""}, 1003}, {{"A,B"}, 1003}};
    if (!kind.tooLong.empty()) refused.push_back({{kind.samples[0], kind.tooLong}, kind.tooLongResult});
    for (const auto& [items, result] : refused) {
      if (row.commands.count("Set")) {
        EXPECT_EQ(Items(row.commands.at("Set"), items), result);
      }
      if (row.commands.count("Add")) {
        EXPECT_EQ(One(row.commands.at("Add"), items.back()), result);
      }
      if (row.commands.count("Remove")) {
        EXPECT_EQ(One(row.commands.at("Remove"), items.back()), result);
      }
      EXPECT_EQ(Read(row), before);
    }
  }
}

TEST_F(GlobalListCommandsTest, TheListsStandInTheirSectionsAsWritten) {
  ASSERT_EQ(Items("SetGlobalProhibedTrdAcc", {"L02", "L01"}), 0);
  ASSERT_EQ(One("AddClientToGlobalProhibitOrders", "C9"), 0);
  ASSERT_EQ(Items("SetNegDealClassesToGlobal", {"PSEQ", "PSOB"}), 0);
  ASSERT_EQ(Items("SetAllowedPartnersToGlobal", {"P1", "P2"}), 0);
  ASSERT_EQ(Items("SetClassesWithPriceExportForMarketOrdersToGlobal", {"TQBR"}), 0);
  const std::string saved = Save();
  for (const char* text : {"[GlobalProhibedTrdAcc]\r\nGlobalProhibedTrdAcc=L02,L01\r\n",
                           "[ProhibitOrders]\r\nClients=C9\r\n", "[NegDealClasses]\r\nNegDealClasses=PSEQ,PSOB\r\n",
                           "AllowedPartners=P1,P2\r\n", "ClassesWithPriceExportForMarketOrders=TQBR\r\n"})
    EXPECT_NE(saved.find(text), std::string::npos) << text << saved;
}

TEST_F(GlobalListCommandsTest, AListOfAMissingSectionIsNotFound) {
  TDL_StringAndArray r{firm_, {}};
  EXPECT_EQ(ztest::Command(port_, "GetGlobalProhibedTrdAcc", r, kUser), 1004);
  EXPECT_EQ(ztest::Command(port_, "GetNegDealClassesFromGlobal", r, kUser), 1004);
}

}  // namespace
