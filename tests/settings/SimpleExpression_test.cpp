#include "settings/SimpleExpression.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <regex>
#include <string>
#include <vector>

namespace {

using DL::SimpleExpression;

bool Simple(const std::string& text, const std::string& name) {
  const auto e = SimpleExpression::Compile(text);
  EXPECT_TRUE(e.has_value()) << text;
  return e && e->Matches(name);
}

bool Reference(const std::string& text, const std::string& name) {
  return std::regex_match(name, std::regex(text, std::regex::ECMAScript));
}

// Expressions of the ordering rules and forms near them.
const std::vector<std::string>& Expressions() {
  static const std::vector<std::string> all = {
      "u\\d{1,}", "PreTrade_\\d{1,}", "cl.{1,12}_Margin_LimitKind_\\d+|cl.+_Margin_Template_LimitKind_\\d+",
      "[0-9]*\\.?[0-9]+", ".+_DISC", "cl(?!.+_Margin)(.{1,12})", "cl.{1,12}_CommissionScale", "cl.+_Client_Template",
      "cl.{1,12}_Margin[_]*.*", "cl.+_Margin_Template[_].*", "tp.+_bd.+_CommissionScale", "OrderPriceFor_.{1,12}",
      "BaseAssets_Template_.{1,}",
      "AddCommonTrdAcc_.+|ClassToLimitKind_.+|SecToBoard_.+|SECURITY_.+|SECURITY_.+_ASSET|SECURITY_.+_RESTSHORT",
      "a(?=b).", "(a)(b.)c", "x{2,3}y{0}z?", "a|", "[a-c_]+9", "\\$\\.x", "cl(?!_)..?", "(?!a)(?!b)."};
  return all;
}

TEST(SimpleExpressionTest, SingleByteAtomsTakeTheBytesTheEngineTakes) {
  for (const std::string text : {".", "\\d", "[_]", "[0-9]", "\\.", "[a-c_]", "x", "\\-"}) {
    for (int b = 0; b < 256; ++b) {
      const std::string name(1, static_cast<char>(b));
      EXPECT_EQ(Simple(text, name), Reference(text, name)) << text << " byte " << b;
    }
  }
}

TEST(SimpleExpressionTest, DotTakesAllButTheLineEnds) {
  const std::bitset<256> any = SimpleExpression::AnyByte();
  EXPECT_FALSE(any.test('\n'));
  EXPECT_FALSE(any.test('\r'));
  EXPECT_TRUE(any.test(0));
  EXPECT_TRUE(any.test(0xff));
  EXPECT_EQ(any.count(), 254u);
}

TEST(SimpleExpressionTest, AnswersAsTheEngineDoesOnManyNames) {
  // Names that match some expression, names changed from those by a byte or
  // a piece, and names built from the pieces the expressions are made of.
  const std::vector<std::string> matching = {
      "u7", "PreTrade_12", "clA_Margin_LimitKind_1", "clT_Margin_Template_LimitKind_22", "1.5", ".5", "10",
      "X_DISC", "clABC", "clA_CommissionScale", "clT_Client_Template", "clA_Margin", "clA_Margin__x",
      "clT_Margin_Template_", "tpA_bdB_CommissionScale", "OrderPriceFor_X", "BaseAssets_Template_1",
      "SECURITY_X_ASSET", "SecToBoard_1", "ab", "abxc", "xxx", "xxz", "", "b_9", "$.x", "clAB", "c"};
  const std::vector<std::string> pieces = {"cl", "u", "_Margin", "_Template", "_LimitKind_", "_CommissionScale",
                                           "_Client", "tp", "_bd", "_DISC", "SECURITY_", "_ASSET", "PreTrade_",
                                           "OrderPriceFor_", "1", "07", ".", "_", "x", "ABCDEFGHIJ", "\r", "\n",
                                           std::string(1, '\0'), "\xc3\xa9", "a", "b", "c", "9", "$", "z"};
  uint32_t state = 12345;
  auto next = [&](size_t n) {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state % static_cast<uint32_t>(n);
  };
  std::vector<std::string> names = matching;
  for (const std::string& name : matching) {
    for (int i = 0; i < 40; ++i) {
      std::string changed = name;
      const std::string& piece = pieces[next(pieces.size())];
      const size_t at = next(changed.size() + 1);
      switch (next(4)) {
        case 0: changed.insert(at, piece); break;
        case 1: if (at < changed.size()) changed.erase(at, 1); break;
        case 2: if (at < changed.size()) changed[at] = piece[0]; break;
        default: changed += name; break;
      }
      names.push_back(changed);
    }
  }
  for (int i = 0; i < 2000; ++i) {
    std::string name;
    const size_t count = next(7);
    for (size_t k = 0; k < count; ++k) name += pieces[next(pieces.size())];
    names.push_back(name);
  }
  for (const std::string& text : Expressions()) {
    const auto simple = SimpleExpression::Compile(text);
    ASSERT_TRUE(simple.has_value()) << text;
    const std::regex reference(text, std::regex::ECMAScript);
    int matched = 0;
    for (const std::string& name : names) {
      const bool expected = std::regex_match(name, reference);
      matched += expected;
      EXPECT_EQ(simple->Matches(name), expected) << "expression " << text << " name " << name;
    }
    EXPECT_GT(matched, 0) << text;  // the names reach every expression
  }
}

TEST(SimpleExpressionTest, NegativeLookAheadTurnsAwayWhatFollows) {
  EXPECT_TRUE(Simple("cl(?!.+_Margin)(.{1,12})", "clABC"));
  EXPECT_FALSE(Simple("cl(?!.+_Margin)(.{1,12})", "clA_Margin"));
  EXPECT_TRUE(Simple("cl(?!.+_Margin)(.{1,12})", "cl_Margin"));  // ".+" needs a byte before "_Margin"
  EXPECT_FALSE(Simple("cl(?!.+_Margin)(.{1,12})", "cl1234567890123"));
}

TEST(SimpleExpressionTest, BoundedRepeatCountsBytes) {
  EXPECT_TRUE(Simple("a.{1,3}b", "axxxb"));
  EXPECT_FALSE(Simple("a.{1,3}b", "axxxxb"));
  EXPECT_FALSE(Simple("a.{1,3}b", "ab"));
  EXPECT_TRUE(Simple("a{2}", "aa"));
  EXPECT_FALSE(Simple("a{2}", "aaa"));
}

TEST(SimpleExpressionTest, FormsBeyondItsReachAreLeftToTheEngine) {
  for (const char* text : {"^a", "a$", "(ab)?", "(a|b)", "\\w", "a+?", "(a)\\1", "[^a]", "\\x41", "a{3,2}", "a{",
                           "(?:a)", "[\\d]", "a)", "(a", "*a", "[]"}) {
    EXPECT_FALSE(SimpleExpression::Compile(text).has_value()) << text;
  }
}

}  // namespace
