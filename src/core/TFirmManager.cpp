#include "core/TFirmManager.h"

#include <map>
#include <string>

#include "core/TInfoStorage.h"
#include "base/ResultCodes.h"
#include "support/LogWriter.h"

namespace DL {

struct TFirmManager::Impl {
  std::map<std::string, std::unique_ptr<TInfoStorage>> firms;  // by firm code, bytewise
  TLogWriter* log = nullptr;                                    // not owned; null while off
};

TFirmManager::TFirmManager() : m_impl(std::make_unique<Impl>()) {}

TFirmManager::~TFirmManager() = default;

TInfoStorage* TFirmManager::AddInfoStorage(const char* firm_id, const char* ini_source_name, int ini_source_type) {
  if (m_impl->log != nullptr)
    m_impl->log->Write(15, "TFirmManager::AddInfoStorage: firm_id= %s, ini_source_type= %d, ini_source_name= %s",
                       firm_id, ini_source_type, ini_source_name == nullptr ? "" : ini_source_name);
  // Built before the table is touched: a load that throws leaves the old firm in place.
  auto fresh = std::make_unique<TInfoStorage>(ini_source_name, ini_source_type, true);
  if (m_impl->log != nullptr) fresh->ActivateLog(m_impl->log);
  std::unique_ptr<TInfoStorage>& slot = m_impl->firms[firm_id];
  slot = std::move(fresh);  // destroys the storage the firm had
  return slot.get();
}

TInfoStorage* TFirmManager::GetInfoStorage(const char* firm) const {
  if (firm == nullptr) return nullptr;
  auto it = m_impl->firms.find(firm);
  return it == m_impl->firms.end() ? nullptr : it->second.get();
}

int TFirmManager::FinishWorkWithFirm(const char* firm) {
  auto it = m_impl->firms.find(firm);
  if (it == m_impl->firms.end()) return ZDL_NOT_FOUND;
  m_impl->firms.erase(it);
  return ZDL_OK;
}

void TFirmManager::ActivateLog(TLogWriter* log) {
  m_impl->log = log;
  for (auto& [code, storage] : m_impl->firms) storage->ActivateLog(log);
}

void TFirmManager::DeactivateLog() { ActivateLog(nullptr); }

size_t TFirmManager::FirmCount() const { return m_impl->firms.size(); }

}  // namespace DL
