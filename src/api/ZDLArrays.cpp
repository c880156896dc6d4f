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
