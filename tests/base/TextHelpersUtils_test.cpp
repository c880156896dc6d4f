#include "base/TextHelpers.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

namespace {

namespace U = Library::Utils;

TEST(StringUtilsTest, TrimmingRemovesWhiteSpaceAtTheAskedEnds) {
  EXPECT_EQ(U::Trim(" \t a b \r\n"), "a b");
  EXPECT_EQ(U::TrimLeft("  a b  "), "a b  ");
  EXPECT_EQ(U::TrimRight("  a b  "), "  a b");
  EXPECT_EQ(U::Trim("   "), "");
  EXPECT_EQ(U::Trim(""), "");
  EXPECT_EQ(U::Trim("\xCF\xF0 "), "\xCF\xF0");  // high bytes are no white space
}

TEST(StringUtilsTest, ParseStrToVectorSplitsAndTrims) {
  EXPECT_EQ(U::ParseStrToVector(" a , b,c ", ','), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(StringUtilsTest, ParseStrToVectorDropsOrKeepsEmptyItems) {
  EXPECT_EQ(U::ParseStrToVector("a,, ,b,", ','), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(U::ParseStrToVector("a,, ,b,", ',', true), (std::vector<std::string>{"a", "", "", "b", ""}));
  EXPECT_TRUE(U::ParseStrToVector("", ',', true).empty());
}

TEST(StringUtilsTest, ParseStrToSetSortsAndJoinsDuplicates) {
  EXPECT_EQ(U::ParseStrToSet("TQBR; SPBFUT ;TQBR;;", ';'), (std::set<std::string>{"SPBFUT", "TQBR"}));
  EXPECT_TRUE(U::ParseStrToSet("", ';').empty());
}

TEST(StringUtilsTest, NumberFormatting) {
  EXPECT_EQ(U::IntToStr(-42), "-42");
  EXPECT_EQ(U::IntToStr(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(U::DoubleToStr(1.005, 2), "1.00");  // binary 1.005 lies below the half
  EXPECT_EQ(U::DoubleToStr(-2.5, 0), "-2");
  EXPECT_EQ(U::DoubleToStr(3.14159, 3), "3.142");
  EXPECT_EQ(U::DoubleToStr(7, -1), "7");
  EXPECT_EQ(U::DoubleToStr(1e300, 0).size(), 301u);
}

TEST(StringUtilsTest, DateAndTimeFormatting) {
  EXPECT_EQ(U::FormatDate(2026, 1, 5), "05.01.2026");
  EXPECT_EQ(U::FormatTime(7, 5, 9), "07:05:09");
}

TEST(StringUtilsTest, StringNoCaseEqComparesUpperCasedBytes) {
  EXPECT_TRUE(U::StringNoCaseEq("Global", "GLOBAL"));
  EXPECT_TRUE(U::StringNoCaseEq("", ""));
  EXPECT_FALSE(U::StringNoCaseEq("Global", "Globals"));
  EXPECT_FALSE(U::StringNoCaseEq("a_b", "a-b"));
}

TEST(StringUtilsTest, StrToDoubleReadsALeadingNumber) {
  EXPECT_DOUBLE_EQ(U::StrToDouble("12.5"), 12.5);
  EXPECT_DOUBLE_EQ(U::StrToDouble("  -3e2xyz"), -300.0);
  EXPECT_DOUBLE_EQ(U::StrToDouble("abc"), 0.0);
  EXPECT_DOUBLE_EQ(U::StrToDouble("", -1.0), -1.0);
  EXPECT_DOUBLE_EQ(U::StrToDouble("x", 7.0), 7.0);
}

TEST(StringUtilsTest, ConvertScaledInt64ToStrPlacesThePoint) {
  EXPECT_EQ(U::ConvertScaledInt64ToStr(12345, 2), "123.45");
  EXPECT_EQ(U::ConvertScaledInt64ToStr(-5, 3), "-0.005");
  EXPECT_EQ(U::ConvertScaledInt64ToStr(1200, 2), "12.00");
  EXPECT_EQ(U::ConvertScaledInt64ToStr(0, 2), "0.00");
  EXPECT_EQ(U::ConvertScaledInt64ToStr(7, 0), "7");
  EXPECT_EQ(U::ConvertScaledInt64ToStr(7, -2), "7");
  EXPECT_EQ(U::ConvertScaledInt64ToStr(std::numeric_limits<std::int64_t>::min(), 4), "-922337203685477.5808");
}

TEST(StringUtilsTest, Base64EncodeOfTheStandardVectors) {
  EXPECT_EQ(U::Base64Encode(""), "");
  EXPECT_EQ(U::Base64Encode("f"), "Zg==");
  EXPECT_EQ(U::Base64Encode("fo"), "Zm8=");
  EXPECT_EQ(U::Base64Encode("foo"), "Zm9v");
  EXPECT_EQ(U::Base64Encode("foob"), "Zm9vYg==");
  EXPECT_EQ(U::Base64Encode("fooba"), "Zm9vYmE=");
  EXPECT_EQ(U::Base64Encode("foobar"), "Zm9vYmFy");
  EXPECT_EQ(U::Base64Encode(std::string("\xFF\xFE\x00", 3)), "//4A");
}

TEST(StringUtilsTest, Base64DecodeOfTheStandardVectors) {
  std::string out;
  EXPECT_TRUE(U::Base64Decode("Zm9vYmE=", out));
  EXPECT_EQ(out, "fooba");
  EXPECT_TRUE(U::Base64Decode("Zm9vYg==", out));
  EXPECT_EQ(out, "foob");
  EXPECT_TRUE(U::Base64Decode("//4A", out));
  EXPECT_EQ(out, std::string("\xFF\xFE\x00", 3));
  EXPECT_TRUE(U::Base64Decode("", out));
  EXPECT_EQ(out, "");
}

TEST(StringUtilsTest, Base64DecodeRefusesBadText) {
  std::string out = "previous";
  EXPECT_FALSE(U::Base64Decode("Zm9", out));       // length
  EXPECT_EQ(out, "");
  EXPECT_FALSE(U::Base64Decode("Zm9v!A==", out));  // byte outside the alphabet
  EXPECT_FALSE(U::Base64Decode("Zg==Zm9v", out));  // padding before the end
  EXPECT_FALSE(U::Base64Decode("Z===", out));      // too much padding
  EXPECT_FALSE(U::Base64Decode("Zm 9", out));      // white space
}

}  // namespace
