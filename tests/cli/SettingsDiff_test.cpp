// zentdl diff: only real changes, section by section and key by key.
#include "tools/cli/SettingsDiff.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>

#include "CliTestSupport.h"
#include "tools/cli/CanonicalText.h"
#include "tools/cli/Subcommands.h"

namespace {

zentdl::TCommonOptions Quiet() { return {false, false}; }

TEST(SettingsDiffTest, ALibraryAndItsCanonicalFormDoNotDiffer) {
  for (const char* name : {"broker.ini", "invest.ini"}) {
    ztest::TTempDir dir;
    const std::string path = ztest::ExampleLibrary(name);
    const std::string canonical =
        dir.Write("canonical.ini", zentdl::CanonicalSettingsText(ztest::ReadFileBytes(path)).text);
    std::ostringstream out, err;
    EXPECT_EQ(zentdl::RunDiff(path, canonical, Quiet(), out, err), 0) << name;
    EXPECT_EQ(out.str(), "") << name;
  }
}

TEST(SettingsDiffTest, OrderCaseOfNamesAndCommentsAreNoChange) {
  EXPECT_TRUE(zentdl::DiffSettingsTexts("[General]\nA=1\nB=2\n[clC1]\nK=1\n",
                                        "; note\n[clc1]\nk=1\n[GENERAL]\nB=2 ; two\nA=1\n")
                  .empty());
}

TEST(SettingsDiffTest, ChangedAddedAndRemovedKeysAndSections) {
  const auto changes = zentdl::DiffSettingsTexts("[General]\nA=1\nB=2\n[Gone]\nX=1\n",
                                                 "[General]\nA=5\nC=3\n[New]\nY=2\n");
  EXPECT_EQ(zentdl::FormatSettingsDiff(changes),
            "[General]\n"
            "-A=1\n"
            "+A=5\n"
            "-B=2\n"
            "+C=3\n"
            "-[Gone]\n"
            "-X=1\n"
            "+[New]\n"
            "+Y=2\n");
}

TEST(SettingsDiffTest, TheProgramSaysWhichFilesAndExitsOneOnADifference) {
  ztest::TTempDir dir;
  const std::string a = dir.Write("a.ini", "[General]\nUsePGO=0\n");
  const std::string b = dir.Write("b.ini", "[General]\nUsePGO=1\n");
  const ztest::TRun run = ztest::RunZentdl({"diff", a, b});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, "--- " + a + "\n+++ " + b + "\n[General]\n-UsePGO=0\n+UsePGO=1\n");
}

TEST(SettingsDiffTest, AMissingFileIsExitTwo) {
  ztest::TTempDir dir;
  const std::string a = dir.Write("a.ini", "[General]\nUsePGO=0\n");
  std::ostringstream out, err;
  EXPECT_EQ(zentdl::RunDiff(a, dir.Path("b.ini"), Quiet(), out, err), 2);
  EXPECT_EQ(err.str(), "zentdl: cannot read " + dir.Path("b.ini") + ": No such file or directory\n");
}

}  // namespace

namespace {

TEST(SettingsDiffJsonTest, EachSectionSaysHowItChangedWithItsKeys) {
  ztest::TTempDir dir;
  const std::string a = dir.Write("a.ini", "[General]\nUsePGO=0\n[clC1]\nMaxOrderQuantity_TQBR=1\n");
  const std::string b = dir.Write("b.ini", "[General]\nUsePGO=1\n");
  std::ostringstream out, err;
  EXPECT_EQ(zentdl::RunDiff(a, b, {true, false}, out, err), 1);
  const nlohmann::json j = nlohmann::json::parse(out.str());
  ASSERT_EQ(j["sections"].size(), 2u);
  EXPECT_EQ(j["sections"][0]["section"], "General");
  EXPECT_EQ(j["sections"][0]["change"], "changed");
  EXPECT_EQ(j["sections"][0]["keys"][0]["a"], "0");
  EXPECT_EQ(j["sections"][0]["keys"][0]["b"], "1");
  EXPECT_EQ(j["sections"][1]["section"], "clC1");
  EXPECT_EQ(j["sections"][1]["change"], "removed");
  EXPECT_TRUE(j["sections"][1]["keys"][0]["b"].is_null());
}

}  // namespace
