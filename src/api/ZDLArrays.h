#pragma once
// Building and releasing the argument arrays that command handlers pass to
// the settings API. What New_ builds, the matching Free_ releases, whatever
// the settings call returned; the settings layer copies what it keeps.
#include <string>
#include <vector>

#include "api/AdapterRecords.h"
#include "base/ApiRecords.h"

// count = in.size(); items is a block of that many entries (also for an empty
// vector: a block of zero length), each string in a block of its length plus one.
void New_ZDL_ArrayStrings(ZDL_ArrayStrings& out, const std::vector<std::string>& in);
void Free_ZDL_ArrayStrings(ZDL_ArrayStrings& a);

void New_ZDL_ArrayIntNumbers(ZDL_ArrayIntNumbers& out, const std::vector<int>& in);
void Free_ZDL_ArrayIntNumbers(ZDL_ArrayIntNumbers& a);

void New_ZDL_ArrayDoubleNumbers(ZDL_ArrayDoubleNumbers& out, const std::vector<double>& in);
void Free_ZDL_ArrayDoubleNumbers(ZDL_ArrayDoubleNumbers& a);

// The composite arrays of ZDLArrays.def. New_ sets count, allocates items
// (a block of zero length for an empty vector) and copies each element with
// its strings and inner arrays; Free_ releases all of that. ZDL_ToRecords
// copies an array the settings layer handed out back into records (nothing
// for a null items block).
void ZDL_ToRecords(const ZDL_ArrayStrings& in, std::vector<std::string>& out);
void ZDL_ToRecords(const ZDL_ArrayIntNumbers& in, std::vector<int>& out);
void ZDL_ToRecords(const ZDL_ArrayDoubleNumbers& in, std::vector<double>& out);

#define ZDL_COMPOSITE_ARRAY(array, element)                                \
  void New_ZDL_##array(ZDL_##array& out, const std::vector<element>& in); \
  void Free_ZDL_##array(ZDL_##array& a);                                   \
  void ZDL_ToRecords(const ZDL_##array& in, std::vector<element>& out);
#include "api/ZDLArrays.def"
#undef ZDL_COMPOSITE_ARRAY
