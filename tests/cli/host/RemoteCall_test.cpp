// zentdl call, get and put against a zent-host started by the test on a free
// loopback port: a Get, a Set, a refused Set, and every failure an
// administrator meets on the way.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

#include "CliTestSupport.h"
#include "HostProcess.h"

namespace {

using hosttest::THostProcess;

class RemoteCallTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(host_.Start()) << host_.output(); }

  // The environment of an administrator: where the host is, who, and the secret.
  std::vector<std::string> Env(const std::string& user = "admin", std::string secret = "") const {
    if (secret.empty()) secret = hosttest::SecretOf(user);
    return {"ZENTDL_HOST=127.0.0.1:" + std::to_string(host_.port()), "ZENTDL_USER=" + user, "ZENTDL_SECRET=" + secret};
  }
  ztest::TRun Zentdl(const std::vector<std::string>& args) const { return ztest::RunZentdl(args, Env()); }
  std::string Alpha() const { return hosttest::ReadFile(host_.path("libs/alpha.ini")); }

  THostProcess host_;
};

TEST_F(RemoteCallTest, AGetPrintsTheReplyRecord) {
  const ztest::TRun run = Zentdl({"call", "--library", "ALPHA", "GetUsePGOFromGlobal"});
  ASSERT_EQ(run.exitCode, 0) << run.err;
  const nlohmann::json reply = nlohmann::json::parse(run.out);
  EXPECT_EQ(reply["command"], "GetUsePGOFromGlobal");
  EXPECT_EQ(reply["result"], 0);
  EXPECT_EQ(reply["record"]["firmCode"], "ALPHA");
  EXPECT_EQ(reply["record"]["boolParam1"], false);
}

TEST_F(RemoteCallTest, ASetWithWriteChangesAndSavesTheLibrary) {
  const ztest::TRun set = Zentdl({"call", "--library", "ALPHA", "--write", "SetUsePGOToGlobal", "boolParam1=1"});
  ASSERT_EQ(set.exitCode, 0) << set.err;
  const nlohmann::json reply = nlohmann::json::parse(set.out);
  EXPECT_EQ(reply["result"], 0);
  EXPECT_EQ(reply["saved"], true);
  // The library on disk is the canonical text with the new value.
  EXPECT_EQ(Alpha(), "[General]\r\nCALCVARMARGIN=1\r\nUSEPGO=1\r\n\r\n");
  const ztest::TRun get = Zentdl({"call", "--library", "ALPHA", "GetUsePGOFromGlobal"});
  ASSERT_EQ(get.exitCode, 0) << get.err;
  EXPECT_EQ(nlohmann::json::parse(get.out)["record"]["boolParam1"], true);
}

TEST_F(RemoteCallTest, ASetOnALibraryOpenedForReadingIsRefused) {
  const std::string before = Alpha();
  const ztest::TRun run = Zentdl({"call", "--library", "ALPHA", "SetUsePGOToGlobal", "boolParam1=1"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(nlohmann::json::parse(run.out)["result"], 12);
  EXPECT_EQ(run.err,
            "zentdl: SetUsePGOToGlobal: result 12: read-only: Add, Remove and Set need a library opened for writing "
            "(DLOpenFile with nMode 0)\n");
  EXPECT_EQ(Alpha(), before);
}

TEST_F(RemoteCallTest, TheRequestCanBeGivenAsJson) {
  const ztest::TRun run =
      Zentdl({"call", "--json", R"({"command": "GetUsePGOFromGlobal", "firmCode": "ALPHA"})", "--library", "ALPHA"});
  ASSERT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(nlohmann::json::parse(run.out)["record"]["boolParam1"], false);
}

TEST_F(RemoteCallTest, AFileVerbListsTheLibraries) {
  const ztest::TRun run = Zentdl({"call", "DLGetFirmList"});
  ASSERT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(nlohmann::json::parse(run.out)["record"]["lsFirmList"], nlohmann::json({"ALPHA", "BETA"}));
}

TEST_F(RemoteCallTest, ACommandTheModuleDoesNotServeIsNamedSo) {
  const ztest::TRun run = Zentdl({"call", "--library", "ALPHA", "AddPortfolioRiskConfigTemplate"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.err,
            "zentdl: AddPortfolioRiskConfigTemplate: result 1: unknown command: the module does not serve this "
            "command of the table\n");
}

TEST_F(RemoteCallTest, AnUnknownNameIsRefusedBeforeConnecting) {
  const ztest::TRun run = Zentdl({"call", "getusepgofromglobal"});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err,
            "zentdl: unknown command \"getusepgofromglobal\"; did you mean GetUsePGOFromGlobal? (zentdl commands "
            "PATTERN lists them)\n");
}

TEST_F(RemoteCallTest, AFieldNotInTheRecordIsRefused) {
  const ztest::TRun run = Zentdl({"call", "GetUsePGOFromGlobal", "value=1"});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.err, "zentdl: field value is not in TDL_StringAndBool (its fields: firmCode, boolParam1)\n");
}

TEST_F(RemoteCallTest, AWrongSecretIsALogOnRefusal) {
  const ztest::TRun run = ztest::RunZentdl({"call", "DLGetFirmList"}, Env("admin", "wrong"));
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_EQ(run.err.rfind("zentdl: log-on refused for user admin on connection port 7001: ", 0), 0u) << run.err;
}

TEST_F(RemoteCallTest, AUserOfKindThreeMayNotWorkWithLibraries) {
  const ztest::TRun run = ztest::RunZentdl({"get", "ALPHA"}, Env("viewer"));
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_EQ(run.err, "zentdl: user viewer may not work with libraries (the host gives it kind 3)\n");
}

TEST_F(RemoteCallTest, AStoppedHostIsAConnectionRefusal) {
  const std::vector<std::string> env = Env();
  host_.Stop();
  const ztest::TRun run = ztest::RunZentdl({"call", "DLGetFirmList"}, env);
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_NE(run.err.find("cannot connect to zent-host at 127.0.0.1:"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("Connection refused"), std::string::npos) << run.err;
}

TEST_F(RemoteCallTest, TheSecretNeverComesFromTheCommandLine) {
  const ztest::TRun run = ztest::RunZentdl({"call", "--secret", "admin-secret", "DLGetFirmList"},
                                           {"ZENTDL_HOST=127.0.0.1:" + std::to_string(host_.port()),
                                            "ZENTDL_USER=admin"});
  EXPECT_EQ(run.exitCode, 2);
  const ztest::TRun none = ztest::RunZentdl({"call", "DLGetFirmList"}, {"ZENTDL_HOST=127.0.0.1:" +
                                                                            std::to_string(host_.port()),
                                                                        "ZENTDL_USER=admin"});
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_EQ(none.err, "zentdl: no secret: set ZENTDL_SECRET, or give --secret-file FILE (or ZENTDL_SECRET_FILE)\n");
}

TEST_F(RemoteCallTest, GetAndPutAWholeLibrary) {
  ztest::TTempDir dir;
  const ztest::TRun get = Zentdl({"get", "ALPHA", "-o", dir.Path("alpha.ini")});
  ASSERT_EQ(get.exitCode, 0) << get.err;
  EXPECT_EQ(ztest::ReadFileBytes(dir.Path("alpha.ini")), "[General]\nUSEPGO=0\nCALCVARMARGIN=1\n");
  const std::string edited = dir.Write("new.ini", "; edited\n[General]\nUSEPGO=1\nCALCVARMARGIN=1\n");
  const ztest::TRun put = Zentdl({"put", "ALPHA", edited});
  ASSERT_EQ(put.exitCode, 0) << put.err;
  EXPECT_EQ(put.out, "saved ALPHA on admin@127.0.0.1:" + std::to_string(host_.port()) + "\n");
  EXPECT_EQ(Alpha(), "[General]\r\nCALCVARMARGIN=1\r\nUSEPGO=1\r\n\r\n");
}

TEST_F(RemoteCallTest, GetOfAnUnknownLibraryIsRefusedWithTheHostsText) {
  const ztest::TRun run = Zentdl({"get", "NOPE"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.err.rfind("zentdl: GetDLFile NOPE refused (code 255): ", 0), 0u) << run.err;
}

}  // namespace
