// Smallest order values edited on settings texts loaded into a storage.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/ResultCodes.h"
#include "core/TInfoStorage.h"
#include "core/TMinOrderValueEditor.h"

namespace {

using DL::TInfoStorage;
using DL::TMinOrderValueEditor;

// A plain row over the given lists; the strings stay owned by the test.
struct TPlainRow {
  std::vector<char*> classes, securities;
  ZDL_MinOrderValue row{};
  TPlainRow(std::vector<const char*> c, std::vector<const char*> s, double value, const char* currency) {
    for (const char* x : c) classes.push_back(const_cast<char*>(x));
    for (const char* x : s) securities.push_back(const_cast<char*>(x));
    row.lsClasses = ZDL_ArrayStrings{classes.size(), classes.empty() ? nullptr : classes.data()};
    row.lsInstruments = ZDL_ArrayStrings{securities.size(), securities.empty() ? nullptr : securities.data()};
    row.value = value;
    row.currency = const_cast<char*>(currency);
  }
};

std::string Value(TInfoStorage& storage, const std::string& section, const std::string& key) {
  const auto* keys = storage.Hub().GetOldParserPointer()->FindIniSectionRef(section);
  if (keys == nullptr) return "-";
  const auto it = keys->find(key);
  return it == keys->end() ? "-" : it->second;
}

const char* const kText =
    "[General]\n"
    "UsePGO=1\n"
    "[clRETAIL_Client_Template]\n"
    "Clients=C01\n"
    "[clC01]\n"
    "CheckClient=1\n";

TEST(MinOrderValueEditor, ARowIsItsKeyAndValueInTheSection) {
  TInfoStorage storage(kText, 2, false);
  TMinOrderValueEditor editor(storage.Hub());
  TPlainRow shares({"TQBR"}, {"SBER", "GAZP"}, 1000, "RUB");
  ASSERT_EQ(editor.AddMinOrderValueToGlobal(0, &shares.row), ZDL_OK);
  EXPECT_EQ(Value(storage, "OrderMinValue", "TQBR_INSTR_GAZP,SBER"), "1000,RUB");
  TPlainRow funds({"TQTF", "TQBR"}, {}, 2.5, "");
  ASSERT_EQ(editor.AddMinOrderValueToClientTemplate(0, "RETAIL", &funds.row), ZDL_OK);
  EXPECT_EQ(Value(storage, "clRETAIL_Client_Template", "OrderMinValue_TQBR,TQTF"), "2.5");
  ASSERT_EQ(editor.AddMinOrderValueToClientSettings(0, "C01", &funds.row), ZDL_OK);
  EXPECT_EQ(Value(storage, "clC01", "OrderMinValue_TQBR,TQTF"), "2.5");
}

TEST(MinOrderValueEditor, ChecksComeInTheirOrder) {
  TInfoStorage storage(kText, 2, false);
  TMinOrderValueEditor editor(storage.Hub());
  TPlainRow longClass({"ABCDEFGHIJKLM"}, {}, 1, "");
  TPlainRow good({"TQBR"}, {"SBER"}, 1, "");
  // The owner's code first, then the row, then the scope, then the owner.
  EXPECT_EQ(editor.AddMinOrderValueToClientSettings(2, "ABCDEFGHIJKLM", &longClass.row), ZDL_CLIENT_CODE_TOO_LONG);
  EXPECT_EQ(editor.AddMinOrderValueToClientSettings(2, "NOSUCH", &longClass.row), ZDL_CLASS_CODE_TOO_LONG);
  EXPECT_EQ(editor.AddMinOrderValueToClientSettings(2, "NOSUCH", &good.row), ZDL_WRONG_SCOPE);
  EXPECT_EQ(editor.AddMinOrderValueToClientSettings(0, "NOSUCH", &good.row), ZDL_CLIENT_SETTINGS_NOT_EXIST);
  EXPECT_EQ(editor.AddMinOrderValueToClientTemplate(0, "NOSUCH", &good.row), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(editor.AddMinOrderValueToGlobal(0, nullptr), ZDL_BAD_ARGUMENT);
  // A security count of 0 with a security array is refused.
  TPlainRow emptyWithArray({"TQBR"}, {"SBER"}, 1, "");
  emptyWithArray.row.lsInstruments.count = 0;
  EXPECT_EQ(editor.AddMinOrderValueToGlobal(0, &emptyWithArray.row), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(Value(storage, "OrderMinValue", "TQBR_INSTR_SBER"), "-");
}

}  // namespace
