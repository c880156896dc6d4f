#pragma once
// The parsed, ready-to-answer form of one firm's settings. The whole load runs
// in the constructor, in a fixed order of steps; afterwards the firm answers
// without reading the source again. Per-client settings are parsed later, on
// first use.
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "base/TMemory.h"
#include "core/HubGlobalSectionTypes.h"
#include "cache/TCacheOfSecurityRestrictions.h"
#include "core/HubSectionLists.h"
#include "commission/TBoardTariffs.h"
#include "core/TBaseAssets.h"
#include "commission/TCacheOfClientSettings.h"
#include "commission/TCacheOfCommScales.h"
#include "commission/TCacheOfCommScalesBoards.h"
#include "commission/TCacheOfTariffPlans.h"
#include "commission/TCacheOfTariffPlansWithCommRates.h"
#include "commission/TMoexCurrencyCommission.h"
#include "commission/TRepoCommRates.h"
#include "commission/TVolumeBasedCommission.h"
#include "commission/TypeAndRate.h"
#include "cache/TCacheOfRestrictions.h"
#include "base/TClassList.h"
#include "cache/IFirmSettings.h"
#include "core/TFirmCurrencyIdentity.h"
#include "core/TGeneralSettings.h"
#include "core/TPortRiskConfig.h"
#include "core/TPortRiskSection.h"
#include "core/TPortfolioRiskSettings.h"
#include "core/TPortfolioSpread.h"
#include "core/TRestrictionSettings.h"
#include "core/TSecurityRestrictionSettings.h"
#include "core/TSettingToStrSource.h"
#include "core/TUniversalParser.h"
#include "core/TUserSettings.h"
#include "core/TVolumeCommissionSettings.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"
#include "ini/TMaxOrderValue.h"
#include "support/Errors.h"

class TLogWriter;

namespace DL {

class TStorageHub;
class TCacheOfClientMarginRestrictions;

// A rendering function as the maps hold it: a plain function that calls a
// member of the hub or of one of its components (RenderWith below), so that a
// family's rendering can live in the component that owns the family.
using TSettingToStrFunc = void (*)(const TStorageHub& hub, std::string& out, const TSettingToStrSource& src);
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

class TStorageHub : public IFirmSettings {
  // Edits the parsed set of approved clients.
  friend class TClientListsEditor;
  // Edits the parsed "ChangeFutClientCodes" sections.
  friend class TChangeFutClientCodesEditor;
  // Edits template client lists and removes templates with their parsed parts.
  friend class TTemplateClientsEditor;
  // Has the security restrictions cache read edited price limits anew.
  friend class TPriceLimitEditor;
  // Edits the firm's single values in their homes.
  friend class TGlobalParameterEditor;
  // Edits the firm's lists in their homes.
  friend class TGlobalListEditor;
  // Has the security restrictions cache read an edited client section anew.
  friend class TOwnerSection;
  // Reads the firm's instruments without currency risk again after an edit.
  friend class TInstrumentsWithoutCurrencyRiskEditor;

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

  // The names of the global parse functions whose parsed home is not built
  // (rows marked Pending): each runs in its place and does nothing, and the
  // section stays raw text, which the save copies. Empty today.
  static const std::vector<std::string>& PendingLoadSteps();
  static bool IsPendingLoadStep(const std::string& name);

  // The component of type C that the hub holds (one specialisation per
  // component whose members a rendering map names).
  template <class C>
  const C& Component() const;

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

  // What the engines below may ask about the firm (IFirmSettings).
  const std::string& MainCurrency() const override { return m_general.GetMainCurrency(); }
  bool IsRublesEquivalent(const std::string& currency) const override {
    return m_general.GetRublesEquivalents().count(currency) != 0;
  }

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
  // The users' own settings (component).
  const TUserSettings& UserSettings() const { return m_userSettings; }

  // Client template names found in step 10.
  const std::vector<TClientTemplateNames>& GetClientTemplateNames() const { return m_clientTemplateNames; }

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
  void BuildSecurityRestrictionsCache() { m_securityRestrictions.Build(*m_parser, *this); }  // step 11
  void BuildRestrictionsCache();              // step 11
  void ParseCurrencyReplacement();      // step 9
  void ParseOldFormSectionLists();      // step 15
  void FillBoardTariffs();              // step 16
  // The parts of a user's section whose stores are not built yet: the
  // flood control by instrument and the restricted and allowed securities.
  void ParseTagSections();              // step 18
  void ParseTariffPlans();              // step 19
  void ParseLateSectionsBeforeClientCVal();  // step 20, up to ParseClientCVal
  void ParseLateSectionsAfterClientCVal();   // step 20, after ParseClientCVal

  // Steps of the save, in their order; each appends the sections it writes
  // to `text` and enters them in `written`. Each is defined in the file of
  // its component.
  void AppendClientAndTemplateRows(std::string& text, TWrittenSections& written) const;      // 1, 2
  void AppendGlobalSectionRows(std::string& text, TWrittenSections& written) const;          // 5
  void AppendCommissionSettingsCurrencyRows(std::string& text, TWrittenSections& written) const;  // 7
  void AppendOldFormListRows(std::string& text, TWrittenSections& written) const;            // 8, 9, 10
  void AppendTariffPlanRows(std::string& text, TWrittenSections& written) const;             // 11
  void AppendCurrencyReplacementRows(std::string& text, TWrittenSections& written) const;    // 12
  void AppendMarginSettingsRows(std::string& text, TWrittenSections& written) const;         // 13 to 16
  void AppendRestrictionTemplateRows(std::string& text, TWrittenSections& written) const;    // 17
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
  TUserSettings m_userSettings;

  // ---- Client margin restrictions cache ----
 public:
  // Built in step 11 of the load; null only before that step.
  const TCacheOfClientMarginRestrictions* GetClientMarginRestrictionsCache() const {
    return m_clientMarginRestrictions.get();
  }
  TCacheOfClientMarginRestrictions* GetClientMarginRestrictionsCache() { return m_clientMarginRestrictions.get(); }
  // The margin sections of one client, prefix, template or the general
  // level (limit kind -> section): the section of limit kind 0, then one
  // per further limit kind ("_LimitKind_" n), each by GetRowFromSettings
  // with the body of its limit kind of `parsed`; a section without a body
  // is copied raw. `isTemplate` writes the Clients line first in the
  // section of limit kind 0. Each section written is entered in `written`;
  // one already there is skipped.
  std::string GetRowFromAllLkSettings(const TIniParser::TLimitKindMap& sections,
                                      const TClientMarginRestrictions* parsed, bool isTemplate,
                                      TWrittenSections& written) const;

 private:
  struct TClientMarginRestrictionsCacheDeleter {
    void operator()(TCacheOfClientMarginRestrictions* cache) const;
  };
  std::unique_ptr<TCacheOfClientMarginRestrictions, TClientMarginRestrictionsCacheDeleter> m_clientMarginRestrictions;
  // ---- Global sections and late sections ----
 public:
  using TSubBrokers = std::map<std::string, TSubBrokerSettings, StringMapComparerFunc>;
  // Sub-brokers by code, gathered from the four sub-broker sections.
  const TSubBrokers& GetSubBrokers() const { return m_subBrokers; }
  // The unread lines of one sub-broker section (iscSubBrokers,
  // iscSubBrokerGlobals, iscSubBrokerYesGlobals, iscSubBrokerNoGlobals);
  // an empty set for any other code.
  const TRawLines& GetSubBrokerRawLines(EIniSectCodeNum section) const;
  const TKeyedSection<TRestrictOptionOrders>& GetRestrictOptionOrders() const { return m_restrictOptionOrders; }
  // "ChangeFutClientCodes..." sections by section name.
  using TChangeFutClientCodesBySection = std::map<std::string, TChangeFutClientCodes, StringMapComparerFunc>;
  const TChangeFutClientCodesBySection& GetChangeFutClientCodes() const { return m_changeFutClientCodes; }
  // The first section (in name order) of the firm, compared without regard
  // to case; the empty firm is that of a section without a "_<firm>" tail.
  // Null when there is none.
  const TChangeFutClientCodes* FindChangeFutClientCodes(const std::string& firm) const;
  const std::vector<TMinOrderQuantityInSetTime>& GetMinOrderQuantityInSetTime() const { return m_minOrderQtyInSetTime; }
  const TRawLines& GetMinOrderQuantityInSetTimeRawLines() const { return m_minOrderQtyInSetTimeRaw; }
  // The global lists "BrokerQuoteBoard", "NegDealClasses", "TransferBoard":
  // the parameter named as the section, and the section's other lines.
  const TClassList& GetBrokerQuoteBoardGlob() const { return m_brokerQuoteBoard; }
  const TClassList& GetNegDealClassesGlob() const { return m_negDealClasses; }
  const TClassList& GetTransferBoardGlob() const { return m_transferBoard; }
  const TRawLines& GetBrokerQuoteBoardGlobRawLines() const { return m_brokerQuoteBoardRaw; }
  const TRawLines& GetNegDealClassesGlobRawLines() const { return m_negDealClassesRaw; }
  const TRawLines& GetTransferBoardGlobRawLines() const { return m_transferBoardRaw; }
  // Step 20, read late in the load.
  const TKeyedSection<double>& GetCurrBoardsCommission() const { return m_currBoardsCommission; }
  // Class (or "<ALL>") -> securities without currency risk.
  const TKeyedSection<std::set<std::string>>& GetInstrumentsWithoutCurrencyRisk() const {
    return m_instrumentsWithoutCurrencyRisk;
  }
  const TKeyedSection<std::vector<std::string>>& GetCheckPriceBoard() const { return m_checkPriceBoard; }
  const TKeyedSection<double>& GetClientMarketOrderPercentByClasses() const {
    return m_clientMarketOrderPercentByClasses;
  }
  const std::vector<TFloodControlByInstrument>& GetGlobalFloodControlByInstrument() const {
    return m_floodControlByInstrument;
  }
  const TRawLines& GetGlobalFloodControlByInstrumentRawLines() const { return m_floodControlByInstrumentRaw; }
  const TGlobalRestOrdVolume& GetGlobalRestOrdVolumeByAvgTurnover() const { return m_restOrdVolume; }
  const TGlobalRestOrdVolume& GetGlobalSoftRestOrdVolumeByAvgTurnover() const { return m_softRestOrdVolume; }
  // "ChangeClientCodes": client code -> the code it is changed to.
  const TKeyedSection<std::string>& GetChangeClientCodes() const { return m_changeClientCodes; }
  // Every section whose name begins with "CommissionSettingsCurrency", by
  // name: currency -> classes.
  using TCommissionSettingsCurrency =
      std::map<std::string, TKeyedSection<std::vector<std::string>>, StringMapComparerFunc>;
  const TCommissionSettingsCurrency& GetCommissionSettingsCurrency() const { return m_commissionSettingsCurrency; }
  // Class (or "<ALL>") -> price type (TIniParser::GetPriceType).
  const TKeyedSection<int>& GetFutRiskLimitingPrice() const { return m_futRiskLimitingPrice; }
  // Class -> currency.
  const TKeyedSection<std::string>& GetPositionPriceCurrency() const { return m_positionPriceCurrency; }
  const TClassList& GetMOEXCommissionExportClasses() const { return m_moexCommissionExportClasses; }
  const TRawLines& GetMOEXCommissionExportClassesRawLines() const { return m_moexCommissionExportClassesRaw; }

  // Every "CommissionSettingsCurrency..." section, from its store.
  void SettingToStrGlobalCommissionSettingsCurrency(std::string& out) const;

 private:
  void ParseCurrBoardsCommissionSection();
  void ParseInstrumentWithoutCurrencyRiskSection();
  void ParseCheckPriceBoard();
  void ParseClientMarketOrderPercentByClasses();
  void ParseGlobalFloodControlByInstrument();
  void ParseRestOrdVolumeByAvgTurnover();
  // "ChangeClientCodes" in step 20 (its entry of the global parse map is
  // empty on purpose).
  void ParseChangeClientCodesSection();
  void ParseCommissionSettingsCurrency();
  void ParseFutRiskLimitingPrice();
  void ParsePositionPriceCurrencySection();
  void ParseMOEXCommissionExportClassesSection();
  // The section of the map whose key map is `keys`, or null.
  const std::string* SectionNameOf(const TIniKeyMap& keys) const;
  void ParseSubBrokerList(const TIniKeyMap& keys, TClassList TSubBrokerSettings::*list, TRawLines& raw);
  void SettingToStrSubBrokerList(std::string& out, const std::string& section, TClassList TSubBrokerSettings::*list,
                                 const TRawLines& raw) const;

  TSubBrokers m_subBrokers;
  TRawLines m_subBrokersRaw;
  TRawLines m_subBrokerGlobalsRaw;
  TRawLines m_subBrokerYesGlobalsRaw;
  TRawLines m_subBrokerNoGlobalsRaw;
  TKeyedSection<TRestrictOptionOrders> m_restrictOptionOrders;
  TChangeFutClientCodesBySection m_changeFutClientCodes;
  std::vector<TMinOrderQuantityInSetTime> m_minOrderQtyInSetTime;
  TRawLines m_minOrderQtyInSetTimeRaw;
  TClassList m_brokerQuoteBoard;
  TClassList m_negDealClasses;
  TClassList m_transferBoard;
  TRawLines m_brokerQuoteBoardRaw;
  TRawLines m_negDealClassesRaw;
  TRawLines m_transferBoardRaw;
  TKeyedSection<double> m_currBoardsCommission;
  TKeyedSection<std::set<std::string>> m_instrumentsWithoutCurrencyRisk;
  TKeyedSection<std::vector<std::string>> m_checkPriceBoard;
  TKeyedSection<double> m_clientMarketOrderPercentByClasses;
  std::vector<TFloodControlByInstrument> m_floodControlByInstrument;
  TRawLines m_floodControlByInstrumentRaw;
  TGlobalRestOrdVolume m_restOrdVolume;
  TGlobalRestOrdVolume m_softRestOrdVolume;
  TKeyedSection<std::string> m_changeClientCodes;
  TCommissionSettingsCurrency m_commissionSettingsCurrency;
  TKeyedSection<int> m_futRiskLimitingPrice;
  TKeyedSection<std::string> m_positionPriceCurrency;
  TClassList m_moexCommissionExportClasses;
  TRawLines m_moexCommissionExportClassesRaw;
  // ---- Security restrictions (component) ----
 public:
  // Built in step 11 of the load; the cache is null only while the load has
  // not reached that step.
  const TSecurityRestrictionSettings& SecurityRestrictions() const { return m_securityRestrictions; }
  const TCacheOfSecurityRestrictions* GetSecurityRestrictionsCache() const { return m_securityRestrictions.Cache(); }

 private:
  TSecurityRestrictionSettings m_securityRestrictions;
  // ---- Section lists, tag sections, user settings ----
 public:
  // Currency replacement sections ("Currency", "Currency2", "Currency_..."),
  // by section name as written.
  using TCurrencyReplacements = std::map<std::string, TCurrencyReplacement, StringMapComparerFunc>;
  const TCurrencyReplacements& GetCurrencyReplacements() const { return m_currencyReplacements; }
  // The currency that replaces `currency` in the section "Currency": the key
  // whose list holds it; empty when none does.
  std::string GetReplacingCurrency(std::string_view currency) const;

  // Section lists of the old form.
  const TSecuritiesByClass& GetLimitAllowedSecurity() const { return m_limitAllowedSecurity; }
  const TSecuritiesByClass& GetAssetSecurities() const { return m_assetSecurities; }
  const TSecuritiesByClass& GetRestShortSecurities() const { return m_restShortSecurities; }
  const std::map<std::string, TCounterpartyLimit, StringMapComparerFunc>& GetCounterpartyLimits() const {
    return m_counterpartyLimits;
  }
  const std::map<std::string, TTranoutTag, StringMapComparerFunc>& GetTranoutTags() const { return m_tranoutTags; }

  // Multi-currency support: whether "SupportMultiCurrency" is on, and each
  // class of "MULTICURRINSTRCLASSES" with the currencies of every
  // "AddMultiCurrency" group (its key and its list).
  bool IsMultiCurrencySupported() const { return m_multiCurrencySupported; }
  const TKeyToList& GetMultiCurrencyByClass() const { return m_multiCurrencyByClass; }

  // Plain lists of other sections (key -> "," list).
  const TKeyToList& GetAddRepoBoards() const { return m_addRepoBoards; }
  const TKeyToList& GetAddLockedBoards() const { return m_addLockedBoards; }
  const std::map<std::string, TAdditionalSecTrdaccRec, StringMapComparerFunc>& GetAddCommonSecTrdacc() const {
    return m_addCommonSecTrdacc;
  }
  const TKeyToList& GetCurrBoards() const { return m_currBoards; }
  const TKeyToList& GetQuantityNotInLotsClasses() const { return m_quantityNotInLotsClasses; }
  const TKeyToList& GetAddMarketMarginalZadolg() const { return m_addMarketMarginalZadolg; }
  const TKeyToList& GetClassesWithoutLimitKinds() const { return m_classesWithoutLimitKinds; }
  const TKeyToList& GetRestrictSecuritiesProportionInCollateral() const { return m_restrictSecuritiesProportion; }
  const TKeyToList& GetClassesWithTradeCurrency() const { return m_classesWithTradeCurrency; }
  const TReplaceableInstruments& GetReplaceableInstruments() const { return m_replaceableInstruments; }
  // Membership in any list of the section.
  bool IsQuantityNotInLotsClass(std::string_view classCode) const;
  bool IsClassWithoutLimitKinds(std::string_view classCode) const;
  bool IsRestrictSecuritiesPropotionInCollateral(std::string_view secCode) const;
  // The main security of a replaceable one; the security itself when the
  // class has no entry for it.
  std::string GetMainSec(std::string_view classCode, std::string_view secCode) const;
  // The parameters of "General" of the same step, kept with the general
  // parameters.
  const TClassList& GetReservePerevorotGO() const { return m_general.GetReservePerevorotGO(); }
  const TClassList& GetSpotClasses() const { return m_general.GetSpotClasses(); }
  const TClassList& GetClassesWithoutPartExec() const { return m_general.GetClassesWithoutPartExec(); }
  const TClassList& GetUseOpenFXRateClasses() const { return m_general.GetUseOpenFXRateClasses(); }
  const TClassList& GetCurrencyClassesWithCCYData() const { return m_general.GetCurrencyClassesWithCCYData(); }

  // Tag sections.
  const TTagToStrListStorage& GetAddLockedTrdacc() const { return m_addLockedTrdacc; }
  const TTagToStrListStorage& GetBoardTag() const { return m_boardTag; }
  const TTagToStrListStorage& GetSecToBoard() const { return m_secToBoard; }
  const TTagToStrListStorage& GetAddLimitBoards() const { return m_addLimitBoards; }
  const TTagToStrListStorage& GetAddLimitTrdacc() const { return m_addLimitTrdacc; }
  const TTagToStrListStorage& GetAddNonMarginalBoard() const { return m_addNonMarginalBoard; }
  const TTagToStrListStorage& GetAddREPOTrdacc() const { return m_addREPOTrdacc; }
  const TTagToStrListStorage& GetAddCommonTrdacc() const { return m_addCommonTrdacc; }
  const TTagToStrListStorage& GetREPOLimitTrdAcc() const { return m_repoLimitTrdAcc; }
  const TTagToStrListStorage& GetREPOLimitBoards() const { return m_repoLimitBoards; }
  const TTagToStrListStorage& GetSpecialTradingAccounts() const { return m_specialTradingAccounts; }
  // Whether the sections "AddLimitBoards" and "AddNonMarginalBoard" are in
  // the text.
  bool HasAddLimitBoards() const { return m_hasAddLimitBoards; }
  bool HasAddNonMarginalBoard() const { return m_hasAddNonMarginalBoard; }
  // The limit boards: every board of "REPOLimitBoards"; the common trade
  // accounts of the limits: every account of "AddCommonTrdacc".
  const std::set<std::string>& GetLimitBoards() const { return m_limitBoards; }
  const std::set<std::string>& GetLimitCommonTrdAccs() const { return m_limitCommonTrdAccs; }

  // A tag section into `out` (cleared first); `present` (if given) tells
  // whether the section is in the text. Lines with an empty key or a code
  // longer than 12 characters are kept as raw lines.
  static void ParseTagToStrListSection(const TIniKeyMap* keys, TTagToStrListStorage& out, bool* present);

  // Rendering of the sections written by the save steps 8, 9, 10 and 12,
  // from the stores; the section name is src.section.
  void SettingToStrGlobalLimitAllowedSecurity(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrGlobalAssetSecurities(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrGlobalRestShortSecurities(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrGlobalCurrencyReplacement(std::string& out, const TSettingToStrSource& src) const;

 private:
  void FillSupportMultiCurrency();      // step 16
  void ParsePlainListSections();        // step 17
  void FillTagsFromTagToTagsSettings();  // step 18
  void ParseSpecialTradingAccounts();   // step 20, last
  static void SecuritiesByClassToStr(std::string& out, const std::string& section, const TSecuritiesByClass& store);

  TCurrencyReplacements m_currencyReplacements;
  TSecuritiesByClass m_limitAllowedSecurity;
  TSecuritiesByClass m_assetSecurities;
  TSecuritiesByClass m_restShortSecurities;
  std::map<std::string, TCounterpartyLimit, StringMapComparerFunc> m_counterpartyLimits;
  std::map<std::string, TTranoutTag, StringMapComparerFunc> m_tranoutTags;
  bool m_multiCurrencySupported = false;
  TKeyToList m_multiCurrencyByClass;
  TKeyToList m_addRepoBoards;
  TKeyToList m_addLockedBoards;
  std::map<std::string, TAdditionalSecTrdaccRec, StringMapComparerFunc> m_addCommonSecTrdacc;
  TKeyToList m_currBoards;
  TKeyToList m_quantityNotInLotsClasses;
  TKeyToList m_addMarketMarginalZadolg;
  TKeyToList m_classesWithoutLimitKinds;
  TKeyToList m_restrictSecuritiesProportion;
  TKeyToList m_classesWithTradeCurrency;
  TReplaceableInstruments m_replaceableInstruments;
  TTagToStrListStorage m_addLockedTrdacc;
  TTagToStrListStorage m_boardTag;
  TTagToStrListStorage m_secToBoard;
  TTagToStrListStorage m_addLimitBoards;
  TTagToStrListStorage m_addLimitTrdacc;
  TTagToStrListStorage m_addNonMarginalBoard;
  TTagToStrListStorage m_addREPOTrdacc;
  TTagToStrListStorage m_addCommonTrdacc;
  TTagToStrListStorage m_repoLimitTrdAcc;
  TTagToStrListStorage m_repoLimitBoards;
  TTagToStrListStorage m_specialTradingAccounts;
  bool m_hasAddLimitBoards = false;
  bool m_hasAddNonMarginalBoard = false;
  std::set<std::string> m_limitBoards;
  std::set<std::string> m_limitCommonTrdAccs;
  // ---- Board tariffs ----
 public:
  // The exchange's tariff of each board with the firm's own rates, filled at
  // load (FillBoardTariffs) and read only afterwards.
  const TBoardTariffs& GetBoardTariffs() const { return m_boardTariffs; }
  // The tariff of a board, ignoring case; the tariff of "DEFAULT" for a
  // board that has none.
  const ABoardTariff* GetBoardTariff(std::string_view board) const { return m_boardTariffs.Get(board); }
  // The firm's rates of a board from "BOARDCOMMISSION", "ORGCOMMISSION" and
  // "CLEARINGCOMMISSION" (trading system, organiser, clearing), ignoring
  // case; -1.0 where the firm gave none.
  TExchCommRate GetIndividualCommRate(std::string_view board) const {
    return m_boardTariffs.GetIndividualCommRate(board);
  }

 private:
  TBoardTariffs m_boardTariffs;
  // ---- Portfolio risk (component) ----
 public:
  // Portfolio risk configurations, spread order and base assets sections.
  const TPortfolioRiskSettings& PortfolioRisk() const { return m_portfolioRisk; }
  // The configuration for a trade account and a base asset (see
  // TPortfolioRiskSettings::Config).
  std::optional<TPortRiskConfig> PortfolioRiskConfig(const char* tradeAccount, const char* baseAsset) const {
    return m_portfolioRisk.Config(tradeAccount, baseAsset);
  }
  // "DerivativesBaseAssets": base asset -> comma list.
  const TCodeToList& GetDerivativesBaseAssets() const { return m_derivativesBaseAssets; }

 private:
  TPortfolioRiskSettings m_portfolioRisk;
  TCodeToList m_derivativesBaseAssets;
  // ---- Commission settings, scales and tariff plans ----
 public:
  // The broker's commission of a client for one class: the client's cached
  // settings (its section, template, prefix section or the firm's), completed
  // for this class. The rate by class is looked up first (fixed, trade,
  // trade-max, per security, per lot, two rates), then, unless a repo class
  // with a repo broker commission, the "DEFAULT" rate; otherwise the firm's
  // kind: a scale when "UseCommissionScale" is 1, else the fixed "Broker"
  // rate of "Commission" (0.5 by default). With a scale, each board of the
  // list (the class code without one) is tried for a board scale, and the
  // boards sharing the scale are kept (CommissionScaleBoards). The reference
  // points into the cache and its result fields are rewritten by the next
  // call: callers of one client must be serialised.
  TClientCommSettings& ClientCommSettings(const char* client, const char* classCode, const char* boardList,
                                          double leverage, bool isRepo);
  // The boards that share the scale found for the client and class.
  std::vector<std::string> CommissionScaleBoards(const char* client, const char* classCode, const char* group,
                                                 double leverage, bool isRepo);
  // "UseCommissionScale" of "General" is 1.
  bool UseCommissionScale() const;
  TCacheOfClientSettings& GetClientSettingsCache() const { return *m_clientSettingsCache; }
  TCacheOfCommScales& GetCommScalesCache() const { return *m_commScalesCache; }
  const TCacheOfCommScalesBoards& GetCommScalesBoardsCache() const { return *m_commScalesBoardsCache; }
  TCacheOfTariffPlans& GetTariffPlans() { return m_tariffPlans; }
  const TCacheOfTariffPlans& GetTariffPlans() const { return m_tariffPlans; }
  TCacheOfTariffPlansWithCommRates& GetTariffPlansWithCommRates() { return m_tariffPlansWithCommRates; }
  const TCacheOfTariffPlansWithCommRates& GetTariffPlansWithCommRates() const { return m_tariffPlansWithCommRates; }
  // The boards kept by the last scale lookup of ClientCommSettings.
  const std::vector<std::string>& GetCommScaleBoardList() const { return m_commScaleBoardList; }

 private:
  std::unique_ptr<TCacheOfClientSettings> m_clientSettingsCache;  // with its own logic parser
  std::unique_ptr<TCacheOfCommScales> m_commScalesCache;
  std::unique_ptr<TCacheOfCommScalesBoards> m_commScalesBoardsCache;
  TCacheOfTariffPlans m_tariffPlans;
  TCacheOfTariffPlansWithCommRates m_tariffPlansWithCommRates;
  std::vector<std::string> m_commScaleBoardList;  // written by ClientCommSettings
  // ---- Restrictions (component) ----
 public:
  // The order restrictions: the cache of the global sections and restriction
  // templates (built at load and rebuilt by InitLite) and their rendering.
  const TRestrictionSettings& Restrictions() const { return m_restrictions; }
  TCacheOfRestrictions* GetRestrictionsCache() { return m_restrictions.Cache(); }
  const TCacheOfRestrictions* GetRestrictionsCache() const { return m_restrictions.Cache(); }

 private:
  TRestrictionSettings m_restrictions;
  // ---- Volume-based commission (component) ----
 public:
  // The volume-based commission sections of the firm, its templates and clients.
  const TVolumeCommissionSettings& VolumeCommission() const { return m_volumeCommission; }
  // The table that holds for the client and class: the client's own
  // sections, then those of the client's template, then the firm's; in each,
  // the first section naming the class, else the first standing for all
  // classes. Null when none does.
  const TVolumeBasedCommission* FindVolumeBasedCommission(const char* client, const char* classCode) const;
  // The step of that table for the volume and side; (3, 0, 0) without one.
  TypeAndRate GetEffectiveVolumeBasedCommTypeAndRate(const char* client, const char* classCode, double volume,
                                                     ESide side) const;
  // TVolumeBasedCommission::CalcMaxCommValue of that table; 0 without one.
  double CalcMaxVolumeBasedCommission(const char* client, const char* classCode, double value, ESide side,
                                      short scale) const;
  // The repo commission rates of the class in the client's commission
  // settings (its section, template, prefix section or the firm's): per day,
  // and by the scale of terms. False when the settings have none.
  bool GetRepoPerDayCommissionSettings(const char* client, double leverage, const char* classCode,
                                       TRepoCommRates* out) const;
  bool GetRepoScaleByClassesSettings(const char* client, double leverage, const char* classCode, short term,
                                     TRepoCommRates* out) const;

 private:
  TVolumeCommissionSettings m_volumeCommission;
  // ---- Currency-market commission ----
 public:
  // The firm's tariff of the currency market, built on the first call over
  // the firm's currency identity; the same object afterwards. The host
  // prepares it with Init for each deal, so callers of one firm must be
  // serialised.
  TMoexCurrencyCommission& GetMoexCurrencyCommission();
  // The firm's currency identity as the commission engine sees it, built
  // with the first call of either.
  const TFirmCurrencyIdentity& GetCurrencyIdentity();
  // The board's tariff as it charges a sale: the board's own object, or, for
  // a tariff that reads the side of the deal, a copy with the side 'S',
  // made on the first sale of the board and kept.
  const ABoardTariff* GetSellSideBoardTariff(std::string_view board);
  // The repo term of a board code already in upper case (the table of
  // General().GetRepoTerms() in a hash, built on the first call); false for
  // a board without a term.
  bool FindRepoTermOfUpperBoard(std::string_view upperBoard, int& days);

 private:
  std::unique_ptr<TFirmCurrencyIdentity> m_currencyIdentity;
  std::unique_ptr<TMoexCurrencyCommission> m_moexCurrencyCommission;
  TBoardTariffs m_sellSideTariffs;  // copies with side 'S', by board
  using TRepoTermsByBoard = std::unordered_map<std::string, int, TBoardTariffs::THash, std::equal_to<>>;
  std::optional<TRepoTermsByBoard> m_repoTermsByUpperBoard;  // board -> days
};

template <>
inline const TRestrictionSettings& TStorageHub::Component<TRestrictionSettings>() const {
  return m_restrictions;
}

template <>
inline const TSecurityRestrictionSettings& TStorageHub::Component<TSecurityRestrictionSettings>() const {
  return m_securityRestrictions;
}

// The class that declares a rendering member function.
template <class T>
struct TRenderOwner;
template <class C, class F>
struct TRenderOwner<F C::*> {
  using Type = C;
};

// The map entry of a rendering member function
//   void F(std::string& out, const TSettingToStrSource& src) const
// of the hub itself or of a component the hub hands out by Component<C>().
template <auto Member>
void RenderWith(const TStorageHub& hub, std::string& out, const TSettingToStrSource& src) {
  using Owner = typename TRenderOwner<decltype(Member)>::Type;
  if constexpr (std::is_same_v<Owner, TStorageHub>)
    (hub.*Member)(out, src);
  else
    (hub.Component<Owner>().*Member)(out, src);
}

}  // namespace DL
