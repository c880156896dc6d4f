#include "api/ZDLArrays.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace {

// ---- Records into plain elements -------------------------------------------
// Every overload is declared before the templates that reach it.


void Fill(char*& out, const std::string& in) { out = ZDLPlain::NewText(in); }
void Fill(int& out, int in) { out = in; }
void Fill(double& out, double in) { out = in; }
void Fill(bool& out, bool in) { out = in; }
void Fill(ZDL_StringToString& out, const TDL_StringsPair& in);
void Fill(ZDL_IntToArrayString& out, const TDL_IntToArrayString& in);
void Fill(ZDL_LimitKindToSettleCodeListToClassList& out, const TDL_IntToSettleCodeListToClassList& in);
void Fill(ZDL_StringListToString& out, const TDL_StringListToString& in);
void Fill(ZDL_ClassListForCurrency& out, const TDL_ClassListForCurrency& in);
void Fill(ZDL_StringAndDouble& out, const TDL_StringAndDouble& in);
void Fill(ZDL_StringToArrayStrings& out, const TDL_StringToArrayStrings& in);
void Fill(ZDL_ClassToSettleCodeToSec& out, const TDL_ClassToSettleCodeToSec& in);
void Fill(ZDL_TwoStringsAndArrayStrings& out, const TDL_TwoStringsAndArrayStrings& in);
void Fill(ZDL_MinOrderValue& out, const TDL_MinOrderValue& in);
void Fill(ZDL_PriceLimit& out, const TDL_PriceLimit& in);

// count and a block of that many zeroed items, each filled in turn; on a
// failure on the way everything made so far is released. An empty list has
// no block: a list of 0 items inside an element reaches the settings layer
// as a null array, as an empty argument does.
template <class Array, class Wire>
void NewArray(Array& out, const std::vector<Wire>& in) {
  using Item = std::remove_pointer_t<decltype(out.items)>;
  out.count = in.size();
  out.items = in.empty() ? nullptr : new Item[in.size()]();
  try {
    for (std::size_t i = 0; i < in.size(); ++i) Fill(out.items[i], in[i]);
  } catch (...) {
    ZDLPlain::ReleaseContents(out);
    throw;
  }
}

void Fill(ZDL_ArrayStrings& out, const std::vector<std::string>& in) { NewArray(out, in); }
void Fill(ZDL_ArraySettleCodeToSecList& out, const std::vector<TDL_StringToArrayStrings>& in) { NewArray(out, in); }

void Fill(ZDL_StringToString& out, const TDL_StringsPair& in) {
  Fill(out.str1, in.str1);
  Fill(out.str2, in.str2);
}
void Fill(ZDL_IntToArrayString& out, const TDL_IntToArrayString& in) {
  Fill(out.intParam, in.intParam);
  Fill(out.lsStrings, in.lsStrings);
}
void Fill(ZDL_LimitKindToSettleCodeListToClassList& out, const TDL_IntToSettleCodeListToClassList& in) {
  Fill(out.intParam, in.intParam);
  Fill(out.lsSettleCodes, in.lsSettleCodes);
  Fill(out.lsClasses, in.lsClasses);
}
void Fill(ZDL_StringListToString& out, const TDL_StringListToString& in) {
  Fill(out.str, in.str);
  Fill(out.lsStrings, in.lsStrings);
}
void Fill(ZDL_ClassListForCurrency& out, const TDL_ClassListForCurrency& in) {
  Fill(out.currency, in.currency);
  Fill(out.lsClasses, in.lsClasses);
}
void Fill(ZDL_StringAndDouble& out, const TDL_StringAndDouble& in) {
  Fill(out.str, in.str);
  Fill(out.value, in.value);
}
void Fill(ZDL_StringToArrayStrings& out, const TDL_StringToArrayStrings& in) {
  Fill(out.strCode, in.strCode);
  Fill(out.lsStrings, in.lsStrings);
}
void Fill(ZDL_ClassToSettleCodeToSec& out, const TDL_ClassToSettleCodeToSec& in) {
  Fill(out.strCode, in.strCode);
  Fill(out.lsSettleCodes, in.lsSettleCodes);
}
void Fill(ZDL_TwoStringsAndArrayStrings& out, const TDL_TwoStringsAndArrayStrings& in) {
  Fill(out.str1, in.str1);
  Fill(out.str2, in.str2);
  Fill(out.lsStrings, in.lsStrings);
}
void Fill(ZDL_MinOrderValue& out, const TDL_MinOrderValue& in) {
  Fill(out.lsClasses, in.lsClasses);
  Fill(out.lsInstruments, in.lsInstruments);
  Fill(out.value, in.value);
  Fill(out.currency, in.currency);
}
void Fill(ZDL_PriceLimit& out, const TDL_PriceLimit& in) {
  Fill(out.classCode, in.classCode);
  Fill(out.deviation, in.deviation);
  Fill(out.priceType, in.priceType);
  Fill(out.reject, in.reject);
}

// ---- Plain elements back into records --------------------------------------

void Copy(const char* in, std::string& out) { out = in != nullptr ? in : ""; }
void Copy(int in, int& out) { out = in; }
void Copy(double in, double& out) { out = in; }
void Copy(bool in, bool& out) { out = in; }
void Copy(const ZDL_StringToString& in, TDL_StringsPair& out);
void Copy(const ZDL_IntToArrayString& in, TDL_IntToArrayString& out);
void Copy(const ZDL_LimitKindToSettleCodeListToClassList& in, TDL_IntToSettleCodeListToClassList& out);
void Copy(const ZDL_StringListToString& in, TDL_StringListToString& out);
void Copy(const ZDL_ClassListForCurrency& in, TDL_ClassListForCurrency& out);
void Copy(const ZDL_StringAndDouble& in, TDL_StringAndDouble& out);
void Copy(const ZDL_StringToArrayStrings& in, TDL_StringToArrayStrings& out);
void Copy(const ZDL_ClassToSettleCodeToSec& in, TDL_ClassToSettleCodeToSec& out);
void Copy(const ZDL_TwoStringsAndArrayStrings& in, TDL_TwoStringsAndArrayStrings& out);
void Copy(const ZDL_MinOrderValue& in, TDL_MinOrderValue& out);
void Copy(const ZDL_PriceLimit& in, TDL_PriceLimit& out);

template <class Array, class Wire>
void CopyArray(const Array& in, std::vector<Wire>& out) {
  out.clear();
  if (in.items == nullptr) return;
  for (uint64_t i = 0; i < in.count; ++i) {
    out.emplace_back();
    Copy(in.items[i], out.back());
  }
}

void Copy(const ZDL_ArrayStrings& in, std::vector<std::string>& out) { CopyArray(in, out); }
void Copy(const ZDL_ArraySettleCodeToSecList& in, std::vector<TDL_StringToArrayStrings>& out) { CopyArray(in, out); }

void Copy(const ZDL_StringToString& in, TDL_StringsPair& out) {
  Copy(in.str1, out.str1);
  Copy(in.str2, out.str2);
}
void Copy(const ZDL_IntToArrayString& in, TDL_IntToArrayString& out) {
  Copy(in.intParam, out.intParam);
  Copy(in.lsStrings, out.lsStrings);
}
void Copy(const ZDL_LimitKindToSettleCodeListToClassList& in, TDL_IntToSettleCodeListToClassList& out) {
  Copy(in.intParam, out.intParam);
  Copy(in.lsSettleCodes, out.lsSettleCodes);
  Copy(in.lsClasses, out.lsClasses);
}
void Copy(const ZDL_StringListToString& in, TDL_StringListToString& out) {
  Copy(in.str, out.str);
  Copy(in.lsStrings, out.lsStrings);
}
void Copy(const ZDL_ClassListForCurrency& in, TDL_ClassListForCurrency& out) {
  Copy(in.currency, out.currency);
  Copy(in.lsClasses, out.lsClasses);
}
void Copy(const ZDL_StringAndDouble& in, TDL_StringAndDouble& out) {
  Copy(in.str, out.str);
  Copy(in.value, out.value);
}
void Copy(const ZDL_StringToArrayStrings& in, TDL_StringToArrayStrings& out) {
  Copy(in.strCode, out.strCode);
  Copy(in.lsStrings, out.lsStrings);
}
void Copy(const ZDL_ClassToSettleCodeToSec& in, TDL_ClassToSettleCodeToSec& out) {
  Copy(in.strCode, out.strCode);
  Copy(in.lsSettleCodes, out.lsSettleCodes);
}
void Copy(const ZDL_TwoStringsAndArrayStrings& in, TDL_TwoStringsAndArrayStrings& out) {
  Copy(in.str1, out.str1);
  Copy(in.str2, out.str2);
  Copy(in.lsStrings, out.lsStrings);
}
void Copy(const ZDL_MinOrderValue& in, TDL_MinOrderValue& out) {
  Copy(in.lsClasses, out.lsClasses);
  Copy(in.lsInstruments, out.lsInstruments);
  Copy(in.value, out.value);
  Copy(in.currency, out.currency);
}
void Copy(const ZDL_PriceLimit& in, TDL_PriceLimit& out) {
  Copy(in.classCode, out.classCode);
  Copy(in.deviation, out.deviation);
  Copy(in.priceType, out.priceType);
  Copy(in.reject, out.reject);
}

}  // namespace

void New_ZDL_ArrayStrings(ZDL_ArrayStrings& out, const std::vector<std::string>& in) { NewArray(out, in); }
void Free_ZDL_ArrayStrings(ZDL_ArrayStrings& a) { ZDLPlain::ReleaseContents(a); }

void New_ZDL_ArrayIntNumbers(ZDL_ArrayIntNumbers& out, const std::vector<int>& in) { NewArray(out, in); }
void Free_ZDL_ArrayIntNumbers(ZDL_ArrayIntNumbers& a) { ZDLPlain::ReleaseContents(a); }

void New_ZDL_ArrayDoubleNumbers(ZDL_ArrayDoubleNumbers& out, const std::vector<double>& in) { NewArray(out, in); }
void Free_ZDL_ArrayDoubleNumbers(ZDL_ArrayDoubleNumbers& a) { ZDLPlain::ReleaseContents(a); }

void ZDL_ToRecords(const ZDL_ArrayStrings& in, std::vector<std::string>& out) { CopyArray(in, out); }
void ZDL_ToRecords(const ZDL_ArrayIntNumbers& in, std::vector<int>& out) { CopyArray(in, out); }
void ZDL_ToRecords(const ZDL_ArrayDoubleNumbers& in, std::vector<double>& out) { CopyArray(in, out); }

#define ZDL_COMPOSITE_ARRAY(array, element)                                                             \
  void New_ZDL_##array(ZDL_##array& out, const std::vector<element>& in) { NewArray(out, in); }        \
  void Free_ZDL_##array(ZDL_##array& a) { ZDLPlain::ReleaseContents(a); }                               \
  void ZDL_ToRecords(const ZDL_##array& in, std::vector<element>& out) { CopyArray(in, out); }
#include "api/ZDLArrays.def"
#undef ZDL_COMPOSITE_ARRAY
