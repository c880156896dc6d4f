#pragma once
// Code lengths of the trading system and the validators of API arguments.
// Every predicate answers "longer than the maximum?"; a null text counts as
// empty. The validators answer with a ZDLErrors code.

#include <cstddef>
#include <string>
#include <string_view>

#include "base/TradingTypes.h"
#include "base/ResultCodes.h"

namespace DL {

// Kind of code a setting holds; decides the code's maximal length
// (currency and tag 4, the others 12).
enum EClassSettingType {
  cstClass = 0,
  cstClient = 1,
  cstCurrency = 2,
  cstFirm = 3,
  cstPartner = 4,
  cstSecurity = 5,
  cstSettleCode = 6,
  cstTag = 7,
  cstTradeAccount = 8,
};

bool IsClassCodeLengthGreaterMaxLength(const char* code);
bool IsClassCodeLengthGreaterMaxLength(const std::string& code);
bool IsClientCodeLengthGreaterMaxLength(const char* code);
bool IsClientCodeLengthGreaterMaxLength(const std::string& code);
bool IsCurrCodeLengthGreaterMaxLength(const char* code);
bool IsCurrCodeLengthGreaterMaxLength(const std::string& code);
bool IsFirmCodeLengthGreaterMaxLength(const char* code);
bool IsFirmCodeLengthGreaterMaxLength(const std::string& code);
bool IsPartnerCodeLengthGreaterMaxLength(const char* code);
bool IsPartnerCodeLengthGreaterMaxLength(const std::string& code);
bool IsSecCodeLengthGreaterMaxLength(const char* code);
bool IsSecCodeLengthGreaterMaxLength(const std::string& code);
bool IsSettleCodeLengthGreaterMaxLength(const char* code);
bool IsSettleCodeLengthGreaterMaxLength(const std::string& code);
bool IsTagCodeLengthGreaterMaxLength(const char* code);
bool IsTagCodeLengthGreaterMaxLength(const std::string& code);
bool IsTradeAccountLengthGreaterMaxLength(const char* code);
bool IsTradeAccountLengthGreaterMaxLength(const std::string& code);
bool IsTemplateCodeLengthGreaterMaxLength(const char* code);
bool IsTemplateCodeLengthGreaterMaxLength(const std::string& code);

// Longer than the given maximum.
bool IsRowLengthGreaterMaxLength(const char* row, size_t maxLength);
// Longer than the maximum of the setting type; an unknown type is always too long.
bool IsRowLengthGreaterMaxLength(const char* row, EClassSettingType type);
bool IsRowLengthGreaterMaxLength(std::string_view row, EClassSettingType type);

// The maximal length of the setting type's code (0 for an unknown type), and
// the buffer size that holds it with its terminating zero.
size_t GetCodeSymbCount(EClassSettingType type);
size_t GetCodeStrSize(EClassSettingType type);

// True if one string of the list is longer than maxLength; an empty list is false.
template <class TList>
bool CheckIfCodeInListLengthGreaterMaxLength(const TList& list, size_t maxLength) {
  for (const auto& s : list)
    if (std::string_view(s).size() > maxLength) return true;
  return false;
}

// Validates a ZDL_ string array (fields count and items): a null list, a null
// item array, a null or empty item give ZDL_BAD_ARGUMENT; an item longer than
// maxLength gives tooLongCode; an empty array (count 0) is fine.
template <class TArray>
int CheckZDLType(const TArray* list, int tooLongCode, size_t maxLength) {
  if (list == nullptr) return ZDL_BAD_ARGUMENT;
  if (list->count == 0) return ZDL_OK;
  if (list->items == nullptr) return ZDL_BAD_ARGUMENT;
  for (size_t i = 0; i < list->count; ++i) {
    const char* item = list->items[i];
    if (item == nullptr || item[0] == '\0') return ZDL_BAD_ARGUMENT;
    if (std::string_view(item).size() > maxLength) return tooLongCode;
  }
  return ZDL_OK;
}

// Validators of typed integers: ZDL_OK or ZDL_BAD_ARGUMENT.
int CheckGEZero(int value);               // at least 0
int CheckGEMinus1(int value);             // at least -1
int CheckGTZero(int value);               // at least 1
int CheckIntAsBool(int value);            // 0 or 1
int CheckIntAsBoolAndMinus1(int value);   // -1, 0 or 1

}  // namespace DL
