#pragma once
// The checks that the tables of values and lists name for a Set: a value
// outside its range is refused with 3, an item of a list by its kind, before
// anything changes.
#include <cmath>
#include <cstring>

#include "base/CodeLengths.h"
#include "base/ResultCodes.h"

namespace DL {

enum class EValueCheck {
  Any,          // any finite value
  NotNegative,  // 0 or above
  NettingType,  // a netting type: 0, 1 or 2
};

inline bool IsValueAllowed(EValueCheck check, double value) {
  if (!std::isfinite(value)) return false;
  switch (check) {
    case EValueCheck::NotNegative:
      return value >= 0.0;
    case EValueCheck::NettingType:
      return value >= 0.0 && value <= 2.0;
    case EValueCheck::Any:
      break;
  }
  return true;
}

// The kind of code an item of a list is.
enum class EListItem {
  Class,     // 12 characters, else 9
  Client,    // 12, else 10
  TrdAcc,    // 12, else 14
  Partner,   // 12, else 17
  Tag,       // 4, else 22
  Security,  // 12, else 13
  Type,      // any length
};

// 0, or the code that refuses an item: 3 for a null or empty item or one
// holding "," (it would split the list), else the kind's length code.
inline int CheckListItem(EListItem kind, const char* item) {
  if (item == nullptr || *item == '\0' || std::strchr(item, ',') != nullptr) return ZDL_BAD_ARGUMENT;
  switch (kind) {
    case EListItem::Class:
      return IsClassCodeLengthGreaterMaxLength(item) ? ZDL_CLASS_CODE_TOO_LONG : ZDL_OK;
    case EListItem::Client:
      return IsClientCodeLengthGreaterMaxLength(item) ? ZDL_CLIENT_CODE_TOO_LONG : ZDL_OK;
    case EListItem::TrdAcc:
      return IsTradeAccountLengthGreaterMaxLength(item) ? ZDL_TRADE_ACCOUNT_TOO_LONG : ZDL_OK;
    case EListItem::Partner:
      return IsPartnerCodeLengthGreaterMaxLength(item) ? ZDL_PARTNER_CODE_TOO_LONG : ZDL_OK;
    case EListItem::Tag:
      return IsTagCodeLengthGreaterMaxLength(item) ? ZDL_TAG_TOO_LONG : ZDL_OK;
    case EListItem::Security:
      return IsSecCodeLengthGreaterMaxLength(item) ? ZDL_SEC_CODE_TOO_LONG : ZDL_OK;
    case EListItem::Type:
      return ZDL_OK;
  }
  return ZDL_BAD_ARGUMENT;
}

}  // namespace DL
