#include "api/CommandReference.h"
#include "api/CommandTable.h"

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
  EXPECT_NE(text.find("| `GetUsePGOFromGlobal` | Get | adapter `SendOneString_GetBool` | `TDL_StringAndBool`: "
                      "`firmCode` string; `boolParam1` bool (1 byte) | `ZDL_GetUsePGOFromGlobal` | no | yes |\n"),
            std::string::npos);
  EXPECT_NE(text.find("| `MoveClientBetweenPortfolioRiskConfigTemplates` | Move | own record "
                      "`TDL_MoveClientBetweenPortfolioRiskConfigTemplates` | not declared yet "
                      "| `ZDL_MoveClientBetweenPortfolioRiskConfigTemplates` | yes | no |\n"),
            std::string::npos);
  EXPECT_NE(text.find("| `MoveClientBetweenClientTemplates` | Move | own record `TDL_MoveClientBetweenClientTemplates` "
                      "| `TDL_MoveClientBetweenClientTemplates`: `firmCode` string; `fromTemplateCode` string; "
                      "`toTemplateCode` string; `clientCode` string | `ZDL_MoveClientBetweenClientTemplates` | yes | yes |\n"),
            std::string::npos);
  // A command with a record of its own shows the record its recipe declares.
  EXPECT_NE(text.find("| `GetListOfClientTemplates` | Get | own record `TDL_GetListOfClientTemplates` "
                      "| `TDL_GetListOfClientTemplates`: `firmCode` string; `lsStrings` list of strings "
                      "| `ZDL_GetListOfClientTemplates` | no | yes |\n"),
            std::string::npos);
  EXPECT_NE(text.find("| `GetClientCvalListFromGlobal` | Get | own record `TDL_GetClientCvalListFromGlobal` "
                      "| `TDL_GetClientCvalListFromGlobal`: `firmCode` string; `lsClientCvals` list of TDL_StringsPair "
                      "(`str1` string; `str2` string) | `ZDL_GetClientCvalListFromGlobal` |"),
            std::string::npos);
  EXPECT_NE(text.find("| `GetQualifiedInvestorsFromRestrictionTemplate` | Get | adapter `SendTwoStrings_GetInt` "
                      "| `TDL_TwoStringsAndInt`: `firmCode` string; `strParam` string; `intParam1` int (4 bytes) "
                      "| `ZDL_GetQualifiedInvestorsSignFromRestrictionTemplate` | no | no |\n"),
            std::string::npos);
}

TEST(CommandReferenceTest, CountsRegisteredAndUnregisteredCommands) {
  std::string text = DL::CommandReferenceMarkdown();
  std::size_t registered = 0;
  for (const DL::TCommandRow& row : DL::kCommandTable) registered += row.handler != nullptr ? 1 : 0;
  // At least the two flags of "General" are live; the text counts what the
  // table holds.
  EXPECT_GE(registered, 2u);
  EXPECT_NE(text.find("\n" + std::to_string(registered) + " commands are registered (they answer through `Execute`); " +
                      std::to_string(DL::kCommandTable.size() - registered) + " are not registered yet"),
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
  EXPECT_NE(text.find("| `SendTwoStrings_GetArrayStrings` | read | 34 | `TDL_TwoStringsAndArray`: `firmCode` string; "
                      "`strParam` string; `lsStrings` list of strings |\n"),
            std::string::npos);
  EXPECT_NE(text.find("| `SendOneStringAndBool` | send | 29 | `TDL_StringAndBool`: `firmCode` string; `boolParam1` "
                      "bool (1 byte) |\n"),
            std::string::npos);
  EXPECT_NE(text.find("| `SendStringAndArrayIntForString` | send | "), std::string::npos);
  EXPECT_NE(text.find(" | `TDL_StringAndArrayIntForString`: `firmCode` string; `lsItems` list of "
                      "TDL_IntToArrayString (`intParam` int (4 bytes); `lsStrings` list of strings) |\n"),
            std::string::npos);
  // Every shape is declared: the adapter table names a record in every row.
  std::size_t adapters = text.find("## Adapter shapes");
  ASSERT_NE(adapters, std::string::npos);
  EXPECT_EQ(text.find("not declared yet", adapters), std::string::npos);
  EXPECT_EQ(text.find("| `OwnRecord` |"), std::string::npos);
}

}  // namespace
