#pragma once
// The public face of one loaded copy of a firm's settings: everything above
// (the ZDL_ settings API, a host engine linking this code) reads, edits and
// saves a firm through it. It holds no settings itself; they live in the hub.
#include <memory>

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

  void ActivateLog(TLogWriter* log);
  void DeactivateLog();

  // The canonical settings text, in this firm's memory (see TStorageHub).
  [[nodiscard]] int SaveSettingsToMemory(char** out);
  // Gives back a block this storage handed out: 3 for a null p, 4 for a null
  // or unknown *p, 0 with *p nulled on success.
  [[nodiscard]] int FreeMemory(void** p);

  // "UsePGO" of section "General", read and written in the section map.
  [[nodiscard]] int GetUsePGOFromGlobal(bool* value) const;
  [[nodiscard]] int SetUsePGOToGlobal(int value);

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
