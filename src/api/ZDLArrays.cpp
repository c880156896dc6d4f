#include "api/ZDLArrays.h"

#include <algorithm>
#include <cstring>

void New_ZDL_ArrayStrings(ZDL_ArrayStrings& out, const std::vector<std::string>& in) {
  out.count = in.size();
  out.items = new char*[in.size()];
  for (size_t i = 0; i < in.size(); ++i) {
    out.items[i] = new char[in[i].size() + 1];
    std::memcpy(out.items[i], in[i].c_str(), in[i].size() + 1);
  }
}

void Free_ZDL_ArrayStrings(ZDL_ArrayStrings& a) {
  if (a.items != nullptr)
    for (uint64_t i = 0; i < a.count; ++i) delete[] a.items[i];
  delete[] a.items;
  a.items = nullptr;
  a.count = 0;
}

void New_ZDL_ArrayIntNumbers(ZDL_ArrayIntNumbers& out, const std::vector<int>& in) {
  out.count = in.size();
  out.items = new int[in.size()];
  std::copy(in.begin(), in.end(), out.items);
}

void Free_ZDL_ArrayIntNumbers(ZDL_ArrayIntNumbers& a) {
  delete[] a.items;
  a.items = nullptr;
  a.count = 0;
}

void New_ZDL_ArrayDoubleNumbers(ZDL_ArrayDoubleNumbers& out, const std::vector<double>& in) {
  out.count = in.size();
  out.items = new double[in.size()];
  std::copy(in.begin(), in.end(), out.items);
}

void Free_ZDL_ArrayDoubleNumbers(ZDL_ArrayDoubleNumbers& a) {
  delete[] a.items;
  a.items = nullptr;
  a.count = 0;
}

namespace {
char* CopyText(const std::string& text) {
  char* s = new char[text.size() + 1];
  std::memcpy(s, text.c_str(), text.size() + 1);
  return s;
}
}  // namespace

void New_ZDL_ArrayCodeToCodeTrdaccToTrdacc(ZDL_ArrayCodeToCodeTrdaccToTrdacc& out,
                                           const std::vector<TDL_StringsPair>& in) {
  out.count = in.size();
  out.items = new ZDL_StringToString[in.size()]();
  for (size_t i = 0; i < in.size(); ++i) {
    out.items[i].str1 = CopyText(in[i].str1);
    out.items[i].str2 = CopyText(in[i].str2);
  }
}

void Free_ZDL_ArrayCodeToCodeTrdaccToTrdacc(ZDL_ArrayCodeToCodeTrdaccToTrdacc& a) {
  if (a.items != nullptr)
    for (uint64_t i = 0; i < a.count; ++i) {
      delete[] a.items[i].str1;
      delete[] a.items[i].str2;
    }
  delete[] a.items;
  a.items = nullptr;
  a.count = 0;
}
