#pragma once
// Reads a settings text into a list of sections in file order, each a list of
// key and value pairs, merging nothing: the raw material of the normalizer.
//
// The list holds views into the text it was read from: whoever reads keeps
// the text alive and unchanged as long as the list is used. Nothing is
// copied, so reading, sorting and freeing a large text cost little.
#include <string_view>
#include <utility>
#include <vector>

namespace DL {

using SettingsParameter = std::pair<std::string_view, std::string_view>;     // key, value
using SettingsParameterList = std::vector<SettingsParameter>;                // in order
using SettingsSection = std::pair<std::string_view, SettingsParameterList>;  // name, parameters
using SettingsSectionList = std::vector<SettingsSection>;                    // in order

class SettingsListReader {
 public:
  // Appends the sections of text to list. Lines end at "\n"; a last line
  // without one counts. The dialect is the one SettingsNormalizer documents
  // for ParseSettingsList.
  //
  // The key lines of a section are gathered and stored together once the
  // section is complete, so that each parameter list is allocated once, at
  // its final size.
  static void Read(std::string_view text, char separator, SettingsSectionList* list);

 private:
  SettingsListReader(char separator, SettingsSectionList* list) : m_separator(separator), m_list(list) {}

  void Line(std::string_view line);
  // Stores the gathered key lines into the current section, m_list->back().
  void Flush();

  char m_separator;
  SettingsSectionList* m_list;
  std::string_view m_pending;  // name of the last header, until its first key line
  bool m_hasPending = false;
  bool m_hasCurrent = false;   // key lines go to m_list->back()
  SettingsParameterList m_lines;  // key lines of the current section not yet stored
};

}  // namespace DL
