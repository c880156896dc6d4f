#include "settings/SettingTypes.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using namespace DLTypes;

TEST(SettingTypesTest, ClientCodeOfThirteenAcceptedFourteenGives7) {
  TClientCode c;
  EXPECT_EQ(c.Set("ABCDEFGHIJKLM"), tecSuccess);
  EXPECT_EQ(c.Set("ABCDEFGHIJKLMN"), 7);
  EXPECT_EQ(c.Get(), "ABCDEFGHIJKLM");
}

TEST(SettingTypesTest, StringKindsGiveTheirCodes) {
  const std::string fourteen = "ABCDEFGHIJKLMN";
  EXPECT_EQ(TBoardName().SetFromString(fourteen), 1);
  EXPECT_EQ(TSetName().SetFromString(fourteen), 1);
  EXPECT_EQ(TInstrumentName().SetFromString(fourteen), 3);
  EXPECT_EQ(TClientCode().SetFromString(fourteen), 7);
  EXPECT_EQ(TBoardName().SetFromString(""), tecSuccess);
}

TEST(SettingTypesTest, MarginTypeFiveAcceptedSixGives8) {
  TMarginType m;
  EXPECT_EQ(m.Set(5), tecSuccess);
  EXPECT_EQ(m.Set(6), 8);
  EXPECT_EQ(m.Get(), 5u);
  EXPECT_EQ(m.SetFromString("6"), 8);
}

TEST(SettingTypesTest, UnsignedRanges) {
  TNettingType n;
  EXPECT_EQ(n.Set(2), tecSuccess);
  EXPECT_EQ(n.Set(3), tecBadValue);
  EXPECT_EQ(n.SetFromString("-1"), tecBadValue);
  EXPECT_EQ(n.Get(), 2u);
  TDerivativesAutoInclusion d;
  EXPECT_EQ(d.Set(1), tecSuccess);
  EXPECT_EQ(d.Set(2), tecBadValue);
}

TEST(SettingTypesTest, ThresMarginCoeffTakes0And100Refuses10001) {
  TThresMarginCoeff t;
  EXPECT_EQ(t.Set(0.0), tecSuccess);
  EXPECT_EQ(t.Set(100.0), tecSuccess);
  EXPECT_EQ(t.Set(100.01), tecBadValue);
  EXPECT_EQ(t.Get(), 100.0);
  EXPECT_EQ(t.SetFromString("100.01"), tecBadValue);
}

TEST(SettingTypesTest, MinMarginCalcRateTakes0And1) {
  TMinMarginCalcRate r;
  EXPECT_EQ(r.Set(0.0), tecSuccess);
  EXPECT_EQ(r.Set(1.0), tecSuccess);
  EXPECT_EQ(r.Set(1.0000001), tecBadValue);
  EXPECT_EQ(r.Set(-0.5), tecBadValue);
}

TEST(SettingTypesTest, RelativeRiskAndLeverageRanges) {
  TRellativeRisk rr;
  EXPECT_EQ(rr.Set(1.0), tecSuccess);
  EXPECT_EQ(rr.Set(1.1), tecBadValue);
  TLeverage l;
  EXPECT_EQ(l.Set(999999999.0), tecSuccess);
  EXPECT_EQ(l.Set(1000000000.0), tecBadValue);
  EXPECT_EQ(l.Set(-1.0), tecBadValue);
  EXPECT_EQ(l.ToString(), "999999999");
}

TEST(SettingTypesTest, TagsMakeDistinctTypes) {
  EXPECT_FALSE((std::is_same_v<TSetName, TInstrumentName>));
  EXPECT_FALSE((std::is_same_v<TBoardName, TClientCode>));
  EXPECT_FALSE((std::is_convertible_v<TClientCode, TInstrumentName>));
  EXPECT_FALSE((std::is_same_v<TRellativeRisk, TMinMarginCalcRate>));
}

TEST(SettingTypesTest, ListOfBoards) {
  TBoardList b;
  EXPECT_EQ(b.StringToList("SPBFUT,TQBR,SPBFUT"), tecSuccess);
  EXPECT_EQ(b.ToString(), "SPBFUT,TQBR");
  EXPECT_EQ(b.StringToList("A,,B"), tecBadValue);
}

TEST(SettingTypesTest, ListOfClientsRefusesALongCodeWith7) {
  TClientList c;
  EXPECT_EQ(c.StringToList("C1,ABCDEFGHIJKLMN"), 7);
}

TEST(SettingTypesTest, ListOfLeveragesIsOrderedByHundredths) {
  TLeverageList l;
  EXPECT_EQ(l.StringToList("5,2,2.001"), tecSuccess);
  EXPECT_EQ(l.size(), 2u);  // 2 and 2.001 are one leverage
  EXPECT_EQ(l.ToString(), "2,5");
  EXPECT_EQ(l.StringToList("2,-1"), tecBadValue);
}

TEST(SettingTypesTest, LeverageComparer) {
  BT::LeverageComparer less;
  EXPECT_TRUE(less(TLeverage(1.5), TLeverage(2.0)));
  EXPECT_FALSE(less(TLeverage(2.0), TLeverage(2.004)));
  EXPECT_FALSE(less(TLeverage(2.004), TLeverage(2.0)));
}

TEST(ComplexSectionTest, InstrumentRowsWithDefaults) {
  TComplexSettingSection<TInstrumentRow> s(DefaultInstrumentRow());
  EXPECT_EQ(s.SetKeyValueByText({"SBER"}), tecSuccess);
  const TInstrumentRow& row = s.Rows().begin()->second;
  EXPECT_EQ(row.GetKey().Get(), "SBER");
  EXPECT_EQ(row.GetValue().Get(), 1.0);
  EXPECT_EQ(row.GetThird(), ttbbDirect);
}

TEST(ComplexSectionTest, SameKeyReplacesTheRow) {
  TComplexSettingSection<TInstrumentRow> s(DefaultInstrumentRow());
  ASSERT_EQ(s.SetKeyValueByText({"SBER", "0.5", "1"}), tecSuccess);
  ASSERT_EQ(s.SetKeyValueByText({"SBER", "0.25", "-1"}), tecSuccess);
  ASSERT_EQ(s.Rows().size(), 1u);
  EXPECT_EQ(s.Rows().begin()->second.GetValue().Get(), 0.25);
  EXPECT_EQ(s.Rows().begin()->second.GetThird(), ttbbInverse);
}

TEST(ComplexSectionTest, RefusedPartsGiveTheirCodes) {
  TComplexSettingSection<TInstrumentRow> s(DefaultInstrumentRow());
  EXPECT_EQ(s.SetKeyValueByText({"ABCDEFGHIJKLMN", "0.5", "1"}), 3);
  EXPECT_EQ(s.SetKeyValueByText({"SBER", "1.5", "1"}), 8);
  EXPECT_EQ(s.SetKeyValueByText({"SBER", "0.5", "0"}), 8);
  EXPECT_TRUE(s.Rows().empty());
}

TEST(ComplexSectionTest, SetAllReplacesAndStopsAtFirstRefusal) {
  TComplexSettingSection<TInstrumentRow> s(DefaultInstrumentRow());
  ASSERT_EQ(s.SetKeyValueByText({"OLD"}), tecSuccess);
  EXPECT_EQ(s.SetAllSettings({{"SBER", "0.5", "1"}, {"GAZP", "0.2", "-1"}}), tecSuccess);
  EXPECT_EQ(s.Rows().size(), 2u);
  EXPECT_EQ(s.Rows().count(TInstrumentName()), 0u);
  EXPECT_EQ(s.SetAllSettings({{"LKOH", "0.5", "1"}, {"BAD", "2", "1"}, {"MGNT", "0.5", "1"}}), 8);
  ASSERT_EQ(s.Rows().size(), 1u);
  EXPECT_EQ(s.Rows().begin()->first.Get(), "LKOH");
}

TEST(ComplexSectionTest, RemoveARow) {
  TComplexSettingSection<TInstrumentRow> s(DefaultInstrumentRow());
  ASSERT_EQ(s.SetKeyValueByText({"SBER"}), tecSuccess);
  TInstrumentName key;
  ASSERT_EQ(key.Set("SBER"), tecSuccess);
  EXPECT_TRUE(s.Remove(key));
  EXPECT_FALSE(s.Remove(key));
}

}  // namespace
