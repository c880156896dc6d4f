// The volume-based commission table: steps, lookups, commission values and
// the section text form.
#include "commission/TVolumeBasedCommission.h"

#include <gtest/gtest.h>

#include "base/ResultCodes.h"

namespace DL {
namespace {

TEST(VolumeCommClassesTest, SetKeepsTheSmallestAsFirstClass) {
  TVolumeBasedCommission c;
  EXPECT_EQ(c.GetFirstClass(), "");
  c.Set({"TQTF", "TQBR", "SPBFUT"});
  EXPECT_EQ(c.GetFirstClass(), "SPBFUT");
  EXPECT_TRUE(c.IsClassInList("TQBR"));
  EXPECT_FALSE(c.IsClassInList("EQOB"));
  c.Set({"TQTF"});
  EXPECT_EQ(c.GetAllStrings(), (std::set<std::string>{"TQTF"}));
  EXPECT_EQ(c.GetFirstClass(), "TQTF");
}

TEST(VolumeCommClassesTest, AllClassesIsOneEntry) {
  TVolumeBasedCommission c;
  c.Set({"TQBR", "<ALL>"});
  EXPECT_EQ(c.GetAllStrings(), (std::set<std::string>{"<ALL>"}));
  EXPECT_TRUE(c.IsClassInList("ANYCLASS"));
  EXPECT_FALSE(c.AddClass("TQBR"));  // already covered
  EXPECT_EQ(c.GetAllStrings().size(), 1u);
}

TEST(VolumeCommClassesTest, AddAndRemoveRefreshFirstClass) {
  TVolumeBasedCommission c;
  EXPECT_TRUE(c.AddClass("TQTF"));
  EXPECT_TRUE(c.AddClass("EQOB"));
  EXPECT_FALSE(c.AddClass("EQOB"));
  EXPECT_EQ(c.GetFirstClass(), "EQOB");
  EXPECT_TRUE(c.RemoveClass("EQOB"));
  EXPECT_FALSE(c.RemoveClass("EQOB"));
  EXPECT_EQ(c.GetFirstClass(), "TQTF");
  EXPECT_TRUE(c.AddClass("<ALL>"));
  EXPECT_EQ(c.GetAllStrings(), (std::set<std::string>{"<ALL>"}));
}

TEST(VolumeCommClassesTest, OrderIsByFirstClassEqualityByAll) {
  TVolumeBasedCommission a, b;
  a.Set({"EQOB", "TQBR"});
  b.Set({"TQBR"});
  EXPECT_TRUE(a < b);
  EXPECT_FALSE(b < a);
  TVolumeBasedCommission a2 = a;
  EXPECT_EQ(a, a2);
  ASSERT_EQ(a2.AddSetting(0, sdBoth, ctFixed, 1.0, 0.0), ZDL_OK);
  EXPECT_FALSE(a == a2);
  EXPECT_FALSE(a < a2);  // same first class
}

TEST(VolumeCommAddSettingTest, NegativeNumbersAreRefusedAndChangeNothing) {
  TVolumeBasedCommission c;
  ASSERT_EQ(c.AddSetting(100.0, sdBoth, ctFixed, 0.5, 0.0), ZDL_OK);
  const TVolumeBasedCommission before = c;
  EXPECT_EQ(c.AddSetting(-1.0, sdBoth, ctFixed, 0.5, 0.0), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(c.AddSetting(100.0, sdBoth, ctFixed, -0.5, 0.0), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(c.AddSetting(100.0, sdBoth, ctTradeMax, 0.5, -10.0), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(c, before);
}

TEST(VolumeCommAddSettingTest, UndefinedSideOrKindIsRefused) {
  TVolumeBasedCommission c;
  EXPECT_EQ(c.AddSetting(0.0, sdUndefined, ctFixed, 0.5, 0.0), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(c.AddSetting(0.0, sdBuy, ctUndefined, 0.5, 0.0), ZDL_BAD_ARGUMENT);
  EXPECT_TRUE(c.GetRates().empty());
}

TEST(VolumeCommAddSettingTest, StepsAreKeptBySideAndReplaced) {
  TVolumeBasedCommission c;
  ASSERT_EQ(c.AddSetting(1000.0, sdBuy, ctTradeMax, 0.5, 10.0), ZDL_OK);
  ASSERT_EQ(c.AddSetting(1000.0, sdSell, ctTradeMin, 0.4, 5.0), ZDL_OK);
  ASSERT_EQ(c.AddSetting(0.0, sdBoth, ctFixed, 1.0, 0.0), ZDL_OK);
  ASSERT_EQ(c.AddSetting(1000.0, sdBuy, ctFixed, 0.3, 0.0), ZDL_OK);  // replaces
  const std::vector<VolumeAndSideToTypeAndRate> expected = {
      {0.0, sdBoth, {ctFixed, 1.0, 0.0}},
      {1000.0, sdBuy, {ctFixed, 0.3, 0.0}},
      {1000.0, sdSell, {ctTradeMin, 0.4, 5.0}},
  };
  EXPECT_EQ(c.GetAllSettings(), expected);
}

class VolumeCommTableTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(c.AddSetting(100.0, sdBoth, ctFixed, 1.0, 0.0), ZDL_OK);
    ASSERT_EQ(c.AddSetting(1000.0, sdBuy, ctTradeMax, 0.5, 10.0), ZDL_OK);
  }
  TVolumeBasedCommission c;
};

TEST_F(VolumeCommTableTest, BelowTheLowestStepIsUndefined) {
  EXPECT_EQ(c.GetEffectiveTypeAndRate(50.0, sdBuy), TypeAndRate(ctUndefined, 0.0, 0.0));
  EXPECT_EQ(c.GetEffectiveTypeAndRate(0.0, sdBoth), TypeAndRate(ctUndefined, 0.0, 0.0));
  EXPECT_EQ(TVolumeBasedCommission().GetEffectiveTypeAndRate(1e9, sdBuy), TypeAndRate(ctUndefined, 0.0, 0.0));
}

TEST_F(VolumeCommTableTest, HighestStepReachedWithTheSidesEntry) {
  EXPECT_EQ(c.GetEffectiveTypeAndRate(100.0, sdBuy), TypeAndRate(ctFixed, 1.0, 0.0));
  EXPECT_EQ(c.GetEffectiveTypeAndRate(999.0, sdBuy), TypeAndRate(ctFixed, 1.0, 0.0));
  EXPECT_EQ(c.GetEffectiveTypeAndRate(1500.0, sdBuy), TypeAndRate(ctTradeMax, 0.5, 10.0));
  // Equal within 1e-7 counts as reached.
  EXPECT_EQ(c.GetEffectiveTypeAndRate(999.99999999, sdBuy), TypeAndRate(ctTradeMax, 0.5, 10.0));
}

TEST_F(VolumeCommTableTest, StepWithoutTheSideOrBothIsPassedOver) {
  EXPECT_EQ(c.GetEffectiveTypeAndRate(1500.0, sdSell), TypeAndRate(ctFixed, 1.0, 0.0));
}

TEST_F(VolumeCommTableTest, BothSidesEntryServesASide) {
  ASSERT_EQ(c.AddSetting(5000.0, sdBoth, ctTradeMin, 0.2, 3.0), ZDL_OK);
  EXPECT_EQ(c.GetEffectiveTypeAndRate(6000.0, sdSell), TypeAndRate(ctTradeMin, 0.2, 3.0));
  EXPECT_EQ(c.GetEffectiveTypeAndRate(6000.0, sdBuy), TypeAndRate(ctTradeMin, 0.2, 3.0));
}

TEST(VolumeCommValueTest, HalfPerCentOfThousand) {
  EXPECT_DOUBLE_EQ(TVolumeBasedCommission::CalcCommByType(1000.0, 0, {ctFixed, 0.5, 10.0}), 5.0);
  EXPECT_DOUBLE_EQ(TVolumeBasedCommission::CalcCommByType(1000.0, 0, {ctTradeMax, 0.5, 10.0}), 10.0);
  EXPECT_DOUBLE_EQ(TVolumeBasedCommission::CalcCommByType(1000.0, 0, {ctTradeMin, 0.5, 10.0}), 5.0);
}

TEST(VolumeCommValueTest, AmountIsScaled) {
  // a = 10 * 100 = 1000, v = 100000 * 0.5 / 100 = 500.
  EXPECT_DOUBLE_EQ(TVolumeBasedCommission::CalcCommByType(100000.0, 2, {ctTradeMax, 0.5, 10.0}), 1000.0);
  EXPECT_DOUBLE_EQ(TVolumeBasedCommission::CalcCommByType(100000.0, 2, {ctTradeMin, 0.5, 10.0}), 500.0);
}

TEST(VolumeCommValueTest, UndefinedKindGivesZero) {
  EXPECT_EQ(TVolumeBasedCommission::CalcCommByType(1000.0, 0, {ctUndefined, 0.5, 10.0}), 0.0);
}

TEST(VolumeCommValueTest, ByTypeAndSideTakesTheSideThenBoth) {
  const TVolumeBasedCommission::TSideMap sides = {{sdBoth, {ctFixed, 1.0, 0.0}}, {sdSell, {ctFixed, 2.0, 0.0}}};
  TypeAndRate out;
  EXPECT_DOUBLE_EQ(TVolumeBasedCommission::CalcCommByTypeAndSide(sides, sdSell, 0, out, 1000.0), 20.0);
  EXPECT_EQ(out, TypeAndRate(ctFixed, 2.0, 0.0));
  EXPECT_DOUBLE_EQ(TVolumeBasedCommission::CalcCommByTypeAndSide(sides, sdBuy, 0, out, 1000.0), 10.0);
  EXPECT_EQ(out, TypeAndRate(ctFixed, 1.0, 0.0));
}

TEST(VolumeCommValueTest, ByTypeAndSideWithNeitherLeavesOut) {
  const TVolumeBasedCommission::TSideMap sides = {{sdBuy, {ctFixed, 1.0, 0.0}}};
  TypeAndRate out(ctTradeMin, 9.0, 9.0);
  EXPECT_EQ(TVolumeBasedCommission::CalcCommByTypeAndSide(sides, sdSell, 0, out, 1000.0), 0.0);
  EXPECT_EQ(out, TypeAndRate(ctTradeMin, 9.0, 9.0));
}

TEST(VolumeCommFilterTest, ZeroStepsAndOtherSidesAreLeftOut) {
  TVolumeBasedCommission c;
  ASSERT_EQ(c.AddSetting(0.0, sdBoth, ctFixed, 0.0, 0.0), ZDL_OK);     // zero
  ASSERT_EQ(c.AddSetting(100.0, sdSell, ctFixed, 1.0, 0.0), ZDL_OK);   // other side
  ASSERT_EQ(c.AddSetting(200.0, sdBuy, ctTradeMax, 0.0, 5.0), ZDL_OK);  // amount only
  ASSERT_EQ(c.AddSetting(300.0, sdBoth, ctFixed, 0.5, 0.0), ZDL_OK);
  TVolumeBasedCommission::TFilteredRates out;
  c.GetFilteredRatesList(sdBuy, 0, out);
  const TVolumeBasedCommission::TFilteredRates expected = {{200.0, {ctTradeMax, 0.0, 5.0}},
                                                           {300.0, {ctFixed, 0.5, 0.0}}};
  EXPECT_EQ(out, expected);
}

TEST(VolumeCommFilterTest, VolumesCloserThanTheScaleCountAsOne) {
  TVolumeBasedCommission c;
  ASSERT_EQ(c.AddSetting(100.0, sdBoth, ctFixed, 1.0, 0.0), ZDL_OK);
  ASSERT_EQ(c.AddSetting(100.05, sdBoth, ctFixed, 2.0, 0.0), ZDL_OK);  // within 0.1 at scale 0
  ASSERT_EQ(c.AddSetting(100.2, sdBoth, ctFixed, 3.0, 0.0), ZDL_OK);
  TVolumeBasedCommission::TFilteredRates out;
  c.GetFilteredRatesList(sdBoth, 0, out);
  ASSERT_EQ(out.size(), 2u);
  EXPECT_DOUBLE_EQ(out.at(100.0).Rate, 1.0);
  EXPECT_DOUBLE_EQ(out.at(100.2).Rate, 3.0);
  TVolumeBasedCommission::TFilteredRates fine;
  c.GetFilteredRatesList(sdBoth, 2, fine);  // within 0.001: all three differ
  EXPECT_EQ(fine.size(), 3u);
}

TEST(VolumeCommMaxTest, NoStepsGiveZero) {
  EXPECT_EQ(TVolumeBasedCommission().CalcMaxCommValue(5000.0, sdBuy, 0), 0.0);
}

TEST(VolumeCommMaxTest, EachStepIsChargedUpToTheNextBound) {
  TVolumeBasedCommission c;
  ASSERT_EQ(c.AddSetting(0.0, sdBoth, ctFixed, 2.0, 0.0), ZDL_OK);
  ASSERT_EQ(c.AddSetting(1000.0, sdBoth, ctFixed, 0.1, 0.0), ZDL_OK);
  // Step 0 on 999 (the bound): 19.98; step 1000 on 1500: 1.5. The larger.
  EXPECT_DOUBLE_EQ(c.CalcMaxCommValue(1500.0, sdBuy, 0), 19.98);
  // Below the second step only the first counts: 500 * 2% = 10.
  EXPECT_DOUBLE_EQ(c.CalcMaxCommValue(500.0, sdBuy, 0), 10.0);
}

TEST(VolumeCommMaxTest, ScaleMovesBoundsAndAmounts) {
  TVolumeBasedCommission c;
  ASSERT_EQ(c.AddSetting(0.0, sdBoth, ctFixed, 1.0, 0.0), ZDL_OK);
  ASSERT_EQ(c.AddSetting(1000.0, sdBuy, ctTradeMax, 0.5, 10.0), ZDL_OK);
  // Scale 2: step 0 on 99999 gives 999.99; step 1000 on 500000 gives
  // max(1000, 2500) = 2500.
  EXPECT_DOUBLE_EQ(c.CalcMaxCommValue(500000.0, sdBuy, 2), 2500.0);
  // The sell side has only step 0: 500000 * 1% = 5000.
  EXPECT_DOUBLE_EQ(c.CalcMaxCommValue(500000.0, sdSell, 2), 5000.0);
  // 50000 stops before the second step: 500.
  EXPECT_DOUBLE_EQ(c.CalcMaxCommValue(50000.0, sdBuy, 2), 500.0);
}

TEST(VolumeCommMaxTest, ValueBelowTheFirstStepGivesZero) {
  TVolumeBasedCommission c;
  ASSERT_EQ(c.AddSetting(100.0, sdBoth, ctFixed, 1.0, 0.0), ZDL_OK);
  EXPECT_EQ(c.CalcMaxCommValue(50.0, sdBoth, 0), 0.0);
  // At the step's volume less one, within 0.1, it still stops.
  EXPECT_EQ(c.CalcMaxCommValue(99.05, sdBoth, 0), 0.0);
  EXPECT_DOUBLE_EQ(c.CalcMaxCommValue(200.0, sdBoth, 0), 2.0);
}

TEST(VolumeCommTextTest, SectionReadsClassesAndSteps) {
  const TIniKeyMap keys = {{"Classes", "TQTF, TQBR"},
                           {"0", "FIXED,0.05,0"},
                           {"1000000_B", "TRADE_MAX,0.03,100"},
                           {"1000000_s", "TRADE_MIN,0.04,50"}};
  TVolumeBasedCommission c;
  TIniKeyMap unread;
  c.ParseFromSection(keys, unread);
  EXPECT_TRUE(unread.empty());
  EXPECT_EQ(c.GetAllStrings(), (std::set<std::string>{"TQBR", "TQTF"}));
  const std::vector<VolumeAndSideToTypeAndRate> expected = {
      {0.0, sdBoth, {ctFixed, 0.05, 0.0}},
      {1000000.0, sdBuy, {ctTradeMax, 0.03, 100.0}},
      {1000000.0, sdSell, {ctTradeMin, 0.04, 50.0}},
  };
  EXPECT_EQ(c.GetAllSettings(), expected);
  EXPECT_EQ(c.ToSectionBody(),
            "Classes=TQBR,TQTF\n"
            "0=FIXED,0.05,0\n"
            "1000000_B=TRADE_MAX,0.03,100\n"
            "1000000_S=TRADE_MIN,0.04,50\n");
}

TEST(VolumeCommTextTest, LinesThatDoNotReadAreHandedBack) {
  const TIniKeyMap keys = {{"Classes", "TQBR"},
                           {"Comment", "kept"},
                           {"100_X", "FIXED,1,0"},           // unknown side
                           {"200", "FIXED,1"},               // two numbers
                           {"300", "SOMETHING,1,0"},         // unknown kind
                           {"-5", "FIXED,1,0"},              // negative volume
                           {"400", "FIXED,-1,0"},            // negative rate
                           {"500", "FIXED,0.5,0"},
                           {"500.0", "FIXED,0.7,0"}};        // the same step again
  TVolumeBasedCommission c;
  TIniKeyMap unread;
  c.ParseFromSection(keys, unread);
  const TIniKeyMap expectedUnread = {{"Comment", "kept"}, {"100_X", "FIXED,1,0"}, {"200", "FIXED,1"},
                                    {"300", "SOMETHING,1,0"}, {"-5", "FIXED,1,0"}, {"400", "FIXED,-1,0"},
                                    {"500.0", "FIXED,0.7,0"}};
  EXPECT_EQ(unread, expectedUnread);
  EXPECT_EQ(c.GetAllSettings(), (std::vector<VolumeAndSideToTypeAndRate>{{500.0, sdBoth, {ctFixed, 0.5, 0.0}}}));
}

TEST(VolumeCommTextTest, ClassListWithTooLongCodeIsHandedBack) {
  TVolumeBasedCommission c;
  TIniKeyMap unread;
  c.ParseFromSection({{"Classes", "TQBR,ABCDEFGHIJKLM"}}, unread);
  EXPECT_TRUE(c.GetAllStrings().empty());
  EXPECT_EQ(unread.at("Classes"), "TQBR,ABCDEFGHIJKLM");
  EXPECT_EQ(c.ToSectionBody(), "");
}

TEST(VolumeCommTextTest, TextReadsBackToTheSameObject) {
  TVolumeBasedCommission c;
  c.Set({"<ALL>"});
  ASSERT_EQ(c.AddSetting(0.0, sdBoth, ctFixed, 0.125, 0.0), ZDL_OK);
  ASSERT_EQ(c.AddSetting(2500000.5, sdSell, ctTradeMin, 0.01, 12.25), ZDL_OK);
  EXPECT_EQ(c.ToSectionBody(), "Classes=<ALL>\n0=FIXED,0.125,0\n2500000.5_S=TRADE_MIN,0.01,12.25\n");
  // Read the body back through a key map.
  TIniKeyMap keys = {{"Classes", "<ALL>"}, {"0", "FIXED,0.125,0"}, {"2500000.5_S", "TRADE_MIN,0.01,12.25"}};
  TVolumeBasedCommission back;
  TIniKeyMap unread;
  back.ParseFromSection(keys, unread);
  EXPECT_TRUE(unread.empty());
  EXPECT_EQ(back, c);
}

}  // namespace
}  // namespace DL

namespace DL {
namespace {

TEST(VolumeCommTextTest, ClassListWithoutAClassIsHandedBack) {
  TVolumeBasedCommission c;
  TIniKeyMap unread;
  c.ParseFromSection({{"Classes", " , "}}, unread);
  EXPECT_TRUE(c.GetAllStrings().empty());
  EXPECT_EQ(unread, (TIniKeyMap{{"Classes", " , "}}));
}

}  // namespace
}  // namespace DL
