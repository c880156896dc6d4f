#pragma once
// Records and recipes of the Get and Set pairs of the firm's single values
// whose commands have records of their own (the ZDL_GLOBAL_OWN_PARAMETER rows
// of core/GlobalParameters.def; see api/OwnCommands.h): "firmCode" and the
// value under the row's field name. The Set's change line lists the value
// after "main", as the adapter shapes of the other pairs do:
//   SetSecPricePriorityToGlobal,main,"2"
#include <string>

#include "api/OwnShape.h"

#define ZDL_GLOBAL_OWN_TYPE_Int int
#define ZDL_GLOBAL_OWN_TYPE_Number double
#define ZDL_GLOBAL_PARAMETER(stem, value, home, key, check)
#define ZDL_GLOBAL_OWN_PARAMETER(stem, value, home, key, check, field)                                          \
  ZDL_DECLARE_RECORD(TDL_Get##stem##FromGlobal, (std::string, firmCode), (ZDL_GLOBAL_OWN_TYPE_##value, field));  \
  ZDL_DECLARE_RECORD(TDL_Set##stem##ToGlobal, (std::string, firmCode), (ZDL_GLOBAL_OWN_TYPE_##value, field));    \
  ZDL_OWN_SHAPE(Get##stem##FromGlobal, Shape::TRead<TDL_Get##stem##FromGlobal,                                   \
                                                    Shape::OutVal<&TDL_Get##stem##FromGlobal::field>,            \
                                                    Shape::Str<&TDL_Get##stem##FromGlobal::firmCode>>)           \
  ZDL_OWN_SHAPE(Set##stem##ToGlobal,                                                                              \
                Shape::TSend<TDL_Set##stem##ToGlobal, Shape::LineArguments,                                       \
                             Shape::Str<&TDL_Set##stem##ToGlobal::firmCode>, Shape::Val<&TDL_Set##stem##ToGlobal::field>>)
#include "core/GlobalParameters.def"
#undef ZDL_GLOBAL_OWN_PARAMETER
#undef ZDL_GLOBAL_PARAMETER
#undef ZDL_GLOBAL_OWN_TYPE_Int
#undef ZDL_GLOBAL_OWN_TYPE_Number
