// The order restrictions component: the lines of each restriction setting
// from its parsed object, in the template form and in the global form.
#include "core/TRestrictionSettings.h"

#include <set>

#include "base/Dates.h"
#include "base/TextHelpers.h"
#include "core/HubSectionHelpers.h"

namespace DL {

namespace {

using ERestrictionSetting = TRestrictionSettings::ESetting;
using enum TRestrictionSettings::ESetting;

// The template parameter of each setting, in the order of the enum.
const char* const kParams[] = {"MaxOrderQuantity_",
                               "MinOrderQuantity_",
                               "MaxPositionLimit_",
                               "PriceLimitByTime_",
                               "RestOrdVolumeByAvgTurnover_",
                               "Soft_RestOrdVolumeByAvgTurnover_",
                               "ProhibitREPOByFirstPartSideAndTerm_",
                               "Soft_ProhibitREPOByFirstPartSideAndTerm_",
                               "RestrictREPOByFirstPartSide_",
                               "SecurityAllowed_",
                               "Soft_SecurityAllowed_",
                               "SecurityRestricted_",
                               "Soft_SecurityRestricted_",
                               "ProhibitedCPAndSettlementCurrency_",
                               "Soft_ProhibitedCPAndSettlementCurrency_",
                               "RestrictMaxValueForSettlementCurrency_",
                               "Soft_RestrictMaxValueForSettlementCurrency_",
                               "RestrictREPOWithCPBasedOnTerm_",
                               "Soft_RestrictREPOWithCPBasedOnTerm_",
                               "MaxSettleDateByAssetType_",
                               "AccessToComplexInstruments",
                               "AllowedISINPrefix"};

void Line(std::string& out, const std::string& prefix, const std::string& key, const std::string& value) {
  out += prefix;
  out += key;
  out += '=';
  out += value;
  out += '\n';
}

std::string Join(const std::set<std::string>& items) { return GetRowWithDelimsFromListRows(items); }

std::string ClassesAndSecurities(const std::set<std::string>& classes, const std::set<std::string>& securities) {
  return Join(classes) + "_INSTR_" + Join(securities);
}

std::string ListOrAll(const TCodeListWithAll& list) { return list.all ? std::string(AllMark) : Join(list.codes); }

void QuantityLines(std::string& out, const std::string& prefix, const TQtyToClassListAndSecListVector& items) {
  for (const TQtyToClassListAndSecList& q : items)
    Line(out, prefix, ClassesAndSecurities(q.Classes, q.Securities), IntToString(q.Qty));
}

void RestOrdVolumeLines(std::string& out, const std::string& prefix, const TRestOrdVolumeByAvgTurnover& v) {
  for (const TRestOrdVolumeItem& item : v.items) {
    std::string value = DoubleToString(item.limit) + "," + DoubleToString(item.second);
    if (!item.text.empty()) value += "," + item.text;
    Line(out, prefix, ClassesAndSecurities(item.classes, item.securities), value);
  }
}

void ProhibitRepoLines(std::string& out, const std::string& prefix, const TProhibitREPOByFirstPartSideAndTerm& m) {
  for (const auto& [key, list] : m) {
    const auto& [cls, side, term] = key;
    const std::string k =
        side == sdBoth && term == 0 ? cls : cls + "," + EnumSideToStr(side) + "," + IntToString(term);
    Line(out, prefix, k, ListOrAll(list));
  }
}

void ClassSideLines(std::string& out, const std::string& prefix, const TClassToSideToSecList& m) {
  for (const auto& [cls, bySide] : m)
    for (const auto& [side, list] : bySide)
      if (!list.Empty()) Line(out, prefix, side == sdBoth ? cls : cls + "," + EnumSideToStr(side), ListOrAll(list));
}

void ClassLines(std::string& out, const std::string& prefix, const TClassToSecList& m) {
  for (const auto& [cls, list] : m)
    if (!list.Empty()) Line(out, prefix, cls, ListOrAll(list));
}

// The lines of one setting. In the template form each key opens with the
// parameter; in the global form the key is what follows it (the lone
// parameter of a list setting keeps its name as the key).
void RestrictionLines(std::string& out, const TRestrictions& r, ERestrictionSetting s, bool templateForm) {
  const std::string prefix = templateForm ? kParams[s] : "";
  switch (s) {
    case rsMaxOrderQuantity:
      QuantityLines(out, prefix, r.maxOrderQuantity);
      break;
    case rsMinOrderQuantity:
      QuantityLines(out, prefix, r.minOrderQuantity);
      break;
    case rsMaxPositionLimit:
      for (const TMaxPositionLimit& l : r.maxPositionLimit) {
        std::string value;
        if (l.longLimit == l.shortLimit) {
          if (l.longLimit != -1) value = IntToString(l.longLimit);
        } else {
          value = IntToString(l.longLimit) + "," + IntToString(l.shortLimit);
        }
        Line(out, prefix, "INSTR_" + Join(l.securities), value);
      }
      break;
    case rsPriceLimitByTime:
      for (const TPriceLimitByTime& l : r.priceLimitByTime.limits)
        Line(out, prefix, ClassesAndSecurities(l.classes, l.securities) + "_TIME_" + TimeIntervalToStr(l.time),
             DoubleToString(l.deviation) + "," + TIniParser::GetPriceTypeString(l.priceType) + "," +
                 (l.reject ? "1" : "0"));
      for (const auto& [key, value] : r.priceLimitByTime.referencePrices)
        Line(out, prefix, "ReferencePrice_" + key, value);
      break;
    case rsRestOrdVolume:
      if (!templateForm && r.basePeriod != 2) Line(out, prefix, "BasePeriod", IntToString(r.basePeriod));
      RestOrdVolumeLines(out, prefix, r.restOrdVolumeByAvgTurnover);
      break;
    case rsSoftRestOrdVolume:
      if (!templateForm && r.softBasePeriod != 2) Line(out, prefix, "BasePeriod", IntToString(r.softBasePeriod));
      RestOrdVolumeLines(out, prefix, r.softRestOrdVolumeByAvgTurnover);
      break;
    case rsProhibitRepo:
      ProhibitRepoLines(out, prefix, r.prohibitRepoByFirstPartSideAndTerm);
      break;
    case rsSoftProhibitRepo:
      ProhibitRepoLines(out, prefix, r.softProhibitRepoByFirstPartSideAndTerm);
      break;
    case rsRestrictRepoByFirstPartSide:
      ClassSideLines(out, prefix, r.restrictRepoByFirstPartSide);
      break;
    case rsSecurityAllowed:
      ClassLines(out, prefix, r.securityAllowed);
      break;
    case rsSoftSecurityAllowed:
      ClassLines(out, prefix, r.softSecurityAllowed);
      break;
    case rsSecurityRestricted:
      ClassSideLines(out, prefix, r.securityRestricted);
      break;
    case rsSoftSecurityRestricted:
      ClassSideLines(out, prefix, r.softSecurityRestricted);
      break;
    case rsProhibitedCP:
    case rsSoftProhibitedCP: {
      const auto& storage = s == rsProhibitedCP ? r.prohibitedCP : r.softProhibitedCP;
      if (templateForm)
        storage.MakeSettingsString(out, s == rsSoftProhibitedCP);
      else
        storage.MakeSectionString(out);
      break;
    }
    case rsMaxValue:
    case rsSoftMaxValue: {
      const auto& storage = s == rsMaxValue ? r.maxValue : r.softMaxValue;
      if (templateForm)
        storage.MakeSettingsString(out, s == rsSoftMaxValue);
      else
        storage.MakeSectionString(out);
      break;
    }
    case rsRepoTerm:
    case rsSoftRepoTerm: {
      const auto& storage = s == rsRepoTerm ? r.repoTerm : r.softRepoTerm;
      if (templateForm)
        storage.MakeSettingsString(out, s == rsSoftRepoTerm);
      else
        storage.MakeSectionString(out);
      break;
    }
    case rsMaxSettleDate:
      if (templateForm)
        r.maxSettleDate.MakeSettingsString(out);
      else
        r.maxSettleDate.MakeSectionString(out);
      break;
    case rsAccessToComplexInstruments:
      if (!r.accessToComplexInstruments.empty())
        Line(out, std::string(), kParams[s], Join(r.accessToComplexInstruments));
      break;
    case rsAllowedISINPrefix:
      if (!r.allowedISINPrefix.empty()) Line(out, std::string(), kParams[s], Join(r.allowedISINPrefix));
      break;
  }
}

}  // namespace

// ---- Rendering ----

void TRestrictionSettings::Render(std::string& out, const TSettingToStrSource& src, ESetting setting,
                                  bool globalFromObject) const {
  if (src.kind == TIniParser::SectRestrictionTemplate) {
    if (src.restrictions != nullptr) RestrictionLines(out, *src.restrictions, setting, true);
    return;
  }
  const TRestrictions* r = src.restrictions;
  if (r == nullptr && m_cache) r = &m_cache->GetGlobalSettings();
  if (r == nullptr || !globalFromObject) {
    // The raw section as it stands.
    std::string body;
    if (src.keys != nullptr)
      for (const auto& [key, value] : *src.keys) HubText::AppendLine(body, key, value);
    HubText::WriteSection(out, src.section, body);
    return;
  }
  std::string lines;
  RestrictionLines(lines, *r, setting, false);
  // The lines the object does not read stay as they stand.
  if (src.keys != nullptr && m_cache)
    for (const auto& [key, value] : *src.keys)
      if (!m_cache->ReadsGlobalLine(src.section, key, value)) lines += key + "=" + value + "\n";
  HubText::WriteSection(out, src.section, lines);
}

namespace {
bool IsSoftSection(const std::string& name) { return StrUpper(name).rfind("SOFT_", 0) == 0; }
}  // namespace

void TRestrictionSettings::SettingToStrSectionProhibitedCPandSettlementCurrency(
    std::string& out, const TSettingToStrSource& src) const {
  Render(out, src, IsSoftSection(src.section) ? rsSoftProhibitedCP : rsProhibitedCP, true);
}
void TRestrictionSettings::SettingToStrSectionRestrictMaxValueForSettlementCurrency(
    std::string& out, const TSettingToStrSource& src) const {
  Render(out, src, IsSoftSection(src.section) ? rsSoftMaxValue : rsMaxValue, true);
}
void TRestrictionSettings::SettingToStrSectionRestrictREPOWithCPBasedOnTerm(std::string& out,
                                                                            const TSettingToStrSource& src) const {
  Render(out, src, IsSoftSection(src.section) ? rsSoftRepoTerm : rsRepoTerm, true);
}

// The restriction template settings. The global section of
// "RestrictREPOByFirstPartSide" is not read into the global object, so it is
// copied as it stands.
#define ZDL_RESTRICTION_RENDER(function, setting, globalFromObject)                                \
  void TRestrictionSettings::function(std::string& out, const TSettingToStrSource& src) const { \
    Render(out, src, setting, globalFromObject);                                                   \
  }
ZDL_RESTRICTION_RENDER(SettingToStrProhibitedCPAndSettlementCurrencyToRestrictionTemplate, rsProhibitedCP, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_ProhibitedCPAndSettlementCurrencyToRestrictionTemplate, rsSoftProhibitedCP,
                       true)
ZDL_RESTRICTION_RENDER(SettingToStrRestrictMaxValueForSettlementCurrencyToRestrictionTemplate, rsMaxValue, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_RestrictMaxValueForSettlementCurrencyToRestrictionTemplate, rsSoftMaxValue,
                       true)
ZDL_RESTRICTION_RENDER(SettingToStrRestrictREPOWithCPBasedOnTermToRestrictionTemplate, rsRepoTerm, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_RestrictREPOWithCPBasedOnTermToRestrictionTemplate, rsSoftRepoTerm, true)
ZDL_RESTRICTION_RENDER(SettingToStrMaxSettleDateByAssetTypeToRestrictionTemplate, rsMaxSettleDate, true)
ZDL_RESTRICTION_RENDER(SettingToStrProhibitREPOByFirstPartSideAndTermToRestrictionTemplate, rsProhibitRepo, true)
ZDL_RESTRICTION_RENDER(SettingToStrRestrictREPOByFirstPartSideToRestrictionTemplate, rsRestrictRepoByFirstPartSide, false)
ZDL_RESTRICTION_RENDER(SettingToStrSecurityAllowedToRestrictionTemplate, rsSecurityAllowed, true)
ZDL_RESTRICTION_RENDER(SettingToStrSecurityRestrictedToRestrictionTemplate, rsSecurityRestricted, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_ProhibitREPOByFirstPartSideAndTermToRestrictionTemplate, rsSoftProhibitRepo, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_SecurityAllowedToRestrictionTemplate, rsSoftSecurityAllowed, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_SecurityRestrictedToRestrictionTemplate, rsSoftSecurityRestricted, true)
ZDL_RESTRICTION_RENDER(SettingToStrAllowedISINPrefixToRestrictionTemplate, rsAllowedISINPrefix, true)
ZDL_RESTRICTION_RENDER(SettingToStrMaxOrderQuantityToRestrictionTemplate, rsMaxOrderQuantity, true)
ZDL_RESTRICTION_RENDER(SettingToStrMaxPositionLimitToRestrictionTemplate, rsMaxPositionLimit, true)
ZDL_RESTRICTION_RENDER(SettingToStrMinOrderQuantityToRestrictionTemplate, rsMinOrderQuantity, true)
ZDL_RESTRICTION_RENDER(SettingToStrRestOrdVolumeByAvgTurnoverToRestrictionTemplate, rsRestOrdVolume, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_RestOrdVolumeByAvgTurnoverToRestrictionTemplate, rsSoftRestOrdVolume, true)
ZDL_RESTRICTION_RENDER(SettingToStrPriceLimitByTimeToRestrictionTemplate, rsPriceLimitByTime, true)
ZDL_RESTRICTION_RENDER(SettingToStrAccessToComplexInstrumentsToRestrictionTemplate, rsAccessToComplexInstruments, true)
#undef ZDL_RESTRICTION_RENDER

}  // namespace DL
