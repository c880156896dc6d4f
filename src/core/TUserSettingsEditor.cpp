#include "core/TUserSettingsEditor.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <set>

#include "base/ResultCodes.h"

namespace DL {

namespace {

constexpr const char* kUserPrefix = "u";

// The user number of a section named "u" and a whole decimal number (a sign
// allowed), as the load reads it; false for any other name.
bool UserOfSection(const std::string& name, int* user) {
  if (name.size() <= 1 || std::toupper(static_cast<unsigned char>(name[0])) != 'U') return false;
  const char* digits = name.c_str() + 1;
  if (*digits != '-' && (*digits < '0' || *digits > '9')) return false;
  char* end = nullptr;
  errno = 0;
  const long number = std::strtol(digits, &end, 10);
  if (end == digits || *end != '\0' || errno != 0) return false;
  *user = static_cast<int>(number);
  return true;
}

}  // namespace

std::string TUserSettingsEditor::SectionName(int userId) { return kUserPrefix + std::to_string(userId); }

int TUserSettingsEditor::RemoveUserSettings(int userId) {
  if (userId < -1) return ZDL_BAD_ARGUMENT;
  TIniParser* parser = m_hub.GetOldParserPointer();
  const std::string name = SectionName(userId);
  if (parser->FindIniSectionRef(name) == nullptr) return ZDL_USER_SETTINGS_NOT_EXIST;
  parser->RemoveIniSection(name);
  return ZDL_OK;
}

int TUserSettingsEditor::GetListOfUserSettings(ZDL_ArrayIntNumbers** users) const {
  if (users == nullptr) return ZDL_BAD_ARGUMENT;
  std::set<int> numbers;
  for (const auto& [name, keys] : m_hub.GetOldParserPointer()->GetSections()) {
    int user = 0;
    if (UserOfSection(name, &user)) numbers.insert(user);
  }
  ZDL_ArrayIntNumbers* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayIntNumbers>(numbers.size());
  size_t i = 0;
  for (int user : numbers) array->items[i++] = user;
  *users = array;
  return ZDL_OK;
}

}  // namespace DL
