// One section written by GetRowFromSettings when no cache has parsed it, and
// the order of the save's steps as seen in the text before normalising.
#include <gtest/gtest.h>

#include <string>

#include "core/TGlobalParameterEditor.h"
#include "core/TStorageHub.h"
#include "core/SavedText.h"

namespace {

using DL::TIniParser;
using DL::TStorageHub;

DL::TIniSectionsMap::const_iterator Section(const TStorageHub& hub, const std::string& name) {
  auto it = hub.GetSections().find(name);
  EXPECT_NE(it, hub.GetSections().end()) << name;
  return it;
}

TEST(HubRowFromSettingsTest, AClientSectionWithoutParsedObjectIsCopiedAsItStands) {
  TStorageHub hub("[clC0001]\nMaxOrderQuantity_TQBR=10\nNote=kept\n", 2);
  DL::TSettingToStrSource parsed;
  parsed.kind = TIniParser::SectClientTemplate;
  EXPECT_EQ(hub.GetRowFromSettings(Section(hub, "clC0001"), false, parsed),
            "[clC0001]\nMaxOrderQuantity_TQBR=10\nNote=kept\n");
}

TEST(HubRowFromSettingsTest, ATemplateSectionStartsWithItsClientsLine) {
  TStorageHub hub("[clRETAIL_Client_Template]\nMaxOrderQuantity_TQBR=5\nClients=C1,C2\n", 2);
  DL::TSettingToStrSource parsed;
  parsed.kind = TIniParser::SectClientTemplate;
  EXPECT_EQ(hub.GetRowFromSettings(Section(hub, "clRETAIL_Client_Template"), true, parsed),
            "[clRETAIL_Client_Template]\nClients=C1,C2\nMaxOrderQuantity_TQBR=5\n");
}

TEST(HubRowFromSettingsTest, ATemplateWithoutClientsGetsAnEmptyClientsLine) {
  TStorageHub hub("[clEMPTY_Restriction_Template]\nQualifiedInvestors=1\n", 2);
  DL::TSettingToStrSource parsed;
  parsed.kind = TIniParser::SectRestrictionTemplate;
  EXPECT_EQ(hub.GetRowFromSettings(Section(hub, "clEMPTY_Restriction_Template"), true, parsed),
            "[clEMPTY_Restriction_Template]\nClients=\nQualifiedInvestors=1\n");
}

TEST(HubSaveStepsTest, EverySectionOfTheTextIsWrittenOnce) {
  const std::string text =
      "[General]\nCALCVARMARGIN=1\n\n[clC0001]\nX=1\n\n[clT_Client_Template]\nClients=C0001\n\n"
      "[clC0001_Margin]\nUseDiscountsType=1\n\n[clR_Restriction_Template]\nClients=C0001\n\n"
      "[LimitAllowedSecurity]\n<ALL>=1\n\n[Currency]\nUSD=1\n\n[DeskNotes]\nA=b\n";
  TStorageHub hub(text.c_str(), 2);
  const std::string saved = ztest::SavedText(hub);
  for (const char* header : {"[General]", "[clC0001]", "[clT_Client_Template]", "[clC0001_Margin]",
                             "[clR_Restriction_Template]", "[LimitAllowedSecurity]", "[Currency]", "[DeskNotes]"}) {
    const std::size_t first = saved.find(header);
    ASSERT_NE(first, std::string::npos) << header;
    EXPECT_EQ(saved.find(header, first + 1), std::string::npos) << header;
  }
}

}  // namespace

namespace {

TEST(HubSaveModelTest, AFlagSetInTheModelStandsInTheTextAndTheLoadedValueDoesNotReturn) {
  TStorageHub hub("[General]\nCalcNegDeal=1\nCALCVARMARGIN=1\n", 2);
  ASSERT_TRUE(hub.General().GetCalcNegDeal());
  ASSERT_EQ(DL::TGlobalParameterEditor(hub).SetCalcNegDealToGlobal(false), 0);
  const std::string saved = ztest::SavedText(hub);
  EXPECT_EQ(saved.find("CalcNegDeal"), std::string::npos) << saved;
  TStorageHub reloaded(saved.c_str(), 2);
  EXPECT_FALSE(reloaded.General().GetCalcNegDeal());
  EXPECT_TRUE(reloaded.General().GetCalcVarMargin());
}

TEST(HubSaveModelTest, AFlagSetOnAFirmWithoutItIsWritten) {
  TStorageHub hub("", 2);
  ASSERT_EQ(DL::TGlobalParameterEditor(hub).SetCalcNegDealToGlobal(true), 0);
  EXPECT_EQ(ztest::SavedText(hub), "[General]\r\nCalcNegDeal=1\r\n\r\n");
}

TEST(HubSaveModelTest, SetFlagParamRefusesACodeOfAnotherKind) {
  DL::TGeneralSettings general;
  EXPECT_EQ(general.SetFlagParam(DL::gpCreditLag, true), 3);
  EXPECT_EQ(general.GetCreditLag(), 1);
  EXPECT_EQ(general.SetFlagParam(DL::gpCount, true), 3);
  EXPECT_EQ(general.SetFlagParam(DL::gpCalcNegDeal, true), 0);
  EXPECT_TRUE(general.GetCalcNegDeal());
}

}  // namespace
