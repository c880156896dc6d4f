#pragma once
// The firm registry: one loaded copy of the settings per firm code.
#include <memory>

class TLogWriter;

namespace DL {

class TInfoStorage;

class TFirmManager {
 public:
  TFirmManager();
  ~TFirmManager();  // destroys every storage, then the table
  TFirmManager(const TFirmManager&) = delete;
  TFirmManager& operator=(const TFirmManager&) = delete;

  // Loads the firm from the source and puts it in the table, replacing (and
  // destroying) a storage the firm had. A load that throws leaves the table
  // as it was. Returns the new storage.
  TInfoStorage* AddInfoStorage(const char* firm_id, const char* ini_source_name, int ini_source_type);
  // The firm's storage, or null for a null or unknown code.
  TInfoStorage* GetInfoStorage(const char* firm) const;
  // Drops the firm: 0, or 4 when it is not loaded.
  [[nodiscard]] int FinishWorkWithFirm(const char* firm);

  // Gives the engine log to every loaded firm and to those loaded later.
  void ActivateLog(TLogWriter* log);
  void DeactivateLog();

  size_t FirmCount() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace DL
