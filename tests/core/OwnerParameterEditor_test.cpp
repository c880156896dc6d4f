// Single values of clients and templates edited in their sections, and seen
// by the next query of every client they reach.
#include <gtest/gtest.h>

#include <string>

#include "base/ResultCodes.h"
#include "core/SavedText.h"
#include "core/TInfoStorage.h"
#include "core/TOwnerParameterEditor.h"

namespace {

using DL::TInfoStorage;
using DL::TOwnerParameterEditor;

constexpr const char* kText =
    "[General]\nUseDiscountsType=3\n"
    "[clQUAL_Margin_Template]\nClients=C1,C2\nUseDiscountsType=1\n"
    "[clC2_Margin]\nUseDiscountsType=4\n"
    "[clC1]\nMaxOrderQuantity_TQBR=10\n";

TEST(OwnerParameterEditorTest, ATemplateEditReachesItsClientsAndAClientEditOnlyItself) {
  TInfoStorage storage(kText, 2, false);
  TOwnerParameterEditor editor(storage.Hub());
  ASSERT_EQ(storage.GetDiscountType("C1", 0, -1.0, "TQBR"), 1);
  ASSERT_EQ(storage.GetDiscountType("C2", 0, -1.0, "TQBR"), 4);

  ASSERT_EQ(editor.SetUseDiscountsTypeToMarginTemplate("QUAL", 2), ZDL_OK);
  EXPECT_EQ(storage.GetDiscountType("C1", 0, -1.0, "TQBR"), 2);
  EXPECT_EQ(storage.GetDiscountType("C2", 0, -1.0, "TQBR"), 4);  // its own section stands

  ASSERT_EQ(editor.SetUseDiscountsTypeToClientSettings("C2", 0), ZDL_OK);
  EXPECT_EQ(storage.GetDiscountType("C2", 0, -1.0, "TQBR"), 0);
  EXPECT_EQ(storage.GetDiscountType("C1", 0, -1.0, "TQBR"), 2);

  // Inheriting again: the key goes, and the client takes the firm's value.
  ASSERT_EQ(editor.SetUseDiscountsTypeToClientSettings("C2", -2), ZDL_OK);
  int value = 0;
  ASSERT_EQ(editor.GetUseDiscountsTypeFromClientSettings("C2", &value), ZDL_OK);
  EXPECT_EQ(value, -2);
  EXPECT_EQ(storage.GetDiscountType("C2", 0, -1.0, "TQBR"), 3);
}

TEST(OwnerParameterEditorTest, TheSavedSectionsHoldTheEditsAndReloadToThem) {
  TInfoStorage storage(kText, 2, false);
  TOwnerParameterEditor editor(storage.Hub());
  ASSERT_EQ(storage.GetDiscountType("C1", 0, -1.0, "TQBR"), 1);  // parses the template
  ASSERT_EQ(editor.SetUseDiscountsTypeToMarginTemplate("QUAL", -1), ZDL_OK);
  ASSERT_EQ(editor.SetRepoBrokerRateToClientSettings("C1", 0.125), ZDL_OK);
  const std::string saved = ztest::SavedText(storage.Hub());
  EXPECT_NE(saved.find("[clQUAL_Margin_Template]\r\nClients=C1,C2\r\nUseDiscountsType=-1\r\n"), std::string::npos)
      << saved;
  EXPECT_NE(saved.find("RepoBroker=0.125\r\n"), std::string::npos) << saved;
  TInfoStorage reloaded(saved.c_str(), 2, false);
  TOwnerParameterEditor again(reloaded.Hub());
  int type = 0;
  ASSERT_EQ(again.GetUseDiscountsTypeFromMarginTemplate("QUAL", &type), ZDL_OK);
  EXPECT_EQ(type, -1);
  double rate = 0;
  ASSERT_EQ(again.GetRepoBrokerRateFromClientSettings("C1", &rate), ZDL_OK);
  EXPECT_EQ(rate, 0.125);
  EXPECT_EQ(ztest::SavedText(reloaded.Hub()), saved);
}

TEST(OwnerParameterEditorTest, ChecksComeInOrderAndARefusalChangesNothing) {
  TInfoStorage storage(kText, 2, false);
  TOwnerParameterEditor editor(storage.Hub());
  int value = 0;
  EXPECT_EQ(editor.GetUseDiscountsTypeFromClientSettings(nullptr, &value), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.GetUseDiscountsTypeFromClientSettings("", &value), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.GetUseDiscountsTypeFromClientSettings("ABCDEFGHIJKLM", &value), ZDL_CLIENT_CODE_TOO_LONG);
  EXPECT_EQ(editor.GetUseDiscountsTypeFromClientSettings("ABCDEFGHIJKL", &value), ZDL_CLIENT_SETTINGS_NOT_EXIST);
  EXPECT_EQ(editor.GetUseDiscountsTypeFromClientSettings("C2", nullptr), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.GetUseDiscountsTypeFromMarginTemplate("ABCDEFGHIJKLM", &value), ZDL_TEMPLATE_CODE_TOO_LONG);
  EXPECT_EQ(editor.SetUseDiscountsTypeToMarginTemplate("NONE", 1), ZDL_TEMPLATE_NOT_EXIST);
  // The owner is checked before the value.
  EXPECT_EQ(editor.SetUseDiscountsTypeToMarginTemplate("NONE", -7), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(editor.SetUseDiscountsTypeToMarginTemplate("QUAL", -3), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetMDPlusDefaultNettingTypeToMarginTemplate("QUAL", 3), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetCommissionScaleJumpToClientSettings("C1", -1), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetRepoBrokerRateToClientSettings("C1", -0.5), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetRepoBrokerRateToClientSettings("C9", 0.5), ZDL_CLIENT_SETTINGS_NOT_EXIST);
  double rate = 0;
  EXPECT_EQ(editor.GetRepoBrokerRateFromClientSettings("C1", &rate), ZDL_NOT_FOUND);
  ASSERT_EQ(editor.GetUseDiscountsTypeFromMarginTemplate("QUAL", &value), ZDL_OK);
  EXPECT_EQ(value, 1);
  TInfoStorage untouched(kText, 2, false);
  EXPECT_EQ(ztest::SavedText(storage.Hub()), ztest::SavedText(untouched.Hub()));
}

TEST(OwnerParameterEditorTest, AListEditOfAParsedClientIsWhatTheSaveWrites) {
  TInfoStorage storage("[clC1]\nAllowedPartners=P1\nMaxOrderQuantity_TQBR=10\n", 2, false);
  // Parses the client's section into the security restrictions cache.
  (void)storage.IsSecurityAllowed("C1", "TQBR", "SBER", -1.0);
  ASSERT_NE(storage.Hub().GetSecurityRestrictionsCache()->FindParsedSection("clC1"), nullptr);
  ZDL_ArrayStrings* partners = storage.Hub().GetMemory().ConstructArray<ZDL_ArrayStrings>(2);
  partners->items[0] = ZDLPlain::NewText("P2");
  partners->items[1] = ZDLPlain::NewText("P3");
  ASSERT_EQ(TOwnerParameterEditor(storage.Hub()).SetAllowedPartnersToClientSettings("C1", partners), ZDL_OK);
  void* block = partners;
  EXPECT_EQ(storage.Hub().GetMemory().FreeMemory(&block), 0);
  EXPECT_EQ(storage.Hub().GetSecurityRestrictionsCache()->FindParsedSection("clC1"), nullptr);
  const std::string saved = ztest::SavedText(storage.Hub());
  EXPECT_NE(saved.find("AllowedPartners=P2,P3\r\n"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("P1"), std::string::npos) << saved;
}

}  // namespace
