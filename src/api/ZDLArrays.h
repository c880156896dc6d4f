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

// Each pair's two strings in blocks of their own.
void New_ZDL_ArrayCodeToCodeTrdaccToTrdacc(ZDL_ArrayCodeToCodeTrdaccToTrdacc& out, const std::vector<TDL_StringsPair>& in);
void Free_ZDL_ArrayCodeToCodeTrdaccToTrdacc(ZDL_ArrayCodeToCodeTrdaccToTrdacc& a);
