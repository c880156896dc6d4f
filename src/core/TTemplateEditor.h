#pragma once
// Reads of the templates that group clients, and of the library's whole
// text, for remote commands. Built over the hub for one call; it keeps no
// state of its own.
#include <string>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

class TTemplateEditor {
 public:
  explicit TTemplateEditor(TStorageHub& hub) : m_hub(hub) {}

  // The library's whole canonical text, as "DLUpdateFile" would save it, in
  // a block of the firm's memory (*out). 0, or 3 for a null out.
  [[nodiscard]] int GetFullDealerLibrarySettings(char** out) const;

  // The clients of a template, in the order of its "Clients" list, in an
  // array of the firm's memory (*clients). 3 for a null or empty code or a
  // null out, 15 when the template's section does not exist.
  [[nodiscard]] int GetClientsListOfClientTemplate(const char* templateCode, ZDL_ArrayStrings** clients) const;
  [[nodiscard]] int GetClientsListOfMarginTemplate(const char* templateCode, ZDL_ArrayStrings** clients) const;
  [[nodiscard]] int GetClientsListFromBaseAssetsTemplate(const char* templateCode,
                                                         ZDL_ArrayStrings** clients) const;

  // The section names of the templates.
  static std::string ClientTemplateSection(const std::string& code);
  static std::string MarginTemplateSection(const std::string& code);
  static std::string BaseAssetsTemplateSection(const std::string& code);

 private:
  [[nodiscard]] int ClientsOfSection(const char* templateCode, std::string (*section)(const std::string&),
                                     ZDL_ArrayStrings** clients) const;

  TStorageHub& m_hub;
};

}  // namespace DL
