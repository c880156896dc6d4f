#include "commission/TCacheOfClientSettings.h"

#include "base/TextHelpers.h"

namespace DL {

namespace {

constexpr const char* kCommissionSection = "Commission";
constexpr const char* kGeneralSection = "General";
constexpr const char* kBrokerKey = "Broker";
constexpr const char* kRepoBrokerKey = "RepoBroker";
constexpr const char* kUseCommissionScaleKey = "UseCommissionScale";
constexpr const char* kScaleJumpKey = "CommissionScaleJump";
constexpr const char* kRoundOnDayValueKey = "RoundScaleCommissionOnDayValue";
constexpr const char* kPlanNameKey = "TPName";
constexpr double kDefaultBrokerRate = 0.5;

}  // namespace

TCacheOfClientSettings::TCacheOfClientSettings(TIniParser& parser, const IFirmSettings* firm)
    : AIniSettingCacheMaster<TClientCommSettings>(parser, firm), m_logic(parser) {
  ParseGlobalSettings();
}

void TCacheOfClientSettings::ParseGlobalSettings() {
  const TIniParser& p = Parser();
  auto global = std::make_unique<TClientCommSettings>();
  if (p.GetIniParamInt(std::string(kGeneralSection), std::string(kUseCommissionScaleKey), 0) == 1) {
    global->CommKind = CommKindScale;
    global->FixedRate = 0.0;
  } else {
    global->CommKind = CommKindFixed;
    global->FixedRate =
        p.GetIniParamDouble(std::string(kCommissionSection), std::string(kBrokerKey), kDefaultBrokerRate);
  }
  global->RepoBrokerCommission = p.GetIniParamDouble(std::string(kCommissionSection), std::string(kRepoBrokerKey), 0.0);
  global->RoundOnDayValue = p.GetIniParamBool(std::string(kGeneralSection), std::string(kRoundOnDayValueKey), false);
  global->ScaleJump = p.GetIniParamBool(std::string(kGeneralSection), std::string(kScaleJumpKey), false);
  if (const TIniKeyMap* keys = p.FindIniSectionRef(kCommissionSection)) global->ParseClassRates(*keys);
  m_firm = *global;
  SetGlobalSettings(std::move(global));
}

void TCacheOfClientSettings::SetCommScaleJump(bool value) {
  GlobalSettings()->ScaleJump = value;
  m_firm.ScaleJump = value;
}

std::unique_ptr<TClientCommSettings> TCacheOfClientSettings::ParseSection(const std::string& section) const {
  const TIniKeyMap* keys = Parser().FindIniSectionRef(section);
  if (keys == nullptr) return nullptr;
  const TClientCommSettings& global = m_firm;
  auto s = std::make_unique<TClientCommSettings>();
  // The firm's kind, rates and flags stand unless the section says otherwise;
  // the rates by class are the section's own.
  s->CommKind = global.CommKind;
  s->FixedRate = global.FixedRate;
  s->ScaleJump = Parser().GetIniParamBool(*keys, std::string(kScaleJumpKey), global.ScaleJump);
  s->RoundOnDayValue = Parser().GetIniParamBool(*keys, std::string(kRoundOnDayValueKey), global.RoundOnDayValue);
  s->RepoBrokerCommission = Parser().GetIniParamDouble(*keys, std::string(kRepoBrokerKey), global.RepoBrokerCommission);
  s->PlanName = StrUpper(TrimStr(Parser().GetIniParamString(*keys, std::string(kPlanNameKey), TIniParser::EmptyString())));
  s->ParseClassRates(*keys);
  return s;
}

TCacheOfClientSettings::TParseResult TCacheOfClientSettings::ParseSettingsForClient(const TIniCacheItemID& id) const {
  const std::string& cl = TIniParser::GetPartIniSectCodeUp(TIniParser::pscCl);
  const std::string& client = id.ClientCode();
  std::string section;
  int source = SourceGlobal;
  // 1. The client template bound to the leverage.
  if (id.LeverageInt() != UNDEF_LEVERAGE && m_logic.GetTemplateClientSectionByLeverage(id.Leverage(), section) == 1 &&
      Parser().IsSectionExist(section)) {
    source = SourceTemplate;
  } else {
    section.clear();
  }
  // 2. Personal, 3. a template listing the client, 4. the longest prefix.
  if (section.empty()) {
    section = m_logic.PersonalClientSection(client, cl, TIniParser::EmptyString());
    if (!section.empty()) source = SourceClient;
  }
  if (section.empty()) {
    section = m_logic.TemplateClientSection(client, cl, TIniParser::GetPartIniSectCodeUp(TIniParser::psc_Client_Template));
    if (!section.empty()) source = SourceTemplate;
  }
  if (section.empty()) {
    section = m_logic.PrefixClientSection(client, cl, TIniParser::EmptyString(), 1);
    if (!section.empty()) source = SourceClient;
  }
  if (section.empty()) return {nullptr, SourceGlobal};
  TClientCommSettings* parsed =
      m_parsed.GetOrParse(section, [this](const std::string& name) { return ParseSection(name); });
  if (parsed == nullptr) return {nullptr, SourceGlobal};
  return {parsed, source};
}

}  // namespace DL
