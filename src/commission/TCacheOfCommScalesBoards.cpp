#include "commission/TCacheOfCommScalesBoards.h"

#include <algorithm>
#include <set>

#include "base/TextHelpers.h"

namespace DL {

namespace {

std::vector<std::string> UpperList(const std::string& text) {
  std::vector<std::string> out;
  for (std::string& item : BoardListToVectorWithoutDuplicates(StrUpper(text), ',')) {
    Trim(item);
    if (!item.empty() && std::find(out.begin(), out.end(), item) == out.end()) out.push_back(std::move(item));
  }
  return out;
}

}  // namespace

const TScaleBoards& TCacheOfCommScalesBoards::GetIniSetting(const std::string& plan, const std::string& group) const {
  std::pair<std::string, std::string> key{StrUpper(plan), StrUpper(group)};
  if (const auto hit = m_items.find(key); hit != m_items.end()) return hit->second;
  TScaleBoards result;
  const TIniKeyMap* keys = plan.empty() ? nullptr
                                        : m_parser.FindIniSectionRef(
                                              TIniParser::GetPartIniSectCode(TIniParser::pscCommissionScaleBoards_) + plan);
  const std::string* listed = nullptr;
  if (keys != nullptr)
    if (const auto it = keys->find(key.second); it != keys->end()) listed = &it->second;
  if (listed != nullptr) {
    result.fromPlan = true;
    const std::vector<std::string> prohibitedList =
        UpperList(m_parser.GetIniParamString(*keys, std::string(kProhibitedBoardsKey), TIniParser::EmptyString()));
    const std::set<std::string> prohibited(prohibitedList.begin(), prohibitedList.end());
    for (std::string& board : UpperList(*listed))
      if (prohibited.count(board) == 0) result.boards.push_back(std::move(board));
  } else if (!key.second.empty()) {
    result.boards.push_back(key.second);
  }
  return m_items.emplace(std::move(key), std::move(result)).first->second;
}

}  // namespace DL
