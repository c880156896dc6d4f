#include "core/TInfoStorage.h"

#include "core/OperationHomes.h"
#include "core/TStorageHub.h"
#include "base/ResultCodes.h"
#ifndef ZDL_NO_TYPED_STORE
#include "settings/DeallerStorage.h"
#endif

namespace DL {

// The typed store of the settings (sets of instruments, margin templates) is
// built beside the hub when it is asked for. It reads the same source as the
// hub, so that the order of its lines is the text's own (a second line of a
// setting stands there); a source of another type gives an empty store.
struct TInfoStorage::Impl {
  TStorageHub* hub = nullptr;
  DLTypes::Storage* typed = nullptr;
};

void TInfoStorage::pImplDeleter::operator()(Impl* impl) const {
  if (impl == nullptr) return;
#ifndef ZDL_NO_TYPED_STORE
  delete impl->typed;
#endif
  delete impl->hub;
  delete impl;
}

TInfoStorage::Impl* TInfoStorage::BuildImpl(const char* ini_source_name, int ini_source_type,
                                             bool buildTypedStore) {
  std::unique_ptr<Impl, pImplDeleter> impl(new Impl);
  impl->hub = new TStorageHub(ini_source_name, ini_source_type);
#ifndef ZDL_NO_TYPED_STORE
  if (buildTypedStore) {
    if (ini_source_type == 2 && ini_source_name != nullptr)
      impl->typed = new DLTypes::Storage(DLTypes::Storage::FromText(ini_source_name));
    else
      impl->typed = new DLTypes::Storage(ini_source_type == 1 ? ini_source_name : nullptr, ini_source_type == 1);
  }
#else
  (void)buildTypedStore;
#endif
  return impl.release();
}

TInfoStorage::TInfoStorage(const char* ini_source_name, int ini_source_type, bool buildTypedStore)
    : m_impl(BuildImpl(ini_source_name, ini_source_type, buildTypedStore)) {}

TInfoStorage::~TInfoStorage() = default;

int TInfoStorage::Refresh(const char* ini_source_name, int ini_source_type, bool buildTypedStore) {
  std::unique_ptr<Impl, pImplDeleter> fresh(BuildImpl(ini_source_name, ini_source_type, buildTypedStore));
  m_impl.swap(fresh);
  return 1;
}

void TInfoStorage::ActivateLog(TLogWriter* log) { m_impl->hub->SetLogWriter(log); }

void TInfoStorage::DeactivateLog() { m_impl->hub->SetLogWriter(nullptr); }

int TInfoStorage::SaveSettingsToMemory(char** out) { return m_impl->hub->SaveSettingsToMemory(out); }

int TInfoStorage::FreeMemory(void** p) { return m_impl->hub->GetMemory().FreeMemory(p); }

int TInfoStorage::InitLite(const char* text) { return m_impl->hub->InitLite(text); }

#define ZDL_GENERAL_PARAM(field, key, section, kind, def)                                      \
  const TGeneralParamType<EGeneralParamKind::kind>::type& TInfoStorage::Get##field() const { \
    return m_impl->hub->General().Get##field();                                               \
  }
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM

int TInfoStorage::GetFlagParam(EGeneralParam code, bool& out) const {
  return m_impl->hub->General().GetFlagParam(code, out);
}
int TInfoStorage::GetIntParam(EGeneralParam code, int& out) const {
  return m_impl->hub->General().GetIntParam(code, out);
}
int TInfoStorage::GetNumberParam(EGeneralParam code, double& out) const {
  return m_impl->hub->General().GetNumberParam(code, out);
}
int TInfoStorage::GetTextParam(EGeneralParam code, std::string& out) const {
  return m_impl->hub->General().GetTextParam(code, out);
}
int TInfoStorage::GetListParam(EGeneralParam code, const TClassList*& out) const {
  return m_impl->hub->General().GetListParam(code, out);
}
const std::string& TInfoStorage::GetMainCurrency() const { return m_impl->hub->General().GetMainCurrency(); }
bool TInfoStorage::IsRublesEquivalent(const std::string& currency) const {
  return m_impl->hub->General().IsRublesEquivalent(currency);
}
int TInfoStorage::GetBoolParamFromGlobalSection(bool& out, int sect, int num) const {
  return m_impl->hub->GetUniversalParser().GetBoolParamFromGlobalSection(out, sect, num);
}
int TInfoStorage::GetIntParamFromGlobalSection(int& out, int sect, int num) const {
  return m_impl->hub->GetUniversalParser().GetIntParamFromGlobalSection(out, sect, num);
}
int TInfoStorage::GetCharParamFromGlobalSection(char& out, int sect, int num) const {
  return m_impl->hub->GetUniversalParser().GetCharParamFromGlobalSection(out, sect, num);
}

TStorageHub& TInfoStorage::Hub() const { return *m_impl->hub; }

#ifndef ZDL_NO_TYPED_STORE
const DLTypes::Storage* TInfoStorage::GetTypedStore() const { return m_impl->typed; }

const DLTypes::MarginTemplate* TInfoStorage::GetMarginTemplate(const char* client, double leverage) const {
  return m_impl->typed == nullptr ? nullptr : m_impl->typed->GetMarginTemplate(client ? client : "", leverage);
}

DLTypes::TSetsByName TInfoStorage::GetEffectiveSetOfInstrumentsByClient(const char* client, double leverage) const {
  if (m_impl->typed == nullptr) return {};
  return m_impl->typed->GetEffectiveSetOfInstruments(client ? client : "", leverage);
}
#endif

#define ZDL_OPERATION(home, name, qualifier, params, args) \
  int TInfoStorage::name params qualifier { return TOperationHome<home>::Of(*m_impl->hub).name args; }
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION

}  // namespace DL
