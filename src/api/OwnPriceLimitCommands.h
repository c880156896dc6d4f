#pragma once
// Records and recipes of the price limit commands (see api/OwnCommands.h).
// Every record begins with "firmCode" and "settingsScope" (0 the limit, 1 its
// soft twin), then the owner's code ("clientCode" or "templateCode") where
// there is an owner. The lists travel as "lsSettings", a list of
// TDL_PriceLimit; one limit as "classCode" (or "secCode"), "deviation",
// "priceType" and "reject"; the middle price as "middlePrice".
#include <string>
#include <vector>

#include "api/OwnShape.h"

namespace DL::Adapters::PriceLimitRecipes {
using namespace Shape;

// One limit made of the record's fields, passed as const ZDL_PriceLimit*.
template <auto Code, auto Deviation, auto PriceType, auto Reject>
struct Limit {
  class THolder {
   public:
    template <class R>
    explicit THolder(const R& r) : code_(r.*Code) {
      limit_.classCode = code_.data();
      limit_.deviation = r.*Deviation;
      limit_.priceType = r.*PriceType;
      limit_.reject = r.*Reject;
    }
    const ZDL_PriceLimit* get() const { return &limit_; }

   private:
    std::string code_;
    ZDL_PriceLimit limit_{};
  };
  template <class P, class R>
  static THolder Bind(R& r) {
    return THolder(r);
  }
  template <class R>
  static std::string Text(const R& r) {
    return Quoted(r.*Code) + ',' + Quoted(NumberText(r.*Deviation)) + ',' + Quoted(std::to_string(r.*PriceType)) + ',' +
           Quoted(r.*Reject ? "1" : "0");
  }
};

template <auto Member>
using Limits = Composite<ZDL_ArrayPriceLimit, Member>;
template <auto Member>
using OutLimits = OutArray<ZDL_ArrayPriceLimit, Member>;
}  // namespace DL::Adapters::PriceLimitRecipes

// The owner's field and its binder, by owner.
#define ZDL_PL_GLOBAL_FIELD_
#define ZDL_PL_GLOBAL_BIND_(R)
#define ZDL_PL_CLIENT_FIELD_ (std::string, clientCode),
#define ZDL_PL_CLIENT_BIND_(R) , Shape::Str<&R::clientCode>
#define ZDL_PL_TEMPLATE_FIELD_ (std::string, templateCode),
#define ZDL_PL_TEMPLATE_BIND_(R) , Shape::Str<&R::templateCode>

// The six commands of one owner and family.
#define ZDL_PRICE_LIMIT_RECIPES_(Owner, Family, Item, OwnerField, OwnerBind, code)                                 \
  ZDL_DECLARE_RECORD(TDL_Add##Item##SettingsTo##Owner##Family, (std::string, firmCode), (int, settingsScope),      \
                     OwnerField(std::string, code), (double, deviation), (int, priceType), (bool, reject));        \
  ZDL_DECLARE_RECORD(TDL_Remove##Item##SettingsFrom##Owner##Family, (std::string, firmCode), (int, settingsScope), \
                     OwnerField(std::string, code));                                                               \
  ZDL_DECLARE_RECORD(TDL_GetSettingListFrom##Owner##Family, (std::string, firmCode), (int, settingsScope),         \
                     OwnerField(std::vector<TDL_PriceLimit>, lsSettings));                                         \
  ZDL_DECLARE_RECORD(TDL_SetSettingListTo##Owner##Family, (std::string, firmCode), (int, settingsScope),           \
                     OwnerField(std::vector<TDL_PriceLimit>, lsSettings));                                         \
  ZDL_DECLARE_RECORD(TDL_GetMiddlePriceFrom##Owner##Family, (std::string, firmCode), (int, settingsScope),         \
                     OwnerField(int, middlePrice));                                                                \
  ZDL_DECLARE_RECORD(TDL_SetMiddlePriceTo##Owner##Family, (std::string, firmCode), (int, settingsScope),           \
                     OwnerField(int, middlePrice));                                                                \
  ZDL_OWN_SHAPE(Add##Item##SettingsTo##Owner##Family,                                                              \
                Shape::TSend<TDL_Add##Item##SettingsTo##Owner##Family, Shape::LineArguments,                       \
                             Shape::Str<&TDL_Add##Item##SettingsTo##Owner##Family::firmCode>,                      \
                             Shape::Val<&TDL_Add##Item##SettingsTo##Owner##Family::settingsScope> OwnerBind(       \
                                 TDL_Add##Item##SettingsTo##Owner##Family),                                        \
                             PriceLimitRecipes::Limit<&TDL_Add##Item##SettingsTo##Owner##Family::code,             \
                                                      &TDL_Add##Item##SettingsTo##Owner##Family::deviation,        \
                                                      &TDL_Add##Item##SettingsTo##Owner##Family::priceType,        \
                                                      &TDL_Add##Item##SettingsTo##Owner##Family::reject>>)         \
  ZDL_OWN_SHAPE(Remove##Item##SettingsFrom##Owner##Family,                                                         \
                Shape::TSend<TDL_Remove##Item##SettingsFrom##Owner##Family, Shape::LineArguments,                  \
                             Shape::Str<&TDL_Remove##Item##SettingsFrom##Owner##Family::firmCode>,                 \
                             Shape::Val<&TDL_Remove##Item##SettingsFrom##Owner##Family::settingsScope> OwnerBind(  \
                                 TDL_Remove##Item##SettingsFrom##Owner##Family),                                   \
                             Shape::Str<&TDL_Remove##Item##SettingsFrom##Owner##Family::code>>)                    \
  ZDL_OWN_SHAPE(GetSettingListFrom##Owner##Family,                                                                 \
                Shape::TRead<TDL_GetSettingListFrom##Owner##Family,                                                \
                             PriceLimitRecipes::OutLimits<&TDL_GetSettingListFrom##Owner##Family::lsSettings>,     \
                             Shape::Str<&TDL_GetSettingListFrom##Owner##Family::firmCode>,                         \
                             Shape::Val<&TDL_GetSettingListFrom##Owner##Family::settingsScope> OwnerBind(          \
                                 TDL_GetSettingListFrom##Owner##Family)>)                                          \
  ZDL_OWN_SHAPE(SetSettingListTo##Owner##Family,                                                                   \
                Shape::TSend<TDL_SetSettingListTo##Owner##Family, Shape::LineArguments,                            \
                             Shape::Str<&TDL_SetSettingListTo##Owner##Family::firmCode>,                           \
                             Shape::Val<&TDL_SetSettingListTo##Owner##Family::settingsScope> OwnerBind(            \
                                 TDL_SetSettingListTo##Owner##Family),                                             \
                             PriceLimitRecipes::Limits<&TDL_SetSettingListTo##Owner##Family::lsSettings>>)         \
  ZDL_OWN_SHAPE(GetMiddlePriceFrom##Owner##Family,                                                                 \
                Shape::TRead<TDL_GetMiddlePriceFrom##Owner##Family,                                                \
                             Shape::OutVal<&TDL_GetMiddlePriceFrom##Owner##Family::middlePrice>,                   \
                             Shape::Str<&TDL_GetMiddlePriceFrom##Owner##Family::firmCode>,                         \
                             Shape::Val<&TDL_GetMiddlePriceFrom##Owner##Family::settingsScope> OwnerBind(          \
                                 TDL_GetMiddlePriceFrom##Owner##Family)>)                                          \
  ZDL_OWN_SHAPE(SetMiddlePriceTo##Owner##Family,                                                                   \
                Shape::TSend<TDL_SetMiddlePriceTo##Owner##Family, Shape::LineArguments,                            \
                             Shape::Str<&TDL_SetMiddlePriceTo##Owner##Family::firmCode>,                           \
                             Shape::Val<&TDL_SetMiddlePriceTo##Owner##Family::settingsScope> OwnerBind(            \
                                 TDL_SetMiddlePriceTo##Owner##Family),                                             \
                             Shape::Val<&TDL_SetMiddlePriceTo##Owner##Family::middlePrice>>)

ZDL_PRICE_LIMIT_RECIPES_(Global, PriceLimit, Class, ZDL_PL_GLOBAL_FIELD_, ZDL_PL_GLOBAL_BIND_, classCode)
ZDL_PRICE_LIMIT_RECIPES_(Global, SecPriceLimit, Security, ZDL_PL_GLOBAL_FIELD_, ZDL_PL_GLOBAL_BIND_, secCode)
ZDL_PRICE_LIMIT_RECIPES_(ClientSettings, PriceLimit, Class, ZDL_PL_CLIENT_FIELD_, ZDL_PL_CLIENT_BIND_, classCode)
ZDL_PRICE_LIMIT_RECIPES_(ClientSettings, SecPriceLimit, Security, ZDL_PL_CLIENT_FIELD_, ZDL_PL_CLIENT_BIND_, secCode)
ZDL_PRICE_LIMIT_RECIPES_(ClientTemplate, PriceLimit, Class, ZDL_PL_TEMPLATE_FIELD_, ZDL_PL_TEMPLATE_BIND_, classCode)
ZDL_PRICE_LIMIT_RECIPES_(ClientTemplate, SecPriceLimit, Security, ZDL_PL_TEMPLATE_FIELD_, ZDL_PL_TEMPLATE_BIND_,
                         secCode)

#undef ZDL_PRICE_LIMIT_RECIPES_
#undef ZDL_PL_GLOBAL_FIELD_
#undef ZDL_PL_GLOBAL_BIND_
#undef ZDL_PL_CLIENT_FIELD_
#undef ZDL_PL_CLIENT_BIND_
#undef ZDL_PL_TEMPLATE_FIELD_
#undef ZDL_PL_TEMPLATE_BIND_
