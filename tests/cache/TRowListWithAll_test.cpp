// A list of codes that may say "<ALL>".
#include "cache/TRowListWithAll.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ini/TIniParser.h"

namespace {

using DL::TRowListWithAll;
using Strings = std::vector<std::string>;

class RowListWithAllTest : public ::testing::Test {
 protected:
  // The reserved names come from the catalogue, filled by the first parser.
  void SetUp() override { DL::TIniParser parser("", DL::TIniParser::SourceText, ';', 1); }
};

TEST_F(RowListWithAllTest, ItemsAreTrimmedAndRepeatsAndEmptiesDropped) {
  TRowListWithAll list;
  list.FillFromStr(" B ,A,,B, C");
  EXPECT_EQ(list.Items(), (Strings{"B", "A", "C"}));
  EXPECT_FALSE(list.IsAll());
  EXPECT_EQ(list.ToStr(), "B,A,C");
}

TEST_F(RowListWithAllTest, AllSetsTheFlagAndKeepsNoItems) {
  TRowListWithAll list;
  list.FillFromStr("A,<ALL>,B");
  EXPECT_TRUE(list.IsAll());
  EXPECT_TRUE(list.Items().empty());
  EXPECT_FALSE(list.Empty());
  EXPECT_EQ(list.ToStr(), "<ALL>");
  EXPECT_TRUE(list.Contains("ANYTHING"));
}

TEST_F(RowListWithAllTest, AnItemEndingInAStarMatchesByPrefix) {
  TRowListWithAll list;
  list.FillFromStr("SU26*,SBER");
  EXPECT_TRUE(list.Contains("SU26238RMFS4"));
  EXPECT_TRUE(list.Contains("SBER"));
  EXPECT_FALSE(list.Contains("SBERP"));
  EXPECT_FALSE(list.Contains("SU25"));
}

TEST_F(RowListWithAllTest, RefillingReplacesTheList) {
  TRowListWithAll list;
  list.FillFromStr("<ALL>");
  list.FillFromStr("A");
  EXPECT_FALSE(list.IsAll());
  EXPECT_EQ(list.Items(), Strings{"A"});
  list.FillFromStr("");
  EXPECT_TRUE(list.Empty());
  EXPECT_EQ(list.ToStr(), "");
}

}  // namespace
