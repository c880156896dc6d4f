// The firm's facade: the small reload and the general parameters for a host
// engine, forwarded to the hub.
#include <gtest/gtest.h>

#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"
#include "base/ResultCodes.h"

namespace {

using DL::TInfoStorage;

TEST(InfoStorageInitLiteTest, ANullTextReturns3) {
  TInfoStorage storage("", 2, true);
  EXPECT_EQ(storage.InitLite(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(InfoStorageInitLiteTest, ReplacesTheClientValuesAndKeepsTheGeneralParameters) {
  TInfoStorage storage("[General]\nCalcNegDeal=1\n[ClientCval]\nC1=1\n", 2, true);
  ASSERT_EQ(storage.InitLite("[ClientCval]\nC9=1\n"), ZDL_OK);
  EXPECT_EQ(storage.Hub().GetClientCvalClients(), std::set<std::string>{"C9"});
  EXPECT_TRUE(storage.GetCalcNegDeal());
}

TEST(InfoStorageGeneralTest, NamedGetsForwardTheLoadedValues) {
  TInfoStorage storage("[General]\nThresMarginCoeff=5\nLimitsInLots=0\nSPOTCLASSES=CETS, TQBR\n", 2, true);
  EXPECT_DOUBLE_EQ(storage.GetThresMarginCoeff(), 10.0);
  EXPECT_EQ(storage.GetLimitsInLots(), 0);
  EXPECT_EQ(storage.GetSpotClasses().Items(), (std::vector<std::string>{"CETS", "TQBR"}));
  EXPECT_TRUE(storage.GetAcceptClosePeriodOrders());
  EXPECT_EQ(storage.GetMainCurrency(), "SUR");
  EXPECT_TRUE(storage.IsRublesEquivalent("RUB"));
}

TEST(InfoStorageGeneralTest, GetsByCodeReturn3ForAnotherKind) {
  TInfoStorage storage("[General]\nCalcNegDeal=1\n", 2, true);
  bool flag = false;
  EXPECT_EQ(storage.GetFlagParam(DL::gpCalcNegDeal, flag), ZDL_OK);
  EXPECT_TRUE(flag);
  int number = 5;
  EXPECT_EQ(storage.GetIntParam(DL::gpCalcNegDeal, number), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(number, 5);
  double rate = 0;
  EXPECT_EQ(storage.GetNumberParam(DL::gpMDPlusMinMarginCalcRate, rate), ZDL_OK);
  EXPECT_DOUBLE_EQ(rate, 0.5);
  const DL::TClassList* list = nullptr;
  EXPECT_EQ(storage.GetListParam(DL::gpBuySellREPOTSCommClasses, list), ZDL_OK);
  EXPECT_EQ(list->Items(), (std::vector<std::string>{"RPMA", "RPMO"}));
  std::string text;
  EXPECT_EQ(storage.GetTextParam(DL::gpSpotClasses, text), ZDL_BAD_ARGUMENT);
}

TEST(InfoStorageGeneralTest, TypedParametersOfTheGlobalSections) {
  TInfoStorage storage("[General]\nAddSubClientDelimiter=/\nUseCorrelation=0\n", 2, true);
  char c = 0;
  EXPECT_EQ(storage.GetCharParamFromGlobalSection(c, DL::iscGeneral, 0), ZDL_OK);
  EXPECT_EQ(c, '/');
  int i = 1;
  EXPECT_EQ(storage.GetIntParamFromGlobalSection(i, DL::iscGeneral, 8), ZDL_OK);
  EXPECT_EQ(i, 0);
  bool b = false;
  EXPECT_EQ(storage.GetBoolParamFromGlobalSection(b, DL::iscGeneral, 8), ZDL_BAD_ARGUMENT);
}

}  // namespace
