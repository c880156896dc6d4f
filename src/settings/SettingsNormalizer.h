#pragma once
// Rewrites a settings text into canonical order, so that two files with the
// same settings are the same text and a change shows up as a small difference.
//
// The text is read into a list of sections, each a list of key and value
// pairs, in file order. Normalize() sorts the sections, and the parameters of
// each section, by the fixed rules of SettingsNormalizerRules.def; WriteTo()
// and Save() write the result. The normalizer knows no meaning of the
// settings, only names and patterns.
//
// Typical use, as the settings save does it:
//   SettingsNormalizer n;
//   n.ReadFrom(text);
//   n.Normalize();
//   n.WriteTo(text);
#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "settings/NamePattern.h"
#include "settings/SettingsListReader.h"
#include "settings/SettingRules.h"

namespace DL {

class SettingsNormalizer {
 public:
  // Compiles the ordering rules; they serve every later Normalize() of this
  // object.
  SettingsNormalizer();

  // Appends the sections of a file (read whole; the comment character is ";").
  // False, with nothing read, when the file cannot be opened.
  [[nodiscard]] bool Load(const std::string& path);
  // Appends the sections of a settings text (comment character ";"). The
  // normalizer keeps its own copy of the text; the sections point into it.
  void ReadFrom(std::string_view text);

  // Reads a settings text into list, appending its sections in file order.
  // Lines follow the settings dialect: a line is cut at the first separator
  // byte (the comment character) and trimmed of white space; "[name]" opens a
  // section, which comes into the list with its first "key=value" line (so a
  // header without such a line leaves nothing); a header without a closing
  // "]" or with an empty name is skipped, as are lines before the first
  // header, lines without "=" and lines that begin with "=". Key and value are
  // trimmed. Unlike the settings reader that builds the section maps, nothing
  // is merged: a repeated header or key stays where it stands, and every
  // section keeps its place, so that nothing is lost and ties keep file
  // order. A null list does nothing.
  //
  // The list points into the text read (SettingsListReader.h): the text
  // must outlive it. From a stream, the whole stream is read into *text
  // first (replacing what it held), and the list points there.
  static void ParseSettingsList(std::istream& in, char separator, SettingsSectionList* list, std::string* text);
  static void ParseSettingsList(std::string_view text, char separator, SettingsSectionList* list);

  // Sorts the sections, then the parameters of each section, stably, by the
  // rules. The parameters of a section are sorted first, then the sections.
  // Each sort moves its items only once their order is known, so an
  // exception (an allocation failure is the only one possible) loses no
  // section or parameter; sections already sorted stay sorted.
  void Normalize();

  // Replaces out with the text of the sections: "[name]\r\n", then
  // "key=value\r\n" for each parameter, then "\r\n" after each section. No
  // sections give the empty text.
  void WriteTo(std::string& out) const;
  // Writes the same text to a file. False when the file cannot be opened or
  // the writing fails (the state of the output stream).
  [[nodiscard]] bool Save(const std::string& path) const;

  size_t GetSectionCount() const { return m_sections.size(); }
  const SettingsSectionList& GetSections() const { return m_sections; }
  void ClearSettings() {
    m_sections.clear();
    m_texts.clear();
  }

 private:
  void setPriorities();

  SettingsSectionList m_sections;  // points into m_texts
  // Every text read since the last clearing. Shared and never changed, so
  // that a copy of the normalizer points into the same texts safely.
  std::vector<std::shared_ptr<const std::string>> m_texts;
  SettingRules m_priorities;                  // section rules, in rank order
  std::vector<SettingRules> m_parameterRules;  // parameter lists, named by SettingPriority::children

  // Families whose members with an equal rank are ordered by a number in
  // their names.
  NamePattern m_userPattern;       // "u12": the digits after the first byte
  NamePattern m_preTradePattern;   // "PreTrade_12": the digits after the first "_"
  NamePattern m_limitKindPattern;  // margin sections of a limit kind: the digits after the last "_"
};

}  // namespace DL
