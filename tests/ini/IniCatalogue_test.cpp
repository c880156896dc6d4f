// The catalogue of section and parameter names: every name against its
// number in both directions, the price types, the template endings, the
// table of supported parameters, and the self-check of the tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "ini/CodeTable.h"
#include "ini/TIniParser.h"
#include "support/Errors.h"

namespace {

using DL::TIniParser;

// The names as firms' files spell them, by number, written out here
// independently of the tables under test.
const char* const kSectionNames[] = {
    "AccessToComplexInstruments", "AddCommonTrdacc", "AddLimitBoards", "AddLimitTrdacc",
    "AddLockedBoards", "AddLockedTrdacc", "AddMultiCurrency", "AddNonMarginalBoard",
    "AddREPOTrdacc", "AddZadolgBoards", "AllowedISINPrefix", "AllowedPartnersAndSettleCodes",
    "AllowedPartners", "AllowedSecurity", "AssetSecurities", "BoardTag", "BrokerQuoteBoard",
    "ChangeClientCodes", "ChangeFutClientCodes", "cl<GENERAL>_Margin", "ClientCval", "ClientLag",
    "Commission", "ClassToLimitKind", "ClassesWithTradeCurrency", "CommissionCurrency",
    "CommissionWriteOffCurrency", "CommissionSettingsCurrency", "CommissionScaleBoards",
    "CommissionScale", "ComplexFIApprovedClients", "ComplexInstruments", "CounterpartyLimits",
    "Currency", "DerivativesBaseAssets", "DiscountsTypeByClasses", "FloodControlByInstrument",
    "FutRiskLimitingPrice", "FuturesComission", "General", "GlobalProhibedTrdAcc",
    "GroupsOfInstrumentsAndClasses", "IgnoreChecks", "IgnoreDelayedUSTradesForClasses",
    "InformClientsAboutShortPos", "InstrumentsWithoutCurrencyRisk", "LimitAllowedSecurity",
    "LinkedUserTemplate", "MaxPositionLimit", "MaxOrderQuantity", "MaxSettleDateByAssetType",
    "MDPlusDefaultNettingType", "MinOrderQuantity", "MinOrderQuantityInSetTime",
    "MOEXCommissionExportClasses", "NegDealClasses", "OrderMaxValue", "OrderMinValue",
    "PositionPriceCurrency", "PreTrade_", "PriceLimit", "PriceLimitByTime",
    "ProhibitedCPAndSettlementCurrency", "ProhibitOrders", "ProhibitREPOByFirstPartSideAndTerm",
    "ProhibitedPartnersAndSettleCodes", "ProhibitedPartners", "REPOLimitBoards",
    "REPOLimitTrdAcc", "RestOrdVolumeByAvgTurnover", "RestShortSecurities",
    "RestrictMaxValueForSettlementCurrency", "RestrictOpenSecurity", "RestrictOptionOrders",
    "RestrictREPOByFirstPartSide", "RestrictREPOWithCPBasedOnTerm",
    "RestrictSecuritiesPropotionInCollateral", "RestrictSecurity", "SecLotBoard", "SecToBoard",
    "SecPriceLimit", "SecurityAllowed", "SecurityAllowedTrdAcc", "SecurityDiscounts",
    "SecurityProhibitedTrdAcc", "SecurityRestricted", "SecurityToLimitKind",
    "SettleCodeToLimitKind", "Soft_RestrictMaxValueForSettlementCurrency", "Soft_PriceLimit",
    "Soft_ProhibitedCPAndSettlementCurrency", "Soft_ProhibitREPOByFirstPartSideAndTerm",
    "Soft_ProhibitedPartnersAndSettleCodes", "Soft_RestOrdVolumeByAvgTurnover",
    "Soft_RestrictREPOWithCPBasedOnTerm", "Soft_SecPriceLimit", "Soft_SecurityAllowed",
    "Soft_SecurityRestricted", "SpecialTradingAccounts", "SubBrokerGlobals", "SubBrokerNoGlobals",
    "SubBrokers", "SubBrokerYesGlobals", "SubstitutableCurrencies", "ThresMarginCoeff",
    "TranoutTag", "TransferBoard", "SecurityWeight", "UserTemplate",
};

const char* const kParamNames[] = {
    "<ALL>", "<ALL_NDM>", "<ALL_NDM_CCP>", "<ALL_REPO>", "<ALL_REPO_CCP>", "_AssetType_",
    "_ASSET", "_ClassList_", "_DISC", "_FaceValueCurrency_", "_FuturesComission", "_INSTR_",
    "_Instruments_", "_INTERVAL_", "_RateType_", "_RepoTerm_", "_RESTRICTOPEN", "_RESTSECURITY",
    "_RESTSHORT", "_SECURITY", "_SettlementCurrency_", "_Side_", "_TAG", "_TIME_", "_TRDACC",
    "_TRDACC_", "_TYPE_", "AcceptClosePeriodOrders", "AccessToComplexInstruments",
    "AddMultiCurrency", "AddSubClientDelimiter", "AllowedISINPrefix",
    "AllowedPartnersAndSettleCodes_", "AllowedTrdAcc", "AllowedPartners", "AllowPositionClosing",
    "BaseIndicator", "BaseDiscCoeff", "BasePeriod", "BoardTag", "BrokerCommission",
    "BrokerQuoteBoard", "CalcDerivativesPosPrice", "CalcNegDeal", "CalcOptionsPremium",
    "ChangeClientCodesStrict", "CheckClient", "CheckForAllLimitKinds", "CheckUser",
    "ClassesWithPriceExportForMarketOrders", "Classes", "ClassToLimitKind_",
    "ClassesWithIgnoreRstrNMBuy", "ClassesWithoutOrderCheck", "ClassesWithoutTSCommission",
    "Clients", "ClientCval", "ClientMarketOrder", "CommissionScaleJump", "CommissionType",
    "CommissionWriteOffCurrency_", "ComplexInstrAccessByBitmaskInLeverage",
    "ComplexInstrumentsAccessControl", "ComplexInstrumentsTypesWithoutRestrictions",
    "ConsiderRepoTerm", "ConsiderRiskLevelForShortPosInforming", "CP_", "Currency_", "Currency2_",
    "CurrencyClassesWithCCYData", "DependencyTrend", "DerivativesAutoInclusion",
    "DoNotApplyCoeffToOwnDiscounts", "DoNotCheckForDiffSettlCurr", "DoNotUseGlobalDiscounts",
    "DiscountsTypeByClasses_", "EmptyClientAllowed", "ExtendedSubClient",
    "FillPosPriceCurrForBonds", "FillPosPriceCurrForSecExclBonds", "FIRM", "FloodControl",
    "FloodControlByInstrument_", "FloodControlOnDuplicateTransactions",
    "FuturesDiscountFromCollateralAmount", "GlobalProhibedTrdAcc", "HighRiskLevelClients",
    "IgnoreClasses", "IgnoreRepoLen", "IncludeClientsWithLeverage", "InformClientsAboutShortPos",
    "InstrumentsWithoutCurrencyRisk_", "LimitKinds", "LimitsInLots", "LinkedUserTemplate",
    "MainMarginClasses", "ManagerCanClosePos", "MaxOrderQuantity_", "MaxPositionLimit_",
    "MaxSettleDateByAssetType_", "MaxValue", "MDPlusCurrRiskNetting", "MDPlusDefaultNettingType",
    "MDPlusMinMarginCalcRate", "MDPlusDiffCurrAssetsInSets", "MIDDLE", "MinDiscRateLong",
    "MinDiscRateShort", "MinOrderQuantity_", "OrderMinValue_", "MinValue", "MinVolume",
    "NegativeMoneyToShort", "NegDealClasses", "NonMargCurrNotInCollateral", "1SecCommission",
    "OrderMaxValue", "PremOptSimpleAccounting", "PriceLimit_", "PriceLimitByTime_",
    "PriceLimit_MIDDLE", "ProhibedTrdAcc", "ProhibitedCPAndSettlementCurrency_",
    "ProhibitedPartners", "ProhibitedPartnersAndSettleCodes_", "QualifiedInvestors",
    "PositionKeepingInCalendarDays", "PositionKeepingInCalendarDaysForAllMarkets",
    "ProhibitREPOByFirstPartSideAndTerm_", "ReferencePrice_",
    "RecalcCHRiskRatesIntoAssetRiskCurr", "RelativeRiskRate", "RepoPerDayCommission_",
    "RepoScale_", "RepoBroker", "ReqDebtReductionForRepoProlongation", "RstrDerivatives",
    "RestrictMaxValueForSettlementCurrency_", "RestrictREPOByFirstPartSide_",
    "RestrictREPOWithCPBasedOnTerm_", "RestOrdVolumeByAvgTurnover_",
    "RoundScaleCommissionOnDayValue", "RstrCashDebtForComplexReport", "SECURITY_", "RstrTransfer",
    "SecurityAllowed_", "SecurityRestricted_", "SecPriceLimit_", "SecPriceLimit_MIDDLE",
    "SecPricePrior", "SecurityToLimitKind_", "SettleCodeToLimitKind_", "SetOfInstruments_",
    "SettlCodesRegardlessCalendar", "Soft_", "Soft_PriceLimit_", "Soft_PriceLimit_MIDDLE",
    "Soft_ProhibitedCPAndSettlementCurrency_", "Soft_ProhibitedPartnersAndSettleCodes_",
    "Soft_ProhibitREPOByFirstPartSideAndTerm_", "Soft_RestrictMaxValueForSettlementCurrency_",
    "Soft_RestrictREPOWithCPBasedOnTerm_", "Soft_RestOrdVolumeByAvgTurnover_",
    "Soft_SecurityAllowed_", "Soft_SecurityRestricted_", "Soft_SecPriceLimit_",
    "Soft_SecPriceLimit_MIDDLE", "SubBrokerGenerateClient", "SupportMultiCurrency",
    "ThresMarginCoeff", "TPName", "TradeCommission", "TradeLotCommission", "TradeOblCommission",
    "TSCommission_", "TransferBoard", "UseGlobalSets", "UseSetsForNonTemplateClients",
    "UseBondPlacementReducedMOEXRate", "UseCHSecurityDiscounts", "UseCommissionScale",
    "UseCorrelation", "UseCommonTrdAcc", "UseDiscCoeffForCHRates", "UseDiscountsType",
    "UseMarginalSignsFromDiscSettings", "UseModifiedCommissionCalculation",
    "UseOpenFXRateClasses", "UseSecurityDiscounts", "UseTotalBalance", "UseVolumeBasedCommission",
    "UserTemplate", "VolatilityChangeScenarios", "WithinAvailableCurrencyBalance",
    "WriteDebugInfo",
};

const char* const kPartSectionNames[] = {
    "AddMultiCurrency_", "_Client_Template", "_CommissionScale_Template", "_CommissionScale",
    "CommissionScaleBoards_", "<General>", "_LimitKind_", "_Margin", "_Margin_Template",
    "_Restriction_Template", "BaseAssets_Template_", "_Template", "tp", "_bd", "bd",
    "ChangeFutClientCodes_", "cl", "u", "VolumeBasedCommission_", "SetOfInstruments_",
    "_SetOfInstruments_",
};

const char* const kPartParamNames[] = {
    "AddCommonTrdAcc_", "DefaultTP", "NonMarginTrdAcc_", "SECTOBOARD_", "_DISC", "_MIDDLE", "_TAG",
};

std::string Upper(std::string s) {
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

// Number of a name in a table, or -1.
int Find(const std::vector<std::string>& table, const std::string& name) {
  const auto it = std::find(table.begin(), table.end(), name);
  return it == table.end() ? -1 : static_cast<int>(it - table.begin());
}

class IniCatalogueTest : public ::testing::Test {
 protected:
  void SetUp() override { TIniParser::FillCodeTables(); }
};

TEST_F(IniCatalogueTest, EverySectionNameStandsAtItsNumberAndBack) {
  ASSERT_EQ(std::size(kSectionNames), 109u);
  ASSERT_EQ(TIniParser::m_iniSectCodes.size(), 109u);
  for (int i = 0; i < 109; ++i) {
    const auto code = static_cast<DL::EIniSectCodeNum>(i);
    EXPECT_EQ(TIniParser::GetIniSectCode(code), kSectionNames[i]) << i;
    EXPECT_EQ(Find(TIniParser::m_iniSectCodes, kSectionNames[i]), i) << kSectionNames[i];
    EXPECT_EQ(TIniParser::GetIniSectCodeUp(code), Upper(kSectionNames[i])) << i;
    EXPECT_EQ(DL::IniSectName(code), kSectionNames[i]) << i;
  }
}

TEST_F(IniCatalogueTest, EveryParameterNameStandsAtItsNumberAndBack) {
  ASSERT_EQ(std::size(kParamNames), 195u);
  ASSERT_EQ(TIniParser::m_iniParamCodes.size(), 195u);
  for (int i = 0; i < 195; ++i) {
    const auto code = static_cast<TIniParser::EIniParamCodeNum>(i);
    EXPECT_EQ(TIniParser::GetIniParamCode(code), kParamNames[i]) << i;
    EXPECT_EQ(Find(TIniParser::m_iniParamCodes, kParamNames[i]), i) << kParamNames[i];
    EXPECT_EQ(TIniParser::GetIniParamCodeUp(code), Upper(kParamNames[i])) << i;
  }
}

TEST_F(IniCatalogueTest, EveryPartNameStandsAtItsNumberAndBack) {
  ASSERT_EQ(TIniParser::m_partIniSectCodes.size(), std::size(kPartSectionNames));
  for (int i = 0; i < static_cast<int>(std::size(kPartSectionNames)); ++i) {
    const auto code = static_cast<TIniParser::EPartIniSectCodeNum>(i);
    EXPECT_EQ(TIniParser::GetPartIniSectCode(code), kPartSectionNames[i]) << i;
    EXPECT_EQ(Find(TIniParser::m_partIniSectCodes, kPartSectionNames[i]), i);
    EXPECT_EQ(TIniParser::GetPartIniSectCodeUp(code), Upper(kPartSectionNames[i]));
  }
  ASSERT_EQ(TIniParser::m_partIniParamCodes.size(), std::size(kPartParamNames));
  for (int i = 0; i < static_cast<int>(std::size(kPartParamNames)); ++i) {
    const auto code = static_cast<TIniParser::EPartIniParamCodeNum>(i);
    EXPECT_EQ(TIniParser::GetPartIniParamCode(code), kPartParamNames[i]) << i;
    EXPECT_EQ(Find(TIniParser::m_partIniParamCodes, kPartParamNames[i]), i);
    EXPECT_EQ(TIniParser::GetPartIniParamCodeUp(code), Upper(kPartParamNames[i]));
  }
}

TEST_F(IniCatalogueTest, NamedCodesHaveTheirNumbers) {
  EXPECT_EQ(DL::iscClientCval, 20);
  EXPECT_EQ(DL::iscClGeneral_Margin, 19);
  EXPECT_EQ(DL::iscPreTrade_, 59);
  EXPECT_EQ(DL::iscUserTemplate, 108);
  EXPECT_EQ(DL::iscNone, 109);
  EXPECT_EQ(TIniParser::ipcReserved_ALL, 0);
  EXPECT_EQ(TIniParser::ipc1SecCommission, 115);
  EXPECT_EQ(TIniParser::ipcFIRM, 80);
  EXPECT_EQ(TIniParser::ipcMIDDLE, 105);
  EXPECT_EQ(TIniParser::ipcSoft_, 154);
  EXPECT_EQ(TIniParser::ipcWriteDebugInfo, 194);
  EXPECT_EQ(TIniParser::ipcNone, 195);
  EXPECT_EQ(TIniParser::pscCl, 16);
  EXPECT_EQ(TIniParser::ppc_TAG, 6);
}

TEST_F(IniCatalogueTest, SettingsReaderTakesClientCvalFromTheSectionTable) {
  EXPECT_EQ(DL::kClientCvalSectionName, TIniParser::GetIniSectCode(DL::iscClientCval));
  EXPECT_EQ(DL::kClientCvalSectionName, "ClientCval");
}

TEST_F(IniCatalogueTest, PriceTypesByNameAndNumber) {
  const char* const names[] = {"", "WAPRICE", "LAST", "OPEN", "MARKETPRICE",
                               "PREVPRICE", "THEORPRICE", "BIDOFFER"};
  for (int i = 1; i < 8; ++i) {
    EXPECT_EQ(TIniParser::GetPriceType(names[i]), i);
    EXPECT_EQ(TIniParser::GetPriceTypeString(i), names[i]);
  }
  EXPECT_EQ(TIniParser::GetPriceTypeString(0), "");
  EXPECT_EQ(TIniParser::m_priceTypeSgToPriceType.size(), 7u);
}

TEST_F(IniCatalogueTest, UnknownPriceTypeNameIsZeroAndCaseMatters) {
  EXPECT_EQ(TIniParser::GetPriceType(""), 0);
  EXPECT_EQ(TIniParser::GetPriceType("last"), 0);
  EXPECT_EQ(TIniParser::GetPriceType("LAST"), 2);
}

TEST_F(IniCatalogueTest, PriceTypeStringBeyondTheTableIsEmpty) {
  EXPECT_EQ(TIniParser::GetPriceTypeString(99), "");
  EXPECT_EQ(TIniParser::GetPriceTypeString(8), "");
}

TEST_F(IniCatalogueTest, IsPriceTypeBelowEightIncludingZero) {
  EXPECT_TRUE(TIniParser::IsPriceType(0));
  EXPECT_TRUE(TIniParser::IsPriceType(7));
  EXPECT_FALSE(TIniParser::IsPriceType(8));
}

TEST_F(IniCatalogueTest, TemplateTypesGiveTheirEndings) {
  const std::pair<int, const char*> cases[] = {{0, "_Client_Template"},
                                               {1, "_CommissionScale_Template"},
                                               {2, "_Margin_Template"},
                                               {3, "_Restriction_Template"}};
  for (const auto& [type, ending] : cases) {
    TIniParser::EPartIniSectCodeNum code = TIniParser::pscCount;
    EXPECT_EQ(TIniParser::GetPartIniSectCodeNum__XXX_Template(code, type), 0);
    EXPECT_EQ(TIniParser::GetPartIniSectCode(code), ending);
  }
}

TEST_F(IniCatalogueTest, UnknownTemplateTypeReturnsFourAndLeavesOutputUnset) {
  TIniParser::EPartIniSectCodeNum code = TIniParser::pscU;
  EXPECT_EQ(TIniParser::GetPartIniSectCodeNum__XXX_Template(code, 4), 4);
  EXPECT_EQ(code, TIniParser::pscU);
  EXPECT_EQ(TIniParser::GetPartIniSectCodeNum__XXX_Template(code, -1), 4);
  EXPECT_EQ(code, TIniParser::pscU);
}

TEST_F(IniCatalogueTest, SupportedTableHasNineGroupsWithFourFilled) {
  const auto& sup = TIniParser::supParamAndSectCodes_;
  ASSERT_EQ(sup.size(), 9u);
  const std::size_t expected[] = {0, 24, 31, 0, 20, 23, 0, 0, 0};
  for (std::size_t g = 0; g < 9; ++g) EXPECT_EQ(sup[g].size(), expected[g]) << g;
}

TEST_F(IniCatalogueTest, SupportedRowsKeepTheirOddities) {
  const auto& restr = TIniParser::supParamAndSectCodes_[TIniParser::SectRestrictionTemplate];
  EXPECT_EQ(restr[4].paramCode, TIniParser::ipcSoft_RestOrdVolumeByAvgTurnover_);
  EXPECT_EQ(restr[4].kind, TIniParser::ParamMatchWhole);
  EXPECT_EQ(restr[4].sectCode, DL::iscSoft_RestOrdVolumeByAvgTurnover);
  const auto& margin = TIniParser::supParamAndSectCodes_[TIniParser::SectMarginTemplate];
  EXPECT_EQ(std::count_if(margin.begin(), margin.end(),
                          [](const auto& r) { return r.paramCode == TIniParser::ipcUseDiscCoeffForCHRates; }),
            2);
  EXPECT_EQ(margin[0].paramCode, TIniParser::ipc_DISC);
  EXPECT_EQ(margin[0].kind, TIniParser::ParamMatchSuffix);
  EXPECT_EQ(margin[0].sectCode, DL::iscSecurityDiscounts);
  EXPECT_EQ(margin[1].sectCode, DL::iscNone);
}

TEST_F(IniCatalogueTest, GlobalGroupRowsNameSectionsOnly) {
  const auto& global = TIniParser::supParamAndSectCodes_[TIniParser::SectGlobal];
  for (const auto& row : global) {
    EXPECT_EQ(row.paramCode, TIniParser::ipcNone);
    EXPECT_EQ(row.kind, 0);
  }
  EXPECT_EQ(global.front().sectCode, DL::iscChangeFutClientCodes);
  EXPECT_EQ(global.back().sectCode, DL::iscClassesWithTradeCurrency);
}

TEST_F(IniCatalogueTest, KeyMatchesWholePrefixOrSuffixInUpperCase) {
  const TIniParser::TSupParamAndSectCodes whole{TIniParser::ipcUserTemplate, 0, DL::iscUserTemplate};
  const TIniParser::TSupParamAndSectCodes prefix{TIniParser::ipcPriceLimit_, 1, DL::iscPriceLimit};
  const TIniParser::TSupParamAndSectCodes suffix{TIniParser::ipc_DISC, 2, DL::iscSecurityDiscounts};
  const TIniParser::TSupParamAndSectCodes none{TIniParser::ipcNone, 0, DL::iscGeneral};
  EXPECT_TRUE(TIniParser::DoesKeyMatchSupportedParam(whole, "USERTEMPLATE"));
  EXPECT_FALSE(TIniParser::DoesKeyMatchSupportedParam(whole, "USERTEMPLATE2"));
  EXPECT_TRUE(TIniParser::DoesKeyMatchSupportedParam(prefix, "PRICELIMIT_TQBR"));
  EXPECT_FALSE(TIniParser::DoesKeyMatchSupportedParam(prefix, "XPRICELIMIT_TQBR"));
  EXPECT_TRUE(TIniParser::DoesKeyMatchSupportedParam(suffix, "TQBR_DISC"));
  EXPECT_FALSE(TIniParser::DoesKeyMatchSupportedParam(suffix, "TQBR_DISC1"));
  EXPECT_FALSE(TIniParser::DoesKeyMatchSupportedParam(none, ""));
}

// ---- The self-check ----

TEST(CodeTableTest, HoleIsReportedWithItsNumbersAndUpperTwinStaysEmpty) {
  const DL::TCodeName rows[] = {{0, "A"}, {2, "C"}};
  std::vector<std::string> table, up;
  EXPECT_EQ(DL::FillCodeTable(rows, 4, "Not filled ini-section codes with numbers: ", table, up),
            "Not filled ini-section codes with numbers: 1, 3.");
  EXPECT_TRUE(up.empty());
}

TEST(CodeTableTest, EmptyNameAndOutOfRangeCodeAreHoles) {
  const DL::TCodeName rows[] = {{0, ""}, {1, "B"}, {5, "F"}, {-1, "X"}};
  std::vector<std::string> table, up;
  EXPECT_EQ(DL::FillCodeTable(rows, 3, "M: ", table, up), "M: 0, 2.");
}

TEST(CodeTableTest, WholeTableFillsUpperTwin) {
  const DL::TCodeName rows[] = {{1, "bB"}, {0, "aA"}};
  std::vector<std::string> table, up;
  EXPECT_EQ(DL::FillCodeTable(rows, 2, "M: ", table, up), "");
  EXPECT_EQ(table, (std::vector<std::string>{"aA", "bB"}));
  EXPECT_EQ(up, (std::vector<std::string>{"AA", "BB"}));
}

TEST(CodeTableTest, FilledTableIsLeftAlone) {
  const DL::TCodeName rows[] = {{0, "new"}};
  std::vector<std::string> table{"old"}, up{"OLD"};
  EXPECT_EQ(DL::FillCodeTable(rows, 1, "M: ", table, up), "");
  EXPECT_EQ(table[0], "old");
  EXPECT_EQ(up[0], "OLD");
}

TEST(CodeTableTest, PriceTypeHoleAndShortMapAreBothReported) {
  const DL::TCodeName rows[] = {{1, "WAPRICE"}, {3, "OPEN"}};
  std::map<std::string, int> byName;
  std::vector<std::string> byNumber;
  EXPECT_EQ(DL::FillPriceTypeTables(rows, 4, byName, byNumber),
            "Not filled \"Price Type -> Price Type Id\".\n"
            "Not filled \"Price Types\" with numbers: 2.");
  EXPECT_EQ(byNumber.size(), 4u);
  EXPECT_EQ(byNumber[0], "");
}

TEST(CodeTableTest, PriceTypesFilledOnceAreLeftAlone) {
  const DL::TCodeName rows[] = {{1, "WAPRICE"}};
  std::map<std::string, int> byName{{"X", 1}};
  std::vector<std::string> byNumber{"", "X"};
  EXPECT_EQ(DL::FillPriceTypeTables(rows, 2, byName, byNumber), "");
  EXPECT_EQ(byNumber[1], "X");
}

TEST(CodeTableTest, HoleStopsTheStartWithCErrorsNamingEveryTable) {
  const DL::TCodeName sectRows[] = {{0, "General"}, {2, "ClientCval"}};
  const DL::TCodeName paramRows[] = {{1, "Clients"}};
  std::vector<std::string> sect, sectUp, param, paramUp;
  const std::string sectText =
      DL::FillCodeTable(sectRows, 3, "Not filled ini-section codes with numbers: ", sect, sectUp);
  const std::string paramText =
      DL::FillCodeTable(paramRows, 2, "Not filled ini-parameter codes with numbers: ", param, paramUp);
  try {
    DL::ThrowIfCodeTableErrors({sectText, "", paramText});
    FAIL() << "a table with a hole must stop the start";
  } catch (const CErrors& e) {
    EXPECT_EQ(e.Message(),
              "Not filled ini-section codes with numbers: 1.\n"
              "Not filled ini-parameter codes with numbers: 0.\n");
  }
}

TEST(CodeTableTest, WholeTablesDoNotThrow) {
  EXPECT_NO_THROW(DL::ThrowIfCodeTableErrors({"", "", "", "", ""}));
}

TEST(CodeTableTest, FillingTwiceKeepsTheFirstTables) {
  TIniParser::FillCodeTables();
  const std::string* first = &TIniParser::GetIniSectCode(DL::iscGeneral);
  const auto sup = TIniParser::supParamAndSectCodes_;
  TIniParser::FillCodeTables();
  EXPECT_EQ(first, &TIniParser::GetIniSectCode(DL::iscGeneral));
  EXPECT_EQ(TIniParser::m_iniSectCodes.size(), 109u);
  EXPECT_EQ(TIniParser::supParamAndSectCodes_.size(), sup.size());
  EXPECT_EQ(TIniParser::supParamAndSectCodes_[1].size(), sup[1].size());
}

}  // namespace
