#include "api/CommandReference.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Rewrite docs/api.md with the target zdl_api_doc when this fails.
TEST(CommandReferenceTest, CommittedReferenceMatchesTheTable) {
  std::string committed = ReadFile(ZDL_SOURCE_DIR "/docs/api.md");
  ASSERT_FALSE(committed.empty()) << "docs/api.md is missing";
  EXPECT_TRUE(committed == DL::CommandReferenceMarkdown()) << "docs/api.md is out of date";
}

TEST(CommandReferenceTest, StartsWithTheTotals) {
  std::string text = DL::CommandReferenceMarkdown();
  const std::string head =
      "# Remote commands\n"
      "\n"
      "Printed from `src/api/Commands.def` by `tools/commands`; do not edit by hand.\n"
      "\n"
      "There are 994 commands: 403 Get, 334 Set, 165 Remove, 87 Add, 5 Move. 318 are served by generic adapters, "
      "676 by handlers with a record of their own; 218 handlers refuse a \"firmCode\" other than the firm the caller "
      "holds (firm check).\n";
  EXPECT_EQ(text.substr(0, head.size()), head);
}

TEST(CommandReferenceTest, OneLinePerCommand) {
  std::string text = DL::CommandReferenceMarkdown();
  EXPECT_NE(text.find("| `GetUsePGOFromGlobal` | Get | adapter `SendOneString_GetBool` | `ZDL_GetUsePGOFromGlobal` "
                      "| no |\n"),
            std::string::npos);
  EXPECT_NE(text.find("| `MoveClientBetweenClientTemplates` | Move | own record `TDL_MoveClientBetweenClientTemplates` "
                      "| `ZDL_MoveClientBetweenClientTemplates` | yes |\n"),
            std::string::npos);
  EXPECT_NE(text.find("| `GetQualifiedInvestorsFromRestrictionTemplate` | Get | adapter `SendTwoStrings_GetInt` "
                      "| `ZDL_GetQualifiedInvestorsSignFromRestrictionTemplate` | no |\n"),
            std::string::npos);
}

TEST(CommandReferenceTest, OneSectionPerScopeWithItsCount) {
  std::string text = DL::CommandReferenceMarkdown();
  const char* headings[] = {"\n## Global (417)\n",         "\n## ClientSettings (181)\n",
                            "\n## ClientTemplate (118)\n", "\n## MarginTemplate (126)\n",
                            "\n## RestrictionTemplate (89)\n", "\n## BaseAssetsTemplate (11)\n",
                            "\n## PortfolioRiskConfigTemplate (20)\n", "\n## UserSettings (13)\n",
                            "\n## No scope word (19)\n", "\n## Adapter shapes\n"};
  std::size_t at = 0;
  for (const char* heading : headings) {
    std::size_t pos = text.find(heading, at);
    ASSERT_NE(pos, std::string::npos) << heading;
    at = pos + 1;
  }
}

TEST(CommandReferenceTest, ListsEveryAdapterWithItsCount) {
  std::string text = DL::CommandReferenceMarkdown();
  EXPECT_NE(text.find("| `SendTwoStrings_GetArrayStrings` | read | 34 |\n"), std::string::npos);
  EXPECT_NE(text.find("| `SendOneStringAndBool` | send | 29 |\n"), std::string::npos);
  EXPECT_EQ(text.find("| `OwnRecord` |"), std::string::npos);
}

}  // namespace
