#pragma once
// Plain records of the settings API. They cross a boundary that knows no
// containers: counted arrays whose items block is allocated with array new,
// and elements whose strings and inner arrays are blocks of their own. The
// records that own memory stand in base/ApiRecords.def; the small ones passed
// by value are written out below.
#include <cstdint>
#include <cstring>
#include <string_view>

// 0 selects a setting, 1 its soft twin; any other value is refused with 19.
typedef int ZDL_SettingsScope;

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

// Applies macro to every parenthesised row: macro (type, field).
#define ZDL_PLAIN_FOR_EACH_(macro, ...) __VA_OPT__(ZDL_PLAIN_EXPAND_(ZDL_PLAIN_STEP_(macro, __VA_ARGS__)))
#define ZDL_PLAIN_STEP_(macro, row, ...) macro row __VA_OPT__(ZDL_PLAIN_AGAIN_ ZDL_PLAIN_PARENS_(macro, __VA_ARGS__))
#define ZDL_PLAIN_AGAIN_() ZDL_PLAIN_STEP_
#define ZDL_PLAIN_PARENS_ ()
#define ZDL_PLAIN_EXPAND_(...) ZDL_PLAIN_EXPAND2_(ZDL_PLAIN_EXPAND2_(ZDL_PLAIN_EXPAND2_(ZDL_PLAIN_EXPAND2_(__VA_ARGS__))))
#define ZDL_PLAIN_EXPAND2_(...) ZDL_PLAIN_EXPAND1_(ZDL_PLAIN_EXPAND1_(ZDL_PLAIN_EXPAND1_(ZDL_PLAIN_EXPAND1_(__VA_ARGS__))))
#define ZDL_PLAIN_EXPAND1_(...) ZDL_PLAIN_EXPAND0_(ZDL_PLAIN_EXPAND0_(ZDL_PLAIN_EXPAND0_(ZDL_PLAIN_EXPAND0_(__VA_ARGS__))))
#define ZDL_PLAIN_EXPAND0_(...) __VA_ARGS__

#define ZDL_PLAIN_FIELD_(type, field) type field;

#define ZDL_PLAIN_ARRAY(Name, Element) \
  struct ZDL_##Name {                  \
    uint64_t count; /* elements */     \
    Element* items; /* one block */    \
  };
#define ZDL_PLAIN_ELEMENT(Name, ...) \
  struct ZDL_##Name {                \
    ZDL_PLAIN_FOR_EACH_(ZDL_PLAIN_FIELD_, __VA_ARGS__) \
  };
#include "base/ApiRecords.def"
#undef ZDL_PLAIN_ARRAY
#undef ZDL_PLAIN_ELEMENT

// ---- Releasing what a record holds ----------------------------------------
//
// ZDLPlain::ReleaseContents(a) releases every string and inner array of an
// array's items, then the items block, and leaves a empty (count 0, items
// null); the record itself stays. ZDLPlain::ReleaseItem(e) does the same for
// one element. The command handlers' Free_ functions and the firm's TMemory
// both release through them, so they agree on what a record owns.
namespace ZDLPlain {

// A string of a record or array handed out: a block of its own (array new),
// which ReleaseItem gives back.
inline char* NewText(std::string_view text) {
  char* block = new char[text.size() + 1];
  std::memcpy(block, text.data(), text.size());
  block[text.size()] = '\0';
  return block;
}

inline void ReleaseItem(char*& text) {
  delete[] text;
  text = nullptr;
}
inline void ReleaseItem(bool&) {}
inline void ReleaseItem(int&) {}
inline void ReleaseItem(long long&) {}
inline void ReleaseItem(double&) {}

#define ZDL_PLAIN_ARRAY(Name, Element) inline void ReleaseItem(ZDL_##Name& a);
#define ZDL_PLAIN_ELEMENT(Name, ...) inline void ReleaseItem(ZDL_##Name& e);
#include "base/ApiRecords.def"
#undef ZDL_PLAIN_ARRAY
#undef ZDL_PLAIN_ELEMENT

template <class Array>
void ReleaseContents(Array& a) {
  if (a.items != nullptr)
    for (uint64_t i = 0; i < a.count; ++i) ReleaseItem(a.items[i]);
  delete[] a.items;
  a.items = nullptr;
  a.count = 0;
}

#define ZDL_PLAIN_RELEASE_FIELD_(type, field) ReleaseItem(e.field);
#define ZDL_PLAIN_ARRAY(Name, Element) \
  inline void ReleaseItem(ZDL_##Name& a) { ReleaseContents(a); }
#define ZDL_PLAIN_ELEMENT(Name, ...)                            \
  inline void ReleaseItem(ZDL_##Name& e) {                      \
    ZDL_PLAIN_FOR_EACH_(ZDL_PLAIN_RELEASE_FIELD_, __VA_ARGS__)  \
  }
#include "base/ApiRecords.def"
#undef ZDL_PLAIN_ARRAY
#undef ZDL_PLAIN_ELEMENT
#undef ZDL_PLAIN_RELEASE_FIELD_

}  // namespace ZDLPlain
