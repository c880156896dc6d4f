#pragma once
// Records and recipes of the commands on instruments without currency risk
// that have a record of their own (see api/OwnCommands.h): "firmCode", the
// owner's "clientCode" or "templateCode", "classCode" and, for an
// instrument, "secCode". Their change lines list the arguments after "main",
// as the adapter shapes of the family do:
//   AddInstrumentForClassToInstrumentsWithoutCurrencyRiskGlobal,main,"TQBR","SBER"
#include <string>

#include "api/OwnShape.h"

ZDL_DECLARE_RECORD(TDL_AddInstrumentForClassToInstrumentsWithoutCurrencyRiskGlobal, (std::string, firmCode),
                   (std::string, classCode), (std::string, secCode));
ZDL_DECLARE_RECORD(TDL_RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRiskGlobal, (std::string, firmCode),
                   (std::string, classCode), (std::string, secCode));

namespace DL::Adapters::InstrumentsWithoutCurrencyRiskRecipes {
using namespace Shape;

// Firm and one more code, or firm, owner and one more code.
template <class R>
using TwoCodes = TSend<R, LineArguments, Str<&R::firmCode>, Str<&R::classCode>, Str<&R::secCode>>;
template <class R, auto Owner>
using OwnerAndClass = TSend<R, LineArguments, Str<&R::firmCode>, Str<Owner>, Str<&R::classCode>>;
template <class R, auto Owner>
using OwnerClassAndSecurity = TSend<R, LineArguments, Str<&R::firmCode>, Str<Owner>, Str<&R::classCode>, Str<&R::secCode>>;
}  // namespace DL::Adapters::InstrumentsWithoutCurrencyRiskRecipes

ZDL_OWN_SHAPE(AddInstrumentForClassToInstrumentsWithoutCurrencyRiskGlobal,
              InstrumentsWithoutCurrencyRiskRecipes::TwoCodes<TDL_AddInstrumentForClassToInstrumentsWithoutCurrencyRiskGlobal>)
ZDL_OWN_SHAPE(RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRiskGlobal,
              InstrumentsWithoutCurrencyRiskRecipes::TwoCodes<TDL_RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRiskGlobal>)

// The four commands of an owner with a record of its own.
#define ZDL_IWCR_OWNER_RECIPES_(Scope, owner)                                                                       \
  ZDL_DECLARE_RECORD(TDL_AddClassToInstrumentsWithoutCurrencyRisk##Scope, (std::string, firmCode),                 \
                     (std::string, owner), (std::string, classCode));                                              \
  ZDL_DECLARE_RECORD(TDL_RemoveClassFromInstrumentsWithoutCurrencyRisk##Scope, (std::string, firmCode),            \
                     (std::string, owner), (std::string, classCode));                                              \
  ZDL_DECLARE_RECORD(TDL_AddInstrumentForClassToInstrumentsWithoutCurrencyRisk##Scope, (std::string, firmCode),    \
                     (std::string, owner), (std::string, classCode), (std::string, secCode));                      \
  ZDL_DECLARE_RECORD(TDL_RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRisk##Scope, (std::string, firmCode), \
                     (std::string, owner), (std::string, classCode), (std::string, secCode));                      \
  ZDL_OWN_SHAPE(AddClassToInstrumentsWithoutCurrencyRisk##Scope,                                                    \
                InstrumentsWithoutCurrencyRiskRecipes::OwnerAndClass<                                               \
                    TDL_AddClassToInstrumentsWithoutCurrencyRisk##Scope,                                            \
                    &TDL_AddClassToInstrumentsWithoutCurrencyRisk##Scope::owner>)                                   \
  ZDL_OWN_SHAPE(RemoveClassFromInstrumentsWithoutCurrencyRisk##Scope,                                               \
                InstrumentsWithoutCurrencyRiskRecipes::OwnerAndClass<                                               \
                    TDL_RemoveClassFromInstrumentsWithoutCurrencyRisk##Scope,                                       \
                    &TDL_RemoveClassFromInstrumentsWithoutCurrencyRisk##Scope::owner>)                              \
  ZDL_OWN_SHAPE(AddInstrumentForClassToInstrumentsWithoutCurrencyRisk##Scope,                                       \
                InstrumentsWithoutCurrencyRiskRecipes::OwnerClassAndSecurity<                                       \
                    TDL_AddInstrumentForClassToInstrumentsWithoutCurrencyRisk##Scope,                               \
                    &TDL_AddInstrumentForClassToInstrumentsWithoutCurrencyRisk##Scope::owner>)                      \
  ZDL_OWN_SHAPE(RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRisk##Scope,                                  \
                InstrumentsWithoutCurrencyRiskRecipes::OwnerClassAndSecurity<                                       \
                    TDL_RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRisk##Scope,                          \
                    &TDL_RemoveInstrumentForClassFromInstrumentsWithoutCurrencyRisk##Scope::owner>)

ZDL_IWCR_OWNER_RECIPES_(ClientSettings, clientCode)
ZDL_IWCR_OWNER_RECIPES_(ClientTemplate, templateCode)

#undef ZDL_IWCR_OWNER_RECIPES_
