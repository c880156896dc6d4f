#pragma once
// The boards that share one commission scale. A tariff plan may list, in its
// section "CommissionScaleBoards_<plan>", the boards of each board group
// ("<group>=<board>,<board>,...") and the boards it does not serve
// ("PROHIBITED_BOARDS=..."). The boards of a group under a plan are its
// listed boards less the prohibited ones; a group the plan does not list is
// a board of its own.
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ini/TIniParser.h"

namespace DL {

struct TScaleBoards {
  std::vector<std::string> boards;  // upper case, in list order, without duplicates
  bool fromPlan = false;            // the plan's section gave the list
};

class TCacheOfCommScalesBoards {
 public:
  explicit TCacheOfCommScalesBoards(TIniParser& parser) : m_parser(parser) {}

  // The boards of a group under a plan (either may be empty); parsed on the
  // first query and kept.
  const TScaleBoards& GetIniSetting(const std::string& plan, const std::string& group) const;

  static constexpr const char* kProhibitedBoardsKey = "PROHIBITED_BOARDS";

 private:
  TIniParser& m_parser;
  mutable std::map<std::pair<std::string, std::string>, TScaleBoards> m_items;  // (plan, group), upper case
};

}  // namespace DL
