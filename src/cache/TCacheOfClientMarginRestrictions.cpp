#include "cache/TCacheOfClientMarginRestrictions.h"

#include <cstdlib>

#include "core/DLFunctionHelpers.h"
#include "core/TUniversalParser.h"

namespace DL {

namespace {

const char* const kGeneralSection = "General";
const char* const kGeneralName = "<General>";

std::vector<std::string> SplitList(const std::string& text) { return BoardListToVector(text, ',', false); }

std::int64_t ToInt64(const std::string& text) { return std::strtoll(text.c_str(), nullptr, 10); }

// The limit kinds of a list; an item that is no whole number of 0 or above
// is dropped.
std::vector<std::uint64_t> ToLimitKinds(const std::string& text) {
  std::vector<std::uint64_t> out;
  for (const std::string& item : SplitList(text)) {
    char* end = nullptr;
    const long long v = std::strtoll(item.c_str(), &end, 10);
    if (end == item.c_str() || *end != '\0' || v < 0) continue;
    out.push_back(static_cast<std::uint64_t>(v));
  }
  return out;
}

bool StartsWithUp(const std::string& keyUp, const char* prefixUp, std::string& rest, const std::string& key) {
  const std::string_view p(prefixUp);
  if (keyUp.size() <= p.size() || keyUp.compare(0, p.size(), p) != 0) return false;
  rest = key.substr(p.size());
  return true;
}

bool EndsWithUp(const std::string& keyUp, const char* suffixUp, std::string& rest, const std::string& key) {
  const std::string_view s(suffixUp);
  if (keyUp.size() <= s.size() || keyUp.compare(keyUp.size() - s.size(), s.size(), s) != 0) return false;
  rest = key.substr(0, key.size() - s.size());
  return true;
}

// The keys of a section that carry a code, into the maps of the body.
void ParseCodeKeys(const TIniKeyMap& section, TClientMarginRestrictionsBody& out) {
  std::string rest;
  for (const auto& [key, value] : section) {
    const std::string keyUp = StrUpper(key);
    if (StartsWithUp(keyUp, "SECURITY_", rest, key) && EndsWithUp(StrUpper(rest), "_RESTSHORT", rest, rest)) {
      out.restShortSecurities.AddClassLine(rest, value);
    } else if (StartsWithUp(keyUp, "CLASSTOLIMITKIND_", rest, key)) {
      out.classToLimitKind[rest] = ToInt64(value);
    } else if (StartsWithUp(keyUp, "SECURITYTOLIMITKIND_", rest, key)) {
      out.securityToLimitKind[rest] = ToInt64(value);
    } else if (StartsWithUp(keyUp, "SETTLECODETOLIMITKIND_", rest, key)) {
      out.settleCodeToLimitKind[rest] = ToInt64(value);
    } else if (StartsWithUp(keyUp, "ADDCOMMONTRDACC_", rest, key)) {
      out.addCommonTrdAcc[rest] = SplitList(value);
    } else if (StartsWithUp(keyUp, "SECTOBOARD_", rest, key)) {
      out.secToBoard[rest] = TrimStr(value);
    } else if (StartsWithUp(keyUp, "DISCOUNTSTYPEBYCLASSES_", rest, key)) {
      out.discountsTypeByClasses[rest] = static_cast<int>(ToInt64(value));
    } else if (EndsWithUp(keyUp, "_DISC", rest, key)) {
      out.securityDiscounts.Add(rest, value);
    } else if (EndsWithUp(keyUp, "_TAG", rest, key)) {
      out.boardTags[rest] = TrimStr(value);
    } else if (EndsWithUp(keyUp, "_CORRELATION", rest, key)) {
      out.correlations[rest] = std::strtod(value.c_str(), nullptr);
    } else if (EndsWithUp(keyUp, "_COEF", rest, key)) {
      out.coefs[rest] = std::strtod(value.c_str(), nullptr);
    }
  }
}

// "UseCorrelation" and "UseOrdersCorrelation": -1 is the default itself.
void ReadCorrelationSetting(int read, int def, int base, int global, bool first, TMarginSetting<int>& out) {
  out.read = read;
  out.value = read == kMarginDefault ? def : ConvertIniValueToIntSetting(read, base, global, first);
}

}  // namespace

TCacheOfClientMarginRestrictions::TCacheOfClientMarginRestrictions(TIniParser& parser, TUniversalParser* universal,
                                                                   const TStorageHub& hub)
    : AIniSettingCacheMaster<TClientMarginRestrictions>(parser, nullptr), m_logic(parser), m_storageHub(hub) {
  SetGlobalSettings(ParseGlobalSettings(universal));
  for (const auto& [client, sections] : parser.GetMarginClientSettings()) m_clients.Register(client);
  for (const auto& [prefix, sections] : parser.GetMarginPrefixClientSettings()) {
    m_prefixes.Register(prefix);
    m_prefixNames.insert(prefix);
  }
  for (const auto& [templ, sections] : parser.GetMarginTemplateSettings()) m_templates.Register(templ);
  for (const auto& [leverage, templ] : parser.GetMarginTemplateWithLeverageSettings())
    m_templatesByLeverage.emplace(leverage, templ->first);
  m_general = ParseSettingsFromSectionList(parser.GetMarginGlobalSettings());
  if (m_general && m_general->empty()) m_general.reset();
}

const TClientMarginRestrictionsBody& TCacheOfClientMarginRestrictions::GlobalBody() const {
  static const TBody kEmpty;
  const TObject* global = GlobalSettings();
  const TBody* body = global ? global->Body(0) : nullptr;
  return body ? *body : kEmpty;
}

// ---- Parsing ----

std::unique_ptr<TClientMarginRestrictions> TCacheOfClientMarginRestrictions::ParseGlobalSettings(
    const TUniversalParser* universal) const {
  auto object = std::make_unique<TObject>();
  TBody& b = (*object)[0];
  const TIniParser& p = Parser();
  const TIniKeyMap* general = p.FindIniSectionRef(std::string(kGeneralSection));
  static const TIniKeyMap kNone;
  const TIniKeyMap& g = general ? *general : kNone;

  // A typed parameter of "General" is read from the universal parser, which
  // is its home; the others from the section, or their defaults.
  auto typed = [&](const char* key, int& out) {
    if (universal == nullptr) return false;
    const int num = universal->GetParamNumInSect(iscGeneral, key);
    return num >= 0 && universal->GetIntParamFromGlobalSection(out, iscGeneral, num) == ZDL_OK;
  };
  auto readInt = [&](const char* key, int def, bool fromGeneral) {
    int v = def;
    if (typed(key, v)) return v;
    return fromGeneral ? p.GetIniParamInt(g, std::string(key), def) : def;
  };
  auto readBool = [&](const char* key, bool def, bool fromGeneral) {
    int v = def ? 1 : 0;
    if (typed(key, v)) return v != 0;
    return fromGeneral ? p.GetIniParamBool(g, std::string(key), def) : def;
  };
  auto readDouble = [&](const char* key, double def, bool fromGeneral) {
    return fromGeneral ? p.GetIniParamDouble(g, std::string(key), def) : def;
  };
  constexpr bool Yes = true;
  constexpr bool No = false;
#define ZDL_MARGIN_READ_Int readInt
#define ZDL_MARGIN_READ_Bool readBool
#define ZDL_MARGIN_READ_Double readDouble
#define ZDL_MARGIN_SETTING(type, field, key, def, fromGeneral) \
  b.field.value = ZDL_MARGIN_READ_##type(key, def, fromGeneral);
#include "cache/MarginSettings.def"
#undef ZDL_MARGIN_SETTING
#undef ZDL_MARGIN_READ_Double
#undef ZDL_MARGIN_READ_Bool
#undef ZDL_MARGIN_READ_Int
  b.negativeMoneyToShort.value =
      ConvertIniNegativeMoneyToShortToEnum(p.GetIniParamInt(g, std::string("NegativeMoneyToShort"), 0));
  b.useCorrelation.value = readInt("UseCorrelation", 1, true);
  b.useOrdersCorrelation.value = readInt("UseOrdersCorrelation", 0, true);
  b.futuresDiscountFromCollateralAmount =
      p.GetIniParamBool(g, std::string("FuturesDiscountFromCollateralAmount"), false);
  b.mdPlusDiffCurrAssetsInSets = p.GetIniParamBool(g, std::string("MDPlusDiffCurrAssetsInSets"), false);
  b.positionKeepingInCalendarDaysForAllMarkets =
      p.GetIniParamBool(g, std::string("PositionKeepingInCalendarDaysForAllMarkets"), false);
  b.includeClientsWithLeverage = p.GetIniParamDouble(g, std::string("IncludeClientsWithLeverage"), -1.0);
  auto text = [&](const char* key) { return p.GetIniParamString(g, std::string(key), TIniParser::EmptyString()); };
  b.classesWithIgnoreRstrTransfer = SplitList(text("ClassesWithIgnoreRstrTransfer"));
  b.classesWithIgnoreRstrNMBuy = SplitList(text("ClassesWithIgnoreRstrNMBuy"));
  b.addCommonTrdAccList = SplitList(text("AddCommonTrdAcc"));
  b.boardTagList = SplitList(text("BoardTag"));
  b.limitKinds = ToLimitKinds(text("LimitKinds"));
  ParseInstrumentsWithoutCurrencyRisk(g, b.instrumentsWithoutCurrencyRisk);

  // The global maps: every key of the section.
  auto section = [&](EIniSectCodeNum code) { return p.FindIniSectionRef(TIniParser::GetIniSectCode(code)); };
  if (const TIniKeyMap* s = section(iscClassToLimitKind))
    for (const auto& [key, value] : *s) b.classToLimitKind[key] = ToInt64(value);
  if (const TIniKeyMap* s = section(iscSecurityToLimitKind))
    for (const auto& [key, value] : *s) b.securityToLimitKind[key] = ToInt64(value);
  if (const TIniKeyMap* s = section(iscSettleCodeToLimitKind))
    for (const auto& [key, value] : *s) b.settleCodeToLimitKind[key] = ToInt64(value);
  if (const TIniKeyMap* s = section(iscSecToBoard))
    for (const auto& [key, value] : *s) b.secToBoard[key] = TrimStr(value);
  if (const TIniKeyMap* s = section(iscDiscountsTypeByClasses))
    for (const auto& [key, value] : *s) b.discountsTypeByClasses[key] = static_cast<int>(ToInt64(value));
  if (const TIniKeyMap* s = section(iscRestShortSecurities))
    for (const auto& [key, value] : *s) {
      std::string rest;
      if (key == TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL))
        b.restShortSecurities.AddClassLine(key, value);
      else if (StartsWithUp(StrUpper(key), "SECURITY_", rest, key))
        b.restShortSecurities.AddClassLine(rest, value);
    }
  if (const TIniKeyMap* s = section(iscSecurityDiscounts))
    for (const auto& [key, value] : *s) b.securityDiscounts.Add(key, value);
  return object;
}

void TCacheOfClientMarginRestrictions::ParseSettingsFromSection(const TIniKeyMap& section, const TBody& base,
                                                                TBody& out, bool first) const {
  const TBody& global = GlobalBody();
  const TIniParser& p = Parser();
  out = TBody();
  out.baseDiscCoeff.value = -1.0;
  out.mdPlusMinMarginCalcRate.value = 0.5;
#define ZDL_MARGIN_GET_Int(key) p.GetIniParamInt(section, std::string(key), kMarginInherit)
#define ZDL_MARGIN_GET_Bool(key) p.GetIniParamInt(section, std::string(key), kMarginInherit)
#define ZDL_MARGIN_GET_Double(key) p.GetIniParamDouble(section, std::string(key), static_cast<double>(kMarginInherit))
#define ZDL_MARGIN_SETTING(type, field, key, def, fromGeneral)                                        \
  out.field.read = ZDL_MARGIN_GET_##type(key);                                                         \
  out.field.value = ConvertIniValueTo##type##Setting(out.field.read, base.field.value, global.field.value, first);
#include "cache/MarginSettings.def"
#undef ZDL_MARGIN_SETTING
#undef ZDL_MARGIN_GET_Double
#undef ZDL_MARGIN_GET_Bool
#undef ZDL_MARGIN_GET_Int

  const int negative = p.GetIniParamInt(section, std::string("NegativeMoneyToShort"), kMarginInherit);
  out.negativeMoneyToShort.read = negative;
  out.negativeMoneyToShort.value =
      negative == kMarginInherit
          ? (first ? global.negativeMoneyToShort.value : base.negativeMoneyToShort.value)
          : ConvertIniNegativeMoneyToShortToEnum(negative);
  ReadCorrelationSetting(p.GetIniParamInt(section, std::string("UseCorrelation"), kMarginInherit), 1,
                         base.useCorrelation.value, global.useCorrelation.value, first, out.useCorrelation);
  ReadCorrelationSetting(p.GetIniParamInt(section, std::string("UseOrdersCorrelation"), kMarginInherit), 0,
                         base.useOrdersCorrelation.value, global.useOrdersCorrelation.value, first,
                         out.useOrdersCorrelation);

  auto list = [&](const char* key) {
    return SplitList(p.GetIniParamString(section, std::string(key), TIniParser::EmptyString()));
  };
  out.classesWithIgnoreRstrTransfer = list("ClassesWithIgnoreRstrTransfer");
  out.mainMarginClasses = list("MainMarginClasses");
  out.addLimitKind = list("AddLimitKind");
  out.negDealClasses = list("NegDealClasses");
  out.limitKinds = ToLimitKinds(p.GetIniParamString(section, std::string("LimitKinds"), TIniParser::EmptyString()));
  ParseCodeKeys(section, out);
  ParseInstrumentsWithoutCurrencyRisk(section, out.instrumentsWithoutCurrencyRisk);
}

std::unique_ptr<TClientMarginRestrictions> TCacheOfClientMarginRestrictions::ParseSettingsFromSectionList(
    const TIniParser::TLimitKindMap& sections) const {
  auto object = std::make_unique<TObject>();
  if (sections.empty() || sections.begin()->first != 0) return object;
  const TBody& global = GlobalBody();
  TBody& first = (*object)[0];
  ParseSettingsFromSection(sections.begin()->second->second, global, first, true);
  for (auto it = std::next(sections.begin()); it != sections.end(); ++it) {
    TBody body;
    ParseSettingsFromSection(it->second->second, *object->Body(0), body, false);
    (*object)[it->first] = std::move(body);
  }
  return object;
}

void TCacheOfClientMarginRestrictions::ParseInstrumentsWithoutCurrencyRisk(
    const TIniKeyMap& keys, TMarginCodeMap<std::vector<std::string>>& out) {
  std::string rest;
  for (const auto& [key, value] : keys)
    if (StartsWithUp(StrUpper(key), "INSTRUMENTSWITHOUTCURRENCYRISK_", rest, key)) out[rest] = SplitList(value);
}

// ---- Lookups ----

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::ObjectOf(TParsedMap& parsed,
                                                                      const TIniParser::TClientLimitKindsMap& sections,
                                                                      const std::string& name) const {
  if (!parsed.Contains(name)) return nullptr;
  return parsed.GetOrParse(name, [&](const std::string& n) {
    const auto it = sections.find(n);
    return it == sections.end() ? std::unique_ptr<TObject>() : ParseSettingsFromSectionList(it->second);
  });
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetClientSettings(const std::string& client) const {
  return ObjectOf(m_clients, Parser().GetMarginClientSettings(), client);
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetPrefixClientSettings(const std::string& prefix) const {
  return ObjectOf(m_prefixes, Parser().GetMarginPrefixClientSettings(), prefix);
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetTemplateSettings(const std::string& templ) const {
  return ObjectOf(m_templates, Parser().GetMarginTemplateSettings(), templ);
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetClientGlobalOrPrefixSettings(
    const std::string& name) const {
  if (name.empty()) return nullptr;
  if (IsSameSettingsName(name, kGeneralName)) return m_general.get();
  if (name.back() == '*') return GetPrefixClientSettings(name.substr(0, name.size() - 1));
  return GetClientSettings(name);
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetPrefixClientSettingsByClientCode(
    const std::string& client) const {
  if (m_prefixNames.empty() || client.empty() || client == DLConst::EMPTY_CLIENT_INI_CODE) return nullptr;
  for (std::size_t length = client.size(); length >= 1; --length) {
    const std::string prefix = client.substr(0, length);
    if (m_prefixNames.count(prefix) != 0) return GetPrefixClientSettings(prefix);
  }
  return nullptr;
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetTemplateSettingsByClientCode(
    const std::string& client) const {
  const auto& byClient = Parser().GetMarginTemplateWithClientCodeSettings();
  const auto it = byClient.find(client);
  return it == byClient.end() ? nullptr : GetTemplateSettings(it->second->first);
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetTemplateWithLeverageSettings(
    std::int32_t scaledLeverage) const {
  const auto it = m_templatesByLeverage.find(scaledLeverage);
  return it == m_templatesByLeverage.end() ? nullptr : GetTemplateSettings(it->second);
}

void TCacheOfClientMarginRestrictions::AddTemplate(const std::string& templ) { m_templates.Register(templ); }

int TCacheOfClientMarginRestrictions::RemoveParsedTemplateSettings(const std::string& templ) {
  return m_templates.RemoveParsedTemplateSettings(templ);
}

// ---- Resolution ----

AIniSettingCacheMaster<TClientMarginRestrictions>::TParseResult TCacheOfClientMarginRestrictions::ObjectOfSection(
    const std::string& section, ESettingsSource source) const {
  const TIniParser::TSectionClass c = TIniParser::ClassifySection(section);
  TObject* object = nullptr;
  if (c.group == TIniParser::SectMarginTemplate)
    object = GetTemplateSettings(c.templ);
  else if (c.group == TIniParser::SectMarginClient && c.clientKind == 0)
    object = m_general.get();
  else if (c.group == TIniParser::SectMarginClient && c.clientKind == 1)
    object = GetPrefixClientSettings(c.client);
  else if (c.group == TIniParser::SectMarginClient)
    object = GetClientSettings(c.client);
  // A section that yields no settings counts as none.
  if (object == nullptr || object->Body(0) == nullptr) return {nullptr, SourceGlobal};
  return {object, source};
}

AIniSettingCacheMaster<TClientMarginRestrictions>::TParseResult
TCacheOfClientMarginRestrictions::ParseSettingsForClient(const TIniCacheItemID& id) const {
  const std::string& client = id.ClientCode();
  if (client.empty() || client == DLConst::EMPTY_CLIENT_INI_CODE) return {GlobalSettings(), SourceGlobal};
  const TResolvedSection resolved = m_logic.ResolveMarginSection(client, id.LeverageInt());
  if (resolved.source == SourceGlobal || resolved.section->empty()) return {nullptr, SourceGlobal};
  return ObjectOfSection(*resolved.section, resolved.source);
}

TClientMarginRestrictions* TCacheOfClientMarginRestrictions::GetIniSetting(TIniCacheItemID& id) const {
  id.PrepareEmptyClient();
  return AIniSettingCacheMaster<TClientMarginRestrictions>::GetIniSetting(id);
}

// ---- Walks ----

void TCacheOfClientMarginRestrictions::IterateClientMarginRestrictionsCaches(
    const std::function<void(TObject&)>& f) const {
  if (m_general) f(*m_general);
  if (GlobalSettings() != nullptr) f(*GlobalSettings());
  m_clients.ForEach(f);
  m_prefixes.ForEach(f);
  m_templates.ForEach(f);
  for (const auto& [leverage, templ] : m_templatesByLeverage)
    if (TObject* object = m_templates.Find(templ)) f(*object);
}

void TCacheOfClientMarginRestrictions::ResetValidStatusOfSecurityParamsCache() {
  auto reset = [](TObject& object) {
    if (TBody* body = object.Body(0)) body->securityParamsValid = false;
  };
  for (const auto& [key, object] : ItemTable())
    if (object != nullptr) reset(*object);
  IterateClientMarginRestrictionsCaches(reset);
}

void TCacheOfClientMarginRestrictions::ClearMainMarginInClassIDsCache() {
  auto clear = [](TObject& object) {
    if (TBody* body = object.Body(0)) {
      body->mainMarginClassIDs.clear();
      body->mainMarginClassIDsCount = 0;
    }
  };
  for (const auto& [key, object] : ItemTable())
    if (object != nullptr) clear(*object);
  IterateClientMarginRestrictionsCaches(clear);
}

}  // namespace DL
