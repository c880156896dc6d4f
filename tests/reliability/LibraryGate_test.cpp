// The exclusion zent-host puts around the module: which requests share, which
// run per library, which run alone; and that the gate keeps to it.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "LibraryGate.h"
#include "api/AdapterRecords.h"
#include "api/FileVerbRecords.h"
#include "support/Alert.h"

namespace {

using namespace ZentHost;
using namespace std::chrono_literals;

template <class Record>
CAlert ApiMessage(const std::string& command, const Record& record) {
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(record, block);
  CAlert m;
  m << command << block;
  return m;
}

TEST(LibraryGateTest, NamedCommandsRunPerLibraryAndASoftTwinIsTheSameLibrary) {
  TGateKey key = ClassifyRequest("ZDealerAPI", ApiMessage("SetUsePGOToGlobal", TDL_StringAndBool{"FIRM.soft", true}));
  EXPECT_EQ(key.mode, EGateMode::kLibrary);
  EXPECT_EQ(key.library, "FIRM");
  key = ClassifyRequest("zdealerapi", ApiMessage("DLUpdateFile", TDL_DLUpdateFile{"FIRM"}));
  EXPECT_EQ(key.mode, EGateMode::kLibrary);
  EXPECT_EQ(key.library, "FIRM");
}

TEST(LibraryGateTest, VerbsThatAddOrDropAFirmOrWriteThePortsTablesRunAlone) {
  EXPECT_EQ(ClassifyRequest("ZDealerAPI", ApiMessage("DLOpenFile", TDL_DLOpenFile{"FIRM", 0})).mode,
            EGateMode::kExclusive);
  EXPECT_EQ(ClassifyRequest("ZDealerAPI", ApiMessage("DLCloseFile", TDL_DLCloseFile{"FIRM"})).mode,
            EGateMode::kExclusive);
  CAlert empty;
  EXPECT_EQ(ClassifyRequest("GetDLFile", empty).mode, EGateMode::kExclusive);
  EXPECT_EQ(ClassifyRequest("SaveDLFile", empty).mode, EGateMode::kExclusive);
  EXPECT_EQ(ClassifyRequest("Init", empty).mode, EGateMode::kExclusive);
  CAlert notAnApiRequest;
  notAnApiRequest << 5;
  EXPECT_EQ(ClassifyRequest("ZDealerAPI", notAnApiRequest).mode, EGateMode::kExclusive);
}

TEST(LibraryGateTest, ListingsShare) {
  CAlert empty;
  EXPECT_EQ(ClassifyRequest("GetDLList", empty).mode, EGateMode::kShared);
  TDL_DLGetFirmList list;
  EXPECT_EQ(ClassifyRequest("ZDealerAPI", ApiMessage("DLGetFirmList", list)).mode, EGateMode::kShared);
}

TEST(LibraryGateTest, TheMessageIsLeftForTheModuleToRead) {
  CAlert m = ApiMessage("GetUsePGOFromGlobal", TDL_StringAndBool{"FIRM", false});
  m.set_begin();  // as the host hands it over
  (void)ClassifyRequest("ZDealerAPI", m);
  std::string command;
  m >> command;
  EXPECT_EQ(command, "GetUsePGOFromGlobal");
}

TEST(LibraryGateTest, TwoLibrariesRunSideBySide) {
  TLibraryGate gate;
  TLibraryGate::TPass a = gate.Enter({EGateMode::kLibrary, "A"});
  auto other = std::async(std::launch::async, [&] { TLibraryGate::TPass b = gate.Enter({EGateMode::kLibrary, "B"}); });
  EXPECT_EQ(other.wait_for(10s), std::future_status::ready);
}

TEST(LibraryGateTest, OneLibraryRunsOneAtATime) {
  TLibraryGate gate;
  std::atomic<bool> entered{false};
  auto first = std::make_unique<TLibraryGate::TPass>(gate.Enter({EGateMode::kLibrary, "A"}));
  auto second = std::async(std::launch::async, [&] {
    TLibraryGate::TPass p = gate.Enter({EGateMode::kLibrary, "A"});
    entered = true;
  });
  EXPECT_EQ(second.wait_for(200ms), std::future_status::timeout);
  EXPECT_FALSE(entered.load());
  first.reset();
  EXPECT_EQ(second.wait_for(10s), std::future_status::ready);
  EXPECT_TRUE(entered.load());
}

TEST(LibraryGateTest, ARequestAloneWaitsForEveryLibraryAndKeepsNewOnesOut) {
  TLibraryGate gate;
  auto library = std::make_unique<TLibraryGate::TPass>(gate.Enter({EGateMode::kLibrary, "A"}));
  std::atomic<bool> aloneIn{false}, laterIn{false};
  auto alone = std::async(std::launch::async, [&] {
    TLibraryGate::TPass p = gate.Enter({EGateMode::kExclusive, ""});
    aloneIn = true;
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(laterIn.load());
  });
  std::this_thread::sleep_for(100ms);
  auto later = std::async(std::launch::async, [&] {
    TLibraryGate::TPass p = gate.Enter({EGateMode::kShared, ""});
    laterIn = true;
  });
  EXPECT_EQ(alone.wait_for(200ms), std::future_status::timeout);
  EXPECT_FALSE(aloneIn.load());
  EXPECT_FALSE(laterIn.load());  // waits behind the request that waits to be alone
  library.reset();
  EXPECT_EQ(alone.wait_for(10s), std::future_status::ready);
  EXPECT_EQ(later.wait_for(10s), std::future_status::ready);
  EXPECT_TRUE(aloneIn.load());
  EXPECT_TRUE(laterIn.load());
}

}  // namespace
