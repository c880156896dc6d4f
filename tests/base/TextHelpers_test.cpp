#include "base/TextHelpers.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace DL;
using Strings = std::vector<std::string>;

TEST(TextTest, NullOrEmpty) {
  EXPECT_TRUE(IsNullOrEmpty(nullptr));
  EXPECT_TRUE(IsNullOrEmpty(""));
  EXPECT_FALSE(IsNullOrEmpty(" "));
  EXPECT_TRUE(IsEmptyOrSpace(static_cast<const char*>(nullptr)));
  EXPECT_TRUE(IsEmptyOrSpace(" \t\r\n"));
  EXPECT_FALSE(IsEmptyOrSpace(" x "));
}

TEST(TextTest, TrimBothEnds) {
  EXPECT_EQ(TrimStr("  a b \t"), "a b");
  EXPECT_EQ(TrimStr("   "), "");
  std::string s = "\tSBER ";
  Trim(s);
  EXPECT_EQ(s, "SBER");
}

TEST(TextTest, UpperCase) {
  EXPECT_EQ(StrUpper("TqBr_1"), "TQBR_1");
  std::string s = "abc";
  RealStrToUpper(s);
  EXPECT_EQ(s, "ABC");
  std::string p = "abcdef";
  StrUpperPartly(p, 3);
  EXPECT_EQ(p, "ABCdef");
  StrUpperPartly(p, 100);
  EXPECT_EQ(p, "ABCDEF");
}

TEST(TextTest, CopyAlwaysEndsWithZero) {
  char buf[5];
  std::memset(buf, 'x', sizeof buf);
  strncpy_0(buf, "USD12345", 4);
  EXPECT_STREQ(buf, "USD1");
  strncpy_0(buf, "EU", 4);
  EXPECT_STREQ(buf, "EU");
  strncpy_0(buf, nullptr, 4);
  EXPECT_STREQ(buf, "");
}

TEST(ListTest, SplitTrimsAndDropsEmpties) {
  EXPECT_EQ(BoardListToVector(" TQBR , SMAL,,EQOB ", ','), (Strings{"TQBR", "SMAL", "EQOB"}));
  EXPECT_EQ(BoardListToVector("A,,B,", ',', true), (Strings{"A", "", "B", ""}));
  EXPECT_TRUE(BoardListToVector("", ',').empty());
  EXPECT_EQ(BoardListToVector("A;B", ';'), (Strings{"A", "B"}));
}

TEST(ListTest, WithoutDuplicatesKeepsFirstOccurrenceAndOrder) {
  EXPECT_EQ(BoardListToVectorWithoutDuplicates("C,A,C,B,A", ','), (Strings{"C", "A", "B"}));
}

TEST(ListTest, IntoASet) {
  std::set<std::string> s = {"old"};
  ParseRowWithDelimsToListRows("B, A ,B", ',', s);
  EXPECT_EQ(s, (std::set<std::string>{"A", "B"}));
}

TEST(ListTest, Join) {
  EXPECT_EQ(GetRowWithDelimsFromListRows({"B", "A"}, ','), "A,B");
  EXPECT_EQ(GetRowWithDelimsFromListRows({}, ','), "");
  EXPECT_EQ(ListToString({"B", "A"}, ','), "B,A");
  EXPECT_EQ(ListToString({"X"}, '|'), "X");
}

TEST(ListTest, NumberLists) {
  EXPECT_EQ(StringListToIntVector("1, 2,-3"), (std::vector<int>{1, 2, -3}));
  EXPECT_EQ(StringListToInt64Vector("5000000000,7"), (std::vector<int64_t>{5000000000LL, 7}));
  EXPECT_EQ(StringListToDoubleVector("0.5,1e2"), (std::vector<double>{0.5, 100.0}));
}

TEST(DiscountLineTest, PositionsAndRanges) {
  const std::vector<double> v = StringListToDiscountVector("1,2,0.5|0.7,0.1,0.2");
  EXPECT_EQ(v, (std::vector<double>{1, 2, 0.5, 0.7, 0.1, 0.2}));
}

TEST(DiscountLineTest, DLongAboveOneHoldsMinusOne) {
  const std::vector<double> v = StringListToDiscountVector("1,1,1.5,0.3");
  EXPECT_EQ(v[2], -1.0);
  EXPECT_EQ(v[3], 0.3);
}

TEST(DiscountLineTest, EmptyNegativeOrUnreadableItemsHoldMinusOne) {
  const std::vector<double> v = StringListToDiscountVector(",-1,abc,2.5");
  EXPECT_EQ(v, (std::vector<double>{-1, -1, -1, 2.5, -1, -1}));
  EXPECT_EQ(StringListToDiscountVector("").size(), 6u);
}

TEST(PrefixMatchTest, LoneStarMatchesEverything) {
  EXPECT_TRUE(IsStringsEqualOrMatchByPrefix("*", "SBER"));
  EXPECT_TRUE(IsStringsEqualOrMatchByPrefix("*", ""));
  EXPECT_TRUE(IsStringsEqualOrMatchByPrefix("*", "*"));
}

TEST(PrefixMatchTest, TrailingStarIsAPrefix) {
  EXPECT_TRUE(IsStringsEqualOrMatchByPrefix("RU000*", "RU000A0JX0J2"));
  EXPECT_TRUE(IsStringsEqualOrMatchByPrefix("SB*", "SB"));
  EXPECT_FALSE(IsStringsEqualOrMatchByPrefix("SB*", "GAZP"));
}

TEST(PrefixMatchTest, OtherwiseEquality) {
  EXPECT_TRUE(IsStringsEqualOrMatchByPrefix("SBER", "SBER"));
  EXPECT_FALSE(IsStringsEqualOrMatchByPrefix("SBER", "SBERP"));
  EXPECT_TRUE(IsStringsEqualOrMatchByPrefix("", ""));
  EXPECT_FALSE(IsStringsEqualOrMatchByPrefix("", "A"));
  EXPECT_FALSE(IsStringsEqualOrMatchByPrefix("S*B", "SXB"));
}

TEST(ListTest, RemoveAndCleanUp) {
  Strings l = {"A", "B", "A"};
  EXPECT_TRUE(RemoveFromStringList(l, "A"));
  EXPECT_EQ(l, (Strings{"B"}));
  EXPECT_FALSE(RemoveFromStringList(l, "Z"));
  Strings m = {"", "ABCD", "ABCDE", "X"};
  EXPECT_FALSE(Check_LenghtOfListElements(m, 4));
  EraseRowsWithLengthZeroOrGreaterMaxLength(m, 4);
  EXPECT_EQ(m, (Strings{"ABCD", "X"}));
  EXPECT_TRUE(Check_LenghtOfListElements(m, 4));
}

TEST(NumberTextTest, StrToInt) {
  EXPECT_EQ(StrToIntDef("42", 7), 42);
  EXPECT_EQ(StrToIntDef("-3x", 7), -3);
  EXPECT_EQ(StrToIntDef("x", 7), 7);
  EXPECT_EQ(StrToIntDef(nullptr, 7), 7);
  EXPECT_EQ(StrToInt("x"), 0);
  EXPECT_TRUE(StrToBool("2"));
  EXPECT_FALSE(StrToBool("0"));
  EXPECT_FALSE(StrToBool("no"));
}

TEST(NumberTextTest, StrToDouble) {
  EXPECT_EQ(StrToDouble("1.25"), 1.25);
  EXPECT_EQ(StrToDouble("abc"), 0.0);
  EXPECT_EQ(StrToDouble(nullptr), 0.0);
}

TEST(NumberTextTest, ToText) {
  EXPECT_EQ(IntToString(-12), "-12");
  EXPECT_EQ(IntToString(5000000000LL), "5000000000");
  EXPECT_EQ(DoubleToString(2.5), "2.5");
  EXPECT_EQ(DoubleToString(100.0), "100");
  EXPECT_EQ(DoubleToString(-0.0), "0");
  EXPECT_EQ(DoubleToString(0.1), "0.1");
  EXPECT_EQ(DoubleToString(1.0 / 3.0), "0.3333333333333");
  EXPECT_EQ(DoubleToString(1.239, 2), "1.24");
  EXPECT_EQ(DoubleToStringIfPositive(1.5), "1.5");
  EXPECT_EQ(DoubleToStringIfPositive(0.0), "");
  EXPECT_EQ(DoubleToStringIfPositive(-1.0), "");
  EXPECT_EQ(BoolToString(true), "1");
  EXPECT_EQ(BoolToString(false), "0");
  EXPECT_EQ(DoubleToStringWithWidth(3.14159, 2, 8), "    3.14");
}

TEST(SearchTest, WholeWords) {
  EXPECT_EQ(FindWordInStr("A TQBR B", "TQBR"), 2u);
  EXPECT_EQ(FindWordInStr("TQBRX TQBR", "TQBR"), 6u);
  EXPECT_EQ(FindWordInStr("TQBRX", "TQBR"), std::string_view::npos);
  EXPECT_EQ(FindWordInStr("x", ""), std::string_view::npos);
}

TEST(SearchTest, DelimitersAndPieces) {
  EXPECT_EQ(GetAllDelimsPosesInStr("a,b,,c", ','), (std::vector<size_t>{1, 3, 4}));
  const auto v = GetAllSubStringsView("a,b,,c", ',');
  ASSERT_EQ(v.size(), 4u);
  EXPECT_EQ(v[0], "a");
  EXPECT_EQ(v[2], "");
  EXPECT_EQ(v[3], "c");
}

TEST(SearchTest, StartsAndFinishes) {
  EXPECT_TRUE(StringStartsCaseSens("Soft_PriceLimit", "Soft_"));
  EXPECT_FALSE(StringStartsCaseSens("soft_PriceLimit", "Soft_"));
  EXPECT_TRUE(StringFinishesCaseSens("cl1_Margin", "_Margin"));
  EXPECT_FALSE(StringFinishesCaseSens("cl1_MARGIN", "_Margin"));
  EXPECT_TRUE(StringFinishes("cl1_MARGIN", "_Margin"));
  EXPECT_FALSE(StringFinishes("in", "_Margin"));
}

TEST(SearchTest, CaseInsensitiveSubstring) {
  const char* text = "cl<GENERAL>_Margin";
  EXPECT_EQ(stristr(text, "_MARGIN"), text + 11);
  EXPECT_EQ(stristr(text, "xyz"), nullptr);
  EXPECT_EQ(stristr(text, ""), text);
  EXPECT_EQ(stristr(nullptr, "a"), nullptr);
}

TEST(BaseDiscCoeffTest, Range) {
  EXPECT_EQ(ParseBaseDiscCoeffValue("50"), 50.0);
  EXPECT_EQ(ParseBaseDiscCoeffValue("100"), 100.0);
  EXPECT_EQ(ParseBaseDiscCoeffValue("100.5"), -1.0);
  EXPECT_EQ(ParseBaseDiscCoeffValue("0"), -1.0);
  EXPECT_EQ(ParseBaseDiscCoeffValue("-5"), -1.0);
  EXPECT_EQ(ParseBaseDiscCoeffValue(""), -1.0);
  EXPECT_EQ(ParseBaseDiscCoeffValue(nullptr), -1.0);
  EXPECT_EQ(ParseBaseDiscCoeffValue("abc"), -1.0);
}

TEST(CurrencyTest, RubRurBecomeSur) {
  EXPECT_EQ(ReplaceRubRurToDefaultRubles("RUB"), "SUR");
  EXPECT_EQ(ReplaceRubRurToDefaultRubles("RUR"), "SUR");
  EXPECT_EQ(ReplaceRubRurToDefaultRubles("USD"), "USD");
  std::set<std::string> s = {"RUB", "RUR", "USD"};
  ReplaceRubRurToSurInSet(s);
  EXPECT_EQ(s, (std::set<std::string>{"SUR", "USD"}));
}

}  // namespace

namespace {

struct FakeArrayStrings {
  uint64_t count;
  char** items;
};

TEST(ZdlArrayTest, ConvertSkipsNulls) {
  char a[] = " B ", b[] = "A", c[] = "A", e[] = "";
  char* items[] = {a, nullptr, b, c, e};
  FakeArrayStrings list{5, items};
  EXPECT_EQ(DL::ConvertStringList(&list), (std::vector<std::string>{" B ", "A", "A", ""}));
  EXPECT_EQ(DL::ConvertAndCleanStringList(&list), (std::vector<std::string>{"B", "A"}));
  EXPECT_EQ(DL::ConvertArrayStringsToString(&list), " B ,A,A,");
  EXPECT_TRUE(DL::ConvertStringList<FakeArrayStrings>(nullptr).empty());
  FakeArrayStrings none{3, nullptr};
  EXPECT_TRUE(DL::ConvertStringList(&none).empty());
}

}  // namespace
