#pragma once
// The commission scales of the tariff plans: one per section
// "tp<plan>_bd<group>_CommissionScale", by plan and board group.
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "commission/TCommScale.h"
#include "ini/TIniParser.h"

namespace DL {

class TCacheOfTariffPlansWithCommRates {
 public:
  // A plan's scale section: its name as written, plan and group upper case.
  struct TPlanScale {
    std::string section;
    std::string plan;
    std::string group;
    TCommScale scale;
  };

  // Reads the section when its name is "tp" plan "_bd" group
  // "_CommissionScale" (case ignored, plan and group not empty); false for
  // any other section. Keys compare upper case: "MaxValue", "MinValue",
  // "MinVolume" (numbers, through SetMinMaxTurnover), "ConsiderRepoTerm"
  // (true only for "1"), "TradeCommission" (kept, not a row); any other key
  // is a row, the key the turnover and the value the rate. The rows are
  // sorted by turnover.
  bool ParseSection(const std::string& name, const TIniKeyMap& keys);

  // Splits a plan scale section name into plan and group; false if the name
  // is not one.
  static bool SplitSectionName(const std::string& name, std::string& plan, std::string& group);

  // The scale of a plan and group, or null.
  const TCommScale* GetScale(const std::string& plan, const std::string& group) const;
  TCommScale* GetScale(const std::string& plan, const std::string& group);

  // By (plan, group), upper case.
  const std::map<std::pair<std::string, std::string>, TPlanScale>& Scales() const { return m_scales; }

 private:
  std::map<std::pair<std::string, std::string>, TPlanScale> m_scales;
};

}  // namespace DL
