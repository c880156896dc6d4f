#include "core/TStorageHub.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "base/TextHelpers.h"
#include "base/KeyParsers.h"
#include "base/ResultCodes.h"
#include "base/Numbers.h"
#include "settings/SettingsNormalizer.h"

namespace DL {

namespace {

constexpr char kCommentChar = ';';
constexpr unsigned kParserFlags = 1;
constexpr std::size_t kClientCodeMaxLength = 12;

constexpr const char* kGeneralSection = "General";
constexpr const char* kPreTradePrefixUp = "PRETRADE_";
constexpr const char* kChangeFutClientCodesUp = "CHANGEFUTCLIENTCODES";

const TDispatchTables* g_tablesInUse = nullptr;

const TDispatchTables& ProgramTables() {
  static const TDispatchTables tables = TDispatchTables::Build();
  return tables;
}

void AppendLine(std::string& out, const std::string& name, const std::string& value) {
  out += name;
  out += '=';
  out += value;
  out += '\n';
}

// The header and lines of a section rendered from parsed fields, followed by
// the raw lines of the section that no field holds; nothing when both are
// empty.
void ComposeSection(std::string& out, const std::string& name, const std::string& lines,
                    const TIniKeyMap* keys, const std::set<std::string>& handledUp) {
  std::string body = lines;
  if (keys != nullptr)
    for (const auto& [key, value] : *keys)
      if (handledUp.count(StrUpper(key)) == 0) AppendLine(body, key, value);
  if (body.empty()) return;
  out += '[';
  out += name;
  out += "]\n";
  out += body;
}

}  // namespace

// ---- Dispatch tables ----

TDispatchTables TDispatchTables::Build() {
  TDispatchTables t;
#define ZDL_HUB_KEY_Sect(code) static_cast<int>(isc##code)
#define ZDL_HUB_KEY_Param(code) ParamKey(TIniParser::ipc##code)
#define ZDL_HUB_MAP_Global global
#define ZDL_HUB_MAP_ClientTemplate clientTemplate
#define ZDL_HUB_MAP_MarginTemplate marginTemplate
#define ZDL_HUB_MAP_RestrictionTemplate restrictionTemplate
#define ZDL_HUB_RENDER(map, kind, code, function) \
  t.ZDL_HUB_MAP_##map.emplace(ZDL_HUB_KEY_##kind(code), &RenderWith<&function>);
#include "core/HubRenderTables.def"
#undef ZDL_HUB_RENDER
#undef ZDL_HUB_MAP_RestrictionTemplate
#undef ZDL_HUB_MAP_MarginTemplate
#undef ZDL_HUB_MAP_ClientTemplate
#undef ZDL_HUB_MAP_Global
#undef ZDL_HUB_KEY_Param
#undef ZDL_HUB_KEY_Sect
#define ZDL_HUB_PARSER(section, function, home) \
  t.globalParse.emplace(StrUpper(IniSectName(isc##section)), &TStorageHub::function);
#include "core/HubGlobalParsers.def"
#undef ZDL_HUB_PARSER
  return t;
}

void TStorageHub::UseDispatchTables(const TDispatchTables* tables) { g_tablesInUse = tables; }

void TStorageHub::CheckDispatchTables(const TDispatchTables& tables, CErrors& errors) {
  struct TKindCheck {
    TIniParser::ESectType group;
    const std::map<int, TSettingToStrFunc>* map;
    const char* sectionText;
    const char* paramText;
  };
  const TKindCheck checks[] = {
      {TIniParser::SectClientTemplate, &tables.clientTemplate,
       "Not mapped settingToStr-function for ClientTemplate-section ",
       "Not mapped settingToStr-function for ClientTemplate-param "},
      {TIniParser::SectGlobal, &tables.global, "Not mapped settingToStr-function for Global-section ", nullptr},
      {TIniParser::SectMarginTemplate, &tables.marginTemplate,
       "Not mapped settingToStr-function for MarginTemplate-section ",
       "Not mapped settingToStr-function for MarginTemplate-param "},
      {TIniParser::SectRestrictionTemplate, &tables.restrictionTemplate,
       "Not mapped settingToStr-function for RestrictionTemplate-section ",
       "Not mapped settingToStr-function for RestrictionTemplate-param "},
  };
  const auto& groups = TIniParser::supParamAndSectCodes_;
  for (const TKindCheck& check : checks) {
    if (static_cast<std::size_t>(check.group) >= groups.size()) continue;
    std::set<int> reported;
    for (const TIniParser::TSupParamAndSectCodes& row : groups[check.group]) {
      if (row.sectCode != iscNone) {
        if (check.group == TIniParser::SectGlobal && row.sectCode == iscChangeFutClientCodes) continue;
        if (check.map->count(row.sectCode) != 0 || !reported.insert(row.sectCode).second) continue;
        errors.AddError(check.sectionText + TIniParser::GetIniSectCode(static_cast<EIniSectCodeNum>(row.sectCode)) +
                        "\".\n");
      } else if (row.paramCode != TIniParser::ipcNone && check.paramText != nullptr) {
        const int key = TDispatchTables::ParamKey(row.paramCode);
        if (check.map->count(key) != 0 || !reported.insert(key).second) continue;
        errors.AddError(check.paramText +
                        TIniParser::GetIniParamCode(static_cast<TIniParser::EIniParamCodeNum>(row.paramCode)) +
                        "\".\n");
      }
    }
  }
  // Every known global section needs a parse function, except those read
  // elsewhere: the ChangeFutClientCodes family (its own rule in the section
  // walk) and CommissionScale (read by the commission scale caches).
  if (static_cast<std::size_t>(TIniParser::SectGlobal) < groups.size()) {
    std::set<int> reported;
    for (const TIniParser::TSupParamAndSectCodes& row : groups[TIniParser::SectGlobal]) {
      if (row.sectCode == iscNone || row.sectCode == iscChangeFutClientCodes || row.sectCode == iscCommissionScale)
        continue;
      const std::string& name = TIniParser::GetIniSectCode(static_cast<EIniSectCodeNum>(row.sectCode));
      if (tables.globalParse.count(StrUpper(name)) != 0 || !reported.insert(row.sectCode).second) continue;
      errors.AddError("Not mapped global parsing function for section " + name + "\".\n");
    }
  }
}

// ---- Load ----

TStorageHub::TStorageHub(const char* ini_source_name, int ini_source_type) {
  // 1. Defaults.
  m_general.SetDefaults();
  // 2. The engine objects on the source.
  m_parser = std::make_unique<TIniParser>();
  m_parser->Init(ini_source_name, ini_source_type, kCommentChar, kParserFlags);
  m_logicParser = std::make_unique<TIniLogicParser>(*m_parser);
  m_universalParser = std::make_unique<TUniversalParser>(*m_parser);
  m_universalParser->ParseGlobalSettings();
  // 3. The dispatch tables; 4. their self-check stops the load on a hole.
  m_tables = g_tablesInUse != nullptr ? g_tablesInUse : &ProgramTables();
  CheckDispatchTables(*m_tables, m_errors);
  ThrowExceptionIfErrorsOccurred(m_errors);
  // 5. Currency identity.
  m_general.ParseSubstitutableCurrencies(*m_parser);
  // 6, 7. Every section through the global parse map.
  ParseSectionsByGlobalMap();
  // 8. The commission basics are rows of the general parameters, read with
  // them in step 13; nothing before that step reads them.
  // 9. Multi-currency basics.
  m_general.ParseMultiCurrencyBasics(*m_parser);
  ParseCurrencyReplacement();
  // 10. Client template names.
  m_clientTemplateNames = m_logicParser->GetClientTemplateNames("CL", "_CLIENT_TEMPLATE");
  // 11. Caches.
  BuildSettingCaches();
  // 12. Credit types.
  m_general.ParseCreditTypes(*m_parser);
  // 13. General parameters and their derived fields.
  m_general.ParseGeneralParams(*m_parser);
  // 14. Portfolio risk.
  m_portfolioRisk.ParseRiskConfigs(*m_parser);
  // 15. Section lists of the old form.
  ParseOldFormSectionLists();
  // 16.
  m_portfolioRisk.ParseBaseAssets(*m_parser);
  FillBoardTariffs();
  m_userSettings.Parse(*m_parser);
  FillSupportMultiCurrency();
  // 17. Plain lists of other sections.
  m_general.ParseMarketToLimitOrderPricePercent(*m_parser);
  ParsePlainListSections();
  // 18. Tag sections.
  ParseTagSections();
  // 19. Tariff plans.
  ParseTariffPlans();
  // 20. Late sections.
  ParseLateSectionsBeforeClientCVal();
  ParseClientCVal(*m_parser);
  // The groups come after the commission settings currency and the volume
  // based commission, which are read by the pending part below; none of
  // those reads a group, so the groups are read first.
  ParseGroupsAndComplexInstruments(*m_parser);
  ParseLateSectionsAfterClientCVal();
  ParseComplexInstrumentsGeneral(*m_parser);
  ParseSpecialTradingAccounts();
  // 21. The repo-term table when the text gave none; the firm is ready.
  m_general.SetRepoTermForRepoCCP();
}

TStorageHub::~TStorageHub() = default;

void TStorageHub::ParseSectionsByGlobalMap() {
  TIniSectionsMap& sections = m_parser->GetSections();
  for (auto it = sections.begin(); it != sections.end(); ++it) {
    const std::string nameUp = StrUpper(it->first);
    auto parse = m_tables->globalParse.find(nameUp);
    if (parse != m_tables->globalParse.end()) {
      (this->*(parse->second))(it->second);
    } else if (nameUp.rfind(kChangeFutClientCodesUp, 0) == 0) {
      ParseChangeFutClientCodes(it->second);
    } else if (nameUp.rfind(kPreTradePrefixUp, 0) == 0) {
      const int number = static_cast<int>(std::strtol(nameUp.c_str() + std::strlen(kPreTradePrefixUp), nullptr, 10));
      ParseSectionPreTrade(it->second, number);
    }
  }
}

// Global parse functions marked Pending in HubGlobalParsers.def: a row
// whose parsed home does not exist yet runs in its place and does nothing,
// and its section stays raw text, which the save copies as it stands. Every
// row has its home today; a test keeps the list empty.
const std::vector<std::string>& TStorageHub::PendingLoadSteps() {
  static const std::vector<std::string> steps = [] {
    std::vector<std::string> out;
#define ZDL_HUB_PARSER_Hub(function)
#define ZDL_HUB_PARSER_Later(function)
#define ZDL_HUB_PARSER_Pending(function) out.push_back(#function);
#define ZDL_HUB_PARSER(section, function, home) ZDL_HUB_PARSER_##home(function)
#include "core/HubGlobalParsers.def"
#undef ZDL_HUB_PARSER
#undef ZDL_HUB_PARSER_Pending
#undef ZDL_HUB_PARSER_Later
#undef ZDL_HUB_PARSER_Hub
    return out;
  }();
  return steps;
}

bool TStorageHub::IsPendingLoadStep(const std::string& name) {
  const std::vector<std::string>& steps = PendingLoadSteps();
  return std::find(steps.begin(), steps.end(), name) != steps.end();
}

// The caches of step 11, in their order; each is built in the file of its
// component.
void TStorageHub::BuildSettingCaches() {
  BuildClientSettingsCaches();
  BuildClientMarginRestrictionsCache();
  BuildSecurityRestrictionsCache();
  BuildRestrictionsCache();
}

// A store filled by InitLite is saved from its section's place in the map:
// the section is entered there when the loaded text had none, so that the
// next save writes what InitLite brought.
void TStorageHub::ParseComplexFIApprovedClients_Lite(const TIniParser& source) {
  m_complexFIApprovedClients.clear();
  const std::string name(IniSectName(iscComplexFIApprovedClients));
  const TIniKeyMap* keys = source.FindIniSectionRef(name);
  if (keys == nullptr) return;
  ParseComplexFIApprovedClientsList(*keys);
  m_parser->FindOrCreateIniSection(name);
}

void TStorageHub::ParseComplexInstruments_Lite(const TIniParser& source) {
  m_complexInstruments.clear();
  const std::string name(IniSectName(iscComplexInstruments));
  const TIniKeyMap* keys = source.FindIniSectionRef(name);
  if (keys == nullptr) return;
  ParseComplexInstruments(*keys);
  m_parser->FindOrCreateIniSection(name);
}

void TStorageHub::ParseGroupsAndComplexInstruments(const TIniParser& source) {
  const TIniKeyMap* groups = source.FindIniSectionRef(std::string(IniSectName(iscGroupsOfInstrumentsAndClasses)));
  if (groups != nullptr) ParseGroupsOfInstrumentsAndClasses(*groups);
  const TIniKeyMap* complex = source.FindIniSectionRef(std::string(IniSectName(iscComplexInstruments)));
  if (complex != nullptr) ParseComplexInstruments(*complex);
}

void TStorageHub::ParseClientCVal(const TIniParser& source) {
  m_clientCvalSign = source.GetIniParamInt(std::string(kGeneralSection), TIniParser::ipcClientCval, 1);
  m_clientCvalClients.clear();
  for (const auto& [client, value] : source.GetCValSection()) m_clientCvalClients.insert(client);
}

void TStorageHub::ParseComplexInstrumentsGeneral(const TIniParser& source) {
  const std::string general(kGeneralSection);
  m_complexInstrumentsAccessControl =
      source.GetIniParamBool(general, TIniParser::ipcComplexInstrumentsAccessControl, false);
  m_complexTypesWithoutRestrictions.clear();
  const TClassList types(source.GetIniParamString(general, TIniParser::ipcComplexInstrumentsTypesWithoutRestrictions,
                                                  TIniParser::EmptyString()),
                         TClassList::UpperNoRepeats);
  m_complexTypesWithoutRestrictions.insert(types.Items().begin(), types.Items().end());
}

void TStorageHub::ReloadRestrictionTemplates(const TIniParser& source) {
  m_parser->ReloadRestrictionsTemplates(source);
  m_logicParser = std::make_unique<TIniLogicParser>(*m_parser);
  m_universalParser = std::make_unique<TUniversalParser>(*m_parser);
  m_universalParser->ParseGlobalSettings();
  BuildRestrictionsCache();
}

int TStorageHub::InitLite(const char* text) {
  if (text == nullptr) return ZDL_BAD_ARGUMENT;
  try {
    TIniParser source(text, TIniParser::SourceText, kCommentChar, kParserFlags);
    ParseComplexFIApprovedClients_Lite(source);
    ParseComplexInstruments_Lite(source);
    ReloadRestrictionTemplates(source);
    ParseComplexInstrumentsGeneral(source);
    ParseClientCVal(source);
  } catch (...) {
    return ZDL_FAILED;
  }
  return ZDL_OK;
}

// Parse functions without a body of their own: Later ones are read by a
// later step or a cache, Pending ones have no parsed home yet.
#define ZDL_HUB_PARSER_Hub(function)
#define ZDL_HUB_PARSER_Later(function) \
  void TStorageHub::function(const TIniKeyMap& /*keys*/) {}
#define ZDL_HUB_PARSER_Pending(function) \
  void TStorageHub::function(const TIniKeyMap& /*keys*/) {}
#define ZDL_HUB_PARSER(section, function, home) ZDL_HUB_PARSER_##home(function)
#include "core/HubGlobalParsers.def"
#undef ZDL_HUB_PARSER
#undef ZDL_HUB_PARSER_Pending
#undef ZDL_HUB_PARSER_Later
#undef ZDL_HUB_PARSER_Hub

void TStorageHub::ParseGlobalGeneral(const TIniKeyMap& keys) {
  m_checkForAllLimitKinds = m_parser->GetIniParamBool(keys, TIniParser::ipcCheckForAllLimitKinds, false);
  m_checkUser = m_parser->GetIniParamBool(keys, TIniParser::ipcCheckUser, false);
  m_extendedSubClient = m_parser->GetIniParamBool(keys, TIniParser::ipcExtendedSubClient, false);
  const std::string& orderMaxValue =
      m_parser->GetIniParamString(keys, TIniParser::ipcOrderMaxValue, TIniParser::EmptyString());
  if (!orderMaxValue.empty()) TIniLogicParser::ParseOrderMaxValueItem(m_generalOrderMaxValue, orderMaxValue);
  m_subBrokerGenerateClient = m_parser->GetIniParamBool(keys, TIniParser::ipcSubBrokerGenerateClient, false);
}

void TStorageHub::ParseGlobalProhibedTrdAcc(const TIniKeyMap& keys) {
  m_globalProhibedTrdAcc.Assign(
      m_parser->GetIniParamString(keys, TIniParser::ipcGlobalProhibedTrdAcc, TIniParser::EmptyString()),
      TClassList::NoRepeats);
}

void TStorageHub::ParseProhibitOrders(const TIniKeyMap& keys) {
  m_prohibitOrders = TProhibitOrders();
  const TClassList clients(m_parser->GetIniParamString(keys, TIniParser::ipcClients, TIniParser::EmptyString()),
                           TClassList::NoRepeats);
  for (const std::string& client : clients.Items())
    if (!client.empty() && client.size() <= kClientCodeMaxLength) m_prohibitOrders.clients.insert(client);
  m_prohibitOrders.ignoreClasses.Assign(
      m_parser->GetIniParamString(keys, TIniParser::ipcIgnoreClasses, TIniParser::EmptyString()),
      TClassList::NoRepeats);
  m_prohibitOrders.managerCanClosePos = m_parser->GetIniParamBool(keys, TIniParser::ipcManagerCanClosePos, false);
}

void TStorageHub::ParseOrderMaxValue(const TIniKeyMap& keys) {
  for (const auto& [key, value] : keys) {
    TMaxOrderValue item;
    TIniLogicParser::ParseOrderMaxValueItem(item, value);
    m_orderMaxValues[key] = item;
  }
}

void TStorageHub::ParseCodeToListSection(const TIniKeyMap& keys, TCodeToList& out) {
  for (const auto& [key, value] : keys) out[key].Assign(value, TClassList::NoRepeats);
}

void TStorageHub::ParseAddZadolgBoards(const TIniKeyMap& keys) { ParseCodeToListSection(keys, m_addZadolgBoards); }
void TStorageHub::ParseCommissionCurrency(const TIniKeyMap& keys) {
  ParseCodeToListSection(keys, m_commissionCurrency);
}
void TStorageHub::ParseAddMultiCurrency(const TIniKeyMap& keys) { ParseCodeToListSection(keys, m_addMultiCurrency); }
void TStorageHub::ParseSectionSecLotBoard(const TIniKeyMap& keys) { ParseCodeToListSection(keys, m_secLotBoard); }
void TStorageHub::ParseSectionSecurityAllowedTrdAcc(const TIniKeyMap& keys) {
  ParseCodeToListSection(keys, m_securityAllowedTrdAcc);
}
void TStorageHub::ParseSectionSecurityProhibitedTrdAcc(const TIniKeyMap& keys) {
  ParseCodeToListSection(keys, m_securityProhibitedTrdAcc);
}

void TStorageHub::ParseComplexFIApprovedClientsList(const TIniKeyMap& keys) {
  m_complexFIApprovedClients.clear();
  const TClassList clients(m_parser->GetIniParamString(keys, TIniParser::ipcClients, TIniParser::EmptyString()),
                           TClassList::NoRepeats);
  for (const std::string& client : clients.Items())
    if (client.size() <= kClientCodeMaxLength) m_complexFIApprovedClients.insert(client);
}

void TStorageHub::ParseInstrumentGroups(const TIniKeyMap& keys, TInstrumentGroups& out) {
  out.clear();
  for (const auto& [name, value] : keys) {
    const std::string groupName = TrimStr(name);
    if (groupName.empty()) continue;
    TInstrumentGroup group;
    std::size_t markerPos = 0;
    const std::string upper = StrUpper(value);
    const bool hasClasses = upper.find(StrUpper(Utils::ClassListMarker)) != std::string::npos;
    const bool hasInstruments = upper.find(StrUpper(Utils::InstrumentsMarker)) != std::string::npos ||
                                upper.find(StrUpper(Utils::InstrMarker)) != std::string::npos;
    if (hasClasses && !Utils::GetClassListFromString(value, group.classCodes, markerPos)) continue;
    if (hasInstruments && !Utils::GetSecListFromString(value, group.instrumentCodes, markerPos)) continue;
    if (group.classCodes.empty() && group.instrumentCodes.empty()) continue;
    out[groupName] = std::move(group);
  }
}

void TStorageHub::ParseComplexInstruments(const TIniKeyMap& keys) { ParseInstrumentGroups(keys, m_complexInstruments); }
void TStorageHub::ParseGroupsOfInstrumentsAndClasses(const TIniKeyMap& keys) {
  ParseInstrumentGroups(keys, m_groupsOfInstrumentsAndClasses);
}

// ---- Rendering ----

void TStorageHub::SettingToStrRawSection(std::string& out, const TSettingToStrSource& src) const {
  ComposeSection(out, src.section, std::string(), src.keys, {});
}

#define ZDL_HUB_RENDER_FUNC_Hub(function)
#define ZDL_HUB_RENDER_FUNC_Raw(function)                                                \
  void TStorageHub::function(std::string& out, const TSettingToStrSource& src) const { \
    SettingToStrRawSection(out, src);                                                  \
  }
#define ZDL_HUB_RENDER_FUNC(function, home) ZDL_HUB_RENDER_FUNC_##home(function)
#include "core/HubRenderFunctions.def"
#undef ZDL_HUB_RENDER_FUNC
#undef ZDL_HUB_RENDER_FUNC_Raw
#undef ZDL_HUB_RENDER_FUNC_Hub

namespace {

void Dispatch(const TStorageHub& hub, const std::map<int, TSettingToStrFunc>& map, std::string& out, int code,
              const TSettingToStrSource& src) {
  auto it = map.find(code);
  if (it != map.end()) it->second(hub, out, src);
}

// A general parameter's value as text and whether it is at its default.
std::string GeneralParamText(const TGeneralSettings& now, const TGeneralSettings& def, EGeneralParam code,
                             EGeneralParamKind kind, bool& isDefault) {
  switch (kind) {
    case EGeneralParamKind::Flag: {
      bool a = false, b = false;
      (void)now.GetFlagParam(code, a);
      (void)def.GetFlagParam(code, b);
      isDefault = a == b;
      return a ? "1" : "0";
    }
    case EGeneralParamKind::Int: {
      int a = 0, b = 0;
      (void)now.GetIntParam(code, a);
      (void)def.GetIntParam(code, b);
      isDefault = a == b;
      return std::to_string(a);
    }
    case EGeneralParamKind::Number: {
      double a = 0, b = 0;
      (void)now.GetNumberParam(code, a);
      (void)def.GetNumberParam(code, b);
      isDefault = MIsEqual(a, b);
      return DoubleToString(a);
    }
    case EGeneralParamKind::Text: {
      std::string a, b;
      (void)now.GetTextParam(code, a);
      (void)def.GetTextParam(code, b);
      isDefault = a == b;
      return a;
    }
    default: {
      const TClassList* a = nullptr;
      const TClassList* b = nullptr;
      (void)now.GetListParam(code, a);
      (void)def.GetListParam(code, b);
      isDefault = a->Items() == b->Items();
      return a->ToString();
    }
  }
}

}  // namespace

void TStorageHub::SettingToStrGlobalSettings(std::string& out, int code, const TSettingToStrSource& src) const {
  Dispatch(*this, m_tables->global, out, code, src);
}
void TStorageHub::SettingToStrGlobalSettingsClientTemplate(std::string& out, int code,
                                                           const TSettingToStrSource& src) const {
  Dispatch(*this, m_tables->clientTemplate, out, code, src);
}
void TStorageHub::SettingToStrGlobalSettingsMarginTemplate(std::string& out, int code,
                                                           const TSettingToStrSource& src) const {
  Dispatch(*this, m_tables->marginTemplate, out, code, src);
}
void TStorageHub::SettingToStrGlobalSettingsRestrictionTemplate(std::string& out, int code,
                                                                const TSettingToStrSource& src) const {
  Dispatch(*this, m_tables->restrictionTemplate, out, code, src);
}

void TStorageHub::SettingToStrGlobalGeneral(std::string& out, const TSettingToStrSource& src) const {
  std::string lines;
  m_universalParser->SettingToStrGlobalSection(lines, iscGeneral);
  static const TGeneralSettings defaults;
  static const char* const kRendered[] = {
#define ZDL_GENERAL_RENDERED(name) name,
#include "core/GeneralRenderedParams.def"
#undef ZDL_GENERAL_RENDERED
  };
  // Flags read by ParseGlobalGeneral, written from the hub's fields.
  const std::pair<std::string_view, const bool*> hubFlags[] = {
      {"ExtendedSubClient", &m_extendedSubClient},
      {"CheckForAllLimitKinds", &m_checkForAllLimitKinds},
      {"CheckUser", &m_checkUser},
      {"SubBrokerGenerateClient", &m_subBrokerGenerateClient}};
  for (const char* name : kRendered) {
    EGeneralParam code = gpCount;
    if (TGeneralSettings::FindGeneralParam(kGeneralSection, name, code)) {
      bool isDefault = true;
      const std::string text =
          GeneralParamText(m_general, defaults, code, kGeneralParamInfos[code].kind, isDefault);
      if (!isDefault) AppendLine(lines, name, text);
      continue;
    }
    const bool* hubFlag = nullptr;
    for (const auto& [flagName, field] : hubFlags)
      if (IsSameSettingsName(name, flagName)) hubFlag = field;
    if (hubFlag != nullptr) {
      if (*hubFlag) AppendLine(lines, name, "1");
    } else if (src.keys != nullptr) {
      // No field of the hub holds it yet: the value read stays the home.
      const std::string& value = m_parser->GetIniParamString(*src.keys, std::string(name), TIniParser::EmptyString());
      if (!value.empty()) AppendLine(lines, name, value);
    }
  }
  ComposeSection(out, src.section, lines, nullptr, {});
}

void TStorageHub::SettingToStrGlobalProhibedTrdAcc(std::string& out, const TSettingToStrSource& src) const {
  std::string lines;
  if (!m_globalProhibedTrdAcc.Empty())
    AppendLine(lines, TIniParser::GetIniParamCode(TIniParser::ipcGlobalProhibedTrdAcc),
               m_globalProhibedTrdAcc.ToString());
  ComposeSection(out, src.section, lines, src.keys,
                 {TIniParser::GetIniParamCodeUp(TIniParser::ipcGlobalProhibedTrdAcc)});
}

void TStorageHub::SettingToStrGlobalProhibitOrders(std::string& out, const TSettingToStrSource& src) const {
  std::string lines;
  if (!m_prohibitOrders.clients.empty())
    AppendLine(lines, TIniParser::GetIniParamCode(TIniParser::ipcClients),
               GetRowWithDelimsFromListRows(m_prohibitOrders.clients));
  if (!m_prohibitOrders.ignoreClasses.Empty())
    AppendLine(lines, TIniParser::GetIniParamCode(TIniParser::ipcIgnoreClasses),
               m_prohibitOrders.ignoreClasses.ToString());
  if (m_prohibitOrders.managerCanClosePos)
    AppendLine(lines, TIniParser::GetIniParamCode(TIniParser::ipcManagerCanClosePos), "1");
  ComposeSection(out, src.section, lines, src.keys,
                 {TIniParser::GetIniParamCodeUp(TIniParser::ipcClients),
                  TIniParser::GetIniParamCodeUp(TIniParser::ipcIgnoreClasses),
                  TIniParser::GetIniParamCodeUp(TIniParser::ipcManagerCanClosePos)});
}

void TStorageHub::CodeToListToStr(std::string& out, const std::string& section, const TCodeToList& lists) {
  std::string lines;
  for (const auto& [code, list] : lists) AppendLine(lines, code, list.ToString());
  ComposeSection(out, section, lines, nullptr, {});
}

void TStorageHub::SettingToStrAddZadolgBoards(std::string& out, const TSettingToStrSource& src) const {
  CodeToListToStr(out, src.section, m_addZadolgBoards);
}
void TStorageHub::SettingToStrAddMultiCurrencyGlobal(std::string& out, const TSettingToStrSource& src) const {
  CodeToListToStr(out, src.section, m_addMultiCurrency);
}
void TStorageHub::SettingToStrCommissionCurrency(std::string& out, const TSettingToStrSource& src) const {
  CodeToListToStr(out, src.section, m_commissionCurrency);
}

void TStorageHub::SettingToStrComplexFIApprovedClientsList(std::string& out, const TSettingToStrSource& src) const {
  std::string lines;
  if (!m_complexFIApprovedClients.empty())
    AppendLine(lines, TIniParser::GetIniParamCode(TIniParser::ipcClients),
               GetRowWithDelimsFromListRows(m_complexFIApprovedClients));
  ComposeSection(out, src.section, lines, src.keys, {TIniParser::GetIniParamCodeUp(TIniParser::ipcClients)});
}

void TStorageHub::InstrumentGroupsToStr(std::string& out, const TSettingToStrSource& src,
                                        const TInstrumentGroups& groups) {
  std::string lines;
  for (const auto& [name, group] : groups) {
    std::string value;
    if (!group.classCodes.empty()) {
      value += Utils::ClassListMarker;
      value += GetRowWithDelimsFromListRows(group.classCodes);
    }
    if (!group.instrumentCodes.empty()) {
      value += Utils::InstrumentsMarker;
      value += GetRowWithDelimsFromListRows(group.instrumentCodes);
    }
    AppendLine(lines, name, value);
  }
  ComposeSection(out, src.section, lines, nullptr, {});
}

void TStorageHub::SettingToStrComplexInstruments(std::string& out, const TSettingToStrSource& src) const {
  InstrumentGroupsToStr(out, src, m_complexInstruments);
}
void TStorageHub::SettingToStrGroupsOfInstrumentsAndClasses(std::string& out, const TSettingToStrSource& src) const {
  InstrumentGroupsToStr(out, src, m_groupsOfInstrumentsAndClasses);
}

void TStorageHub::SettingToStrClientCval(std::string& out, const TSettingToStrSource& src) const {
  // The keys of the first ClientCval section went to the client values and
  // the section's entry holds only the keys of later ClientCval sections:
  // the client values are written first, as a section of their own, so that
  // a reload sends each key back to where it came from.
  out += SectionToRowText(src.section, m_parser->GetCValSection());
  SettingToStrRawSection(out, src);
}

// ---- Save ----

int TStorageHub::SaveSettingsToMemory(char** out) {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniSectionsMap& sections = m_parser->GetSections();
  TWrittenSections written;
  std::string text;
  // 1, 2. Clients and client templates.
  AppendClientAndTemplateRows(text, written);
  // 3, 4. Volume-based commission of clients and of templates.
  m_volumeCommission.AppendRows(*m_parser, text, written, 3);
  m_volumeCommission.AppendRows(*m_parser, text, written, 4);
  // 5. The global sections, by kind.
  AppendGlobalSectionRows(text, written);
  // 6. Volume-based commission, global.
  m_volumeCommission.AppendRows(*m_parser, text, written, 6);
  // 7. "CommissionSettingsCurrency".
  AppendCommissionSettingsCurrencyRows(text, written);
  // 8, 9, 10. "LimitAllowedSecurity", "AssetSecurities", "RestShortSecurities".
  AppendOldFormListRows(text, written);
  // 11. Tariff plans.
  AppendTariffPlanRows(text, written);
  // 12. Currency replacement.
  AppendCurrencyReplacementRows(text, written);
  // 13 to 16. Margin settings: general, clients, prefixes, templates.
  AppendMarginSettingsRows(text, written);
  // 17. Restriction templates.
  AppendRestrictionTemplateRows(text, written);
  m_portfolioRisk.AppendRows(*m_parser, text, written);
  // Every section no step wrote (no parsed home, or not parsed) is copied as
  // it stands, so that nothing is lost.
  for (auto it = sections.begin(); it != sections.end(); ++it) {
    if (written.count(&it->first) != 0) continue;
    written.insert(&it->first);
    if (IsSameSettingsName(it->first, kClientCvalSectionName)) text += SectionToRowText(it->first, m_parser->GetCValSection());
    text += m_parser->GetRowFromSection(it);
  }

  SettingsNormalizer normalizer;
  normalizer.ReadFrom(text);
  normalizer.Normalize();
  std::string canonical;
  normalizer.WriteTo(canonical);
  char* block = m_memory.ConstructString(canonical.size() + 1);
  std::memcpy(block, canonical.data(), canonical.size());
  *out = block;
  return ZDL_OK;
}

}  // namespace DL
