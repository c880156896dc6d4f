// The firm's single values end to end through Execute, one round trip per
// row of the parameter table: read, set a value that differs, read it back,
// save by "DLUpdateFile", reload, read again; the saved text is a fixed
// point. Refused values change nothing and leave no change line.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"

namespace {

using ztest::Module;

enum class EValue { Flag, Int, Number, Char, DiscCoeff, Scenarios };

struct TParameterRow {
  std::string stem;
  EValue value;
};

// Every row of the table, as the commands are generated from it.
const std::vector<TParameterRow>& Rows() {
  static const std::vector<TParameterRow> rows = {
#define ZDL_GLOBAL_PARAMETER(stem, value, home, key, check) {#stem, EValue::value},
#define ZDL_GLOBAL_OWN_PARAMETER(stem, value, home, key, check, field)
#include "core/GlobalParameters.def"
#undef ZDL_GLOBAL_PARAMETER
#undef ZDL_GLOBAL_OWN_PARAMETER
  };
  return rows;
}

// One value of any kind, as the records carry it.
struct TValue {
  bool flag = false;
  int number = 0;
  double real = 0;
  std::string text;
  double a = 0, b = 0, c = 0;
  bool operator==(const TValue&) const = default;
};
std::ostream& operator<<(std::ostream& out, const TValue& v) {
  return out << "{" << v.flag << " " << v.number << " " << v.real << " '" << v.text << "' " << v.a << " " << v.b << " "
             << v.c << "}";
}

// The example library, with a firm's commission scale so that the scale may
// be switched on, a sub-client delimiter and scenarios to read.
std::string Library() {
  std::string text = ztest::ReadSourceFile("examples/server/libs/broker.ini");
  const std::string general = "[General]\n";
  text.insert(text.find(general) + general.size(), "AddSubClientDelimiter=/\nVolatilityChangeScenarios=3,-3\n");
  return text + "\n[CommissionScale]\nMinValue=10\n1000=0.5\n";
}

class GlobalParameterCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session_ = std::make_unique<ztest::TLibrarySession>("gp", Library());
    port_ = session_->Port();
    firm_ = session_->Firm();
  }
  std::string Save() { return session_->Save(); }
  std::string SaveAndReload() { return session_->SaveAndReload(); }

  int Get(const TParameterRow& row, TValue& out) {
    const std::string command = "Get" + row.stem + "FromGlobal";
    switch (row.value) {
      case EValue::Flag: {
        TDL_StringAndBool r{firm_, false};
        const int rc = ztest::Command(port_, command, r, kUser);
        out.flag = r.boolParam1;
        return rc;
      }
      case EValue::Int: {
        TDL_StringAndInt r{firm_, 0};
        const int rc = ztest::Command(port_, command, r, kUser);
        out.number = r.intParam1;
        return rc;
      }
      case EValue::Number: {
        TDL_StringAndOneDouble r{firm_, 0};
        const int rc = ztest::Command(port_, command, r, kUser);
        out.real = r.doubleParam1;
        return rc;
      }
      case EValue::Char: {
        TDL_TwoStrings r{firm_, ""};
        const int rc = ztest::Command(port_, command, r, kUser);
        out.text = r.strParam;
        return rc;
      }
      case EValue::DiscCoeff: {
        TDL_StringAndThreeDouble r{firm_, 0, 0, 0};
        const int rc = ztest::Command(port_, command, r, kUser);
        out.a = r.doubleParam1;
        out.b = r.doubleParam2;
        out.c = r.doubleParam3;
        return rc;
      }
      case EValue::Scenarios: {
        TDL_StringAndTwoDouble r{firm_, 0, 0};
        const int rc = ztest::Command(port_, command, r, kUser);
        out.a = r.doubleParam1;
        out.b = r.doubleParam2;
        return rc;
      }
    }
    return -1;
  }

  int Set(const TParameterRow& row, const TValue& in) {
    const std::string command = "Set" + row.stem + "ToGlobal";
    switch (row.value) {
      case EValue::Flag: {
        TDL_StringAndBool r{firm_, in.flag};
        return ztest::Command(port_, command, r, kUser);
      }
      case EValue::Int: {
        TDL_StringAndInt r{firm_, in.number};
        return ztest::Command(port_, command, r, kUser);
      }
      case EValue::Number: {
        TDL_StringAndOneDouble r{firm_, in.real};
        return ztest::Command(port_, command, r, kUser);
      }
      case EValue::DiscCoeff: {
        TDL_StringAndThreeDouble r{firm_, in.a, in.b, in.c};
        return ztest::Command(port_, command, r, kUser);
      }
      case EValue::Scenarios: {
        TDL_StringAndTwoDouble r{firm_, in.a, in.b};
        return ztest::Command(port_, command, r, kUser);
      }
      case EValue::Char: {
        TDL_TwoStrings r{firm_, in.text};
        return ztest::Command(port_, command, r, kUser);
      }
    }
    return -1;
  }

  // A value the parameter accepts that differs from `now`.
  static TValue Other(EValue kind, const TValue& now) {
    TValue v = now;
    switch (kind) {
      case EValue::Flag:
        v.flag = !now.flag;
        break;
      case EValue::Int:
        v.number = (now.number + 1) % 3;  // within every range of the table
        break;
      case EValue::Number:
        v.real = now.real == 55.5 ? 60.0 : 55.5;
        break;
      case EValue::DiscCoeff:
        v = TValue{};
        v.a = now.a == 12.5 ? 20.0 : 12.5;
        v.b = -1;
        v.c = 40.0;
        break;
      case EValue::Scenarios:
        v.a = now.a + 1.25;
        v.b = now.b - 0.5;
        break;
      case EValue::Char:
        v.text = now.text == "/" ? "." : "/";
        break;
    }
    return v;
  }

  std::vector<std::string> ChangeLines() {
    std::vector<std::string> lines;
    for (const TestDbAudit& a : Module().db->audits)
      if (a.event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") lines.push_back(a.fields[20]);
    return lines;
  }

  static constexpr int kUser = 2;
  std::unique_ptr<ztest::TLibrarySession> session_;
  int port_ = 0;
  std::string firm_;
};

TEST_F(GlobalParameterCommandsTest, EveryRowIsServedByItsCommands) {
  for (const TParameterRow& row : Rows()) {
    for (const std::string& name : {"Get" + row.stem + "FromGlobal", "Set" + row.stem + "ToGlobal"}) {
      const DL::TCommandRow* command = DL::FindCommand(name);
      ASSERT_NE(command, nullptr) << name;
      EXPECT_NE(command->handler, nullptr) << name;
      EXPECT_EQ(command->scope, DL::ECommandScope::Global) << name;
    }
  }
}

TEST_F(GlobalParameterCommandsTest, EveryValueRoundTripsThroughTheSavedText) {
  for (const TParameterRow& row : Rows()) {
    SCOPED_TRACE(row.stem);
    TValue before;
    ASSERT_EQ(Get(row, before), 0);
    const TValue wanted = Other(row.value, before);
    ASSERT_EQ(Set(row, wanted), 0);
    TValue read;
    ASSERT_EQ(Get(row, read), 0);
    EXPECT_EQ(read, wanted);
    const std::string saved = SaveAndReload();
    TValue reloaded;
    ASSERT_EQ(Get(row, reloaded), 0);
    EXPECT_EQ(reloaded, wanted);
    EXPECT_EQ(Save(), saved);
  }
}

TEST_F(GlobalParameterCommandsTest, TheSubClientDelimiterIsOneCharacterOrNone) {
  const TParameterRow row{"AdditionalSubClientDelimiter", EValue::Char};
  TValue v;
  ASSERT_EQ(Get(row, v), 0);
  EXPECT_EQ(v.text, "/");
  TValue two;
  two.text = "//";
  EXPECT_EQ(Set(row, two), 1003);
  ASSERT_EQ(Get(row, v), 0);
  EXPECT_EQ(v.text, "/");
  ASSERT_EQ(Set(row, TValue{}), 0);
  ASSERT_EQ(Get(row, v), 0);
  EXPECT_EQ(v.text, "");
  EXPECT_EQ(Save().find("AddSubClientDelimiter"), std::string::npos);
}

TEST_F(GlobalParameterCommandsTest, ChangedValuesStandInTheSavedTextAsWritten) {
  auto set = [this](const std::string& stem, EValue kind, TValue v) { EXPECT_EQ(Set({stem, kind}, v), 0) << stem; };
  TValue on;
  on.flag = true;
  set("CalcNegDeal", EValue::Flag, on);
  set("RestrictWithdrawalOfCash", EValue::Flag, on);
  TValue two;
  two.number = 2;
  set("UseDiscountsType", EValue::Int, two);
  TValue coeffs;
  coeffs.a = 12.5;
  coeffs.b = -1;
  coeffs.c = 40;
  set("BaseDiscCoeff", EValue::DiscCoeff, coeffs);
  TValue scenarios;
  scenarios.a = 1.5;
  scenarios.b = -2;
  set("VolatilityChangeScenarios", EValue::Scenarios, scenarios);
  const std::string saved = Save();
  for (const char* line : {"CalcNegDeal=1\r\n", "RestrictWithdrawalOfCash=1\r\n", "UseDiscountsType=2\r\n",
                           "BaseDiscCoeff=12.5,,40\r\n", "VolatilityChangeScenarios=1.5,-2\r\n"})
    EXPECT_NE(saved.find(line), std::string::npos) << line << saved;
}

TEST_F(GlobalParameterCommandsTest, ARefusedValueChangesNothingAndLeavesNoChangeLine) {
  const std::string before = Save();
  ztest::ResetRecordedCalls();
  struct TBad {
    std::string stem;
    EValue kind;
    TValue value;
    int result;
  };
  TValue minusOne;
  minusOne.number = -1;
  minusOne.real = -1;
  TValue three;
  three.number = 3;
  TValue zeroCoeff;
  zeroCoeff.a = 0;
  zeroCoeff.b = -1;
  zeroCoeff.c = -1;
  TValue bigCoeff;
  bigCoeff.a = -1;
  bigCoeff.b = 100.5;
  bigCoeff.c = -1;
  TValue nanScenario;
  nanScenario.a = std::nan("");
  const std::vector<TBad> bad = {
      {"UseDiscountsType", EValue::Int, minusOne, 1003},
      {"MDPlusDefaultNettingType", EValue::Int, three, 1003},
      {"MDPlusDefaultNettingType", EValue::Int, minusOne, 1003},
      {"CommissionScaleJump", EValue::Int, minusOne, 1003},
      {"ThresMarginCoeff", EValue::Number, minusOne, 1003},
      {"BaseDiscCoeff", EValue::DiscCoeff, zeroCoeff, 1003},
      {"BaseDiscCoeff", EValue::DiscCoeff, bigCoeff, 1003},
      {"VolatilityChangeScenarios", EValue::Scenarios, nanScenario, 1003},
  };
  for (const TBad& b : bad) {
    TValue was;
    ASSERT_EQ(Get({b.stem, b.kind}, was), 0) << b.stem;
    EXPECT_EQ(Set({b.stem, b.kind}, b.value), b.result) << b.stem;
    TValue now;
    ASSERT_EQ(Get({b.stem, b.kind}, now), 0) << b.stem;
    EXPECT_EQ(now, was) << b.stem;
  }
  EXPECT_EQ(Save(), before);
  for (const std::string& lines : ChangeLines()) EXPECT_EQ(lines, "");
}

TEST_F(GlobalParameterCommandsTest, TheGroupsOfNumbersAreRemovedWhole) {
  TDL_String firm{firm_};
  ASSERT_EQ(ztest::Command(port_, "RemoveVolatilityChangeScenariosFromGlobal", firm, kUser), 0);
  EXPECT_EQ(ztest::Command(port_, "RemoveVolatilityChangeScenariosFromGlobal", firm, kUser), 1004);
  TValue v;
  EXPECT_EQ(Get({"VolatilityChangeScenarios", EValue::Scenarios}, v), 1004);
  EXPECT_EQ(ztest::Command(port_, "RemoveBaseDiscCoeffFromGlobal", firm, kUser), 1004);
  TValue coeffs;
  coeffs.a = 30;
  coeffs.b = coeffs.c = -1;
  ASSERT_EQ(Set({"BaseDiscCoeff", EValue::DiscCoeff}, coeffs), 0);
  ASSERT_EQ(ztest::Command(port_, "RemoveBaseDiscCoeffFromGlobal", firm, kUser), 0);
  ASSERT_EQ(Get({"BaseDiscCoeff", EValue::DiscCoeff}, v), 0);
  EXPECT_EQ(v.a, -1);
  const std::string saved = Save();
  EXPECT_EQ(saved.find("BaseDiscCoeff"), std::string::npos);
  EXPECT_EQ(saved.find("VolatilityChangeScenarios"), std::string::npos);
}

TEST_F(GlobalParameterCommandsTest, TheCommissionScaleNeedsRowsInTheFirmsScale) {
  // A library whose firm scale has no rows.
  const std::string dir = "gpe" + std::to_string(port_) + "/";
  const int port = ztest::NewPort();
  ztest::WriteServerFile(dir + "f.ini", "[General]\nCALCVARMARGIN=1\n");
  std::string list = ztest::WriteServerFile(dir + "dl.ini", "[dealer-library]\nFE=f.ini\n");
  ASSERT_EQ(Module().InitDB(list, "", port), 1);
  TDL_DLOpenFile open{"FE", 0};
  ASSERT_EQ(ztest::Command(port, "DLOpenFile", open, kUser), 0);
  TDL_StringAndBool on{"FE", true};
  EXPECT_EQ(ztest::Command(port, "SetUseCommissionScaleToGlobal", on, kUser), 1025);
  TDL_StringAndBool read{"FE", true};
  ASSERT_EQ(ztest::Command(port, "GetUseCommissionScaleFromGlobal", read, kUser), 0);
  EXPECT_FALSE(read.boolParam1);
}

// The pairs with records of their own, their layouts written out here.
ZDL_DECLARE_RECORD(TSecPricePriority, (std::string, firmCode), (int, secPricePriority));
ZDL_DECLARE_RECORD(TMDPlusMinMarginCalcRate, (std::string, firmCode), (double, mdPlusMinMarginCalcRate));

TEST_F(GlobalParameterCommandsTest, ThePairsWithRecordsOfTheirOwnRoundTrip) {
  std::set<std::string> table;
#define ZDL_GLOBAL_PARAMETER(stem, value, home, key, check)
#define ZDL_GLOBAL_OWN_PARAMETER(stem, value, home, key, check, field) table.insert(#stem);
#include "core/GlobalParameters.def"
#undef ZDL_GLOBAL_PARAMETER
#undef ZDL_GLOBAL_OWN_PARAMETER
  EXPECT_EQ(table, (std::set<std::string>{"SecPricePriority", "MDPlusMinMarginCalcRate"}));

  TSecPricePriority priority{firm_, -1};
  ASSERT_EQ(ztest::Command(port_, "GetSecPricePriorityFromGlobal", priority, kUser), 0);
  EXPECT_EQ(priority.secPricePriority, 0);  // the default
  priority.secPricePriority = 2;
  ASSERT_EQ(ztest::Command(port_, "SetSecPricePriorityToGlobal", priority, kUser), 0);
  TMDPlusMinMarginCalcRate rate{firm_, 0};
  ASSERT_EQ(ztest::Command(port_, "GetMDPlusMinMarginCalcRateFromGlobal", rate, kUser), 0);
  EXPECT_EQ(rate.mdPlusMinMarginCalcRate, 0.5);  // as the example writes it
  rate.mdPlusMinMarginCalcRate = -1;
  EXPECT_EQ(ztest::Command(port_, "SetMDPlusMinMarginCalcRateToGlobal", rate, kUser), 1003);
  rate.mdPlusMinMarginCalcRate = 0.75;
  ASSERT_EQ(ztest::Command(port_, "SetMDPlusMinMarginCalcRateToGlobal", rate, kUser), 0);

  const std::string saved = SaveAndReload();
  EXPECT_NE(saved.find("SecPricePrior=2\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("MDPlusMinMarginCalcRate=0.75\r\n"), std::string::npos) << saved;
  priority.secPricePriority = -1;
  ASSERT_EQ(ztest::Command(port_, "GetSecPricePriorityFromGlobal", priority, kUser), 0);
  EXPECT_EQ(priority.secPricePriority, 2);
  rate.mdPlusMinMarginCalcRate = 0;
  ASSERT_EQ(ztest::Command(port_, "GetMDPlusMinMarginCalcRateFromGlobal", rate, kUser), 0);
  EXPECT_EQ(rate.mdPlusMinMarginCalcRate, 0.75);
  EXPECT_EQ(Save(), saved);
}

}  // namespace
