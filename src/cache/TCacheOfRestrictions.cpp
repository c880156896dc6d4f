#include "cache/TCacheOfRestrictions.h"

#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/KeyParsers.h"
#include "base/ResultCodes.h"
#include "ini/IniSectCodes.h"

namespace DL {

const std::string TCacheOfRestrictions::kSectBeginning = "cl";
const std::string TCacheOfRestrictions::kSectEnding = "_Restriction_Template";

namespace {

constexpr const char* kBasePeriodUp = "BASEPERIOD";
constexpr const char* kReferencePriceUp = "REFERENCEPRICE_";
constexpr const char* kSoftUp = "SOFT_";

bool BeginsWithUp(const std::string& textUp, const std::string& prefixUp) {
  return textUp.size() >= prefixUp.size() && textUp.compare(0, prefixUp.size(), prefixUp) == 0;
}

// A list value: "<ALL>" anywhere sets the flag and keeps no list; codes
// longer than 12 bytes are skipped.
TCodeListWithAll ParseCodeListWithAll(const std::string& value, bool upper = false) {
  TCodeListWithAll out;
  for (std::string& code : BoardListToVector(value, ',')) {
    if (code == AllMark) {
      out.all = true;
      continue;
    }
    if (code.size() > MaxSecCodeLength) continue;
    if (upper) RealStrToUpper(code);
    out.codes.insert(std::move(code));
  }
  if (out.all) out.codes.clear();
  return out;
}

// "class" or "class,side": false for an empty or too long class, or a side
// that is not one of the side texts.
bool ParseClassAndSide(const std::string& rest, const std::string (&sides)[3], std::string& cls, ESide& side) {
  const std::vector<std::string> items = BoardListToVector(rest, ',', true);
  if (items.empty() || items.size() > 2) return false;
  cls = items[0];
  if (cls.empty() || cls.size() > MaxClassCodeLength) return false;
  side = sdBoth;
  if (items.size() == 2) {
    side = sdUndefined;
    for (int i = 0; i < 3; ++i)
      if (items[1] == sides[i]) side = static_cast<ESide>(i);
    if (side == sdUndefined) return false;
  }
  return true;
}

void ParseRestOrdVolume(TRestOrdVolumeByAvgTurnover& target, const std::string& rest, const std::string& value) {
  if (rest.empty() || TrimStr(value).empty()) return;
  TRestOrdVolumeItem item;
  if (!Utils::GetClassListAndSecListFromString(StrUpper(rest), item.classes, item.securities)) return;
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.size() > 3) return;
  if (!items.empty() && !items[0].empty()) item.limit = std::strtod(items[0].c_str(), nullptr);
  if (items.size() > 1 && !items[1].empty()) item.second = std::strtod(items[1].c_str(), nullptr);
  if (items.size() > 2) item.text = StrUpper(items[2]);
  target.items.push_back(std::move(item));
}

void ParseRepoTermProhibition(TProhibitREPOByFirstPartSideAndTerm& target, const std::string (&sides)[3],
                              const std::string& rest, const std::string& value) {
  const std::vector<std::string> items = BoardListToVector(rest, ',', true);
  if (items.size() != 1 && items.size() != 3) return;
  const std::string& cls = items[0];
  if (cls.empty() || cls.size() > MaxClassCodeLength) return;
  ESide side = sdBoth;
  long term = 0;
  if (items.size() == 3) {
    side = sdUndefined;
    for (int i = 0; i < 3; ++i)
      if (items[1] == sides[i]) side = static_cast<ESide>(i);
    if (side == sdUndefined) return;
    const char* text = items[2].c_str();
    char* end = nullptr;
    term = std::strtol(text, &end, 10);
    if (end == text || term < 0) return;
  }
  TCodeListWithAll list = ParseCodeListWithAll(value);
  if (list.Empty()) return;
  target.emplace(TRepoTermKey{cls, side, term}, std::move(list));
}

void ParseClassSideList(TClassToSideToSecList& target, const std::string (&sides)[3], const std::string& rest,
                        const std::string& value) {
  std::string cls;
  ESide side = sdBoth;
  if (!ParseClassAndSide(rest, sides, cls, side)) return;
  TCodeListWithAll list = ParseCodeListWithAll(value);
  if (list.Empty()) return;
  TCodeListWithAll& slot = target[cls][side];
  if (slot.Empty()) slot = std::move(list);  // the first line for a class and side stands
}

void ParseClassList(TClassToSecList& target, const std::string& rest, const std::string& value) {
  const std::string cls = TrimStr(rest);
  if (cls.empty() || cls.size() > MaxClassCodeLength) return;
  TCodeListWithAll list = ParseCodeListWithAll(value);
  if (list.Empty()) return;
  TCodeListWithAll& slot = target[cls];
  if (slot.Empty()) slot = std::move(list);
}

}  // namespace

// ---- Tables ----

TCacheOfRestrictions::TGlobalParseTable TCacheOfRestrictions::BuildGlobalParseTable() {
  TIniParser::FillCodeTables();
  TGlobalParseTable t;
  auto add = [&t](EIniSectCodeNum code, TGlobalParseFunc f) { t.emplace(TIniParser::GetIniSectCodeUp(code), f); };
  using C = TCacheOfRestrictions;
  add(iscMaxOrderQuantity, &C::ParseSectionLines<&C::ParseMaxOrderQuantity>);
  add(iscMinOrderQuantity, &C::ParseSectionLines<&C::ParseMinOrderQuantity>);
  add(iscMaxPositionLimit, &C::ParseSectionLines<&C::ParseMaxPositionLimit>);
  add(iscPriceLimitByTime, &C::ParseSectionLines<&C::ParsePriceLimitByTime>);
  add(iscRestOrdVolumeByAvgTurnover, &C::ParseSectionRestOrdVolumeByAvgTurnover);
  add(iscSoft_RestOrdVolumeByAvgTurnover, &C::ParseSectionRestOrdVolumeByAvgTurnover);
  add(iscProhibitREPOByFirstPartSideAndTerm, &C::ParseSectionLines<&C::ParseProhibitREPOByFirstPartSideAndTerm>);
  add(iscSoft_ProhibitREPOByFirstPartSideAndTerm,
      &C::ParseSectionLines<&C::ParseSoftProhibitREPOByFirstPartSideAndTerm>);
  add(iscRestrictREPOByFirstPartSide, &C::ParseSectionNothing);
  add(iscSecurityAllowed, &C::ParseSectionLines<&C::ParseSecurityAllowed>);
  add(iscSoft_SecurityAllowed, &C::ParseSectionLines<&C::ParseSoftSecurityAllowed>);
  add(iscSecurityRestricted, &C::ParseSectionLines<&C::ParseSecurityRestricted>);
  add(iscSoft_SecurityRestricted, &C::ParseSectionLines<&C::ParseSoftSecurityRestricted>);
  add(iscProhibitedCPAndSettlementCurrency, &C::ParseSectionLines<&C::ParseProhibitedCP>);
  add(iscSoft_ProhibitedCPAndSettlementCurrency, &C::ParseSectionLines<&C::ParseSoftProhibitedCP>);
  add(iscRestrictREPOWithCPBasedOnTerm, &C::ParseSectionLines<&C::ParseRepoTerm>);
  add(iscSoft_RestrictREPOWithCPBasedOnTerm, &C::ParseSectionLines<&C::ParseSoftRepoTerm>);
  add(iscRestrictMaxValueForSettlementCurrency, &C::ParseSectionLines<&C::ParseMaxValue>);
  add(iscSoft_RestrictMaxValueForSettlementCurrency, &C::ParseSectionLines<&C::ParseSoftMaxValue>);
  add(iscMaxSettleDateByAssetType, &C::ParseSectionLines<&C::ParseMaxSettleDate>);
  add(iscAccessToComplexInstruments, &C::ParseSectionLines<&C::ParseAccessToComplexInstruments>);
  add(iscAllowedISINPrefix, &C::ParseSectionLines<&C::ParseAllowedISINPrefix>);
  add(iscThresMarginCoeff, &C::ParseSectionNothing);
  return t;
}

TCacheOfRestrictions::TTemplateParseTable TCacheOfRestrictions::BuildTemplateParseTable() {
  TIniParser::FillCodeTables();
  TTemplateParseTable t;
  auto add = [&t](TIniParser::EIniParamCodeNum code, TTemplateParseFunc f) {
    t.emplace(TIniParser::GetIniParamCodeUp(code), f);
  };
  using C = TCacheOfRestrictions;
  using P = TIniParser;
  add(P::ipcMaxOrderQuantity_, &C::ParseMaxOrderQuantity);
  add(P::ipcMinOrderQuantity_, &C::ParseMinOrderQuantity);
  add(P::ipcMaxPositionLimit_, &C::ParseMaxPositionLimit);
  add(P::ipcPriceLimitByTime_, &C::ParsePriceLimitByTime);
  add(P::ipcRestOrdVolumeByAvgTurnover_, &C::ParseRestOrdVolumeByAvgTurnover);
  add(P::ipcSoft_RestOrdVolumeByAvgTurnover_, &C::ParseSoftRestOrdVolumeByAvgTurnover);
  add(P::ipcProhibitREPOByFirstPartSideAndTerm_, &C::ParseProhibitREPOByFirstPartSideAndTerm);
  add(P::ipcSoft_ProhibitREPOByFirstPartSideAndTerm_, &C::ParseSoftProhibitREPOByFirstPartSideAndTerm);
  add(P::ipcRestrictREPOByFirstPartSide_, &C::ParseRestrictREPOByFirstPartSide);
  add(P::ipcSecurityAllowed_, &C::ParseSecurityAllowed);
  add(P::ipcSoft_SecurityAllowed_, &C::ParseSoftSecurityAllowed);
  add(P::ipcSecurityRestricted_, &C::ParseSecurityRestricted);
  add(P::ipcSoft_SecurityRestricted_, &C::ParseSoftSecurityRestricted);
  add(P::ipcProhibitedCPAndSettlementCurrency_, &C::ParseProhibitedCP);
  add(P::ipcSoft_ProhibitedCPAndSettlementCurrency_, &C::ParseSoftProhibitedCP);
  add(P::ipcRestrictREPOWithCPBasedOnTerm_, &C::ParseRepoTerm);
  add(P::ipcSoft_RestrictREPOWithCPBasedOnTerm_, &C::ParseSoftRepoTerm);
  add(P::ipcRestrictMaxValueForSettlementCurrency_, &C::ParseMaxValue);
  add(P::ipcSoft_RestrictMaxValueForSettlementCurrency_, &C::ParseSoftMaxValue);
  add(P::ipcMaxSettleDateByAssetType_, &C::ParseMaxSettleDate);
  add(P::ipcQualifiedInvestors, &C::ParseQualifiedInvestors);
  add(P::ipcAccessToComplexInstruments, &C::ParseAccessToComplexInstruments);
  add(P::ipcAllowedISINPrefix, &C::ParseAllowedISINPrefix);
  add(P::ipcThresMarginCoeff, &C::ParseThresMarginCoeff);
  return t;
}

void TCacheOfRestrictions::CheckParseTables(const TGlobalParseTable& global, const TTemplateParseTable& templ,
                                            CErrors& errors) {
  TIniParser::FillCodeTables();
  const auto& groups = TIniParser::supParamAndSectCodes_;
  if (static_cast<std::size_t>(TIniParser::SectRestrictionTemplate) >= groups.size()) return;
  for (const TIniParser::TSupParamAndSectCodes& row : groups[TIniParser::SectRestrictionTemplate]) {
    if (row.sectCode != iscNone) {
      const auto code = static_cast<EIniSectCodeNum>(row.sectCode);
      if (global.count(TIniParser::GetIniSectCodeUp(code)) == 0)
        errors.AddError("Not mapped CacheOfRestrictions global parsing function for section \"" +
                        TIniParser::GetIniSectCode(code) + "\".\n");
    }
    if (row.paramCode != TIniParser::ipcNone) {
      const auto code = static_cast<TIniParser::EIniParamCodeNum>(row.paramCode);
      if (templ.count(TIniParser::GetIniParamCodeUp(code)) == 0)
        errors.AddError("Not mapped CacheOfRestrictions template parsing function for param \"" +
                        TIniParser::GetIniParamCode(code) + "\".\n");
    }
  }
}

// ---- Construction ----

TCacheOfRestrictions::TCacheOfRestrictions(TIniParser* parser)
    : m_parser(parser),
      m_logic(std::make_unique<TIniLogicParser>(*parser)),
      m_globalParse(BuildGlobalParseTable()),
      m_templateParse(BuildTemplateParseTable()) {
  CErrors errors;
  CheckParseTables(m_globalParse, m_templateParse, errors);
  ThrowExceptionIfErrorsOccurred(errors);
  ParseGlobalSettings();
  for (const auto& [name, section] : m_parser->GetRestrictionTemplateSettings())
    m_templates.emplace(name, std::make_pair(section, std::unique_ptr<TRestrictions>()));
}

void TCacheOfRestrictions::ParseGlobalSettings() {
  m_global = TRestrictions();
  // The table is ordered by upper-case name as the section map is ordered
  // ignoring case, so looking each name up visits the sections in map order
  // without walking every section of the firm.
  TIniSectionsMap& sections = m_parser->GetSections();
  for (const auto& [nameUp, parse] : m_globalParse) {
    const auto it = sections.find(nameUp);
    if (it != sections.end()) (this->*parse)(&m_global, it);
  }
  m_global.RebuildIndexes();
}

// ---- Lookups ----

const TRestrictions* TCacheOfRestrictions::GetParsedTemplateSettings(const std::string& name) const {
  auto it = m_templates.find(name);
  return it == m_templates.end() ? nullptr : it->second.second.get();
}

TRestrictions* TCacheOfRestrictions::GetTemplateSettings(const std::string& name) {
  auto it = m_templates.find(name);
  if (it == m_templates.end())
    it = m_templates.emplace(name, std::make_pair(m_parser->GetSections().end(), std::make_unique<TRestrictions>()))
             .first;
  return GetTemplateSettings(it);
}

TRestrictions* TCacheOfRestrictions::GetTemplateSettings(TTemplateMap::iterator it) {
  if (it == m_templates.end()) return nullptr;
  auto& [section, object] = it->second;
  if (!object) {
    object = std::make_unique<TRestrictions>();
    if (section != m_parser->GetSections().end()) ParseSettings(object.get(), section->second);
  }
  return object.get();
}

TRestrictions* TCacheOfRestrictions::GetTemplateSettingsByLeverage(std::int32_t scaledLeverage) {
  const std::string& section = m_logic->TemplateRestrictionSectionByLeverage(scaledLeverage, kSectBeginning, kSectEnding);
  if (section.size() <= kSectBeginning.size() + kSectEnding.size()) return nullptr;
  return GetTemplateSettings(
      section.substr(kSectBeginning.size(), section.size() - kSectBeginning.size() - kSectEnding.size()));
}

TRestrictions* TCacheOfRestrictions::GetSettings(const TIniCacheItemID& id) {
  const std::int32_t leverage = id.LeverageInt();
  if (leverage >= 0) {
    auto it = m_byLeverage.find(leverage);
    if (it == m_byLeverage.end()) it = m_byLeverage.emplace(leverage, GetTemplateSettingsByLeverage(leverage)).first;
    if (it->second != nullptr) return it->second;
  }
  const std::string client = id.ClientCode().empty() ? std::string(DLConst::EMPTY_CLIENT_INI_CODE) : id.ClientCode();
  auto known = m_byClient.find(client);
  if (known != m_byClient.end()) return known->second;
  const std::string section = m_logic->TemplateClientSection(client, kSectBeginning, kSectEnding);
  const std::string sectionUp = StrUpper(section);
  if (sectionUp.size() <= kSectBeginning.size() + kSectEnding.size() || m_parser->FindIniSectionRef(section) == nullptr)
    return nullptr;
  TRestrictions* r = GetTemplateSettings(
      section.substr(kSectBeginning.size(), section.size() - kSectBeginning.size() - kSectEnding.size()));
  m_byClient.emplace(client, r);
  return r;
}

int TCacheOfRestrictions::AddTemplate(const std::string& name) {
  if (IsTemplateExist(name)) return ZDL_ALREADY_EXISTS;
  auto section = m_parser->FindOrCreateIniSection(kSectBeginning + name + kSectEnding);
  m_templates.emplace(name, std::make_pair(section, std::make_unique<TRestrictions>()));
  return ZDL_OK;
}

int TCacheOfRestrictions::RemoveTemplate(const std::string& name) {
  auto it = m_templates.find(name);
  if (it == m_templates.end()) return ZDL_NOT_FOUND;
  auto& [section, object] = it->second;
  const TRestrictions* gone = object.get();
  std::erase_if(m_byClient, [gone](const auto& entry) { return entry.second == gone; });
  std::erase_if(m_byLeverage, [gone](const auto& entry) { return entry.second == gone; });
  object.reset();
  if (section != m_parser->GetSections().end()) {
    section->second.erase(TIniParser::GetIniParamCode(TIniParser::ipcClients));
    m_parser->RemoveIniSection(section);
  }
  m_templates.erase(it);
  return ZDL_OK;
}

// ---- Parsing ----

bool TCacheOfRestrictions::ReadsGlobalLine(const std::string& section, const std::string& key,
                                           const std::string& value) {
  const std::string sectionUp = StrUpper(section);
  if (m_globalParse.count(sectionUp) == 0) return false;
  if (StrUpper(key) == kBasePeriodUp &&
      (sectionUp == TIniParser::GetIniSectCodeUp(iscRestOrdVolumeByAvgTurnover) ||
       sectionUp == TIniParser::GetIniSectCodeUp(iscSoft_RestOrdVolumeByAvgTurnover)))
    return true;
  auto f = m_templateParse.find(sectionUp + "_");
  if (f == m_templateParse.end()) f = m_templateParse.find(sectionUp);
  if (f == m_templateParse.end()) return false;
  TRestrictions scratch;
  (this->*(f->second))(&scratch, key, value);
  return !(scratch == TRestrictions());
}

void TCacheOfRestrictions::ParseSettings(TRestrictions* r, const TIniKeyMap& keys) {
  *r = TRestrictions();
  for (const auto& [key, value] : keys) {
    const std::string keyUp = StrUpper(key);
    for (const auto& [paramUp, f] : m_templateParse)
      if (BeginsWithUp(keyUp, paramUp)) {
        (this->*f)(r, key.substr(paramUp.size()), value);
        break;
      }
  }
  r->RebuildIndexes();
}

template <TCacheOfRestrictions::TTemplateParseFunc F>
void TCacheOfRestrictions::ParseSectionLines(TRestrictions* r, TSectionIt section) {
  for (const auto& [key, value] : section->second) (this->*F)(r, key, value);
}

void TCacheOfRestrictions::ParseSectionRestOrdVolumeByAvgTurnover(TRestrictions* r, TSectionIt section) {
  const bool soft = BeginsWithUp(StrUpper(section->first), kSoftUp);
  for (const auto& [key, value] : section->second) {
    if (StrUpper(key) == kBasePeriodUp) {
      (soft ? r->softBasePeriod : r->basePeriod) = static_cast<int>(std::strtol(value.c_str(), nullptr, 10));
      continue;
    }
    ParseRestOrdVolume(soft ? r->softRestOrdVolumeByAvgTurnover : r->restOrdVolumeByAvgTurnover, key, value);
  }
}

void TCacheOfRestrictions::ParseSectionNothing(TRestrictions* /*r*/, TSectionIt /*section*/) {}

void TCacheOfRestrictions::ParseMaxOrderQuantity(TRestrictions* r, const std::string& rest, const std::string& value) {
  TQtyToClassListAndSecList q;
  if (Utils::ParseQtyToClassListAndSecList(rest, value, q)) r->maxOrderQuantity.push_back(std::move(q));
}

void TCacheOfRestrictions::ParseMinOrderQuantity(TRestrictions* r, const std::string& rest, const std::string& value) {
  TQtyToClassListAndSecList q;
  if (Utils::ParseQtyToClassListAndSecList(rest, value, q)) r->minOrderQuantity.push_back(std::move(q));
}

void TCacheOfRestrictions::ParseMaxPositionLimit(TRestrictions* r, const std::string& rest, const std::string& value) {
  TMaxPositionLimit limit;
  size_t pos = 0;
  // The "_" of the security marker may be the parameter's own last byte.
  if (!Utils::GetSecListFromString(rest, limit.securities, pos) &&
      !Utils::GetSecListFromString("_" + rest, limit.securities, pos))
    return;
  const std::string v = TrimStr(value);
  if (!v.empty()) {
    const std::vector<std::string_view> items = GetAllSubStringsView(v, ',');
    if (items.size() > 2) return;
    auto read = [](std::string_view item, std::int64_t& out) {
      const std::string text = TrimStr(item);
      if (!text.empty()) out = std::strtoll(text.c_str(), nullptr, 10);
    };
    read(items[0], limit.longLimit);
    if (items.size() == 2)
      read(items[1], limit.shortLimit);
    else
      limit.shortLimit = limit.longLimit;
  }
  r->maxPositionLimit.push_back(std::move(limit));
}

void TCacheOfRestrictions::ParsePriceLimitByTime(TRestrictions* r, const std::string& rest, const std::string& value) {
  if (BeginsWithUp(StrUpper(rest), kReferencePriceUp)) {
    ParseReferencePrice(r, rest.substr(std::string_view(kReferencePriceUp).size()), value);
    return;
  }
  TPriceLimitByTime limit;
  size_t timePos = 0;
  if (!Utils::GetTimeFromString(rest, limit.time, timePos)) return;
  if (!Utils::GetClassListAndSecListFromString(rest.substr(0, timePos), limit.classes, limit.securities)) return;
  std::string middle;
  if (!Utils::GetDeviationMiddleReject(value, limit.deviation, middle, limit.reject)) return;
  limit.priceType = middle.empty() ? 0 : TIniParser::GetPriceType(middle);
  if (limit.priceType == 0) limit.priceType = TIniParser::GetPriceType("LAST");
  r->priceLimitByTime.limits.push_back(std::move(limit));
}

void TCacheOfRestrictions::ParseReferencePrice(TRestrictions* r, const std::string& rest, const std::string& value) {
  if (rest.empty()) return;
  r->priceLimitByTime.referencePrices.emplace(rest, value);
}

void TCacheOfRestrictions::ParseRestOrdVolumeByAvgTurnover(TRestrictions* r, const std::string& rest,
                                                           const std::string& value) {
  ParseRestOrdVolume(r->restOrdVolumeByAvgTurnover, rest, value);
}

void TCacheOfRestrictions::ParseSoftRestOrdVolumeByAvgTurnover(TRestrictions* r, const std::string& rest,
                                                               const std::string& value) {
  ParseRestOrdVolume(r->softRestOrdVolumeByAvgTurnover, rest, value);
}

void TCacheOfRestrictions::ParseProhibitREPOByFirstPartSideAndTerm(TRestrictions* r, const std::string& rest,
                                                                   const std::string& value) {
  ParseRepoTermProhibition(r->prohibitRepoByFirstPartSideAndTerm, m_sides, rest, value);
}

void TCacheOfRestrictions::ParseSoftProhibitREPOByFirstPartSideAndTerm(TRestrictions* r, const std::string& rest,
                                                                       const std::string& value) {
  ParseRepoTermProhibition(r->softProhibitRepoByFirstPartSideAndTerm, m_sides, rest, value);
}

void TCacheOfRestrictions::ParseRestrictREPOByFirstPartSide(TRestrictions* r, const std::string& rest,
                                                            const std::string& value) {
  ParseClassSideList(r->restrictRepoByFirstPartSide, m_sides, rest, value);
}

void TCacheOfRestrictions::ParseSecurityAllowed(TRestrictions* r, const std::string& rest, const std::string& value) {
  ParseClassList(r->securityAllowed, rest, value);
}

void TCacheOfRestrictions::ParseSoftSecurityAllowed(TRestrictions* r, const std::string& rest,
                                                    const std::string& value) {
  ParseClassList(r->softSecurityAllowed, rest, value);
}

void TCacheOfRestrictions::ParseSecurityRestricted(TRestrictions* r, const std::string& rest,
                                                   const std::string& value) {
  ParseClassSideList(r->securityRestricted, m_sides, rest, value);
}

void TCacheOfRestrictions::ParseSoftSecurityRestricted(TRestrictions* r, const std::string& rest,
                                                       const std::string& value) {
  ParseClassSideList(r->softSecurityRestricted, m_sides, rest, value);
}

void TCacheOfRestrictions::ParseProhibitedCP(TRestrictions* r, const std::string& rest, const std::string& value) {
  r->prohibitedCP.ParseSettingString(rest, value);
}

void TCacheOfRestrictions::ParseSoftProhibitedCP(TRestrictions* r, const std::string& rest, const std::string& value) {
  r->softProhibitedCP.ParseSettingString(rest, value);
}

void TCacheOfRestrictions::ParseRepoTerm(TRestrictions* r, const std::string& rest, const std::string& value) {
  r->repoTerm.ParseSettingString(rest, value);
}

void TCacheOfRestrictions::ParseSoftRepoTerm(TRestrictions* r, const std::string& rest, const std::string& value) {
  r->softRepoTerm.ParseSettingString(rest, value);
}

void TCacheOfRestrictions::ParseMaxValue(TRestrictions* r, const std::string& rest, const std::string& value) {
  r->maxValue.ParseSettingString(rest, value);
}

void TCacheOfRestrictions::ParseSoftMaxValue(TRestrictions* r, const std::string& rest, const std::string& value) {
  r->softMaxValue.ParseSettingString(rest, value);
}

void TCacheOfRestrictions::ParseMaxSettleDate(TRestrictions* r, const std::string& rest, const std::string& value) {
  r->maxSettleDate.ParseSettingString(rest, value);
}

void TCacheOfRestrictions::ParseQualifiedInvestors(TRestrictions* r, const std::string& /*rest*/,
                                                   const std::string& value) {
  r->qualifiedInvestors = TrimStr(value) == "1";
}

void TCacheOfRestrictions::ParseAccessToComplexInstruments(TRestrictions* r, const std::string& /*rest*/,
                                                           const std::string& value) {
  for (std::string& item : BoardListToVector(StrUpper(value), ',')) r->accessToComplexInstruments.insert(std::move(item));
}

void TCacheOfRestrictions::ParseAllowedISINPrefix(TRestrictions* r, const std::string& /*rest*/,
                                                  const std::string& value) {
  for (std::string& item : BoardListToVector(value, ',')) r->allowedISINPrefix.insert(std::move(item));
}

void TCacheOfRestrictions::ParseThresMarginCoeff(TRestrictions* /*r*/, const std::string& /*rest*/,
                                                 const std::string& /*value*/) {}

}  // namespace DL
