#include "base/KeyParsers.h"

#include <gtest/gtest.h>

namespace {

using namespace DL;
using namespace DL::Utils;
using Set = std::set<std::string>;

TEST(KeyParserTest, Interval) {
  int64_t v = 0;
  size_t pos = 0;
  ASSERT_TRUE(GetIntervalFromString("TQBR_INSTR_SBER_interval_60_TIME_10:00-11:00", v, pos));
  EXPECT_EQ(v, 60);
  EXPECT_EQ(pos, 15u);
  EXPECT_FALSE(GetIntervalFromString("TQBR_INSTR_SBER", v, pos));
  EXPECT_FALSE(GetIntervalFromString("X_INTERVAL_6a", v, pos));
  EXPECT_FALSE(GetIntervalFromString("X_INTERVAL_", v, pos));
}

TEST(KeyParserTest, Time) {
  TTimeInterval t;
  size_t pos = 0;
  ASSERT_TRUE(GetTimeFromString("TQBR_INSTR_SBER_TIME_10:00-11:30", t, pos));
  EXPECT_EQ(t, (TTimeInterval{{10, 0}, {11, 30}}));
  EXPECT_EQ(pos, 15u);
  EXPECT_FALSE(GetTimeFromString("TQBR_INSTR_SBER", t, pos));
  EXPECT_FALSE(GetTimeFromString("X_TIME_25:00-26:00", t, pos));
}

TEST(KeyParserTest, QuantityIsDigitsOnly) {
  int64_t q = -1;
  ASSERT_TRUE(GetQtyFromString("1500", q));
  EXPECT_EQ(q, 1500);
  q = -1;
  EXPECT_FALSE(GetQtyFromString("15a0", q));
  EXPECT_FALSE(GetQtyFromString("-5", q));
  EXPECT_FALSE(GetQtyFromString("", q));
  EXPECT_FALSE(GetQtyFromString(" 5", q));
  EXPECT_EQ(q, -1);
}

TEST(KeyParserTest, ClassList) {
  Set c;
  size_t pos = 0;
  ASSERT_TRUE(GetClassListFromString("SettlementCurrency_USD_ClassList_TQBR,EQMP_BND_Side_B", c, pos));
  EXPECT_EQ(c, (Set{"TQBR", "EQMP_BND"}));
  EXPECT_EQ(pos, 22u);
  EXPECT_FALSE(GetClassListFromString("TQBR_INSTR_SBER", c, pos));
}

TEST(KeyParserTest, ClassListWithTooLongCodeFails) {
  Set c = {"keep"};
  size_t pos = 0;
  EXPECT_FALSE(GetClassListFromString("_ClassList_ABCDEFGHIJKLM", c, pos));
  EXPECT_EQ(c, Set{"keep"});
}

TEST(KeyParserTest, SecList) {
  Set s;
  size_t pos = 0;
  ASSERT_TRUE(GetSecListFromString("_ClassList_TQBR_Instruments_SBER,GAZP", s, pos));
  EXPECT_EQ(s, (Set{"SBER", "GAZP"}));
  EXPECT_EQ(pos, 15u);
  ASSERT_TRUE(GetSecListFromString("TQBR_INSTR_LKOH", s, pos));
  EXPECT_EQ(s, Set{"LKOH"});
  EXPECT_EQ(pos, 4u);
  EXPECT_FALSE(GetSecListFromString("TQBR", s, pos));
}

TEST(KeyParserTest, ClassAndSecListsShortForm) {
  Set c, s;
  ASSERT_TRUE(GetClassListAndSecListFromString("TQBR,SMAL_INSTR_SBER,GAZP", c, s));
  EXPECT_EQ(c, (Set{"TQBR", "SMAL"}));
  EXPECT_EQ(s, (Set{"SBER", "GAZP"}));
  ASSERT_TRUE(GetClassListAndSecListFromString("<ALL>_INSTR_<ALL>", c, s));
  EXPECT_EQ(c, Set{"<ALL>"});
  EXPECT_EQ(s, Set{"<ALL>"});
}

TEST(KeyParserTest, ClassAndSecListsMarkedForm) {
  Set c, s;
  ASSERT_TRUE(GetClassListAndSecListFromString("_classlist_TQBR_instruments_SBER", c, s));
  EXPECT_EQ(c, Set{"TQBR"});
  EXPECT_EQ(s, Set{"SBER"});
}

TEST(KeyParserTest, ClassAndSecListsNeedTheSecurityMarker) {
  Set c, s;
  EXPECT_FALSE(GetClassListAndSecListFromString("TQBR,SMAL", c, s));
}

TEST(KeyParserTest, TooLongSecurityFailsTheKey) {
  Set c, s;
  EXPECT_FALSE(GetClassListAndSecListFromString("TQBR_INSTR_ABCDEFGHIJKLM", c, s));
  EXPECT_FALSE(GetClassListAndSecListFromString("ABCDEFGHIJKLM_INSTR_SBER", c, s));
}

TEST(KeyParserTest, QtyWithLists) {
  TQtyToClassListAndSecList q;
  ASSERT_TRUE(ParseQtyToClassListAndSecList("TQBR_INSTR_SBER", "100", q));
  EXPECT_EQ(q.Qty, 100);
  EXPECT_EQ(q.Classes, Set{"TQBR"});
  EXPECT_EQ(q.Securities, Set{"SBER"});
}

TEST(KeyParserTest, QtyWithDigitsAndLettersSetsNothing) {
  TQtyToClassListAndSecList q;
  q.Qty = 7;
  EXPECT_FALSE(ParseQtyToClassListAndSecList("TQBR_INSTR_SBER", "10a0", q));
  EXPECT_EQ(q.Qty, 7);
  EXPECT_TRUE(q.Classes.empty());
}

TEST(KeyParserTest, QtyWithIntervalAndTime) {
  TQtyToClassListAndSecList q;
  ASSERT_TRUE(ParseQtyToClassListAndSecListAndInterval("TQBR_INSTR_SBER,GAZP_INTERVAL_60_TIME_10:00-18:45",
                                                       "5", q));
  EXPECT_EQ(q.Qty, 5);
  EXPECT_EQ(q.Securities, (Set{"SBER", "GAZP"}));
  EXPECT_EQ(q.Interval, 60);
  EXPECT_EQ(q.Time, (TTimeInterval{{10, 0}, {18, 45}}));
}

TEST(KeyParserTest, QtyWithIntervalNeedsAllThree) {
  TQtyToClassListAndSecList q;
  EXPECT_FALSE(ParseQtyToClassListAndSecListAndInterval("TQBR_INSTR_SBER_TIME_10:00-18:45", "5", q));
  EXPECT_FALSE(ParseQtyToClassListAndSecListAndInterval("TQBR_INSTR_SBER_INTERVAL_60", "5", q));
}

TEST(PriceLimitValueTest, ThreeItems) {
  double d = 0;
  std::string m;
  bool r = false;
  ASSERT_TRUE(GetDeviationMiddleReject("5.5,bid,1", d, m, r));
  EXPECT_EQ(d, 5.5);
  EXPECT_EQ(m, "BID");
  EXPECT_TRUE(r);
}

TEST(PriceLimitValueTest, DefaultsForMissingItems) {
  double d = 0;
  std::string m = "x";
  bool r = true;
  ASSERT_TRUE(GetDeviationMiddleReject(",,0", d, m, r));
  EXPECT_EQ(d, -1.0);
  EXPECT_EQ(m, "");
  EXPECT_FALSE(r);
  ASSERT_TRUE(GetDeviationMiddleReject("3", d, m, r));
  EXPECT_EQ(d, 3.0);
}

TEST(PriceLimitValueTest, MoreThanThreeItemsFail) {
  double d = 0;
  std::string m;
  bool r = false;
  EXPECT_FALSE(GetDeviationMiddleReject("1,LAST,1,9", d, m, r));
}

TEST(IntersectionTest, FirstCommonString) {
  std::string f;
  ASSERT_TRUE(FindStringsIntersection({"A", "C", "D"}, {"D", "C"}, f));
  EXPECT_EQ(f, "C");
  EXPECT_FALSE(FindStringsIntersection({"A"}, {"B"}, f));
  EXPECT_FALSE(FindStringsIntersection({}, {"B"}, f));
}

}  // namespace
