// Late global sections of the hub (step 20 of the load), and the save step of
// "CommissionSettingsCurrency". Each reader fills its store from the section
// map; a line it cannot read is kept raw in the store.

#include "base/TextHelpers.h"
#include "base/KeyParsers.h"
#include "core/HubSectionHelpers.h"
#include "core/TStorageHub.h"

namespace DL {

using namespace HubText;

namespace {

constexpr const char* kCurrBoardsCommission = "CurrBoardsCommission";
constexpr const char* kCheckPriceBoard = "CheckPriceBoard";
constexpr const char* kClientMarketOrderPercentByClasses = "ClientMarketOrderPercentByClasses";

const TIniKeyMap* Section(const TIniParser& parser, EIniSectCodeNum code) {
  return parser.FindIniSectionRef(std::string(IniSectName(code)));
}

const TIniKeyMap* Section(const TIniParser& parser, const char* name) {
  return parser.FindIniSectionRef(std::string(name));
}

// Reads "code = value" lines: `read` turns the trimmed code and the value
// into the stored value, or refuses the line, which is then kept raw.
template <class TValue, class TRead>
void ReadKeyedSection(const TIniKeyMap* keys, TKeyedSection<TValue>& out, TRead read) {
  out = {};
  if (keys == nullptr) return;
  for (const auto& [key, value] : *keys) {
    const std::string code = TrimStr(key);
    TValue v{};
    if (IsCode(code) && read(code, value, v))
      out.values[code] = std::move(v);
    else
      out.raw[key] = value;
  }
}

// A comma list of codes, none empty or too long; false for an empty list.
bool ReadCodeList(const std::string& value, std::vector<std::string>& out) {
  out = BoardListToVectorWithoutDuplicates(value, ',', true);
  if (out.empty()) return false;
  for (const std::string& code : out)
    if (!IsCode(code)) return false;
  return true;
}

// One "RestOrdVolumeByAvgTurnover" section into `out`.
void ReadRestOrdVolume(const TIniKeyMap* keys, TGlobalRestOrdVolume& out) {
  out = {};
  if (keys == nullptr) return;
  out.present = true;
  const std::string& basePeriodName = TIniParser::GetIniParamCode(TIniParser::ipcBasePeriod);
  for (const auto& [key, value] : *keys) {
    if (IsSameSettingsName(key, basePeriodName) && ReadWholeInt(TrimStr(value), out.basePeriod)) continue;
    TGlobalRestOrdVolumeItem item;
    const std::vector<std::string> items = BoardListToVector(value, ',', true);
    const bool read = !items.empty() && items.size() <= 3 &&
                      Utils::GetClassListAndSecListFromString(StrUpper(TrimStr(key)), item.classes, item.securities) &&
                      (items[0].empty() || ReadWholeDouble(items[0], item.limitPercent)) &&
                      (items.size() < 2 || items[1].empty() || ReadWholeDouble(items[1], item.second));
    if (!read) {
      out.raw[key] = value;
      continue;
    }
    if (items.size() == 3) item.text = StrUpper(items[2]);
    out.items.push_back(std::move(item));
  }
}

}  // namespace

// ---- Step 20 ----

void TStorageHub::ParseLateSectionsBeforeClientCVal() {
  ParseCurrBoardsCommissionSection();
  ParseInstrumentWithoutCurrencyRiskSection();
  ParseCheckPriceBoard();
  ParseClientMarketOrderPercentByClasses();
  ParseGlobalFloodControlByInstrument();
  ParseRestOrdVolumeByAvgTurnover();
  ParseChangeClientCodesSection();
}

// The volume-based commission, read between the commission settings
// currency and the futures risk limiting price, has a step of its own in
// its component and no part here.
void TStorageHub::ParseLateSectionsAfterClientCVal() {
  ParseCommissionSettingsCurrency();
  m_volumeCommission.Parse(*m_parser);
  ParseFutRiskLimitingPrice();
  ParsePositionPriceCurrencySection();
  ParseMOEXCommissionExportClassesSection();
}

// "CurrBoardsCommission": board = rate.
void TStorageHub::ParseCurrBoardsCommissionSection() {
  ReadKeyedSection(Section(*m_parser, kCurrBoardsCommission), m_currBoardsCommission,
                   [](const std::string&, const std::string& value, double& rate) {
                     return ReadWholeDouble(TrimStr(value), rate);
                   });
}

// "InstrumentsWithoutCurrencyRisk": "InstrumentsWithoutCurrencyRisk_<class>
// = securities"; the class may be "<ALL>" and the list may be empty.
void TStorageHub::ParseInstrumentWithoutCurrencyRiskSection() {
  auto& store = m_instrumentsWithoutCurrencyRisk;
  store = {};
  const TIniKeyMap* keys = Section(*m_parser, iscInstrumentsWithoutCurrencyRisk);
  if (keys == nullptr) return;
  const std::string& prefixUp = TIniParser::GetIniParamCodeUp(TIniParser::ipcInstrumentsWithoutCurrencyRisk_);
  for (const auto& [key, value] : *keys) {
    const std::string trimmedKey = TrimStr(key);
    const bool prefixed = StrUpper(trimmedKey).rfind(prefixUp, 0) == 0;
    const std::string code = prefixed ? TrimStr(std::string_view(trimmedKey).substr(prefixUp.size())) : std::string();
    const std::vector<std::string> securities = BoardListToVectorWithoutDuplicates(value, ',');
    bool read = prefixed && IsCode(code);
    for (const std::string& security : securities) read = read && IsCode(security);
    if (!read) {
      store.raw[key] = value;
      continue;
    }
    store.values[code] = std::set<std::string>(securities.begin(), securities.end());
  }
}

// "CheckPriceBoard": class = boards.
void TStorageHub::ParseCheckPriceBoard() {
  ReadKeyedSection(Section(*m_parser, kCheckPriceBoard), m_checkPriceBoard,
                   [](const std::string&, const std::string& value, std::vector<std::string>& boards) {
                     return ReadCodeList(value, boards);
                   });
}

// "ClientMarketOrderPercentByClasses": class = per cent, 0 or above.
void TStorageHub::ParseClientMarketOrderPercentByClasses() {
  ReadKeyedSection(Section(*m_parser, kClientMarketOrderPercentByClasses), m_clientMarketOrderPercentByClasses,
                   [](const std::string&, const std::string& value, double& percent) {
                     return ReadWholeDouble(TrimStr(value), percent) && percent >= 0.0;
                   });
}

// "FloodControlByInstrument": "classes_INSTR_securities = count,interval".
void TStorageHub::ParseGlobalFloodControlByInstrument() {
  m_floodControlByInstrument.clear();
  m_floodControlByInstrumentRaw.clear();
  const TIniKeyMap* keys = Section(*m_parser, iscFloodControlByInstrument);
  if (keys == nullptr) return;
  for (const auto& [key, value] : *keys) {
    TFloodControlByInstrument item;
    if (!TrimStr(value).empty() && Utils::GetClassListAndSecListFromString(key, item.classes, item.securities) &&
        ParseFloodControlSettings(value, item.floodControl))
      m_floodControlByInstrument.push_back(std::move(item));
    else
      m_floodControlByInstrumentRaw[key] = value;
  }
}

void TStorageHub::ParseRestOrdVolumeByAvgTurnover() {
  ReadRestOrdVolume(Section(*m_parser, iscRestOrdVolumeByAvgTurnover), m_restOrdVolume);
  ReadRestOrdVolume(Section(*m_parser, iscSoft_RestOrdVolumeByAvgTurnover), m_softRestOrdVolume);
}

// "ChangeClientCodes": client code = the code it is changed to.
void TStorageHub::ParseChangeClientCodesSection() {
  ReadKeyedSection(Section(*m_parser, iscChangeClientCodes), m_changeClientCodes,
                   [](const std::string&, const std::string& value, std::string& changed) {
                     changed = TrimStr(value);
                     return IsCode(changed);
                   });
}

// Every section whose name begins with "CommissionSettingsCurrency":
// currency = classes.
void TStorageHub::ParseCommissionSettingsCurrency() {
  m_commissionSettingsCurrency.clear();
  const std::string family(IniSectName(iscCommissionSettingsCurrency));
  for (const auto& [name, keys] : m_parser->GetSections()) {
    if (!StringStartsCaseSens(name, family)) continue;
    ReadKeyedSection(&keys, m_commissionSettingsCurrency[name],
                     [](const std::string& currency, const std::string& value, std::vector<std::string>& classes) {
                       return currency.size() <= kCurrencyMax && ReadCodeList(value, classes);
                     });
  }
}

// "FutRiskLimitingPrice": class = price type name.
void TStorageHub::ParseFutRiskLimitingPrice() {
  ReadKeyedSection(Section(*m_parser, iscFutRiskLimitingPrice), m_futRiskLimitingPrice,
                   [](const std::string&, const std::string& value, int& priceType) {
                     priceType = TIniParser::GetPriceType(TrimStr(value));
                     return priceType != 0;
                   });
}

// "PositionPriceCurrency": class = currency.
void TStorageHub::ParsePositionPriceCurrencySection() {
  ReadKeyedSection(Section(*m_parser, iscPositionPriceCurrency), m_positionPriceCurrency,
                   [](const std::string&, const std::string& value, std::string& currency) {
                     currency = TrimStr(value);
                     return IsCode(currency, kCurrencyMax);
                   });
}

// "MOEXCommissionExportClasses": "Classes = class list".
void TStorageHub::ParseMOEXCommissionExportClassesSection() {
  m_moexCommissionExportClasses.Clear();
  m_moexCommissionExportClassesRaw.clear();
  const TIniKeyMap* keys = Section(*m_parser, iscMOEXCommissionExportClasses);
  if (keys == nullptr) return;
  const std::string& classesName = TIniParser::GetIniParamCode(TIniParser::ipcClasses);
  for (const auto& [key, value] : *keys) {
    TClassList classes(value, TClassList::NoRepeats);
    if (IsSameSettingsName(key, classesName) && !classes.Empty())
      m_moexCommissionExportClasses = std::move(classes);
    else
      m_moexCommissionExportClassesRaw[key] = value;
  }
}

// ---- Save, step 7 ----

void TStorageHub::SettingToStrGlobalCommissionSettingsCurrency(std::string& out) const {
  for (const auto& [name, store] : m_commissionSettingsCurrency) {
    std::string body;
    for (const auto& [currency, classes] : store.values) AppendLine(body, currency, ListToString(classes));
    AppendRawLines(body, store.raw);
    WriteSection(out, name, body);
  }
}

void TStorageHub::AppendCommissionSettingsCurrencyRows(std::string& text, TWrittenSections& written) const {
  SettingToStrGlobalCommissionSettingsCurrency(text);
  const std::string family(IniSectName(iscCommissionSettingsCurrency));
  for (const auto& [name, keys] : m_parser->GetSections())
    if (StringStartsCaseSens(name, family)) written.insert(&name);
}

}  // namespace DL
