#pragma once
// The public face of one loaded copy of a firm's settings: everything above
// (the ZDL_ settings API, a host engine linking this code) reads, edits and
// saves a firm through it. It holds no settings itself; they live in the hub.
#include <memory>
#include <string>

#include "commission/TRepoCommRates.h"
#include "commission/TypeAndRate.h"
#include "base/TradingTypes.h"
#include "core/TGeneralSettings.h"

class TLogWriter;

namespace DL {

class TStorageHub;

class TInfoStorage {
 public:
  // Builds the hub from the source (see TStorageHub). A load that finds a hole
  // in the program's own tables throws CErrors.
  TInfoStorage(const char* ini_source_name, int ini_source_type, bool buildTypedStore);
  ~TInfoStorage();
  TInfoStorage(const TInfoStorage&) = delete;
  TInfoStorage& operator=(const TInfoStorage&) = delete;

  // Builds everything anew from the source and swaps it in; the old state is
  // kept when the build throws. Returns 1 (not 0) on success. The new hub has
  // no logger until ActivateLog.
  int Refresh(const char* ini_source_name, int ini_source_type, bool buildTypedStore);

  // The small reload: from a settings text, replaces the restriction
  // templates, the complex instrument settings of "General" and the
  // ClientCval clients, and leaves everything else in force. 3 for a null
  // text, 1 when a step threw (the steps before it stay done), else 0.
  [[nodiscard]] int InitLite(const char* text);

  void ActivateLog(TLogWriter* log);
  void DeactivateLog();

  // The canonical settings text, in this firm's memory (see TStorageHub).
  [[nodiscard]] int SaveSettingsToMemory(char** out);
  // Gives back a block this storage handed out: 3 for a null p, 4 for a null
  // or unknown *p, 0 with *p nulled on success.
  [[nodiscard]] int FreeMemory(void** p);

  // The settings operations of the remote commands, one per line of
  // SettingsOperations.def; each forwards to the hub's member of its name.
#define ZDL_OPERATION(name, qualifier, params, args) [[nodiscard]] int name params qualifier;
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION

  // ---- General parameters for a host engine, as read at load ----
  // One Get per row of GeneralParams.def, forwarding to the hub.
#define ZDL_GENERAL_PARAM(field, key, section, kind, def) \
  const TGeneralParamType<EGeneralParamKind::kind>::type& Get##field() const;
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
  // The same by code: 0, or 3 for a code out of range or of another kind.
  [[nodiscard]] int GetFlagParam(EGeneralParam code, bool& out) const;
  [[nodiscard]] int GetIntParam(EGeneralParam code, int& out) const;
  [[nodiscard]] int GetNumberParam(EGeneralParam code, double& out) const;
  [[nodiscard]] int GetTextParam(EGeneralParam code, std::string& out) const;
  [[nodiscard]] int GetListParam(EGeneralParam code, const TClassList*& out) const;
  // Currency identity.
  const std::string& GetMainCurrency() const;
  bool IsRublesEquivalent(const std::string& currency) const;
  // Typed parameters of the global sections (TUniversalParser's codes).
  [[nodiscard]] int GetBoolParamFromGlobalSection(bool& out, int sect, int num) const;
  [[nodiscard]] int GetIntParamFromGlobalSection(int& out, int sect, int num) const;
  [[nodiscard]] int GetCharParamFromGlobalSection(char& out, int sect, int num) const;

  // ---- Volume-based and repo commission for a host engine ----
  // The table of the client and class (TStorageHub::FindVolumeBasedCommission):
  // its highest commission on `value`, 0 without a table; its step for the
  // volume and side, (3, 0, 0) without one.
  double CalcMaxVolumeBasedCommission(const char* client, const char* classCode, double value, ESide side,
                                      short scale) const;
  TypeAndRate GetEffectiveVolumeBasedCommTypeAndRate(const char* client, const char* classCode, double volume,
                                                     ESide side) const;
  // The client's repo commission of the class for a term in days: the scale
  // of terms first, then the rate per day (CalcRepoCommission). False when
  // neither is set, or the kind found is not one of the four.
  bool GetRepoCommByClass(const char* classCode, double leverage, const char* client, short term,
                          TRepoCommission& out) const;

  TStorageHub& Hub() const;

 private:
  struct Impl;
  struct pImplDeleter {
    void operator()(Impl* impl) const;
  };
  static Impl* BuildImpl(const char* ini_source_name, int ini_source_type, bool buildTypedStore);

  std::unique_ptr<Impl, pImplDeleter> m_impl;
};

}  // namespace DL
