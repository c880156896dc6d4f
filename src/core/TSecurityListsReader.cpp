#include "core/TSecurityListsReader.h"

#include <set>

#include "base/ResultCodes.h"
#include "base/TMemory.h"
#include "core/HubSectionLists.h"
#include "core/ValueChecks.h"

namespace DL {

namespace {
const std::string& AllClasses() { return TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL); }
}  // namespace

bool TSecurityListsReader::Has(EIniSectCodeNum section) const {
  return m_hub.GetParser().FindIniSectionRef(std::string(IniSectName(section))) != nullptr;
}

int TSecurityListsReader::Classes(const TSecuritiesByClass& store, EIniSectCodeNum section,
                                  ZDL_ArrayStrings** classes) const {
  if (classes == nullptr) return ZDL_BAD_ARGUMENT;
  if (!Has(section)) return ZDL_NOT_FOUND;
  std::vector<std::string> items;
  if (store.hasAll) items.push_back(AllClasses());
  for (const auto& [classCode, list] : store.byClass) items.push_back(classCode);
  *classes = m_hub.GetMemory().ConstructStrings(items);
  return ZDL_OK;
}

int TSecurityListsReader::InstrumentsOfClass(const TSecuritiesByClass& store, EIniSectCodeNum section,
                                             const char* classCode, ZDL_ArrayStrings** instruments) const {
  const bool all = classCode != nullptr && AllClasses() == classCode;
  if (!all)
    if (int r = CheckListItem(EListItem::Class, classCode); r != ZDL_OK) return r;
  if (instruments == nullptr) return ZDL_BAD_ARGUMENT;
  if (!Has(section)) return ZDL_NOT_FOUND;
  if (all) {
    if (!store.hasAll) return ZDL_NOT_FOUND;
    *instruments = m_hub.GetMemory().ConstructStrings(store.all.Items());
    return ZDL_OK;
  }
  const auto it = store.byClass.find(classCode);
  if (it == store.byClass.end()) return ZDL_NOT_FOUND;
  *instruments = m_hub.GetMemory().ConstructStrings(it->second.Items());
  return ZDL_OK;
}

int TSecurityListsReader::Instruments(const TSecuritiesByClass& store, EIniSectCodeNum section,
                                      ZDL_ArrayStrings** instruments) const {
  if (instruments == nullptr) return ZDL_BAD_ARGUMENT;
  if (!Has(section)) return ZDL_NOT_FOUND;
  // Every security once, in code order.
  std::set<std::string> codes(store.all.Items().begin(), store.all.Items().end());
  for (const auto& [classCode, list] : store.byClass) codes.insert(list.Items().begin(), list.Items().end());
  *instruments = m_hub.GetMemory().ConstructStrings(std::vector<std::string>(codes.begin(), codes.end()));
  return ZDL_OK;
}

int TSecurityListsReader::ClassesOfInstrument(const TSecuritiesByClass& store, EIniSectCodeNum section,
                                              const char* secCode, ZDL_ArrayStrings** classes) const {
  if (int r = CheckListItem(EListItem::Security, secCode); r != ZDL_OK) return r;
  if (classes == nullptr) return ZDL_BAD_ARGUMENT;
  if (!Has(section)) return ZDL_NOT_FOUND;
  std::vector<std::string> items;
  if (store.hasAll && store.all.Contains(secCode)) items.push_back(AllClasses());
  for (const auto& [classCode, list] : store.byClass)
    if (list.Contains(secCode)) items.push_back(classCode);
  if (items.empty()) return ZDL_NOT_FOUND;
  *classes = m_hub.GetMemory().ConstructStrings(items);
  return ZDL_OK;
}

}  // namespace DL
