#include "api/Adapters.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace DL::Adapters;

// A counted array of strings as the settings layer passes them.
struct TFakeArray {
  uint64_t count;
  char** items;
};

int g_builds = 0;
int g_releases = 0;

void BuildFake(TFakeArray& out, const std::vector<std::string>& in) {
  ++g_builds;
  out.count = in.size();
  out.items = new char*[in.size()];
  for (std::size_t i = 0; i < in.size(); ++i) {
    out.items[i] = new char[in[i].size() + 1];
    std::memcpy(out.items[i], in[i].c_str(), in[i].size() + 1);
  }
}

void ReleaseFake(TFakeArray& a) {
  ++g_releases;
  for (uint64_t i = 0; i < a.count; ++i) delete[] a.items[i];
  delete[] a.items;
  a.items = nullptr;
  a.count = 0;
}

const TStringArrayBuilder<TFakeArray> kFakeBuilder{BuildFake, ReleaseFake};

// A result array handed out by a fake settings function, released by the fake
// free function below.
TFakeArray* NewResult(const std::vector<std::string>& in) {
  auto* a = new TFakeArray{};
  BuildFake(*a, in);
  return a;
}

class AdaptersTest : public ::testing::Test {
 protected:
  void SetUp() override {
    g_builds = 0;
    g_releases = 0;
    env_.noteChange = [this](const std::string& firm, std::string line) {
      changes_.emplace_back(firm, std::move(line));
    };
    env_.freeMemory = [this](const char* firm, void** block) {
      freedFirms_.emplace_back(firm);
      freedBlocks_.push_back(*block);
      *block = nullptr;
      return 0;
    };
  }

  template <class Record>
  static std::vector<unsigned char> Block(const Record& record) {
    std::vector<unsigned char> data;
    StoreDataForZDealerAPI(record, data);
    return data;
  }

  template <class Record>
  static Record Decode(std::vector<unsigned char> data) {
    Record record;
    LoadDataForZDeallibAPI(record, data);
    return record;
  }

  TAdapterEnv env_;
  std::vector<std::pair<std::string, std::string>> changes_;  // firm, line
  std::vector<std::string> freedFirms_;
  std::vector<void*> freedBlocks_;
};

TEST(AdapterLinesTest, SettingsCodesGoOutPlus1000) {
  EXPECT_EQ(SettingsResult(0), 0);
  EXPECT_EQ(SettingsResult(2), 1002);
  EXPECT_EQ(SettingsResult(19), 1019);
}

TEST(AdapterLinesTest, ListsInLinesAreBracketedAndCommaSeparated) {
  EXPECT_EQ(vectorSTLStringsToStr({}), "[]");
  EXPECT_EQ(vectorSTLStringsToStr({"TQBR"}), "[TQBR]");
  EXPECT_EQ(vectorSTLStringsToStr({"TQBR", "SPBFUT", ""}), "[TQBR,SPBFUT,]");
}

TEST(AdapterLinesTest, LinesOfTheSendingShapes) {
  EXPECT_EQ(ChangeLineSendOneString("RemoveAllCorrespsFromGlobalChangeFutClientCodes"),
            "RemoveAllCorrespsFromGlobalChangeFutClientCodes, main, , ,");
  EXPECT_EQ(ChangeLineSendTwoStrings("AddTrdAccToGlobalProhibedTrdAcc", "L01+00000F00"),
            "AddTrdAccToGlobalProhibedTrdAcc, L01+00000F00, , ");
  EXPECT_EQ(ChangeLineSendOneStringAndBool("SetUsePGOToGlobal", true), "SetUsePGOToGlobal,main,,,\"1\"");
  EXPECT_EQ(ChangeLineSendOneStringAndBool("SetUsePGOToGlobal", false), "SetUsePGOToGlobal,main,,,\"0\"");
  EXPECT_EQ(ChangeLineSendStringAndArrayStrings("SetNegDealClassesToGlobal", {"PSEQ", "PSOB"}),
            "SetNegDealClassesToGlobal,main,,2[PSEQ,PSOB]");
  EXPECT_EQ(ChangeLineSendStringAndArrayStrings("SetNegDealClassesToGlobal", {}), "SetNegDealClassesToGlobal,main,,0NULL");
}

TEST(AdapterLinesTest, GenericRecordsTravelUnderTheirFieldNames) {
  std::vector<std::string> names;
  TDL_ThreeStringsAndIntAndArrayStrings record;
  TDL_ThreeStringsAndIntAndArrayStrings::VisitFields(record,
                                                     [&](const char* name, auto&) { names.emplace_back(name); });
  EXPECT_EQ(names, (std::vector<std::string>{"strParam1", "intParam", "strParam2", "strParam3", "lsStrings"}));
  names.clear();
  TDL_StringAndThreeDouble doubles;
  TDL_StringAndThreeDouble::VisitFields(doubles, [&](const char* name, auto&) { names.emplace_back(name); });
  EXPECT_EQ(names, (std::vector<std::string>{"firmCode", "doubleParam1", "doubleParam2", "doubleParam3"}));
}

TEST_F(AdaptersTest, SendOneStringCallsWithTheRecordsFirmAndNotesTheLine) {
  std::vector<unsigned char> data = Block(TDL_String{"MC0002500000"});
  std::string seen;
  int rc = SendOneString(
      [&](const char* firm) {
        seen = firm;
        return 0;
      },
      "RemoveAllSecurityWeightFromGlobal", data, "MC0002500000", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(seen, "MC0002500000");
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].first, "MC0002500000");
  EXPECT_EQ(changes_[0].second, "RemoveAllSecurityWeightFromGlobal, main, , ,");
}

TEST_F(AdaptersTest, FailedChangeReturnsCodePlus1000AndNotesNothing) {
  std::vector<unsigned char> data = Block(TDL_TwoStrings{"FIRM", "CLIENT1"});
  const std::vector<unsigned char> before = data;
  int rc = SendTwoStrings([](const char*, const char*) { return 4; }, "RemoveClientFromGlobalProhibitOrders", data,
                          "FIRM", env_);
  EXPECT_EQ(rc, 1004);
  EXPECT_TRUE(changes_.empty());
  EXPECT_EQ(data, before);
}

TEST_F(AdaptersTest, EmptyBlockCallsWithAnEmptyFirmCode) {
  std::vector<unsigned char> data;
  std::string seen = "unset";
  // The settings layer answers 2 for a firm that is not loaded.
  int rc = SendOneStringAndBool(
      [&](const char* firm, bool) {
        seen = firm;
        return seen.empty() ? 2 : 0;
      },
      "SetUsePGOToGlobal", data, "", env_);
  EXPECT_EQ(rc, 1002);
  EXPECT_EQ(seen, "");
  EXPECT_TRUE(changes_.empty());
}

TEST_F(AdaptersTest, ChangeLineGoesUnderTheCallersFirmNotTheRecords) {
  std::vector<unsigned char> data = Block(TDL_TwoStrings{"FIRM_B", "L01-00000F00"});
  std::string called;
  int rc = SendTwoStrings(
      [&](const char* firm, const char*) {
        called = firm;
        return 0;
      },
      "AddTrdAccToGlobalProhibedTrdAcc", data, "FIRM_A", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(called, "FIRM_B");
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].first, "FIRM_A");
  EXPECT_EQ(changes_[0].second, "AddTrdAccToGlobalProhibedTrdAcc, L01-00000F00, , ");
}

TEST_F(AdaptersTest, SendOneStringAndBoolPassesTheValue) {
  std::vector<unsigned char> data = Block(TDL_StringAndBool{"FIRM", true});
  bool seen = false;
  int rc = SendOneStringAndBool(
      [&](const char*, bool value) {
        seen = value;
        return 0;
      },
      "SetWriteDebugInfoToGlobal", data, "FIRM", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_TRUE(seen);
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].second, "SetWriteDebugInfoToGlobal,main,,,\"1\"");
}

TEST_F(AdaptersTest, ListGoesOutAsACountedArrayAndIsReleased) {
  std::vector<unsigned char> data = Block(TDL_StringAndArray{"FIRM", {"PSEQ", "PSOB"}});
  std::vector<std::string> seen;
  int rc = SendStringAndArrayStrings(
      [&](const char*, TFakeArray* array) {
        if (array == nullptr) return 3;
        for (uint64_t i = 0; i < array->count; ++i) seen.emplace_back(array->items[i]);
        return 0;
      },
      kFakeBuilder, "SetNegDealClassesToGlobal", data, "FIRM", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(seen, (std::vector<std::string>{"PSEQ", "PSOB"}));
  EXPECT_EQ(g_builds, 1);
  EXPECT_EQ(g_releases, 1);
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].second, "SetNegDealClassesToGlobal,main,,2[PSEQ,PSOB]");
}

TEST_F(AdaptersTest, EmptyListGoesOutAsANullArray) {
  std::vector<unsigned char> data = Block(TDL_StringAndArray{"FIRM", {}});
  bool gotNull = false;
  int rc = SendStringAndArrayStrings(
      [&](const char*, TFakeArray* array) {
        gotNull = array == nullptr;
        return 0;
      },
      kFakeBuilder, "SetNegDealClassesToGlobal", data, "FIRM", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_TRUE(gotNull);
  EXPECT_EQ(g_builds, 0);
  EXPECT_EQ(g_releases, 0);
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].second, "SetNegDealClassesToGlobal,main,,0NULL");
}

TEST_F(AdaptersTest, ArrayIsReleasedAlsoWhenTheChangeFails) {
  std::vector<unsigned char> data = Block(TDL_StringAndArray{"FIRM", {"TOO_LONG_CLASS_CODE"}});
  int rc = SendStringAndArrayStrings([](const char*, TFakeArray*) { return 9; }, kFakeBuilder,
                                     "SetNegDealClassesToGlobal", data, "FIRM", env_);
  EXPECT_EQ(rc, 1009);
  EXPECT_EQ(g_builds, 1);
  EXPECT_EQ(g_releases, 1);
  EXPECT_TRUE(changes_.empty());
}

TEST_F(AdaptersTest, EmptyFunctionThrows) {
  std::vector<unsigned char> data = Block(TDL_String{"FIRM"});
  std::function<int(const char*)> none;
  EXPECT_THROW((void)SendOneString(none, "RemoveCommissionScaleFromGlobal", data, "FIRM", env_),
               std::bad_function_call);
  EXPECT_TRUE(changes_.empty());
}

TEST_F(AdaptersTest, ReadingBoolStoresTheValueInTheReply) {
  std::vector<unsigned char> data = Block(TDL_StringAndBool{"FIRM", false});
  int rc = SendOneString_GetBool(
      [](const char*, bool* value) {
        *value = true;
        return 0;
      },
      data, "");
  EXPECT_EQ(rc, 0);
  TDL_StringAndBool reply = Decode<TDL_StringAndBool>(data);
  EXPECT_EQ(reply.firmCode, "FIRM");
  EXPECT_TRUE(reply.boolParam1);
  EXPECT_TRUE(changes_.empty());
}

TEST_F(AdaptersTest, ReadingIntStoresTheValueInTheReply) {
  std::vector<unsigned char> data = Block(TDL_StringAndInt{"FIRM", 0});
  int rc = SendOneString_GetInt(
      [](const char*, int* value) {
        *value = 3;
        return 0;
      },
      data, "FIRM");
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(Decode<TDL_StringAndInt>(data).intParam1, 3);
}

TEST_F(AdaptersTest, FailedReadLeavesTheBlockAsItCame) {
  std::vector<unsigned char> data = Block(TDL_StringAndInt{"NOFIRM", 7});
  const std::vector<unsigned char> before = data;
  int rc = SendOneString_GetInt([](const char*, int*) { return 2; }, data, "");
  EXPECT_EQ(rc, 1002);
  EXPECT_EQ(data, before);
}

TEST_F(AdaptersTest, ReadingTextCopiesItAndReleasesItThroughTheRecordsFirm) {
  std::vector<unsigned char> data = Block(TDL_TwoStrings{"FIRM", ""});
  char* handedOut = nullptr;
  int rc = SendOneString_GetString(
      [&](const char*, char** text) {
        handedOut = new char[12];
        std::memcpy(handedOut, "[General]\n", 11);
        *text = handedOut;
        return 0;
      },
      data, "OTHER", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(Decode<TDL_TwoStrings>(data).strParam, "[General]\n");
  ASSERT_EQ(freedBlocks_.size(), 1u);
  EXPECT_EQ(freedBlocks_[0], static_cast<void*>(handedOut));
  EXPECT_EQ(freedFirms_[0], "FIRM");
  EXPECT_TRUE(changes_.empty());
  delete[] handedOut;
}

TEST_F(AdaptersTest, ReadingAListCopiesItInOrderAndReleasesIt) {
  std::vector<unsigned char> data = Block(TDL_StringAndArray{"FIRM", {"stale"}});
  TFakeArray* handedOut = nullptr;
  int rc = SendString_GetArrayStrings<TFakeArray>(
      [&](const char*, TFakeArray** array) {
        handedOut = NewResult({"A1", "B2", "C3"});
        *array = handedOut;
        return 0;
      },
      data, "FIRM", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(Decode<TDL_StringAndArray>(data).lsStrings, (std::vector<std::string>{"A1", "B2", "C3"}));
  ASSERT_EQ(freedBlocks_.size(), 1u);
  EXPECT_EQ(freedBlocks_[0], static_cast<void*>(handedOut));
  ReleaseFake(*handedOut);
  delete handedOut;
}

TEST_F(AdaptersTest, ReadingNoListGivesAnEmptyOneAndReleasesNothing) {
  std::vector<unsigned char> data = Block(TDL_StringAndArray{"FIRM", {"stale"}});
  int rc = SendString_GetArrayStrings<TFakeArray>([](const char*, TFakeArray**) { return 0; }, data, "FIRM", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_TRUE(Decode<TDL_StringAndArray>(data).lsStrings.empty());
  EXPECT_TRUE(freedBlocks_.empty());
}

TEST_F(AdaptersTest, ReadingAListOfAnOwnerPassesItsCode) {
  std::vector<unsigned char> data = Block(TDL_TwoStringsAndArray{"FIRM", "TPL1", {}});
  std::string owner;
  TFakeArray* handedOut = nullptr;
  int rc = SendTwoStrings_GetArrayStrings<TFakeArray>(
      [&](const char*, const char* code, TFakeArray** array) {
        owner = code;
        handedOut = NewResult({"CLIENT1"});
        *array = handedOut;
        return 0;
      },
      data, "FIRM", env_);
  EXPECT_EQ(rc, 0);
  EXPECT_EQ(owner, "TPL1");
  TDL_TwoStringsAndArray reply = Decode<TDL_TwoStringsAndArray>(data);
  EXPECT_EQ(reply.strParam, "TPL1");
  EXPECT_EQ(reply.lsStrings, (std::vector<std::string>{"CLIENT1"}));
  ReleaseFake(*handedOut);
  delete handedOut;
}

TEST_F(AdaptersTest, FailedListReadHandsOutNothingToRelease) {
  std::vector<unsigned char> data = Block(TDL_TwoStringsAndArray{"FIRM", "NOPE", {}});
  const std::vector<unsigned char> before = data;
  int rc = SendTwoStrings_GetArrayStrings<TFakeArray>([](const char*, const char*, TFakeArray**) { return 15; },
                                                      data, "FIRM", env_);
  EXPECT_EQ(rc, 1015);
  EXPECT_EQ(data, before);
  EXPECT_TRUE(freedBlocks_.empty());
}

}  // namespace
