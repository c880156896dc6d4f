#pragma once
// The firm's securities by class of the sections "LimitAllowedSecurity",
// "AssetSecurities" and "RestShortSecurities", as the hub parsed them, read
// by remote commands by class and by instrument. Built over the hub for one
// call; it changes nothing.
//
// The class "<ALL>" stands for the securities listed for every class. A
// reading answers 3 for a null out pointer or a null or empty code, 9 or 13
// for a class or security code longer than 12, 4 when the section is missing
// or the class or security is not in it.
#include <string>
#include <vector>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

class TSecurityListsReader {
 public:
  explicit TSecurityListsReader(TStorageHub& hub) : m_hub(hub) {}

#define ZDL_SECURITY_LIST_READS_(Kind)                                                                           \
  [[nodiscard]] int GetClassListFromGlobal##Kind##ByClasses(ZDL_ArrayStrings** classes) const {                  \
    return Classes(m_hub.Get##Kind(), ZDL_SECTION_OF_(Kind), classes);                                           \
  }                                                                                                              \
  [[nodiscard]] int GetInstrListForClassFromGlobal##Kind##ByClasses(const char* classCode,                       \
                                                                    ZDL_ArrayStrings** instruments) const {      \
    return InstrumentsOfClass(m_hub.Get##Kind(), ZDL_SECTION_OF_(Kind), classCode, instruments);                 \
  }                                                                                                              \
  [[nodiscard]] int GetInstrListFromGlobal##Kind##ByInstruments(ZDL_ArrayStrings** instruments) const {          \
    return Instruments(m_hub.Get##Kind(), ZDL_SECTION_OF_(Kind), instruments);                                   \
  }                                                                                                              \
  [[nodiscard]] int GetClassListForInstrFromGlobal##Kind##ByInstruments(const char* secCode,                     \
                                                                        ZDL_ArrayStrings** classes) const {      \
    return ClassesOfInstrument(m_hub.Get##Kind(), ZDL_SECTION_OF_(Kind), secCode, classes);                      \
  }
#define ZDL_SECTION_OF_(Kind) isc##Kind
  ZDL_SECURITY_LIST_READS_(LimitAllowedSecurity)
  ZDL_SECURITY_LIST_READS_(AssetSecurities)
  ZDL_SECURITY_LIST_READS_(RestShortSecurities)
#undef ZDL_SECTION_OF_
#undef ZDL_SECURITY_LIST_READS_

 private:
  // Whether the firm has the section at all.
  bool Has(EIniSectCodeNum section) const;
  int Classes(const TSecuritiesByClass& store, EIniSectCodeNum section, ZDL_ArrayStrings** classes) const;
  int InstrumentsOfClass(const TSecuritiesByClass& store, EIniSectCodeNum section, const char* classCode,
                         ZDL_ArrayStrings** instruments) const;
  int Instruments(const TSecuritiesByClass& store, EIniSectCodeNum section, ZDL_ArrayStrings** instruments) const;
  int ClassesOfInstrument(const TSecuritiesByClass& store, EIniSectCodeNum section, const char* secCode,
                          ZDL_ArrayStrings** classes) const;

  TStorageHub& m_hub;
};

}  // namespace DL
