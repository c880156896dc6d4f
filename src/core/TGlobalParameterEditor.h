#pragma once
// The firm's single values, read and set by remote commands: one Get and one
// Set per row of core/GlobalParameters.def. Built over the hub for one call;
// it keeps no state.
//
// Each value has one home, and a Set changes only that home: a raw parameter
// of section "General" (the save copies it from the section map), a field of
// the general settings or a typed parameter (the save writes "General" from
// them), or a value the hub parses itself. A Set first creates the section
// that the save writes its value into, so a firm without it gains it.
//
// A Get answers 3 for a null out pointer. A raw parameter answers 4 when
// "General" is missing; a missing flag or number reads as 0, a missing group
// of numbers gives 4. Any other home always holds a value.
#include "base/ApiRecords.h"
#include "core/TStorageHub.h"
#include "core/ValueChecks.h"

namespace DL {

// The number of each typed parameter of "General" in TUniversalParser.
namespace UniversalNumber {
enum : int {
#define ZDL_UNIVERSAL_SECTION(section, count)
#define ZDL_UNIVERSAL_PARAM(section, num, type, name, def, validator) section##_##name = num,
#include "core/UniversalParams.def"
#undef ZDL_UNIVERSAL_PARAM
#undef ZDL_UNIVERSAL_SECTION
};
}  // namespace UniversalNumber

// The values the hub parses itself.
enum class THubValue {
  ExtendedSubClient,   // "ExtendedSubClient" of "General"
  ManagerCanClosePos,  // "ManagerCanClosePos" of "ProhibitOrders"
  UseCommissionScale,  // "UseCommissionScale" of "General"; needs the firm's commission scale
};

class TGlobalParameterEditor {
 public:
  explicit TGlobalParameterEditor(TStorageHub& hub) : m_hub(hub) {}

#define ZDL_GLOBAL_OUT_Flag bool*
#define ZDL_GLOBAL_IN_Flag int
#define ZDL_GLOBAL_OUT_Int int*
#define ZDL_GLOBAL_IN_Int int
#define ZDL_GLOBAL_OUT_Number double*
#define ZDL_GLOBAL_IN_Number double
#define ZDL_GLOBAL_OUT_Char char**
#define ZDL_GLOBAL_IN_Char const char*
#define ZDL_GLOBAL_OUT_DiscCoeff ZDL_BaseDiscCoeff*
#define ZDL_GLOBAL_IN_DiscCoeff ZDL_BaseDiscCoeff
#define ZDL_GLOBAL_OUT_Scenarios ZDL_VolatilityChangeScenarios*
#define ZDL_GLOBAL_IN_Scenarios ZDL_VolatilityChangeScenarios
#define ZDL_GLOBAL_PARAMETER(stem, value, home, key, check)                          \
  [[nodiscard]] int Get##stem##FromGlobal(ZDL_GLOBAL_OUT_##value out) const {      \
    using namespace UniversalNumber;                                                \
    return Get##home(key, out);                                                     \
  }                                                                                 \
  [[nodiscard]] int Set##stem##ToGlobal(ZDL_GLOBAL_IN_##value in) {                 \
    using namespace UniversalNumber;                                                \
    if (!Allows(EValueCheck::check, in)) return ZDL_BAD_ARGUMENT;                        \
    return Set##home##value(key, in);                                               \
  }
#define ZDL_GLOBAL_OWN_PARAMETER(stem, value, home, key, check, field) \
  ZDL_GLOBAL_PARAMETER(stem, value, home, key, check)
#include "core/GlobalParameters.def"
#undef ZDL_GLOBAL_PARAMETER
#undef ZDL_GLOBAL_OWN_PARAMETER
#undef ZDL_GLOBAL_OUT_Flag
#undef ZDL_GLOBAL_IN_Flag
#undef ZDL_GLOBAL_OUT_Int
#undef ZDL_GLOBAL_IN_Int
#undef ZDL_GLOBAL_OUT_Number
#undef ZDL_GLOBAL_IN_Number
#undef ZDL_GLOBAL_OUT_Char
#undef ZDL_GLOBAL_IN_Char
#undef ZDL_GLOBAL_OUT_DiscCoeff
#undef ZDL_GLOBAL_IN_DiscCoeff
#undef ZDL_GLOBAL_OUT_Scenarios
#undef ZDL_GLOBAL_IN_Scenarios

  // The coefficients and the scenarios removed whole: 4 when there is none.
  [[nodiscard]] int RemoveBaseDiscCoeffFromGlobal();
  [[nodiscard]] int RemoveVolatilityChangeScenariosFromGlobal();

 private:
  // The row's check on a whole number or a number; the value kinds' own
  // rules are the Set functions'.
  static bool Allows(EValueCheck check, double value) { return IsValueAllowed(check, value); }
  static bool Allows(EValueCheck, const ZDL_BaseDiscCoeff&) { return true; }
  static bool Allows(EValueCheck, const ZDL_VolatilityChangeScenarios&) { return true; }
  static bool Allows(EValueCheck, const char*) { return true; }

  // A raw parameter of "General" named `key`.
  int GetRaw(const char* key, bool* out) const;
  int GetRaw(const char* key, int* out) const;
  int GetRaw(const char* key, double* out) const;
  int GetRaw(const char* key, ZDL_VolatilityChangeScenarios* out) const;
  int SetRawFlag(const char* key, int flag);
  int SetRawInt(const char* key, int value);
  int SetRawNumber(const char* key, double value);
  int SetRawScenarios(const char* key, ZDL_VolatilityChangeScenarios value);

  // A row of the general settings; a flag may be kept as a whole number.
  int GetGeneral(EGeneralParam code, bool* out) const;
  int GetGeneral(EGeneralParam code, int* out) const;
  int GetGeneral(EGeneralParam code, double* out) const;
  int GetGeneral(EGeneralParam code, ZDL_BaseDiscCoeff* out) const;
  int SetGeneralFlag(EGeneralParam code, int flag);
  int SetGeneralInt(EGeneralParam code, int value);
  int SetGeneralNumber(EGeneralParam code, double value);
  int SetGeneralDiscCoeff(EGeneralParam code, ZDL_BaseDiscCoeff value);

  // A typed parameter of "General".
  int GetUniversal(int number, int* out) const;
  int GetUniversal(int number, char** out) const;
  int SetUniversalInt(int number, int value);
  // 3 for a null text or one of more than one character; the empty text
  // sets no character.
  int SetUniversalChar(int number, const char* value);

  int GetHub(THubValue value, bool* out) const;
  int SetHubFlag(THubValue value, int flag);

  // "General" of the section map, made when missing.
  void TouchGeneral();

  TStorageHub& m_hub;
};

}  // namespace DL
