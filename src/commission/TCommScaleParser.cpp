#include "commission/TCommScaleParser.h"

#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/Numbers.h"

namespace DL {
namespace {

const std::string& PartUp(TIniParser::EPartIniSectCodeNum code) { return TIniParser::GetPartIniSectCodeUp(code); }
const std::string& ParamUp(TIniParser::EIniParamCodeNum code) { return TIniParser::GetIniParamCodeUp(code); }
double ToDouble(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

}  // namespace

std::unique_ptr<TCommScale> TCommScaleParser::CommScaleFromSection(const std::string& section) const {
  const TIniParser::TKeyMap keys = m_parser.GetIniSection(section);
  if (keys.empty()) return nullptr;
  auto scale = std::make_unique<TCommScale>();
  for (const auto& [key, value] : keys) {
    const std::string keyUp = StrUpper(key);
    if (keyUp == ParamUp(TIniParser::ipcMinValue))
      scale->minValue = ToDouble(value) * 100;
    else if (keyUp == ParamUp(TIniParser::ipcMaxValue))
      scale->maxValue = ToDouble(value) * 100;
    else if (keyUp == ParamUp(TIniParser::ipcMinVolume))
      scale->minVolume = ToDouble(value) * 100;
    else if (keyUp == ParamUp(TIniParser::ipcTradeCommission))
      scale->tradeCommission = ToDouble(value) * 100;
    else if (keyUp == ParamUp(TIniParser::ipcConsiderRepoTerm))
      scale->considerRepoTerm = value == "1";
    else if (keyUp == ParamUp(TIniParser::ipcClients))
      continue;
    else
      scale->SetScaleRate(ToDouble(key) * 100, ToDouble(value));
  }
  return scale;
}

std::unique_ptr<TCommScale> TCommScaleParser::PersonalCommScale(const std::string& client) const {
  return CommScaleFromSection(PartUp(TIniParser::pscCl) + client + PartUp(TIniParser::psc_CommissionScale));
}

std::unique_ptr<TCommScale> TCommScaleParser::GlobalCommScale() const {
  return CommScaleFromSection(TIniParser::GetIniSectCodeUp(iscCommissionScale));
}

std::unique_ptr<TCommScale> TCommScaleParser::PrefixCommScale(const std::string& client, int searchMode) const {
  const std::string& cl = PartUp(TIniParser::pscCl);
  const std::string ending = "*" + PartUp(TIniParser::psc_CommissionScale);
  if (searchMode == 3) {
    for (const std::string& nameUp : m_parser.GetIniSectionNames())
      if (nameUp.size() >= cl.size() + ending.size() && nameUp.starts_with(cl) && nameUp.ends_with(ending))
        return CommScaleFromSection(nameUp);
    return nullptr;
  }
  const std::size_t n = client.size();
  for (std::size_t step = 0; step <= n; ++step) {
    const std::size_t len = searchMode == 2 ? step : n - step;
    const std::string found = m_parser.DoesSectionExist(cl + client.substr(0, len) + ending, "");
    if (!found.empty()) return CommScaleFromSection(found);
  }
  return nullptr;
}

std::unique_ptr<TCommScale> TCommScaleParser::TemplateCommScale(const std::string& client, double leverage) const {
  const std::string& cl = PartUp(TIniParser::pscCl);
  const std::string& ending = PartUp(TIniParser::psc_CommissionScale_Template);
  if (leverage > -1e-7) {
    const auto& byLeverage = m_parser.GetClientTemplateWithLeverageSettings();
    const auto it = byLeverage.find(static_cast<std::int32_t>(GetScaledLeverage(leverage)));
    if (it != byLeverage.end())
      if (auto scale = CommScaleFromSection(StrUpper(cl + it->second->first + ending))) return scale;
  }
  const std::string clientFramed = "," + TrimStr(client) + ",";
  for (const std::string& nameUp : m_parser.GetIniSectionNames()) {
    if (nameUp.size() < cl.size() + ending.size() || !nameUp.starts_with(cl) || !nameUp.ends_with(ending)) continue;
    const std::string clients =
        "," + TrimStr(m_parser.GetIniParamString(nameUp, TIniParser::ipcClients, TIniParser::EmptyString())) + ",";
    if (clients.find(clientFramed) != std::string::npos) return CommScaleFromSection(nameUp);
  }
  return nullptr;
}

}  // namespace DL
