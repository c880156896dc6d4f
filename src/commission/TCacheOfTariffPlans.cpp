#include "commission/TCacheOfTariffPlans.h"

#include "commission/TCacheOfCommScalesBoards.h"
#include "commission/TCacheOfTariffPlansWithCommRates.h"
#include "base/TextHelpers.h"

namespace DL {

namespace {

std::vector<std::string> UpperItems(const std::string& text) {
  std::vector<std::string> out;
  for (std::string& item : BoardListToVector(StrUpper(text), ',')) {
    Trim(item);
    if (!item.empty()) out.push_back(std::move(item));
  }
  return out;
}

void AppendLine(std::string& out, const std::string& key, const std::string& value) {
  out += key;
  out += '=';
  out += value;
  out += '\n';
}

}  // namespace

bool TCacheOfTariffPlans::ParseSection(const std::string& name, const TIniKeyMap& keys) {
  const std::string nameUp = StrUpper(name);
  const std::string& plansUp = TIniParser::GetIniSectCodeUp(iscCommissionScaleBoards);
  const std::string& boardsUp = TIniParser::GetPartIniSectCodeUp(TIniParser::pscCommissionScaleBoards_);
  if (nameUp == plansUp) {
    m_hasPlansSection = true;
    m_plansSection = name;
    const std::string& defaultUp = TIniParser::GetPartIniParamCodeUp(TIniParser::ppcDefaultTP);
    for (const auto& [key, value] : keys) {
      const std::string keyUp = StrUpper(TrimStr(key));
      if (keyUp.empty()) continue;
      if (keyUp == defaultUp) {
        m_defaultPlan = StrUpper(TrimStr(value));
        m_defaultPlanText = TrimStr(value);
        continue;
      }
      TPlan& plan = m_plans[keyUp];
      plan.name = TrimStr(key);
      plan.groups = UpperItems(value);
    }
    return true;
  }
  if (nameUp.size() > boardsUp.size() && nameUp.starts_with(boardsUp)) {
    TPlan& plan = m_plans[nameUp.substr(boardsUp.size())];
    plan.hasBoardsSection = true;
    plan.boardsSection = name;
    plan.boards = keys;
    return true;
  }
  return false;
}

std::vector<std::string> TCacheOfTariffPlans::GetAllPlanesNames() const {
  std::vector<std::string> out;
  out.reserve(m_plans.size());
  for (const auto& [name, plan] : m_plans) out.push_back(name);
  return out;
}

const TCacheOfTariffPlans::TPlan* TCacheOfTariffPlans::GetPlan(const std::string& plan) const {
  const auto it = m_plans.find(StrUpper(plan));
  return it == m_plans.end() ? nullptr : &it->second;
}

bool TCacheOfTariffPlans::SetClassCodes(const std::string& plan, const std::set<std::string>& classCodes) {
  const auto it = m_plans.find(StrUpper(plan));
  if (it == m_plans.end()) return false;
  it->second.classCodes = classCodes;
  return true;
}

std::set<std::string> TCacheOfTariffPlans::CollectClassCodes(const std::string& plan) const {
  std::set<std::string> out;
  const TPlan* p = GetPlan(plan);
  if (p == nullptr) return out;
  const std::string prohibitedKey = TCacheOfCommScalesBoards::kProhibitedBoardsKey;
  std::set<std::string> prohibited;
  for (const auto& [key, value] : p->boards)
    if (StrUpper(key) == prohibitedKey)
      for (std::string& board : UpperItems(value)) prohibited.insert(std::move(board));
  for (const auto& [key, value] : p->boards) {
    if (StrUpper(key) == prohibitedKey) continue;
    for (std::string& board : UpperItems(value))
      if (prohibited.count(board) == 0) out.insert(std::move(board));
  }
  return out;
}

void TCacheOfTariffPlans::MakeString(std::string& out, std::vector<std::string>& sections) const {
  if (m_hasPlansSection || !m_plans.empty() || !m_defaultPlan.empty()) {
    bool anyLine = false;
    std::string lines;
    if (!m_defaultPlan.empty()) {
      AppendLine(lines, TIniParser::GetPartIniParamCode(TIniParser::ppcDefaultTP), m_defaultPlanText);
      anyLine = true;
    }
    for (const auto& [name, plan] : m_plans) {
      if (plan.groups.empty()) continue;
      AppendLine(lines, plan.name.empty() ? name : plan.name, ListToString(plan.groups));
      anyLine = true;
    }
    if (anyLine || m_hasPlansSection) {
      const std::string section =
          m_hasPlansSection ? m_plansSection : TIniParser::GetIniSectCode(iscCommissionScaleBoards);
      out += '[' + section + "]\n" + lines;
      sections.push_back(section);
    }
  }
  for (const auto& [name, plan] : m_plans) {
    if (!plan.hasBoardsSection) continue;
    out += '[' + plan.boardsSection + "]\n";
    for (const auto& [key, value] : plan.boards) AppendLine(out, key, value);
    sections.push_back(plan.boardsSection);
  }
  if (m_rates == nullptr) return;
  for (const auto& [key, entry] : m_rates->Scales()) {
    out += '[' + entry.section + "]\n";
    entry.scale.MakeSettingsString(out);
    sections.push_back(entry.section);
  }
}

}  // namespace DL
