#pragma once
// The parsed, ready-to-answer form of one firm's settings. The whole load runs
// in the constructor; afterwards the firm answers without reading the source
// again. Per-client settings are parsed later, on first use.
#include <string>

#include "api/TMemory.h"
#include "core/TGeneralSettings.h"
#include "ini/TIniParser.h"
#include "support/Errors.h"

class TLogWriter;

namespace DL {

class TStorageHub {
 public:
  // Loads from a settings file (type 1) or from the whole text (type 2). A
  // file that cannot be opened, or any other type, gives a firm with no
  // sections, which answers with defaults. A hole in the program's own name
  // tables raises CErrors.
  TStorageHub(const char* ini_source_name, int ini_source_type);
  TStorageHub(const TStorageHub&) = delete;
  TStorageHub& operator=(const TStorageHub&) = delete;

  // The engine log; not owned, null while logging is off.
  void SetLogWriter(TLogWriter* log) { m_log = log; }
  TLogWriter* GetLogWriter() const { return m_log; }

  // The allocator of everything this firm hands out.
  TMemory& GetMemory() { return m_memory; }

  // The parsed text: the home of every setting that has no parsed home.
  DL::TIniParser* GetOldParserPointer() { return &m_parser; }
  const DL::TIniParser& GetParser() const { return m_parser; }
  const DL::TIniSectionsMap& GetSections() const { return m_parser.GetSections(); }
  // Keys of the first ClientCval section.
  const DL::TIniClientValueMap& GetClientValues() const { return m_parser.GetCValSection(); }

  // The general parameters as read at load (currency identity, flags,
  // numbers, class lists, credit types, repo terms).
  const DL::TGeneralSettings& General() const { return m_general; }

  // "UsePGO" of section "General", a raw parameter of the section map: an edit
  // is seen by the next read and the next save (the general parameters keep
  // the value read at load until a reload).
  [[nodiscard]] int GetUsePGOFromGlobal(bool* value) const;
  [[nodiscard]] int SetUsePGOToGlobal(int value);

  // The whole settings text in canonical form, as a zero-terminated string of
  // this firm's memory (*out; give it back with FreeMemory). 0 on success, 3
  // for a null out. The hub is not changed.
  [[nodiscard]] int SaveSettingsToMemory(char** out);

 private:
  TMemory m_memory;
  CErrors m_errors;
  DL::TIniParser m_parser;
  DL::TGeneralSettings m_general;
  TLogWriter* m_log = nullptr;
};

}  // namespace DL
