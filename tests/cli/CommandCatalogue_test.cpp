// zentdl commands: the command table with the record fields, and the program's
// own surface (help, version, argument errors).
#include "tools/cli/CommandCatalogue.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>

#include "CliTestSupport.h"
#include "tools/cli/Subcommands.h"

namespace {

TEST(CommandCatalogueTest, EveryCommandOfTheTableAndTheFiveFileVerbs) {
  EXPECT_EQ(zentdl::AllCommands().size(), 994u + 5u);
  const zentdl::TCommandInfo* open = zentdl::FindCommandInfo("DLOpenFile");
  ASSERT_NE(open, nullptr);
  ASSERT_EQ(open->fields.size(), 2u);
  EXPECT_EQ(open->fields[0].name, "firmCode");
  EXPECT_EQ(open->fields[1].name, "nMode");
  EXPECT_EQ(open->fields[1].type, zentdl::EFieldType::Int);
  EXPECT_EQ(zentdl::FindCommandInfo("dlopenfile"), nullptr);
}

TEST(CommandCatalogueTest, AnAdapterCommandCarriesTheFieldsOfItsShapesRecord) {
  const zentdl::TCommandInfo* set = zentdl::FindCommandInfo("SetUsePGOToGlobal");
  ASSERT_NE(set, nullptr);
  EXPECT_TRUE(set->served);
  EXPECT_EQ(set->record, "TDL_StringAndBool");
  ASSERT_EQ(set->fields.size(), 2u);
  EXPECT_EQ(set->fields[0].name, "firmCode");
  EXPECT_EQ(set->fields[1].name, "boolParam1");
  EXPECT_EQ(set->fields[1].type, zentdl::EFieldType::Bool);
}

TEST(CommandCatalogueTest, AnOwnRecordWithoutDeclarationSaysSo) {
  const zentdl::TCommandInfo* c = zentdl::FindCommandInfo("GetItemFromGlobalAllowedPartnersAndSettleCodes");
  ASSERT_NE(c, nullptr);
  EXPECT_FALSE(c->fieldsKnown);
  EXPECT_FALSE(c->served);
  EXPECT_EQ(c->record, "TDL_GetItemFromGlobalAllowedPartnersAndSettleCodes");
}

TEST(CommandCatalogueTest, PatternsAreSubstringsOrShellPatternsIgnoringCase) {
  EXPECT_TRUE(zentdl::CommandNameMatches("GetUsePGOFromGlobal", "usepgo"));
  EXPECT_TRUE(zentdl::CommandNameMatches("GetUsePGOFromGlobal", "get*global"));
  EXPECT_FALSE(zentdl::CommandNameMatches("GetUsePGOFromGlobal", "set*"));
  EXPECT_TRUE(zentdl::CommandNameMatches("GetUsePGOFromGlobal", ""));
}

TEST(CommandCatalogueTest, ListingTheServedCommands) {
  std::ostringstream out;
  EXPECT_EQ(zentdl::RunCommands("UsePGO", true, {false, false}, out), 0);
  EXPECT_EQ(out.str(),
            "GetUsePGOFromGlobal  (Get, Global; adapter SendOneString_GetBool)\n"
            "    firmCode: string\n"
            "    boolParam1: bool\n"
            "SetUsePGOToGlobal  (Set, Global; adapter SendOneStringAndBool)\n"
            "    firmCode: string\n"
            "    boolParam1: bool\n");
  std::ostringstream none;
  EXPECT_EQ(zentdl::RunCommands("NoSuchCommandAtAll", false, {false, false}, none), 1);
}

TEST(CommandCatalogueTest, JsonOfAFileVerb) {
  std::ostringstream out;
  EXPECT_EQ(zentdl::RunCommands("DLCloseFile", false, {true, false}, out), 0);
  const nlohmann::json list = nlohmann::json::parse(out.str());
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0]["name"], "DLCloseFile");
  EXPECT_EQ(list[0]["fields"][0]["name"], "firmCode");
  EXPECT_EQ(list[0]["fields"][0]["type"], "string");
}

TEST(ProgramTest, VersionAndHelpOfEachSubcommand) {
  const ztest::TRun version = ztest::RunZentdl({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.out, "zentdl 1.0.0\n");
  for (const char* sub : {"check", "normalize", "diff", "explain", "commands"}) {
    const ztest::TRun help = ztest::RunZentdl({sub, "--help"});
    EXPECT_EQ(help.exitCode, 0) << sub;
    EXPECT_NE(help.out.find(std::string("zentdl ") + sub), std::string::npos) << help.out;
  }
}

TEST(ProgramTest, ArgumentErrorsAreExitTwoWithAMessage) {
  const ztest::TRun none = ztest::RunZentdl({});
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_FALSE(none.err.empty());
  const ztest::TRun unknown = ztest::RunZentdl({"frobnicate"});
  EXPECT_EQ(unknown.exitCode, 2);
  EXPECT_NE(unknown.err.find("frobnicate"), std::string::npos);
  const ztest::TRun both = ztest::RunZentdl({"normalize", "a.ini", "-o", "b.ini", "--in-place"});
  EXPECT_EQ(both.exitCode, 2);
}

}  // namespace
