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
