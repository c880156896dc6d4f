#pragma once
// The parsed, ready-to-answer form of one firm's settings. The whole load runs
// in the constructor, in a fixed order of steps; afterwards the firm answers
// without reading the source again. Per-client settings are parsed later, on
// first use.
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "api/TMemory.h"
#include "cache/TCacheOfRestrictions.h"
#include "core/TClassList.h"
#include "core/TGeneralSettings.h"
#include "core/TUniversalParser.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"
#include "ini/TMaxOrderValue.h"
#include "support/Errors.h"

class TLogWriter;

namespace DL {

class TStorageHub;
struct TRestrictions;
struct TClientSecurityRestrictions;
struct TClientMarginRestrictions;

// What a rendering function writes from: the kind of the section being
// written (TIniParser::ESectType), its name, its raw parameters (null when
// the text has no such section), and the parsed object of the section when
// it is written from a cache (a client, template or limit-kind section).
// With no parsed object a rendering function writes from the global home of
// its setting.
struct TSettingToStrSource {
  int kind = TIniParser::SectGlobal;
  std::string section;
  const TIniKeyMap* keys = nullptr;
  const TRestrictions* restrictions = nullptr;                   // restriction template
  const TClientSecurityRestrictions* securityRestrictions = nullptr;  // client, client template
  const TClientMarginRestrictions* marginRestrictions = nullptr;      // margin section
  int limitKind = 0;                                                  // margin section
};

// The sections a save has written, by the address of their name in the
// section map; whatever is left is copied raw at the end.
using TWrittenSections = std::set<const std::string*>;

using TSettingToStrFunc = void (TStorageHub::*)(std::string& out, const TSettingToStrSource& src) const;
using TGlobalParseFunc = void (TStorageHub::*)(const TIniKeyMap& keys);

// The hub's dispatch tables: four rendering maps, keyed by a section code or
// a parameter code plus iscCount, and the global parse map, keyed by the
// upper-case section name. Built from HubRenderTables.def and
// HubGlobalParsers.def.
struct TDispatchTables {
  std::map<int, TSettingToStrFunc> global;
  std::map<int, TSettingToStrFunc> clientTemplate;
  std::map<int, TSettingToStrFunc> marginTemplate;
  std::map<int, TSettingToStrFunc> restrictionTemplate;
  std::map<std::string, TGlobalParseFunc> globalParse;

  // The tables as the program declares them.
  static TDispatchTables Build();
  // The key of a parameter code in a rendering map.
  static int ParamKey(int paramCode) { return paramCode + iscCount; }
};

// "ProhibitOrders".
struct TProhibitOrders {
  std::set<std::string> clients;  // codes of 1 to 12 characters
  TClassList ignoreClasses;
  bool managerCanClosePos = false;
};

// One group of "GroupsOfInstrumentsAndClasses" or "ComplexInstruments": the
// classes and the instruments named under the group's key.
struct TInstrumentGroup {
  std::set<std::string> classCodes;
  std::set<std::string> instrumentCodes;
};

// A "PreTrade_<n>" section as read at load: its number and its parameters.
// The flood control of "FloodControl" is kept as written until the pre-trade
// flood control settings are parsed into a store of their own.
struct TPreTradeSettings {
  int number = 0;
  std::string floodControl;  // the value of "FloodControl", as written
};

// A user's own settings, from the section "u" + user number.
struct TUserIdSettings {
  int userId = 0;
  double commission = 0.0;          // "COMMISSION"
  double oblCommission = 0.0;       // "OBLCOMMISSION"
  double tradeCommission = 0.0;     // "TradeCommission"
  double tradeOblCommission = 0.0;  // "TradeOblCommission"
  bool ignoreNegDealCheck = false;  // "IGNORENEGDEALCHECK"
  TMaxOrderValue orderMaxValue;     // "OrderMaxValue"
  TClassList allowedTrdAcc;         // "AllowedTrdAcc"
  TClassList prohibedTrdAcc;        // "ProhibedTrdAcc"
  TClassList classesWithoutOrderCheck;
};

class TStorageHub {
 public:
  // Loads from a settings file (type 1) or from the whole text (type 2). A
  // file that cannot be opened, or any other type, gives a firm with no
  // sections, which answers with defaults. A hole in the dispatch tables
  // raises CErrors (see CheckDispatchTables) before anything is read.
  TStorageHub(const char* ini_source_name, int ini_source_type);
  ~TStorageHub();
  TStorageHub(const TStorageHub&) = delete;
  TStorageHub& operator=(const TStorageHub&) = delete;

  // The self-check of the tables against the sections and parameters that
  // the catalogue declares per kind: one text per missing mapping is added
  // to `errors`, in the form
  //   Not mapped settingToStr-function for Global-section <name>".\n
  // The catalogue must be filled (any TIniParser::Init does it).
  static void CheckDispatchTables(const TDispatchTables& tables, CErrors& errors);
  // The tables every hub loads with; null restores the program's own. The
  // object must outlive the hubs built while it is in use.
  static void UseDispatchTables(const TDispatchTables* tables);

  // The names of the load steps and global parse functions whose parsed
  // home is not built yet: each runs in its place and does nothing, and the
  // sections it would read stay raw text, which the save copies.
  static const std::vector<std::string>& PendingLoadSteps();
  static bool IsPendingLoadStep(const std::string& name);

  // The engine log; not owned, null while logging is off.
  void SetLogWriter(TLogWriter* log) { m_log = log; }
  TLogWriter* GetLogWriter() const { return m_log; }

  // The allocator of everything this firm hands out.
  TMemory& GetMemory() { return m_memory; }

  // The parsed text: the home of every setting that has no parsed home.
  DL::TIniParser* GetOldParserPointer() { return m_parser.get(); }
  const DL::TIniParser& GetParser() const { return *m_parser; }
  const DL::TIniSectionsMap& GetSections() const { return m_parser->GetSections(); }
  // Keys of the first ClientCval section.
  const DL::TIniClientValueMap& GetClientValues() const { return m_parser->GetCValSection(); }
  TIniLogicParser& GetLogicParser() { return *m_logicParser; }
  TUniversalParser& GetUniversalParser() { return *m_universalParser; }
  const TUniversalParser& GetUniversalParser() const { return *m_universalParser; }

  // The general parameters as read at load (currency identity, flags,
  // numbers, class lists, credit types, repo terms).
  const DL::TGeneralSettings& General() const { return m_general; }

  // ---- Global sections parsed by the hub ----
  const TProhibitOrders& GetProhibitOrders() const { return m_prohibitOrders; }
  const TClassList& GetGlobalProhibedTrdAcc() const { return m_globalProhibedTrdAcc; }
  // "OrderMaxValue": key (as written) -> value.
  const std::map<std::string, TMaxOrderValue, StringMapComparerFunc>& GetOrderMaxValues() const {
    return m_orderMaxValues;
  }
  using TCodeToList = std::map<std::string, TClassList, StringMapComparerFunc>;
  const TCodeToList& GetAddMultiCurrency() const { return m_addMultiCurrency; }
  const TCodeToList& GetCommissionCurrency() const { return m_commissionCurrency; }
  const TCodeToList& GetAddZadolgBoards() const { return m_addZadolgBoards; }
  const TCodeToList& GetSecLotBoard() const { return m_secLotBoard; }
  const TCodeToList& GetSecurityAllowedTrdAcc() const { return m_securityAllowedTrdAcc; }
  const TCodeToList& GetSecurityProhibitedTrdAcc() const { return m_securityProhibitedTrdAcc; }
  const std::map<int, TPreTradeSettings>& GetPreTradeSettings() const { return m_preTrade; }
  // Flags of "General" read by ParseGlobalGeneral, default false.
  bool GetCheckForAllLimitKinds() const { return m_checkForAllLimitKinds; }
  bool GetCheckUser() const { return m_checkUser; }
  bool GetExtendedSubClient() const { return m_extendedSubClient; }
  bool GetSubBrokerGenerateClient() const { return m_subBrokerGenerateClient; }
  const TMaxOrderValue& GetGeneralOrderMaxValue() const { return m_generalOrderMaxValue; }
  // Complex instruments access, as loaded or as the last InitLite set it.
  bool GetComplexInstrumentsAccessControl() const { return m_complexInstrumentsAccessControl; }
  // Upper-case types of "ComplexInstrumentsTypesWithoutRestrictions".
  const std::set<std::string>& GetComplexInstrumentsTypesWithoutRestrictions() const {
    return m_complexTypesWithoutRestrictions;
  }
  // Clients of "ComplexFIApprovedClients" (its parameter "Clients").
  const std::set<std::string>& GetComplexFIApprovedClients() const { return m_complexFIApprovedClients; }
  // Groups by name (compared without regard to case).
  using TInstrumentGroups = std::map<std::string, TInstrumentGroup, StringMapComparerFunc>;
  // "ComplexInstruments": the groups of complex instruments.
  const TInstrumentGroups& GetComplexInstruments() const { return m_complexInstruments; }
  // "GroupsOfInstrumentsAndClasses".
  const TInstrumentGroups& GetGroupsOfInstrumentsAndClasses() const { return m_groupsOfInstrumentsAndClasses; }
  // "ClientCval" of "General" (default 1) and the clients of the first
  // ClientCval section.
  int GetClientCvalSign() const { return m_clientCvalSign; }
  const std::set<std::string>& GetClientCvalClients() const { return m_clientCvalClients; }

  // The small reload from a settings text (see TInfoStorage::InitLite):
  // 3 for a null text, 1 when a step threw (the steps before it stay done),
  // else 0.
  [[nodiscard]] int InitLite(const char* text);

  // User settings by user number (sections "u" + number).
  const std::map<int, TUserIdSettings>& GetUserIdSettings() const { return m_userIdSettings; }

  // Client template names found in step 10.
  const std::vector<TClientTemplateNames>& GetClientTemplateNames() const { return m_clientTemplateNames; }

  // "UsePGO" of section "General", a raw parameter of the section map: an edit
  // is seen by the next read and the next save (the general parameters keep
  // the value read at load until a reload).
  [[nodiscard]] int GetUsePGOFromGlobal(bool* value) const;
  [[nodiscard]] int SetUsePGOToGlobal(int value);

  // The whole settings text in canonical form, as a zero-terminated string of
  // this firm's memory (*out; give it back with FreeMemory). 0 on success, 3
  // for a null out. The hub is not changed.
  [[nodiscard]] int SaveSettingsToMemory(char** out);

  // The dispatchers of the save: find the code in the kind's map and call the
  // mapped function; an unmapped code appends nothing.
  void SettingToStrGlobalSettings(std::string& out, int code, const TSettingToStrSource& src) const;
  void SettingToStrGlobalSettingsClientTemplate(std::string& out, int code, const TSettingToStrSource& src) const;
  void SettingToStrGlobalSettingsMarginTemplate(std::string& out, int code, const TSettingToStrSource& src) const;
  void SettingToStrGlobalSettingsRestrictionTemplate(std::string& out, int code,
                                                     const TSettingToStrSource& src) const;

  // ---- Global parse functions (HubGlobalParsers.def) ----
#define ZDL_HUB_PARSER(section, function, home) void function(const TIniKeyMap& keys);
#include "core/HubGlobalParsers.def"
#undef ZDL_HUB_PARSER
  // "PreTrade_<number>"; a missing or malformed number reads as 0.
  void ParseSectionPreTrade(const TIniKeyMap& keys, int number);
  // Every section whose name begins with "ChangeFutClientCodes".
  void ParseChangeFutClientCodes(const TIniKeyMap& keys);

  // ---- Rendering functions (HubRenderFunctions.def) ----
#define ZDL_HUB_RENDER_FUNC(function, home) void function(std::string& out, const TSettingToStrSource& src) const;
#include "core/HubRenderFunctions.def"
#undef ZDL_HUB_RENDER_FUNC
  // Every "ChangeFutClientCodes..." section, written once.
  void SettingToStrGlobalChangeFutClientCodes(std::string& out) const;

  // One section written from its parsed object (`parsed`, whose kind says
  // which rendering map applies: SectClientTemplate for clients and client
  // templates, SectRestrictionTemplate, SectMarginTemplate): known
  // parameters by their rendering functions, the others raw. A section
  // without a parsed object is copied raw.
  std::string GetRowFromSettings(TIniSectionsMap::const_iterator it, bool isTemplate,
                                 const TSettingToStrSource& parsed) const;

 private:
  // Steps of the load whose parsed home is a later stage of the library;
  // each is kept in its place and does nothing yet.
  void BuildSettingCaches();            // step 11
  void BuildClientSettingsCaches();     // step 11: client settings and commission scales
  void BuildClientMarginRestrictionsCache();  // step 11
  void BuildSecurityRestrictionsCache();      // step 11
  void BuildRestrictionsCache();              // step 11
  void ParseCurrencyReplacement();      // step 9
  void ParsePortfolioRiskConfigs();     // step 14
  void ParseOldFormSectionLists();      // step 15
  void FillBaseAssets();                // step 16
  void FillBoardTariffs();              // step 16
  void ParseUserIdSettings();           // step 16
  // The parts of a user's section whose stores are not built yet: the
  // flood control by instrument and the restricted and allowed securities.
  void ParseUserIdSecuritiesAndFloodControl(const TIniKeyMap& keys, TUserIdSettings& out);
  void ParseTagSections();              // step 18
  void ParseTariffPlans();              // step 19
  void ParseLateSectionsBeforeClientCVal();  // step 20, up to ParseClientCVal
  void ParseLateSectionsAfterClientCVal();   // step 20, after ParseClientCVal

  // Steps of the save, in their order; each appends the sections it writes
  // to `text` and enters them in `written`. Each is defined in the file of
  // its component.
  void AppendClientAndTemplateRows(std::string& text, TWrittenSections& written) const;      // 1, 2
  void AppendGlobalSectionRows(std::string& text, TWrittenSections& written) const;          // 5
  void AppendVolumeBasedCommissionRows(std::string& text, TWrittenSections& written,
                                       int step) const;                                      // 3, 4, 6
  void AppendCommissionSettingsCurrencyRows(std::string& text, TWrittenSections& written) const;  // 7
  void AppendOldFormListRows(std::string& text, TWrittenSections& written) const;            // 8, 9, 10
  void AppendTariffPlanRows(std::string& text, TWrittenSections& written) const;             // 11
  void AppendCurrencyReplacementRows(std::string& text, TWrittenSections& written) const;    // 12
  void AppendMarginSettingsRows(std::string& text, TWrittenSections& written) const;         // 13 to 16
  void AppendRestrictionTemplateRows(std::string& text, TWrittenSections& written) const;    // 17
  // The parsed security restrictions of a client or client template
  // section, null when the section has not been parsed.
  const TClientSecurityRestrictions* ParsedSecurityRestrictionsOfSection(const std::string& section) const;
  void ParseComplexFIApprovedClients_Lite(const TIniParser& source);
  void ParseComplexInstruments_Lite(const TIniParser& source);
  void ReloadRestrictionTemplates(const TIniParser& source);

  // Step 20: the sign of "ClientCval" of "General" and the clients of the
  // given ClientCval section.
  void ParseClientCVal(const TIniParser& source);
  // Step 20: "GroupsOfInstrumentsAndClasses" and "ComplexInstruments" of the
  // given parser, each read anew when the section is there.
  void ParseGroupsAndComplexInstruments(const TIniParser& source);
  // A groups section into `out`, which is cleared first: key = group name,
  // value = "_ClassList_<classes>_Instruments_<instruments>", either part
  // may be left out. A line with a code longer than 12 characters, or with
  // neither list, is dropped.
  static void ParseInstrumentGroups(const TIniKeyMap& keys, TInstrumentGroups& out);
  static void InstrumentGroupsToStr(std::string& out, const TSettingToStrSource& src, const TInstrumentGroups& groups);
  // The complex instrument settings of "General" (InitLite reads them anew).
  void ParseComplexInstrumentsGeneral(const TIniParser& source);

  // Step 6 and 7: every section through the global parse map.
  void ParseSectionsByGlobalMap();
  // Writes the raw section given (header and lines); nothing when empty.
  void SettingToStrRawSection(std::string& out, const TSettingToStrSource& src) const;
  // A "key: code, value: comma list" section into `out`.
  static void ParseCodeToListSection(const TIniKeyMap& keys, TCodeToList& out);
  static void CodeToListToStr(std::string& out, const std::string& section, const TCodeToList& lists);

  TMemory m_memory;
  CErrors m_errors;
  std::unique_ptr<DL::TIniParser> m_parser;
  std::unique_ptr<TIniLogicParser> m_logicParser;
  std::unique_ptr<TUniversalParser> m_universalParser;
  const TDispatchTables* m_tables = nullptr;
  DL::TGeneralSettings m_general;
  TLogWriter* m_log = nullptr;

  TProhibitOrders m_prohibitOrders;
  TClassList m_globalProhibedTrdAcc;
  std::map<std::string, TMaxOrderValue, StringMapComparerFunc> m_orderMaxValues;
  TCodeToList m_addMultiCurrency;
  TCodeToList m_commissionCurrency;
  TCodeToList m_addZadolgBoards;
  TCodeToList m_secLotBoard;
  TCodeToList m_securityAllowedTrdAcc;
  TCodeToList m_securityProhibitedTrdAcc;
  std::map<int, TPreTradeSettings> m_preTrade;
  bool m_checkForAllLimitKinds = false;
  bool m_checkUser = false;
  bool m_extendedSubClient = false;
  bool m_subBrokerGenerateClient = false;
  TMaxOrderValue m_generalOrderMaxValue;
  std::vector<TClientTemplateNames> m_clientTemplateNames;
  bool m_complexInstrumentsAccessControl = false;
  std::set<std::string> m_complexTypesWithoutRestrictions;
  std::set<std::string> m_complexFIApprovedClients;
  TInstrumentGroups m_complexInstruments;
  TInstrumentGroups m_groupsOfInstrumentsAndClasses;
  int m_clientCvalSign = 1;
  std::set<std::string> m_clientCvalClients;
  std::map<int, TUserIdSettings> m_userIdSettings;

  // ---- Restrictions cache ----
 public:
  // The parsed order restrictions (global sections and restriction
  // templates); built at load and rebuilt by InitLite.
  TCacheOfRestrictions* GetRestrictionsCache() { return m_restrictionsCache.get(); }
  const TCacheOfRestrictions* GetRestrictionsCache() const { return m_restrictionsCache.get(); }

 private:
  // One restriction setting (the enum of HubRestrictions.cpp): its lines in
  // a restriction template section, or as a global section its section from
  // the parsed object (src.restrictions, else the global object); with
  // globalFromObject false, or no object, the raw section is copied. Lines
  // of a global section that the object does not read follow as they stand.
  void SettingToStrRestriction(std::string& out, const TSettingToStrSource& src, int setting,
                               bool globalFromObject) const;
  std::unique_ptr<TCacheOfRestrictions> m_restrictionsCache;
};

}  // namespace DL
