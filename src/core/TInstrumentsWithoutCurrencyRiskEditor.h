#pragma once
// The instruments without currency risk, by class: of the firm (section
// "InstrumentsWithoutCurrencyRisk"), of a client's margin settings ("cl" +
// client + "_Margin") and of a client template. Each class is the key
// "InstrumentsWithoutCurrencyRisk_" + class, its value the "," list of its
// instruments; the class is a class code or "<ALL>". Built over the hub for
// one call; it keeps no state.
//
// The keys are raw parameters, which the save copies. After an edit the
// firm's list is read again into the hub, and a client's or template's
// section is read anew by the caches that parse it.
//
// Checks in this order: the owner (see core/TOwnerSection.h; the firm's
// section missing gives 4 to a reading), the class (3 null or empty, 9 longer
// than 12), the instrument (3, 13), then the items: 16 for a class or an
// instrument already there, 4 for one that is not.
#include <string>
#include <vector>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

class TInstrumentsWithoutCurrencyRiskEditor {
 public:
  explicit TInstrumentsWithoutCurrencyRiskEditor(TStorageHub& hub) : m_hub(hub) {}

  // ---- Global ----
  [[nodiscard]] int GetClassListFromInstrumentsWithoutCurrencyRiskGlobal(ZDL_ArrayStrings** classes) const {
    return GetClasses(EScope::Global, nullptr, classes);
  }
  [[nodiscard]] int AddClassToInstrumentsWithoutCurrencyRiskGlobal(const char* classCode) {
    return AddClass(EScope::Global, nullptr, classCode);
  }
  [[nodiscard]] int RemoveClassFromInstrumentsWithoutCurrencyRiskGlobal(const char* classCode) {
    return RemoveClass(EScope::Global, nullptr, classCode);
  }
  [[nodiscard]] int GetInstrumentListForClassFromInstrumentsWithoutCurrencyRiskGlobal(const char* classCode,
      ZDL_ArrayStrings** instruments) const {
    return GetInstruments(EScope::Global, nullptr, classCode, instruments);
  }
  [[nodiscard]] int SetInstrumentListForClassToInstrumentsWithoutCurrencyRiskGlobal(const char* classCode,
      ZDL_ArrayStrings* instruments) {
    return SetInstruments(EScope::Global, nullptr, classCode, instruments);
  }
  [[nodiscard]] int AddInstrumentForClassToInstrumentsWithoutCurrencyRiskGlobal(const char* classCode,
      const char* secCode) {
    return AddInstrument(EScope::Global, nullptr, classCode, secCode);
  }
  [[nodiscard]] int RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRiskGlobal(const char* classCode,
      const char* secCode) {
    return RemoveInstrument(EScope::Global, nullptr, classCode, secCode);
  }
  // ---- ClientSettings ----
  [[nodiscard]] int GetClassListFromInstrumentsWithoutCurrencyRiskClientSettings(const char* clientCode, ZDL_ArrayStrings** classes) const {
    return GetClasses(EScope::Client, clientCode, classes);
  }
  [[nodiscard]] int AddClassToInstrumentsWithoutCurrencyRiskClientSettings(const char* clientCode, const char* classCode) {
    return AddClass(EScope::Client, clientCode, classCode);
  }
  [[nodiscard]] int RemoveClassFromInstrumentsWithoutCurrencyRiskClientSettings(const char* clientCode, const char* classCode) {
    return RemoveClass(EScope::Client, clientCode, classCode);
  }
  [[nodiscard]] int GetInstrumentListForClassFromInstrumentsWithoutCurrencyRiskClientSettings(const char* clientCode, const char* classCode,
      ZDL_ArrayStrings** instruments) const {
    return GetInstruments(EScope::Client, clientCode, classCode, instruments);
  }
  [[nodiscard]] int SetInstrumentListForClassToInstrumentsWithoutCurrencyRiskClientSettings(const char* clientCode, const char* classCode,
      ZDL_ArrayStrings* instruments) {
    return SetInstruments(EScope::Client, clientCode, classCode, instruments);
  }
  [[nodiscard]] int AddInstrumentForClassToInstrumentsWithoutCurrencyRiskClientSettings(const char* clientCode, const char* classCode,
      const char* secCode) {
    return AddInstrument(EScope::Client, clientCode, classCode, secCode);
  }
  [[nodiscard]] int RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRiskClientSettings(const char* clientCode, const char* classCode,
      const char* secCode) {
    return RemoveInstrument(EScope::Client, clientCode, classCode, secCode);
  }
  // ---- ClientTemplate ----
  [[nodiscard]] int GetClassListFromInstrumentsWithoutCurrencyRiskClientTemplate(const char* templateCode, ZDL_ArrayStrings** classes) const {
    return GetClasses(EScope::Template, templateCode, classes);
  }
  [[nodiscard]] int AddClassToInstrumentsWithoutCurrencyRiskClientTemplate(const char* templateCode, const char* classCode) {
    return AddClass(EScope::Template, templateCode, classCode);
  }
  [[nodiscard]] int RemoveClassFromInstrumentsWithoutCurrencyRiskClientTemplate(const char* templateCode, const char* classCode) {
    return RemoveClass(EScope::Template, templateCode, classCode);
  }
  [[nodiscard]] int GetInstrumentListForClassFromInstrumentsWithoutCurrencyRiskClientTemplate(const char* templateCode, const char* classCode,
      ZDL_ArrayStrings** instruments) const {
    return GetInstruments(EScope::Template, templateCode, classCode, instruments);
  }
  [[nodiscard]] int SetInstrumentListForClassToInstrumentsWithoutCurrencyRiskClientTemplate(const char* templateCode, const char* classCode,
      ZDL_ArrayStrings* instruments) {
    return SetInstruments(EScope::Template, templateCode, classCode, instruments);
  }
  [[nodiscard]] int AddInstrumentForClassToInstrumentsWithoutCurrencyRiskClientTemplate(const char* templateCode, const char* classCode,
      const char* secCode) {
    return AddInstrument(EScope::Template, templateCode, classCode, secCode);
  }
  [[nodiscard]] int RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRiskClientTemplate(const char* templateCode, const char* classCode,
      const char* secCode) {
    return RemoveInstrument(EScope::Template, templateCode, classCode, secCode);
  }

 private:
  enum class EScope { Global, Client, Template };

  // The owner's section: 0, or the code that refuses it. `make` creates the
  // firm's section when it is missing.
  int Keys(EScope scope, const char* owner, bool make, TIniKeyMap*& keys) const;
  // Has what reads the owner's section read it anew.
  void Done(EScope scope, const char* owner);

  int GetClasses(EScope scope, const char* owner, ZDL_ArrayStrings** classes) const;
  int AddClass(EScope scope, const char* owner, const char* classCode);
  int RemoveClass(EScope scope, const char* owner, const char* classCode);
  int GetInstruments(EScope scope, const char* owner, const char* classCode, ZDL_ArrayStrings** instruments) const;
  int SetInstruments(EScope scope, const char* owner, const char* classCode, ZDL_ArrayStrings* instruments);
  int AddInstrument(EScope scope, const char* owner, const char* classCode, const char* secCode);
  int RemoveInstrument(EScope scope, const char* owner, const char* classCode, const char* secCode);


  TStorageHub& m_hub;
};

}  // namespace DL
