#pragma once
// The typed sections of the settings that the margin method reads: the
// General values, a set of instruments with dependent prices, and a margin
// template with the clients and leverages it claims.
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "settings/DeallerParser.h"
#include "settings/SettingTypes.h"

namespace DLTypes {

struct General {
  std::map<SettingTypeFlag, bool> flags;
  std::string mainCurrency = "SUR";  // "BaseCurrency"
  int creditLag = 1;                 // "CreditLag"
  TBoardList boardsWithVMCalc;       // "ClassesWithVarMarginCalc"
  TBoardList boardsWithVMCalcByGO;   // "ClassesWithVarMarginCalcOnSettlePrice"
  TMinMarginCalcRate minMarginCalcRate{0.5};  // "MDPlusMinMarginCalcRate"
  TMarginType marginType{1};
  double thresMarginCoeff = -1.0;    // "ThresMarginCoeff", -1 when not set
  double volatilityUp = 0.0;         // "VolatilityChangeScenarios": up, down
  double volatilityDown = 0.0;
  TDerivativesAutoInclusion derivativesAutoInclusion{0};

  const TBoardList& GetBoardsWithVMCalc() const { return boardsWithVMCalc; }
  const TBoardList& GetBoardsWithVMCalcByGO() const { return boardsWithVMCalcByGO; }
  double GetMDPlusMinMarginCalcRate() const { return minMarginCalcRate.Get(); }
  // False when the flag is absent.
  bool GetFlag(SettingTypeFlag flag) const {
    const auto it = flags.find(flag);
    return it != flags.end() && it->second;
  }
};

class SetOfInstruments {
 public:
  using TInstruments = TComplexSettingSection<TInstrumentRow>;

  SetOfInstruments() : m_instruments(DefaultInstrumentRow()) {}

  TSetName name;                      // at most 13 characters
  std::string baseIndicator;
  TNettingType nettingType{0};
  double thresMarginCoeff = -1.0;     // 0 to 100; -1 when not set
  double volatilityUp = 0.0;
  double volatilityDown = 0.0;
  TDerivativesAutoInclusion derivativesAutoInclusion{0};

  const std::string& GetBaseIndicator() const { return baseIndicator; }
  unsigned GetNettingType() const { return nettingType.Get(); }
  double GetThresMarginCoeff() const { return thresMarginCoeff; }
  std::pair<double, double> GetVolatilityChangeScenariosSettings() const { return {volatilityUp, volatilityDown}; }
  unsigned GetDerivativesAutoInclusion() const { return derivativesAutoInclusion.Get(); }
  // The instruments' codes, in order.
  std::vector<std::string> GetAllInstruments() const;
  const TInstruments& GetAllDependedInstruments() const { return m_instruments; }
  TInstruments& Instruments() { return m_instruments; }
  // Copies the scalars of another set (not its name or instruments).
  void CopySetParams(const SetOfInstruments& other);

 private:
  TInstruments m_instruments;
};

using TSetsByName = std::map<std::string, SetOfInstruments, DL::StringMapComparerFunc>;

struct MarginTemplate {
  std::string name;
  std::map<SettingTypeFlag, bool> flags;  // FuturesDiscountFromCollateralAmount, HighRiskLevelClients, UseGlobalSets
  TClientList clients;                    // "Clients"
  TLeverageList leverages;                // "IncludeClientsWithLeverage"

  // Null when the template does not say the flag.
  const bool* FindFlag(SettingTypeFlag flag) const {
    const auto it = flags.find(flag);
    return it == flags.end() ? nullptr : &it->second;
  }
};

}  // namespace DLTypes
