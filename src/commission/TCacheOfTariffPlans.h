#pragma once
// The tariff plans of the firm. The section "CommissionScaleBoards" names
// the plans: each key, upper case, is a plan and its value the list of its
// board groups; the key "DefaultTP" names the plan of the clients that have
// none. A section "CommissionScaleBoards_<plan>" lists, for the plan, the
// boards of each group and its "PROHIBITED_BOARDS". The plans' scales are
// held by TCacheOfTariffPlansWithCommRates, linked here for the save.
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ini/TIniParser.h"

namespace DL {

class TCacheOfTariffPlansWithCommRates;

class TCacheOfTariffPlans {
 public:
  // One plan: its board groups and, when the text has a boards section for
  // it, that section's lines.
  struct TPlan {
    std::string name;                 // the key as written in "CommissionScaleBoards"
    std::vector<std::string> groups;  // upper case, in list order
    bool hasBoardsSection = false;
    std::string boardsSection;        // the name as written
    TIniKeyMap boards;                // group (or PROHIBITED_BOARDS) -> board list as written
    std::set<std::string> classCodes;  // the boards the plan serves
  };

  // Reads "CommissionScaleBoards" or "CommissionScaleBoards_<plan>" (case
  // ignored); false for any other section.
  bool ParseSection(const std::string& name, const TIniKeyMap& keys);

  // The names of every plan, upper case, sorted; "DefaultTP" is not a plan.
  std::vector<std::string> GetAllPlanesNames() const;
  // The plan named by "DefaultTP", upper case; empty when none.
  const std::string& GetDefaultPlan() const { return m_defaultPlan; }
  // The plan, or null.
  const TPlan* GetPlan(const std::string& plan) const;

  // The class codes (boards) a plan serves; false for an unknown plan.
  bool SetClassCodes(const std::string& plan, const std::set<std::string>& classCodes);
  // The boards listed in the plan's boards section less its prohibited
  // boards, upper case.
  std::set<std::string> CollectClassCodes(const std::string& plan) const;

  void SetTariffPlaneCache(const TCacheOfTariffPlansWithCommRates* rates) { m_rates = rates; }

  // The plans as settings text: "[CommissionScaleBoards]" with "DefaultTP"
  // first and one line per plan (names as written, groups upper case), each plan's boards section, and the scale
  // section of each plan and group from the linked cache. The names of the
  // sections written are added to `sections` (as written in the text, or as
  // composed for a section the text did not have).
  void MakeString(std::string& out, std::vector<std::string>& sections) const;

  bool Empty() const { return m_plans.empty() && m_defaultPlan.empty() && !m_hasPlansSection; }

 private:
  std::map<std::string, TPlan> m_plans;  // by upper-case name
  std::string m_defaultPlan;
  std::string m_defaultPlanText;      // "DefaultTP" as written
  bool m_hasPlansSection = false;
  std::string m_plansSection;         // "CommissionScaleBoards" as written
  const TCacheOfTariffPlansWithCommRates* m_rates = nullptr;  // not owned
};

}  // namespace DL
