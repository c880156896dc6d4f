// Global sections the hub parses into its own stores: sub-brokers, option
// order restrictions, the global board and class lists, the minimum order
// quantity in a set time, futures client code correspondences, pre-trade
// sections, client code changes and ignored checks; their writers and their
// way through a save and a reload.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "core/SavedText.h"
#include "core/TStorageHub.h"
#include "ini/TIniParser.h"

namespace {

using DL::TSettingToStrSource;
using DL::TStorageHub;
using Strings = std::vector<std::string>;

// What the global rendering function of the section writes for the hub.
std::string Render(const TStorageHub& hub, DL::EIniSectCodeNum code) {
  const std::string name(DL::IniSectName(code));
  TSettingToStrSource src;
  auto it = hub.GetSections().find(name);
  src.section = it != hub.GetSections().end() ? it->first : name;
  src.keys = it != hub.GetSections().end() ? &it->second : nullptr;
  std::string out;
  hub.SettingToStrGlobalSettings(out, code, src);
  return out;
}

std::string Save(TStorageHub& hub) { return ztest::SavedText(hub); }

// The number of times `what` stands in `text`.
std::size_t Count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t pos = text.find(what); pos != std::string::npos; pos = text.find(what, pos + 1)) ++n;
  return n;
}

// Loads, saves, loads the saved text and saves again: the second text must
// equal the first.
struct TRoundTrip {
  explicit TRoundTrip(const std::string& text) : first(text.c_str(), 2) {
    saved = Save(first);
    second = std::make_unique<TStorageHub>(saved.c_str(), 2);
    savedAgain = Save(*second);
  }
  TStorageHub first;
  std::string saved;
  std::unique_ptr<TStorageHub> second;
  std::string savedAgain;
};

// ---- Sub-brokers ----

const char* const kSubBrokers =
    "[SubBrokers]\nSB1=C1,C2,C1\nSB2=C3\nTOO_LONG_CODE_1=C4\nSB3=\n"
    "[SubBrokerGlobals]\nSB1=CalcNegDeal,CheckClient\n"
    "[SubBrokerYesGlobals]\nSB2=LimitsInLots\n"
    "[SubBrokerNoGlobals]\nSB1=UsePGO\nNote=kept\n";

TEST(HubSubBrokersTest, EachSectionFillsItsListOfTheSubBroker) {
  TStorageHub hub(kSubBrokers, 2);
  const auto& brokers = hub.GetSubBrokers();
  ASSERT_EQ(brokers.size(), 3u);  // SB1, SB2, and "Note" of the no-globals list
  EXPECT_EQ(brokers.at("SB1").clients.Items(), (Strings{"C1", "C2"}));
  EXPECT_EQ(brokers.at("SB1").globals.Items(), (Strings{"CalcNegDeal", "CheckClient"}));
  EXPECT_EQ(brokers.at("SB1").noGlobals.Items(), Strings{"UsePGO"});
  EXPECT_TRUE(brokers.at("SB1").yesGlobals.Empty());
  EXPECT_EQ(brokers.at("SB2").clients.Items(), Strings{"C3"});
  EXPECT_EQ(brokers.at("SB2").yesGlobals.Items(), Strings{"LimitsInLots"});
  EXPECT_EQ(brokers.at("Note").noGlobals.Items(), Strings{"kept"});
}

TEST(HubSubBrokersTest, ACodeLongerThan12OrAnEmptyListIsKeptRaw) {
  TStorageHub hub(kSubBrokers, 2);
  EXPECT_EQ(hub.GetSubBrokers().count("TOO_LONG_CODE_1"), 0u);
  EXPECT_EQ(hub.GetSubBrokers().count("SB3"), 0u);
  const DL::TRawLines& raw = hub.GetSubBrokerRawLines(DL::iscSubBrokers);
  ASSERT_EQ(raw.size(), 2u);
  EXPECT_EQ(raw.at("TOO_LONG_CODE_1"), "C4");
  EXPECT_EQ(raw.at("SB3"), "");
  EXPECT_TRUE(hub.GetSubBrokerRawLines(DL::iscGeneral).empty());
}

TEST(HubSubBrokersTest, NoSectionsGiveNoSubBrokers) {
  TStorageHub hub("[General]\nCheckClient=1\n", 2);
  EXPECT_TRUE(hub.GetSubBrokers().empty());
  EXPECT_EQ(Render(hub, DL::iscSubBrokers), "");
  EXPECT_EQ(Render(hub, DL::iscSubBrokerGlobals), "");
}

TEST(HubSubBrokersTest, TheFourWritersWriteTheirListsThenTheRawLines) {
  TStorageHub hub(kSubBrokers, 2);
  EXPECT_EQ(Render(hub, DL::iscSubBrokers), "[SubBrokers]\nSB1=C1,C2\nSB2=C3\nSB3=\nTOO_LONG_CODE_1=C4\n");
  EXPECT_EQ(Render(hub, DL::iscSubBrokerGlobals), "[SubBrokerGlobals]\nSB1=CalcNegDeal,CheckClient\n");
  EXPECT_EQ(Render(hub, DL::iscSubBrokerYesGlobals), "[SubBrokerYesGlobals]\nSB2=LimitsInLots\n");
  EXPECT_EQ(Render(hub, DL::iscSubBrokerNoGlobals), "[SubBrokerNoGlobals]\nNote=kept\nSB1=UsePGO\n");
}

TEST(HubSubBrokersTest, RoundTripGivesEqualStoresAndAFixedText) {
  TRoundTrip rt(kSubBrokers);
  EXPECT_EQ(rt.saved, rt.savedAgain);
  const auto& a = rt.first.GetSubBrokers();
  const auto& b = rt.second->GetSubBrokers();
  ASSERT_EQ(a.size(), b.size());
  for (const auto& [code, broker] : a) {
    ASSERT_EQ(b.count(code), 1u) << code;
    EXPECT_EQ(broker.clients.Items(), b.at(code).clients.Items());
    EXPECT_EQ(broker.globals.Items(), b.at(code).globals.Items());
    EXPECT_EQ(broker.yesGlobals.Items(), b.at(code).yesGlobals.Items());
    EXPECT_EQ(broker.noGlobals.Items(), b.at(code).noGlobals.Items());
  }
  EXPECT_EQ(rt.second->GetSubBrokerRawLines(DL::iscSubBrokers), rt.first.GetSubBrokerRawLines(DL::iscSubBrokers));
  EXPECT_NE(rt.saved.find("TOO_LONG_CODE_1=C4\r\n"), std::string::npos);
}

TEST(HubSubBrokersTest, TheSaveWritesTheListsFromTheStore) {
  TStorageHub hub("[SubBrokers]\nSB1= C1, C2,C1\n", 2);
  EXPECT_NE(Save(hub).find("[SubBrokers]\r\nSB1=C1,C2\r\n"), std::string::npos);
}

// ---- Option order restrictions ----

TEST(HubRestrictOptionOrdersTest, EachBaseAssetGetsItsRefusedOrders) {
  TStorageHub hub("[RestrictOptionOrders]\nSi=BuyCall, SELLPUT\n<ALL>=SELLCALL\n", 2);
  const auto& values = hub.GetRestrictOptionOrders().values;
  ASSERT_EQ(values.size(), 2u);
  const DL::TRestrictOptionOrders& si = values.at("Si");
  EXPECT_TRUE(si.buyCall);
  EXPECT_FALSE(si.sellCall);
  EXPECT_FALSE(si.buyPut);
  EXPECT_TRUE(si.sellPut);
  EXPECT_TRUE(values.at("<ALL>").sellCall);
  EXPECT_FALSE(values.at("<ALL>").buyCall);
  EXPECT_TRUE(hub.GetRestrictOptionOrders().raw.empty());
}

TEST(HubRestrictOptionOrdersTest, AnUnknownWordAnEmptyValueOrALongAssetKeepTheLineRaw) {
  TStorageHub hub("[RestrictOptionOrders]\nRI=BUYCALL,SOMETIMES\nBR=\nABCDEFGHIJKLM=BUYPUT\n", 2);
  EXPECT_TRUE(hub.GetRestrictOptionOrders().values.empty());
  const DL::TRawLines& raw = hub.GetRestrictOptionOrders().raw;
  ASSERT_EQ(raw.size(), 3u);
  EXPECT_EQ(raw.at("RI"), "BUYCALL,SOMETIMES");
  EXPECT_EQ(raw.at("BR"), "");
  EXPECT_EQ(raw.at("ABCDEFGHIJKLM"), "BUYPUT");
}

TEST(HubRestrictOptionOrdersTest, TheWriterUsesTheFixedWordOrder) {
  TStorageHub hub("[RestrictOptionOrders]\nSi=sellput,buycall,BUYCALL\nX=Y\n", 2);
  EXPECT_EQ(Render(hub, DL::iscRestrictOptionOrders), "[RestrictOptionOrders]\nSi=BUYCALL,SELLPUT\nX=Y\n");
}

TEST(HubRestrictOptionOrdersTest, RoundTrip) {
  TRoundTrip rt("[RestrictOptionOrders]\nSi=BUYCALL,SELLPUT\nRI=BUYPUT\nOdd=1\n");
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(rt.first.GetRestrictOptionOrders(), rt.second->GetRestrictOptionOrders());
  EXPECT_NE(rt.saved.find("Odd=1\r\n"), std::string::npos);
}

// ---- Global lists ----

TEST(HubGlobalListsTest, TheParameterNamedAsTheSectionIsTheList) {
  TStorageHub hub(
      "[BrokerQuoteBoard]\nBrokerQuoteBoard=TQBR, PSBR,TQBR\nNote=x\n"
      "[NegDealClasses]\nnegdealclasses=PSEQ\n"
      "[TransferBoard]\nTransferBoard=TQTF\n",
      2);
  EXPECT_EQ(hub.GetBrokerQuoteBoardGlob().Items(), (Strings{"TQBR", "PSBR"}));
  EXPECT_EQ(hub.GetBrokerQuoteBoardGlobRawLines().at("Note"), "x");
  EXPECT_EQ(hub.GetNegDealClassesGlob().Items(), Strings{"PSEQ"});
  EXPECT_EQ(hub.GetTransferBoardGlob().Items(), Strings{"TQTF"});
  EXPECT_TRUE(hub.GetTransferBoardGlobRawLines().empty());
}

TEST(HubGlobalListsTest, AbsentSectionsGiveEmptyListsAndNoText) {
  TStorageHub hub("", 2);
  EXPECT_TRUE(hub.GetBrokerQuoteBoardGlob().Empty());
  EXPECT_TRUE(hub.GetNegDealClassesGlob().Empty());
  EXPECT_TRUE(hub.GetTransferBoardGlob().Empty());
  EXPECT_EQ(Render(hub, DL::iscBrokerQuoteBoard), "");
  EXPECT_EQ(Render(hub, DL::iscNegDealClasses), "");
  EXPECT_EQ(Render(hub, DL::iscTransferBoard), "");
}

TEST(HubGlobalListsTest, AnEmptyListStaysRaw) {
  TStorageHub hub("[TransferBoard]\nTransferBoard= , \n", 2);
  EXPECT_TRUE(hub.GetTransferBoardGlob().Empty());
  EXPECT_EQ(hub.GetTransferBoardGlobRawLines().size(), 1u);
}

TEST(HubGlobalListsTest, WritersWriteTheListUnderTheCanonicalName) {
  TStorageHub hub(
      "[BrokerQuoteBoard]\nbrokerquoteboard=TQBR,PSBR\nNote=x\n[NegDealClasses]\nNegDealClasses=PSEQ,EQDB\n"
      "[TransferBoard]\nTransferBoard=TQTF\n",
      2);
  EXPECT_EQ(Render(hub, DL::iscBrokerQuoteBoard), "[BrokerQuoteBoard]\nBrokerQuoteBoard=TQBR,PSBR\nNote=x\n");
  EXPECT_EQ(Render(hub, DL::iscNegDealClasses), "[NegDealClasses]\nNegDealClasses=PSEQ,EQDB\n");
  EXPECT_EQ(Render(hub, DL::iscTransferBoard), "[TransferBoard]\nTransferBoard=TQTF\n");
}

TEST(HubGlobalListsTest, RoundTrip) {
  TRoundTrip rt(
      "[BrokerQuoteBoard]\nBrokerQuoteBoard=TQBR,PSBR\nNote=x\n[NegDealClasses]\nNegDealClasses=PSEQ\n"
      "[TransferBoard]\nTransferBoard=TQTF\n");
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(rt.first.GetBrokerQuoteBoardGlob().Items(), rt.second->GetBrokerQuoteBoardGlob().Items());
  EXPECT_EQ(rt.first.GetBrokerQuoteBoardGlobRawLines(), rt.second->GetBrokerQuoteBoardGlobRawLines());
  EXPECT_EQ(rt.first.GetNegDealClassesGlob().Items(), rt.second->GetNegDealClassesGlob().Items());
  EXPECT_EQ(rt.first.GetTransferBoardGlob().Items(), rt.second->GetTransferBoardGlob().Items());
}

// ---- Minimum order quantity in a set time ----

TEST(HubMinOrderQuantityInSetTimeTest, ReadsClassesSecuritiesIntervalTimeAndQuantity) {
  TStorageHub hub("[MinOrderQuantityInSetTime]\nTQBR,TQTF_INSTR_SBER_INTERVAL_60_TIME_10:00-18:30=100\n", 2);
  const auto& items = hub.GetMinOrderQuantityInSetTime();
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items[0].classes, (std::set<std::string>{"TQBR", "TQTF"}));
  EXPECT_EQ(items[0].securities, std::set<std::string>{"SBER"});
  EXPECT_EQ(items[0].interval, 60);
  EXPECT_EQ(items[0].time.begin.hour, 10u);
  EXPECT_EQ(items[0].time.end.hour, 18u);
  EXPECT_EQ(items[0].time.end.minute, 30u);
  EXPECT_EQ(items[0].quantity, 100);
}

TEST(HubMinOrderQuantityInSetTimeTest, ALineWithoutIntervalOrWithABadQuantityIsKeptRaw) {
  TStorageHub hub(
      "[MinOrderQuantityInSetTime]\nTQBR_INSTR_SBER_TIME_10:00-18:00=5\n"
      "TQBR_INSTR_GAZP_INTERVAL_5_TIME_10:00-18:00=5x\n",
      2);
  EXPECT_TRUE(hub.GetMinOrderQuantityInSetTime().empty());
  EXPECT_EQ(hub.GetMinOrderQuantityInSetTimeRawLines().size(), 2u);
}

TEST(HubMinOrderQuantityInSetTimeTest, RoundTrip) {
  TRoundTrip rt("[MinOrderQuantityInSetTime]\nTQBR_INSTR_SBER_INTERVAL_60_TIME_10:00-18:00=100\nBad=1\n");
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(rt.first.GetMinOrderQuantityInSetTime(), rt.second->GetMinOrderQuantityInSetTime());
  EXPECT_EQ(rt.first.GetMinOrderQuantityInSetTimeRawLines(), rt.second->GetMinOrderQuantityInSetTimeRawLines());
  EXPECT_EQ(rt.second->GetMinOrderQuantityInSetTime().size(), 1u);
}

// ---- Futures client codes ----

const char* const kChangeFut =
    "[ChangeFutClientCodes_F1]\nC1=T1\nC2=T2\n"
    "[ChangeFutClientCodes_F2]\nC3=T3\nLONGCLIENTCODE1=T4\n";

TEST(HubChangeFutClientCodesTest, EachSectionIsStoredWithTheFirmBehindTheUnderscore) {
  TStorageHub hub(kChangeFut, 2);
  ASSERT_EQ(hub.GetChangeFutClientCodes().size(), 2u);
  const DL::TChangeFutClientCodes* f1 = hub.FindChangeFutClientCodes("F1");
  const DL::TChangeFutClientCodes* f2 = hub.FindChangeFutClientCodes("f2");  // firms compare without regard to case
  ASSERT_NE(f1, nullptr);
  ASSERT_NE(f2, nullptr);
  EXPECT_EQ(f1->section, "ChangeFutClientCodes_F1");
  EXPECT_EQ(f1->firm, "F1");
  EXPECT_EQ(f1->trdAccByClient, (std::map<std::string, std::string>{{"C1", "T1"}, {"C2", "T2"}}));
  EXPECT_EQ(f2->trdAccByClient, (std::map<std::string, std::string>{{"C3", "T3"}}));
  EXPECT_EQ(f2->raw.at("LONGCLIENTCODE1"), "T4");
  EXPECT_EQ(hub.FindChangeFutClientCodes("F9"), nullptr);
}

TEST(HubChangeFutClientCodesTest, TheSectionWithoutAFirmHasTheEmptyFirm) {
  TStorageHub hub("[ChangeFutClientCodes]\nC1=T1\n[changefutclientcodes_f3]\nC2=\n", 2);
  ASSERT_EQ(hub.GetChangeFutClientCodes().size(), 2u);
  ASSERT_NE(hub.FindChangeFutClientCodes(""), nullptr);
  EXPECT_EQ(hub.FindChangeFutClientCodes("")->trdAccByClient.at("C1"), "T1");
  const DL::TChangeFutClientCodes* f3 = hub.FindChangeFutClientCodes("F3");
  ASSERT_NE(f3, nullptr);
  EXPECT_EQ(f3->firm, "f3");
  EXPECT_TRUE(f3->trdAccByClient.empty());
  EXPECT_EQ(f3->raw.at("C2"), "");
}

TEST(HubChangeFutClientCodesTest, TwoSectionsOfOneFirmAreBothKept) {
  TStorageHub hub("[ChangeFutClientCodes_F1]\nC1=T1\n[ChangeFutClientCodesF1]\nC2=T2\n", 2);
  ASSERT_EQ(hub.GetChangeFutClientCodes().size(), 2u);
  EXPECT_EQ(hub.GetChangeFutClientCodes().at("ChangeFutClientCodesF1").firm, "F1");
  std::string out;
  hub.SettingToStrGlobalChangeFutClientCodes(out);
  // Sections in name order ("F" sorts before "_").
  EXPECT_EQ(out, "[ChangeFutClientCodesF1]\nC2=T2\n[ChangeFutClientCodes_F1]\nC1=T1\n");
  EXPECT_EQ(hub.FindChangeFutClientCodes("F1")->section, "ChangeFutClientCodesF1");
}

TEST(HubChangeFutClientCodesTest, NoSectionsGiveAnEmptyStore) {
  TStorageHub hub("", 2);
  EXPECT_TRUE(hub.GetChangeFutClientCodes().empty());
  std::string out;
  hub.SettingToStrGlobalChangeFutClientCodes(out);
  EXPECT_EQ(out, "");
}

TEST(HubChangeFutClientCodesTest, OneCallWritesEverySection) {
  TStorageHub hub(kChangeFut, 2);
  std::string out;
  hub.SettingToStrGlobalChangeFutClientCodes(out);
  EXPECT_EQ(out,
            "[ChangeFutClientCodes_F1]\nC1=T1\nC2=T2\n"
            "[ChangeFutClientCodes_F2]\nC3=T3\nLONGCLIENTCODE1=T4\n");
}

TEST(HubChangeFutClientCodesTest, SeveralSectionsAreWrittenOnceEachBySave) {
  TStorageHub hub(kChangeFut, 2);
  const std::string saved = Save(hub);
  EXPECT_EQ(Count(saved, "[ChangeFutClientCodes_F1]\r\n"), 1u);
  EXPECT_EQ(Count(saved, "[ChangeFutClientCodes_F2]\r\n"), 1u);
  EXPECT_EQ(Count(saved, "C1=T1\r\n"), 1u);
  EXPECT_EQ(Count(saved, "C3=T3\r\n"), 1u);
}

TEST(HubChangeFutClientCodesTest, TheSaveWritesTheCodesFromTheStore) {
  TStorageHub hub("[ChangeFutClientCodes_F1]\nC1= T1 \n", 2);
  EXPECT_NE(Save(hub).find("[ChangeFutClientCodes_F1]\r\nC1=T1\r\n"), std::string::npos);
}

TEST(HubChangeFutClientCodesTest, RoundTrip) {
  TRoundTrip rt(kChangeFut);
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(rt.first.GetChangeFutClientCodes(), rt.second->GetChangeFutClientCodes());
}

// ---- Pre-trade ----

TEST(HubPreTradeTest, FloodControlIsReadAsCountAndInterval) {
  TStorageHub hub("[PreTrade_12]\nFloodControl=5,7\nOther=1\n[PreTrade_]\nFloodControl=3\n[PreTrade_4]\nA=b\n", 2);
  const auto& preTrade = hub.GetPreTradeSettings();
  ASSERT_EQ(preTrade.size(), 3u);
  EXPECT_EQ(preTrade.at(12).number, 12);
  EXPECT_TRUE(preTrade.at(12).hasFloodControl);
  EXPECT_EQ(preTrade.at(12).floodControl, (DL::TFloodControlSettings{5, 7}));
  EXPECT_EQ(preTrade.at(12).raw.at("Other"), "1");
  EXPECT_EQ(preTrade.at(0).floodControl, (DL::TFloodControlSettings{3, 1}));
  EXPECT_FALSE(preTrade.at(4).hasFloodControl);
  EXPECT_EQ(preTrade.at(4).floodControl, (DL::TFloodControlSettings{-1, 1}));
}

TEST(HubPreTradeTest, AnUnreadableFloodControlIsKeptRaw) {
  TStorageHub hub("[PreTrade_1]\nFloodControl=many\n", 2);
  const DL::TPreTradeSettings& p = hub.GetPreTradeSettings().at(1);
  EXPECT_FALSE(p.hasFloodControl);
  EXPECT_EQ(p.raw.at("FloodControl"), "many");
}

TEST(HubPreTradeTest, RoundTrip) {
  TRoundTrip rt("[PreTrade_12]\nFloodControl=5,7\nOther=1\n[PreTrade_9]\nFloodControl=x\n");
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(rt.first.GetPreTradeSettings(), rt.second->GetPreTradeSettings());
}

TEST(FloodControlSettingsTest, EmptyGivesMinusOneAndOne) {
  DL::TFloodControlSettings f{9, 9};
  ASSERT_TRUE(DL::ParseFloodControlSettings("", f));
  EXPECT_EQ(f, (DL::TFloodControlSettings{-1, 1}));
  f = {9, 9};
  ASSERT_TRUE(DL::ParseFloodControlSettings(",4", f));
  EXPECT_EQ(f, (DL::TFloodControlSettings{-1, 4}));
}

TEST(FloodControlSettingsTest, ACountAloneTakesTheInterval1) {
  DL::TFloodControlSettings f;
  ASSERT_TRUE(DL::ParseFloodControlSettings(" 5 ", f));
  EXPECT_EQ(f, (DL::TFloodControlSettings{5, 1}));
  ASSERT_TRUE(DL::ParseFloodControlSettings("5,7", f));
  EXPECT_EQ(f, (DL::TFloodControlSettings{5, 7}));
}

TEST(FloodControlSettingsTest, MalformedTextsFailAndLeaveTheOutput) {
  for (const char* bad : {"5x", "5,0", "5,-2", "-2", "1,2,3", "a,b", "5,7s"}) {
    DL::TFloodControlSettings f{8, 8};
    EXPECT_FALSE(DL::ParseFloodControlSettings(bad, f)) << bad;
    EXPECT_EQ(f, (DL::TFloodControlSettings{8, 8})) << bad;
  }
}

TEST(FloodControlSettingsTest, IsWrittenAsCountCommaInterval) {
  EXPECT_EQ(DL::FloodControlSettingsToStr({5, 7}), "5,7");
  EXPECT_EQ(DL::FloodControlSettingsToStr({}), "-1,1");
}

// ---- Client code changes and ignored checks ----

TEST(HubChangeClientCodesTest, TheWriterWritesTheStoreThenTheRawLines) {
  TStorageHub hub("[ChangeClientCodes]\nC1= C2\nC3=\nC4=C5\n", 2);
  EXPECT_EQ(Render(hub, DL::iscChangeClientCodes), "[ChangeClientCodes]\nC1=C2\nC4=C5\nC3=\n");
}

TEST(HubIgnoreChecksTest, ClientsComeFromTheGeneralSettingsAndOtherLinesStay) {
  TStorageHub hub("[IgnoreChecks]\nClients=C1, C2,C1\nNote=x\n", 2);
  EXPECT_EQ(hub.General().GetIgnoreChecksClients().Items(), (Strings{"C1", "C2"}));
  EXPECT_EQ(Render(hub, DL::iscIgnoreChecks), "[IgnoreChecks]\nClients=C1,C2\nNote=x\n");
}

TEST(HubIgnoreChecksTest, NoClientsAndNoOtherLinesWriteNothing) {
  TStorageHub hub("[IgnoreChecks]\nClients=\n", 2);
  EXPECT_EQ(Render(hub, DL::iscIgnoreChecks), "");
}

TEST(HubIgnoreChecksTest, TheSaveWritesTheClientsReadByTheGeneralSettings) {
  TStorageHub hub("[IgnoreChecks]\nClients=C1, C2,C1\n", 2);
  EXPECT_NE(Save(hub).find("[IgnoreChecks]\r\nClients=C1,C2\r\n"), std::string::npos);
}

TEST(HubIgnoreChecksTest, RoundTrip) {
  TRoundTrip rt("[IgnoreChecks]\nClients=C1,C2\nNote=x\n");
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(rt.first.General().GetIgnoreChecksClients().Items(), rt.second->General().GetIgnoreChecksClients().Items());
  EXPECT_NE(rt.saved.find("Note=x\r\n"), std::string::npos);
}

// ---- A firm without these sections ----

TEST(HubGlobalSectionsTest, AnEmptyFirmSavesToATextWhoseReloadHasTheSameEmptyStores) {
  TRoundTrip rt("");
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_TRUE(rt.second->GetSubBrokers().empty());
  EXPECT_TRUE(rt.second->GetRestrictOptionOrders().values.empty());
  EXPECT_TRUE(rt.second->GetChangeFutClientCodes().empty());
  EXPECT_TRUE(rt.second->GetMinOrderQuantityInSetTime().empty());
  EXPECT_TRUE(rt.second->GetPreTradeSettings().empty());
}

}  // namespace
