// Client commission settings, commission scales and tariff plans of the hub:
// the caches of the load (step 11), the tariff plans (step 19), their part of
// the save, the firm's commission scale section, and the answer for one
// client and class.
#include "base/TextHelpers.h"
#include "core/TStorageHub.h"
#include "base/Numbers.h"

namespace DL {

namespace {

constexpr const char* kCommissionSection = "Commission";
constexpr const char* kBrokerKey = "Broker";
constexpr double kDefaultBrokerRate = 0.5;

// The boards of a comma list, trimmed and upper case, empties dropped.
std::vector<std::string> UpperBoards(const std::string& text) {
  std::vector<std::string> out;
  for (std::string& item : BoardListToVector(StrUpper(text), ',')) {
    Trim(item);
    if (!item.empty()) out.push_back(std::move(item));
  }
  return out;
}

}  // namespace

void TStorageHub::BuildClientSettingsCaches() {
  // The client settings cache parses the firm's settings as it is built and
  // resolves clients through a logic parser of its own.
  m_clientSettingsCache = std::make_unique<TCacheOfClientSettings>(*m_parser, this);
  m_commScalesCache = std::make_unique<TCacheOfCommScales>(*m_parser, this);
  m_commScalesCache->HashBoardScales();
  m_commScalesBoardsCache = std::make_unique<TCacheOfCommScalesBoards>(*m_parser);
}

void TStorageHub::ParseTariffPlans() {
  m_tariffPlans = TCacheOfTariffPlans();
  m_tariffPlansWithCommRates = TCacheOfTariffPlansWithCommRates();
  for (const auto& [name, keys] : m_parser->GetSections()) {
    m_tariffPlans.ParseSection(name, keys);
    m_tariffPlansWithCommRates.ParseSection(name, keys);
  }
  for (const std::string& plan : m_tariffPlans.GetAllPlanesNames())
    (void)m_tariffPlans.SetClassCodes(plan, m_tariffPlans.CollectClassCodes(plan));
  m_tariffPlans.SetTariffPlaneCache(&m_tariffPlansWithCommRates);
}

void TStorageHub::AppendTariffPlanRows(std::string& text, TWrittenSections& written) const {
  std::vector<std::string> names;
  m_tariffPlans.MakeString(text, names);
  const TIniSectionsMap& sections = m_parser->GetSections();
  for (const std::string& name : names) {
    const auto it = sections.find(name);
    if (it != sections.end()) written.insert(&it->first);
  }
}

// The firm's scale holds every key of the section but "Clients", which is
// kept as written.
void TStorageHub::SettingsToStrSectionCommissionScale(std::string& out, const TSettingToStrSource& src) const {
  std::string body;
  m_commScalesCache->GlobalSettings()->MakeSettingsString(body);
  if (src.keys != nullptr) {
    const std::string& clientsUp = TIniParser::GetIniParamCodeUp(TIniParser::ipcClients);
    for (const auto& [key, value] : *src.keys)
      if (StrUpper(key) == clientsUp) body += key + "=" + value + "\n";
  }
  if (body.empty()) return;
  out += '[';
  out += src.section;
  out += "]\n";
  out += body;
}

bool TStorageHub::UseCommissionScale() const { return m_general.GetUseCommissionScale() == 1; }

TClientCommSettings& TStorageHub::ClientCommSettings(const char* client, const char* classCode,
                                                     const char* boardList, double leverage, bool isRepo) {
  const TIniCacheItemID id(client, leverage);
  TClientCommSettings& s = *m_clientSettingsCache->GetIniSetting(id);
  const std::string cls = StrUpper(TrimStr(classCode != nullptr ? classCode : ""));
  const std::vector<std::string> boards = UpperBoards(!IsNullOrEmpty(boardList) ? std::string(boardList) : cls);
  s.UsedDefaultRate = false;
  s.HasBoardScale = false;
  s.HasTPScale = false;

  // The rate of the class, then (unless a repo class with a repo broker) the
  // default rate.
  if (!cls.empty() && s.ApplyClassRate(cls)) return s;
  const bool repoBroker = isRepo && ((!MIsZero(s.RepoBrokerCommission) && !s.NoRepoBroker) || s.IsRepoClass(cls));
  if (!repoBroker && s.ApplyDefaultRate()) return s;

  // The firm's kind.
  s.HasClassRate = false;
  if (s.CommKind != CommKindScale) {
    if (UseCommissionScale()) {
      s.CommKind = CommKindScale;
      s.FixedRate = 0.0;
    } else {
      s.CommKind = CommKindFixed;
      s.FixedRate = m_parser->GetIniParamDouble(std::string(kCommissionSection), std::string(kBrokerKey),
                                                kDefaultBrokerRate);
    }
  }
  if (s.CommKind != CommKindScale) return s;

  // A scale: the board scales of the plan, board by board.
  const std::string plan = s.PlanName.empty() ? m_tariffPlans.GetDefaultPlan() : s.PlanName;
  const std::string clientCode = client != nullptr ? client : "";
  m_commScaleBoardList.clear();
  for (const std::string& board : boards) {
    s.BoardGroup = board;
    const TCommScale* scale =
        m_commScalesCache->GetIniSetting(TIniCacheItemID(clientCode.c_str(), board.c_str(), plan.c_str(), "", leverage));
    if (scale != m_commScalesCache->GlobalSettings() && !scale->IsEmpty()) s.HasBoardScale = true;
    const TScaleBoards& shared = m_commScalesBoardsCache->GetIniSetting(plan, board);
    m_commScaleBoardList = shared.boards;
    if (shared.fromPlan) break;
  }
  s.HasTPScale = m_parser->IsSectionExist(m_parser->GetTPScaleSectionName(plan, s.BoardGroup));
  return s;
}

std::vector<std::string> TStorageHub::CommissionScaleBoards(const char* client, const char* classCode,
                                                            const char* group, double leverage, bool isRepo) {
  (void)ClientCommSettings(client, classCode, group, leverage, isRepo);
  return m_commScaleBoardList;
}

}  // namespace DL
