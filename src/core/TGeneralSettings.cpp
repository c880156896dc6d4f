#include "core/TGeneralSettings.h"

#include <cstdlib>
#include <type_traits>

#include "base/TextHelpers.h"
#include "base/TradingTypes.h"
#include "base/ResultCodes.h"
#include "ini/TIniParser.h"

namespace DL {

namespace {

// The classes of the stock and currency markets whose positions are margined
// by the main rules unless the firm lists its own.
constexpr std::string_view kMainMarginClassesDefault =
    "EQBR,EQNS,EQNL,EQBS,EQNE,EQNB,EQOB,EQOS,EQNO,EQLV,EQLI,EQOV,EQDE,EQGO,EQYO,EQEU,EQEO,"
    "TQBR,TQBS,TQLV,TQLI,TQNE,TQQI,TQNL,TQOB,TQCB,TQRD,TQIR,TQOS,TQNO,TQOV,TQNB,TQUS,TQEU,"
    "TQDE,TQPI,TQIF,TQTF,TQBD,TQFD,TQFE,TQTY,TQTH,TQPD,TQPE,TQPY,TQPH,TQTD,TQOD,TQOE,TQOY,"
    "TQUD,TQED,TQIU,TQIE,TQIY,TQDD,TQQD,FQBR,FQBY,FQBH,FQDE,FQDY,FQDH,MAIN,GAZ,GTS,SPBSPT,"
    "SPBFUT,SPBOPT,CETS,SDBP";

// The boards whose exchange commission is raised to the exchange's minimum:
// every board of the exchange's tariff table, in the order of that table.
constexpr std::string_view kMinTSCommClassesDefault =
    "TQCB,TQOD,TQOE,TQOY,TQOB,TQIR,TQIU,TQIE,TQIY,TQRD,TQUD,TQED,PSOB,PSDB,PSED,PSUD,PSEU,"
    "PSEO,PSGO,PSYO,PSIR,PSIU,PSIE,PSIY,PTOB,PTOD,PTOE,PTIR,PTIU,PTIE,PTIY,PTDB,PTED,PTUD,"
    "PSBB,PSBU,PSBE,PAEU,PAUS,PAGB,PACY,PSAU,FQBH,FQBR,FQBY,FQDH,FQDY,SMAL,TQBD,TQBR,TQBE,"
    "TQFD,TQFE,TQIF,TQTD,TQTE,TQTF,TQTH,TQPY,TQTY,EQTD,EQTU,FQDE,TQPD,TQPE,TQPH,TQPI,CTEQ,"
    "CTES,CTOB,CTOD,CTOE,CTOS,CTOY,CTSD,CTSE,LIQB,LIQO,PSPI,PTPI,FTDE,FTEQ,PTEQ,PTFD,PTFE,"
    "PTIF,PTSD,PTSE,PTTD,PTTE,PTTF,TQDP,FSEQ,PSEQ,PSFD,PSFE,PSIF,PSSD,PSSE,PSTD,PSTE,PSTF,"
    "SPEQ,AUCT,AUBB,FSDE,PSPD,PSPE,PTPD,PTPE,NADM,PSSU,SADM,TRAN,PACT,PSBB_EQ,FSDH,FSDY,FSSH,"
    "FSSY,FTDH,FTDY,FTSH,FTSY,PSPH,PSPY,PSTH,PSTY,PTPH,PTPY,PTTH,PTTY,TQDU,SDBP,EQCC,PSCC,"
    "EQOC,PSOC,PSI2,PSDE,EQBR,EQBS,EQNE,EQNL,EQLV,EQLI,PSES,PSNE,PSNL,PSLV,PSLI,EQEU,EQEO,"
    "EQGO,EQYO,EQQI,EQDE,PSQI,TQDD,PTDD,PSDD,PAEU_BND,AUCT_BND,AUBB_BND,TQBS,TQNE,TQNL,TQLV,"
    "TQLI,TQQI,TQDE,TQEU,PTDE,PTTC,PTQI,DADU,NDPU,TDPU,RPCC,RPOC,RPQI,RPQI_BND,EQMY,EQTY,"
    "EQWY,EQMY_BND,EQTY_BND,EQWY_BND,GYNM,GYOM,GYOW,GYOY,GYRP,GYSM,GYSW,GYTM,GYUM,FCNM,FAOM,"
    "FCOM,FCOW,FCOY,FCSM,FCSW,FATM,FCTM,FCUM,EQRP,EQRD,EQRE,EQWD,EQWE,EQWP,EQRY,EQRP_BND,"
    "EQRD_BND,EQRE_BND,EQMD_BND,EQME_BND,EQMP_BND,EQTE_BND,EQTP_BND,ETQD_BND,EQWD_BND,"
    "EQWE_BND,EQWP_BND,LIQR,LIQR_BND,GURP,GCOM,GCOW,GEOW,GCOY,GCRP,GCSM,GCSW,GCTM,GCUM,GUOW,"
    "GUSW,GUOM,GUSM,GUTM,GUUM,GUOY,GCNM,GENM,GESM,GETM,GUNM,GEOM,GEOY,GERP,GESW,GEUM,FYOW,"
    "FYSW,FYOM,FYSM,FYTM,FYUM,FYNM,FYOY,PYGC,PSRD,PSRE,PSRY,PSRP,PSRD_BND,PSRP_BND,PSRE_BND,"
    "PSRY_BND,FKRP,FKOW,FKSW,FKOM,FKFW,FKSM,FKTM,FKUM,FKOY,FSRP,FSOW,FSSW,FSOM,FSFW,RPMA,"
    "RPMO,FBCB,FBCE,FBCU,FBFX,FBOB,FBCX,FBOX,FBCB_BND,FBCE_BND,FBCU_BND,FBFX_BND,RPEO,RPEY,"
    "RPUA_MOEX,RPUO,RPEU,RPGO,RPEU_BND,PUGC,PSGC,PEGC,TQQD,OQQI,PSQI_BND,PTQI_BND,PSAU_BND,"
    "LIQB_BND,LIQO_BND,TQNB,TQNO,TQOS,TQOV,TQUS,EQNB,EQNO,EQOB,EQOS,EQOV,GAZP,EQDB,EQUS,PSUS,"
    "EQDP,TQDB,PSNB,PSNO,PSOS,PSOV,PTOY,RPEQ,MAIN,MAIC,SES2,BOBR,EXRP,NEGD,RPCB,RPCD,RPDD,"
    "RPFB,RPFD,RPFG,RPNG,OCTR,OCTU,MTQR,MPTR,OCAR,OCAY,OCAU,OCBR,OCBU,OCBY";

// Repo classes with a fixed term, kept as one set for the tariff code.
constexpr std::string_view kConstantRepoClasses = "EQMP_BND,EQTP_BND,GCNM,GCOM,GCOY,GCSM,GCTM,GCUM,PSGC,PSRP,PSRP_BND";

// Sections that the catalogue does not name.
constexpr const char* kClientsNoMultiCurrencySection = "ClientsNoMultiCurrency";
constexpr const char* kIgnoreTrdAccSection = "IgnoreTrdAcc";
constexpr const char* kMarketToLimitOrderPricePercentSection = "MarketToLimitOrderPricePercent";
constexpr const char* kClientsKey = "Clients";
constexpr const char* kDefaultCreditTypeKey = "DEFAULT";

constexpr double kMinThresMarginCoeff = 10.0;

constexpr TClassList::EMode ListMode(EGeneralParamKind kind) {
  switch (kind) {
    case EGeneralParamKind::UniqueList:
      return TClassList::NoRepeats;
    case EGeneralParamKind::UpperList:
      return TClassList::UpperNoRepeats;
    default:
      return TClassList::KeepRepeats;
  }
}

const TIniKeyMap* FindSection(const TIniParser& parser, EIniSectCodeNum code) {
  return parser.FindIniSectionRef(std::string(IniSectName(code)));
}

const TIniKeyMap* FindSection(const TIniParser& parser, const char* name) {
  return parser.FindIniSectionRef(std::string(name));
}

// The value of a key, or null when the section or the key is missing.
const std::string* FindValue(const TIniKeyMap* keys, std::string_view key) {
  if (keys == nullptr) return nullptr;
  const auto it = keys->find(key);
  return it == keys->end() ? nullptr : &it->second;
}

// strtol in base 10 narrowed to int: leading digits count, no digits give 0.
int ReadInt(const std::string& text) { return static_cast<int>(std::strtol(text.c_str(), nullptr, 10)); }

// ---- Defaults and reading, one overload per field type ----

void SetDefault(bool& field, bool def, EGeneralParamKind) { field = def; }
void SetDefault(int& field, int def, EGeneralParamKind) { field = def; }
void SetDefault(double& field, double def, EGeneralParamKind) { field = def; }
void SetDefault(std::string& field, std::string_view def, EGeneralParamKind) { field.assign(def); }
void SetDefault(TClassList& field, std::string_view def, EGeneralParamKind kind) { field.Assign(def, ListMode(kind)); }

void Read(const TIniParser& parser, const TIniKeyMap* keys, const char* key, bool& field, bool def,
          EGeneralParamKind) {
  field = parser.GetIniParamBool(keys, key, def);
}
void Read(const TIniParser& parser, const TIniKeyMap* keys, const char* key, int& field, int def,
          EGeneralParamKind) {
  field = parser.GetIniParamInt(keys, key, def);
}
void Read(const TIniParser& parser, const TIniKeyMap* keys, const char* key, double& field, double def,
          EGeneralParamKind) {
  field = parser.GetIniParamDouble(keys, key, def);
}
void Read(const TIniParser&, const TIniKeyMap* keys, const char* key, std::string& field, std::string_view def,
          EGeneralParamKind) {
  const std::string* v = FindValue(keys, key);
  if (v != nullptr)
    field = *v;
  else
    field.assign(def);
}
void Read(const TIniParser&, const TIniKeyMap* keys, const char* key, TClassList& field, std::string_view def,
          EGeneralParamKind kind) {
  const std::string* v = FindValue(keys, key);
  field.Assign(v != nullptr ? std::string_view(*v) : def, ListMode(kind));
}

// Points `out` at the field when it has the asked type.
template <class TAsked, class TField>
int PickField(const TField& field, const TAsked*& out) {
  if constexpr (std::is_same_v<TAsked, TField>) {
    out = &field;
    return ZDL_OK;
  } else {
    (void)field;
    return ZDL_BAD_ARGUMENT;
  }
}

}  // namespace

TGeneralSettings::TGeneralSettings() { SetDefaults(); }

void TGeneralSettings::Load(const TIniParser& parser) {
  // A parser that never ran Init still needs the catalogue's names.
  TIniParser::FillCodeTables();
  SetDefaults();
  ParseSubstitutableCurrencies(parser);
  ParseMultiCurrencyBasics(parser);
  ParseCreditTypes(parser);
  ParseGeneralParams(parser);
  ParseMarketToLimitOrderPricePercent(parser);
  SetRepoTermForRepoCCP();
}

void TGeneralSettings::SetDefaults() {
#define ZDL_GENERAL_PARAM(field, key, section, kind, def) SetDefault(m_##field, def, EGeneralParamKind::kind);
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
  m_mainCurrency = DefaultMainCurrency;
  m_rublesEquivalents.clear();
  for (const char* code : DefaultRublesEquivalents) m_rublesEquivalents.insert(code);
  m_substitutes.clear();
  m_clientsNoMultiCurrency.Clear();
  m_hasIgnoreTrdAcc = false;
  m_creditTypes.clear();
  m_creditTypeMasks.clear();
  m_mainAndAddMainMarginClasses.Clear();
  FillMainMarginAndAddMainMarginClasses();
  m_constantRepoClasses.Assign(kConstantRepoClasses, TClassList::NoRepeats);
  m_includeAccruedIntForAll = false;
  m_detailedDebugLogLevel = 0;
  m_baseDiscCoeffs.clear();
  m_ignoreChecksClients.Clear();
  m_floodControlOnDuplicates = TFloodControlOnDuplicateTransactions();
  m_volatilityScenarios = TVolatilityChangeScenarios();
  m_marketToLimitOrderPricePercent.clear();
  m_repoTerms.clear();
}

// ---- Currency identity ----

void TGeneralSettings::ParseSubstitutableCurrencies(const TIniParser& parser) {
  m_substitutes.clear();
  if (const TIniKeyMap* keys = FindSection(parser, iscSubstitutableCurrencies)) {
    for (const auto& [main, list] : *keys)
      for (std::string& substitute : BoardListToVectorWithoutDuplicates(list, ','))
        m_substitutes.emplace(std::move(substitute), main);
  }
  m_mainCurrency = DefaultMainCurrency;
  if (const std::string* main = GetMainCurrencyOfSubstitute(DefaultMainCurrency)) m_mainCurrency = *main;

  m_rublesEquivalents.clear();
  for (const char* code : DefaultRublesEquivalents) m_rublesEquivalents.insert(code);
  for (const auto& [substitute, main] : m_substitutes)
    if (main == m_mainCurrency) m_rublesEquivalents.insert(substitute);
}

bool TGeneralSettings::IsRublesEquivalent(std::string_view currency) const {
  return m_rublesEquivalents.find(std::string(currency)) != m_rublesEquivalents.end();
}

std::string TGeneralSettings::ReplaceRubRurToMainRubles(std::string_view currency) const {
  if (currency == "RUB" || currency == "RUR") return m_mainCurrency;
  return std::string(currency);
}

const std::string* TGeneralSettings::GetMainCurrencyOfSubstitute(std::string_view currency) const {
  const auto it = m_substitutes.find(std::string(currency));
  return it == m_substitutes.end() ? nullptr : &it->second;
}

// ---- Multi-currency basics ----

void TGeneralSettings::ParseMultiCurrencyBasics(const TIniParser& parser) {
  const std::string* clients = FindValue(FindSection(parser, kClientsNoMultiCurrencySection), kClientsKey);
  m_clientsNoMultiCurrency.Assign(clients ? std::string_view(*clients) : std::string_view(), TClassList::NoRepeats);
  m_hasIgnoreTrdAcc = parser.IsSectionExist(std::string(kIgnoreTrdAccSection));
}

// ---- Credit types ----

void TGeneralSettings::ParseCreditTypes(const TIniParser& parser) {
  m_creditTypes.clear();
  m_creditTypeMasks.clear();
  const TIniKeyMap* general = FindSection(parser, iscGeneral);
  m_creditTypes[kDefaultCreditTypeKey] = parser.GetIniParamInt(general, "CREDITLAG", 1);
  const TIniKeyMap* lags = FindSection(parser, iscClientLag);
  if (lags == nullptr) return;
  for (const auto& [key, value] : *lags) {
    const TCreditType type = ReadInt(value);
    if (!key.empty() && key.back() == '*')
      m_creditTypeMasks[key.substr(0, key.size() - 1)] = type;
    else
      m_creditTypes[key] = type;
  }
}

TCreditType TGeneralSettings::GetCreditType(std::string_view client) const {
  if (const auto it = m_creditTypes.find(client); it != m_creditTypes.end()) return it->second;
  // The longest mask wins; a lone "*" (the empty mask) matches every client.
  const TCreditType* best = nullptr;
  std::size_t bestLength = 0;
  for (const auto& [mask, type] : m_creditTypeMasks) {
    if (mask.size() > client.size() || (best != nullptr && mask.size() <= bestLength)) continue;
    if (IsSameSettingsName(mask, client.substr(0, mask.size()))) {
      best = &type;
      bestLength = mask.size();
    }
  }
  if (best != nullptr) return *best;
  const auto def = m_creditTypes.find(std::string_view(kDefaultCreditTypeKey));
  return def != m_creditTypes.end() ? def->second : 1;
}

// ---- General parameters ----

void TGeneralSettings::ParseGeneralParams(const TIniParser& parser) {
  ReadGeneralRows(parser);
  FillMainMarginAndAddMainMarginClasses();
  m_constantRepoClasses.Assign(kConstantRepoClasses, TClassList::NoRepeats);
  m_includeAccruedIntForAll = !m_IncludeAccruedInt.Empty() &&
                              (m_IncludeAccruedInt.Items().front() == AllMark ||
                               m_IncludeAccruedInt.Items().front() == "1");
  ParseDetailedDebugLog();
  ParseBaseDiscCoeff();
  if (m_ThresMarginCoeff < kMinThresMarginCoeff) m_ThresMarginCoeff = kMinThresMarginCoeff;
  ParseIgnoreChecksClients(parser);
  ParseFloodControlOnDuplicateTransactions(parser);
  ParseVolatilityChangeScenarios(parser);
}

void TGeneralSettings::ReadGeneralRows(const TIniParser& parser) {
  // Each section is looked up once; the rows then read from its key map.
  const TIniKeyMap* general = FindSection(parser, iscGeneral);
  const TIniKeyMap* commission = FindSection(parser, iscCommission);
  auto keysOf = [&](EIniSectCodeNum code) {
    return code == iscGeneral ? general : code == iscCommission ? commission : FindSection(parser, code);
  };
#define ZDL_GENERAL_PARAM(field, key, section, kind, def) \
  Read(parser, keysOf(isc##section), key, m_##field, def, EGeneralParamKind::kind);
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
}

void TGeneralSettings::FillMainMarginAndAddMainMarginClasses() {
  m_mainAndAddMainMarginClasses = m_MainMarginClasses;
  m_mainAndAddMainMarginClasses.AppendMissing(m_AddMainMarginClasses);
}

bool TGeneralSettings::IsIncludeAccruedInt(std::string_view classCode) const {
  return m_includeAccruedIntForAll || m_IncludeAccruedInt.Contains(StrUpper(classCode));
}

void TGeneralSettings::ParseDetailedDebugLog() {
  const std::string first = TrimStr(std::string_view(m_DetailedDebugLog).substr(0, m_DetailedDebugLog.find(',')));
  m_detailedDebugLogLevel = ReadInt(first);
}

void TGeneralSettings::ParseBaseDiscCoeff() {
  m_baseDiscCoeffs.clear();
  if (IsEmptyOrSpace(m_BaseDiscCoeff)) return;
  // Empty items keep their place: each position of the list has its meaning.
  for (const std::string& item : BoardListToVector(m_BaseDiscCoeff, ',', true))
    m_baseDiscCoeffs.push_back(ParseBaseDiscCoeffValue(item.c_str()));
}

void TGeneralSettings::ParseIgnoreChecksClients(const TIniParser& parser) {
  const std::string* clients = FindValue(FindSection(parser, iscIgnoreChecks), kClientsKey);
  m_ignoreChecksClients.Assign(clients ? std::string_view(*clients) : std::string_view(), TClassList::NoRepeats);
}

void TGeneralSettings::ParseFloodControlOnDuplicateTransactions(const TIniParser& parser) {
  m_floodControlOnDuplicates = TFloodControlOnDuplicateTransactions();
  const std::string* value =
      FindValue(FindSection(parser, iscGeneral), TIniParser::GetIniParamCode(TIniParser::ipcFloodControlOnDuplicateTransactions));
  if (value == nullptr) return;
  const std::vector<std::string> items = BoardListToVector(*value, ',', true);
  if (items.empty() || items[0].empty()) return;
  m_floodControlOnDuplicates.count = ReadInt(items[0]);
  if (items.size() > 1 && !items[1].empty()) m_floodControlOnDuplicates.interval = ReadInt(items[1]);
}

void TGeneralSettings::ParseVolatilityChangeScenarios(const TIniParser& parser) {
  m_volatilityScenarios = TVolatilityChangeScenarios();
  const std::string* value =
      FindValue(FindSection(parser, iscGeneral), TIniParser::GetIniParamCode(TIniParser::ipcVolatilityChangeScenarios));
  if (value == nullptr) return;
  const std::size_t comma = value->find(',');
  const std::string_view text(*value);
  m_volatilityScenarios.isSet = true;
  m_volatilityScenarios.up = StrToDouble(TrimStr(text.substr(0, comma)).c_str());
  m_volatilityScenarios.down =
      comma == std::string::npos ? 0.0 : StrToDouble(TrimStr(text.substr(comma + 1)).c_str());
}

// ---- Get operations by code ----

template <class T>
int TGeneralSettings::FindField(EGeneralParam code, const T*& out) const {
  switch (code) {
#define ZDL_GENERAL_PARAM(field, key, section, kind, def) \
  case gp##field:                                         \
    return PickField(m_##field, out);
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
    default:
      return ZDL_BAD_ARGUMENT;
  }
}

template <class T>
int TGeneralSettings::CopyField(EGeneralParam code, T& out) const {
  const T* field = nullptr;
  const int rc = FindField(code, field);
  if (rc == ZDL_OK) out = *field;
  return rc;
}

int TGeneralSettings::GetFlagParam(EGeneralParam code, bool& out) const { return CopyField(code, out); }
int TGeneralSettings::GetIntParam(EGeneralParam code, int& out) const { return CopyField(code, out); }
int TGeneralSettings::GetNumberParam(EGeneralParam code, double& out) const { return CopyField(code, out); }
int TGeneralSettings::GetTextParam(EGeneralParam code, std::string& out) const { return CopyField(code, out); }
int TGeneralSettings::GetListParam(EGeneralParam code, const TClassList*& out) const { return FindField(code, out); }

template <class T>
int TGeneralSettings::StoreField(EGeneralParam code, const T& value) {
  const T* field = nullptr;
  const int rc = FindField(code, field);
  // The field is a member of this object, which is not const here.
  if (rc == ZDL_OK) *const_cast<T*>(field) = value;
  return rc;
}

int TGeneralSettings::SetFlagParam(EGeneralParam code, bool value) { return StoreField(code, value); }
int TGeneralSettings::SetIntParam(EGeneralParam code, int value) { return StoreField(code, value); }

int TGeneralSettings::SetListParam(EGeneralParam code, const TClassList& value) { return StoreField(code, value); }

int TGeneralSettings::SetNumberParam(EGeneralParam code, double value) {
  const int rc = StoreField(code, value);
  if (rc == ZDL_OK && code == gpThresMarginCoeff && m_ThresMarginCoeff < kMinThresMarginCoeff)
    m_ThresMarginCoeff = kMinThresMarginCoeff;
  return rc;
}

int TGeneralSettings::SetTextParam(EGeneralParam code, const std::string& value) {
  const int rc = StoreField(code, value);
  if (rc == ZDL_OK && code == gpBaseDiscCoeff) ParseBaseDiscCoeff();
  if (rc == ZDL_OK && code == gpDetailedDebugLog) ParseDetailedDebugLog();
  return rc;
}

bool TGeneralSettings::FindGeneralParam(std::string_view section, std::string_view key, EGeneralParam& out) {
  for (const TGeneralParamInfo& row : kGeneralParamInfos) {
    if (IsSameSettingsName(key, row.key) && IsSameSettingsName(section, IniSectName(row.section))) {
      out = row.code;
      return true;
    }
  }
  return false;
}

// ---- Plain lists of other sections ----

void TGeneralSettings::ParseMarketToLimitOrderPricePercent(const TIniParser& parser) {
  m_marketToLimitOrderPricePercent.clear();
  const TIniKeyMap* keys = FindSection(parser, kMarketToLimitOrderPricePercentSection);
  if (keys == nullptr) return;
  for (const auto& [key, value] : *keys) {
    const double percent = std::strtod(value.c_str(), nullptr);
    if (percent < 0.0) continue;
    m_marketToLimitOrderPricePercent.emplace(key, percent);
  }
}

// ---- Repo term by board ----

void TGeneralSettings::SetRepoTermForRepoCCP() {
  if (!m_repoTerms.empty()) return;
#define ZDL_REPO_TERM(days, boards) \
  for (std::string& board : BoardListToVector(boards, ',')) m_repoTerms.emplace(std::move(board), days);
#include "core/RepoTermsByBoard.def"
#undef ZDL_REPO_TERM
}

bool TGeneralSettings::GetRepoTermByBoard(std::string_view board, int& days) const {
  const auto it = m_repoTerms.find(board);
  if (it == m_repoTerms.end()) return false;
  days = it->second;
  return true;
}

}  // namespace DL
