#include "api/ZDeallibAPI.h"

#include "core/TFirmManager.h"
#include "core/TInfoStorage.h"
#include "base/ResultCodes.h"

using DL::TInfoStorage;

namespace {
DL::TFirmManager m_firmManager;
}  // namespace

DL::TFirmManager& ZDL_GetFirmManager() { return m_firmManager; }

int ZDL_LoadSettingsForFirm(const char* firm, const char* ini_source_name, int ini_source_type) {
  if (firm == nullptr) return ZDL_FIRM_NOT_LOADED;
  return m_firmManager.AddInfoStorage(firm, ini_source_name, ini_source_type) != nullptr ? ZDL_OK
                                                                                       : ZDL_FIRM_NOT_LOADED;
}

int ZDL_SaveSettingsToMemory(const char* firm, char** text) {
  TInfoStorage* storage = m_firmManager.GetInfoStorage(firm);
  return storage == nullptr ? ZDL_FIRM_NOT_LOADED : storage->SaveSettingsToMemory(text);
}

int ZDL_FreeMemory(const char* firm, void** block) {
  TInfoStorage* storage = m_firmManager.GetInfoStorage(firm);
  return storage == nullptr ? ZDL_FIRM_NOT_LOADED : storage->FreeMemory(block);
}

int ZDL_FinishWorkWithFirm(const char* firm) {
  if (firm == nullptr) return ZDL_NOT_FOUND;
  return m_firmManager.FinishWorkWithFirm(firm);
}

int ZDL_SaveSettingsToFile(const char* firm, const char* /*path*/) {
  return m_firmManager.GetInfoStorage(firm) == nullptr ? ZDL_FIRM_NOT_LOADED : ZDL_OK;
}

#define ZDL_OPERATION(home, name, qualifier, params, args)                   \
  int ZDL_##name ZDL_FIRM_AND_ params {                                \
    TInfoStorage* storage = m_firmManager.GetInfoStorage(firm);        \
    return storage == nullptr ? ZDL_FIRM_NOT_LOADED : storage->name args; \
  }
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION
