#include "settings/NamePattern.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using DL::NamePattern;

// Every expression of the ordering rules, and the helpers of the section order.
std::vector<std::string> RuleExpressions() {
  std::vector<std::string> all = {"u\\d{1,}", "PreTrade_\\d{1,}",
                                  "cl.{1,12}_Margin_LimitKind_\\d+|cl.+_Margin_Template_LimitKind_\\d+"};
#define ZDL_NORM_PARAM(list, kind, text) \
  if (std::string(#kind) != "Prefix") all.push_back(text);
#define ZDL_NORM_SECTION(pattern, list) all.push_back(pattern);
#include "settings/SettingsNormalizerRules.def"
  return all;
}

// Names near the rules: the literal names, their neighbours, and names of
// each family.
std::vector<std::string> SampleNames() {
  std::vector<std::string> names = {
      "", "u", "u1", "u-1", "u12x", "U12", "PreTrade_", "PreTrade_7", "PreTrade_7a", "clA", "cl", "clABCDEFGHIJKL",
      "clABCDEFGHIJK", "clA_Margin", "clA_Margin_LimitKind_3", "clT_Margin_Template", "clT_Margin_Template_",
      "clT_Margin_Template_LimitKind_12", "clLongTemplateName_Margin_Template_LimitKind_1", "clA_CommissionScale",
      "clT_Client_Template", "clT_CommissionScale_Template", "clT_Restriction_Template", "cl<General>_Margin",
      "clAB*_Margin", "bd_CommissionScale", "bdX_CommissionScale", "tpA_bdB_CommissionScale",
      "CommissionScaleBoards_", "CommissionScaleBoards_TQBR", "OrderPriceFor_ABC", "OrderPriceFor_1234567890123",
      "BaseAssets_Template_", "BaseAssets_Template_X", "PortfolioRiskConfig_1", "ChangeFutClientCodes_ABC",
      ".5", "1.5", "10", ".", "1.", "5.5.5", "SECURITY_X", "SECURITY_X_ASSET", "X_DISC", "_DISC", "_TAG", "A_TAG",
      "X_CORRELATION", "RepoBroker", "RepoBroker$", "RepoBroker_", "RepoBrokerX", "TS", "TSX", "Clients|MAIN",
      "AddCommonTrdAcc_", "AddCommonTrdAcc_1", "clA\n_Margin", "cl\r",
  };
  const size_t base = names.size();
  std::vector<std::string> literals;
#define ZDL_NORM_PARAM(list, kind, text) literals.push_back(text);
#define ZDL_NORM_SECTION(pattern, list) literals.push_back(pattern);
#include "settings/SettingsNormalizerRules.def"
  for (const std::string& text : literals) {
    size_t start = 0;
    for (size_t bar = 0; bar <= text.size(); ++bar) {
      if (bar == text.size() || text[bar] == '|') {
        const std::string part = text.substr(start, bar - start);
        names.push_back(part);
        names.push_back(part + "x");
        names.push_back("x" + part);
        if (!part.empty()) names.push_back(part.substr(0, part.size() - 1));
        start = bar + 1;
      }
    }
  }
  EXPECT_GT(names.size(), base);
  return names;
}

TEST(NamePatternTest, AnswersAsTheRegularExpressionDoes) {
  const std::vector<std::string> names = SampleNames();
  for (const std::string& text : RuleExpressions()) {
    const NamePattern pattern = NamePattern::WholeName(text);
    const std::regex reference(text, std::regex::ECMAScript);
    for (const std::string& name : names) {
      EXPECT_EQ(pattern.Matches(name), std::regex_match(name, reference)) << "pattern " << text << " name " << name;
    }
  }
}

TEST(NamePatternTest, EveryRuleExpressionIsAnsweredWithoutTheEngine) {
  for (const std::string& text : RuleExpressions()) EXPECT_TRUE(NamePattern::WholeName(text).IsSimple()) << text;
  EXPECT_FALSE(NamePattern::WholeName("a.(bc)?d").IsSimple());
}

TEST(NamePatternTest, ChoiceOfPlainNamesIsRecognised) {
  EXPECT_EQ(NamePattern::WholeName("Clients|MAIN|UseTotalBalance").LiteralNames(),
            (std::vector<std::string>{"Clients", "MAIN", "UseTotalBalance"}));
  EXPECT_EQ(NamePattern::WholeName("RepoBroker$|TS").LiteralNames(), (std::vector<std::string>{"RepoBroker", "TS"}));
  EXPECT_EQ(NamePattern::WholeName("u-1").LiteralNames(), std::vector<std::string>{"u-1"});
  EXPECT_TRUE(NamePattern::WholeName("u\\d{1,}").LiteralNames().empty());
  EXPECT_TRUE(NamePattern::WholeName("A|.+_TAG").LiteralNames().empty());
}

TEST(NamePatternTest, ExpressionMatchesTheWholeName) {
  const NamePattern p = NamePattern::WholeName(".+_TAG");
  EXPECT_TRUE(p.Matches("X_TAG"));
  EXPECT_FALSE(p.Matches("X_TAGS"));
  EXPECT_FALSE(p.Matches("_TAG"));
  EXPECT_FALSE(NamePattern::WholeName("General").Matches("GeneralX"));
}

TEST(NamePatternTest, QuantifiedAndEscapedBytesAreNoFixedBytes) {
  // The byte before a quantifier may be missing or repeated, and a byte
  // behind a backslash is an escape, not itself.
  EXPECT_TRUE(NamePattern::WholeName("ab*c").Matches("ac"));
  EXPECT_TRUE(NamePattern::WholeName("ab?").Matches("a"));
  EXPECT_TRUE(NamePattern::WholeName("ab{2}").Matches("abb"));
  EXPECT_TRUE(NamePattern::WholeName("ab+").Matches("abbb"));
  EXPECT_TRUE(NamePattern::WholeName("x\\d").Matches("x5"));
  EXPECT_FALSE(NamePattern::WholeName("x\\d").Matches("xd"));
  EXPECT_TRUE(NamePattern::WholeName("(a|b)c").Matches("bc"));
  EXPECT_TRUE(NamePattern::WholeName("[|]x|y").Matches("|x"));
  EXPECT_TRUE(NamePattern::WholeName("a\\x41").Matches("aA"));
  EXPECT_TRUE(NamePattern::WholeName("\\x41b.c").Matches("AbXc"));
}

TEST(NamePatternTest, LiteralRunInsideTheExpressionIsRequired) {
  const NamePattern p = NamePattern::WholeName("cl.{1,12}_Margin_LimitKind_\\d+");
  EXPECT_TRUE(p.Matches("clA_Margin_LimitKind_1"));
  EXPECT_FALSE(p.Matches("clA_Margin_LimitKin_1"));
  // A run inside a group is not required: here it sits in a negative look-ahead.
  EXPECT_TRUE(NamePattern::WholeName("cl(?!.+_Margin)(.{1,12})").Matches("clABC"));
  EXPECT_TRUE(NamePattern::WholeName("a.(bc)?d").Matches("axd"));
  // A quantified last byte of a run may be missing.
  EXPECT_TRUE(NamePattern::WholeName("a.bcd*.e").Matches("axbcxe"));
}

TEST(NamePatternTest, OverlongNameMatchesNoExpression) {
  const size_t limit = NamePattern::kMaxExpressionInput;
  const NamePattern tag = NamePattern::WholeName(".+_TAG");
  EXPECT_TRUE(tag.Matches(std::string(limit - 4, 'x') + "_TAG"));
  EXPECT_FALSE(tag.Matches(std::string(limit - 3, 'x') + "_TAG"));
  // Far beyond the limit nothing runs out of stack.
  EXPECT_FALSE(NamePattern::WholeName("cl(?!.+_Margin)(.{1,12})").Matches("cl" + std::string(200000, 'x')));
  // Literal choices and prefixes have no limit.
  const std::string longName(100000, 'n');
  EXPECT_TRUE(NamePattern::WholeName("A|" + longName).Matches(longName));
  EXPECT_TRUE(NamePattern::Prefix("nn").Matches(longName));
}

TEST(NamePatternTest, PrefixTestsTheBeginning) {
  const NamePattern p = NamePattern::Prefix("RepoBroker_");
  EXPECT_TRUE(p.Matches("RepoBroker_"));
  EXPECT_TRUE(p.Matches("RepoBroker_X"));
  EXPECT_FALSE(p.Matches("RepoBroker"));
  EXPECT_TRUE(p.LiteralNames().empty());
}

TEST(NamePatternTest, DefaultMatchesNothing) {
  const NamePattern p;
  EXPECT_FALSE(p.Matches(""));
  EXPECT_FALSE(p.Matches("General"));
}

TEST(NamePatternTest, InvalidExpressionThrows) {
  EXPECT_THROW(NamePattern::WholeName("a(b"), std::regex_error);
  EXPECT_THROW(NamePattern::WholeName("[z-a]"), std::regex_error);
}

}  // namespace
