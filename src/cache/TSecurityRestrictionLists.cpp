#include "cache/TSecurityRestrictionLists.h"

#include "ini/TIniParser.h"

namespace DL {

void TSecurityRestrictionLists::AddClassLine(const std::string& classCode, std::string_view securities) {
  TRowListWithAll list;
  list.FillFromStr(securities);
  if (list.Empty()) return;
  const std::string& all = TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL);
  if (classCode != all) {
    byClass[classCode] = list;
    return;
  }
  if (list.IsAll()) {
    restrictAll = true;
    return;
  }
  TRowListWithAll everyClass;
  everyClass.FillFromStr(all);
  for (const std::string& sec : list.Items()) bySecurity[sec] = everyClass;
}

bool TSecurityRestrictionLists::Test(const TCodeToList& classList, const TCodeToList& securityList,
                                     std::string_view classCode, std::string_view secCode) {
  if (const auto it = securityList.find(secCode); it != securityList.end())
    if (it->second.IsAll() || it->second.Contains(classCode)) return true;
  if (const auto it = classList.find(classCode); it != classList.end())
    if (it->second.IsAll() || it->second.Contains(secCode)) return true;
  return false;
}

}  // namespace DL
