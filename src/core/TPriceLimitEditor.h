#pragma once
// Price limits by class ("PriceLimit") and by security ("SecPriceLimit") of
// the firm, of client templates and of a client's own settings, with their
// soft twins, for remote commands. Built over the hub for one call; it keeps
// no state of its own.
//
// The limits are lines of the section map: the firm's in the sections
// "PriceLimit", "SecPriceLimit" and their "Soft_" twins (the code as the
// key, "MIDDLE" the family's middle price), a template's and a client's in
// their own section under "PriceLimit_" + code and the like ("PriceLimit_MIDDLE"
// the middle price). A line reads "deviation,price type[,1]", 1 to reject an
// order that breaks it. After an edit the security restrictions cache reads
// the owner's lines anew, so that the next query of every client sees it.
//
// Checks in this order: the owner's code (3 null or empty, 10 or 21 too
// long), the scope (0 the limit, 1 its soft twin, 19 for any other; a
// client's middle price has no soft twin), the owner (20 for a client
// without settings, 15 for a missing template; the firm's section is made by
// its first line), then the value (3 for a null or empty code, 9 or 13 for
// one longer than 12, 3 for a negative deviation or a price type outside 0
// to 7), then the lines (16 for a code already there, 4 for one to remove
// that is not).
#include <string>

#include "base/ApiRecords.h"
#include "core/TStorageHub.h"

namespace DL {

class TPriceLimitEditor {
 public:
  explicit TPriceLimitEditor(TStorageHub& hub) : m_hub(hub) {}

#define ZDL_PRICE_LIMIT_OPERATIONS_(Owner, Family, Item, OwnerParam)                                                 \
  [[nodiscard]] int Add##Item##SettingsTo##Owner##Family(ZDL_SettingsScope scope OwnerParam,                         \
                                                         const ZDL_PriceLimit* limit);                               \
  [[nodiscard]] int GetSettingListFrom##Owner##Family(ZDL_SettingsScope scope OwnerParam,                            \
                                                      ZDL_ArrayPriceLimit** limits) const;                           \
  [[nodiscard]] int GetMiddlePriceFrom##Owner##Family(ZDL_SettingsScope scope OwnerParam, int* priceType) const;     \
  [[nodiscard]] int Remove##Item##SettingsFrom##Owner##Family(ZDL_SettingsScope scope OwnerParam, const char* code); \
  [[nodiscard]] int SetSettingListTo##Owner##Family(ZDL_SettingsScope scope OwnerParam,                              \
                                                    const ZDL_ArrayPriceLimit* limits);                              \
  [[nodiscard]] int SetMiddlePriceTo##Owner##Family(ZDL_SettingsScope scope OwnerParam, int priceType);
#define ZDL_PRICE_LIMIT_NO_OWNER_
#define ZDL_PRICE_LIMIT_CLIENT_ , const char* clientCode
#define ZDL_PRICE_LIMIT_TEMPLATE_ , const char* templateCode
  ZDL_PRICE_LIMIT_OPERATIONS_(Global, PriceLimit, Class, ZDL_PRICE_LIMIT_NO_OWNER_)
  ZDL_PRICE_LIMIT_OPERATIONS_(Global, SecPriceLimit, Security, ZDL_PRICE_LIMIT_NO_OWNER_)
  ZDL_PRICE_LIMIT_OPERATIONS_(ClientSettings, PriceLimit, Class, ZDL_PRICE_LIMIT_CLIENT_)
  ZDL_PRICE_LIMIT_OPERATIONS_(ClientSettings, SecPriceLimit, Security, ZDL_PRICE_LIMIT_CLIENT_)
  ZDL_PRICE_LIMIT_OPERATIONS_(ClientTemplate, PriceLimit, Class, ZDL_PRICE_LIMIT_TEMPLATE_)
  ZDL_PRICE_LIMIT_OPERATIONS_(ClientTemplate, SecPriceLimit, Security, ZDL_PRICE_LIMIT_TEMPLATE_)
#undef ZDL_PRICE_LIMIT_OPERATIONS_
#undef ZDL_PRICE_LIMIT_NO_OWNER_
#undef ZDL_PRICE_LIMIT_CLIENT_
#undef ZDL_PRICE_LIMIT_TEMPLATE_

 private:
  enum class EOwner { Global, Client, Template };
  // Where the lines of one family of one owner stand.
  struct TPlace {
    EOwner owner = EOwner::Global;
    std::string section;
    std::string prefix;       // before the code in a key; empty in the firm's sections
    std::string middleKey;    // the family's middle price
    bool bySecurity = false;  // codes are securities
  };

  // The place for the owner's code, family and scope: 0, or 3 / 10 / 21 /
  // 19 as the checks above say.
  static int PlaceOf(EOwner owner, const char* code, bool bySecurity, ZDL_SettingsScope scope, TPlace& place);
  // The owner's keys: null with *result 4 (the firm's section missing), 15
  // or 20; with `make` a missing firm's section gives null with *result 0,
  // and MakeSection makes it once the value has passed.
  TIniParser::TKeyMap* Keys(const TPlace& place, bool make, int* result) const;
  TIniParser::TKeyMap* MakeSection(const TPlace& place, TIniParser::TKeyMap* keys);
  // 0, or 3 / 9 / 13 for a class or security code.
  static int CheckCode(const TPlace& place, const char* code);
  // 0, or 3 / 9 / 13 for the limit's code and value.
  static int CheckLimit(const TPlace& place, const ZDL_PriceLimit* limit);
  // Whether a key of the owner's section is one of the family's limits, and
  // its code; middles are not limits.
  static bool IsLimitKey(const TPlace& place, const std::string& key, std::string* code);
  // The security restrictions cache reads the owner's lines anew.
  void Refresh(const TPlace& place);

  [[nodiscard]] int Add(int result, const TPlace& place, const ZDL_PriceLimit* limit);
  [[nodiscard]] int GetList(int result, const TPlace& place, ZDL_ArrayPriceLimit** limits) const;
  [[nodiscard]] int GetMiddle(int result, const TPlace& place, int* priceType) const;
  [[nodiscard]] int Remove(int result, const TPlace& place, const char* code);
  [[nodiscard]] int SetList(int result, const TPlace& place, const ZDL_ArrayPriceLimit* limits);
  [[nodiscard]] int SetMiddle(int result, const TPlace& place, int priceType);

  TStorageHub& m_hub;
};

}  // namespace DL
