// Section lists, currency replacement, tag sections and user settings of the
// hub: load steps 9, 15, 16, 17, 18 and the tag section of step 20, and the
// save steps 8, 9, 10 and 12.
#include <cstddef>
#include <string>
#include <string_view>

#include "base/CodeLengths.h"
#include "base/TextHelpers.h"
#include "core/TStorageHub.h"

namespace DL {

namespace {


constexpr const char* kCurrencySection = "Currency";
constexpr const char* kCurrency2Section = "Currency2";
constexpr const char* kCurrencyPrefix = "Currency_";
constexpr const char* kAddREPOBoardsSection = "AddREPOBoards";
constexpr const char* kAddCommonSecTrdaccSection = "AddCommonSecTrdacc";
constexpr const char* kCurrBoardsSection = "CurrBoards";
constexpr const char* kQuantityNotInLotsClassesSection = "QuantityNotInLotsClasses";
constexpr const char* kAddMarketMarginalZadolgSection = "AddMarketMarginalZadolg";
constexpr const char* kClassesWithoutLimitKindsSection = "ClassesWithoutLimitKinds";
constexpr const char* kReplaceableInstrumentsSection = "ReplaceableInstruments";
constexpr char kPairDelimiter = ':';

std::string SectName(EIniSectCodeNum code) { return std::string(IniSectName(code)); }



// A code is usable when it is not empty and not longer than its kind allows.
bool IsCode(std::string_view code, EClassSettingType kind) {
  return !code.empty() && !IsRowLengthGreaterMaxLength(code, kind);
}

bool AllItemsFit(const TClassList& list, EClassSettingType kind) {
  for (const std::string& item : list.Items())
    if (IsRowLengthGreaterMaxLength(item, kind)) return false;
  return true;
}

bool AnyListContains(const TKeyToList& lists, std::string_view code) {
  for (const auto& [key, list] : lists)
    if (list.Contains(code)) return true;
  return false;
}

bool StartsWithName(std::string_view name, std::string_view prefix) {
  return name.size() >= prefix.size() && IsSameSettingsName(name.substr(0, prefix.size()), prefix);
}

// Every name of a currency replacement section: "Currency", "Currency2" or
// one that begins with "Currency_".
bool IsCurrencyReplacementSection(std::string_view name) {
  return IsSameSettingsName(name, kCurrencySection) || IsSameSettingsName(name, kCurrency2Section) ||
         StartsWithName(name, kCurrencyPrefix);
}

// Calls `visit` for each currency replacement section. The section map is
// ordered by upper-case name, so they all stand in the run of names that
// begin with "Currency"; a firm with many client sections is not walked.
template <class TMap, class TVisit>
void ForEachCurrencyReplacementSection(TMap& sections, TVisit visit) {
  for (auto it = sections.lower_bound(std::string_view(kCurrencySection));
       it != sections.end() && StartsWithName(it->first, kCurrencySection); ++it)
    if (IsCurrencyReplacementSection(it->first)) visit(it->first, it->second);
}

void ParseCurrencyReplacementSection(const TIniKeyMap& keys, TCurrencyReplacement& out) {
  for (const auto& [key, value] : keys) {
    const std::string currency = TrimStr(key);
    TClassList list(value, TClassList::NoRepeats);
    if (!IsCode(currency, cstCurrency) || list.Empty() || !AllItemsFit(list, cstCurrency)) {
      out.raw[key] = value;
      continue;
    }
    out.byCurrency[currency] = std::move(list);
  }
}

// "<ALL>" and "SECURITY_" + class.
void ParseSecuritiesByClassSection(const TIniKeyMap* keys, TSecuritiesByClass& out) {
  out = TSecuritiesByClass();
  if (keys == nullptr) return;
  const std::string& allUp = TIniParser::GetIniParamCodeUp(TIniParser::ipcReserved_ALL);
  const std::string& prefixUp = TIniParser::GetIniParamCodeUp(TIniParser::ipcSECURITY_);
  for (const auto& [key, value] : *keys) {
    const std::string keyUp = StrUpper(TrimStr(key));
    TClassList list(value, TClassList::NoRepeats);
    const bool fits = AllItemsFit(list, cstSecurity);
    if (fits && keyUp == allUp) {
      out.hasAll = true;
      out.all = std::move(list);
      continue;
    }
    if (fits && StringStartsCaseSens(keyUp, prefixUp)) {
      const std::string classCode = TrimStr(TrimStr(key).substr(prefixUp.size()));
      if (IsCode(classCode, cstClass)) {
        out.byClass[classCode] = std::move(list);
        continue;
      }
    }
    out.raw[key] = value;
  }
}

// A "key=list" section into `out` (cleared first); a missing section leaves
// it empty.
void ParseKeyToListSection(const TIniKeyMap* keys, TKeyToList& out) {
  out.clear();
  if (keys == nullptr) return;
  for (const auto& [key, value] : *keys) out[key].Assign(value, TClassList::NoRepeats);
}

// Appends "[name]" and the lines of `lines`; nothing when it is empty.
void AppendSection(std::string& out, const std::string& name, const TIniKeyMap& lines) {
  out += SectionToRowText(name, lines);
}

}  // namespace

// ---- Stores ----

bool TSecuritiesByClass::Contains(std::string_view classCode, std::string_view secCode) const {
  if (hasAll && all.Contains(secCode)) return true;
  auto it = byClass.find(classCode);
  return it != byClass.end() && it->second.Contains(secCode);
}

bool TAdditionalSecTrdaccRec::Contains(std::string_view classCode, std::string_view secCode) const {
  for (const TCommonSecRec& rec : securities)
    if (rec.classCode == classCode && (rec.secCode.empty() || rec.secCode == secCode)) return true;
  return false;
}

void TTagToStrListStorage::Clear() {
  m_lists.clear();
  m_tags.clear();
  m_raw.clear();
}

bool TTagToStrListStorage::Add(const std::string& key, const std::string& value) {
  const std::string tag = TrimStr(key);
  TClassList list(value, TClassList::NoRepeats);
  if (!IsCode(tag, cstClass) || !AllItemsFit(list, cstClass)) return false;
  m_lists[tag] = std::move(list);
  return true;
}

const TClassList* TTagToStrListStorage::Find(std::string_view key) const {
  auto it = m_lists.find(key);
  return it == m_lists.end() ? nullptr : &it->second;
}

bool TTagToStrListStorage::Contains(std::string_view key, std::string_view code) const {
  const TClassList* list = Find(key);
  return list != nullptr && list->Contains(code);
}

bool TTagToStrListStorage::ContainsAnywhere(std::string_view code) const { return AnyListContains(m_lists, code); }

void TTagToStrListStorage::CollectTags() {
  m_tags.clear();
  for (const auto& [tag, list] : m_lists) m_tags.insert(tag);
}

// ---- Step 9: currency replacement ----

void TStorageHub::ParseCurrencyReplacement() {
  m_currencyReplacements.clear();
  ForEachCurrencyReplacementSection(m_parser->GetSections(), [this](const std::string& name, const TIniKeyMap& keys) {
    ParseCurrencyReplacementSection(keys, m_currencyReplacements[name]);
  });
}

std::string TStorageHub::GetReplacingCurrency(std::string_view currency) const {
  auto section = m_currencyReplacements.find(std::string_view(kCurrencySection));
  if (section == m_currencyReplacements.end()) return {};
  for (const auto& [main, list] : section->second.byCurrency)
    if (list.Contains(currency)) return main;
  return {};
}

// ---- Step 15: section lists of the old form ----

void TStorageHub::ParseOldFormSectionLists() {
  ParseSecuritiesByClassSection(m_parser->FindIniSectionRef(SectName(iscLimitAllowedSecurity)),
                                m_limitAllowedSecurity);
  ParseSecuritiesByClassSection(m_parser->FindIniSectionRef(SectName(iscAssetSecurities)), m_assetSecurities);
  ParseSecuritiesByClassSection(m_parser->FindIniSectionRef(SectName(iscRestShortSecurities)),
                                m_restShortSecurities);

  m_counterpartyLimits.clear();
  if (const TIniKeyMap* keys = m_parser->FindIniSectionRef(SectName(iscCounterpartyLimits)))
    for (const auto& [key, value] : *keys) {
      TCounterpartyLimit limit;
      limit.counterparty = TrimStr(key);
      limit.classes.Assign(value, TClassList::NoRepeats);
      if (!IsCode(limit.counterparty, cstPartner) || !AllItemsFit(limit.classes, cstClass)) continue;
      m_counterpartyLimits[limit.counterparty] = std::move(limit);
    }

  m_tranoutTags.clear();
  if (const TIniKeyMap* keys = m_parser->FindIniSectionRef(SectName(iscTranoutTag)))
    for (const auto& [key, value] : *keys) {
      const std::vector<std::string> items = BoardListToVector(value, ',', true);
      if (items.size() != 2) continue;
      TTranoutTag tag{TrimStr(key), items[0], items[1]};
      if (!IsCode(tag.nonTradeInstrument, cstSecurity) || !IsCode(tag.classCode, cstClass) ||
          !IsCode(tag.currency, cstCurrency))
        continue;
      m_tranoutTags[tag.nonTradeInstrument] = std::move(tag);
    }
}

// ---- Step 16: multi-currency ----

void TStorageHub::FillSupportMultiCurrency() {
  m_multiCurrencySupported = m_general.GetSupportMultiCurrency() != 0;
  m_multiCurrencyByClass.clear();
  if (!m_multiCurrencySupported) return;
  std::string currencies;
  for (const auto& [main, list] : m_addMultiCurrency) {
    currencies += main;
    currencies += ',';
    currencies += list.ToString();
    currencies += ',';
  }
  const TClassList all(currencies, TClassList::NoRepeats);
  for (const std::string& classCode : m_general.GetMultiCurrInstrClasses().Items())
    m_multiCurrencyByClass[classCode] = all;
}

// ---- Step 17: plain lists of other sections ----

void TStorageHub::ParsePlainListSections() {
  ParseKeyToListSection(m_parser->FindIniSectionRef(kAddREPOBoardsSection), m_addRepoBoards);
  ParseKeyToListSection(m_parser->FindIniSectionRef(SectName(iscAddLockedBoards)), m_addLockedBoards);

  m_addCommonSecTrdacc.clear();
  if (const TIniKeyMap* keys = m_parser->FindIniSectionRef(kAddCommonSecTrdaccSection))
    for (const auto& [key, value] : *keys) {
      TAdditionalSecTrdaccRec rec;
      rec.trdAcc = TrimStr(key);
      bool valid = IsCode(rec.trdAcc, cstTradeAccount);
      for (const std::string& item : BoardListToVector(value, ',')) {
        const std::size_t colon = item.find(kPairDelimiter);
        TCommonSecRec sec;
        sec.classCode = TrimStr(item.substr(0, colon));
        if (colon != std::string::npos) {
          sec.secCode = TrimStr(item.substr(colon + 1));
          valid = valid && IsCode(sec.secCode, cstSecurity);
        }
        valid = valid && IsCode(sec.classCode, cstClass);
        rec.securities.push_back(std::move(sec));
      }
      if (valid && !rec.securities.empty()) m_addCommonSecTrdacc[rec.trdAcc] = std::move(rec);
    }

  ParseKeyToListSection(m_parser->FindIniSectionRef(kCurrBoardsSection), m_currBoards);
  ParseKeyToListSection(m_parser->FindIniSectionRef(kQuantityNotInLotsClassesSection), m_quantityNotInLotsClasses);
  ParseKeyToListSection(m_parser->FindIniSectionRef(kAddMarketMarginalZadolgSection), m_addMarketMarginalZadolg);
  ParseKeyToListSection(m_parser->FindIniSectionRef(kClassesWithoutLimitKindsSection), m_classesWithoutLimitKinds);
  // "RestrictSecuritiesPropotionInCollateral" was read by its global parse
  // function in step 7.
  ParseKeyToListSection(m_parser->FindIniSectionRef(SectName(iscClassesWithTradeCurrency)),
                        m_classesWithTradeCurrency);

  m_replaceableInstruments.clear();
  if (const TIniKeyMap* keys = m_parser->FindIniSectionRef(kReplaceableInstrumentsSection))
    for (const auto& [key, value] : *keys) {
      const std::string classCode = TrimStr(key);
      if (!IsCode(classCode, cstClass)) continue;
      std::map<std::string, std::string> pairs;
      bool valid = true;
      for (const std::string& item : BoardListToVector(value, ',')) {
        const std::size_t colon = item.find(kPairDelimiter);
        if (colon == std::string::npos) {
          valid = false;
          break;
        }
        const std::string sec = TrimStr(item.substr(0, colon));
        const std::string mainSec = TrimStr(item.substr(colon + 1));
        if (!IsCode(sec, cstSecurity) || !IsCode(mainSec, cstSecurity)) {
          valid = false;
          break;
        }
        pairs[sec] = mainSec;
      }
      if (valid && !pairs.empty()) m_replaceableInstruments[classCode] = std::move(pairs);
    }
}

void TStorageHub::ParseRestrictSecuritiesProportionInCollateral(const TIniKeyMap& keys) {
  ParseKeyToListSection(&keys, m_restrictSecuritiesProportion);
}

bool TStorageHub::IsQuantityNotInLotsClass(std::string_view classCode) const {
  return AnyListContains(m_quantityNotInLotsClasses, classCode);
}

bool TStorageHub::IsClassWithoutLimitKinds(std::string_view classCode) const {
  return AnyListContains(m_classesWithoutLimitKinds, classCode);
}

bool TStorageHub::IsRestrictSecuritiesPropotionInCollateral(std::string_view secCode) const {
  return AnyListContains(m_restrictSecuritiesProportion, secCode);
}

std::string TStorageHub::GetMainSec(std::string_view classCode, std::string_view secCode) const {
  auto table = m_replaceableInstruments.find(classCode);
  if (table != m_replaceableInstruments.end()) {
    auto it = table->second.find(std::string(secCode));
    if (it != table->second.end()) return it->second;
  }
  return std::string(secCode);
}

// ---- Step 18: tag sections ----

void TStorageHub::ParseTagToStrListSection(const TIniKeyMap* keys, TTagToStrListStorage& out, bool* present) {
  out.Clear();
  if (present != nullptr) *present = keys != nullptr;
  if (keys == nullptr) return;
  for (const auto& [key, value] : *keys)
    if (!out.Add(key, value)) out.AddRaw(key, value);
}

void TStorageHub::ParseTagSections() {
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscAddLockedTrdacc)), m_addLockedTrdacc, nullptr);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscBoardTag)), m_boardTag, nullptr);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscSecToBoard)), m_secToBoard, nullptr);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscAddLimitBoards)), m_addLimitBoards,
                           &m_hasAddLimitBoards);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscAddLimitTrdacc)), m_addLimitTrdacc, nullptr);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscAddNonMarginalBoard)), m_addNonMarginalBoard,
                           &m_hasAddNonMarginalBoard);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscAddREPOTrdacc)), m_addREPOTrdacc, nullptr);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscAddCommonTrdacc)), m_addCommonTrdacc, nullptr);
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscREPOLimitTrdAcc)), m_repoLimitTrdAcc, nullptr);
  FillTagsFromTagToTagsSettings();
  // The limit boards and the common trade accounts of the limits.
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscREPOLimitBoards)), m_repoLimitBoards, nullptr);
  m_limitBoards.clear();
  for (const auto& [tag, boards] : m_repoLimitBoards.Lists())
    m_limitBoards.insert(boards.Items().begin(), boards.Items().end());
  m_limitCommonTrdAccs.clear();
  for (const auto& [tag, accounts] : m_addCommonTrdacc.Lists())
    m_limitCommonTrdAccs.insert(accounts.Items().begin(), accounts.Items().end());
}

void TStorageHub::FillTagsFromTagToTagsSettings() {
  TTagToStrListStorage* const stores[] = {&m_addLockedTrdacc, &m_boardTag,       &m_secToBoard,
                                          &m_addLimitBoards,  &m_addLimitTrdacc, &m_addNonMarginalBoard,
                                          &m_addREPOTrdacc,   &m_addCommonTrdacc, &m_repoLimitTrdAcc};
  for (TTagToStrListStorage* store : stores) store->CollectTags();
}

void TStorageHub::ParseSpecialTradingAccounts() {
  ParseTagToStrListSection(m_parser->FindIniSectionRef(SectName(iscSpecialTradingAccounts)),
                           m_specialTradingAccounts, nullptr);
  m_specialTradingAccounts.CollectTags();
}

// ---- Rendering ----

namespace {

// The lists of a tag section, then its raw lines.
TIniKeyMap TagStorageLines(const TTagToStrListStorage& store) {
  TIniKeyMap lines = store.Raw();
  for (const auto& [tag, list] : store.Lists()) lines[tag] = list.ToString();
  return lines;
}

}  // namespace

void TStorageHub::SettingToStrBoardTagGlob(std::string& out, const TSettingToStrSource& src) const {
  AppendSection(out, src.section, TagStorageLines(m_boardTag));
}

void TStorageHub::SettingToStrClassesWithTradeCurrencyGlob(std::string& out, const TSettingToStrSource& src) const {
  CodeToListToStr(out, src.section, m_classesWithTradeCurrency);
}

void TStorageHub::SettingToStrGlobalRestrictSecuritiesProportionInCollateral(std::string& out,
                                                                             const TSettingToStrSource& src) const {
  CodeToListToStr(out, src.section, m_restrictSecuritiesProportion);
}

void TStorageHub::SecuritiesByClassToStr(std::string& out, const std::string& section,
                                         const TSecuritiesByClass& store) {
  TIniKeyMap lines = store.raw;
  if (store.hasAll) lines[TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL)] = store.all.ToString();
  for (const auto& [classCode, list] : store.byClass)
    lines[TIniParser::GetIniParamCode(TIniParser::ipcSECURITY_) + classCode] = list.ToString();
  AppendSection(out, section, lines);
}

void TStorageHub::SettingToStrGlobalLimitAllowedSecurity(std::string& out, const TSettingToStrSource& src) const {
  SecuritiesByClassToStr(out, src.section, m_limitAllowedSecurity);
}

void TStorageHub::SettingToStrGlobalAssetSecurities(std::string& out, const TSettingToStrSource& src) const {
  SecuritiesByClassToStr(out, src.section, m_assetSecurities);
}

void TStorageHub::SettingToStrGlobalRestShortSecurities(std::string& out, const TSettingToStrSource& src) const {
  SecuritiesByClassToStr(out, src.section, m_restShortSecurities);
}

void TStorageHub::SettingToStrGlobalCurrencyReplacement(std::string& out, const TSettingToStrSource& src) const {
  auto it = m_currencyReplacements.find(src.section);
  if (it == m_currencyReplacements.end()) {
    // A section entered after the load has no parsed store: its text stands.
    SettingToStrRawSection(out, src);
    return;
  }
  TIniKeyMap lines = it->second.raw;
  for (const auto& [currency, list] : it->second.byCurrency) lines[currency] = list.ToString();
  AppendSection(out, src.section, lines);
}

// ---- Save steps 8, 9, 10 and 12 ----

void TStorageHub::AppendOldFormListRows(std::string& text, TWrittenSections& written) const {
  using TRender = void (TStorageHub::*)(std::string&, const TSettingToStrSource&) const;
  const std::pair<std::string, TRender> steps[] = {
      {SectName(iscLimitAllowedSecurity), &TStorageHub::SettingToStrGlobalLimitAllowedSecurity},
      {SectName(iscAssetSecurities), &TStorageHub::SettingToStrGlobalAssetSecurities},
      {SectName(iscRestShortSecurities), &TStorageHub::SettingToStrGlobalRestShortSecurities}};
  // Each step writes every section whose name begins with its name: the
  // section of that very name from its store, any longer one as it stands.
  const TIniSectionsMap& sections = m_parser->GetSections();
  for (const auto& [name, render] : steps)
    for (auto it = sections.lower_bound(name); it != sections.end() && StartsWithName(it->first, name); ++it) {
      if (!written.insert(&it->first).second) continue;
      TSettingToStrSource src;
      src.section = it->first;
      src.keys = &it->second;
      if (IsSameSettingsName(it->first, name))
        (this->*render)(text, src);
      else
        SettingToStrRawSection(text, src);
    }
}

void TStorageHub::AppendCurrencyReplacementRows(std::string& text, TWrittenSections& written) const {
  const TIniSectionsMap& sections = m_parser->GetSections();
  ForEachCurrencyReplacementSection(sections, [&](const std::string& name, const TIniKeyMap& keys) {
    if (!written.insert(&name).second) return;
    TSettingToStrSource src;
    src.section = name;
    src.keys = &keys;
    SettingToStrGlobalCurrencyReplacement(text, src);
  });
}

}  // namespace DL
