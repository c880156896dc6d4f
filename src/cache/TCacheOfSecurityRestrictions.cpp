#include "cache/TCacheOfSecurityRestrictions.h"

#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/KeyParsers.h"
#include "base/ResultCodes.h"
#include "base/Numbers.h"

namespace DL {

namespace {

using P = TIniParser;

constexpr const char* kIgnoreCheckLimits = "IGNORECHECKLIMITS";
constexpr const char* kMiddleKeyUp = "MIDDLE";
constexpr int kLastPriceType = 2;         // "LAST"
constexpr int kTheoreticalPriceType = 6;  // "THEORPRICE"

const std::string& ParamUp(P::EIniParamCodeNum code) { return P::GetIniParamCodeUp(code); }


// What a key of a client or template section fills.
enum class EKeyKind {
  OrderMaxValue,
  AllowedPartners,
  ProhibitedPartners,
  UserTemplate,
  AllowedPartnersAndSettleCodes,
  ProhibitedPartnersAndSettleCodes,
  SoftProhibitedPartnersAndSettleCodes,
  PriceLimit,
  SecPriceLimit,
  SoftPriceLimit,
  SoftSecPriceLimit,
  RestrictOpen,
  RestSecurity,
  Security,
  TrdAcc,
  CommissionWriteOffCurrency,
  ClassesWithoutTSCommission,
  LinkedUserTemplate,
  BrokerQuoteBoard,
  TransferBoard,
  AddMultiCurrency,
  Currency,
  Currency2,
};

struct TKeyRule {
  P::EIniParamCodeNum name;
  P::EParamMatchKind match;  // Whole, Prefix (the handler gets the rest), Suffix (the rest stands before it)
  EKeyKind kind;
};

// In the order the keys are tested: a key takes the first rule it matches.
constexpr TKeyRule kKeyRules[] = {
    {P::ipcOrderMaxValue, P::ParamMatchWhole, EKeyKind::OrderMaxValue},
    {P::ipcAllowedPartners, P::ParamMatchWhole, EKeyKind::AllowedPartners},
    {P::ipcProhibitedPartners, P::ParamMatchWhole, EKeyKind::ProhibitedPartners},
    {P::ipcUserTemplate, P::ParamMatchWhole, EKeyKind::UserTemplate},
    {P::ipcAllowedPartnersAndSettleCodes_, P::ParamMatchPrefix, EKeyKind::AllowedPartnersAndSettleCodes},
    {P::ipcProhibitedPartnersAndSettleCodes_, P::ParamMatchPrefix, EKeyKind::ProhibitedPartnersAndSettleCodes},
    {P::ipcSoft_ProhibitedPartnersAndSettleCodes_, P::ParamMatchPrefix, EKeyKind::SoftProhibitedPartnersAndSettleCodes},
    {P::ipcPriceLimit_, P::ParamMatchPrefix, EKeyKind::PriceLimit},
    {P::ipcSecPriceLimit_, P::ParamMatchPrefix, EKeyKind::SecPriceLimit},
    {P::ipcSoft_PriceLimit_, P::ParamMatchPrefix, EKeyKind::SoftPriceLimit},
    {P::ipcSoft_SecPriceLimit_, P::ParamMatchPrefix, EKeyKind::SoftSecPriceLimit},
    {P::ipc_RESTRICTOPEN, P::ParamMatchSuffix, EKeyKind::RestrictOpen},
    {P::ipc_RESTSECURITY, P::ParamMatchSuffix, EKeyKind::RestSecurity},
    {P::ipc_SECURITY, P::ParamMatchSuffix, EKeyKind::Security},
    {P::ipc_TRDACC, P::ParamMatchSuffix, EKeyKind::TrdAcc},
    {P::ipcCommissionWriteOffCurrency_, P::ParamMatchPrefix, EKeyKind::CommissionWriteOffCurrency},
    {P::ipcTSCommission_, P::ParamMatchPrefix, EKeyKind::CommissionWriteOffCurrency},
    {P::ipcWithinAvailableCurrencyBalance, P::ParamMatchWhole, EKeyKind::CommissionWriteOffCurrency},
    {P::ipcAllowPositionClosing, P::ParamMatchWhole, EKeyKind::CommissionWriteOffCurrency},
    {P::ipcDoNotCheckForDiffSettlCurr, P::ParamMatchWhole, EKeyKind::CommissionWriteOffCurrency},
    {P::ipcClassesWithoutTSCommission, P::ParamMatchWhole, EKeyKind::ClassesWithoutTSCommission},
    {P::ipcLinkedUserTemplate, P::ParamMatchWhole, EKeyKind::LinkedUserTemplate},
    {P::ipcBrokerQuoteBoard, P::ParamMatchWhole, EKeyKind::BrokerQuoteBoard},
    {P::ipcTransferBoard, P::ParamMatchWhole, EKeyKind::TransferBoard},
    {P::ipcAddMultiCurrency, P::ParamMatchPrefix, EKeyKind::AddMultiCurrency},
    {P::ipcCurrency_, P::ParamMatchPrefix, EKeyKind::Currency},
    {P::ipcCurrency2_, P::ParamMatchPrefix, EKeyKind::Currency2},
};

// "AddMultiCurrency" is a prefix that a "_" separates from its code.
std::string_view RestOfPrefix(P::EIniParamCodeNum name, std::string_view key) {
  std::string_view rest = key.substr(P::GetIniParamCode(name).size());
  if (name == P::ipcAddMultiCurrency) {
    if (rest.empty() || rest.front() != '_') return {};
    rest.remove_prefix(1);
  }
  return rest;
}

// A "class + suffix" line into its map: the class must be 1 to 12 bytes.
bool ParseClassToList(TClientSecurityRestrictions::TClassToList& out, std::string_view cls, std::string_view value) {
  if (cls.empty() || IsClassCodeLengthGreaterMaxLength(std::string(cls))) return false;
  out[std::string(cls)].FillFromStr(value);
  return true;
}

void ParseClassToListSection(TClientSecurityRestrictions::TClassToList& out, const TIniKeyMap& keys) {
  for (const auto& [key, value] : keys) ParseClassToList(out, TrimStr(key), value);
}

void DropNegative(TPriceLimit& limit) {
  for (auto it = limit.limits.begin(); it != limit.limits.end();)
    it = MIsLTZero(it->second.deviation) ? limit.limits.erase(it) : std::next(it);
}

}  // namespace

TCacheOfSecurityRestrictions::TCacheOfSecurityRestrictions(TIniParser& parser, const IFirmSettings& firm)
    : AIniSettingCacheMaster(parser, nullptr), m_firm(firm), m_logic(parser) {
  ParseGlobalSettings();
}

// ---- Global settings ----

void TCacheOfSecurityRestrictions::ParseGlobalSettings() {
  auto global = std::make_unique<TClientSecurityRestrictions>();
  TClientSecurityRestrictions& g = *global;
  const std::string general(IniSectName(iscGeneral));
  g.ignoreCheckLimits = Parser().GetIniParamBool(general, std::string(kIgnoreCheckLimits), false);
  // The global sections read here, and what each fills.
  using THandler = void (*)(const TCacheOfSecurityRestrictions&, TClientSecurityRestrictions&, const TIniKeyMap&);
  using C = TCacheOfSecurityRestrictions;
  using O = TClientSecurityRestrictions;
  static const std::pair<EIniSectCodeNum, THandler> kSections[] = {
      {iscAddMultiCurrency, [](const C&, O& o, const TIniKeyMap& k) { ParseGlobalAddMultiCurrency(o, k); }},
      {iscAllowedPartnersAndSettleCodes,
       [](const C&, O& o, const TIniKeyMap& k) {
         ParseSectionPartnersAndSettleCodes(o.allowedPartnersAndSettleCodes, k);
       }},
      {iscAllowedSecurity, [](const C&, O& o, const TIniKeyMap& k) { ParseGlobalAllowedSecurity(o, k); }},
      {iscGeneral, [](const C& c, O& o, const TIniKeyMap& k) { c.ParseGlobalGeneral(o, k); }},
      {iscPriceLimit,
       [](const C&, O& o, const TIniKeyMap& k) {
         ParseGlobalPriceLimit(o.priceLimit, o.priceLimitMiddle, cstClass, k);
       }},
      {iscProhibitedPartnersAndSettleCodes,
       [](const C&, O& o, const TIniKeyMap& k) {
         ParseSectionPartnersAndSettleCodes(o.prohibitedPartnersAndSettleCodes, k);
       }},
      {iscRestrictSecurity, [](const C&, O& o, const TIniKeyMap& k) { ParseGlobalRestrictSecurity(o, k); }},
      {iscRestrictOpenSecurity, [](const C&, O& o, const TIniKeyMap& k) { ParseGlobalRestrictOpenSecurity(o, k); }},
      {iscSecPriceLimit,
       [](const C&, O& o, const TIniKeyMap& k) {
         ParseGlobalPriceLimit(o.secPriceLimit, o.secPriceLimitMiddle, cstSecurity, k);
       }},
      {iscSoft_PriceLimit,
       [](const C&, O& o, const TIniKeyMap& k) {
         ParseGlobalPriceLimit(o.softPriceLimit, o.softPriceLimitMiddle, cstClass, k);
       }},
      {iscSoft_ProhibitedPartnersAndSettleCodes,
       [](const C&, O& o, const TIniKeyMap& k) {
         ParseSectionPartnersAndSettleCodes(o.softProhibitedPartnersAndSettleCodes, k);
       }},
      {iscSoft_SecPriceLimit,
       [](const C&, O& o, const TIniKeyMap& k) {
         ParseGlobalPriceLimit(o.softSecPriceLimit, o.softSecPriceLimitMiddle, cstSecurity, k);
       }},
      {iscCommissionWriteOffCurrency,
       [](const C&, O& o, const TIniKeyMap& k) {
         for (const auto& [key, value] : k) ParseCommissionWriteOfCurrency(o.commissionWriteOffCurrency, key, value);
       }},
  };
  // Each handler fills fields of its own, so the sections are looked up by
  // name rather than found by a walk over every section of the firm.
  const TIniSectionsMap& sections = Parser().GetSections();
  for (const auto& [code, handler] : kSections) {
    const auto section = sections.find(P::GetIniSectCode(code));
    if (section != sections.end()) handler(*this, g, section->second);
  }
  DropNegativeLimits(g);
  SetGlobalSettings(std::move(global));
}

void TCacheOfSecurityRestrictions::ParseGlobalGeneral(TClientSecurityRestrictions& out, const TIniKeyMap& keys) const {
  const std::string& value = Parser().GetIniParamString(keys, P::ipcOrderMaxValue, P::EmptyString());
  if (value.empty()) return;
  TIniLogicParser::ParseOrderMaxValueItem(out.orderMaxValue, value);
  out.orderMaxValueSet = !MIsEqual(out.orderMaxValue.amount, -100.0);
}

void TCacheOfSecurityRestrictions::ParseGlobalAddMultiCurrency(TClientSecurityRestrictions& out,
                                                               const TIniKeyMap& keys) {
  for (const auto& [key, value] : keys) {
    const std::string code = TrimStr(key);
    if (!code.empty()) out.addMultiCurrency[code] = ParseCurrencySet(value);
  }
}

void TCacheOfSecurityRestrictions::ParseGlobalAllowedSecurity(TClientSecurityRestrictions& out,
                                                              const TIniKeyMap& keys) {
  ParseClassToListSection(out.security, keys);
  if (!out.security.empty()) out.noAllowedList = false;
}

void TCacheOfSecurityRestrictions::ParseGlobalRestrictSecurity(TClientSecurityRestrictions& out,
                                                               const TIniKeyMap& keys) {
  ParseClassToListSection(out.restSecurity, keys);
}

void TCacheOfSecurityRestrictions::ParseGlobalRestrictOpenSecurity(TClientSecurityRestrictions& out,
                                                                   const TIniKeyMap& keys) {
  ParseClassToListSection(out.restrictOpen, keys);
}

// ---- Value grammars ----

std::set<std::string> TCacheOfSecurityRestrictions::ParseCurrencySet(std::string_view value) {
  std::set<std::string> out;
  ParseRowWithDelimsToListRows(value, ',', out);
  ReplaceRubRurToSurInSet(out);
  return out;
}

TDeviationPercentMiddle TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle(std::string_view value) {
  TDeviationPercentMiddle out;
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.empty() || items.size() > 2) return out;
  if (items.size() == 1) {
    const int type = P::GetPriceType(StrUpper(items[0]));
    if (type != 0) {
      out.priceType = type;
      return out;
    }
  }
  if (!items[0].empty()) out.deviation = std::strtod(items[0].c_str(), nullptr);
  if (items.size() == 2) out.priceType = P::GetPriceType(StrUpper(items[1]));
  return out;
}

std::string TCacheOfSecurityRestrictions::DeviationPercentMiddleToStr(const TDeviationPercentMiddle& middle) {
  std::string out;
  const bool hasDeviation = !MIsLTZero(middle.deviation);
  if (hasDeviation) out = DoubleToString(middle.deviation);
  if (middle.priceType != 0) {
    if (hasDeviation) out += ',';
    out += P::GetPriceTypeString(middle.priceType);
  }
  return out;
}

std::string TCacheOfSecurityRestrictions::PriceLimitItemToStr(const TPriceLimitItem& item) {
  std::string out = DoubleToString(item.deviation);
  out += ',';
  out += P::GetPriceTypeString(item.priceType);
  if (item.reject) out += ",1";
  return out;
}

void TCacheOfSecurityRestrictions::ParsePriceLimit(TPriceLimit& limit, const TDeviationPercentMiddle& def,
                                                   EClassSettingType type, std::string_view key,
                                                   std::string_view value) {
  if (value.empty()) return;
  const std::string keyUp = StrUpper(TrimStr(key));
  if (keyUp == kMiddleKeyUp) return;  // the family's default, read before
  const std::string& middleUp = P::GetPartIniParamCodeUp(P::ppc_MIDDLE);
  if (StringFinishesCaseSens(keyUp, middleUp)) {
    const std::string item = keyUp.substr(0, keyUp.size() - middleUp.size());
    if (item.empty() || IsRowLengthGreaterMaxLength(item, type)) return;
    const int priceType = P::GetPriceType(StrUpper(TrimStr(value)));
    if (priceType == 0) return;
    if (type == cstSecurity && priceType == kTheoreticalPriceType) return;
    limit.middles[item] = priceType;
    return;
  }
  if (keyUp.empty() || IsRowLengthGreaterMaxLength(keyUp, type)) return;
  TPriceLimitItem item;
  std::string middle;
  if (!Utils::GetDeviationMiddleReject(value, item.deviation, middle, item.reject)) return;
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.empty() || items[0].empty()) item.deviation = def.deviation;
  item.priceType = middle.empty() ? def.priceType : P::GetPriceType(middle);
  if (item.priceType == 0) item.priceType = kLastPriceType;
  limit.limits[keyUp] = item;
}

void TCacheOfSecurityRestrictions::ParsePriceLimit(TClientSecurityRestrictions& out, std::string_view key,
                                                   std::string_view value) {
  ParsePriceLimit(out.priceLimit, out.priceLimitMiddle, cstClass, key, value);
}
void TCacheOfSecurityRestrictions::ParseSecPriceLimit(TClientSecurityRestrictions& out, std::string_view key,
                                                      std::string_view value) {
  ParsePriceLimit(out.secPriceLimit, out.secPriceLimitMiddle, cstSecurity, key, value);
}
void TCacheOfSecurityRestrictions::ParseSoftPriceLimit(TClientSecurityRestrictions& out, std::string_view key,
                                                       std::string_view value) {
  ParsePriceLimit(out.softPriceLimit, out.softPriceLimitMiddle, cstClass, key, value);
}
void TCacheOfSecurityRestrictions::ParseSoftSecPriceLimit(TClientSecurityRestrictions& out, std::string_view key,
                                                          std::string_view value) {
  ParsePriceLimit(out.softSecPriceLimit, out.softSecPriceLimitMiddle, cstSecurity, key, value);
}

void TCacheOfSecurityRestrictions::ParseGlobalPriceLimit(TPriceLimit& limit, TDeviationPercentMiddle& def,
                                                         EClassSettingType type, const TIniKeyMap& keys) {
  const auto middle = keys.find(P::GetIniParamCode(P::ipcMIDDLE));
  if (middle != keys.end()) def = ParseDeviationPercentMiddle(middle->second);
  for (const auto& [key, value] : keys) ParsePriceLimit(limit, def, type, key, value);
}

void TCacheOfSecurityRestrictions::ParsePartnersAndSettleCodes(TPartnersAndSettleCodes& out, std::string_view key,
                                                               std::string_view value) {
  (void)out.AddLine(key, value);  // a malformed line is skipped
}

void TCacheOfSecurityRestrictions::ParseSectionPartnersAndSettleCodes(TPartnersAndSettleCodes& out,
                                                                      const TIniKeyMap& keys) {
  for (const auto& [key, value] : keys) ParsePartnersAndSettleCodes(out, key, value);
}

void TCacheOfSecurityRestrictions::ParseCommissionWriteOfCurrency(TCommissionWriteOffCurrency& out,
                                                                  std::string_view key, std::string_view value) {
  const std::string keyUp = StrUpper(key);
  const bool on = value == "1";
  if (keyUp == ParamUp(P::ipcWithinAvailableCurrencyBalance)) {
    out.withinAvailableCurrencyBalance = on;
  } else if (keyUp == ParamUp(P::ipcAllowPositionClosing)) {
    out.allowPositionClosing = on;
  } else if (keyUp == ParamUp(P::ipcDoNotCheckForDiffSettlCurr)) {
    out.doNotCheckForDiffSettlCurr = on;
  } else {
    TCommissionWriteOffCurrency::TByCurrency* target = nullptr;
    std::size_t prefix = 0;
    if (StringStartsCaseSens(keyUp, ParamUp(P::ipcCommissionWriteOffCurrency_))) {
      target = &out.broker;
      prefix = ParamUp(P::ipcCommissionWriteOffCurrency_).size();
    } else if (StringStartsCaseSens(keyUp, ParamUp(P::ipcTSCommission_))) {
      target = &out.tradeSystem;
      prefix = ParamUp(P::ipcTSCommission_).size();
    }
    const std::string currency(key.substr(prefix));
    if (target == nullptr || currency.empty() || IsCurrCodeLengthGreaterMaxLength(currency)) return;
    (*target)[currency] = BoardListToVectorWithoutDuplicates(value, ',');
  }
}

void TCacheOfSecurityRestrictions::ParseOrderMaxValue(TClientSecurityRestrictions& out,
                                                      const std::string& value) const {
  TIniLogicParser::ParseOrderMaxValueItem(out.orderMaxValue, value);
  if (MIsEqual(out.orderMaxValue.amount, -100.0)) {
    // Without an amount of its own the client keeps the firm's.
    out.orderMaxValue.amount = GlobalSettings() != nullptr ? GlobalSettings()->orderMaxValue.amount : -100.0;
    out.orderMaxValueSet = false;
  } else {
    out.orderMaxValueSet = true;
  }
}

// ---- Sections ----

void TCacheOfSecurityRestrictions::ParseSectionKey(TClientSecurityRestrictions& out, const std::string& key,
                                                   const std::string& value) const {
  const std::string keyUp = StrUpper(key);
  for (const TKeyRule& rule : kKeyRules) {
    const std::string& nameUp = ParamUp(rule.name);
    std::string_view rest;
    switch (rule.match) {
      case P::ParamMatchWhole:
        if (keyUp != nameUp) continue;
        break;
      case P::ParamMatchPrefix:
        if (!StringStartsCaseSens(keyUp, nameUp)) continue;
        rest = RestOfPrefix(rule.name, key);
        break;
      default:
        if (!StringFinishesCaseSens(keyUp, nameUp)) continue;
        rest = std::string_view(key).substr(0, key.size() - nameUp.size());
        break;
    }
    switch (rule.kind) {
      case EKeyKind::OrderMaxValue:
        ParseOrderMaxValue(out, value);
        break;
      case EKeyKind::AllowedPartners:
        out.allowedPartners.FillFromStr(value);
        break;
      case EKeyKind::ProhibitedPartners:
        out.prohibitedPartners.FillFromStr(value);
        break;
      case EKeyKind::UserTemplate:
        out.userTemplate.FillFromStr(value);
        break;
      case EKeyKind::AllowedPartnersAndSettleCodes:
        ParsePartnersAndSettleCodes(out.allowedPartnersAndSettleCodes, rest, value);
        break;
      case EKeyKind::ProhibitedPartnersAndSettleCodes:
        ParsePartnersAndSettleCodes(out.prohibitedPartnersAndSettleCodes, rest, value);
        break;
      case EKeyKind::SoftProhibitedPartnersAndSettleCodes:
        ParsePartnersAndSettleCodes(out.softProhibitedPartnersAndSettleCodes, rest, value);
        break;
      case EKeyKind::PriceLimit:
        ParsePriceLimit(out, rest, value);
        break;
      case EKeyKind::SecPriceLimit:
        ParseSecPriceLimit(out, rest, value);
        break;
      case EKeyKind::SoftPriceLimit:
        ParseSoftPriceLimit(out, rest, value);
        break;
      case EKeyKind::SoftSecPriceLimit:
        ParseSoftSecPriceLimit(out, rest, value);
        break;
      case EKeyKind::RestrictOpen:
        ParseClassToList(out.restrictOpen, rest, value);
        break;
      case EKeyKind::RestSecurity:
        ParseClassToList(out.restSecurity, rest, value);
        break;
      case EKeyKind::Security:
        out.noAllowedList = false;
        ParseClassToList(out.security, rest, value);
        break;
      case EKeyKind::TrdAcc:
        ParseClassToList(out.trdAcc, rest, value);
        break;
      case EKeyKind::CommissionWriteOffCurrency:
        ParseCommissionWriteOfCurrency(out.commissionWriteOffCurrency, key, value);
        break;
      case EKeyKind::ClassesWithoutTSCommission:
        out.classesWithoutTSCommission.Assign(value, TClassList::NoRepeats);
        break;
      case EKeyKind::LinkedUserTemplate:
        out.linkedUserTemplate.Assign(value, TClassList::NoRepeats);
        break;
      case EKeyKind::BrokerQuoteBoard:
        out.brokerQuoteBoard.Assign(value, TClassList::NoRepeats);
        break;
      case EKeyKind::TransferBoard:
        out.transferBoard.Assign(value, TClassList::NoRepeats);
        break;
      case EKeyKind::AddMultiCurrency:
        if (!rest.empty()) out.addMultiCurrency[std::string(rest)] = ParseCurrencySet(value);
        break;
      case EKeyKind::Currency:
        if (!rest.empty()) out.currency[std::string(rest)] = ParseCurrencySet(value);
        break;
      case EKeyKind::Currency2:
        if (!rest.empty()) out.currency2[std::string(rest)] = ParseCurrencySet(value);
        break;
    }
    return;
  }
}

void TCacheOfSecurityRestrictions::DropNegativeLimits(TClientSecurityRestrictions& out) {
  DropNegative(out.priceLimit);
  DropNegative(out.secPriceLimit);
  DropNegative(out.softPriceLimit);
  DropNegative(out.softSecPriceLimit);
}

TCacheOfSecurityRestrictions::TSharedSettings TCacheOfSecurityRestrictions::ParseSettingsFromSection(
    const std::string& section) const {
  const auto parsed = m_sections.find(section);
  if (parsed != m_sections.end()) return parsed->second;
  const TIniKeyMap* keys = Parser().FindIniSectionRef(section);
  if (keys == nullptr) return nullptr;
  auto object = std::make_shared<TClientSecurityRestrictions>();
  TClientSecurityRestrictions& o = *object;
  // The defaults of the four limit families come first, for every limit
  // line of the section uses them.
  const std::pair<P::EIniParamCodeNum, TDeviationPercentMiddle*> middles[] = {
      {P::ipcPriceLimit_MIDDLE, &o.priceLimitMiddle},
      {P::ipcSecPriceLimit_MIDDLE, &o.secPriceLimitMiddle},
      {P::ipcSoft_PriceLimit_MIDDLE, &o.softPriceLimitMiddle},
      {P::ipcSoft_SecPriceLimit_MIDDLE, &o.softSecPriceLimitMiddle}};
  for (const auto& [code, middle] : middles) {
    const std::string& value = Parser().GetIniParamString(*keys, code, P::EmptyString());
    if (!value.empty()) *middle = ParseDeviationPercentMiddle(value);
  }
  for (const auto& [key, value] : *keys) ParseSectionKey(o, key, value);
  DropNegativeLimits(o);
  for (const auto& [cls, list] : o.trdAcc)
    if (list.IsAll()) o.noAllowedList = false;
  if (MIsEqual(o.orderMaxValue.amount, -100.0) && !o.orderMaxValueSet && GlobalSettings() != nullptr)
    o.orderMaxValue.amount = GlobalSettings()->orderMaxValue.amount;
  m_sections.emplace(section, object);
  return object;
}

const TClientSecurityRestrictions* TCacheOfSecurityRestrictions::FindParsedSection(const std::string& section) const {
  const auto it = m_sections.find(section);
  return it == m_sections.end() ? nullptr : it->second.get();
}

std::string TCacheOfSecurityRestrictions::TemplateOfSection(const std::string& section) {
  const std::string& beginning = P::GetPartIniSectCode(P::pscCl);
  const std::string& ending = P::GetPartIniSectCode(P::psc_Client_Template);
  if (section.size() < beginning.size() + ending.size()) return std::string();
  return section.substr(beginning.size(), section.size() - beginning.size() - ending.size());
}

TCacheOfSecurityRestrictions::TParseResult TCacheOfSecurityRestrictions::ParseSettingsForClient(
    const TIniCacheItemID& id) const {
  const TResolvedSection r = m_logic.ResolveClientSection(id.ClientCode(), id.LeverageInt());
  if (r.source == SourceGlobal || r.section == nullptr || r.section->empty()) return {nullptr, SourceGlobal};
  const std::string section = StrUpper(*r.section);
  TSharedSettings object = ParseSettingsFromSection(section);
  if (!object) return {nullptr, SourceGlobal};
  if (r.source == SourceTemplate)
    m_templates[TemplateOfSection(section)] = object;
  else
    m_clients[section] = object;
  return {object.get(), r.source};
}

const TClientSecurityRestrictions* TCacheOfSecurityRestrictions::GetClientSettings(const std::string& client) const {
  std::string section;
  Parser().GetClientSettingsSectionCode(section, client);
  TSharedSettings object = ParseSettingsFromSection(section);
  if (object) m_clients[section] = object;
  return object.get();
}

const TClientSecurityRestrictions* TCacheOfSecurityRestrictions::GetTemplateSettings(const std::string& templ) const {
  const auto parsed = m_templates.find(templ);
  if (parsed != m_templates.end()) return parsed->second.get();
  std::string section;
  Parser().GetClientTemplateSectionCode(section, templ);
  TSharedSettings object = ParseSettingsFromSection(section);
  if (object) m_templates[templ] = object;
  return object.get();
}

void TCacheOfSecurityRestrictions::ForgetParsedSection(const std::string& section) {
  Items().clear();
  m_sections.erase(section);
  m_clients.erase(section);
  const std::string endingUp = P::GetPartIniSectCodeUp(P::psc_Client_Template);
  const std::string up = StrUpper(section);
  if (up.size() > endingUp.size() && up.compare(up.size() - endingUp.size(), endingUp.size(), endingUp) == 0)
    m_templates.erase(TemplateOfSection(section));
}

void TCacheOfSecurityRestrictions::ReparseGlobalSettings() {
  Items().clear();
  ParseGlobalSettings();
}

int TCacheOfSecurityRestrictions::RemoveParsedTemplateSettings(const std::string& templ) {
  const bool known = Parser().GetClientTemplateSettings().count(templ) != 0 || m_templates.count(templ) != 0;
  if (!known) return ZDL_TEMPLATE_NOT_EXIST;
  m_templates.erase(templ);
  std::string section;
  Parser().GetClientTemplateSectionCode(section, templ);
  m_sections.erase(section);
  return ZDL_OK;
}

}  // namespace DL
