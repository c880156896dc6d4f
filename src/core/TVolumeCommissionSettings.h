#pragma once
// The hub's component for the volume-based commission sections: one store for
// the firm ("VolumeBasedCommission_<any>"), one per client template
// ("cl<template>_Client_Template_VolumeBasedCommission_<any>") and one per
// client ("cl<client>_VolumeBasedCommission_<any>"), names compared without
// regard to case. It owns their parsing (load step 20), their part of the save
// (steps 3, 4 and 6) and the lookup of a client's table.
#include <map>
#include <string>
#include <vector>

#include "commission/TVolumeBasedCommission.h"
#include "core/HubGlobalSectionTypes.h"
#include "core/TWrittenSections.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"

namespace DL {

// One volume-based commission section as read: its name as written, the
// table it holds, and the lines the table does not read, written back as
// they stand.
struct TVolumeBasedCommissionSection {
  std::string section;
  TVolumeBasedCommission commission;
  TRawLines raw;
  bool operator==(const TVolumeBasedCommissionSection&) const = default;
};

class TVolumeCommissionSettings {
 public:
  using TSections = std::vector<TVolumeBasedCommissionSection>;  // in section name order
  using TByOwner = std::map<std::string, TSections, StringMapComparerFunc>;

  // Load step 20 (after the commission settings by currency).
  void Parse(const TIniParser& parser);

  const TSections& Global() const { return m_global; }
  // By template name.
  const TByOwner& Templates() const { return m_templates; }
  // Forgets a removed client template's tables.
  void EraseTemplate(const std::string& templ) { m_templates.erase(templ); }
  // By client code.
  const TByOwner& Clients() const { return m_clients; }

  // The table that holds for the client and class: the client's own
  // sections, then those of the client's template (as `logic` finds it), then
  // the firm's; in each, the first section naming the class, else the first
  // standing for all classes. Null when none does.
  const TVolumeBasedCommission* Find(const char* client, const char* classCode, const TIniLogicParser& logic) const;

  // Save: step 3 writes the clients' sections, step 4 the templates', step 6
  // the firm's; each section written is entered in `written` so that the
  // final raw copy leaves it alone.
  void AppendRows(const TIniParser& parser, std::string& text, TWrittenSections& written, int step) const;
  // One section from its store; the header is written even for an empty one.
  static void SectionToStr(std::string& out, const TVolumeBasedCommissionSection& s);

 private:
  TSections m_global;
  TByOwner m_templates;
  TByOwner m_clients;
};

}  // namespace DL
