#include "commission/TCacheOfCommScales.h"

#include "base/TextHelpers.h"

namespace DL {

namespace {

const std::string& PartUp(TIniParser::EPartIniSectCodeNum code) { return TIniParser::GetPartIniSectCodeUp(code); }

}  // namespace

TCacheOfCommScales::TCacheOfCommScales(TIniParser& parser, const IFirmSettings* firm)
    : AIniSettingCacheMaster<TCommScale>(parser, firm), m_scaleParser(parser) {
  ParseGlobalSettings();
}

void TCacheOfCommScales::ParseGlobalSettings() {
  std::unique_ptr<TCommScale> global = m_scaleParser.GlobalCommScale();
  SetGlobalSettings(global ? std::move(global) : std::make_unique<TCommScale>());
}

// "BD" board "_COMMISSIONSCALE", upper case; a name that begins with "TP" is
// a plan's scale and stays out.
void TCacheOfCommScales::HashBoardScales() {
  m_boardScales.clear();
  const std::string& bd = PartUp(TIniParser::pscBd);
  const std::string& ending = PartUp(TIniParser::psc_CommissionScale);
  for (const std::string& nameUp : Parser().GetIniSectionNames()) {
    if (nameUp.size() <= bd.size() + ending.size() || !nameUp.starts_with(bd) || !nameUp.ends_with(ending)) continue;
    const std::string board = nameUp.substr(bd.size(), nameUp.size() - bd.size() - ending.size());
    if (auto scale = m_scaleParser.CommScaleFromSection(nameUp)) m_boardScales[board] = std::move(scale);
  }
}

const TCommScale* TCacheOfCommScales::BoardScale(const std::string& board) const {
  const auto it = m_boardScales.find(StrUpper(board));
  return it == m_boardScales.end() ? nullptr : it->second.get();
}

TCommScale* TCacheOfCommScales::Keep(std::unique_ptr<TCommScale> scale) const {
  if (!scale) return nullptr;
  m_owned.push_back(std::move(scale));
  return m_owned.back().get();
}

TCacheOfCommScales::TParseResult TCacheOfCommScales::ParseSettingsForClient(const TIniCacheItemID& id) const {
  const TIniCacheItemKey key = id.ItemID();
  if (const auto hit = m_memo.find(key); hit != m_memo.end()) return {hit->second.scale, hit->second.source};
  TResolved r;
  const std::string& client = id.ClientCode();
  const std::string plan = StrUpper(id.TemplateName());
  const std::string group = StrUpper(id.BoardName());
  if (TCommScale* s = Keep(m_scaleParser.PersonalCommScale(client))) {
    r = {s, SourceClient};
  } else if (!plan.empty() && !group.empty() &&
             Parser().IsSectionExist(Parser().GetTPScaleSectionName(plan, group))) {
    const std::string name = Parser().GetTPScaleSectionName(plan, group);
    auto it = m_planScales.find(name);
    if (it == m_planScales.end()) it = m_planScales.emplace(name, m_scaleParser.CommScaleFromSection(name)).first;
    if (it->second) r = {it->second.get(), SourceTemplate};
  }
  if (r.scale == nullptr) {
    if (TCommScale* s = Keep(m_scaleParser.TemplateCommScale(client, id.Leverage())))
      r = {s, SourceTemplate};
    else if (TCommScale* p = Keep(m_scaleParser.PrefixCommScale(client, 1)))
      r = {p, SourceClient};
    else if (!group.empty())
      if (const auto b = m_boardScales.find(group); b != m_boardScales.end()) r = {b->second.get(), SourceTemplate};
  }
  m_memo.emplace(key, r);
  return {r.scale, r.source};
}

}  // namespace DL
