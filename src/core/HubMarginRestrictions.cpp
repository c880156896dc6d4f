// Client margin restrictions of the hub: the cache of step 11 of the load,
// the rendering of the margin settings it holds, and steps 13 to 16 of the
// save.
#include <string>
#include <type_traits>
#include <vector>

#include "cache/TCacheOfClientMarginRestrictions.h"
#include "base/TextHelpers.h"
#include "core/TStorageHub.h"
#include "base/Numbers.h"

namespace DL {

namespace {

void AppendLine(std::string& out, const std::string& name, const std::string& value) {
  out += name;
  out += '=';
  out += value;
  out += '\n';
}

// A three-way setting is written as its section wrote it; a setting that
// inherits (the key missing, or -2) is not written.
void AppendMarginSetting(std::string& out, const std::string& name, const TMarginSetting<int>& s) {
  if (s.read != kMarginInherit) AppendLine(out, name, std::to_string(s.read));
}
void AppendMarginSetting(std::string& out, const std::string& name, const TMarginSetting<bool>& s) {
  if (s.read != kMarginInherit) AppendLine(out, name, std::to_string(s.read));
}
void AppendMarginSetting(std::string& out, const std::string& name, const TMarginSetting<double>& s) {
  if (!MIsEqual(s.read, static_cast<double>(kMarginInherit))) AppendLine(out, name, DoubleToString(s.read));
}

template <class V>
std::string ValueText(const V& value) {
  if constexpr (std::is_floating_point_v<V>)
    return DoubleToString(value);
  else
    return std::to_string(value);
}

// Each entry of a code map as prefix + code + suffix = value.
template <class V>
void AppendCodeMap(std::string& out, const TMarginCodeMap<V>& map, const std::string& prefix,
                   const std::string& suffix) {
  for (const auto& [code, value] : map) AppendLine(out, prefix + code + suffix, ValueText(value));
}
void AppendCodeMap(std::string& out, const TMarginCodeMap<std::string>& map, const std::string& prefix,
                   const std::string& suffix) {
  for (const auto& [code, value] : map) AppendLine(out, prefix + code + suffix, value);
}

std::string JoinList(const std::vector<std::string>& items) {
  std::string out;
  for (const std::string& item : items) {
    if (!out.empty()) out += ',';
    out += item;
  }
  return out;
}

// The object a rendering function writes from: the parsed object of the
// section, or the cache's global object.
const TClientMarginRestrictions* MarginObjectOf(const TCacheOfClientMarginRestrictions* cache,
                                                const TSettingToStrSource& src) {
  if (src.marginRestrictions != nullptr) return src.marginRestrictions;
  return cache != nullptr ? cache->GetGlobalSettings() : nullptr;
}

const TClientMarginRestrictionsBody* MarginBodyOf(const TCacheOfClientMarginRestrictions* cache,
                                                  const TSettingToStrSource& src) {
  const TClientMarginRestrictions* object = MarginObjectOf(cache, src);
  if (object == nullptr) return nullptr;
  return object->Body(src.marginRestrictions != nullptr ? static_cast<std::uint64_t>(src.limitKind) : 0);
}

// A global section of code -> limit kind written whole from the global
// object; nothing when the map is empty.
void AppendGlobalCodeMapSection(std::string& out, const std::string& section,
                                const TMarginCodeMap<std::int64_t>& map) {
  std::string lines;
  AppendCodeMap(lines, map, std::string(), std::string());
  if (lines.empty()) return;
  out += '[';
  out += section;
  out += "]\n";
  out += lines;
}

}  // namespace

void TStorageHub::TClientMarginRestrictionsCacheDeleter::operator()(TCacheOfClientMarginRestrictions* cache) const {
  delete cache;
}

// Step 11.
void TStorageHub::BuildClientMarginRestrictionsCache() {
  m_clientMarginRestrictions.reset(new TCacheOfClientMarginRestrictions(*m_parser, m_universalParser.get(), *this));
}

// ---- Rendering of the margin template settings ----

#define ZDL_MARGIN_RENDER_THREE_WAY(function, field, param)                                     \
  void TStorageHub::function(std::string& out, const TSettingToStrSource& src) const {         \
    if (const TClientMarginRestrictionsBody* body = MarginBodyOf(m_clientMarginRestrictions.get(), src)) \
      AppendMarginSetting(out, TIniParser::GetIniParamCode(TIniParser::ipc##param), body->field);         \
  }
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrUseCHSecurityDiscountsToMarginTemplate, useCHSecurityDiscounts,
                            UseCHSecurityDiscounts)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrUseDiscountsTypeToMarginTemplate, useDiscountsType, UseDiscountsType)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrUseSecurityDiscountsToMarginTemplate, useSecurityDiscounts,
                            UseSecurityDiscounts)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrMDPlusDefaultNettingTypeToMarginTemplate, mdPlusDefaultNettingType,
                            MDPlusDefaultNettingType)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrCalcNegDealToMarginTemplate, calcNegDeal, CalcNegDeal)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrInformClientsAboutShortPosToMarginTemplate, informClientsAboutShortPos,
                            InformClientsAboutShortPos)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrRstrCashDebtForComplexReportToMarginTemplate, rstrCashDebtForComplexReport,
                            RstrCashDebtForComplexReport)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrUseDiscCoeffForCHRatesToMarginTemplate, useDiscCoeffForCHRates,
                            UseDiscCoeffForCHRates)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrDoNotUseGlobalDiscountsToMarginTemplate, doNotUseGlobalDiscounts,
                            DoNotUseGlobalDiscounts)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrBaseDiscCoeffToMarginTemplate, baseDiscCoeff, BaseDiscCoeff)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrRstrDerivativesToMarginTemplate, rstrDerivatives, RstrDerivatives)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrUseCorrelationToMarginTemplate, useCorrelation, UseCorrelation)
ZDL_MARGIN_RENDER_THREE_WAY(SettingToStrRstrTransferToMarginTemplate, rstrTransfer, RstrTransfer)
#undef ZDL_MARGIN_RENDER_THREE_WAY

void TStorageHub::SettingToStrNegDealClassesToMarginTemplate(std::string& out, const TSettingToStrSource& src) const {
  const TClientMarginRestrictionsBody* body = MarginBodyOf(m_clientMarginRestrictions.get(), src);
  if (body != nullptr && !body->negDealClasses.empty())
    AppendLine(out, TIniParser::GetIniParamCode(TIniParser::ipcNegDealClasses), JoinList(body->negDealClasses));
}

void TStorageHub::SettingToStrSecurityToLimitKindToMarginTemplate(std::string& out,
                                                                  const TSettingToStrSource& src) const {
  if (const TClientMarginRestrictionsBody* body = MarginBodyOf(m_clientMarginRestrictions.get(), src))
    AppendCodeMap(out, body->securityToLimitKind, TIniParser::GetIniParamCode(TIniParser::ipcSecurityToLimitKind_),
                  std::string());
}

void TStorageHub::SettingToStrSettleCodeToLimitKindToMarginTemplate(std::string& out,
                                                                    const TSettingToStrSource& src) const {
  if (const TClientMarginRestrictionsBody* body = MarginBodyOf(m_clientMarginRestrictions.get(), src))
    AppendCodeMap(out, body->settleCodeToLimitKind,
                  TIniParser::GetIniParamCode(TIniParser::ipcSettleCodeToLimitKind_), std::string());
}

void TStorageHub::SettingToStrClassToLimitKindToMarginTemplate(std::string& out,
                                                               const TSettingToStrSource& src) const {
  if (const TClientMarginRestrictionsBody* body = MarginBodyOf(m_clientMarginRestrictions.get(), src))
    AppendCodeMap(out, body->classToLimitKind, TIniParser::GetIniParamCode(TIniParser::ipcClassToLimitKind_),
                  std::string());
}

// The board tags of the section: board + "_TAG" = tag.
void TStorageHub::SettingToStrBoardTagToMarginTemplate(std::string& out, const TSettingToStrSource& src) const {
  if (const TClientMarginRestrictionsBody* body = MarginBodyOf(m_clientMarginRestrictions.get(), src))
    AppendCodeMap(out, body->boardTags, std::string(), TIniParser::GetIniParamCode(TIniParser::ipc_TAG));
}

// ---- The global sections held by the cache's global object ----

void TStorageHub::SettingToStrSecurityToLimitKindGlob(std::string& out, const TSettingToStrSource& src) const {
  const TClientMarginRestrictions* object = MarginObjectOf(m_clientMarginRestrictions.get(), src);
  const TClientMarginRestrictionsBody* body = object != nullptr ? object->Body(0) : nullptr;
  if (body != nullptr) AppendGlobalCodeMapSection(out, src.section, body->securityToLimitKind);
}

void TStorageHub::SettingToStrClassToLimitKindGlob(std::string& out, const TSettingToStrSource& src) const {
  const TClientMarginRestrictions* object = MarginObjectOf(m_clientMarginRestrictions.get(), src);
  const TClientMarginRestrictionsBody* body = object != nullptr ? object->Body(0) : nullptr;
  if (body != nullptr) AppendGlobalCodeMapSection(out, src.section, body->classToLimitKind);
}

void TStorageHub::SettingToStrSettleCodeToLimitKindGlob(std::string& out, const TSettingToStrSource& src) const {
  const TClientMarginRestrictions* object = MarginObjectOf(m_clientMarginRestrictions.get(), src);
  const TClientMarginRestrictionsBody* body = object != nullptr ? object->Body(0) : nullptr;
  if (body != nullptr) AppendGlobalCodeMapSection(out, src.section, body->settleCodeToLimitKind);
}

// ---- Save, steps 13 to 16 ----

std::string TStorageHub::GetRowFromAllLkSettings(const TIniParser::TLimitKindMap& sections,
                                                 const TClientMarginRestrictions* parsed, bool isTemplate,
                                                 TWrittenSections& written) const {
  std::string text;
  for (const auto& [limitKind, it] : sections) {
    if (!written.insert(&it->first).second) continue;
    TSettingToStrSource src;
    src.kind = TIniParser::SectMarginTemplate;
    src.limitKind = static_cast<int>(limitKind);
    src.marginRestrictions = parsed != nullptr && parsed->Body(limitKind) != nullptr ? parsed : nullptr;
    text += GetRowFromSettings(it, isTemplate && limitKind == 0, src);
  }
  return text;
}

void TStorageHub::AppendMarginSettingsRows(std::string& text, TWrittenSections& written) const {
  const TCacheOfClientMarginRestrictions* cache = m_clientMarginRestrictions.get();
  if (cache == nullptr) return;
  // 13. The general margin settings, every limit kind.
  if (!m_parser->GetMarginGlobalSettings().empty())
    text += GetRowFromAllLkSettings(m_parser->GetMarginGlobalSettings(), cache->GetGlobal_General_Settings(), false,
                                    written);
  // 14. Each parsed client; 15. each parsed prefix (its sections are named
  // with the prefix and "*"); 16. each parsed margin template. The others
  // are copied raw at the end of the save.
  for (const auto& [client, sections] : m_parser->GetMarginClientSettings())
    if (const TClientMarginRestrictions* parsed = cache->GetParsedClientSettings().Find(client))
      text += GetRowFromAllLkSettings(sections, parsed, false, written);
  for (const auto& [prefix, sections] : m_parser->GetMarginPrefixClientSettings())
    if (const TClientMarginRestrictions* parsed = cache->GetParsedPrefixSettings().Find(prefix))
      text += GetRowFromAllLkSettings(sections, parsed, false, written);
  for (const auto& [templ, sections] : m_parser->GetMarginTemplateSettings())
    if (const TClientMarginRestrictions* parsed = cache->GetParsedTemplateSettings().Find(templ))
      text += GetRowFromAllLkSettings(sections, parsed, true, written);
}

}  // namespace DL
