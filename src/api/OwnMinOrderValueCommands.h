#pragma once
// Records and recipes of the smallest-order-value commands (see
// api/OwnCommands.h). The rows travel as "lsRestrictions", a list of
// TDL_MinOrderValue; a single row to add or remove travels as the fields of
// TDL_MinOrderValue in the command's own record.
#include <memory>
#include <string>
#include <vector>

#include "api/OwnShape.h"

namespace DL::Adapters::MinOrderValueRecipes {
using namespace Shape;
using TRows = std::vector<TDL_MinOrderValue>;

// One row made of the record's fields, passed as const ZDL_MinOrderValue*.
template <auto Classes, auto Instruments, auto Value, auto Currency>
struct Row {
  template <class R>
  static TRows AsRows(const R& r) {
    return TRows{TDL_MinOrderValue{r.*Classes, r.*Instruments, r.*Value, r.*Currency}};
  }
  class THolder {
   public:
    explicit THolder(const TRows& rows) : built_(rows) {}
    const ZDL_MinOrderValue* get() const { return &built_.get()->items[0]; }

   private:
    typename TComposite<ZDL_ArrayMinOrderValue, TDL_MinOrderValue>::Built built_;
  };
  template <class P, class R>
  static THolder Bind(R& r) {
    return THolder(AsRows(r));
  }
  template <class R>
  static std::string Text(const R& r) {
    return ListText(AsRows(r));
  }
};

template <auto Member>
using Rows = Composite<ZDL_ArrayMinOrderValue, Member>;
template <auto Member>
using OutRows = OutArray<ZDL_ArrayMinOrderValue, Member>;

}  // namespace DL::Adapters::MinOrderValueRecipes

#define ZDL_MIN_ORDER_VALUE_ROW_FIELDS_ \
  (std::vector<std::string>, lsClasses), (std::vector<std::string>, lsInstruments), (double, value), (std::string, currency)

// The firm's rows.
ZDL_DECLARE_RECORD(TDL_GetMinOrderValueFromGlobal, (std::string, firmCode), (int, settingsScope),
                   (std::vector<TDL_MinOrderValue>, lsRestrictions));
ZDL_DECLARE_RECORD(TDL_SetMinOrderValueToGlobal, (std::string, firmCode), (int, settingsScope),
                   (std::vector<TDL_MinOrderValue>, lsRestrictions));
ZDL_DECLARE_RECORD(TDL_AddMinOrderValueToGlobal, (std::string, firmCode), (int, settingsScope),
                   ZDL_MIN_ORDER_VALUE_ROW_FIELDS_);
ZDL_DECLARE_RECORD(TDL_RemoveMinOrderValueFromGlobal, (std::string, firmCode), (int, settingsScope),
                   ZDL_MIN_ORDER_VALUE_ROW_FIELDS_);

// A client's rows; the reading chooses them by "classCode".
ZDL_DECLARE_RECORD(TDL_GetMinOrderValueFromClientSettings, (std::string, firmCode), (int, settingsScope),
                   (std::string, clientCode), (std::string, classCode), (std::vector<TDL_MinOrderValue>, lsRestrictions));
ZDL_DECLARE_RECORD(TDL_SetMinOrderValueToClientSettings, (std::string, firmCode), (int, settingsScope),
                   (std::string, clientCode), (std::vector<TDL_MinOrderValue>, lsRestrictions));
ZDL_DECLARE_RECORD(TDL_AddMinOrderValueToClientSettings, (std::string, firmCode), (int, settingsScope),
                   (std::string, clientCode), ZDL_MIN_ORDER_VALUE_ROW_FIELDS_);
ZDL_DECLARE_RECORD(TDL_RemoveMinOrderValueFromClientSettings, (std::string, firmCode), (int, settingsScope),
                   (std::string, clientCode), ZDL_MIN_ORDER_VALUE_ROW_FIELDS_);

// A template's rows.
#define ZDL_MIN_ORDER_VALUE_TEMPLATE_RECORDS_(Kind)                                                                  \
  ZDL_DECLARE_RECORD(TDL_GetMinOrderValueFrom##Kind, (std::string, firmCode), (int, settingsScope),                  \
                     (std::string, templateCode), (std::vector<TDL_MinOrderValue>, lsRestrictions));                 \
  ZDL_DECLARE_RECORD(TDL_SetMinOrderValueTo##Kind, (std::string, firmCode), (int, settingsScope),                    \
                     (std::string, templateCode), (std::vector<TDL_MinOrderValue>, lsRestrictions));                 \
  ZDL_DECLARE_RECORD(TDL_AddMinOrderValueTo##Kind, (std::string, firmCode), (int, settingsScope),                    \
                     (std::string, templateCode), ZDL_MIN_ORDER_VALUE_ROW_FIELDS_);                                  \
  ZDL_DECLARE_RECORD(TDL_RemoveMinOrderValueFrom##Kind, (std::string, firmCode), (int, settingsScope),               \
                     (std::string, templateCode), ZDL_MIN_ORDER_VALUE_ROW_FIELDS_);
ZDL_MIN_ORDER_VALUE_TEMPLATE_RECORDS_(ClientTemplate)
ZDL_MIN_ORDER_VALUE_TEMPLATE_RECORDS_(RestrictionTemplate)
#undef ZDL_MIN_ORDER_VALUE_TEMPLATE_RECORDS_
#undef ZDL_MIN_ORDER_VALUE_ROW_FIELDS_

// The recipes: the firm code, the scope, the owner's code when there is one,
// then the rows.
#define ZDL_MIN_ORDER_VALUE_ROW_(R) \
  MinOrderValueRecipes::Row<&R::lsClasses, &R::lsInstruments, &R::value, &R::currency>

ZDL_OWN_SHAPE(GetMinOrderValueFromGlobal,
              Shape::TRead<TDL_GetMinOrderValueFromGlobal,
                           MinOrderValueRecipes::OutRows<&TDL_GetMinOrderValueFromGlobal::lsRestrictions>,
                           Shape::Str<&TDL_GetMinOrderValueFromGlobal::firmCode>,
                           Shape::Val<&TDL_GetMinOrderValueFromGlobal::settingsScope>>)
ZDL_OWN_SHAPE(SetMinOrderValueToGlobal,
              Shape::TSend<TDL_SetMinOrderValueToGlobal, Shape::LineArguments,
                           Shape::Str<&TDL_SetMinOrderValueToGlobal::firmCode>,
                           Shape::Val<&TDL_SetMinOrderValueToGlobal::settingsScope>,
                           MinOrderValueRecipes::Rows<&TDL_SetMinOrderValueToGlobal::lsRestrictions>>)
ZDL_OWN_SHAPE(AddMinOrderValueToGlobal,
              Shape::TSend<TDL_AddMinOrderValueToGlobal, Shape::LineArguments,
                           Shape::Str<&TDL_AddMinOrderValueToGlobal::firmCode>,
                           Shape::Val<&TDL_AddMinOrderValueToGlobal::settingsScope>,
                           ZDL_MIN_ORDER_VALUE_ROW_(TDL_AddMinOrderValueToGlobal)>)
ZDL_OWN_SHAPE(RemoveMinOrderValueFromGlobal,
              Shape::TSend<TDL_RemoveMinOrderValueFromGlobal, Shape::LineArguments,
                           Shape::Str<&TDL_RemoveMinOrderValueFromGlobal::firmCode>,
                           Shape::Val<&TDL_RemoveMinOrderValueFromGlobal::settingsScope>,
                           ZDL_MIN_ORDER_VALUE_ROW_(TDL_RemoveMinOrderValueFromGlobal)>)

ZDL_OWN_SHAPE(GetMinOrderValueFromClientSettings,
              Shape::TRead<TDL_GetMinOrderValueFromClientSettings,
                           MinOrderValueRecipes::OutRows<&TDL_GetMinOrderValueFromClientSettings::lsRestrictions>,
                           Shape::Str<&TDL_GetMinOrderValueFromClientSettings::firmCode>,
                           Shape::Val<&TDL_GetMinOrderValueFromClientSettings::settingsScope>,
                           Shape::Str<&TDL_GetMinOrderValueFromClientSettings::clientCode>,
                           Shape::Str<&TDL_GetMinOrderValueFromClientSettings::classCode>>)

#define ZDL_MIN_ORDER_VALUE_OWNED_RECIPES_(Kind, code)                                                               \
  ZDL_OWN_SHAPE(SetMinOrderValueTo##Kind,                                                                            \
                Shape::TSend<TDL_SetMinOrderValueTo##Kind, Shape::LineArguments,                                     \
                             Shape::Str<&TDL_SetMinOrderValueTo##Kind::firmCode>,                                    \
                             Shape::Val<&TDL_SetMinOrderValueTo##Kind::settingsScope>,                               \
                             Shape::Str<&TDL_SetMinOrderValueTo##Kind::code>,                                        \
                             MinOrderValueRecipes::Rows<&TDL_SetMinOrderValueTo##Kind::lsRestrictions>>)             \
  ZDL_OWN_SHAPE(AddMinOrderValueTo##Kind,                                                                            \
                Shape::TSend<TDL_AddMinOrderValueTo##Kind, Shape::LineArguments,                                     \
                             Shape::Str<&TDL_AddMinOrderValueTo##Kind::firmCode>,                                    \
                             Shape::Val<&TDL_AddMinOrderValueTo##Kind::settingsScope>,                               \
                             Shape::Str<&TDL_AddMinOrderValueTo##Kind::code>,                                        \
                             ZDL_MIN_ORDER_VALUE_ROW_(TDL_AddMinOrderValueTo##Kind)>)                                \
  ZDL_OWN_SHAPE(RemoveMinOrderValueFrom##Kind,                                                                       \
                Shape::TSend<TDL_RemoveMinOrderValueFrom##Kind, Shape::LineArguments,                                \
                             Shape::Str<&TDL_RemoveMinOrderValueFrom##Kind::firmCode>,                               \
                             Shape::Val<&TDL_RemoveMinOrderValueFrom##Kind::settingsScope>,                          \
                             Shape::Str<&TDL_RemoveMinOrderValueFrom##Kind::code>,                                   \
                             ZDL_MIN_ORDER_VALUE_ROW_(TDL_RemoveMinOrderValueFrom##Kind)>)
ZDL_MIN_ORDER_VALUE_OWNED_RECIPES_(ClientSettings, clientCode)
ZDL_MIN_ORDER_VALUE_OWNED_RECIPES_(ClientTemplate, templateCode)
ZDL_MIN_ORDER_VALUE_OWNED_RECIPES_(RestrictionTemplate, templateCode)
#undef ZDL_MIN_ORDER_VALUE_OWNED_RECIPES_

#define ZDL_MIN_ORDER_VALUE_TEMPLATE_GET_(Kind)                                                                      \
  ZDL_OWN_SHAPE(GetMinOrderValueFrom##Kind,                                                                          \
                Shape::TRead<TDL_GetMinOrderValueFrom##Kind,                                                         \
                             MinOrderValueRecipes::OutRows<&TDL_GetMinOrderValueFrom##Kind::lsRestrictions>,         \
                             Shape::Str<&TDL_GetMinOrderValueFrom##Kind::firmCode>,                                  \
                             Shape::Val<&TDL_GetMinOrderValueFrom##Kind::settingsScope>,                             \
                             Shape::Str<&TDL_GetMinOrderValueFrom##Kind::templateCode>>)
ZDL_MIN_ORDER_VALUE_TEMPLATE_GET_(ClientTemplate)
ZDL_MIN_ORDER_VALUE_TEMPLATE_GET_(RestrictionTemplate)
#undef ZDL_MIN_ORDER_VALUE_TEMPLATE_GET_
#undef ZDL_MIN_ORDER_VALUE_ROW_
