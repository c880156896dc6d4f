// Client lists of templates and template removals, on settings texts loaded
// into a storage.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/ResultCodes.h"
#include "core/TInfoStorage.h"
#include "core/TTemplateClientsEditor.h"

namespace {

using DL::TIniParser;
using DL::TInfoStorage;
using DL::TTemplateClientsEditor;

const char* const kTemplates =
    "[General]\n"
    "UsePGO=1\n"
    "[clRETAIL_Client_Template]\n"
    "Clients=C01,C02,ABCDEFGHIJKLMN\n"
    "[clQUAL_Margin_Template]\n"
    "Clients=M01\n"
    "[clQUAL_Margin_Template_LimitKind_2]\n"
    "Clients=M01\n"
    "[clSTRICT_Restriction_Template]\n"
    "Clients=C01\n"
    "Soft_SecurityRestricted_TQBR=SBER\n";

// The "Clients" value of a section as the map holds it; "-" when the
// section is missing.
std::string ClientsLine(TInfoStorage& storage, const std::string& section) {
  const TIniParser::TKeyMap* keys = storage.Hub().GetOldParserPointer()->FindIniSectionRef(section);
  if (keys == nullptr) return "-";
  const auto it = keys->find("Clients");
  return it == keys->end() ? "" : it->second;
}

TEST(TemplateClientsEditor, AMarginTemplateWritesItsListToEveryLimitKind) {
  TInfoStorage storage(kTemplates, 2, false);
  TTemplateClientsEditor editor(storage.Hub());
  ASSERT_EQ(editor.AddClientToMarginTemplate("QUAL", "M00"), ZDL_OK);
  EXPECT_EQ(ClientsLine(storage, "clQUAL_Margin_Template"), "M00,M01");
  EXPECT_EQ(ClientsLine(storage, "clQUAL_Margin_Template_LimitKind_2"), "M00,M01");
}

TEST(TemplateClientsEditor, EntriesTooLongAreDroppedOnTheWay) {
  TInfoStorage storage(kTemplates, 2, false);
  TTemplateClientsEditor editor(storage.Hub());
  ASSERT_EQ(editor.AddClientToClientTemplate("RETAIL", "C03"), ZDL_OK);
  EXPECT_EQ(ClientsLine(storage, "clRETAIL_Client_Template"), "C01,C02,C03");
}

TEST(TemplateClientsEditor, UnknownKindsAndAMissingCommissionScaleTemplateAnswer15) {
  TInfoStorage storage(kTemplates, 2, false);
  TTemplateClientsEditor editor(storage.Hub());
  EXPECT_EQ(editor.AddItemToTemplateClients(TIniParser::TemplateCommissionScale, "NOSCALE", "C01"),
            ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(ClientsLine(storage, "clNOSCALE_CommissionScale_Template"), "-");
  EXPECT_EQ(editor.AddItemToTemplateClients(7, "RETAIL", "C01"), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(editor.AddItemToTemplateClients(-1, "RETAIL", "C01"), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(editor.MoveItemBetweenTemplatesClients(7, "RETAIL", "OTHER", "C01"), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(ClientsLine(storage, "clRETAIL_Client_Template"), "C01,C02,ABCDEFGHIJKLMN");
}

TEST(TemplateClientsEditor, AClientTemplateAddsItsCommissionScaleTwin) {
  TInfoStorage storage(kTemplates, 2, false);
  TTemplateClientsEditor editor(storage.Hub());
  ASSERT_EQ(editor.RemoveClientFromClientTemplate("RETAIL", "C02"), ZDL_OK);
  EXPECT_EQ(ClientsLine(storage, "clRETAIL_Client_Template"), "C01");
  EXPECT_EQ(ClientsLine(storage, "clRETAIL_CommissionScale_Template"), "C01");
}

TEST(TemplateClientsEditor, RemovingATemplateTakesItsLimitKinds) {
  TInfoStorage storage(kTemplates, 2, false);
  TTemplateClientsEditor editor(storage.Hub());
  ASSERT_EQ(editor.RemoveMarginTemplate("QUAL"), ZDL_OK);
  EXPECT_EQ(ClientsLine(storage, "clQUAL_Margin_Template"), "-");
  EXPECT_EQ(ClientsLine(storage, "clQUAL_Margin_Template_LimitKind_2"), "-");
  EXPECT_EQ(editor.RemoveMarginTemplate("QUAL"), ZDL_TEMPLATE_NOT_EXIST);
}

TEST(TemplateClientsEditor, QueriesAfterARemovedRestrictionTemplateFallBackToTheFirm) {
  TInfoStorage storage(kTemplates, 2, false);
  TTemplateClientsEditor editor(storage.Hub());
  int hit = -1;
  // The client's template is resolved and remembered by the query...
  ASSERT_EQ(storage.IsSoftSecurityRestricted(&hit, "C01", -1, "TQBR", "SBER", 0, DL::sdBuy), ZDL_OK);
  EXPECT_EQ(hit, 1);
  // ...and forgotten with the template, whose object is gone.
  ASSERT_EQ(editor.RemoveRestrictionTemplate("STRICT"), ZDL_OK);
  EXPECT_EQ(ClientsLine(storage, "clSTRICT_Restriction_Template"), "-");
  ASSERT_EQ(storage.IsSoftSecurityRestricted(&hit, "C01", -1, "TQBR", "SBER", 0, DL::sdBuy), ZDL_OK);
  EXPECT_EQ(hit, 0);
  EXPECT_EQ(editor.RemoveRestrictionTemplate("STRICT"), ZDL_NOT_FOUND);
  EXPECT_EQ(editor.RemoveRestrictionTemplate(""), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.RemoveRestrictionTemplate(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(TemplateClientsEditor, QueriesAfterARemovedClientTemplateStillAnswer) {
  TInfoStorage storage(kTemplates, 2, false);
  TTemplateClientsEditor editor(storage.Hub());
  EXPECT_FALSE(storage.IsSecurityRestricted("C01", -1, "TQBR", "SBER", 0));
  ASSERT_EQ(editor.RemoveClientTemplate("RETAIL"), ZDL_OK);
  EXPECT_EQ(ClientsLine(storage, "clRETAIL_Client_Template"), "-");
  EXPECT_FALSE(storage.IsSecurityRestricted("C01", -1, "TQBR", "SBER", 0));
  EXPECT_TRUE(storage.IsSecurityAllowed("C02", "TQBR", "SBER", -1));
}

}  // namespace
