#include "settings/BaseTypes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace DLTypes;

TEST(ConvertTest, StringIsAssigned) {
  std::string s = "old";
  EXPECT_EQ(ConvertStringToPrimitive("new text", s), tecSuccess);
  EXPECT_EQ(s, "new text");
}

TEST(ConvertTest, DoubleNotANumberIsZeroAndSuccess) {
  double d = 5.0;
  EXPECT_EQ(ConvertStringToPrimitive("2.75", d), tecSuccess);
  EXPECT_EQ(d, 2.75);
  EXPECT_EQ(ConvertStringToPrimitive("abc", d), tecSuccess);
  EXPECT_EQ(d, 0.0);
}

TEST(ConvertTest, IntInBaseTen) {
  int i = 0;
  EXPECT_EQ(ConvertStringToPrimitive("-42", i), tecSuccess);
  EXPECT_EQ(i, -42);
  EXPECT_EQ(ConvertStringToPrimitive("010", i), tecSuccess);
  EXPECT_EQ(i, 10);  // base 10, not octal
  EXPECT_EQ(ConvertStringToPrimitive("x", i), tecSuccess);
  EXPECT_EQ(i, 0);
}

TEST(ConvertTest, UnsignedOfMinusOneStoresZeroAndRefuses) {
  unsigned int u = 9;
  EXPECT_EQ(ConvertStringToPrimitive("-1", u), tecBadValue);
  EXPECT_EQ(u, 0u);
}

TEST(ConvertTest, UnsignedIsTruncatedTo32Bits) {
  unsigned int u = 0;
  EXPECT_EQ(ConvertStringToPrimitive("7", u), tecSuccess);
  EXPECT_EQ(u, 7u);
  EXPECT_EQ(ConvertStringToPrimitive("4294967298", u), tecSuccess);  // 2^32 + 2
  EXPECT_EQ(u, 2u);
}

TEST(ConvertTest, TrendOfZeroRefusedAndOneAndMinusOneStored) {
  Enum_TrendToBaseBoard t = ttbbDirect;
  EXPECT_EQ(ConvertStringToPrimitive("0", t), tecBadValue);
  EXPECT_EQ(t, ttbbDirect);
  EXPECT_EQ(ConvertStringToPrimitive("-1", t), tecSuccess);
  EXPECT_EQ(t, ttbbInverse);
  EXPECT_EQ(ConvertStringToPrimitive("1", t), tecSuccess);
  EXPECT_EQ(t, ttbbDirect);
  EXPECT_EQ(ConvertStringToPrimitive("2", t), tecBadValue);
  EXPECT_EQ(ConvertStringToPrimitive("abc", t), tecBadValue);
  EXPECT_EQ(t, ttbbDirect);
}

TEST(ConvertTest, TrendFromIntAndBack) {
  Enum_TrendToBaseBoard t = ttbbDirect;
  EXPECT_EQ(ConvertIntToPrimitive(-1, t), tecSuccess);
  EXPECT_EQ(t, ttbbInverse);
  EXPECT_EQ(ConvertIntToPrimitive(0, t), tecBadValue);
  EXPECT_EQ(t, ttbbInverse);
  EXPECT_EQ(ConvertPrimitiveToInt(ttbbInverse), -1);
  EXPECT_EQ(ConvertPrimitiveToInt(ttbbDirect), 1);
}

TEST(ConvertTest, ToText) {
  EXPECT_EQ(ConvertPrimitiveToString(0.5), "0.5");
  EXPECT_EQ(ConvertPrimitiveToString(1.0 / 3.0), "0.3333333333333");
  EXPECT_EQ(ConvertPrimitiveToString(-7), "-7");
  EXPECT_EQ(ConvertPrimitiveToString(7u), "7");
  EXPECT_EQ(ConvertPrimitiveToString(std::string("SBER")), "SBER");
  EXPECT_EQ(ConvertPrimitiveToString(ttbbInverse), "-1");
}

struct TagA {};
struct TagB {};
using Small = NumClass<unsigned int, 0u, 5u, tecBadValue, TagA, 0>;
using Rate = NumClass<double, 0.0, 1.0, tecBadValue, TagB, 2>;
using Name = StringClass<0, 13, tecBadClient, TagA>;
using NonEmptyName = StringClass<1, 4, tecBadName, TagB>;

TEST(NumClassTest, BoundsAreInclusive) {
  Small s;
  EXPECT_EQ(s.Set(0), tecSuccess);
  EXPECT_EQ(s.Set(5), tecSuccess);
  EXPECT_EQ(s.Get(), 5u);
  EXPECT_EQ(s.Set(6), tecBadValue);
  EXPECT_EQ(s.Get(), 5u);  // a refused value changes nothing
}

TEST(NumClassTest, DoubleRange) {
  Rate r;
  EXPECT_EQ(r.Set(1.0), tecSuccess);
  EXPECT_EQ(r.Set(1.01), tecBadValue);
  EXPECT_EQ(r.Set(-0.01), tecBadValue);
  EXPECT_EQ(r.Set(std::numeric_limits<double>::quiet_NaN()), tecBadValue);
  EXPECT_EQ(r.Get(), 1.0);
}

TEST(NumClassTest, FromText) {
  Small s;
  EXPECT_EQ(s.SetFromString("3"), tecSuccess);
  EXPECT_EQ(s.Get(), 3u);
  EXPECT_EQ(s.SetFromString("-1"), tecBadValue);
  EXPECT_EQ(s.Get(), 3u);  // the converter stored 0, the value did not take it
  EXPECT_EQ(s.SetFromString("9"), tecBadValue);
  EXPECT_EQ(s.Get(), 3u);
}

TEST(NumClassTest, TextWithItsPrecision) {
  Rate r;
  ASSERT_EQ(r.Set(0.126), tecSuccess);
  EXPECT_EQ(r.ToString(), "0.13");
  ASSERT_EQ(r.Set(0.5), tecSuccess);
  EXPECT_EQ(r.ToString(), "0.5");
  Small s;
  ASSERT_EQ(s.Set(4), tecSuccess);
  EXPECT_EQ(s.ToString(), "4");
}

TEST(NumClassTest, InitialValueOutsideRangeStaysAtMin) {
  EXPECT_EQ(Rate(0.3).Get(), 0.3);
  EXPECT_EQ(Rate(3.0).Get(), 0.0);
}

TEST(StringClassTest, LengthLimits) {
  Name n;
  EXPECT_EQ(n.Set("1234567890123"), tecSuccess);
  EXPECT_EQ(n.Set("12345678901234"), tecBadClient);
  EXPECT_EQ(n.Get(), "1234567890123");
  EXPECT_EQ(n.Set(""), tecSuccess);
  NonEmptyName m;
  EXPECT_EQ(m.Set(""), tecBadName);
  EXPECT_EQ(m.Set("ABCD"), tecSuccess);
  EXPECT_EQ(m.SetFromString("ABCDE"), tecBadName);
  EXPECT_EQ(m.ToString(), "ABCD");
}

TEST(DListTest, ParsesCommaSeparatedText) {
  DList<Name> l;
  EXPECT_EQ(l.StringToList("B,A,C"), tecSuccess);
  EXPECT_EQ(l.ToString(), "A,B,C");
  EXPECT_EQ(l.Result(), tecSuccess);
}

TEST(DListTest, RepeatedValueIsDroppedWithoutError) {
  DList<Name> l;
  EXPECT_EQ(l.StringToList("A,B,A"), tecSuccess);
  EXPECT_EQ(l.size(), 2u);
}

TEST(DListTest, EmptyTextIsRefusedWithEmptyList) {
  DList<Name> l;
  ASSERT_EQ(l.StringToList("X"), tecSuccess);
  EXPECT_EQ(l.StringToList(""), tecBadValue);
  EXPECT_TRUE(l.empty());
  EXPECT_EQ(l.Result(), tecBadValue);
}

TEST(DListTest, EmptyTextAllowedWhenTheListSaysSo) {
  DList<Name, true> l;
  EXPECT_EQ(l.StringToList(""), tecSuccess);
  EXPECT_TRUE(l.empty());
}

TEST(DListTest, EmptyPieceEndsTheParse) {
  DList<Name> l;
  EXPECT_EQ(l.StringToList("A,,B"), tecBadValue);
  EXPECT_EQ(l.ToString(), "A");  // read up to the empty piece
  EXPECT_EQ(l.StringToList("A,"), tecBadValue);
  EXPECT_EQ(l.StringToList(",A"), tecBadValue);
}

TEST(DListTest, FirstRefusedValueEndsWithItsCode) {
  DList<Name> l;
  EXPECT_EQ(l.StringToList("A,12345678901234,B"), tecBadClient);
  EXPECT_EQ(l.ToString(), "A");
  DList<Small> n;
  EXPECT_EQ(n.StringToList("1,6,2"), tecBadValue);
  EXPECT_EQ(n.ToString(), "1");
}

TEST(DListTest, InsertEraseContains) {
  DList<Small> l;
  Small a;
  ASSERT_EQ(a.Set(2), tecSuccess);
  EXPECT_TRUE(l.Insert(a));
  EXPECT_FALSE(l.Insert(a));
  EXPECT_TRUE(l.Contains(a));
  EXPECT_TRUE(l.Erase(a));
  EXPECT_FALSE(l.Contains(a));
}

using Pair = ComplexKeyVal<Complex1T<Name>, Complex2T<Rate>>;
using Triple = ComplexKeyVal<Complex1T<Name>, Complex2T<Rate>, Complex3T<Enum_TrendToBaseBoard>>;

TEST(ComplexKeyValTest, KeyAndValueFromText) {
  Pair p;
  EXPECT_EQ(p.SetByText({"SBER", "0.25"}), tecSuccess);
  EXPECT_EQ(p.GetKey().Get(), "SBER");
  EXPECT_EQ(p.GetValue().Get(), 0.25);
  EXPECT_EQ(p.ToText(), (std::vector<std::string>{"SBER", "0.25"}));
}

TEST(ComplexKeyValTest, RefusedPartLeavesTheEntry) {
  Pair p;
  ASSERT_EQ(p.SetByText({"SBER", "0.25"}), tecSuccess);
  EXPECT_EQ(p.SetByText({"GAZP", "1.5"}), tecBadValue);
  EXPECT_EQ(p.GetKey().Get(), "SBER");
  EXPECT_EQ(p.SetByText({"12345678901234", "0.5"}), tecBadClient);
  EXPECT_EQ(p.GetValue().Get(), 0.25);
}

TEST(ComplexKeyValTest, ThirdFieldIsTheTrend) {
  Triple t(Name(), Rate(1.0), ttbbDirect);
  EXPECT_EQ(t.SetByText({"SBER", "0.5", "-1"}), tecSuccess);
  EXPECT_EQ(t.GetThird(), ttbbInverse);
  EXPECT_EQ(t.SetByText({"SBER", "0.5", "0"}), tecBadValue);
  EXPECT_EQ(t.GetThird(), ttbbInverse);
  EXPECT_EQ(t.ToText(), (std::vector<std::string>{"SBER", "0.5", "-1"}));
}

TEST(ComplexKeyValTest, MissingPartsKeepTheirValues) {
  Triple t(Name(), Rate(1.0), ttbbDirect);
  EXPECT_EQ(t.SetByText({"LKOH"}), tecSuccess);
  EXPECT_EQ(t.GetValue().Get(), 1.0);
  EXPECT_EQ(t.GetThird(), ttbbDirect);
}

TEST(ComplexKeyValTest, OrderedByKey) {
  Pair a, b;
  ASSERT_EQ(a.SetByText({"A", "0.9"}), tecSuccess);
  ASSERT_EQ(b.SetByText({"B", "0.1"}), tecSuccess);
  EXPECT_TRUE(a < b);
  EXPECT_FALSE(b < a);
}

}  // namespace
