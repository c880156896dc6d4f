#include "settings/SettingsNormalizer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace {

using DL::SettingsNormalizer;
using DL::SettingsSectionList;

class SettingsNormalizerTest : public ::testing::Test {
 protected:
  // Reads, sorts and writes a text with a fresh normalizer.
  static std::string Normalized(std::string_view text) {
    SettingsNormalizer n;
    n.ReadFrom(text);
    n.Normalize();
    std::string out;
    n.WriteTo(out);
    return out;
  }

  static SettingsSectionList Read(std::string_view text) {
    SettingsSectionList list;
    SettingsNormalizer::ParseSettingsList(text, ';', &list);
    return list;
  }

  // Every (section, key, value) of a list, sorted, to compare contents
  // regardless of order.
  static std::vector<std::tuple<std::string, std::string, std::string>> Contents(const SettingsSectionList& list) {
    std::vector<std::tuple<std::string, std::string, std::string>> all;
    for (const auto& [name, parameters] : list) {
      for (const auto& [key, value] : parameters) all.emplace_back(name, key, value);
    }
    std::sort(all.begin(), all.end());
    return all;
  }

  static std::vector<std::string> SectionNames(std::string_view text) {
    std::vector<std::string> names;
    for (const auto& section : Read(text)) names.emplace_back(section.first);
    return names;
  }
};

// ----------------------------------------------------------------- the table

TEST(SettingsNormalizerRulesTest, TableHoldsEveryRow) {
  std::map<std::string, int> parameterRows;
  int sectionRows = 0;
#define ZDL_NORM_PARAM(list, kind, text) ++parameterRows[#list];
#define ZDL_NORM_SECTION(pattern, list) ++sectionRows;
#include "settings/SettingsNormalizerRules.def"
  EXPECT_EQ(sectionRows, 139);
  EXPECT_EQ(parameterRows, (std::map<std::string, int>{{"Client", 14},
                                                       {"Commission", 6},
                                                       {"GlobalList", 2},
                                                       {"Margin", 45},
                                                       {"Portfolio", 34},
                                                       {"PortfolioTemplate", 1},
                                                       {"Restriction", 7},
                                                       {"RestrictionTemplate", 1},
                                                       {"SecurityList", 3},
                                                       {"SoftRestriction", 2},
                                                       {"User", 11}}));
}

// ------------------------------------------------------------ section order

TEST_F(SettingsNormalizerTest, UserSectionsGoByTheirNumber) {
  EXPECT_EQ(Normalized("[u10]\nA=1\n[u9]\nA=2\n"),
            "[u9]\r\nA=2\r\n\r\n"
            "[u10]\r\nA=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, PreTradeSectionsGoByTheirNumber) {
  EXPECT_EQ(Normalized("[PreTrade_10]\nA=1\n[PreTrade_9]\nA=2\n"),
            "[PreTrade_9]\r\nA=2\r\n\r\n"
            "[PreTrade_10]\r\nA=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, UserFamiliesKeepTheirRuleOrder) {
  // "u-1" has a rule of its own before the numbered users; PreTrade follows them.
  EXPECT_EQ(Normalized("[PreTrade_1]\nA=1\n[u2]\nA=1\n[u-1]\nA=1\n[u1]\nA=1\n"),
            "[u-1]\r\nA=1\r\n\r\n"
            "[u1]\r\nA=1\r\n\r\n"
            "[u2]\r\nA=1\r\n\r\n"
            "[PreTrade_1]\r\nA=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, UserNumbersOfAnyLengthCompareByValue) {
  // Beyond 64 bits, and with leading zeros; equal values fall back to bytes.
  EXPECT_EQ(Normalized("[u99999999999999999999999]\nA=1\n[u10]\nA=1\n[u010]\nA=1\n[u9]\nA=1\n"),
            "[u9]\r\nA=1\r\n\r\n"
            "[u010]\r\nA=1\r\n\r\n"
            "[u10]\r\nA=1\r\n\r\n"
            "[u99999999999999999999999]\r\nA=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, UnknownSectionComesLastWithParametersInByteOrder) {
  EXPECT_EQ(Normalized("[Zeta]\nb=1\nB=2\na=3\n[PreTrade_1]\nx=1\n[Alpha]\nk=1\n[General]\nx=1\n"),
            "[General]\r\nx=1\r\n\r\n"
            "[PreTrade_1]\r\nx=1\r\n\r\n"
            "[Alpha]\r\nk=1\r\n\r\n"
            "[Zeta]\r\nB=2\r\na=3\r\nb=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, SectionRulesAreCaseSensitive) {
  // "general" is not "General": it ranks with the unknown names.
  EXPECT_EQ(Normalized("[general]\na=1\n[Zeta]\na=1\n[General]\na=1\n"),
            "[General]\r\na=1\r\n\r\n"
            "[Zeta]\r\na=1\r\n\r\n"
            "[general]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, FirstMatchingRuleDecidesARepeatedName) {
  // IgnoreTrdAcc stands both among the restriction sections and among the
  // lists; the restriction rule comes first and gives both its rank and its
  // parameter order (BasePeriod before Clients; the list rule would put
  // Clients first).
  EXPECT_EQ(Normalized("[AddCommonSecTrdacc]\nx=1\n"
                       "[MaxOrderQuantity]\nx=1\n"
                       "[IgnoreTrdAcc]\nClients=A\nBasePeriod=5\n"
                       "[GlobalProhibedTrdAcc]\nx=1\n"),
            "[GlobalProhibedTrdAcc]\r\nx=1\r\n\r\n"
            "[IgnoreTrdAcc]\r\nBasePeriod=5\r\nClients=A\r\n\r\n"
            "[MaxOrderQuantity]\r\nx=1\r\n\r\n"
            "[AddCommonSecTrdacc]\r\nx=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, NamesKeepTheirHistoricalSpelling) {
  // The misspelt name is the real one and ranks among the lists; the
  // corrected spelling is unknown.
  EXPECT_EQ(Normalized("[RestrictSecuritiesProportionInCollateral]\na=1\n"
                       "[SecLotBoard]\na=1\n"
                       "[RestrictSecuritiesPropotionInCollateral]\na=1\n"
                       "[ReplaceableInstruments]\na=1\n"),
            "[ReplaceableInstruments]\r\na=1\r\n\r\n"
            "[RestrictSecuritiesPropotionInCollateral]\r\na=1\r\n\r\n"
            "[SecLotBoard]\r\na=1\r\n\r\n"
            "[RestrictSecuritiesProportionInCollateral]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, ClientSectionFamiliesGoInRuleOrder) {
  // A client code of 13 bytes is no personal section: it ranks as unknown.
  EXPECT_EQ(Normalized("[cl1234567890123]\na=1\n"
                       "[clT_Restriction_Template]\na=1\n"
                       "[clT_Margin_Template]\na=1\n"
                       "[clABC_Margin]\na=1\n"
                       "[clT_CommissionScale_Template]\na=1\n"
                       "[clT_Client_Template]\na=1\n"
                       "[clABC_CommissionScale]\na=1\n"
                       "[clABC]\na=1\n"),
            "[clABC]\r\na=1\r\n\r\n"
            "[clABC_CommissionScale]\r\na=1\r\n\r\n"
            "[clT_Client_Template]\r\na=1\r\n\r\n"
            "[clT_CommissionScale_Template]\r\na=1\r\n\r\n"
            "[clABC_Margin]\r\na=1\r\n\r\n"
            "[clT_Margin_Template]\r\na=1\r\n\r\n"
            "[clT_Restriction_Template]\r\na=1\r\n\r\n"
            "[cl1234567890123]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, MarginSectionsGoByLimitKindThenName) {
  EXPECT_EQ(Normalized("[clB_Margin_LimitKind_1]\na=1\n"
                       "[clA_Margin_LimitKind_1]\na=1\n"
                       "[clB_Margin]\na=1\n"
                       "[clA_Margin_LimitKind_10]\na=1\n"
                       "[clA_Margin_LimitKind_2]\na=1\n"
                       "[clT_Margin_Template_LimitKind_1]\na=1\n"
                       "[clA_Margin]\na=1\n"
                       "[clT_Margin_Template]\na=1\n"),
            "[clA_Margin]\r\na=1\r\n\r\n"
            "[clB_Margin]\r\na=1\r\n\r\n"
            "[clT_Margin_Template]\r\na=1\r\n\r\n"
            "[clA_Margin_LimitKind_1]\r\na=1\r\n\r\n"
            "[clB_Margin_LimitKind_1]\r\na=1\r\n\r\n"
            "[clT_Margin_Template_LimitKind_1]\r\na=1\r\n\r\n"
            "[clA_Margin_LimitKind_2]\r\na=1\r\n\r\n"
            "[clA_Margin_LimitKind_10]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, BaseMarginKindIgnoresCase) {
  // "clA_Margin_X_MARGIN" is a margin section ending in "_MARGIN": kind 0,
  // so it precedes the kind-1 section although its bytes sort after it.
  EXPECT_EQ(Normalized("[clB_Margin]\na=1\n[clA_Margin_X_MARGIN]\na=1\n[clA_Margin_LimitKind_1]\na=1\n"),
            "[clA_Margin_X_MARGIN]\r\na=1\r\n\r\n"
            "[clB_Margin]\r\na=1\r\n\r\n"
            "[clA_Margin_LimitKind_1]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, MarginSectionWithoutLimitKindCountsAsKindZero) {
  EXPECT_EQ(Normalized("[clZ_Margin]\na=1\n[clA_Margin_LimitKind_1]\na=1\n[clM_Margin_Other]\na=1\n"),
            "[clM_Margin_Other]\r\na=1\r\n\r\n"
            "[clZ_Margin]\r\na=1\r\n\r\n"
            "[clA_Margin_LimitKind_1]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, RepeatedSectionsStayApartInFileOrder) {
  EXPECT_EQ(Normalized("[Zed]\nb=1\n[General]\nx=1\n[Zed]\na=2\n"),
            "[General]\r\nx=1\r\n\r\n"
            "[Zed]\r\nb=1\r\n\r\n"
            "[Zed]\r\na=2\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, OverlongNamesRankAsUnknown) {
  // Matched by no expression rule beyond the length limit, a 100 KB client
  // section and its keys still come through whole, after the known names.
  const std::string code(100000, 'x');
  const std::string key(100000, '7');
  EXPECT_EQ(Normalized("[cl" + code + "_Margin]\nUsePgo=1\n" + key + "_DISC=2\n[u1]\na=1\n"),
            "[u1]\r\na=1\r\n\r\n"
            "[cl" + code + "_Margin]\r\n" + key + "_DISC=2\r\nUsePgo=1\r\n\r\n");
}

// ---------------------------------------------------------- parameter order

TEST_F(SettingsNormalizerTest, NumericKeysInCommissionGoByValue) {
  EXPECT_EQ(Normalized("[Commission]\n10=a\n5=b\n"), "[Commission]\r\n5=b\r\n10=a\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, FractionalKeyRanksByItsWholePart) {
  // 1.5 and 1.10 read as 1, so they come with 1, before 2, and among
  // themselves by bytes.
  EXPECT_EQ(Normalized("[Commission]\n2=a\n1.5=b\n10=c\n1=d\n1.10=e\n"),
            "[Commission]\r\n1=d\r\n1.10=e\r\n1.5=b\r\n2=a\r\n10=c\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, KeyThatDoesNotReadAsNumberFallsToTheNextRule) {
  // ".5" has no leading digit and the long key overflows 64 bits: the number
  // rule (the last of the list) refuses both, so they are unranked.
  EXPECT_EQ(Normalized("[Commission]\n.5=a\n99999999999999999999=b\n7=c\nVAT=d\n"),
            "[Commission]\r\nVAT=d\r\n7=c\r\n.5=a\r\n99999999999999999999=b\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, CommissionPrefixAndExactRules) {
  // "RepoBroker_" is a prefix rule ahead of the choice holding "RepoBroker$";
  // "RepoBrokerX" fits neither.
  EXPECT_EQ(Normalized("[CommissionScale]\nRepoBrokerX=1\nTS=2\nRepoBroker=3\nRepoBroker_B=4\nBroker=5\n"),
            "[CommissionScale]\r\nBroker=5\r\nRepoBroker_B=4\r\nRepoBroker=3\r\nTS=2\r\nRepoBrokerX=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, MarginKeysGoByTheMarginList) {
  EXPECT_EQ(Normalized("[clA_Margin]\nX_COEF=1\nSECURITY_SBER_ASSET=2\nUsePgo=3\nAB_DISC=4\nZZZ=5\n"
                       "IncludeClientsWithLeverage=6\nCalcNegDeal=7\nY_TAG=8\n"),
            "[clA_Margin]\r\nIncludeClientsWithLeverage=6\r\nAB_DISC=4\r\nCalcNegDeal=7\r\nUsePgo=3\r\n"
            "SECURITY_SBER_ASSET=2\r\nY_TAG=8\r\nX_COEF=1\r\nZZZ=5\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, PortfolioTemplateTakesClientsFirst) {
  EXPECT_EQ(Normalized("[PortfolioRiskConfig_T1]\nVolatility=1\nClients=A\nAddBaseAssets=B\n"
                       "[PortfolioRiskConfig]\nVolatility=1\nClients=A\nAddBaseAssets=B\n"),
            "[PortfolioRiskConfig]\r\nAddBaseAssets=B\r\nVolatility=1\r\nClients=A\r\n\r\n"
            "[PortfolioRiskConfig_T1]\r\nClients=A\r\nAddBaseAssets=B\r\nVolatility=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, RepeatedKeysStayInFileOrder) {
  EXPECT_EQ(Normalized("[Zed]\nb=1\na=2\nb=3\nK=4\nk=5\n"), "[Zed]\r\nK=4\r\na=2\r\nb=1\r\nb=3\r\nk=5\r\n\r\n");
}

// ----------------------------------------------------- whole texts, by bytes

TEST_F(SettingsNormalizerTest, ScrambledTextGetsItsCanonicalForm) {
  const std::string scrambled =
      "; settings of a firm\n"
      "[cl12345_Margin_LimitKind_2]\n"
      "UsePgo=1\n"
      "Clients=A\n"
      "[PreTrade_3]\n"
      "Commission=1\n"
      "[clABC]\n"
      "Currency_MAIN = SUR\n"
      "Clients=x\n"
      "5=0.1 ; rate\n"
      "AllowedPartners=P1\n"
      "[General]\r\n"
      "Z=1\r\n"
      "A=2\r\n"
      "[SecurityRestricted]\n"
      "Clients=C1\n"
      "BasePeriod=5\n"
      "[cl12345_Margin]\n"
      "SECURITY_SBER_ASSET=1\n"
      "LimitKinds=0,1,2\n"
      "AB_DISC=3\n"
      "Clients=A\n"
      "[CommissionScale]\n"
      "100=2\n"
      "RepoBroker_X=1\n"
      "Broker=0.5\n"
      "[u7]\n"
      "LimitPrefix=ab\n"
      "Commission=2\n"
      "[BaseAssets]\n"
      "Volatility=3\n"
      "AddBaseAssets=Si\n"
      "[Unknown]\n"
      "z=1";
  const std::string canonical =
      "[General]\r\nA=2\r\nZ=1\r\n\r\n"
      "[CommissionScale]\r\nBroker=0.5\r\nRepoBroker_X=1\r\n100=2\r\n\r\n"
      "[SecurityRestricted]\r\nBasePeriod=5\r\nClients=C1\r\n\r\n"
      "[clABC]\r\nClients=x\r\nAllowedPartners=P1\r\nCurrency_MAIN=SUR\r\n5=0.1\r\n\r\n"
      "[cl12345_Margin]\r\nClients=A\r\nAB_DISC=3\r\nLimitKinds=0,1,2\r\nSECURITY_SBER_ASSET=1\r\n\r\n"
      "[cl12345_Margin_LimitKind_2]\r\nClients=A\r\nUsePgo=1\r\n\r\n"
      "[BaseAssets]\r\nAddBaseAssets=Si\r\nVolatility=3\r\n\r\n"
      "[u7]\r\nCommission=2\r\nLimitPrefix=ab\r\n\r\n"
      "[PreTrade_3]\r\nCommission=1\r\n\r\n"
      "[Unknown]\r\nz=1\r\n\r\n";
  EXPECT_EQ(Normalized(scrambled), canonical);
}

TEST_F(SettingsNormalizerTest, SectionFamiliesFollowTheRuleTable) {
  // One section of each group, given in reverse.
  const std::string text =
      "[u1]\na=1\n[ClientCval]\na=1\n[PortfolioRiskConfig_X]\na=1\n[BaseAssets]\na=1\n"
      "[clT_Restriction_Template]\na=1\n[clA_Margin]\na=1\n[clA]\na=1\n[SecurityWeight]\na=1\n"
      "[TxClientCodes]\na=1\n[Soft_PriceLimit]\na=1\n[AllowedSecurity]\na=1\n"
      "[tpX_bdY_CommissionScale]\na=1\n[CommissionScaleBoards_TQBR]\na=1\n[CommissionCurrency]\na=1\n[General]\na=1\n";
  EXPECT_EQ(Normalized(text),
            "[General]\r\na=1\r\n\r\n"
            "[CommissionCurrency]\r\na=1\r\n\r\n"
            "[CommissionScaleBoards_TQBR]\r\na=1\r\n\r\n"
            "[tpX_bdY_CommissionScale]\r\na=1\r\n\r\n"
            "[AllowedSecurity]\r\na=1\r\n\r\n"
            "[Soft_PriceLimit]\r\na=1\r\n\r\n"
            "[TxClientCodes]\r\na=1\r\n\r\n"
            "[SecurityWeight]\r\na=1\r\n\r\n"
            "[clA]\r\na=1\r\n\r\n"
            "[clA_Margin]\r\na=1\r\n\r\n"
            "[clT_Restriction_Template]\r\na=1\r\n\r\n"
            "[BaseAssets]\r\na=1\r\n\r\n"
            "[PortfolioRiskConfig_X]\r\na=1\r\n\r\n"
            "[ClientCval]\r\na=1\r\n\r\n"
            "[u1]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, EmptyTextGivesEmptyOutput) {
  EXPECT_EQ(Normalized(""), "");
  EXPECT_EQ(Normalized("; only a comment\r\n\r\n  \n[HeaderOnly]\n"), "");
}

TEST_F(SettingsNormalizerTest, NormalisingTwiceGivesTheSameText) {
  const std::vector<std::string> texts = {
      "[Zeta]\nb=1\n[General]\nB=2\na=1\n",
      "[u10]\nCommission=1\nLimitPrefix=2\n[u9]\nX=1\n[u-1]\nY=1\n[PreTrade_2]\nZ=1\n",
      "[Commission]\n10=1\n2=2\n1.5=3\n.5=4\nVAT=5\nRepoBroker_A=6\n",
      "[clB_Margin_LimitKind_1]\nUsePgo=1\n[clA_Margin]\nX_TAG=1\nClients=2\n[clA]\nClients=x\n",
      "[Dup]\nb=1\n[Dup]\na=1\nk=1\nK=2\n[General]\nk=1\n",
  };
  for (const std::string& text : texts) {
    const std::string once = Normalized(text);
    EXPECT_EQ(Normalized(once), once) << text;
  }
}

TEST_F(SettingsNormalizerTest, CanonicalTextPassesUnchanged) {
  const std::string canonical =
      "[General]\r\nA=1\r\n\r\n"
      "[Commission]\r\nBroker=1\r\n5=2\r\n10=3\r\n\r\n"
      "[u2]\r\nCommission=1\r\n\r\n";
  EXPECT_EQ(Normalized(canonical), canonical);
}

TEST_F(SettingsNormalizerTest, NoSectionOrParameterIsLost) {
  std::string text;
  for (int i = 0; i < 50; ++i) {
    const std::string n = std::to_string((i * 37) % 50);
    text += "[u" + n + "]\nCommission=" + n + "\nZ=1\nZ=2\n";
    text += "[cl" + n + "_Margin_LimitKind_" + std::to_string(i % 3) + "]\nUsePgo=1\nClients=" + n + "\n";
    text += "[Commission]\n" + n + "=x\n" + n + ".5=y\n";
    text += "[Other" + std::to_string(i % 7) + "]\nk=" + n + "\n";
  }
  SettingsNormalizer n;
  n.ReadFrom(text);
  const SettingsSectionList before = n.GetSections();
  ASSERT_EQ(n.GetSectionCount(), 200u);
  n.Normalize();
  EXPECT_EQ(n.GetSectionCount(), 200u);
  EXPECT_EQ(Contents(n.GetSections()), Contents(before));

  // The written text reads back to the same contents.
  std::string out;
  n.WriteTo(out);
  EXPECT_EQ(Contents(Read(out)), Contents(before));
}

// ------------------------------------------------------------------ reading

TEST_F(SettingsNormalizerTest, HeaderWithoutKeyLineLeavesNoSection) {
  EXPECT_EQ(SectionNames("[A]\n[B]\nk=1\n"), std::vector<std::string>{"B"});
}

TEST_F(SettingsNormalizerTest, UnclosedHeaderIsSkipped) {
  const SettingsSectionList list = Read("[C]\na=1\n[A\nk=1\n[]\nm=1\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].first, "C");
  EXPECT_EQ(list[0].second, (DL::SettingsParameterList{{"a", "1"}, {"k", "1"}, {"m", "1"}}));
}

TEST_F(SettingsNormalizerTest, HeaderNameIsTakenBetweenTheBrackets) {
  EXPECT_EQ(SectionNames("[A] trailing ; comment\nk=1\n[ B ]\nk=1\n[C]x]\nk=1\n"),
            (std::vector<std::string>{"A", " B ", "C"}));
}

TEST_F(SettingsNormalizerTest, KeyLinesFollowTheSettingsDialect) {
  const SettingsSectionList list = Read("[S]\nk=1;2\n a = 1 \n=1\nk\nempty=\n#h=3\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].second,
            (DL::SettingsParameterList{{"k", "1"}, {"a", "1"}, {"empty", ""}, {"#h", "3"}}));
}

TEST_F(SettingsNormalizerTest, LinesBeforeTheFirstHeaderAreSkipped) {
  const SettingsSectionList list = Read("k=1\n[S]\nm=2\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].second, (DL::SettingsParameterList{{"m", "2"}}));
}

TEST_F(SettingsNormalizerTest, RepeatedHeadersAndKeysAreAllKept) {
  const SettingsSectionList list = Read("[S]\nk=1\nK=2\nk=3\n[s]\nk=4\n");
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0], (DL::SettingsSection{"S", {{"k", "1"}, {"K", "2"}, {"k", "3"}}}));
  EXPECT_EQ(list[1], (DL::SettingsSection{"s", {{"k", "4"}}}));
}

TEST_F(SettingsNormalizerTest, LineEndsDoNotMatter) {
  const SettingsSectionList lf = Read("[S]\na=1\nb=2\n");
  EXPECT_EQ(Read("[S]\r\na=1\r\nb=2\r\n"), lf);
  EXPECT_EQ(Read("[S]\na=1\nb=2"), lf);
}

TEST_F(SettingsNormalizerTest, SeparatorIsTheCommentCharacter) {
  SettingsSectionList list;
  SettingsNormalizer::ParseSettingsList("[S]\na=1#x\nb=2;y\n", '#', &list);
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].second, (DL::SettingsParameterList{{"a", "1"}, {"b", "2;y"}}));
}

TEST_F(SettingsNormalizerTest, StreamAndTextReadAlike) {
  const std::string text = "junk\n[S]\na=1;c\n[T\nb=2\n[U]\n[V]\nc = 3\nd";
  std::istringstream in(text);
  SettingsSectionList fromStream;
  std::string held;
  SettingsNormalizer::ParseSettingsList(in, ';', &fromStream, &held);
  EXPECT_EQ(held, text);
  EXPECT_EQ(fromStream, Read(text));
  EXPECT_EQ(fromStream.size(), 2u);
}

TEST_F(SettingsNormalizerTest, NullListDoesNothing) {
  std::istringstream in("[S]\na=1\n");
  std::string held;
  SettingsNormalizer::ParseSettingsList(in, ';', nullptr, &held);
  EXPECT_EQ(in.tellg(), 0);  // the stream was not read
  SettingsNormalizer::ParseSettingsList(std::string_view("[S]\na=1\n"), ';', nullptr);
}

TEST_F(SettingsNormalizerTest, ReadingAppendsUntilCleared) {
  SettingsNormalizer n;
  n.ReadFrom("[A]\na=1\n");
  n.ReadFrom("b=2\n[B]\nb=2\n");  // a new text starts outside any section
  ASSERT_EQ(n.GetSectionCount(), 2u);
  EXPECT_EQ(n.GetSections()[0], (DL::SettingsSection{"A", {{"a", "1"}}}));
  n.ClearSettings();
  EXPECT_EQ(n.GetSectionCount(), 0u);
  std::string out = "old";
  n.WriteTo(out);
  EXPECT_EQ(out, "");
}

TEST_F(SettingsNormalizerTest, CopyOutlivesTheOriginal) {
  // The sections point into the texts read; a copy shares those texts, so it
  // stays whole when the original is cleared or gone.
  auto original = std::make_unique<SettingsNormalizer>();
  original->ReadFrom(std::string("[Zed]\nb=1\n[General]\nx=1\n"));
  SettingsNormalizer copy = *original;
  original->ClearSettings();
  original.reset();
  copy.Normalize();
  std::string out;
  copy.WriteTo(out);
  EXPECT_EQ(out, "[General]\r\nx=1\r\n\r\n[Zed]\r\nb=1\r\n\r\n");
}

TEST_F(SettingsNormalizerTest, OneObjectNormalisesManyTexts) {
  SettingsNormalizer n;
  for (int round = 0; round < 3; ++round) {
    n.ClearSettings();
    n.ReadFrom("[u10]\na=1\n[u9]\nb=1\n");
    n.Normalize();
    std::string out;
    n.WriteTo(out);
    EXPECT_EQ(out, "[u9]\r\nb=1\r\n\r\n[u10]\r\na=1\r\n\r\n");
  }
}

// ------------------------------------------------------------------- files

class SettingsNormalizerFileTest : public SettingsNormalizerTest {
 protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("zdl_normalizer_" + std::to_string(::getpid()) + "_" +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(m_dir);
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }

  static std::string FileBytes(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

  std::filesystem::path m_dir;
};

TEST_F(SettingsNormalizerFileTest, SaveWritesTheCanonicalBytes) {
  SettingsNormalizer n;
  n.ReadFrom("[u10]\na=1\n[General]\nz=1\ny=2\n");
  n.Normalize();
  const auto path = m_dir / "firm.ini";
  ASSERT_TRUE(n.Save(path.string()));
  EXPECT_EQ(FileBytes(path), "[General]\r\ny=2\r\nz=1\r\n\r\n[u10]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerFileTest, SaveReportsATargetThatCannotBeOpened) {
  SettingsNormalizer n;
  n.ReadFrom("[General]\na=1\n");
  EXPECT_FALSE(n.Save((m_dir / "missing" / "firm.ini").string()));
  EXPECT_FALSE(n.Save(m_dir.string()));  // a directory
}

TEST_F(SettingsNormalizerFileTest, LoadReadsAFile) {
  const auto path = m_dir / "firm.ini";
  std::ofstream(path, std::ios::binary) << "[u10]\r\na=1\r\n[u9]\r\nb=2";
  SettingsNormalizer n;
  ASSERT_TRUE(n.Load(path.string()));
  n.Normalize();
  std::string out;
  n.WriteTo(out);
  EXPECT_EQ(out, "[u9]\r\nb=2\r\n\r\n[u10]\r\na=1\r\n\r\n");
}

TEST_F(SettingsNormalizerFileTest, LoadReportsAMissingFile) {
  SettingsNormalizer n;
  EXPECT_FALSE(n.Load((m_dir / "absent.ini").string()));
  EXPECT_EQ(n.GetSectionCount(), 0u);
}

}  // namespace

namespace {

TEST(SettingsListReaderTest, TrimsTheBytesIsspaceCounts) {
  for (int b = 1; b < 256; ++b) {
    const char c = static_cast<char>(b);
    if (c == '\n' || c == ';' || c == '=' || c == '[') continue;
    const std::string text = std::string("[S]\n") + c + "k" + c + "=v\n";
    DL::SettingsSectionList list;
    DL::SettingsNormalizer::ParseSettingsList(text, ';', &list);
    ASSERT_EQ(list.size(), 1u) << b;
    const bool space = std::isspace(static_cast<unsigned char>(c)) != 0;
    const std::string expected = space ? std::string("k") : std::string({c, 'k', c});
    EXPECT_EQ(list[0].second[0].first, expected) << b;
  }
}

}  // namespace
