// zentdl check: what the module would drop or ignore, at the line it stands on.
#include "tools/cli/SettingsCheck.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <utility>
#include <vector>

#include "CliTestSupport.h"
#include "tools/cli/Subcommands.h"

namespace {

using zentdl::EFindingKind;
using zentdl::TFinding;

// A library with one mistake of each kind; the line numbers are in the comments.
const char* const kBroken =
    "stray=1\n"                          // 1  before the first header
    "[General]\n"                        // 2
    "UsePGO=1\n"                         // 3
    "USEPGO=0\n"                         // 4  repeats line 3
    "CALCVARMARGIN=yes\n"                // 5  a flag that is no number
    "LimitsInLots=1;2\n"                 // 6  ";" cuts the value
    "NoEqualsHere\n"                     // 7  no "="
    "=5\n"                               // 8  "=" first
    "[Broken\n"                          // 9  no "]"
    "Later=1\n"                          // 10 goes on into General, and is unknown there
    "[Empty]\n"                          // 11 no key line follows
    "[clC1] trailing\n"                  // 12 text behind "]"
    "MaxOrderQuantity_TQBR=10\n"         // 13
    "Frobnicate=1\n"                     // 14 unknown in a client section
    "[Mystery]\n"                        // 15 unknown section
    "k=v\n"                              // 16
    "[clA_Client_Template]\n"            // 17
    "Clients=C1,C2\n"                    // 18
    "[clB_Client_Template]\n"            // 19
    "Clients=C2\n"                       // 20 C2 is in A already
    "[general]\n"                        // 21 merges into General
    "CheckClient=1\n";                   // 22

std::vector<std::pair<int, EFindingKind>> LinesAndKinds(const std::vector<TFinding>& findings) {
  std::vector<std::pair<int, EFindingKind>> out;
  for (const TFinding& f : findings) out.emplace_back(f.line, f.kind);
  return out;
}

TEST(SettingsCheckTest, ABrokenLibraryGivesEachFindingAtItsLine) {
  const std::vector<std::pair<int, EFindingKind>> expected = {
      {1, EFindingKind::BeforeHeader},      {4, EFindingKind::RepeatedKey},
      {5, EFindingKind::BadValue},          {6, EFindingKind::CommentCut},
      {7, EFindingKind::MalformedLine},     {8, EFindingKind::MalformedLine},
      {9, EFindingKind::BadHeader},         {10, EFindingKind::UnknownParameter},
      {11, EFindingKind::EmptySection},     {12, EFindingKind::TextAfterHeader},
      {14, EFindingKind::UnknownParameter}, {15, EFindingKind::UnknownSection},
      {20, EFindingKind::ClientInTwoTemplates}, {21, EFindingKind::RepeatedSection},
  };
  EXPECT_EQ(LinesAndKinds(zentdl::CheckSettingsText(kBroken)), expected);
}

TEST(SettingsCheckTest, MessagesNameWhatTheModuleKeeps) {
  const std::vector<TFinding> f = zentdl::CheckSettingsText(kBroken);
  ASSERT_GE(f.size(), 13u);
  EXPECT_EQ(f[1].message, "key USEPGO in [General] repeats line 3: this value \"0\" is ignored, \"1\" stands");
  EXPECT_EQ(f[3].message, "\";\" cuts the line: LimitsInLots reads \"1\", the rest \";2\" is dropped");
  EXPECT_EQ(f[6].message, "header without \"]\": the line is skipped and key lines below it go on into [General]");
  EXPECT_EQ(f[12].message,
            "client C2 is in \"Clients\" of two client templates, [clA_Client_Template] (line 18) and "
            "[clB_Client_Template]: only one of them applies to it");
}

TEST(SettingsCheckTest, TheExampleLibraryOfTheBrokerIsClean) {
  std::string text = ztest::ReadFileBytes(ztest::ExampleLibrary("broker.ini"));
  ASSERT_FALSE(text.empty());
  EXPECT_TRUE(zentdl::CheckSettingsText(text).empty());
}

TEST(SettingsCheckTest, CrLfLineEndsAndAMissingLastLineEndChangeNothing) {
  EXPECT_TRUE(zentdl::CheckSettingsText("[General]\r\nUsePGO=1\r\n\r\n[clC1]\r\nMaxOrderQuantity_TQBR=1").empty());
}

TEST(SettingsCheckTest, AWholeCommentLineIsNoFinding) {
  EXPECT_TRUE(zentdl::CheckSettingsText("; a note\n[General]\n  ; another\nUsePGO=1\n").empty());
}

TEST(SettingsCheckTest, ASecondClientCvalRunIsAnOrdinarySection) {
  const auto f = zentdl::CheckSettingsText("[ClientCval]\nC1=1\n[General]\nUsePGO=1\n[ClientCval]\nC2=1\n");
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(f[0].line, 5);
  EXPECT_EQ(f[0].kind, EFindingKind::LaterClientCval);
}

TEST(SettingsCheckTest, ANegativeLimitKindJoinsNoGroup) {
  const auto f = zentdl::CheckSettingsText("[clC1_Margin_LimitKind_-1]\nUsePgo=1\n");
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(f[0].kind, EFindingKind::InvalidSection);
}

TEST(SettingsCheckTest, AnIntegerParameterOfGeneralMustBeAWholeNumber) {
  const auto f = zentdl::CheckSettingsText("[General]\nUseDiscountsType=1.5\nUseSecurityDiscounts=2\n");
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(f[0].line, 2);
  EXPECT_EQ(f[0].kind, EFindingKind::BadValue);
}

TEST(SettingsCheckTest, ExitCodesAreZeroCleanOneWithFindingsTwoUnreadable) {
  ztest::TTempDir dir;
  const std::string clean = dir.Write("clean.ini", "[General]\nUsePGO=1\n");
  const std::string broken = dir.Write("broken.ini", kBroken);
  std::ostringstream out, err;
  zentdl::TCommonOptions quiet{false, false};
  EXPECT_EQ(zentdl::RunCheck({clean}, quiet, out, err), 0);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(zentdl::RunCheck({clean, broken}, quiet, out, err), 1);
  EXPECT_NE(out.str().find(broken + ":4: repeated-key: key USEPGO"), std::string::npos);
  EXPECT_EQ(zentdl::RunCheck({dir.Path("missing.ini"), clean}, quiet, out, err), 2);
  EXPECT_EQ(err.str(), "zentdl: cannot read " + dir.Path("missing.ini") + ": No such file or directory\n");
}

TEST(SettingsCheckTest, JsonListsEveryFileWithItsFindings) {
  ztest::TTempDir dir;
  const std::string broken = dir.Write("broken.ini", "[General]\nUsePGO=1\nUsePGO=2\n");
  std::ostringstream out, err;
  zentdl::TCommonOptions json{true, false};
  EXPECT_EQ(zentdl::RunCheck({broken, dir.Path("none.ini")}, json, out, err), 2);
  const nlohmann::json report = nlohmann::json::parse(out.str());
  ASSERT_EQ(report.size(), 2u);
  EXPECT_EQ(report[0]["file"], broken);
  EXPECT_EQ(report[0]["findings"].size(), 1u);
  EXPECT_EQ(report[0]["findings"][0]["line"], 3);
  EXPECT_EQ(report[0]["findings"][0]["kind"], "repeated-key");
  EXPECT_EQ(report[1]["readable"], false);
}

}  // namespace

namespace {

// The reader's own edge cases, as check reports them.
std::vector<std::pair<int, EFindingKind>> Check(const char* text) {
  return LinesAndKinds(zentdl::CheckSettingsText(text));
}

TEST(SettingsCheckReaderTest, AHeaderWithoutKeyLinesLeavesNoSection) {
  const std::vector<std::pair<int, EFindingKind>> expected = {{1, EFindingKind::EmptySection}};
  EXPECT_EQ(Check("[General]\n[CommissionCurrency]\nSUR=SUR\n"), expected);
}

TEST(SettingsCheckReaderTest, KeyLinesBehindABrokenHeaderGoOnIntoTheSectionBefore) {
  const auto f = zentdl::CheckSettingsText("[General]\nUsePGO=1\n[ClientLag\nC1=2\n");
  ASSERT_EQ(f.size(), 2u);
  EXPECT_EQ(f[0].line, 3);
  EXPECT_EQ(f[0].kind, EFindingKind::BadHeader);
  EXPECT_EQ(f[1].line, 4);
  EXPECT_EQ(f[1].message, "parameter C1 of [General] is unknown to the catalogue: the module ignores it");
}

TEST(SettingsCheckReaderTest, ACommentBehindAHeaderIsNoFindingButTextIs) {
  EXPECT_TRUE(Check("[General] ; the firm\nUsePGO=1\n").empty());
  const std::vector<std::pair<int, EFindingKind>> expected = {{1, EFindingKind::TextAfterHeader}};
  EXPECT_EQ(Check("[General] trailing ; comment\nUsePGO=1\n"), expected);
}

TEST(SettingsCheckReaderTest, BlanksInsideTheBracketsBelongToTheName) {
  const auto f = zentdl::CheckSettingsText("[ General ]\nUsePGO=1\n");
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(f[0].kind, EFindingKind::UnknownSection);
  EXPECT_EQ(f[0].message,
            "section [ General ] is unknown to the catalogue: the module keeps it as text and uses none of it");
}

TEST(SettingsCheckReaderTest, BlanksAroundTheEqualsSignAndAnEmptyValueAreFine) {
  EXPECT_TRUE(Check("[General]\nUsePGO = 1\nCheckClient=\n").empty());
}

TEST(SettingsCheckReaderTest, RepeatedKeysDifferingInCaseKeepTheFirstValue) {
  const auto f = zentdl::CheckSettingsText("[General]\nk=1\nK=2\n");
  ASSERT_FALSE(f.empty());
  EXPECT_EQ(f.back().line, 3);
  EXPECT_EQ(f.back().message, "key K in [General] repeats line 2: this value \"2\" is ignored, \"1\" stands");
}

TEST(SettingsCheckReaderTest, HashAndDoubleSlashAreNoComments) {
  const auto f = zentdl::CheckSettingsText("[General]\n#UsePGO=1\n");
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(f[0].kind, EFindingKind::UnknownParameter);
}

}  // namespace
