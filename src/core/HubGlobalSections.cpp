// Global sections the hub parses into its own stores, and their writers:
// sub-brokers, option order restrictions, the global board and class lists,
// the minimum order quantity in a set time, the futures client code
// correspondences, the pre-trade sections and "IgnoreChecks".
#include <array>

#include "base/TextHelpers.h"
#include "base/KeyParsers.h"
#include "core/HubSectionHelpers.h"
#include "core/TStorageHub.h"

namespace DL {

using namespace HubText;

namespace {

constexpr std::string_view kChangeFutClientCodesUp = "CHANGEFUTCLIENTCODES";

// The words of "RestrictOptionOrders", in the order they are written.
struct TOptionOrderWord {
  const char* word;
  bool TRestrictOptionOrders::*flag;
};
constexpr std::array<TOptionOrderWord, 4> kOptionOrderWords = {{{"BUYCALL", &TRestrictOptionOrders::buyCall},
                                                                {"SELLCALL", &TRestrictOptionOrders::sellCall},
                                                                {"BUYPUT", &TRestrictOptionOrders::buyPut},
                                                                {"SELLPUT", &TRestrictOptionOrders::sellPut}}};

bool ParseOptionOrderWords(const std::string& value, TRestrictOptionOrders& out) {
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.empty()) return false;
  TRestrictOptionOrders r;
  for (const std::string& item : items) {
    const std::string up = StrUpper(item);
    bool known = false;
    for (const TOptionOrderWord& w : kOptionOrderWords)
      if (up == w.word) {
        r.*(w.flag) = true;
        known = true;
      }
    if (!known) return false;
  }
  out = r;
  return true;
}

std::string OptionOrderWordsToStr(const TRestrictOptionOrders& r) {
  std::string out;
  for (const TOptionOrderWord& w : kOptionOrderWords)
    if (r.*(w.flag)) {
      if (!out.empty()) out += ',';
      out += w.word;
    }
  return out;
}

// A section holding one list under the parameter named as the section: the
// list, and every other line raw.
void ParseListParamSection(const TIniKeyMap& keys, const std::string& paramName, TClassList& list, TRawLines& raw) {
  list.Clear();
  raw.clear();
  for (const auto& [key, value] : keys) {
    if (IsSameSettingsName(key, paramName)) {
      list.Assign(value, TClassList::NoRepeats);
      if (list.Empty()) raw[key] = value;  // nothing readable in it
    } else {
      raw[key] = value;
    }
  }
}

void ListParamSectionToStr(std::string& out, const std::string& section, const std::string& paramName,
                           const TClassList& list, const TRawLines& raw) {
  std::string body;
  if (!list.Empty()) AppendLine(body, paramName, list.ToString());
  AppendRawLines(body, raw);
  WriteSection(out, section, body);
}

}  // namespace

// ---- Flood control ----

bool ParseFloodControlSettings(std::string_view text, TFloodControlSettings& out) {
  const std::string trimmed = TrimStr(text);
  TFloodControlSettings r;
  if (trimmed.empty()) {
    out = r;
    return true;
  }
  const std::vector<std::string> items = BoardListToVector(trimmed, ',', true);
  if (items.size() > 2) return false;
  if (!items[0].empty() && (!ReadWholeInt(items[0], r.count) || r.count < -1)) return false;
  if (items.size() == 2 && !items[1].empty() && (!ReadWholeInt(items[1], r.interval) || r.interval < 1)) return false;
  out = r;
  return true;
}

std::string FloodControlSettingsToStr(const TFloodControlSettings& settings) {
  return std::to_string(settings.count) + "," + std::to_string(settings.interval);
}

// ---- Pre-trade ----

void TStorageHub::ParseSectionPreTrade(const TIniKeyMap& keys, int number) {
  TPreTradeSettings settings;
  settings.number = number;
  const std::string& floodName = TIniParser::GetIniParamCode(TIniParser::ipcFloodControl);
  for (const auto& [key, value] : keys) {
    if (IsSameSettingsName(key, floodName) && ParseFloodControlSettings(value, settings.floodControl)) {
      settings.hasFloodControl = true;
      continue;
    }
    settings.raw[key] = value;
  }
  m_preTrade[number] = std::move(settings);
}

// ---- Sub-brokers ----

const TRawLines& TStorageHub::GetSubBrokerRawLines(EIniSectCodeNum section) const {
  static const TRawLines kNone;
  switch (section) {
    case iscSubBrokers:
      return m_subBrokersRaw;
    case iscSubBrokerGlobals:
      return m_subBrokerGlobalsRaw;
    case iscSubBrokerYesGlobals:
      return m_subBrokerYesGlobalsRaw;
    case iscSubBrokerNoGlobals:
      return m_subBrokerNoGlobalsRaw;
    default:
      return kNone;
  }
}

void TStorageHub::ParseSubBrokerList(const TIniKeyMap& keys, TClassList TSubBrokerSettings::*list, TRawLines& raw) {
  for (auto& [code, broker] : m_subBrokers) (broker.*list).Clear();
  raw.clear();
  for (const auto& [key, value] : keys) {
    const std::string code = TrimStr(key);
    TClassList items(value, TClassList::NoRepeats);
    if (!IsCode(code) || items.Empty()) {
      raw[key] = value;
      continue;
    }
    m_subBrokers[code].*list = std::move(items);
  }
}

void TStorageHub::ParseSectionSubBrokers(const TIniKeyMap& keys) {
  ParseSubBrokerList(keys, &TSubBrokerSettings::clients, m_subBrokersRaw);
}
void TStorageHub::ParseSectionSubBrokerGlobals(const TIniKeyMap& keys) {
  ParseSubBrokerList(keys, &TSubBrokerSettings::globals, m_subBrokerGlobalsRaw);
}
void TStorageHub::ParseSectionSubBrokerYesGlobals(const TIniKeyMap& keys) {
  ParseSubBrokerList(keys, &TSubBrokerSettings::yesGlobals, m_subBrokerYesGlobalsRaw);
}
void TStorageHub::ParseSectionSubBrokerNoGlobals(const TIniKeyMap& keys) {
  ParseSubBrokerList(keys, &TSubBrokerSettings::noGlobals, m_subBrokerNoGlobalsRaw);
}

void TStorageHub::SettingToStrSubBrokerList(std::string& out, const std::string& section,
                                            TClassList TSubBrokerSettings::*list, const TRawLines& raw) const {
  std::string body;
  for (const auto& [code, broker] : m_subBrokers)
    if (!(broker.*list).Empty()) AppendLine(body, code, (broker.*list).ToString());
  AppendRawLines(body, raw);
  WriteSection(out, section, body);
}

void TStorageHub::SettingToStrSectionSubBrokers(std::string& out, const TSettingToStrSource& src) const {
  SettingToStrSubBrokerList(out, src.section, &TSubBrokerSettings::clients, m_subBrokersRaw);
}
void TStorageHub::SettingToStrSectionSubBrokerGlobals(std::string& out, const TSettingToStrSource& src) const {
  SettingToStrSubBrokerList(out, src.section, &TSubBrokerSettings::globals, m_subBrokerGlobalsRaw);
}
void TStorageHub::SettingToStrSectionSubBrokerYesGlobals(std::string& out, const TSettingToStrSource& src) const {
  SettingToStrSubBrokerList(out, src.section, &TSubBrokerSettings::yesGlobals, m_subBrokerYesGlobalsRaw);
}
void TStorageHub::SettingToStrSectionSubBrokerNoGlobals(std::string& out, const TSettingToStrSource& src) const {
  SettingToStrSubBrokerList(out, src.section, &TSubBrokerSettings::noGlobals, m_subBrokerNoGlobalsRaw);
}

// ---- Option order restrictions ----

void TStorageHub::ParseRestrictOptionOrders(const TIniKeyMap& keys) {
  m_restrictOptionOrders = {};
  for (const auto& [key, value] : keys) {
    const std::string asset = TrimStr(key);
    TRestrictOptionOrders r;
    if (IsCode(asset) && ParseOptionOrderWords(value, r))
      m_restrictOptionOrders.values[asset] = r;
    else
      m_restrictOptionOrders.raw[key] = value;
  }
}

void TStorageHub::SettingToStrGlobalRestrictOptionOrders(std::string& out, const TSettingToStrSource& src) const {
  std::string body;
  for (const auto& [asset, r] : m_restrictOptionOrders.values) AppendLine(body, asset, OptionOrderWordsToStr(r));
  AppendRawLines(body, m_restrictOptionOrders.raw);
  WriteSection(out, src.section, body);
}

// ---- Global board and class lists ----

void TStorageHub::ParseBrokerQuoteBoard(const TIniKeyMap& keys) {
  ParseListParamSection(keys, TIniParser::GetIniParamCode(TIniParser::ipcBrokerQuoteBoard), m_brokerQuoteBoard,
                        m_brokerQuoteBoardRaw);
}
void TStorageHub::ParseNegDealClasses(const TIniKeyMap& keys) {
  ParseListParamSection(keys, TIniParser::GetIniParamCode(TIniParser::ipcNegDealClasses), m_negDealClasses,
                        m_negDealClassesRaw);
}
void TStorageHub::ParseTransferBoard(const TIniKeyMap& keys) {
  ParseListParamSection(keys, TIniParser::GetIniParamCode(TIniParser::ipcTransferBoard), m_transferBoard,
                        m_transferBoardRaw);
}

void TStorageHub::SettingToStrBrokerQuoteBoardGlob(std::string& out, const TSettingToStrSource& src) const {
  ListParamSectionToStr(out, src.section, TIniParser::GetIniParamCode(TIniParser::ipcBrokerQuoteBoard),
                        m_brokerQuoteBoard, m_brokerQuoteBoardRaw);
}
void TStorageHub::SettingToStrNegDealClassesGlob(std::string& out, const TSettingToStrSource& src) const {
  ListParamSectionToStr(out, src.section, TIniParser::GetIniParamCode(TIniParser::ipcNegDealClasses),
                        m_negDealClasses, m_negDealClassesRaw);
}
void TStorageHub::SettingToStrTransferBoardGlob(std::string& out, const TSettingToStrSource& src) const {
  ListParamSectionToStr(out, src.section, TIniParser::GetIniParamCode(TIniParser::ipcTransferBoard), m_transferBoard,
                        m_transferBoardRaw);
}

// ---- Minimum order quantity in a set time ----

void TStorageHub::ParseSectionMinOrderQuantityInSetTime(const TIniKeyMap& keys) {
  m_minOrderQtyInSetTime.clear();
  m_minOrderQtyInSetTimeRaw.clear();
  for (const auto& [key, value] : keys) {
    TQtyToClassListAndSecList q;
    if (!Utils::ParseQtyToClassListAndSecListAndInterval(key, value, q)) {
      m_minOrderQtyInSetTimeRaw[key] = value;
      continue;
    }
    TMinOrderQuantityInSetTime item;
    item.classes = std::move(q.Classes);
    item.securities = std::move(q.Securities);
    item.interval = q.Interval;
    item.time = q.Time;
    item.quantity = q.Qty;
    m_minOrderQtyInSetTime.push_back(std::move(item));
  }
}

// ---- Futures client codes ----

const std::string* TStorageHub::SectionNameOf(const TIniKeyMap& keys) const {
  for (const auto& [name, sectionKeys] : m_parser->GetSections())
    if (&sectionKeys == &keys) return &name;
  return nullptr;
}

void TStorageHub::ParseChangeFutClientCodes(const TIniKeyMap& keys) {
  const std::string* name = SectionNameOf(keys);
  if (name == nullptr) return;
  // The firm stands behind the "_" that follows the family's name.
  std::string firm = name->substr(kChangeFutClientCodesUp.size());
  if (!firm.empty() && firm[0] == '_') firm.erase(0, 1);
  // Stored by the section's name: two sections of one firm ("..._F1" and
  // "...F1") are both kept, so that the save loses neither.
  TChangeFutClientCodes& store = m_changeFutClientCodes[*name];
  store = {};
  store.section = *name;
  store.firm = firm;
  for (const auto& [key, value] : keys) {
    const std::string client = TrimStr(key);
    const std::string trdAcc = TrimStr(value);
    if (IsCode(client) && IsCode(trdAcc))
      store.trdAccByClient[client] = trdAcc;
    else
      store.raw[key] = value;
  }
}

const TChangeFutClientCodes* TStorageHub::FindChangeFutClientCodes(const std::string& firm) const {
  for (const auto& [section, store] : m_changeFutClientCodes)
    if (IsSameSettingsName(store.firm, firm)) return &store;
  return nullptr;
}

void TStorageHub::SettingToStrGlobalChangeFutClientCodes(std::string& out) const {
  for (const auto& [section, store] : m_changeFutClientCodes) {
    std::string body;
    for (const auto& [client, trdAcc] : store.trdAccByClient) AppendLine(body, client, trdAcc);
    AppendRawLines(body, store.raw);
    WriteSection(out, store.section, body);
  }
}

// ---- Client code changes and ignored checks (global sections) ----

void TStorageHub::SettingToStrChangeClientCodesGlob(std::string& out, const TSettingToStrSource& src) const {
  std::string body;
  for (const auto& [client, changed] : m_changeClientCodes.values) AppendLine(body, client, changed);
  AppendRawLines(body, m_changeClientCodes.raw);
  WriteSection(out, src.section, body);
}

// "Clients" of "IgnoreChecks" lives in the general settings; the section's
// other lines stay in the section map.
void TStorageHub::SettingToStrIgnoreChecks(std::string& out, const TSettingToStrSource& src) const {
  const std::string& clientsName = TIniParser::GetIniParamCode(TIniParser::ipcClients);
  std::string body;
  if (!m_general.GetIgnoreChecksClients().Empty())
    AppendLine(body, clientsName, m_general.GetIgnoreChecksClients().ToString());
  if (src.keys != nullptr)
    for (const auto& [key, value] : *src.keys)
      if (!IsSameSettingsName(key, clientsName)) AppendLine(body, key, value);
  WriteSection(out, src.section, body);
}

// "DerivativesBaseAssets": key a base asset, value a comma list.
void TStorageHub::ParseDerivativesBaseAssets(const TIniKeyMap& keys) {
  m_derivativesBaseAssets.clear();
  ParseCodeToListSection(keys, m_derivativesBaseAssets);
}

void TStorageHub::SettingToStrDerivativesBaseAssets(std::string& out, const TSettingToStrSource& src) const {
  CodeToListToStr(out, src.section, m_derivativesBaseAssets);
}

}  // namespace DL
