// zentdl normalize gives byte for byte what the module stores when a client
// saves a library whole (SaveDLFile), for the example libraries and for
// generated ones.
#include "tools/cli/CanonicalText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "CliTestSupport.h"
#include "ModuleHarness.h"
#include "bench/SettingsGenerator.h"
#include "tools/cli/Subcommands.h"

namespace {

// What the built module writes to disk when the holder saves `text`.
std::string SavedThroughTheModule(const std::string& text) {
  const int port = ztest::NewPort();
  const std::string dir = "cli" + std::to_string(port) + "/";
  const std::string firm = "F" + std::to_string(port);
  ztest::WriteServerFile(dir + "firm.ini", "[General]\nUsePGO=0\n");
  const std::string list = ztest::WriteServerFile(dir + "dl.ini", "[dealer-library]\n" + firm + "=firm.ini\n");
  EXPECT_EQ(ztest::Module().InitDB(list, "", port), 1);
  CAlert fetch;
  fetch << ztest::Row("FIRM", firm);
  EXPECT_EQ(ztest::Call("GetDLFile", fetch, 7, port, "admin"), 1);
  CAlert save;
  save << ztest::Row("FIRM", firm) << ztest::Row("CANCEL", 0) << ztest::Row("DATA", text);
  EXPECT_EQ(ztest::Call("SaveDLFile", save, 7, port, "admin"), 1);
  int cancel = -1;
  save >> cancel;
  EXPECT_EQ(cancel, 0);
  return ztest::ReadServerFile(dir + "firm.ini");
}

void ExpectSameAsTheModule(const std::string& text) {
  const std::string saved = SavedThroughTheModule(text);
  ASSERT_FALSE(saved.empty());
  const zentdl::TCanonicalResult ours = zentdl::CanonicalSettingsText(text);
  ASSERT_EQ(ours.code, 0);
  EXPECT_EQ(ours.text, saved);
  // And the program itself, writing to standard output.
  ztest::TTempDir dir;
  const ztest::TRun run = ztest::RunZentdl({"normalize", "--quiet", dir.Write("lib.ini", text)});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.out, saved);
}

TEST(CanonicalTextTest, TheBrokerExampleAsTheModuleSavesIt) {
  ExpectSameAsTheModule(ztest::ReadFileBytes(ztest::ExampleLibrary("broker.ini")));
}

TEST(CanonicalTextTest, TheInvestExampleAsTheModuleSavesIt) {
  ExpectSameAsTheModule(ztest::ReadFileBytes(ztest::ExampleLibrary("invest.ini")));
}

TEST(CanonicalTextTest, GeneratedLibrariesAsTheModuleSavesThem) {
  ExpectSameAsTheModule(zbench::GenerateSettingsText({.clients = 50, .crlf = false, .seed = 3}));
  ExpectSameAsTheModule(zbench::GenerateSettingsText({.clients = 40, .crlf = true, .seed = 7, .allGroups = true}));
}

TEST(CanonicalTextTest, ASmallTextGivesTheseBytes) {
  const zentdl::TCanonicalResult r =
      zentdl::CanonicalSettingsText("; note\n[clC1]\nMaxOrderQuantity_TQBR=2\n[General]\nUsePGO=1 ; on\n");
  ASSERT_EQ(r.code, 0);
  EXPECT_EQ(r.text, "[General]\r\nUsePGO=1\r\n\r\n[clC1]\r\nMaxOrderQuantity_TQBR=2\r\n\r\n");
}

TEST(CanonicalTextTest, TheTextEndsAtItsFirstZeroByte) {
  const std::string text("[General]\nUsePGO=1\n\0[clC1]\nMaxOrderQuantity_TQBR=2\n", 50);
  const zentdl::TCanonicalResult r = zentdl::CanonicalSettingsText(text);
  ASSERT_EQ(r.code, 0);
  EXPECT_EQ(r.text, "[General]\r\nUsePGO=1\r\n\r\n");
}

TEST(CanonicalTextTest, NormalisingTwiceGivesTheSameText) {
  const std::string once = zentdl::CanonicalSettingsText(ztest::ReadFileBytes(ztest::ExampleLibrary("invest.ini"))).text;
  EXPECT_EQ(zentdl::CanonicalSettingsText(once).text, once);
}

TEST(CanonicalTextTest, InPlaceAndOutputFileWriteTheCanonicalText) {
  ztest::TTempDir dir;
  const std::string text = "[clC1]\nMaxOrderQuantity_TQBR=2\n[General]\nUsePGO=1\n";
  const std::string expected = "[General]\r\nUsePGO=1\r\n\r\n[clC1]\r\nMaxOrderQuantity_TQBR=2\r\n\r\n";
  const std::string file = dir.Write("lib.ini", text);
  std::ostringstream err;
  zentdl::TCommonOptions quiet{false, false};
  EXPECT_EQ(zentdl::RunNormalize(file, dir.Path("out.ini"), false, quiet, err), 0);
  EXPECT_EQ(ztest::ReadFileBytes(dir.Path("out.ini")), expected);
  EXPECT_EQ(ztest::ReadFileBytes(file), text);
  EXPECT_EQ(zentdl::RunNormalize(file, "", true, quiet, err), 0);
  EXPECT_EQ(ztest::ReadFileBytes(file), expected);
  EXPECT_EQ(err.str(), "");
}

TEST(CanonicalTextTest, AnUnreadableFileIsExitTwoAndWritesNothing) {
  ztest::TTempDir dir;
  std::ostringstream err;
  zentdl::TCommonOptions quiet{false, false};
  EXPECT_EQ(zentdl::RunNormalize(dir.Path("none.ini"), dir.Path("out.ini"), false, quiet, err), 2);
  EXPECT_EQ(err.str(), "zentdl: cannot read " + dir.Path("none.ini") + ": No such file or directory\n");
  EXPECT_EQ(ztest::ReadFileBytes(dir.Path("out.ini")), "");
}

}  // namespace
