#include "settings/SettingsListReader.h"

namespace DL {

namespace {

// White space as std::isspace knows it in the "C" locale, which the library
// never changes: tested inline, as the reader tests several bytes a line.
bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view Trim(std::string_view s) {
  while (!s.empty() && IsSpace(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsSpace(s.back())) s.remove_suffix(1);
  return s;
}

}  // namespace

void SettingsListReader::Read(std::string_view text, char separator, SettingsSectionList* list) {
  SettingsListReader reader(separator, list);
  while (!text.empty()) {
    const size_t end = text.find('\n');
    if (end == std::string_view::npos) {
      reader.Line(text);  // a last line without a line end counts
      break;
    }
    reader.Line(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  reader.Flush();
}

void SettingsListReader::Line(std::string_view line) {
  if (const size_t cut = line.find(m_separator); cut != std::string_view::npos) line = line.substr(0, cut);
  line = Trim(line);
  if (line.empty()) return;

  if (line.front() == '[') {
    const size_t close = line.find(']', 1);
    if (close == std::string_view::npos || close == 1) return;  // the section before goes on
    m_pending = line.substr(1, close - 1);                      // untrimmed; what follows "]" is ignored
    m_hasPending = true;
    return;
  }
  if (!m_hasCurrent && !m_hasPending) return;  // text before the first header

  const size_t eq = line.find('=');
  if (eq == std::string_view::npos || eq == 0) return;

  if (m_hasPending) {
    // The section comes into being with its first key line.
    Flush();
    m_list->emplace_back(m_pending, SettingsParameterList{});
    m_hasPending = false;
    m_hasCurrent = true;
  }
  m_lines.emplace_back(Trim(line.substr(0, eq)), Trim(line.substr(eq + 1)));
}

void SettingsListReader::Flush() {
  if (m_lines.empty()) return;
  SettingsParameterList& parameters = m_list->back().second;
  parameters.reserve(parameters.size() + m_lines.size());
  parameters.insert(parameters.end(), m_lines.begin(), m_lines.end());
  m_lines.clear();
}

}  // namespace DL
