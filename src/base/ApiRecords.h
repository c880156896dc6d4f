#pragma once
// Plain records of the settings API. They cross a boundary that knows no
// containers: counted arrays whose items block is allocated with array new.
#include <cstdint>

// 0 selects a setting, 1 its soft twin; any other value is refused with 19.
typedef int ZDL_SettingsScope;

struct ZDL_ArrayStrings {
  uint64_t count;  // number of items
  char** items;    // each string in a block of its own
};

struct ZDL_ArrayIntNumbers {
  uint64_t count;
  int* items;
};

struct ZDL_ArrayDoubleNumbers {
  uint64_t count;
  double* items;
};

// Three coefficients of a discount, passed and returned by value.
struct ZDL_BaseDiscCoeff {
  double coeff1;
  double coeff2;
  double coeff3;
};

// Two numbers of the volatility change scenarios, passed and returned by value.
struct ZDL_VolatilityChangeScenarios {
  double value1;
  double value2;
};

// A pair of codes, each string in a block of its own (array new).
struct ZDL_StringToString {
  char* str1;
  char* str2;
};

// Pairs of codes: a code and the code it maps to.
struct ZDL_ArrayStringToString {
  uint64_t count;
  ZDL_StringToString* items;
};

// Pairs of client code and trade account (or of two codes of one kind).
struct ZDL_ArrayCodeToCodeTrdaccToTrdacc {
  uint64_t count;
  ZDL_StringToString* items;
};

// ---- Composite arrays: each element holds strings and inner arrays of its
// own (each string and each items block allocated with array new). Element
// fields are named after the fields they travel in.

// A number with a list of strings: a limit kind and its classes or securities.
struct ZDL_IntToArrayString {
  int intParam;                // the limit kind
  ZDL_ArrayStrings lsStrings;  // the classes or securities of that kind
};

// Classes by limit kind.
struct ZDL_ArrayClassToLimitKind {
  uint64_t count;
  ZDL_IntToArrayString* items;
};

// Securities by limit kind; the same layout as the classes, a type of its own
// so that the two settings functions can share one name.
struct ZDL_ArraySecToLimitKind {
  uint64_t count;
  ZDL_IntToArrayString* items;
};

// A limit kind with the settle codes and the classes it applies to.
struct ZDL_LimitKindToSettleCodeListToClassList {
  int intParam;                    // the limit kind
  ZDL_ArrayStrings lsSettleCodes;  // settle codes
  ZDL_ArrayStrings lsClasses;      // class codes
};

struct ZDL_ArrayLimitKindToSettleCodeListToClassList {
  uint64_t count;
  ZDL_LimitKindToSettleCodeListToClassList* items;
};

// A code with a list of strings that belong to it (a class, security, tag or
// currency and its list).
struct ZDL_StringListToString {
  char* str;
  ZDL_ArrayStrings lsStrings;
};

// Boards (or other codes) for a class.
struct ZDL_ArrayOfStringListToClass {
  uint64_t count;
  ZDL_StringListToString* items;
};

// Codes for a security.
struct ZDL_ArrayOfStringListToSec {
  uint64_t count;
  ZDL_StringListToString* items;
};

// Codes for a tag.
struct ZDL_ArrayStringListToTag {
  uint64_t count;
  ZDL_StringListToString* items;
};

// Codes for a currency.
struct ZDL_ArrayOfStringListToCurrency {
  uint64_t count;
  ZDL_StringListToString* items;
};

// A currency and its classes.
struct ZDL_ClassListForCurrency {
  char* currency;
  ZDL_ArrayStrings lsClasses;
};

struct ZDL_ArrayClassListForCurrency {
  uint64_t count;
  ZDL_ClassListForCurrency* items;
};

// A code with a number: a currency with its discount.
struct ZDL_StringAndDouble {
  char* str;
  double value;
};

struct ZDL_ArrayCurrencyWithDiscount {
  uint64_t count;
  ZDL_StringAndDouble* items;
};

// A code with the list of codes it maps to.
struct ZDL_StringToArrayStrings {
  char* strCode;
  ZDL_ArrayStrings lsStrings;
};

// Base assets and the derivatives on each.
struct ZDL_DerivativesBaseAssetsList {
  uint64_t count;
  ZDL_StringToArrayStrings* items;
};

// Classes and the settle codes of each.
struct ZDL_ArrayClassCodeToSettleCodeList {
  uint64_t count;
  ZDL_StringToArrayStrings* items;
};

// Settle codes and the securities of each (inside one class).
struct ZDL_ArraySettleCodeToSecList {
  uint64_t count;
  ZDL_StringToArrayStrings* items;
};

// A class with its settle codes, each with its securities.
struct ZDL_ClassToSettleCodeToSec {
  char* strCode;                             // the class
  ZDL_ArraySettleCodeToSecList lsSettleCodes;  // settle code -> securities
};

struct ZDL_ClassToSettleCodeToSecList {
  uint64_t count;
  ZDL_ClassToSettleCodeToSec* items;
};

// Two codes and a list (a class, a settle code and its securities).
struct ZDL_TwoStringsAndArrayStrings {
  char* str1;
  char* str2;
  ZDL_ArrayStrings lsStrings;
};

struct ZDL_ArrayOfTwoStringsAndArrayStrings {
  uint64_t count;
  ZDL_TwoStringsAndArrayStrings* items;
};

// Client codes and their trade accounts.
struct ZDL_ArrayClientCodeToTrdAcc {
  uint64_t count;
  ZDL_StringToString* items;
};

// ---- Releasing what an array holds ----------------------------------------
//
// ZDLPlain::ReleaseContents(a) releases every string and inner array of a's
// items, then the items block, and leaves a empty (count 0, items null); the
// record itself stays. The command handlers' Free_ functions and the firm's
// TMemory release through it, so both agree on what an element owns.
namespace ZDLPlain {

inline void ReleaseItem(char*& text) {
  delete[] text;
  text = nullptr;
}
inline void ReleaseItem(int&) {}
inline void ReleaseItem(double&) {}
inline void ReleaseItem(ZDL_ArrayStrings& a);
inline void ReleaseItem(ZDL_StringToString& e);
inline void ReleaseItem(ZDL_IntToArrayString& e);
inline void ReleaseItem(ZDL_LimitKindToSettleCodeListToClassList& e);
inline void ReleaseItem(ZDL_StringListToString& e);
inline void ReleaseItem(ZDL_ClassListForCurrency& e);
inline void ReleaseItem(ZDL_StringAndDouble& e);
inline void ReleaseItem(ZDL_StringToArrayStrings& e);
inline void ReleaseItem(ZDL_ClassToSettleCodeToSec& e);
inline void ReleaseItem(ZDL_TwoStringsAndArrayStrings& e);

template <class Array>
void ReleaseContents(Array& a) {
  if (a.items != nullptr)
    for (uint64_t i = 0; i < a.count; ++i) ReleaseItem(a.items[i]);
  delete[] a.items;
  a.items = nullptr;
  a.count = 0;
}

inline void ReleaseItem(ZDL_ArrayStrings& a) { ReleaseContents(a); }
inline void ReleaseItem(ZDL_StringToString& e) {
  ReleaseItem(e.str1);
  ReleaseItem(e.str2);
}
inline void ReleaseItem(ZDL_IntToArrayString& e) { ReleaseContents(e.lsStrings); }
inline void ReleaseItem(ZDL_LimitKindToSettleCodeListToClassList& e) {
  ReleaseContents(e.lsSettleCodes);
  ReleaseContents(e.lsClasses);
}
inline void ReleaseItem(ZDL_StringListToString& e) {
  ReleaseItem(e.str);
  ReleaseContents(e.lsStrings);
}
inline void ReleaseItem(ZDL_ClassListForCurrency& e) {
  ReleaseItem(e.currency);
  ReleaseContents(e.lsClasses);
}
inline void ReleaseItem(ZDL_StringAndDouble& e) { ReleaseItem(e.str); }
inline void ReleaseItem(ZDL_StringToArrayStrings& e) {
  ReleaseItem(e.strCode);
  ReleaseContents(e.lsStrings);
}
inline void ReleaseItem(ZDL_ClassToSettleCodeToSec& e) {
  ReleaseItem(e.strCode);
  ReleaseContents(e.lsSettleCodes);
}
inline void ReleaseItem(ZDL_TwoStringsAndArrayStrings& e) {
  ReleaseItem(e.str1);
  ReleaseItem(e.str2);
  ReleaseContents(e.lsStrings);
}

}  // namespace ZDLPlain
