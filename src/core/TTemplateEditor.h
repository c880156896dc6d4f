#pragma once
// Reads of the templates that group clients, and of the library's whole
// text, for remote commands. Built over the hub for one call; it keeps no
// state of its own.
#include <string>
#include <vector>

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

  // The leverages a template claims ("IncludeClientsWithLeverage", a comma
  // list), in list order, as the load reads them: an item that is not a
  // number at or above zero is left out. An array of the firm's memory
  // (*leverages), empty when the template has no such list; 3 for a null or
  // empty code or a null out, 15 when the template does not exist.
  [[nodiscard]] int GetIncludeClientsWithLeverageFromClientTemplate(const char* templateCode,
                                                                    ZDL_ArrayDoubleNumbers** leverages) const;
  [[nodiscard]] int GetIncludeClientsWithLeverageFromMarginTemplate(const char* templateCode,
                                                                    ZDL_ArrayDoubleNumbers** leverages) const;

  // The codes of the templates of one kind, in the order of the section map
  // (upper-case order); a margin template's limit-kind sections are not
  // templates of their own. In an array of the firm's memory (*codes); 3 for
  // a null out.
  [[nodiscard]] int GetListOfClientTemplates(ZDL_ArrayStrings** codes) const;
  [[nodiscard]] int GetListOfMarginTemplates(ZDL_ArrayStrings** codes) const;
  [[nodiscard]] int GetListOfBaseAssetsTemplates(ZDL_ArrayStrings** codes) const;

  // Restriction templates, held by the restrictions cache with their
  // sections: the client list and the leverages of one (as above), the codes
  // of all, and a new one (3, 21, 16 as for the other kinds).
  [[nodiscard]] int GetClientsListOfRestrictionTemplate(const char* templateCode, ZDL_ArrayStrings** clients) const;
  [[nodiscard]] int GetIncludeClientsWithLeverageFromRestrictionTemplate(const char* templateCode,
                                                                         ZDL_ArrayDoubleNumbers** leverages) const;
  [[nodiscard]] int GetListOfRestrictionTemplates(ZDL_ArrayStrings** codes) const;
  [[nodiscard]] int AddRestrictionTemplate(const char* templateCode);

  // The codes of the clients that have a settings section of their own
  // ("cl" and the code), in the order of the section map; 3 for a null out.
  [[nodiscard]] int GetListOfClientSettings(ZDL_ArrayStrings** clients) const;

  // A new template of that kind with an empty "Clients" list: 3 for a null
  // or empty code, 21 for a code longer than 12 characters, 16 when the
  // template exists.
  [[nodiscard]] int AddClientTemplate(const char* templateCode);
  [[nodiscard]] int AddMarginTemplate(const char* templateCode);
  [[nodiscard]] int AddBaseAssetsTemplate(const char* templateCode);

  // The longest template code.
  static constexpr size_t kMaxTemplateCodeLength = 12;

  // The section names of the templates.
  static std::string ClientTemplateSection(const std::string& code);
  static std::string MarginTemplateSection(const std::string& code);
  static std::string BaseAssetsTemplateSection(const std::string& code);

  // The client template whose "Clients" list holds the client, read from
  // the sections as they stand: 3 for a null or empty client or a null out,
  // 10 for a client code longer than 12, 4 when no template lists it.
  [[nodiscard]] int GetClientTemplateNameByClientCode(const char* clientCode, char** templateCode) const;
  // The client template whose "IncludeClientsWithLeverage" names the
  // leverage (compared in hundredths): 3 for a negative leverage or a null
  // out, 4 when no template claims it.
  [[nodiscard]] int GetClientTemplateNameByLeverage(double leverage, char** templateCode) const;

 private:
  // The code of the first client template whose section passes `match`.
  template <class Match>
  int FindClientTemplate(Match match, char** templateCode) const;
  [[nodiscard]] int ClientsOfSection(const char* templateCode, std::string (*section)(const std::string&),
                                     ZDL_ArrayStrings** clients) const;

  [[nodiscard]] int CodesOfSections(const std::string& prefix, const std::string& suffix,
                                    ZDL_ArrayStrings** codes) const;
  // The keys of a restriction template's section; null when the cache does
  // not hold the template.
  const TIniParser::TKeyMap* RestrictionTemplateKeys(const std::string& code) const;
  [[nodiscard]] int LeveragesOfKeys(const TIniParser::TKeyMap& keys, ZDL_ArrayDoubleNumbers** leverages) const;
  [[nodiscard]] int ClientsOfKeys(const TIniParser::TKeyMap& keys, ZDL_ArrayStrings** clients) const;
  [[nodiscard]] int LeveragesOfSection(const char* templateCode, std::string (*section)(const std::string&),
                                       ZDL_ArrayDoubleNumbers** leverages) const;
  [[nodiscard]] int AddTemplate(const char* templateCode, std::string (*section)(const std::string&));

  TStorageHub& m_hub;
};

}  // namespace DL
