// Sections the hub reads late in the load: commission by currency boards,
// instruments without currency risk, price check boards, market order per
// cent by classes, flood control by instrument, order volume by average
// turnover, client code changes, commission settings currency, futures risk
// limiting price, position price currency and the classes of the exchange
// commission export; and their way through a save and a reload.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/SavedText.h"
#include "core/TStorageHub.h"
#include "ini/TIniParser.h"

namespace {

using DL::TStorageHub;
using Strings = std::vector<std::string>;

std::string Save(TStorageHub& hub) { return ztest::SavedText(hub); }

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

std::size_t Count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t pos = text.find(what); pos != std::string::npos; pos = text.find(what, pos + 1)) ++n;
  return n;
}

// ---- Defaults ----

TEST(HubLateSectionsTest, AbsentSectionsLeaveEveryStoreEmpty) {
  TStorageHub hub("[General]\nCheckClient=1\n", 2);
  EXPECT_TRUE(hub.GetCurrBoardsCommission().values.empty());
  EXPECT_TRUE(hub.GetInstrumentsWithoutCurrencyRisk().values.empty());
  EXPECT_TRUE(hub.GetCheckPriceBoard().values.empty());
  EXPECT_TRUE(hub.GetClientMarketOrderPercentByClasses().values.empty());
  EXPECT_TRUE(hub.GetGlobalFloodControlByInstrument().empty());
  EXPECT_FALSE(hub.GetGlobalRestOrdVolumeByAvgTurnover().present);
  EXPECT_EQ(hub.GetGlobalRestOrdVolumeByAvgTurnover().basePeriod, 0);
  EXPECT_FALSE(hub.GetGlobalSoftRestOrdVolumeByAvgTurnover().present);
  EXPECT_TRUE(hub.GetChangeClientCodes().values.empty());
  EXPECT_TRUE(hub.GetCommissionSettingsCurrency().empty());
  EXPECT_TRUE(hub.GetFutRiskLimitingPrice().values.empty());
  EXPECT_TRUE(hub.GetPositionPriceCurrency().values.empty());
  EXPECT_TRUE(hub.GetMOEXCommissionExportClasses().Empty());
  std::string out;
  hub.SettingToStrGlobalCommissionSettingsCurrency(out);
  EXPECT_EQ(out, "");
}

// ---- CurrBoardsCommission ----

TEST(HubLateSectionsTest, CurrBoardsCommissionReadsARatePerBoard) {
  TStorageHub hub("[CurrBoardsCommission]\nCETS=0.0025\nSPBFX= 1.5 \nBAD=1.5x\nEMPTY=\n", 2);
  const auto& s = hub.GetCurrBoardsCommission();
  ASSERT_EQ(s.values.size(), 2u);
  EXPECT_DOUBLE_EQ(s.values.at("CETS"), 0.0025);
  EXPECT_DOUBLE_EQ(s.values.at("SPBFX"), 1.5);
  EXPECT_EQ(s.raw, (DL::TRawLines{{"BAD", "1.5x"}, {"EMPTY", ""}}));
}

TEST(HubLateSectionsTest, NumbersMustBeWholeAndFinite) {
  TStorageHub hub(
      "[CurrBoardsCommission]\nA=inf\nB=nan\nC=1e3\n"
      "[RestOrdVolumeByAvgTurnover]\nBasePeriod=99999999999\n",
      2);
  EXPECT_EQ(hub.GetCurrBoardsCommission().values.size(), 1u);
  EXPECT_DOUBLE_EQ(hub.GetCurrBoardsCommission().values.at("C"), 1000.0);
  EXPECT_EQ(hub.GetCurrBoardsCommission().raw.size(), 2u);
  EXPECT_EQ(hub.GetGlobalRestOrdVolumeByAvgTurnover().basePeriod, 0);
  EXPECT_EQ(hub.GetGlobalRestOrdVolumeByAvgTurnover().raw.at("BasePeriod"), "99999999999");
}

// ---- InstrumentsWithoutCurrencyRisk ----

TEST(HubLateSectionsTest, InstrumentsWithoutCurrencyRiskReadsSecuritiesByClass) {
  TStorageHub hub(
      "[InstrumentsWithoutCurrencyRisk]\nInstrumentsWithoutCurrencyRisk_TQBR=SBER,GAZP\n"
      "InstrumentsWithoutCurrencyRisk_<ALL>=\ninstrumentswithoutcurrencyrisk_CETS=USD000UTSTOM\n"
      "TQTF=FXUS\nInstrumentsWithoutCurrencyRisk_TOOLONGCLASS13=A\n",
      2);
  const auto& s = hub.GetInstrumentsWithoutCurrencyRisk();
  ASSERT_EQ(s.values.size(), 3u);
  EXPECT_EQ(s.values.at("TQBR"), (std::set<std::string>{"GAZP", "SBER"}));
  EXPECT_TRUE(s.values.at("<ALL>").empty());
  EXPECT_EQ(s.values.at("CETS"), std::set<std::string>{"USD000UTSTOM"});
  EXPECT_EQ(s.raw.size(), 2u);
  EXPECT_EQ(s.raw.at("TQTF"), "FXUS");
}

// ---- CheckPriceBoard ----

TEST(HubLateSectionsTest, CheckPriceBoardReadsBoardsByClass) {
  TStorageHub hub("[CheckPriceBoard]\nTQBR=TQBR,SMAL,TQBR\n<ALL>=TQBR\nPSEQ=\nEQOB=SOMEBOARDTOOLONG\n", 2);
  const auto& s = hub.GetCheckPriceBoard();
  ASSERT_EQ(s.values.size(), 2u);
  EXPECT_EQ(s.values.at("TQBR"), (Strings{"TQBR", "SMAL"}));
  EXPECT_EQ(s.values.at("<ALL>"), Strings{"TQBR"});
  EXPECT_EQ(s.raw.size(), 2u);
}

// ---- ClientMarketOrderPercentByClasses ----

TEST(HubLateSectionsTest, ClientMarketOrderPercentByClassesKeepsANegativePercentRaw) {
  TStorageHub hub("[ClientMarketOrderPercentByClasses]\nTQBR=5\nSPBFUT=0\nCETS=-1\nPSEQ=abc\n", 2);
  const auto& s = hub.GetClientMarketOrderPercentByClasses();
  ASSERT_EQ(s.values.size(), 2u);
  EXPECT_DOUBLE_EQ(s.values.at("TQBR"), 5.0);
  EXPECT_DOUBLE_EQ(s.values.at("SPBFUT"), 0.0);
  EXPECT_EQ(s.raw, (DL::TRawLines{{"CETS", "-1"}, {"PSEQ", "abc"}}));
}

// ---- FloodControlByInstrument ----

TEST(HubLateSectionsTest, FloodControlByInstrumentReadsClassesSecuritiesAndTheControl) {
  TStorageHub hub(
      "[FloodControlByInstrument]\nTQBR_INSTR_SBER,GAZP=10,2\nSPBFUT_INSTR_SiZ6=3\nTQBR=1,1\n"
      "CETS_INSTR_USD=x\nPSEQ_INSTR_A=\n",
      2);
  const auto& items = hub.GetGlobalFloodControlByInstrument();
  ASSERT_EQ(items.size(), 2u);
  // The key map is ordered without regard to case: SPBFUT... before TQBR...
  EXPECT_EQ(items[0].classes, std::set<std::string>{"SPBFUT"});
  EXPECT_EQ(items[0].securities, std::set<std::string>{"SiZ6"});
  EXPECT_EQ(items[0].floodControl, (DL::TFloodControlSettings{3, 1}));
  EXPECT_EQ(items[1].securities, (std::set<std::string>{"GAZP", "SBER"}));
  EXPECT_EQ(items[1].floodControl, (DL::TFloodControlSettings{10, 2}));
  EXPECT_EQ(hub.GetGlobalFloodControlByInstrumentRawLines().size(), 3u);
}

// ---- RestOrdVolumeByAvgTurnover ----

TEST(HubLateSectionsTest, RestOrdVolumeByAvgTurnoverReadsBasePeriodAndUpperCaseItems) {
  TStorageHub hub(
      "[RestOrdVolumeByAvgTurnover]\nBasePeriod=20\ntqbr_INSTR_sber=10,2.5,abc\nTQTF_INSTR_FXUS=,,\n"
      "[Soft_RestOrdVolumeByAvgTurnover]\nBasePeriod=5\nTQBR_INSTR_GAZP=7\n",
      2);
  const DL::TGlobalRestOrdVolume& hard = hub.GetGlobalRestOrdVolumeByAvgTurnover();
  EXPECT_TRUE(hard.present);
  EXPECT_EQ(hard.basePeriod, 20);
  ASSERT_EQ(hard.items.size(), 2u);
  EXPECT_EQ(hard.items[0].classes, std::set<std::string>{"TQBR"});
  EXPECT_EQ(hard.items[0].securities, std::set<std::string>{"SBER"});
  EXPECT_DOUBLE_EQ(hard.items[0].limitPercent, 10.0);
  EXPECT_DOUBLE_EQ(hard.items[0].second, 2.5);
  EXPECT_EQ(hard.items[0].text, "ABC");
  EXPECT_DOUBLE_EQ(hard.items[1].limitPercent, -1.0);
  EXPECT_DOUBLE_EQ(hard.items[1].second, 0.0);
  EXPECT_EQ(hard.items[1].text, "");
  const DL::TGlobalRestOrdVolume& soft = hub.GetGlobalSoftRestOrdVolumeByAvgTurnover();
  EXPECT_EQ(soft.basePeriod, 5);
  ASSERT_EQ(soft.items.size(), 1u);
  EXPECT_DOUBLE_EQ(soft.items[0].limitPercent, 7.0);
}

TEST(HubLateSectionsTest, RestOrdVolumeByAvgTurnoverKeepsUnreadableLinesRaw) {
  TStorageHub hub(
      "[RestOrdVolumeByAvgTurnover]\nBasePeriod=x\nTQBR_INSTR_SBER=\nTQBR_INSTR_GAZP=1,2,3,4\nTQBR=1\n"
      "TQBR_INSTR_LKOH=1y\n",
      2);
  const DL::TGlobalRestOrdVolume& hard = hub.GetGlobalRestOrdVolumeByAvgTurnover();
  EXPECT_EQ(hard.basePeriod, 0);
  EXPECT_TRUE(hard.items.empty());
  EXPECT_EQ(hard.raw.size(), 5u);
  EXPECT_EQ(hard.raw.at("BasePeriod"), "x");
}

// ---- ChangeClientCodes ----

TEST(HubLateSectionsTest, ChangeClientCodesReadsTheNewCodeByClient) {
  TStorageHub hub("[ChangeClientCodes]\nC1=C2\nC3= C4 \nC5=\nC6=ABCDEFGHIJKLM\n", 2);
  const auto& s = hub.GetChangeClientCodes();
  EXPECT_EQ(s.values.size(), 2u);
  EXPECT_EQ(s.values.at("C1"), "C2");
  EXPECT_EQ(s.values.at("C3"), "C4");
  EXPECT_EQ(s.raw, (DL::TRawLines{{"C5", ""}, {"C6", "ABCDEFGHIJKLM"}}));
}

TEST(HubLateSectionsTest, ChangeClientCodesRoundTrip) {
  TRoundTrip rt("[ChangeClientCodes]\nC1=C2\nC5=\n");
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(rt.first.GetChangeClientCodes(), rt.second->GetChangeClientCodes());
}

// ---- CommissionSettingsCurrency ----

const char* const kCommissionSettingsCurrency =
    "[CommissionSettingsCurrency]\nUSD=CETS,SPBFX\nEUR=CETS\nTOOLONG=CETS\n"
    "[CommissionSettingsCurrency_2]\nCNY=CNYRUB\n";

TEST(HubLateSectionsTest, CommissionSettingsCurrencyReadsEverySectionOfTheFamily) {
  TStorageHub hub(kCommissionSettingsCurrency, 2);
  const auto& all = hub.GetCommissionSettingsCurrency();
  ASSERT_EQ(all.size(), 2u);
  const auto& first = all.at("CommissionSettingsCurrency");
  EXPECT_EQ(first.values.at("USD"), (Strings{"CETS", "SPBFX"}));
  EXPECT_EQ(first.values.at("EUR"), Strings{"CETS"});
  EXPECT_EQ(first.raw.at("TOOLONG"), "CETS");
  EXPECT_EQ(all.at("CommissionSettingsCurrency_2").values.at("CNY"), Strings{"CNYRUB"});
}

TEST(HubLateSectionsTest, CommissionSettingsCurrencyFamilyIsMatchedWithItsCase) {
  TStorageHub hub("[commissionsettingscurrency]\nUSD=CETS\n", 2);
  EXPECT_TRUE(hub.GetCommissionSettingsCurrency().empty());
  EXPECT_NE(Save(hub).find("USD=CETS\r\n"), std::string::npos);  // copied raw
}

TEST(HubLateSectionsTest, CommissionSettingsCurrencyWriterWritesEverySection) {
  TStorageHub hub(kCommissionSettingsCurrency, 2);
  std::string out;
  hub.SettingToStrGlobalCommissionSettingsCurrency(out);
  EXPECT_EQ(out,
            "[CommissionSettingsCurrency]\nEUR=CETS\nUSD=CETS,SPBFX\nTOOLONG=CETS\n"
            "[CommissionSettingsCurrency_2]\nCNY=CNYRUB\n");
}

TEST(HubLateSectionsTest, CommissionSettingsCurrencyIsSavedOnce) {
  TRoundTrip rt(kCommissionSettingsCurrency);
  EXPECT_EQ(rt.saved, rt.savedAgain);
  EXPECT_EQ(Count(rt.saved, "[CommissionSettingsCurrency]\r\n"), 1u);
  EXPECT_EQ(Count(rt.saved, "[CommissionSettingsCurrency_2]\r\n"), 1u);
  EXPECT_EQ(Count(rt.saved, "USD=CETS,SPBFX\r\n"), 1u);
  EXPECT_EQ(rt.first.GetCommissionSettingsCurrency(), rt.second->GetCommissionSettingsCurrency());
}

// ---- FutRiskLimitingPrice ----

TEST(HubLateSectionsTest, FutRiskLimitingPriceReadsAKnownPriceTypeName) {
  TStorageHub hub("[FutRiskLimitingPrice]\nSPBFUT=THEORPRICE\n<ALL>=LAST\nFORTS=last\nOPT=\n", 2);
  const auto& s = hub.GetFutRiskLimitingPrice();
  ASSERT_EQ(s.values.size(), 2u);
  EXPECT_EQ(s.values.at("SPBFUT"), DL::TIniParser::GetPriceType("THEORPRICE"));
  EXPECT_EQ(s.values.at("SPBFUT"), 6);
  EXPECT_EQ(s.values.at("<ALL>"), 2);
  EXPECT_EQ(s.raw, (DL::TRawLines{{"FORTS", "last"}, {"OPT", ""}}));
}

// ---- PositionPriceCurrency ----

TEST(HubLateSectionsTest, PositionPriceCurrencyReadsACurrencyByClass) {
  TStorageHub hub("[PositionPriceCurrency]\nTQBR=SUR\nSPBXM=USD\nTQOD=DOLLAR\n", 2);
  const auto& s = hub.GetPositionPriceCurrency();
  ASSERT_EQ(s.values.size(), 2u);
  EXPECT_EQ(s.values.at("TQBR"), "SUR");
  EXPECT_EQ(s.values.at("SPBXM"), "USD");
  EXPECT_EQ(s.raw.at("TQOD"), "DOLLAR");
}

// ---- MOEXCommissionExportClasses ----

TEST(HubLateSectionsTest, MOEXCommissionExportClassesReadsTheClassesParameter) {
  TStorageHub hub("[MOEXCommissionExportClasses]\nclasses=TQBR, TQTF,TQBR\nOther=1\n", 2);
  EXPECT_EQ(hub.GetMOEXCommissionExportClasses().Items(), (Strings{"TQBR", "TQTF"}));
  EXPECT_EQ(hub.GetMOEXCommissionExportClassesRawLines(), (DL::TRawLines{{"Other", "1"}}));
}

// ---- A save keeps every late section ----

const char* const kLate =
    "[CurrBoardsCommission]\nCETS=0.0025\nBAD=x\n"
    "[InstrumentsWithoutCurrencyRisk]\nInstrumentsWithoutCurrencyRisk_TQBR=SBER\nodd=1\n"
    "[CheckPriceBoard]\nTQBR=SMAL\n"
    "[ClientMarketOrderPercentByClasses]\nTQBR=5\n"
    "[FloodControlByInstrument]\nTQBR_INSTR_SBER=10,2\n"
    "[RestOrdVolumeByAvgTurnover]\nBasePeriod=20\nTQBR_INSTR_SBER=10,2.5,ABC\n"
    "[Soft_RestOrdVolumeByAvgTurnover]\nTQBR_INSTR_GAZP=7\n"
    "[FutRiskLimitingPrice]\nSPBFUT=LAST\n"
    "[PositionPriceCurrency]\nTQBR=SUR\n"
    "[MOEXCommissionExportClasses]\nClasses=TQBR\n";

TEST(HubLateSectionsTest, RoundTripKeepsEveryStoreAndUnknownLines) {
  TRoundTrip rt(kLate);
  EXPECT_EQ(rt.saved, rt.savedAgain);
  const TStorageHub& a = rt.first;
  const TStorageHub& b = *rt.second;
  EXPECT_EQ(a.GetCurrBoardsCommission(), b.GetCurrBoardsCommission());
  EXPECT_EQ(a.GetInstrumentsWithoutCurrencyRisk(), b.GetInstrumentsWithoutCurrencyRisk());
  EXPECT_EQ(a.GetCheckPriceBoard(), b.GetCheckPriceBoard());
  EXPECT_EQ(a.GetClientMarketOrderPercentByClasses(), b.GetClientMarketOrderPercentByClasses());
  EXPECT_EQ(a.GetGlobalFloodControlByInstrument(), b.GetGlobalFloodControlByInstrument());
  EXPECT_EQ(a.GetGlobalRestOrdVolumeByAvgTurnover(), b.GetGlobalRestOrdVolumeByAvgTurnover());
  EXPECT_EQ(a.GetGlobalSoftRestOrdVolumeByAvgTurnover(), b.GetGlobalSoftRestOrdVolumeByAvgTurnover());
  EXPECT_EQ(a.GetFutRiskLimitingPrice(), b.GetFutRiskLimitingPrice());
  EXPECT_EQ(a.GetPositionPriceCurrency(), b.GetPositionPriceCurrency());
  EXPECT_EQ(a.GetMOEXCommissionExportClasses().Items(), b.GetMOEXCommissionExportClasses().Items());
  EXPECT_EQ(b.GetCurrBoardsCommission().values.size(), 1u);
  EXPECT_EQ(b.GetCurrBoardsCommission().raw.at("BAD"), "x");
  EXPECT_EQ(b.GetInstrumentsWithoutCurrencyRisk().raw.at("odd"), "1");
}

}  // namespace
