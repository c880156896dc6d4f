#include "commission/TCacheOfTariffPlansWithCommRates.h"

#include <vector>

#include "base/TextHelpers.h"

namespace DL {

bool TCacheOfTariffPlansWithCommRates::SplitSectionName(const std::string& name, std::string& plan,
                                                        std::string& group) {
  const std::string nameUp = StrUpper(name);
  const std::string& tp = TIniParser::GetPartIniSectCodeUp(TIniParser::pscTp);
  const std::string& bd = TIniParser::GetPartIniSectCodeUp(TIniParser::psc_bd);
  const std::string& ending = TIniParser::GetPartIniSectCodeUp(TIniParser::psc_CommissionScale);
  if (!nameUp.starts_with(tp) || !nameUp.ends_with(ending)) return false;
  // The plan has at least one byte: the first "_BD" after it.
  const std::size_t bdPos = nameUp.find(bd, tp.size() + 1);
  if (bdPos == std::string::npos) return false;
  const std::size_t groupBegin = bdPos + bd.size();
  if (groupBegin + ending.size() >= nameUp.size()) return false;
  plan = nameUp.substr(tp.size(), bdPos - tp.size());
  group = nameUp.substr(groupBegin, nameUp.size() - ending.size() - groupBegin);
  return !plan.empty() && !group.empty();
}

bool TCacheOfTariffPlansWithCommRates::ParseSection(const std::string& name, const TIniKeyMap& keys) {
  std::string plan, group;
  if (!SplitSectionName(name, plan, group)) return false;
  TPlanScale entry;
  entry.section = name;
  entry.plan = plan;
  entry.group = group;
  TScaleCommExParams limits;
  std::vector<TScaleRow> rows;
  for (const auto& [key, value] : keys) {
    const std::string keyUp = StrUpper(key);
    if (keyUp == TIniParser::GetIniParamCodeUp(TIniParser::ipcMaxValue))
      limits.maxValue = StrToDouble(value.c_str());
    else if (keyUp == TIniParser::GetIniParamCodeUp(TIniParser::ipcMinValue))
      limits.minValue = StrToDouble(value.c_str());
    else if (keyUp == TIniParser::GetIniParamCodeUp(TIniParser::ipcMinVolume))
      limits.minVolume = StrToDouble(value.c_str());
    else if (keyUp == TIniParser::GetIniParamCodeUp(TIniParser::ipcConsiderRepoTerm))
      entry.scale.considerRepoTerm = value == "1";
    else if (keyUp == TIniParser::GetIniParamCodeUp(TIniParser::ipcTradeCommission))
      entry.scale.tradeCommission = StrToDouble(value.c_str()) * 100.0;
    else
      rows.push_back({StrToDouble(key.c_str()), StrToDouble(value.c_str())});
  }
  entry.scale.SetMinMaxTurnover(limits);
  entry.scale.SetScaleRates(rows);
  m_scales[{plan, group}] = std::move(entry);
  return true;
}

const TCommScale* TCacheOfTariffPlansWithCommRates::GetScale(const std::string& plan, const std::string& group) const {
  const auto it = m_scales.find({StrUpper(plan), StrUpper(group)});
  return it == m_scales.end() ? nullptr : &it->second.scale;
}

TCommScale* TCacheOfTariffPlansWithCommRates::GetScale(const std::string& plan, const std::string& group) {
  const auto it = m_scales.find({StrUpper(plan), StrUpper(group)});
  return it == m_scales.end() ? nullptr : &it->second.scale;
}

}  // namespace DL
