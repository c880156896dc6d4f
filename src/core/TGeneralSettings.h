#pragma once
// The firm-wide general settings of one firm: the currency identity, the
// credit types, the parameters of the sections "General" and "Commission"
// (GeneralParams.def) with the fields derived from them, a few plain lists of
// other sections, and the repo term by board.
//
// The hub owns one and fills it during its load; Load runs the whole of it
// on a parser alone. Only the firm-wide sections are read, so the time does
// not grow with the number of clients. After Load nothing is read again: an
// edit of the text is seen only by a new Load.
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/TClassList.h"
#include "ini/IniSectCodes.h"
#include "ini/SettingsText.h"

namespace DL {

class TIniParser;

// How a general parameter is read and kept; see GeneralParams.def.
enum class EGeneralParamKind { Flag, Int, Number, Text, List, UniqueList, UpperList };

// The code of each general parameter: its row in GeneralParams.def, from 0.
enum EGeneralParam : int {
#define ZDL_GENERAL_PARAM(field, key, section, kind, def) gp##field,
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
  gpCount  // number of general parameters
};

// The C++ type that holds a parameter of each kind.
template <EGeneralParamKind K> struct TGeneralParamType { using type = TClassList; };
template <> struct TGeneralParamType<EGeneralParamKind::Flag> { using type = bool; };
template <> struct TGeneralParamType<EGeneralParamKind::Int> { using type = int; };
template <> struct TGeneralParamType<EGeneralParamKind::Number> { using type = double; };
template <> struct TGeneralParamType<EGeneralParamKind::Text> { using type = std::string; };

// One row of the table, for code that walks all parameters.
struct TGeneralParamInfo {
  EGeneralParam code;
  const char* key;           // as written in the table; matched ignoring case
  EIniSectCodeNum section;   // iscGeneral or iscCommission
  EGeneralParamKind kind;
};

inline constexpr std::array<TGeneralParamInfo, gpCount> kGeneralParamInfos = {{
#define ZDL_GENERAL_PARAM(field, key, section, kind, def) \
  {gp##field, key, isc##section, EGeneralParamKind::kind},
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
}};

// A credit type of a client, as the settings give it (a number; 5 is the
// margin-by-discount type).
using TCreditType = int;

// "FloodControlOnDuplicateTransactions": how many equal transactions within
// how many seconds. -1 as the count means no control.
struct TFloodControlOnDuplicateTransactions {
  int count = -1;
  int interval = 1;
};

// The firm's volatility change scenarios of "VolatilityChangeScenarios".
struct TVolatilityChangeScenarios {
  bool isSet = false;  // the key is in "General"
  double up = 0.0;
  double down = 0.0;
};

class TGeneralSettings {
 public:
  // Case-insensitive maps, as the section map orders its names and keys.
  using TNameToCreditType = std::map<std::string, TCreditType, StringMapComparerFunc>;
  using TBoardToDays = std::map<std::string, int, StringMapComparerFunc>;
  using TNameToNumber = std::map<std::string, double, StringMapComparerFunc>;
  // Substitute currency -> main currency; codes byte for byte.
  using TSubstituteToMain = std::map<std::string, std::string>;

  // Every field at its default, the repo-term map empty.
  TGeneralSettings();

  // The whole load on one parser, in the hub's order: defaults, currency
  // identity, multi-currency basics, credit types, the general parameters,
  // the plain lists of other sections, and the repo-term table last. Missing
  // sections and keys give defaults; a malformed number reads by the rules of
  // strtol and strtod. Nothing is reported and nothing fails.
  void Load(const TIniParser& parser);

  // ---- The steps of Load, for a hub that runs them between its own ----

  // Every field back to its default; the repo-term map emptied.
  void SetDefaults();
  // "SubstitutableCurrencies": key a main currency, value a "," list of its
  // substitutes. A substitute named under two keys keeps the first, in the
  // map's order. If "SUR" has a main currency, that code becomes the firm's
  // main currency. The rubles equivalents become "SUR", "RUR", "RUB" and
  // every substitute of the firm's main currency.
  void ParseSubstitutableCurrencies(const TIniParser& parser);
  // The clients of "ClientsNoMultiCurrency" (key "Clients") and whether the
  // section "IgnoreTrdAcc" exists.
  void ParseMultiCurrencyBasics(const TIniParser& parser);
  // "CREDITLAG" of "General" under the key "DEFAULT"; then each key of
  // "ClientLag": a key ending in "*" (or a lone "*") is a client mask, stored
  // without the star, any other key a client. Values by strtol.
  void ParseCreditTypes(const TIniParser& parser);
  // Every row of GeneralParams.def, then the derived fields: the main and
  // additional main margin classes joined, the accrued-interest rule for all
  // classes, the debug log level, the base discount coefficients,
  // ThresMarginCoeff raised to 10, the clients of "IgnoreChecks", the flood
  // control on duplicate transactions and the volatility change scenarios.
  void ParseGeneralParams(const TIniParser& parser);
  // "MarketToLimitOrderPricePercent": key to number; a number below zero is
  // dropped.
  void ParseMarketToLimitOrderPricePercent(const TIniParser& parser);
  // Does nothing if the repo-term map holds anything; otherwise writes the
  // fixed table of RepoTermsByBoard.def.
  void SetRepoTermForRepoCCP();

  // ---- One Get operation per general parameter ----
#define ZDL_GENERAL_PARAM(field, key, section, kind, def)                         \
  const TGeneralParamType<EGeneralParamKind::kind>::type& Get##field() const { \
    return m_##field;                                                             \
  }
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM

  // The same by code. Each returns 0 and sets `out`, or 3 for a code out of
  // range or of another kind, leaving `out` alone. GetListParam serves the
  // three list kinds.
  [[nodiscard]] int GetFlagParam(EGeneralParam code, bool& out) const;
  [[nodiscard]] int GetIntParam(EGeneralParam code, int& out) const;
  [[nodiscard]] int GetNumberParam(EGeneralParam code, double& out) const;
  [[nodiscard]] int GetTextParam(EGeneralParam code, std::string& out) const;
  [[nodiscard]] int GetListParam(EGeneralParam code, const TClassList*& out) const;
  // Sets a parameter by code: 0, or 3 for a code out of range or of another
  // kind (nothing changes then). The save writes the value from here. A
  // number below 10 for ThresMarginCoeff is raised to 10, as the load does;
  // a new BaseDiscCoeff text is read again into its coefficients.
  [[nodiscard]] int SetFlagParam(EGeneralParam code, bool value);
  [[nodiscard]] int SetIntParam(EGeneralParam code, int value);
  [[nodiscard]] int SetNumberParam(EGeneralParam code, double value);
  [[nodiscard]] int SetTextParam(EGeneralParam code, const std::string& value);
  // Any of the three list kinds; the list is kept as given.
  [[nodiscard]] int SetListParam(EGeneralParam code, const TClassList& value);

  // The code of a parameter by section and key, both ignoring case; false if
  // the table has no such row.
  static bool FindGeneralParam(std::string_view section, std::string_view key, EGeneralParam& out);

  // ---- Currency identity ----
  const std::string& GetMainCurrency() const { return m_mainCurrency; }
  const std::set<std::string>& GetRublesEquivalents() const { return m_rublesEquivalents; }
  bool IsRublesEquivalent(std::string_view currency) const;
  // "RUB" or "RUR" becomes the main currency; any other code stays.
  std::string ReplaceRubRurToMainRubles(std::string_view currency) const;
  const TSubstituteToMain& GetSubstitutableCurrencies() const { return m_substitutes; }
  // The main currency of a substitute, or null when the code is no substitute.
  const std::string* GetMainCurrencyOfSubstitute(std::string_view currency) const;

  // ---- Multi-currency basics ----
  const TClassList& GetClientsNoMultiCurrency() const { return m_clientsNoMultiCurrency; }
  bool HasIgnoreTrdAccSection() const { return m_hasIgnoreTrdAcc; }

  // ---- Credit types ----
  // The client's own entry, else the longest mask that begins its code,
  // else the entry "DEFAULT" (CREDITLAG).
  TCreditType GetCreditType(std::string_view client) const;
  const TNameToCreditType& GetCreditTypesByClient() const { return m_creditTypes; }
  const TNameToCreditType& GetCreditTypesByMask() const { return m_creditTypeMasks; }

  // ---- Derived fields of the general parameters ----
  // MAINMARGINCLASSES, then the classes of ADDMAINMARGINCLASSES not in it.
  const TClassList& GetMainAndAddMainMarginClasses() const { return m_mainAndAddMainMarginClasses; }
  bool IsMainMarginClass(std::string_view classCode) const {
    return m_mainAndAddMainMarginClasses.Contains(classCode);
  }
  // The fixed repo classes "EQMP_BND", "EQTP_BND", "GCNM" ... "PSRP_BND".
  const TClassList& GetConstantRepoClasses() const { return m_constantRepoClasses; }
  // INCLUDEACCRUEDINT begins with "<ALL>" or "1".
  bool IsIncludeAccruedIntForAllClasses() const { return m_includeAccruedIntForAll; }
  bool IsIncludeAccruedInt(std::string_view classCode) const;
  // The first item of DETAILEDDEBUGLOG as a decimal number; 0 when empty.
  int GetDetailedDebugLogLevel() const { return m_detailedDebugLogLevel; }
  // Each item of BaseDiscCoeff by ParseBaseDiscCoeffValue (-1 for an empty
  // or refused item); empty when the value is empty.
  const std::vector<double>& GetBaseDiscCoeffs() const { return m_baseDiscCoeffs; }
  // "Clients" of "IgnoreChecks".
  const TClassList& GetIgnoreChecksClients() const { return m_ignoreChecksClients; }
  const TFloodControlOnDuplicateTransactions& GetFloodControlOnDuplicateTransactions() const {
    return m_floodControlOnDuplicates;
  }
  const TVolatilityChangeScenarios& GetVolatilityChangeScenarios() const { return m_volatilityScenarios; }

  // ---- Commission queries over the lists ----
  bool IsUseTSCommForTrade() const { return m_UseTSCommForTrade; }
  bool IsIgnoreTSCommForTrade(std::string_view classCode) const { return m_IgnoreTSCommForTrade.Contains(classCode); }
  bool IsIgnoreMinTSCommClasses(std::string_view classCode) const {
    return m_IgnoreMinTSCommForClasses.Contains(classCode);
  }
  bool IsBoardInMinTSCommClasses(std::string_view board) const { return m_MinTSCommClasses.Contains(board); }
  bool IsBoardInBuySellREPOTSCommClasses(std::string_view board) const {
    return m_BuySellREPOTSCommClasses.Contains(board);
  }

  // ---- Plain lists of other sections ----
  const TNameToNumber& GetMarketToLimitOrderPricePercent() const { return m_marketToLimitOrderPricePercent; }

  // ---- Repo term by board ----
  // The term in days of a board (ignoring case); false for a board not in
  // the map, leaving `days` alone.
  bool GetRepoTermByBoard(std::string_view board, int& days) const;
  const TBoardToDays& GetRepoTerms() const { return m_repoTerms; }

 private:
  void ReadGeneralRows(const TIniParser& parser);
  void FillMainMarginAndAddMainMarginClasses();
  void ParseDetailedDebugLog();
  void ParseBaseDiscCoeff();
  void ParseIgnoreChecksClients(const TIniParser& parser);
  void ParseFloodControlOnDuplicateTransactions(const TIniParser& parser);
  void ParseVolatilityChangeScenarios(const TIniParser& parser);
  // The field of a code when it is of type T: 0, else 3.
  template <class T>
  int FindField(EGeneralParam code, const T*& out) const;
  template <class T>
  int CopyField(EGeneralParam code, T& out) const;
  template <class T>
  int StoreField(EGeneralParam code, const T& value);

#define ZDL_GENERAL_PARAM(field, key, section, kind, def) TGeneralParamType<EGeneralParamKind::kind>::type m_##field{};
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM

  std::string m_mainCurrency;
  std::set<std::string> m_rublesEquivalents;
  TSubstituteToMain m_substitutes;
  TClassList m_clientsNoMultiCurrency;
  bool m_hasIgnoreTrdAcc = false;
  TNameToCreditType m_creditTypes;      // client (and "DEFAULT") -> type
  TNameToCreditType m_creditTypeMasks;  // client prefix, without the star -> type
  TClassList m_mainAndAddMainMarginClasses;
  TClassList m_constantRepoClasses;
  bool m_includeAccruedIntForAll = false;
  int m_detailedDebugLogLevel = 0;
  std::vector<double> m_baseDiscCoeffs;
  TClassList m_ignoreChecksClients;
  TFloodControlOnDuplicateTransactions m_floodControlOnDuplicates;
  TVolatilityChangeScenarios m_volatilityScenarios;
  TNameToNumber m_marketToLimitOrderPricePercent;
  TBoardToDays m_repoTerms;
};

}  // namespace DL
