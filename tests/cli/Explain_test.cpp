// zentdl explain: the effective settings of a client with the level each came
// from, against values worked out by hand from the library below.
#include "tools/cli/Explain.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>

#include "CliTestSupport.h"
#include "tools/cli/Subcommands.h"

namespace {

// C1 has its own margin section, C2 is listed by a margin template, clients
// beginning with P fall under a prefix section, and a leverage of 2 is claimed
// by a template of its own. Each level carries its own discount line of SBER
// and its own discount type.
const char* const kLibrary =
    "[General]\n"
    "UseDiscountsType=3\n"
    "[clC1_Margin]\n"
    "UseSecurityDiscounts=2\n"
    "SBER_DISC=1,1,0.15,0.3\n"
    "UseDiscountsType=1\n"
    "LimitKinds=0,2\n"
    "[clC1_Margin_LimitKind_2]\n"
    "UseDiscountsType=1\n"
    "[clTPL_Margin_Template]\n"
    "UseSecurityDiscounts=2\n"
    "SBER_DISC=1,1,0.25,0.4\n"
    "Clients=C2\n"
    "UseDiscountsType=2\n"
    "[clLEV_Margin_Template]\n"
    "IncludeClientsWithLeverage=2\n"
    "UseDiscountsType=5\n"
    "[clP*_Margin]\n"
    "UseSecurityDiscounts=2\n"
    "SBER_DISC=1,1,0.35,0.5\n"
    "UseDiscountsType=4\n";

class ExplainTest : public ::testing::Test {
 protected:
  void Explain(const std::string& client, double leverage = -1.0) {
    zentdl::TExplainRequest q;
    q.client = client;
    q.classCode = "TQBR";
    q.secCode = "SBER";
    q.leverage = leverage;
    result_ = zentdl::ExplainClient(kLibrary, q);
    ASSERT_EQ(result_.code, 0);
  }
  const zentdl::TExplainRow& Row(const std::string& name) const {
    for (const zentdl::TExplainRow& r : result_.rows)
      if (r.name == name) return r;
    static const zentdl::TExplainRow none{"", "<missing>", "<missing>"};
    return none;
  }
  zentdl::TExplanation result_;
};

TEST_F(ExplainTest, APersonalClientGetsItsOwnSection) {
  Explain("C1");
  EXPECT_EQ(Row("margin settings").level, "personal section [clC1_Margin]");
  EXPECT_EQ(Row("limit kinds").value, "0, 2");
  EXPECT_EQ(Row("discount type of TQBR").value, "1");
  EXPECT_EQ(Row("effective DLong").value, "0.15");
  EXPECT_EQ(Row("effective DShort").value, "0.3");
  EXPECT_EQ(Row("effective DLong").level, "personal section [clC1_Margin]");
  EXPECT_EQ(Row("client settings").level, "global settings");
}

TEST_F(ExplainTest, AClientListedByATemplateGetsTheTemplate) {
  Explain("C2");
  EXPECT_EQ(Row("margin settings").level, "template [clTPL_Margin_Template] (lists the client in Clients)");
  EXPECT_EQ(Row("discount type of TQBR").value, "2");
  EXPECT_EQ(Row("effective DLong").value, "0.25");
  EXPECT_EQ(Row("effective DShort").value, "0.4");
  EXPECT_EQ(Row("margin template (typed store)").value, "TPL");
}

TEST_F(ExplainTest, AClientUnderAPrefixGetsThePrefixSection) {
  Explain("P77");
  EXPECT_EQ(Row("margin settings").level, "prefix section [clP*_Margin]");
  EXPECT_EQ(Row("discount type of TQBR").value, "4");
  EXPECT_EQ(Row("effective DLong").value, "0.35");
  EXPECT_EQ(Row("effective DShort").value, "0.5");
}

TEST_F(ExplainTest, ALeverageTemplateOutranksThePersonalSection) {
  Explain("C1", 2.0);
  EXPECT_EQ(Row("margin settings").level,
            "leverage template [clLEV_Margin_Template] (IncludeClientsWithLeverage)");
  EXPECT_EQ(Row("discount type of TQBR").value, "5");
}

TEST_F(ExplainTest, AnUnknownClientGetsTheGlobalSettingsAndANonMarginalSecurity) {
  Explain("X1");
  EXPECT_EQ(Row("margin settings").level, "global settings");
  EXPECT_EQ(Row("discount type of TQBR").value, "3");
  EXPECT_EQ(Row("discount line found").value, "no");
  EXPECT_EQ(Row("effective DLong").value, "1");
  EXPECT_EQ(Row("effective DShort").value, "forbidden (1e50)");
}

TEST_F(ExplainTest, TheProgramPrintsTheLevelsAndJson) {
  ztest::TTempDir dir;
  const std::string file = dir.Write("lib.ini", kLibrary);
  const ztest::TRun text = ztest::RunZentdl({"explain", file, "C2", "--class", "TQBR", "--sec", "SBER"});
  EXPECT_EQ(text.exitCode, 0) << text.err;
  EXPECT_NE(text.out.find("client C2, leverage none, limit kind 0\n"), std::string::npos) << text.out;
  EXPECT_NE(text.out.find("effective DLong                     0.25    from template [clTPL_Margin_Template]"),
            std::string::npos)
      << text.out;
  const ztest::TRun json = ztest::RunZentdl({"explain", file, "P77", "--format", "json"});
  ASSERT_EQ(json.exitCode, 0) << json.err;
  const nlohmann::json j = nlohmann::json::parse(json.out);
  EXPECT_EQ(j["client"], "P77");
  EXPECT_EQ(j["settings"][0]["name"], "margin settings");
  EXPECT_EQ(j["settings"][0]["level"], "prefix section [clP*_Margin]");
}

TEST_F(ExplainTest, AMissingFileIsExitTwo) {
  std::ostringstream out, err;
  EXPECT_EQ(zentdl::RunExplain("/nonexistent/lib.ini", zentdl::TExplainRequest{}, {false, false}, out, err), 2);
  EXPECT_EQ(err.str(), "zentdl: cannot read /nonexistent/lib.ini: No such file or directory\n");
}

}  // namespace
