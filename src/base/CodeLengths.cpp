#include "base/CodeLengths.h"

#include <cstring>

namespace DL {
namespace {

size_t Length(const char* code) { return code == nullptr ? 0 : std::strlen(code); }

}  // namespace

#define ZDL_CODE_LENGTH_PREDICATE(Name, Max)                                                       \
  bool Name(const char* code) { return Length(code) > (Max); }                                    \
  bool Name(const std::string& code) { return code.size() > (Max); }

ZDL_CODE_LENGTH_PREDICATE(IsClassCodeLengthGreaterMaxLength, MaxClassCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsClientCodeLengthGreaterMaxLength, MaxClientCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsCurrCodeLengthGreaterMaxLength, MaxCurrCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsFirmCodeLengthGreaterMaxLength, MaxFirmCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsPartnerCodeLengthGreaterMaxLength, MaxPartnerCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsSecCodeLengthGreaterMaxLength, MaxSecCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsSettleCodeLengthGreaterMaxLength, MaxSettleCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsTagCodeLengthGreaterMaxLength, MaxTagCodeLength)
ZDL_CODE_LENGTH_PREDICATE(IsTradeAccountLengthGreaterMaxLength, MaxTradeAccountLength)
ZDL_CODE_LENGTH_PREDICATE(IsTemplateCodeLengthGreaterMaxLength, MaxTemplateCodeLength)

#undef ZDL_CODE_LENGTH_PREDICATE

bool IsRowLengthGreaterMaxLength(const char* row, size_t maxLength) { return Length(row) > maxLength; }

size_t GetCodeSymbCount(EClassSettingType type) {
  switch (type) {
    case cstCurrency:
    case cstTag:
      return 4;
    case cstClass:
    case cstClient:
    case cstFirm:
    case cstPartner:
    case cstSecurity:
    case cstSettleCode:
    case cstTradeAccount:
      return 12;
  }
  return 0;
}

size_t GetCodeStrSize(EClassSettingType type) { return GetCodeSymbCount(type) + 1; }

bool IsRowLengthGreaterMaxLength(std::string_view row, EClassSettingType type) {
  const size_t limit = GetCodeSymbCount(type);
  if (limit == 0) return true;
  return row.size() > limit;
}

bool IsRowLengthGreaterMaxLength(const char* row, EClassSettingType type) {
  return IsRowLengthGreaterMaxLength(std::string_view(row == nullptr ? "" : row), type);
}

int CheckGEZero(int value) { return value >= 0 ? ZDL_OK : ZDL_BAD_ARGUMENT; }
int CheckGEMinus1(int value) { return value >= -1 ? ZDL_OK : ZDL_BAD_ARGUMENT; }
int CheckGTZero(int value) { return value >= 1 ? ZDL_OK : ZDL_BAD_ARGUMENT; }
int CheckIntAsBool(int value) { return value == 0 || value == 1 ? ZDL_OK : ZDL_BAD_ARGUMENT; }
int CheckIntAsBoolAndMinus1(int value) { return value >= -1 && value <= 1 ? ZDL_OK : ZDL_BAD_ARGUMENT; }

}  // namespace DL
