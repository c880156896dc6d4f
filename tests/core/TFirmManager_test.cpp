#include "core/TFirmManager.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "api/ZDeallibAPI.h"
#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"
#include "support/LogWriter.h"

namespace {

using DL::TFirmManager;
using DL::TInfoStorage;
namespace fs = std::filesystem;

const char* kText = "[General]\nUSEPGO=1\n[clC1]\nMaxOrderQuantity_TQBR=10\n";

class TFirmManagerTest : public ::testing::Test {
 protected:
  void SetUp() override { dir_ = fs::temp_directory_path() / ("zdl_firms_" + std::to_string(getpid())); fs::create_directories(dir_); }
  void TearDown() override { fs::remove_all(dir_); }

  std::string Write(const std::string& name, const std::string& text) {
    fs::path p = dir_ / name;
    std::ofstream(p, std::ios::binary) << text;
    return p.string();
  }
  static std::string Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }

  fs::path dir_;
  TFirmManager manager_;
};

TEST_F(TFirmManagerTest, AFirmLoadsFromTextAndIsFoundByItsCode) {
  TInfoStorage* s = manager_.AddInfoStorage("FIRM1", kText, 2);
  ASSERT_NE(s, nullptr);
  EXPECT_EQ(manager_.GetInfoStorage("FIRM1"), s);
  EXPECT_EQ(s->Hub().GetSections().at("general").at("usepgo"), "1");
}

TEST_F(TFirmManagerTest, AFirmLoadsFromAFile) {
  TInfoStorage* s = manager_.AddInfoStorage("FIRM1", Write("f.ini", kText).c_str(), 1);
  ASSERT_NE(s, nullptr);
  EXPECT_EQ(s->Hub().GetSections().size(), 2u);
}

TEST_F(TFirmManagerTest, AMissingFileGivesAFirmWithNoSections) {
  TInfoStorage* s = manager_.AddInfoStorage("FIRM1", (dir_ / "missing.ini").c_str(), 1);
  ASSERT_NE(s, nullptr);
  EXPECT_TRUE(s->Hub().GetSections().empty());
}

TEST_F(TFirmManagerTest, SourceTypeThreeGivesAFirmWithAllDefaults) {
  TInfoStorage* s = manager_.AddInfoStorage("FIRM1", kText, 3);
  ASSERT_NE(s, nullptr);
  EXPECT_TRUE(s->Hub().GetSections().empty());
}

TEST_F(TFirmManagerTest, LoadingTheSameFirmTwiceReplacesTheStorage) {
  manager_.AddInfoStorage("FIRM1", "[General]\nA=1\n", 2);
  TInfoStorage* second = manager_.AddInfoStorage("FIRM1", "[General]\nA=2\n", 2);
  EXPECT_EQ(manager_.FirmCount(), 1u);
  EXPECT_EQ(manager_.GetInfoStorage("FIRM1"), second);
  EXPECT_EQ(second->Hub().GetSections().at("General").at("A"), "2");
}

TEST_F(TFirmManagerTest, FirmCodesAreComparedBytewise) {
  manager_.AddInfoStorage("FIRM1", kText, 2);
  EXPECT_EQ(manager_.GetInfoStorage("firm1"), nullptr);
  EXPECT_EQ(manager_.GetInfoStorage(nullptr), nullptr);
}

TEST_F(TFirmManagerTest, FinishingAnUnknownFirmGivesFour) { EXPECT_EQ(manager_.FinishWorkWithFirm("NONE"), 4); }

TEST_F(TFirmManagerTest, FinishingAFirmRemovesIt) {
  manager_.AddInfoStorage("FIRM1", kText, 2);
  EXPECT_EQ(manager_.FinishWorkWithFirm("FIRM1"), 0);
  EXPECT_EQ(manager_.GetInfoStorage("FIRM1"), nullptr);
  EXPECT_EQ(manager_.FinishWorkWithFirm("FIRM1"), 4);
}

TEST_F(TFirmManagerTest, RefreshReturnsOneAndLeavesTheStorageSilentUntilActivateLog) {
  TLogWriter log;
  TInfoStorage* s = manager_.AddInfoStorage("FIRM1", kText, 2);
  manager_.ActivateLog(&log);
  EXPECT_EQ(s->Hub().GetLogWriter(), &log);
  EXPECT_EQ(s->Refresh("[General]\nA=3\n", 2, true), 1);
  EXPECT_EQ(s->Hub().GetLogWriter(), nullptr);
  EXPECT_EQ(s->Hub().GetSections().at("General").at("A"), "3");
  s->ActivateLog(&log);
  EXPECT_EQ(s->Hub().GetLogWriter(), &log);
}

TEST_F(TFirmManagerTest, AFirmLoadedWhileLoggingIsOnGetsTheLoggerAndTheLoadIsLogged) {
  TLogWriter log(15);
  std::string path = (dir_ / "engine.log").string();
  ASSERT_TRUE(log.Init(path, " "));
  manager_.ActivateLog(&log);
  TInfoStorage* s = manager_.AddInfoStorage("FIRM9", "[General]\nA=1\n", 2);
  EXPECT_EQ(s->Hub().GetLogWriter(), &log);
  EXPECT_NE(Read(path).find(" TFirmManager::AddInfoStorage: firm_id= FIRM9, ini_source_type= 2, "
                            "ini_source_name= [General]\nA=1\n\n"),
            std::string::npos);
  manager_.DeactivateLog();
  EXPECT_EQ(s->Hub().GetLogWriter(), nullptr);
}

TEST_F(TFirmManagerTest, TheLoadLineNeedsLevelFifteen) {
  TLogWriter log(14);
  std::string path = (dir_ / "quiet.log").string();
  ASSERT_TRUE(log.Init(path, " "));
  manager_.ActivateLog(&log);
  manager_.AddInfoStorage("FIRM9", "[General]\nA=1\n", 2);
  EXPECT_EQ(Read(path).find("AddInfoStorage"), std::string::npos);
}

// The ZDL_ layer over the process-wide registry.
class ZDLFirmTest : public TFirmManagerTest {
 protected:
  void TearDown() override {
    (void)ZDL_FinishWorkWithFirm("ZFIRM");
    TFirmManagerTest::TearDown();
  }
};

TEST_F(ZDLFirmTest, LoadingFromTextReturnsZero) {
  EXPECT_EQ(ZDL_LoadSettingsForFirm("ZFIRM", kText, 2), 0);
  EXPECT_NE(ZDL_GetFirmManager().GetInfoStorage("ZFIRM"), nullptr);
}

TEST_F(ZDLFirmTest, LoadingWithSourceTypeThreeReturnsZero) { EXPECT_EQ(ZDL_LoadSettingsForFirm("ZFIRM", kText, 3), 0); }

TEST_F(ZDLFirmTest, AnUnknownFirmGivesTwoEverywhereButFinish) {
  char* text = nullptr;
  void* block = nullptr;
  EXPECT_EQ(ZDL_SaveSettingsToMemory("NOFIRM", &text), 2);
  EXPECT_EQ(ZDL_FreeMemory("NOFIRM", &block), 2);
  EXPECT_EQ(ZDL_SaveSettingsToFile("NOFIRM", "x.ini"), 2);
  EXPECT_EQ(ZDL_FinishWorkWithFirm("NOFIRM"), 4);
}

TEST_F(ZDLFirmTest, SaveSettingsToFileWritesNothing) {
  std::string path = Write("kept.ini", "as it was");
  ASSERT_EQ(ZDL_LoadSettingsForFirm("ZFIRM", kText, 2), 0);
  EXPECT_EQ(ZDL_SaveSettingsToFile("ZFIRM", path.c_str()), 0);
  EXPECT_EQ(Read(path), "as it was");
}

TEST_F(ZDLFirmTest, TheSavedTextIsGivenBackOnceThenTheVariableIsNull) {
  ASSERT_EQ(ZDL_LoadSettingsForFirm("ZFIRM", kText, 2), 0);
  char* text = nullptr;
  ASSERT_EQ(ZDL_SaveSettingsToMemory("ZFIRM", &text), 0);
  ASSERT_NE(text, nullptr);
  void* block = text;
  EXPECT_EQ(ZDL_FreeMemory("ZFIRM", &block), 0);
  EXPECT_EQ(block, nullptr);
  EXPECT_EQ(ZDL_FreeMemory("ZFIRM", &block), 4);
}

TEST_F(ZDLFirmTest, FreeingThroughAFirmThatIsGoneGivesTwo) {
  ASSERT_EQ(ZDL_LoadSettingsForFirm("ZFIRM", kText, 2), 0);
  char* text = nullptr;
  ASSERT_EQ(ZDL_SaveSettingsToMemory("ZFIRM", &text), 0);
  ASSERT_EQ(ZDL_FinishWorkWithFirm("ZFIRM"), 0);
  void* block = text;  // released with the firm
  EXPECT_EQ(ZDL_FreeMemory("ZFIRM", &block), 2);
}

}  // namespace
