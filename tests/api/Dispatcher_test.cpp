// The dispatcher applies a command's row: the handler it points at, the
// read-only rule and the firm check. The module's table has no live command
// with the firm check yet, so these tests hand the dispatcher rows of their own
// and run whole requests through ExecuteDealerAPI against a port whose library
// user 7 holds.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/ExecDealerAPI.h"
#include "api/RecordFields.h"
#include "base/ApiRecords.h"
#include "common/EventLog.h"

namespace {

using DL::TCommandRow;

constexpr int kHolder = 7;
constexpr int kReader = 8;
constexpr int kPort = 4100;

// Lines of the declaration of settings operations.
constexpr std::size_t kSettingsOperationCount = 0
#define ZDL_OPERATION(home, name, qualifier, params, args) +1
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION
    ;

// What the test handler saw.
int g_calls = 0;
std::string g_firmSeen;

int CountingHandler(CExecDealerAPI& api, std::vector<unsigned char>& /*data*/, std::string& firm) {
  ++g_calls;
  g_firmSeen = firm;
  api.AddChangeLine(firm, "changed");
  return 0;
}

constexpr TCommandRow Row(std::string_view name, DL::ECommandVerb verb, bool firmCheck, DL::TCommandHandler handler) {
  return TCommandRow{name,     verb,      DL::ECommandScope::Global, DL::EAdapterShape::OwnRecord, "TDL_Test", "ZDL_Test",
                     firmCheck, DL::PassesReadOnlyTest(name), handler};
}

constexpr std::array<TCommandRow, 6> kRows = {{
    Row("SetCheckedToGlobal", DL::ECommandVerb::Set, true, &CountingHandler),
    Row("SetUncheckedToGlobal", DL::ECommandVerb::Set, false, &CountingHandler),
    Row("GetCheckedFromGlobal", DL::ECommandVerb::Get, true, &CountingHandler),
    Row("MoveClientBetweenTestTemplates", DL::ECommandVerb::Move, true, &CountingHandler),
    Row("GetUncheckedFromGlobal", DL::ECommandVerb::Get, false, &CountingHandler),
    Row("SetNotWrittenToGlobal", DL::ECommandVerb::Set, true, nullptr),
}};

const TCommandRow* FindTestRow(std::string_view name) {
  for (const TCommandRow& row : kRows)
    if (row.name == name) return &row;
  return nullptr;
}

std::vector<unsigned char> RequestFor(const std::string& firm) {
  TDL_String record;
  record.firmCode = firm;
  std::vector<unsigned char> data;
  StoreDataForZDealerAPI(record, data);
  return data;
}

class DispatcherTest : public ::testing::Test {
 protected:
  void SetUp() override {
    g_calls = 0;
    g_firmSeen.clear();
    ztest::ClearEvents();
    work.port = kPort;
    work.mapLibrary["FIRM1"] = "/nonexistent/FIRM1.ini";
    work.mapLibrary["FIRM2"] = "/nonexistent/FIRM2.ini";
    work.mapFileState["/nonexistent/FIRM1.ini"] = tagDL_fileState{kHolder, 1};
  }

  int Run(const std::string& command, const std::string& recordFirm, int user) {
    std::string name = command;
    std::vector<unsigned char> data = RequestFor(recordFirm);
    return api.ExecuteDealerAPI(name, data, &work, user, 1, "tester", kPort);
  }

  CExecDealerAPI api{&FindTestRow};
  tagDL_work work;
};

TEST_F(DispatcherTest, TheHolderRunsACheckedCommandOnTheFirmHeHolds) {
  EXPECT_EQ(Run("SetCheckedToGlobal", "FIRM1", kHolder), 0);
  EXPECT_EQ(g_calls, 1);
  EXPECT_EQ(g_firmSeen, "FIRM1");
  EXPECT_TRUE(ztest::HasEvent(10, "executeZDealerAPI SetCheckedToGlobal"));
  EXPECT_TRUE(ztest::HasEvent(10, "resultZDealerAPI 0"));
  ASSERT_EQ(api.m_DEALLIB_PACKET_CHANGE_map["FIRM1"].size(), 1u);
}

TEST_F(DispatcherTest, ACheckedCommandAddressedToAnotherFirmGivesElevenAndRunsNothing) {
  EXPECT_EQ(Run("SetCheckedToGlobal", "FIRM2", kHolder), 11);
  EXPECT_EQ(g_calls, 0);
  EXPECT_TRUE(api.m_DEALLIB_PACKET_CHANGE_map["FIRM1"].empty());
  // The refusal is the command's result, so it is logged as one.
  EXPECT_TRUE(ztest::HasEvent(10, "resultZDealerAPI 11"));
}

TEST_F(DispatcherTest, ACheckedReadingCommandFromAReaderGivesEleven) {
  // A reader holds nothing, so his firm is empty and never matches.
  EXPECT_EQ(Run("GetCheckedFromGlobal", "FIRM1", kReader), 11);
  EXPECT_EQ(g_calls, 0);
}

TEST_F(DispatcherTest, AMoveFromAReaderPassesTheReadOnlyRuleAndStopsAtTheFirmCheck) {
  EXPECT_EQ(Run("MoveClientBetweenTestTemplates", "FIRM1", kReader), 11);
  EXPECT_EQ(g_calls, 0);
  EXPECT_EQ(Run("MoveClientBetweenTestTemplates", "FIRM1", kHolder), 0);
  EXPECT_EQ(g_calls, 1);
}

TEST_F(DispatcherTest, TheReadOnlyRuleComesBeforeTheFirmCheck) {
  EXPECT_EQ(Run("SetCheckedToGlobal", "FIRM2", kReader), 12);
  EXPECT_FALSE(ztest::HasEvent(10, "resultZDealerAPI 12"));
  EXPECT_EQ(g_calls, 0);
}

TEST_F(DispatcherTest, AnUncheckedCommandActsOnWhateverFirmTheRecordNames) {
  EXPECT_EQ(Run("SetUncheckedToGlobal", "FIRM2", kHolder), 0);
  EXPECT_EQ(g_calls, 1);
  EXPECT_EQ(Run("GetUncheckedFromGlobal", "FIRM2", kReader), 0);
  EXPECT_EQ(g_calls, 2);
}

TEST_F(DispatcherTest, ARowWithoutAHandlerIsAnUnknownCommand) {
  EXPECT_EQ(Run("SetNotWrittenToGlobal", "FIRM1", kHolder), 1);
  EXPECT_EQ(Run("SetNoSuchThingToGlobal", "FIRM1", kHolder), 1);
  EXPECT_TRUE(ztest::Events().empty());
}

// The module's own table: exactly the operations of SettingsOperations.def
// have a handler, and the handler is the row's, found by binary search.
TEST(CommandTableDispatchTest, OnlyTheWrittenOperationsHaveHandlers) {
  EXPECT_EQ(DL::CountHandlers(), kSettingsOperationCount);
  for (const TCommandRow& row : DL::kCommandTable) {
    const TCommandRow* found = DL::FindCommand(row.name);
    ASSERT_EQ(found, &row) << row.name;
    EXPECT_EQ(row.readerMayRun, DL::PassesReadOnlyTest(row.name)) << row.name;
  }
  ASSERT_NE(DL::FindCommand("GetUsePGOFromGlobal"), nullptr);
  EXPECT_NE(DL::FindCommand("GetUsePGOFromGlobal")->handler, nullptr);
  EXPECT_NE(DL::FindCommand("SetUsePGOToGlobal")->handler, nullptr);
  EXPECT_EQ(DL::FindCommand("SetUsePGOToClientSettings")->handler, nullptr);
  EXPECT_FALSE(DL::FindCommand("SetUsePGOToGlobal")->readerMayRun);
  EXPECT_TRUE(DL::FindCommand("GetUsePGOFromGlobal")->readerMayRun);
  EXPECT_TRUE(DL::FindCommand("MoveClientBetweenClientTemplates")->readerMayRun);
}

TEST(CommandTableDispatchTest, TheModulesDispatcherAnswersOneForARowWithoutHandler) {
  CExecDealerAPI api;
  tagDL_work work;
  work.port = kPort;
  ztest::ClearEvents();
  std::string name = "GetUsePGOFromClientSettings";
  std::vector<unsigned char> data = RequestFor("FIRM1");
  EXPECT_EQ(api.ExecuteDealerAPI(name, data, &work, kReader, 1, "tester", kPort), 1);
  EXPECT_TRUE(ztest::Events().empty());
}

}  // namespace
