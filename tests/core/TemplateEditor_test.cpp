// Reads of template client lists and of the whole library text, on settings
// texts loaded into a storage.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/ResultCodes.h"
#include "core/TInfoStorage.h"
#include "core/TGlobalParameterEditor.h"
#include "core/TTemplateEditor.h"

namespace {

using DL::TInfoStorage;
using DL::TTemplateEditor;

const char* const kTemplates =
    "[General]\n"
    "UsePGO=1\n"
    "[clRETAIL_Client_Template]\n"
    "Clients=C01, C02 ,C03\n"
    "[clEMPTY_Client_Template]\n"
    "Clients=\n"
    "[clQUAL_Margin_Template]\n"
    "Clients=M01\n"
    "[clQUAL_Margin_Template_LimitKind_2]\n"
    "Clients=M01\n"
    "[BaseAssets_Template_BA1]\n"
    "Clients=B01,B02\n"
    "SI=SiZ6:1\n";

std::vector<std::string> Items(const ZDL_ArrayStrings* a) {
  std::vector<std::string> out;
  for (uint64_t i = 0; i < a->count; ++i) out.emplace_back(a->items[i]);
  return out;
}

TEST(TemplateEditor, ClientsOfAClientTemplateComeInListOrderTrimmed) {
  TInfoStorage storage(kTemplates, 2, false);
  ZDL_ArrayStrings* clients = nullptr;
  ASSERT_EQ(storage.GetClientsListOfClientTemplate("RETAIL", &clients), ZDL_OK);
  ASSERT_NE(clients, nullptr);
  EXPECT_EQ(Items(clients), (std::vector<std::string>{"C01", "C02", "C03"}));
  // The array belongs to the firm's memory until given back.
  size_t before = storage.Hub().GetMemory().Outstanding();
  EXPECT_EQ(storage.Hub().GetMemory().FreeMemory(clients), 0);
  EXPECT_EQ(storage.Hub().GetMemory().Outstanding(), before - 1);
}

TEST(TemplateEditor, AnEmptyListGivesAnArrayOfNoItems) {
  TInfoStorage storage(kTemplates, 2, false);
  ZDL_ArrayStrings* clients = nullptr;
  ASSERT_EQ(storage.GetClientsListOfClientTemplate("EMPTY", &clients), ZDL_OK);
  ASSERT_NE(clients, nullptr);
  EXPECT_EQ(clients->count, 0u);
}

TEST(TemplateEditor, EachKindReadsItsOwnSection) {
  TInfoStorage storage(kTemplates, 2, false);
  ZDL_ArrayStrings* clients = nullptr;
  ASSERT_EQ(storage.GetClientsListOfMarginTemplate("QUAL", &clients), ZDL_OK);
  EXPECT_EQ(Items(clients), (std::vector<std::string>{"M01"}));
  ASSERT_EQ(storage.GetClientsListFromBaseAssetsTemplate("BA1", &clients), ZDL_OK);
  EXPECT_EQ(Items(clients), (std::vector<std::string>{"B01", "B02"}));
  // A client template of that code does not exist: the kinds do not mix.
  EXPECT_EQ(storage.GetClientsListOfClientTemplate("QUAL", &clients), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(storage.GetClientsListOfMarginTemplate("RETAIL", &clients), ZDL_TEMPLATE_NOT_EXIST);
}

TEST(TemplateEditor, BadInputIsRefusedAndHandsOutNothing) {
  TInfoStorage storage(kTemplates, 2, false);
  size_t before = storage.Hub().GetMemory().Outstanding();
  ZDL_ArrayStrings* clients = nullptr;
  EXPECT_EQ(storage.GetClientsListOfClientTemplate(nullptr, &clients), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.GetClientsListOfClientTemplate("", &clients), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.GetClientsListOfClientTemplate("RETAIL", nullptr), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.GetClientsListOfClientTemplate("NOSUCH", &clients), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(storage.GetClientsListOfClientTemplate("ABCDEFGHIJKLMNOPQRSTUVWXYZ", &clients), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(clients, nullptr);
  EXPECT_EQ(storage.Hub().GetMemory().Outstanding(), before);
}

TEST(TemplateEditor, TheFullTextIsTheSavedTextAndSeesEdits) {
  TInfoStorage storage(kTemplates, 2, false);
  char* full = nullptr;
  ASSERT_EQ(storage.GetFullDealerLibrarySettings(&full), ZDL_OK);
  ASSERT_NE(full, nullptr);
  char* saved = nullptr;
  ASSERT_EQ(storage.Hub().SaveSettingsToMemory(&saved), ZDL_OK);
  EXPECT_STREQ(full, saved);
  std::string text = full;
  EXPECT_NE(text.find("[clRETAIL_Client_Template]"), std::string::npos);
  EXPECT_NE(text.find("UsePGO=1"), std::string::npos);
  // An edit of the map is in the next full text.
  ASSERT_EQ(DL::TGlobalParameterEditor(storage.Hub()).SetUsePGOToGlobal(0), ZDL_OK);
  char* after = nullptr;
  ASSERT_EQ(storage.GetFullDealerLibrarySettings(&after), ZDL_OK);
  EXPECT_EQ(std::string(after).find("UsePGO"), std::string::npos);
  EXPECT_EQ(storage.GetFullDealerLibrarySettings(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(TemplateEditor, TheTextReloadsToTheSameText) {
  TInfoStorage storage(kTemplates, 2, false);
  char* full = nullptr;
  ASSERT_EQ(storage.GetFullDealerLibrarySettings(&full), ZDL_OK);
  TInfoStorage again(full, 2, false);
  char* second = nullptr;
  ASSERT_EQ(again.GetFullDealerLibrarySettings(&second), ZDL_OK);
  EXPECT_STREQ(full, second);
  ZDL_ArrayStrings* clients = nullptr;
  ASSERT_EQ(again.GetClientsListOfClientTemplate("RETAIL", &clients), ZDL_OK);
  EXPECT_EQ(Items(clients), (std::vector<std::string>{"C01", "C02", "C03"}));
}

TEST(TemplateEditor, TheTemplatesOfAKindAreListedByCode) {
  const std::string text = std::string(kTemplates) +
                           "[clALPHA_Client_Template]\n"
                           "Clients=\n"
                           "[clRETAIL_CommissionScale_Template]\n"
                           "Clients=C01\n"
                           "[clC01]\n"
                           "[clC01_Margin]\n";
  TInfoStorage storage(text.c_str(), 2, false);
  ZDL_ArrayStrings* codes = nullptr;
  ASSERT_EQ(storage.GetListOfClientTemplates(&codes), ZDL_OK);
  EXPECT_EQ(Items(codes), (std::vector<std::string>{"ALPHA", "EMPTY", "RETAIL"}));
  // The limit-kind section of QUAL is part of QUAL.
  ASSERT_EQ(storage.GetListOfMarginTemplates(&codes), ZDL_OK);
  EXPECT_EQ(Items(codes), (std::vector<std::string>{"QUAL"}));
  ASSERT_EQ(storage.GetListOfBaseAssetsTemplates(&codes), ZDL_OK);
  EXPECT_EQ(Items(codes), (std::vector<std::string>{"BA1"}));
  EXPECT_EQ(storage.GetListOfClientTemplates(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(TemplateEditor, NoTemplatesGiveAnEmptyList) {
  TInfoStorage storage("[General]\nUsePGO=1\n", 2, false);
  ZDL_ArrayStrings* codes = nullptr;
  ASSERT_EQ(storage.GetListOfMarginTemplates(&codes), ZDL_OK);
  ASSERT_NE(codes, nullptr);
  EXPECT_EQ(codes->count, 0u);
}

std::string FullText(TInfoStorage& storage) {
  char* text = nullptr;
  EXPECT_EQ(storage.GetFullDealerLibrarySettings(&text), ZDL_OK);
  return text != nullptr ? text : "";
}

TEST(TemplateEditor, ANewTemplateIsListedEmptyAndSavedWithAnEmptyClientsList) {
  TInfoStorage storage(kTemplates, 2, false);
  ASSERT_EQ(storage.AddClientTemplate("NEWC"), ZDL_OK);
  ASSERT_EQ(storage.AddMarginTemplate("NEWM"), ZDL_OK);
  ASSERT_EQ(storage.AddBaseAssetsTemplate("NEWB"), ZDL_OK);
  ZDL_ArrayStrings* list = nullptr;
  ASSERT_EQ(storage.GetListOfClientTemplates(&list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"EMPTY", "NEWC", "RETAIL"}));
  ASSERT_EQ(storage.GetListOfMarginTemplates(&list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"NEWM", "QUAL"}));
  ASSERT_EQ(storage.GetListOfBaseAssetsTemplates(&list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"BA1", "NEWB"}));
  ASSERT_EQ(storage.GetClientsListOfMarginTemplate("NEWM", &list), ZDL_OK);
  EXPECT_EQ(list->count, 0u);

  const std::string text = FullText(storage);
  EXPECT_NE(text.find("[clNEWC_Client_Template]\r\nClients=\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("[clNEWM_Margin_Template]\r\nClients=\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("[BaseAssets_Template_NEWB]\r\nClients=\r\n"), std::string::npos) << text;
  TInfoStorage again(text.c_str(), 2, false);
  EXPECT_EQ(FullText(again), text);
  ASSERT_EQ(again.GetListOfMarginTemplates(&list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"NEWM", "QUAL"}));
}

TEST(TemplateEditor, AddingATemplateRefusesBadCodesAndChangesNothing) {
  TInfoStorage storage(kTemplates, 2, false);
  const std::string before = FullText(storage);
  EXPECT_EQ(storage.AddClientTemplate(nullptr), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.AddClientTemplate(""), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.AddClientTemplate("ABCDEFGHIJKLM"), ZDL_TEMPLATE_CODE_TOO_LONG);  // 13 characters
  EXPECT_EQ(storage.AddMarginTemplate("ABCDEFGHIJKLM"), ZDL_TEMPLATE_CODE_TOO_LONG);
  EXPECT_EQ(storage.AddClientTemplate("RETAIL"), ZDL_ALREADY_EXISTS);
  EXPECT_EQ(storage.AddClientTemplate("retail"), ZDL_ALREADY_EXISTS);  // names compare without case
  EXPECT_EQ(storage.AddMarginTemplate("QUAL"), ZDL_ALREADY_EXISTS);
  EXPECT_EQ(storage.AddBaseAssetsTemplate("BA1"), ZDL_ALREADY_EXISTS);
  EXPECT_EQ(FullText(storage), before);
  // Twelve characters are allowed; a margin code may equal a client template's.
  EXPECT_EQ(storage.AddClientTemplate("ABCDEFGHIJKL"), ZDL_OK);
  EXPECT_EQ(storage.AddMarginTemplate("RETAIL"), ZDL_OK);
}

std::vector<double> Doubles(const ZDL_ArrayDoubleNumbers* a) {
  return std::vector<double>(a->items, a->items + a->count);
}

TEST(TemplateEditor, TheLeveragesOfATemplateAreThoseTheLoadAccepts) {
  TInfoStorage storage(
      "[clLEV_Client_Template]\n"
      "Clients=\n"
      "IncludeClientsWithLeverage=2, 2.5,abc,-1,0\n"
      "[clLEV_Margin_Template]\n"
      "IncludeClientsWithLeverage=3\n"
      "[clNONE_Margin_Template]\n"
      "Clients=X1\n",
      2, false);
  ZDL_ArrayDoubleNumbers* leverages = nullptr;
  ASSERT_EQ(storage.GetIncludeClientsWithLeverageFromClientTemplate("LEV", &leverages), ZDL_OK);
  EXPECT_EQ(Doubles(leverages), (std::vector<double>{2.0, 2.5, 0.0}));
  ASSERT_EQ(storage.GetIncludeClientsWithLeverageFromMarginTemplate("LEV", &leverages), ZDL_OK);
  EXPECT_EQ(Doubles(leverages), (std::vector<double>{3.0}));
  ASSERT_EQ(storage.GetIncludeClientsWithLeverageFromMarginTemplate("NONE", &leverages), ZDL_OK);
  EXPECT_EQ(leverages->count, 0u);
  EXPECT_EQ(storage.GetIncludeClientsWithLeverageFromClientTemplate("NONE", &leverages), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(storage.GetIncludeClientsWithLeverageFromClientTemplate("", &leverages), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.GetIncludeClientsWithLeverageFromClientTemplate("LEV", nullptr), ZDL_BAD_ARGUMENT);
}

TEST(TemplateEditor, ClientsWithASectionOfTheirOwnAreListed) {
  TInfoStorage storage(
      "[clC02]\n"
      "MaxOrderQuantity_TQBR=10\n"
      "[clC01]\n"
      "MaxOrderQuantity_TQBR=20\n"
      "[clC03_Margin]\n"
      "UseDiscountsType=1\n"
      "[clRETAIL_Client_Template]\n"
      "Clients=C09\n"
      "[General]\n"
      "UsePGO=1\n",
      2, false);
  ZDL_ArrayStrings* clients = nullptr;
  ASSERT_EQ(storage.GetListOfClientSettings(&clients), ZDL_OK);
  // Margin sections and templates are not client settings sections.
  EXPECT_EQ(Items(clients), (std::vector<std::string>{"C01", "C02"}));
  EXPECT_EQ(storage.GetListOfClientSettings(nullptr), ZDL_BAD_ARGUMENT);
}

const char* const kRestrictions =
    "[clSTRICT_Restriction_Template]\n"
    "Clients=R01,R02\n"
    "IncludeClientsWithLeverage=5\n"
    "[clLOOSE_Restriction_Template]\n"
    "Clients=R03\n"
    "[clSTRICT_Client_Template]\n"
    "Clients=C01\n";

TEST(TemplateEditor, RestrictionTemplatesAreReadFromTheRestrictionsCache) {
  TInfoStorage storage(kRestrictions, 2, false);
  ZDL_ArrayStrings* list = nullptr;
  ASSERT_EQ(storage.GetListOfRestrictionTemplates(&list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"LOOSE", "STRICT"}));
  ASSERT_EQ(storage.GetClientsListOfRestrictionTemplate("STRICT", &list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"R01", "R02"}));
  ZDL_ArrayDoubleNumbers* leverages = nullptr;
  ASSERT_EQ(storage.GetIncludeClientsWithLeverageFromRestrictionTemplate("STRICT", &leverages), ZDL_OK);
  EXPECT_EQ(Doubles(leverages), (std::vector<double>{5.0}));
  ASSERT_EQ(storage.GetIncludeClientsWithLeverageFromRestrictionTemplate("LOOSE", &leverages), ZDL_OK);
  EXPECT_EQ(leverages->count, 0u);
  EXPECT_EQ(storage.GetClientsListOfRestrictionTemplate("NOSUCH", &list), ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(storage.GetClientsListOfRestrictionTemplate("", &list), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.GetIncludeClientsWithLeverageFromRestrictionTemplate("NOSUCH", &leverages),
            ZDL_TEMPLATE_NOT_EXIST);
  EXPECT_EQ(storage.GetListOfRestrictionTemplates(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(TemplateEditor, ANewRestrictionTemplateIsInTheCacheAndTheSave) {
  TInfoStorage storage(kRestrictions, 2, false);
  const std::string before = FullText(storage);
  EXPECT_EQ(storage.AddRestrictionTemplate(""), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(storage.AddRestrictionTemplate("ABCDEFGHIJKLM"), ZDL_TEMPLATE_CODE_TOO_LONG);
  EXPECT_EQ(storage.AddRestrictionTemplate("STRICT"), ZDL_ALREADY_EXISTS);
  EXPECT_EQ(FullText(storage), before);
  ASSERT_EQ(storage.AddRestrictionTemplate("NEWR"), ZDL_OK);
  ZDL_ArrayStrings* list = nullptr;
  ASSERT_EQ(storage.GetListOfRestrictionTemplates(&list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"LOOSE", "NEWR", "STRICT"}));
  ASSERT_EQ(storage.GetClientsListOfRestrictionTemplate("NEWR", &list), ZDL_OK);
  EXPECT_EQ(list->count, 0u);
  const std::string text = FullText(storage);
  EXPECT_NE(text.find("[clNEWR_Restriction_Template]\r\nClients=\r\n"), std::string::npos) << text;
  TInfoStorage again(text.c_str(), 2, false);
  ASSERT_EQ(again.GetListOfRestrictionTemplates(&list), ZDL_OK);
  EXPECT_EQ(Items(list), (std::vector<std::string>{"LOOSE", "NEWR", "STRICT"}));
  EXPECT_EQ(FullText(again), text);
}

TEST(TemplateEditor, SectionNamesOfTheKinds) {
  EXPECT_EQ(TTemplateEditor::ClientTemplateSection("A"), "clA_Client_Template");
  EXPECT_EQ(TTemplateEditor::MarginTemplateSection("A"), "clA_Margin_Template");
  EXPECT_EQ(TTemplateEditor::BaseAssetsTemplateSection("A"), "BaseAssets_Template_A");
}

}  // namespace
