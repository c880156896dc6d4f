// A firm's settings survive a save and a reload: the saved text is canonical
// (saving it again gives the same bytes) and every setting the hub holds is
// the same before and after.
#include <gtest/gtest.h>

#include <tuple>

#include <filesystem>
#include <map>
#include <random>
#include <set>

#include "base/TextHelpers.h"
#include "core/SavedText.h"
#include "core/TGlobalParameterEditor.h"
#include "core/TStorageHub.h"

namespace {

using DL::EGeneralParam;
using DL::EGeneralParamKind;
using DL::TStorageHub;

std::string Save(TStorageHub& hub) { return ztest::SavedText(hub); }

// Every general parameter of the two hubs, compared by its kind.
void ExpectSameGeneralSettings(const TStorageHub& a, const TStorageHub& b) {
  for (const DL::TGeneralParamInfo& info : DL::kGeneralParamInfos) {
    const EGeneralParam code = info.code;
    switch (info.kind) {
      case EGeneralParamKind::Flag: {
        bool x = false, y = false;
        ASSERT_EQ(a.General().GetFlagParam(code, x), 0);
        ASSERT_EQ(b.General().GetFlagParam(code, y), 0);
        EXPECT_EQ(x, y) << info.key;
        break;
      }
      case EGeneralParamKind::Int: {
        int x = 0, y = 0;
        ASSERT_EQ(a.General().GetIntParam(code, x), 0);
        ASSERT_EQ(b.General().GetIntParam(code, y), 0);
        EXPECT_EQ(x, y) << info.key;
        break;
      }
      case EGeneralParamKind::Number: {
        double x = 0, y = 0;
        ASSERT_EQ(a.General().GetNumberParam(code, x), 0);
        ASSERT_EQ(b.General().GetNumberParam(code, y), 0);
        EXPECT_EQ(x, y) << info.key;
        break;
      }
      case EGeneralParamKind::Text: {
        std::string x, y;
        ASSERT_EQ(a.General().GetTextParam(code, x), 0);
        ASSERT_EQ(b.General().GetTextParam(code, y), 0);
        EXPECT_EQ(x, y) << info.key;
        break;
      }
      case EGeneralParamKind::List:
      case EGeneralParamKind::UniqueList:
      case EGeneralParamKind::UpperList: {
        const DL::TClassList* x = nullptr;
        const DL::TClassList* y = nullptr;
        ASSERT_EQ(a.General().GetListParam(code, x), 0);
        ASSERT_EQ(b.General().GetListParam(code, y), 0);
        EXPECT_EQ(x->Items(), y->Items()) << info.key;
        break;
      }
    }
  }
  EXPECT_EQ(a.General().GetMainCurrency(), b.General().GetMainCurrency());
  EXPECT_EQ(a.General().GetRublesEquivalents(), b.General().GetRublesEquivalents());
  EXPECT_EQ(a.General().GetCreditTypesByClient(), b.General().GetCreditTypesByClient());
  EXPECT_EQ(a.General().GetCreditTypesByMask(), b.General().GetCreditTypesByMask());
}

// Sections that the hub writes from its own fields: compared through those
// fields (ExpectSameHubSettings), since a setting at its default is left out
// of the text.
bool IsWrittenFromHubFields(const std::string& name) {
  static const char* const kNames[] = {"General", "GlobalProhibedTrdAcc", "ProhibitOrders", "AddZadolgBoards",
                                       "AddMultiCurrency", "CommissionCurrency", "ComplexFIApprovedClients",
                                       "ComplexInstruments", "GroupsOfInstrumentsAndClasses",
                                       // written from the global security restrictions
                                       "RestrictSecurity", "RestrictOpenSecurity", "PriceLimit", "SecPriceLimit",
                                       "Soft_PriceLimit", "Soft_SecPriceLimit", "AllowedPartnersAndSettleCodes",
                                       "ProhibitedPartnersAndSettleCodes", "Soft_ProhibitedPartnersAndSettleCodes",
                                       // written from the parsed firm scale
                                       "CommissionScale"};
  for (const char* n : kNames)
    if (DL::IsSameSettingsName(name, n)) return true;
  std::string plan, group;  // a tariff plan's scale, written from its parsed home
  return DL::TCacheOfTariffPlansWithCommRates::SplitSectionName(name, plan, group);
}

// A commission scale as comparable values.
auto ScaleValues(const DL::TCommScale& s) {
  std::vector<std::pair<double, double>> rows;
  for (const DL::TScaleRate& r : s.rates) rows.emplace_back(r.turnover, r.rate);
  return std::make_tuple(s.minValue, s.maxValue, s.minVolume, s.tradeCommission, s.considerRepoTerm, rows);
}

bool IsParsedByGlobalGeneral(const std::string& key) {
  for (const char* n : {"CheckForAllLimitKinds", "CheckUser", "ExtendedSubClient", "SubBrokerGenerateClient"})
    if (DL::IsSameSettingsName(key, n)) return true;
  return false;
}

// Every other section comes back as it was, but for the "Clients" line that
// a template section is always written with.
void ExpectSameRawSections(const TStorageHub& a, const TStorageHub& b) {
  auto comparable = [](const TStorageHub& hub) {
    DL::TIniSectionsMap out;
    for (const auto& [name, keys] : hub.GetSections()) {
      if (IsWrittenFromHubFields(name) && !DL::IsSameSettingsName(name, "General")) continue;
      DL::TIniKeyMap copy = keys;
      if (DL::IsSameSettingsName(name, "General")) {
        // Only the lines that no field holds stay raw.
        for (auto it = copy.begin(); it != copy.end();) {
          DL::EGeneralParam code;
          const bool known = DL::TGeneralSettings::FindGeneralParam("General", it->first, code) ||
                             hub.GetUniversalParser().GetParamNumInSect(DL::iscGeneral, it->first) >= 0 ||
                             DL::TUniversalParser::ExcludedGeneralSettings().count(DL::StrUpper(it->first)) != 0 ||
                             IsParsedByGlobalGeneral(it->first);
          it = known ? copy.erase(it) : std::next(it);
        }
      }
      auto clients = copy.find("Clients");
      if (clients != copy.end() && clients->second.empty()) copy.erase(clients);
      out.emplace(name, copy);
    }
    return out;
  };
  EXPECT_EQ(comparable(a), comparable(b));
}

// The typed parameters and the global sections the hub parses.
void ExpectSameHubSettings(const TStorageHub& a, const TStorageHub& b) {
  for (int num = 0; num < 9; ++num) {
    int x = -7, y = -7;
    char c = 0, d = 0;
    EXPECT_EQ(a.GetUniversalParser().GetIntParamFromGlobalSection(x, DL::iscGeneral, num),
              b.GetUniversalParser().GetIntParamFromGlobalSection(y, DL::iscGeneral, num));
    EXPECT_EQ(x, y) << num;
    EXPECT_EQ(a.GetUniversalParser().GetCharParamFromGlobalSection(c, DL::iscGeneral, num),
              b.GetUniversalParser().GetCharParamFromGlobalSection(d, DL::iscGeneral, num));
    EXPECT_EQ(c, d) << num;
  }
  EXPECT_EQ(a.GetProhibitOrders().clients, b.GetProhibitOrders().clients);
  EXPECT_EQ(a.GetProhibitOrders().ignoreClasses.Items(), b.GetProhibitOrders().ignoreClasses.Items());
  EXPECT_EQ(a.GetProhibitOrders().managerCanClosePos, b.GetProhibitOrders().managerCanClosePos);
  EXPECT_EQ(a.GetGlobalProhibedTrdAcc().Items(), b.GetGlobalProhibedTrdAcc().Items());
  auto lists = [](const TStorageHub::TCodeToList& m) {
    std::map<std::string, std::vector<std::string>> out;
    for (const auto& [code, list] : m) out[code] = list.Items();
    return out;
  };
  EXPECT_EQ(lists(a.GetAddZadolgBoards()), lists(b.GetAddZadolgBoards()));
  EXPECT_EQ(lists(a.GetAddMultiCurrency()), lists(b.GetAddMultiCurrency()));
  EXPECT_EQ(lists(a.GetCommissionCurrency()), lists(b.GetCommissionCurrency()));
  auto groups = [](const TStorageHub::TInstrumentGroups& m) {
    std::map<std::string, std::pair<std::set<std::string>, std::set<std::string>>> out;
    for (const auto& [name, group] : m) out[name] = {group.classCodes, group.instrumentCodes};
    return out;
  };
  EXPECT_EQ(a.GetComplexFIApprovedClients(), b.GetComplexFIApprovedClients());
  EXPECT_EQ(groups(a.GetComplexInstruments()), groups(b.GetComplexInstruments()));
  EXPECT_EQ(groups(a.GetGroupsOfInstrumentsAndClasses()), groups(b.GetGroupsOfInstrumentsAndClasses()));
  EXPECT_EQ(a.GetCheckForAllLimitKinds(), b.GetCheckForAllLimitKinds());
  EXPECT_EQ(a.GetCheckUser(), b.GetCheckUser());
  EXPECT_EQ(a.GetExtendedSubClient(), b.GetExtendedSubClient());
  EXPECT_EQ(a.GetSubBrokerGenerateClient(), b.GetSubBrokerGenerateClient());
  ASSERT_NE(a.GetSecurityRestrictionsCache(), nullptr);
  ASSERT_NE(b.GetSecurityRestrictionsCache(), nullptr);
  EXPECT_EQ(*a.GetSecurityRestrictionsCache()->GetGlobalSettings(),
            *b.GetSecurityRestrictionsCache()->GetGlobalSettings());
  EXPECT_EQ(ScaleValues(*a.GetCommScalesCache().GlobalSettings()), ScaleValues(*b.GetCommScalesCache().GlobalSettings()));
  const auto& scalesA = a.GetTariffPlansWithCommRates().Scales();
  const auto& scalesB = b.GetTariffPlansWithCommRates().Scales();
  ASSERT_EQ(scalesA.size(), scalesB.size());
  for (auto x = scalesA.begin(), y = scalesB.begin(); x != scalesA.end(); ++x, ++y) {
    EXPECT_EQ(x->first, y->first);
    EXPECT_EQ(ScaleValues(x->second.scale), ScaleValues(y->second.scale));
  }
}

// Loads, saves, reloads and saves again; checks the fixed point and that the
// reloaded firm holds what the first one held.
void ExpectRoundTrip(const char* source, int type) {
  TStorageHub first(source, type);
  const std::string saved = Save(first);
  TStorageHub second(saved.c_str(), 2);
  EXPECT_EQ(Save(second), saved) << "a canonical text is a fixed point";
  ExpectSameRawSections(first, second);
  EXPECT_EQ(second.GetClientValues(), first.GetClientValues());
  ExpectSameGeneralSettings(first, second);
  ExpectSameHubSettings(first, second);
}

std::vector<std::string> ExampleLibraries() {
  std::vector<std::string> out;
  for (const auto& entry : std::filesystem::directory_iterator(std::string(ZDL_SOURCE_DIR) + "/examples/server/libs"))
    if (entry.path().extension() == ".ini") out.push_back(entry.path().string());
  std::sort(out.begin(), out.end());
  return out;
}

TEST(RoundTripTest, EveryExampleLibraryIsAFixedPointAfterOneSave) {
  std::vector<std::string> libraries = ExampleLibraries();
  ASSERT_GE(libraries.size(), 2u);
  for (const std::string& path : libraries) {
    SCOPED_TRACE(path);
    ExpectRoundTrip(path.c_str(), 1);
  }
}

TEST(RoundTripTest, AnEmptyFirmSavesToATextThatLoadsToAnEqualFirm) { ExpectRoundTrip("", 2); }

TEST(RoundTripTest, AGlobalSectionUnknownToTheCatalogueSurvivesUnchanged) {
  TStorageHub hub("[General]\nUSEPGO=1\n[DeskNotes]\nOwner=risk desk\nShift=2\n", 2);
  const std::string saved = Save(hub);
  EXPECT_NE(saved.find("[DeskNotes]\r\nOwner=risk desk\r\nShift=2\r\n\r\n"), std::string::npos) << saved;
}

TEST(RoundTripTest, TheSavedTextHasCanonicalLineEndsAndNoComments) {
  TStorageHub hub("; note\n[General]\nUSEPGO=1 ; on\n", 2);
  EXPECT_EQ(Save(hub), "[General]\r\nUSEPGO=1\r\n\r\n");
}

TEST(RoundTripTest, TheFirstClientValueSectionIsKept) {
  TStorageHub hub("[ClientCval]\nC1=1\n[General]\nCLIENTCVAL=1\n", 2);
  const std::string saved = Save(hub);
  EXPECT_NE(saved.find("[ClientCval]\r\nC1=1\r\n"), std::string::npos) << saved;
}

TEST(RoundTripTest, ASecondClientValueSectionStaysAnOrdinarySection) {
  const char* text = "[ClientCval]\nC1=1\n[General]\nA=1\n[ClientCval]\nC2=2\n";
  TStorageHub hub(text, 2);
  ASSERT_EQ(hub.GetClientValues().count("C1"), 1u);
  ASSERT_EQ(hub.GetSections().at("ClientCval").count("C2"), 1u);
  const std::string saved = Save(hub);
  EXPECT_EQ(saved, "[General]\r\nA=1\r\n\r\n[ClientCval]\r\nC1=1\r\n\r\n[ClientCval]\r\nC2=2\r\n\r\n");
  ExpectRoundTrip(text, 2);
}

TEST(RoundTripTest, AnEditOfARawParameterReachesTheSavedText) {
  TStorageHub hub("[General]\nCALCVARMARGIN=1\n", 2);
  ASSERT_EQ(DL::TGlobalParameterEditor(hub).SetUsePGOToGlobal(1), 0);
  EXPECT_EQ(Save(hub), "[General]\r\nCALCVARMARGIN=1\r\nUsePGO=1\r\n\r\n");
}

TEST(RoundTripTest, AnEditedTypedValueStandsInTheTextAndTheValueReadAtLoadDoesNotReturn) {
  TStorageHub hub("[General]\nUseDiscountsType=2\nUSEPGO=1\n", 2);
  ASSERT_EQ(hub.GetUniversalParser().SetIntParamToGlobalSection(0, DL::iscGeneral, 4), 0);
  const std::string saved = Save(hub);
  EXPECT_EQ(saved, "[General]\r\nUSEPGO=1\r\nUseDiscountsType=0\r\n\r\n");
  TStorageHub reloaded(saved.c_str(), 2);
  int value = -1;
  ASSERT_EQ(reloaded.GetUniversalParser().GetIntParamFromGlobalSection(value, DL::iscGeneral, 4), 0);
  EXPECT_EQ(value, 0);
  ExpectRoundTrip(saved.c_str(), 2);
}

TEST(RoundTripTest, ParsedGlobalSectionsComeBackEqual) {
  ExpectRoundTrip(
      "[ProhibitOrders]\nClients=C2,C1\nIgnoreClasses=TQBR\nManagerCanClosePos=1\n"
      "[GlobalProhibedTrdAcc]\nGlobalProhibedTrdAcc=L01,L02\n[AddMultiCurrency]\nC1=USD,EUR\n"
      "[CommissionCurrency]\nTQBR=SUR\n[AddZadolgBoards]\nL01=TQBR\n"
      "[General]\nCheckUser=1\nUseCorrelation=0\nAddSubClientDelimiter=/\nThresMarginCoeff=50\n",
      2);
}

TEST(RoundTripTest, ComplexInstrumentSectionsComeBackEqual) {
  ExpectRoundTrip(
      "[ComplexFIApprovedClients]\nClients=C2,C1,ABCDEFGHIJKLM\nNote=x\n"
      "[ComplexInstruments]\nStructured=_ClassList_TQCB,TQOB_Instruments_RU000A0JX0J2\nOptions=_ClassList_SPBOPT\n"
      "[GroupsOfInstrumentsAndClasses]\nBlue=_Instruments_SBER,GAZP\nBad=TQBR\n",
      2);
}

// Texts of many shapes: section families of every group, repeated headers and
// keys in changing case, comments, blank lines and both line ends.
std::string GeneratedText(std::mt19937& random) {
  static const std::vector<std::string> kSections = {
      "General", "Commission", "clC1", "clC2", "clC1_Margin", "clC1_Margin_LimitKind_2", "cl<GENERAL>_Margin",
      "clT_Client_Template", "clM_Margin_Template", "clR_Restriction_Template", "PriceLimit", "Soft_PriceLimit",
      "ClientLag", "ClientCval", "u12", "u-1", "PreTrade_3", "PreTrade_12", "BoardTag", "Unknown_Section",
      "bdTQBR_CommissionScale", "SubBrokers", "BaseAssets_Template_X", "PortfolioRiskConfig_A",
      "ComplexFIApprovedClients", "ComplexInstruments", "GroupsOfInstrumentsAndClasses"};
  static const std::vector<std::string> kKeys = {"USEPGO", "ThresMarginCoeff", "Clients", "TQBR", "SBER",
                                                 "MaxOrderQuantity_TQBR", "CREDITLAG", "X", "usepgo", "0"};
  std::uniform_int_distribution<size_t> section(0, kSections.size() - 1), key(0, kKeys.size() - 1);
  std::uniform_int_distribution<int> lines(0, 6), value(0, 999), coin(0, 3);
  std::string text;
  for (int s = 0; s < 12; ++s) {
    const std::string& name = kSections[section(random)];
    // A group section gets lists in its values, and sometimes a bare number.
    const bool groups = DL::IsSameSettingsName(name, "ComplexInstruments") ||
                        DL::IsSameSettingsName(name, "GroupsOfInstrumentsAndClasses");
    text += "[" + name + "]" + (coin(random) == 0 ? " ; comment\r\n" : "\n");
    for (int l = lines(random); l > 0; --l) {
      if (coin(random) == 0) text += "\n";
      std::string item = std::to_string(value(random));
      if (groups && coin(random) != 0)
        item = (coin(random) == 0 ? "_instruments_S" : "_ClassList_C" + item + ",TQBR_Instruments_S") + item;
      text += kKeys[key(random)] + " = " + item + (coin(random) == 0 ? "\r\n" : "\n");
    }
  }
  return text;
}

TEST(RoundTripTest, GeneratedTextsAreFixedPointsAfterOneSave) {
  std::mt19937 random(20261121);
  for (int i = 0; i < 200; ++i) {
    std::string text = GeneratedText(random);
    SCOPED_TRACE(text);
    ExpectRoundTrip(text.c_str(), 2);
    if (HasFailure()) break;
  }
}

}  // namespace
