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

}  // namespace
