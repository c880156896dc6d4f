// The firm's instruments without currency risk: an edit is read again into
// the hub at once, and a class without instruments can stand.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "base/ResultCodes.h"
#include "core/SavedText.h"
#include "core/TInstrumentsWithoutCurrencyRiskEditor.h"
#include "core/TStorageHub.h"

namespace {

using DL::TInstrumentsWithoutCurrencyRiskEditor;
using DL::TStorageHub;

TEST(InstrumentsWithoutCurrencyRiskEditorTest, TheHubReadsTheFirmsListAgainAfterAnEdit) {
  TStorageHub hub("[InstrumentsWithoutCurrencyRisk]\nInstrumentsWithoutCurrencyRisk_TQBR=SBER\n", 2);
  TInstrumentsWithoutCurrencyRiskEditor editor(hub);
  ASSERT_EQ(editor.AddInstrumentForClassToInstrumentsWithoutCurrencyRiskGlobal("TQTF", "FXUS"), ZDL_OK);
  ASSERT_EQ(editor.RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRiskGlobal("TQBR", "SBER"), ZDL_OK);
  const auto& values = hub.GetInstrumentsWithoutCurrencyRisk().values;
  ASSERT_EQ(values.size(), 1u);
  EXPECT_EQ(values.begin()->first, "TQTF");
  EXPECT_EQ(values.begin()->second, (std::set<std::string>{"FXUS"}));
  EXPECT_EQ(ztest::SavedText(hub),
            "[InstrumentsWithoutCurrencyRisk]\r\nInstrumentsWithoutCurrencyRisk_TQTF=FXUS\r\n\r\n");
}

TEST(InstrumentsWithoutCurrencyRiskEditorTest, AClassAddedAloneHasAnEmptyList) {
  TStorageHub hub("", 2);
  TInstrumentsWithoutCurrencyRiskEditor editor(hub);
  EXPECT_EQ(editor.RemoveClassFromInstrumentsWithoutCurrencyRiskGlobal("TQBR"), ZDL_NOT_FOUND);
  ASSERT_EQ(editor.AddClassToInstrumentsWithoutCurrencyRiskGlobal("<ALL>"), ZDL_OK);
  EXPECT_EQ(hub.GetInstrumentsWithoutCurrencyRisk().values.count("<ALL>"), 1u);
  EXPECT_TRUE(hub.GetInstrumentsWithoutCurrencyRisk().values.at("<ALL>").empty());
  EXPECT_EQ(editor.AddInstrumentForClassToInstrumentsWithoutCurrencyRiskGlobal("<ALL>", nullptr), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.AddClassToInstrumentsWithoutCurrencyRiskGlobal("A,B"), ZDL_BAD_ARGUMENT);
}

}  // namespace
