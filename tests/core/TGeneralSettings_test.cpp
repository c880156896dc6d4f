#include "core/TGeneralSettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/TextHelpers.h"
#include "base/ResultCodes.h"
#include "ini/TIniParser.h"

namespace {

using DL::EGeneralParam;
using DL::TClassList;
using DL::TGeneralSettings;
using Strings = std::vector<std::string>;

// ---- What the firm's general parameters are, written out here on their own ----

// Flags that are off unless the text says otherwise.
const Strings kFlagsOff = {
    "USETSCOMMFORTRADE", "TRANSMITEXCHANGECOLLATERALFORMDPLUS", "TRANSFERADDLIMITS",
    "USEADDPERCENTFORMARKETSELL", "ENABLEDISCOUNTPEREVOROT", "CLOSEOPPDIRCURRPOSITIONS",
    "SHOWTRADECOMMISSION", "UseBondPlacementReducedMOEXRate", "USEMARGINCLASSWITHOUTCLOSINGPRICE",
    "USEMARGINCLASSSTATUSCHECK", "ChangeClientCodesStrict", "CALCVARMARGIN", "CHECKBUYSELLFORPRICELIMIT",
    "PositionKeepingInCalendarDays", "PositionKeepingInCalendarDaysForAllMarkets", "CheckClient",
    "CONSSETTLDATESINREPORTNETTINGCHECK", "NonMargCurrNotInCollateral", "PRIORITYTEMPLATECOMMFORREPO",
    "USEOWNASSETDISCINSETS", "ReqDebtReductionForRepoProlongation", "DONOTUSEPREVPRICEONCENTERPRICEABSENCE",
    "FuturesDiscountFromCollateralAmount", "IgnoreRepoLen", "WriteDebugInfo", "CalcNegDeal",
    "InformClientsAboutShortPos", "UseDiscCoeffForCHRates", "ClientMarketOrder",
    "UseMarginalSignsFromDiscSettings", "DoNotApplyCoeffToOwnDiscounts", "ConsiderRiskLevelForShortPosInforming",
    "RecalcCHRiskRatesIntoAssetRiskCurr", "ComplexInstrAccessByBitmaskInLeverage",
    "ComplexInstrumentsAccessControl", "CalcOptionsPremium", "PremOptSimpleAccounting"};
// Flags that are on unless the text says otherwise.
const Strings kFlagsOn = {"INVERTCCPOPERATION", "UseModifiedCommissionCalculation", "CalcDerivativesPosPrice",
                          "MDPlusCurrRiskNetting", "AcceptClosePeriodOrders", "EmptyClientAllowed",
                          "RstrCashDebtForComplexReport"};
const Strings kIntsZero = {
    "SupportMultiCurrency", "USECOMMISSIONSCALE", "RSTRNMBUY", "CHECKMAXCREDIT", "CHECKMAXTOTALCREDIT",
    "NOTUSEZADOLGMONEYFORMARGIN", "IGNORERESTSHORTSECURITY", "IGNORECOEFFORMARGIN", "SHORTMONEYTOBUYLONG",
    "LONGMONEYTOSELLSHORT", "RSTROPENPOS", "SUPPORTCVALCLIENTS", "CORRECTMAXTOTALCREDIT", "CHANGESECLOT",
    "REPOUSEFACEVALUE", "USECVALCLIENTSFORLIMITKINDS", "USEONLYMONEYLIMITFOROLDMARGIN", "ENABLEOPTIONSPEREVOROT",
    "USEPGO", "CHANGEFUTCLIENTCODES", "MDPlusDefaultNettingType"};
const Strings kIntsOne = {"CREDITLAG", "CLIENTCVAL", "LimitsInLots"};
const std::map<std::string, double> kNumbers = {
    {"VAT", 0.0}, {"CLIENTMARKETORDERPERCENT", 0.0}, {"MDPlusMinMarginCalcRate", 0.5}, {"ThresMarginCoeff", 100.0}};
// Texts kept as written.
const Strings kTexts = {"DISCOUNTTRDACC", "DETAILEDDEBUGLOG", "BaseDiscCoeff"};
// Lists empty unless the text says otherwise.
const Strings kEmptyLists = {"IGNORETSCOMMFORTRADE",
                             "IGNOREMINTSCOMMFORCLASSES",
                             "INCLUDEACCRUEDINT",
                             "STOPORDERSCALCLIMITCLASSESFILTER",
                             "ADDMAINMARGINCLASSES",
                             "CLASSESWITHPRICEEXPORTFORMARKETORDERS",
                             "SettlCodesRegardlessCalendar",
                             "ComplexInstrumentsTypesWithoutRestrictions",
                             "MULTICURRINSTRCLASSES",
                             "RESERVEPEREVOROTGO",
                             "SPOTCLASSES",
                             "CLASSESWITHOUTPARTEXEC",
                             "UseOpenFXRateClasses"};
const Strings kMainMarginClasses = {
    "EQBR", "EQNS", "EQNL", "EQBS", "EQNE", "EQNB", "EQOB", "EQOS", "EQNO", "EQLV", "EQLI", "EQOV", "EQDE",
    "EQGO", "EQYO", "EQEU", "EQEO", "TQBR", "TQBS", "TQLV", "TQLI", "TQNE", "TQQI", "TQNL", "TQOB", "TQCB",
    "TQRD", "TQIR", "TQOS", "TQNO", "TQOV", "TQNB", "TQUS", "TQEU", "TQDE", "TQPI", "TQIF", "TQTF", "TQBD",
    "TQFD", "TQFE", "TQTY", "TQTH", "TQPD", "TQPE", "TQPY", "TQPH", "TQTD", "TQOD", "TQOE", "TQOY", "TQUD",
    "TQED", "TQIU", "TQIE", "TQIY", "TQDD", "TQQD", "FQBR", "FQBY", "FQBH", "FQDE", "FQDY", "FQDH", "MAIN",
    "GAZ",  "GTS",  "SPBSPT", "SPBFUT", "SPBOPT", "CETS", "SDBP"};
// Lists with a default of their own; MINTSCOMMCLASSES is checked on its own.
const std::map<std::string, Strings> kListDefaults = {{"BUYSELLREPOTSCOMMCLASSES", {"RPMA", "RPMO"}},
                                                      {"CurrencyClassesWithCCYData", {"IMEXDA"}},
                                                      {"MAINMARGINCLASSES", kMainMarginClasses}};
// Lists whose repeats are dropped, and the list whose items are upper-cased.
const std::set<std::string> kNoRepeatLists = {"MAINMARGINCLASSES", "ADDMAINMARGINCLASSES"};
const std::string kUpperList = "INCLUDEACCRUEDINT";
// Parameters of "Commission"; every other one is in "General".
const std::set<std::string> kCommissionParams = {"REPOUSEFACEVALUE", "VAT", "INCLUDEACCRUEDINT"};

enum class Kind { FlagOff, FlagOn, IntZero, IntOne, Number, Text, EmptyList, DefaultList, MinTSList };

bool In(const Strings& list, const std::string& name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

Kind ExpectedKind(const std::string& key) {
  if (In(kFlagsOff, key)) return Kind::FlagOff;
  if (In(kFlagsOn, key)) return Kind::FlagOn;
  if (In(kIntsZero, key)) return Kind::IntZero;
  if (In(kIntsOne, key)) return Kind::IntOne;
  if (kNumbers.count(key)) return Kind::Number;
  if (In(kTexts, key)) return Kind::Text;
  if (In(kEmptyLists, key)) return Kind::EmptyList;
  if (kListDefaults.count(key)) return Kind::DefaultList;
  if (key == "MINTSCOMMCLASSES") return Kind::MinTSList;
  ADD_FAILURE() << "parameter not known to the firm's settings: " << key;
  return Kind::Text;
}

// ---- Fixture ----

class TGeneralSettingsTest : public ::testing::Test {
 protected:
  // Loads the settings from a whole settings text.
  const TGeneralSettings& Load(const std::string& text) {
    parser_.Init(text.c_str(), DL::TIniParser::SourceText, ';', 1);
    settings_.Load(parser_);
    return settings_;
  }
  EGeneralParam Code(const std::string& section, const std::string& key) const {
    EGeneralParam code = DL::gpCount;
    EXPECT_TRUE(TGeneralSettings::FindGeneralParam(section, key, code)) << section << " " << key;
    return code;
  }
  bool Flag(EGeneralParam code) const {
    bool v = false;
    EXPECT_EQ(ZDL_OK, settings_.GetFlagParam(code, v));
    return v;
  }
  int Int(EGeneralParam code) const {
    int v = -12345;
    EXPECT_EQ(ZDL_OK, settings_.GetIntParam(code, v));
    return v;
  }
  double Number(EGeneralParam code) const {
    double v = -12345.0;
    EXPECT_EQ(ZDL_OK, settings_.GetNumberParam(code, v));
    return v;
  }
  std::string Text(EGeneralParam code) const {
    std::string v = "unset";
    EXPECT_EQ(ZDL_OK, settings_.GetTextParam(code, v));
    return v;
  }
  Strings List(EGeneralParam code) const {
    const TClassList* v = nullptr;
    EXPECT_EQ(ZDL_OK, settings_.GetListParam(code, v));
    return v ? v->Items() : Strings{"unset"};
  }
  static std::string SectionOf(const std::string& key) {
    return kCommissionParams.count(key) ? "Commission" : "General";
  }

  DL::TIniParser parser_;
  TGeneralSettings settings_;
};

// ---- The table against the lists above ----

TEST_F(TGeneralSettingsTest, TableHoldsEveryGeneralParameterOnceInItsSection) {
  const std::size_t expected = kFlagsOff.size() + kFlagsOn.size() + kIntsZero.size() + kIntsOne.size() +
                               kNumbers.size() + kTexts.size() + kEmptyLists.size() + kListDefaults.size() + 1;
  EXPECT_EQ(92u, expected);
  ASSERT_EQ(expected, static_cast<std::size_t>(DL::gpCount));
  std::set<std::string> seen;
  for (const DL::TGeneralParamInfo& row : DL::kGeneralParamInfos) {
    ExpectedKind(row.key);
    EXPECT_TRUE(seen.insert(DL::StrUpper(row.key)).second) << row.key;
    EXPECT_EQ(SectionOf(row.key), std::string(DL::IniSectName(row.section))) << row.key;
  }
}

TEST_F(TGeneralSettingsTest, EveryParameterTakesItsDefaultFromAnEmptyText) {
  Load("");
  for (const DL::TGeneralParamInfo& row : DL::kGeneralParamInfos) {
    const std::string key = row.key;
    SCOPED_TRACE(key);
    switch (ExpectedKind(key)) {
      case Kind::FlagOff: EXPECT_FALSE(Flag(row.code)); break;
      case Kind::FlagOn: EXPECT_TRUE(Flag(row.code)); break;
      case Kind::IntZero: EXPECT_EQ(0, Int(row.code)); break;
      case Kind::IntOne: EXPECT_EQ(1, Int(row.code)); break;
      case Kind::Number: EXPECT_DOUBLE_EQ(kNumbers.at(key), Number(row.code)); break;
      case Kind::Text: EXPECT_EQ("", Text(row.code)); break;
      case Kind::EmptyList: EXPECT_EQ(Strings{}, List(row.code)); break;
      case Kind::DefaultList: EXPECT_EQ(kListDefaults.at(key), List(row.code)); break;
      case Kind::MinTSList: EXPECT_FALSE(List(row.code).empty()); break;
    }
  }
}

TEST_F(TGeneralSettingsTest, EveryParameterReadsItsValueFromTheText) {
  // One text that sets every parameter away from its default.
  std::string general = "[General]\n", commission = "[Commission]\n";
  for (const DL::TGeneralParamInfo& row : DL::kGeneralParamInfos) {
    const std::string key = row.key;
    std::string value;
    switch (ExpectedKind(key)) {
      case Kind::FlagOff: value = "1"; break;
      case Kind::FlagOn: value = "0"; break;
      case Kind::IntZero:
      case Kind::IntOne: value = "42"; break;
      case Kind::Number: value = "25.5"; break;
      case Kind::Text: value = "t1 , t2"; break;
      default: value = key == kUpperList ? " b1, a2 ,b1" : " B1, A2 ,B1"; break;
    }
    (SectionOf(key) == "Commission" ? commission : general) += key + "=" + value + "\n";
  }
  Load(general + commission);
  for (const DL::TGeneralParamInfo& row : DL::kGeneralParamInfos) {
    const std::string key = row.key;
    SCOPED_TRACE(key);
    switch (ExpectedKind(key)) {
      case Kind::FlagOff: EXPECT_TRUE(Flag(row.code)); break;
      case Kind::FlagOn: EXPECT_FALSE(Flag(row.code)); break;
      case Kind::IntZero:
      case Kind::IntOne: EXPECT_EQ(42, Int(row.code)); break;
      case Kind::Number: EXPECT_DOUBLE_EQ(25.5, Number(row.code)); break;
      case Kind::Text: EXPECT_EQ("t1 , t2", Text(row.code)); break;
      default:
        if (kNoRepeatLists.count(key) || key == kUpperList)
          EXPECT_EQ((Strings{"B1", "A2"}), List(row.code));
        else
          EXPECT_EQ((Strings{"B1", "A2", "B1"}), List(row.code));
        break;
    }
  }
}

TEST_F(TGeneralSettingsTest, GeneratedGettersReturnTheFields) {
  Load("[General]\nUSEPGO=3\nCheckClient=1\nSPOTCLASSES=CETS,SPBFUT\nDISCOUNTTRDACC=L01\n[Commission]\nVAT=20\n");
  EXPECT_EQ(3, settings_.GetUsePGO());
  EXPECT_TRUE(settings_.GetCheckClient());
  EXPECT_TRUE(settings_.GetSpotClasses().Contains("SPBFUT"));
  EXPECT_FALSE(settings_.GetSpotClasses().Contains("TQBR"));
  EXPECT_EQ("L01", settings_.GetDiscountTrdAcc());
  EXPECT_DOUBLE_EQ(20.0, settings_.GetVAT());
  EXPECT_TRUE(settings_.GetAcceptClosePeriodOrders());
}

TEST_F(TGeneralSettingsTest, SectionsAndKeysMatchIgnoringCase) {
  Load("[general]\nusetscommfortrade=1\nlimitsinlots=0\n[COMMISSION]\nvat=18\n");
  EXPECT_TRUE(settings_.IsUseTSCommForTrade());
  EXPECT_EQ(0, settings_.GetLimitsInLots());
  EXPECT_DOUBLE_EQ(18.0, settings_.GetVAT());
}

TEST_F(TGeneralSettingsTest, ParameterInTheOtherSectionIsNotRead) {
  Load("[General]\nVAT=18\n[Commission]\nUSEPGO=1\n");
  EXPECT_DOUBLE_EQ(0.0, settings_.GetVAT());
  EXPECT_EQ(0, settings_.GetUsePGO());
}

TEST_F(TGeneralSettingsTest, EmptyValueOfANumberGivesTheDefault) {
  Load("[General]\nLimitsInLots=\nMDPlusMinMarginCalcRate=\nEmptyClientAllowed=\n");
  EXPECT_EQ(1, settings_.GetLimitsInLots());
  EXPECT_DOUBLE_EQ(0.5, settings_.GetMDPlusMinMarginCalcRate());
  EXPECT_TRUE(settings_.GetEmptyClientAllowed());
}

TEST_F(TGeneralSettingsTest, EmptyValueOfAListWithDefaultGivesAnEmptyList) {
  Load("[General]\nMAINMARGINCLASSES=\nCurrencyClassesWithCCYData=\n");
  EXPECT_TRUE(settings_.GetMainMarginClasses().Empty());
  EXPECT_TRUE(settings_.GetCurrencyClassesWithCCYData().Empty());
  EXPECT_FALSE(settings_.IsMainMarginClass("TQBR"));
}

// ---- Malformed numbers read by the rules of strtol and strtod ----

TEST_F(TGeneralSettingsTest, MalformedIntegerReadsItsLeadingDigits) {
  Load("[General]\nUSEPGO=12abc\nRSTRNMBUY=abc\nCHANGESECLOT=-7x\nCLIENTCVAL=2.9\n");
  EXPECT_EQ(12, settings_.GetUsePGO());
  EXPECT_EQ(0, settings_.GetRstrNMBuy());
  EXPECT_EQ(-7, settings_.GetChangeSecLot());
  EXPECT_EQ(2, settings_.GetClientCval());
}

TEST_F(TGeneralSettingsTest, MalformedNumberReadsItsLeadingPart) {
  Load("[General]\nMDPlusMinMarginCalcRate=0.25abc\nCLIENTMARKETORDERPERCENT=xyz\n");
  EXPECT_DOUBLE_EQ(0.25, settings_.GetMDPlusMinMarginCalcRate());
  EXPECT_DOUBLE_EQ(0.0, settings_.GetClientMarketOrderPercent());
}

TEST_F(TGeneralSettingsTest, MalformedFlagIsOnOnlyForLeadingDigitsNotZero) {
  Load("[General]\nCheckClient=2x\nCalcNegDeal=yes\nEmptyClientAllowed=0abc\n");
  EXPECT_TRUE(settings_.GetCheckClient());
  EXPECT_FALSE(settings_.GetCalcNegDeal());
  EXPECT_FALSE(settings_.GetEmptyClientAllowed());
}

// ---- Currency identity ----

TEST_F(TGeneralSettingsTest, EmptyTextGivesSurAndTheThreeRublesEquivalents) {
  Load("");
  EXPECT_EQ("SUR", settings_.GetMainCurrency());
  EXPECT_EQ((std::set<std::string>{"SUR", "RUR", "RUB"}), settings_.GetRublesEquivalents());
  EXPECT_TRUE(settings_.GetSubstitutableCurrencies().empty());
}

TEST_F(TGeneralSettingsTest, SubstituteOfSurMakesItsKeyTheMainCurrency) {
  Load("[SubstitutableCurrencies]\nRUB=SUR\n");
  EXPECT_EQ("RUB", settings_.GetMainCurrency());
  EXPECT_EQ((std::set<std::string>{"SUR", "RUR", "RUB"}), settings_.GetRublesEquivalents());
  EXPECT_EQ("RUB", settings_.ReplaceRubRurToMainRubles("RUR"));
  EXPECT_EQ("USD", settings_.ReplaceRubRurToMainRubles("USD"));
}

TEST_F(TGeneralSettingsTest, SubstitutesOfTheMainCurrencyBecomeRublesEquivalents) {
  Load("[SubstitutableCurrencies]\nSUR=RUX, RUY ,RUX\nUSD=USDT\n");
  EXPECT_EQ("SUR", settings_.GetMainCurrency());
  EXPECT_EQ((std::set<std::string>{"SUR", "RUR", "RUB", "RUX", "RUY"}), settings_.GetRublesEquivalents());
  EXPECT_TRUE(settings_.IsRublesEquivalent("RUY"));
  EXPECT_FALSE(settings_.IsRublesEquivalent("USDT"));
  ASSERT_NE(nullptr, settings_.GetMainCurrencyOfSubstitute("USDT"));
  EXPECT_EQ("USD", *settings_.GetMainCurrencyOfSubstitute("USDT"));
  EXPECT_EQ(nullptr, settings_.GetMainCurrencyOfSubstitute("USD"));
  EXPECT_EQ(3u, settings_.GetSubstitutableCurrencies().size());
}

TEST_F(TGeneralSettingsTest, SubstituteNamedTwiceKeepsTheFirstMainInMapOrder) {
  Load("[SubstitutableCurrencies]\nUSD=XXX\nEUR=XXX\n");
  EXPECT_EQ("EUR", *settings_.GetMainCurrencyOfSubstitute("XXX"));
}

TEST_F(TGeneralSettingsTest, SecondLoadStartsFromDefaults) {
  Load("[SubstitutableCurrencies]\nRUB=SUR\n[General]\nUSEPGO=1\n");
  Load("");
  EXPECT_EQ("SUR", settings_.GetMainCurrency());
  EXPECT_EQ(0, settings_.GetUsePGO());
}

// ---- Multi-currency basics ----

TEST_F(TGeneralSettingsTest, ClientsWithoutMultiCurrencyAndIgnoreTrdAcc) {
  Load("[ClientsNoMultiCurrency]\nClients=C1, C2\n[IgnoreTrdAcc]\nL01=1\n");
  EXPECT_EQ((Strings{"C1", "C2"}), settings_.GetClientsNoMultiCurrency().Items());
  EXPECT_TRUE(settings_.HasIgnoreTrdAccSection());
  Load("");
  EXPECT_TRUE(settings_.GetClientsNoMultiCurrency().Empty());
  EXPECT_FALSE(settings_.HasIgnoreTrdAccSection());
}

// ---- Credit types ----

TEST_F(TGeneralSettingsTest, CreditLagIsTheDefaultCreditType) {
  Load("");
  EXPECT_EQ(1, settings_.GetCreditType("C1"));
  EXPECT_EQ(1, settings_.GetCreditTypesByClient().at("DEFAULT"));
  Load("[General]\nCREDITLAG=3\n");
  EXPECT_EQ(3, settings_.GetCreditType("C1"));
  EXPECT_EQ(3, settings_.GetCreditTypesByClient().at("DEFAULT"));
}

TEST_F(TGeneralSettingsTest, ClientLagKeysAreClientsOrMasks) {
  Load("[General]\nCREDITLAG=3\n[ClientLag]\nC1=5\nAB*=4\nA*=6\n");
  EXPECT_EQ(5, settings_.GetCreditType("C1"));
  EXPECT_EQ(4, settings_.GetCreditType("ABX"));  // the longer mask
  EXPECT_EQ(6, settings_.GetCreditType("AX"));
  EXPECT_EQ(3, settings_.GetCreditType("ZZ"));
  EXPECT_EQ(1u, settings_.GetCreditTypesByMask().count("AB"));
  EXPECT_EQ(0u, settings_.GetCreditTypesByClient().count("AB*"));
}

TEST_F(TGeneralSettingsTest, LoneStarMaskCoversEveryClient) {
  Load("[General]\nCREDITLAG=3\n[ClientLag]\n*=2\nC1=bad\n");
  EXPECT_EQ(2, settings_.GetCreditType("ZZ"));
  EXPECT_EQ(2, settings_.GetCreditType(""));
  EXPECT_EQ(0, settings_.GetCreditType("C1"));  // strtol of a word
  EXPECT_EQ(1u, settings_.GetCreditTypesByMask().count(""));
}

// ---- Derived fields of the general parameters ----

TEST_F(TGeneralSettingsTest, ThresMarginCoeffBelowTenIsRaisedToTen) {
  Load("[General]\nThresMarginCoeff=5\n");
  EXPECT_DOUBLE_EQ(10.0, settings_.GetThresMarginCoeff());
  Load("[General]\nThresMarginCoeff=50\n");
  EXPECT_DOUBLE_EQ(50.0, settings_.GetThresMarginCoeff());
  Load("");
  EXPECT_DOUBLE_EQ(100.0, settings_.GetThresMarginCoeff());
  Load("[General]\nThresMarginCoeff=-3\n");
  EXPECT_DOUBLE_EQ(10.0, settings_.GetThresMarginCoeff());
}

TEST_F(TGeneralSettingsTest, FloodControlOnDuplicateTransactions) {
  Load("[General]\nFloodControlOnDuplicateTransactions=\n");
  EXPECT_EQ(-1, settings_.GetFloodControlOnDuplicateTransactions().count);
  EXPECT_EQ(1, settings_.GetFloodControlOnDuplicateTransactions().interval);
  Load("[General]\nFloodControlOnDuplicateTransactions=5\n");
  EXPECT_EQ(5, settings_.GetFloodControlOnDuplicateTransactions().count);
  EXPECT_EQ(1, settings_.GetFloodControlOnDuplicateTransactions().interval);
  Load("[General]\nFloodControlOnDuplicateTransactions=5,7\n");
  EXPECT_EQ(5, settings_.GetFloodControlOnDuplicateTransactions().count);
  EXPECT_EQ(7, settings_.GetFloodControlOnDuplicateTransactions().interval);
}

TEST_F(TGeneralSettingsTest, FloodControlWithEmptyFirstItemOrAbsentIsOff) {
  Load("[General]\nFloodControlOnDuplicateTransactions= ,7\n");
  EXPECT_EQ(-1, settings_.GetFloodControlOnDuplicateTransactions().count);
  EXPECT_EQ(1, settings_.GetFloodControlOnDuplicateTransactions().interval);
  Load("");
  EXPECT_EQ(-1, settings_.GetFloodControlOnDuplicateTransactions().count);
  EXPECT_EQ(1, settings_.GetFloodControlOnDuplicateTransactions().interval);
}

TEST_F(TGeneralSettingsTest, MainAndAdditionalMainMarginClassesJoinWithoutRepeats) {
  Load("[General]\nMAINMARGINCLASSES=A, B,A\nADDMAINMARGINCLASSES=B,C,C\n");
  EXPECT_EQ((Strings{"A", "B"}), settings_.GetMainMarginClasses().Items());
  EXPECT_EQ((Strings{"B", "C"}), settings_.GetAddMainMarginClasses().Items());
  EXPECT_EQ((Strings{"A", "B", "C"}), settings_.GetMainAndAddMainMarginClasses().Items());
  EXPECT_TRUE(settings_.IsMainMarginClass("C"));
  EXPECT_FALSE(settings_.IsMainMarginClass("TQBR"));
}

TEST_F(TGeneralSettingsTest, DefaultMainMarginClassesAreJoinedToo) {
  Load("[General]\nADDMAINMARGINCLASSES=XXXX\n");
  EXPECT_EQ(kMainMarginClasses.size() + 1, settings_.GetMainAndAddMainMarginClasses().Size());
  EXPECT_TRUE(settings_.IsMainMarginClass("SDBP"));
  EXPECT_TRUE(settings_.IsMainMarginClass("XXXX"));
}

TEST_F(TGeneralSettingsTest, ConstantRepoClasses) {
  Load("");
  EXPECT_EQ((Strings{"EQMP_BND", "EQTP_BND", "GCNM", "GCOM", "GCOY", "GCSM", "GCTM", "GCUM", "PSGC", "PSRP",
                     "PSRP_BND"}),
            settings_.GetConstantRepoClasses().Items());
}

TEST_F(TGeneralSettingsTest, IncludeAccruedIntForAllClasses) {
  Load("[Commission]\nINCLUDEACCRUEDINT=<all>,TQOB\n");
  EXPECT_TRUE(settings_.IsIncludeAccruedIntForAllClasses());
  EXPECT_TRUE(settings_.IsIncludeAccruedInt("ANY"));
  Load("[Commission]\nINCLUDEACCRUEDINT=1\n");
  EXPECT_TRUE(settings_.IsIncludeAccruedIntForAllClasses());
  Load("[Commission]\nINCLUDEACCRUEDINT=tqob,1\n");
  EXPECT_FALSE(settings_.IsIncludeAccruedIntForAllClasses());
  EXPECT_TRUE(settings_.IsIncludeAccruedInt("TQOB"));
  EXPECT_TRUE(settings_.IsIncludeAccruedInt("tqob"));
  EXPECT_FALSE(settings_.IsIncludeAccruedInt("TQBR"));
  Load("");
  EXPECT_FALSE(settings_.IsIncludeAccruedIntForAllClasses());
  EXPECT_FALSE(settings_.IsIncludeAccruedInt("TQOB"));
}

TEST_F(TGeneralSettingsTest, DetailedDebugLogReadsItsFirstItem) {
  Load("[General]\nDETAILEDDEBUGLOG= 3 ,abc\n");
  EXPECT_EQ(3, settings_.GetDetailedDebugLogLevel());
  EXPECT_EQ("3 ,abc", settings_.GetDetailedDebugLog());
  Load("[General]\nDETAILEDDEBUGLOG=x,2\n");
  EXPECT_EQ(0, settings_.GetDetailedDebugLogLevel());
  Load("");
  EXPECT_EQ(0, settings_.GetDetailedDebugLogLevel());
}

TEST_F(TGeneralSettingsTest, BaseDiscCoeffItemsAreCheckedOneByOne) {
  Load("[General]\nBaseDiscCoeff=0.5,,150,100,0\n");
  EXPECT_EQ((std::vector<double>{0.5, -1.0, -1.0, 100.0, -1.0}), settings_.GetBaseDiscCoeffs());
  Load("[General]\nBaseDiscCoeff=\n");
  EXPECT_TRUE(settings_.GetBaseDiscCoeffs().empty());
}

TEST_F(TGeneralSettingsTest, IgnoreChecksClients) {
  Load("[IgnoreChecks]\nClients=C1, C2,C1\n");
  EXPECT_EQ((Strings{"C1", "C2"}), settings_.GetIgnoreChecksClients().Items());
  Load("");
  EXPECT_TRUE(settings_.GetIgnoreChecksClients().Empty());
}

TEST_F(TGeneralSettingsTest, VolatilityChangeScenarios) {
  Load("[General]\nVolatilityChangeScenarios= 0.3 , 0.2\n");
  EXPECT_TRUE(settings_.GetVolatilityChangeScenarios().isSet);
  EXPECT_DOUBLE_EQ(0.3, settings_.GetVolatilityChangeScenarios().up);
  EXPECT_DOUBLE_EQ(0.2, settings_.GetVolatilityChangeScenarios().down);
  Load("");
  EXPECT_FALSE(settings_.GetVolatilityChangeScenarios().isSet);
}

// ---- Commission lists ----

TEST_F(TGeneralSettingsTest, MinTSCommClassesDefaultNamesEveryTariffBoardOnce) {
  Load("");
  const TClassList& boards = settings_.GetMinTSCommClasses();
  EXPECT_EQ(361u, boards.Size());
  // The first and last board of the tariff table, and one of each family.
  for (const char* board : {"TQCB", "OCBY", "PYGC", "EQDP", "TQDB", "RPEQ", "NEGD", "MTQR", "FKOY", "SDBP"})
    EXPECT_TRUE(settings_.IsBoardInMinTSCommClasses(board)) << board;
  EXPECT_FALSE(settings_.IsBoardInMinTSCommClasses("DEFAULT"));
  EXPECT_EQ(1, std::count(boards.Items().begin(), boards.Items().end(), "PYGC"));
}

TEST_F(TGeneralSettingsTest, CommissionListsOfTheText) {
  Load("[General]\nMINTSCOMMCLASSES=TQBR\nBUYSELLREPOTSCOMMCLASSES=EQRP\nIGNORETSCOMMFORTRADE=TQOB\n"
       "IGNOREMINTSCOMMFORCLASSES=CETS\n");
  EXPECT_TRUE(settings_.IsBoardInMinTSCommClasses("TQBR"));
  EXPECT_FALSE(settings_.IsBoardInMinTSCommClasses("TQCB"));
  EXPECT_TRUE(settings_.IsBoardInBuySellREPOTSCommClasses("EQRP"));
  EXPECT_FALSE(settings_.IsBoardInBuySellREPOTSCommClasses("RPMA"));
  EXPECT_TRUE(settings_.IsIgnoreTSCommForTrade("TQOB"));
  EXPECT_TRUE(settings_.IsIgnoreMinTSCommClasses("CETS"));
}

// ---- Plain lists of other sections ----

TEST_F(TGeneralSettingsTest, MarketToLimitOrderPricePercentDropsValuesBelowZero) {
  Load("[MarketToLimitOrderPricePercent]\nTQBR=5\nSPBFUT=-1\nCETS=0\n");
  const auto& m = settings_.GetMarketToLimitOrderPricePercent();
  EXPECT_EQ(2u, m.size());
  EXPECT_DOUBLE_EQ(5.0, m.at("TQBR"));
  EXPECT_DOUBLE_EQ(0.0, m.at("CETS"));
  EXPECT_EQ(0u, m.count("SPBFUT"));
}

// ---- Repo term by board ----

TEST_F(TGeneralSettingsTest, EmptyTextFillsTheRepoTermTable) {
  Load("");
  EXPECT_EQ(86u, settings_.GetRepoTerms().size());
  const std::map<std::string, int> samples = {{"EQRD", 1},     {"GYRP", 1},      {"FCOW", 7},  {"EQWY_BND", 7},
                                              {"GCSW", 14},    {"EQMD_BND", 30}, {"FCOM", 30}, {"FKFW", 35},
                                              {"FSFW", 35},    {"GCSM", 60},     {"ETQD_BND", 90}, {"FCTM", 90},
                                              {"GCUM", 180},   {"FCNM", 270},    {"GCOY", 365}, {"FCOY", 365}};
  for (const auto& [board, days] : samples) {
    int got = -1;
    EXPECT_TRUE(settings_.GetRepoTermByBoard(board, got)) << board;
    EXPECT_EQ(days, got) << board;
  }
}

TEST_F(TGeneralSettingsTest, RepoTermOfBoardIgnoresCaseAndUnknownBoardIsNotFound) {
  Load("");
  int days = -1;
  EXPECT_TRUE(settings_.GetRepoTermByBoard("gcoy", days));
  EXPECT_EQ(365, days);
  days = -1;
  EXPECT_FALSE(settings_.GetRepoTermByBoard("TQBR", days));
  EXPECT_EQ(-1, days);
}

TEST_F(TGeneralSettingsTest, SecondSetRepoTermForRepoCCPChangesNothing) {
  Load("");
  const TGeneralSettings::TBoardToDays before = settings_.GetRepoTerms();
  settings_.SetRepoTermForRepoCCP();
  EXPECT_EQ(before, settings_.GetRepoTerms());
}

// ---- Get operations by code: the error paths ----

TEST_F(TGeneralSettingsTest, GetByCodeOfAnotherKindReturnsThreeAndLeavesTheOutput) {
  Load("");
  bool flag = true;
  EXPECT_EQ(ZDL_BAD_ARGUMENT, settings_.GetFlagParam(DL::gpUsePGO, flag));
  EXPECT_TRUE(flag);
  int value = 77;
  EXPECT_EQ(ZDL_BAD_ARGUMENT, settings_.GetIntParam(DL::gpVAT, value));
  EXPECT_EQ(77, value);
  double number = 7.5;
  EXPECT_EQ(ZDL_BAD_ARGUMENT, settings_.GetNumberParam(DL::gpCheckClient, number));
  EXPECT_DOUBLE_EQ(7.5, number);
  std::string text = "keep";
  EXPECT_EQ(ZDL_BAD_ARGUMENT, settings_.GetTextParam(DL::gpSpotClasses, text));
  EXPECT_EQ("keep", text);
  const TClassList* list = nullptr;
  EXPECT_EQ(ZDL_BAD_ARGUMENT, settings_.GetListParam(DL::gpDiscountTrdAcc, list));
  EXPECT_EQ(nullptr, list);
}

TEST_F(TGeneralSettingsTest, GetByCodeOutOfRangeReturnsThree) {
  Load("");
  int value = 77;
  EXPECT_EQ(ZDL_BAD_ARGUMENT, settings_.GetIntParam(DL::gpCount, value));
  EXPECT_EQ(ZDL_BAD_ARGUMENT, settings_.GetIntParam(static_cast<EGeneralParam>(-1), value));
  EXPECT_EQ(77, value);
}

TEST_F(TGeneralSettingsTest, FindGeneralParamIgnoresCaseAndNeedsTheRightSection) {
  EGeneralParam code = DL::gpCount;
  EXPECT_TRUE(TGeneralSettings::FindGeneralParam("general", "usepgo", code));
  EXPECT_EQ(DL::gpUsePGO, code);
  EXPECT_TRUE(TGeneralSettings::FindGeneralParam("COMMISSION", "vat", code));
  EXPECT_EQ(DL::gpVAT, code);
  code = DL::gpCount;
  EXPECT_FALSE(TGeneralSettings::FindGeneralParam("General", "VAT", code));
  EXPECT_FALSE(TGeneralSettings::FindGeneralParam("General", "NoSuchParam", code));
  EXPECT_EQ(DL::gpCount, code);
}

TEST_F(TGeneralSettingsTest, ConstructedSettingsHoldDefaultsWithoutAnyText) {
  TGeneralSettings fresh;
  EXPECT_EQ("SUR", fresh.GetMainCurrency());
  EXPECT_DOUBLE_EQ(100.0, fresh.GetThresMarginCoeff());
  EXPECT_TRUE(fresh.GetRepoTerms().empty());
  EXPECT_EQ(kMainMarginClasses, fresh.GetMainMarginClasses().Items());
  EXPECT_EQ(1, fresh.GetCreditLag());
}

}  // namespace
