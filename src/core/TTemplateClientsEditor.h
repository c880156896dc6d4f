#pragma once
// The clients of templates, and templates removed, for remote commands.
// Built over the hub for one call; it keeps no state of its own.
//
// A template keeps its clients in the parameter "Clients", a comma list
// repeated in each of its limit-kind sections. A client stands in at most one
// template of a kind; kinds are independent. The edits change that list in
// the section map, its home: effective queries see them after the next load,
// as the list's memo of the load is kept as it stands.
#include <set>
#include <string>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

class TTemplateClientsEditor {
 public:
  explicit TTemplateClientsEditor(TStorageHub& hub) : m_hub(hub) {}

  // The bodies by template kind (TIniParser::ETemplateType; any other value
  // gives 15).
  // Adds the client: 3 for a null or empty code, 10 for a client longer than
  // 12 characters; a missing client, margin or restriction template is
  // created, a missing commission scale template gives 15; 16 when the client
  // stands in this or another template of the kind. For a client template
  // the commission scale template of the same code gets the same list.
  [[nodiscard]] int AddItemToTemplateClients(int kind, const char* templateCode, const char* clientCode);
  // Removes the client: as above, 15 for a missing template, 4 when the
  // client is not in its list.
  [[nodiscard]] int RemoveItemFromTemplateClients(int kind, const char* templateCode, const char* clientCode);
  // Replaces the list after the tests of an add for every client (a null
  // array empties it).
  [[nodiscard]] int SetItemsToTemplateClients(int kind, const char* templateCode, const ZDL_ArrayStrings* clients);
  // Removes from the source (which must exist: 15) and, only if that took,
  // adds to the target. A failed add leaves the client in neither.
  [[nodiscard]] int MoveItemBetweenTemplatesClients(int kind, const char* fromTemplate, const char* toTemplate,
                                                    const char* clientCode);

  [[nodiscard]] int AddClientToClientTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int RemoveClientFromClientTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int SetClientsListOfClientTemplate(const char* templateCode, const ZDL_ArrayStrings* clients);
  [[nodiscard]] int MoveClientBetweenClientTemplates(const char* fromTemplate, const char* toTemplate,
                                                     const char* clientCode);
  [[nodiscard]] int AddClientToMarginTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int RemoveClientFromMarginTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int SetClientsListOfMarginTemplate(const char* templateCode, const ZDL_ArrayStrings* clients);
  [[nodiscard]] int MoveClientBetweenMarginTemplates(const char* fromTemplate, const char* toTemplate,
                                                     const char* clientCode);
  [[nodiscard]] int AddClientToRestrictionTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int RemoveClientFromRestrictionTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int SetClientsListOfRestrictionTemplate(const char* templateCode, const ZDL_ArrayStrings* clients);
  [[nodiscard]] int MoveClientBetweenRestrictionTemplates(const char* fromTemplate, const char* toTemplate,
                                                          const char* clientCode);

  // Base-assets templates ("BaseAssets_Template_" and the code) have no
  // limit kinds and no twin; otherwise the same rules.
  [[nodiscard]] int AddClientToBaseAssetsTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int RemoveClientFromBaseAssetsTemplate(const char* templateCode, const char* clientCode);
  [[nodiscard]] int SetClientsListOfBaseAssetsTemplate(const char* templateCode, const ZDL_ArrayStrings* clients);
  [[nodiscard]] int MoveClientBetweenBaseAssetsTemplates(const char* fromTemplate, const char* toTemplate,
                                                         const char* clientCode);

  // The leverages a template claims ("IncludeClientsWithLeverage"), replaced
  // by the array's values in its order without repeats (a null array empties
  // the list), in the template's section and its limit kinds: 3 for a null
  // or empty code or a leverage below zero, above 999999999 or not a number,
  // 15 for a missing template, 16 for a leverage another template of the
  // kind claims. Nothing is written unless every value passes.
  [[nodiscard]] int SetIncludeClientsWithLeverageToClientTemplate(const char* templateCode,
                                                                  const ZDL_ArrayDoubleNumbers* leverages);
  [[nodiscard]] int SetIncludeClientsWithLeverageToMarginTemplate(const char* templateCode,
                                                                  const ZDL_ArrayDoubleNumbers* leverages);
  [[nodiscard]] int SetIncludeClientsWithLeverageToRestrictionTemplate(const char* templateCode,
                                                                       const ZDL_ArrayDoubleNumbers* leverages);

  // A template removed with its limit-kind sections: 3 for a null or empty
  // code, 21 for one longer than 12 characters, 15 when it does not exist.
  // A client template also loses its parsed security restrictions, its
  // volume-based commission and its commission scale template.
  [[nodiscard]] int RemoveClientTemplate(const char* templateCode);
  [[nodiscard]] int RemoveMarginTemplate(const char* templateCode);
  [[nodiscard]] int RemoveBaseAssetsTemplate(const char* templateCode);
  // A restriction template removed from the restrictions cache with its
  // section: 3 for a null or empty code, 4 when it does not exist.
  [[nodiscard]] int RemoveRestrictionTemplate(const char* templateCode);

  // The section of the template; empty for an unknown kind.
  static std::string TemplateSection(int kind, const std::string& code);

 private:
  // The base-assets templates, beside the kinds of TIniParser::ETemplateType.
  static constexpr int kBaseAssets = 100;

  static bool IsKnownKind(int kind);
  // The clients in the lists of the templates of the kind other than `own`,
  // gathered in one walk of the sections.
  std::set<std::string> ClientsOfOtherTemplates(int kind, const std::string& own) const;
  // The template's clients: its list split at "," without the entries
  // longer than 12 characters.
  std::set<std::string> ClientsOf(const std::string& section) const;
  // Creates the missing template where its kind allows it: 0, or 15.
  [[nodiscard]] int CreateTemplate(int kind, const std::string& code);
  // Writes the list to the template's sections (and the twin of a client
  // template).
  [[nodiscard]] int WriteClients(int kind, const std::string& code, const std::set<std::string>& clients);
  [[nodiscard]] int RemoveTemplate(const char* templateCode, int kind);
  [[nodiscard]] int SetLeverages(int kind, const char* templateCode, const ZDL_ArrayDoubleNumbers* leverages);
  // A scaled leverage claimed by a template of the kind other than `own`.
  bool LeverageOfOtherTemplate(int kind, const std::string& own, int64_t scaled) const;

  TStorageHub& m_hub;
};

}  // namespace DL
