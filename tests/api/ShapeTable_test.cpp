// Every shape of the adapter table: a request block written byte by byte, the
// call the settings function receives (arguments in order), the reply block
// compared byte for byte, and the change line.
#include "api/ShapeTable.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "WireBlock.h"
#include "base/TMemory.h"

namespace {

using DL::EAdapterShape;
using DL::Adapters::TAdapterEnv;
using DL::Adapters::TShape;
using TestWire::Record;
using Strings = std::vector<std::string>;

template <EAdapterShape S, class Fn>
int RunOne(Fn& fn, const std::string& command, std::vector<unsigned char>& data, const std::string& firm,
           const TAdapterEnv& env) {
  if constexpr (TShape<S>::kBuilt) return TShape<S>::Run(fn, command, data, firm, env);
  else return -1;
}

// Runs the adapter of a shape chosen at run time; -1 for a shape not built.
template <class Fn>
int RunShape(EAdapterShape shape, Fn&& fn, const std::string& command, std::vector<unsigned char>& data,
             const std::string& firm, const TAdapterEnv& env) {
  switch (shape) {
#define ZDL_SHAPE(name, kind) \
  case EAdapterShape::name:   \
    return RunOne<EAdapterShape::name>(fn, command, data, firm, env);
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
    default:
      return -1;
  }
}

const char* TestShapeName(EAdapterShape shape) {
  switch (shape) {
#define ZDL_SHAPE(name, kind) \
  case EAdapterShape::name:   \
    return #name;
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
    default:
      return "?";
  }
}

bool IsReadShape(EAdapterShape shape) {
  switch (shape) {
#define ZDL_SHAPE(name, kind) \
  case EAdapterShape::name:   \
    return std::string_view(#kind) == "Read";
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
    default:
      return false;
  }
}

std::string Num(double v) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", v);
  return text;
}

// ---- Plain composite arrays as the fake writes them down and hands them out.
// Written here, apart from the module's own converters: an element is its
// fields joined by ':', a list is "[...]" (also when empty), a null array "null".

template <class T>
concept PlainArray = requires(T a) {
  a.count;
  a.items;
};

std::string Text(const char* s) { return s != nullptr ? s : "<null>"; }
std::string Text(int v) { return std::to_string(v); }
std::string Text(double v) { return Num(v); }
std::string Text(const ZDL_StringToString& e);
std::string Text(const ZDL_IntToArrayString& e);
std::string Text(const ZDL_LimitKindToSettleCodeListToClassList& e);
std::string Text(const ZDL_StringListToString& e);
std::string Text(const ZDL_ClassListForCurrency& e);
std::string Text(const ZDL_StringAndDouble& e);
std::string Text(const ZDL_StringToArrayStrings& e);
std::string Text(const ZDL_ClassToSettleCodeToSec& e);
std::string Text(const ZDL_TwoStringsAndArrayStrings& e);

template <PlainArray A>
std::string Text(const A& a) {
  std::string text = "[";
  for (uint64_t i = 0; i < a.count; ++i) text += (i != 0 ? "," : "") + Text(a.items[i]);
  return text + "]";
}

std::string Text(const ZDL_StringToString& e) { return Text(e.str1) + ":" + Text(e.str2); }
std::string Text(const ZDL_IntToArrayString& e) { return Text(e.intParam) + ":" + Text(e.lsStrings); }
std::string Text(const ZDL_LimitKindToSettleCodeListToClassList& e) {
  return Text(e.intParam) + ":" + Text(e.lsSettleCodes) + ":" + Text(e.lsClasses);
}
std::string Text(const ZDL_StringListToString& e) { return Text(e.str) + ":" + Text(e.lsStrings); }
std::string Text(const ZDL_ClassListForCurrency& e) { return Text(e.currency) + ":" + Text(e.lsClasses); }
std::string Text(const ZDL_StringAndDouble& e) { return Text(e.str) + ":" + Text(e.value); }
std::string Text(const ZDL_StringToArrayStrings& e) { return Text(e.strCode) + ":" + Text(e.lsStrings); }
[[maybe_unused]] std::string Text(const ZDL_ClassToSettleCodeToSec& e) { return Text(e.strCode) + ":" + Text(e.lsSettleCodes); }
std::string Text(const ZDL_TwoStringsAndArrayStrings& e) {
  return Text(e.str1) + ":" + Text(e.str2) + ":" + Text(e.lsStrings);
}

char* Dup(const char* text) {
  char* s = new char[std::strlen(text) + 1];
  std::strcpy(s, text);
  return s;
}

// An array of strings as a Get hands it out; an empty one has a null block.
ZDL_ArrayStrings Strs(std::vector<const char*> items) {
  ZDL_ArrayStrings a{items.size(), items.empty() ? nullptr : new char*[items.size()]};
  for (std::size_t i = 0; i < items.size(); ++i) a.items[i] = Dup(items[i]);
  return a;
}

void Drop(char* s) { delete[] s; }
void Drop(ZDL_ArrayStrings& a) {
  for (uint64_t i = 0; i < a.count; ++i) delete[] a.items[i];
  delete[] a.items;
}

// Element k (0 or 1) of a result: the second has an empty inner list where
// the element has one.
void Make(ZDL_StringToString& e, int k) {
  e = k == 0 ? ZDL_StringToString{Dup("P"), Dup("Q")} : ZDL_StringToString{Dup("R"), Dup("")};
}
void Make(ZDL_IntToArrayString& e, int k) { e = {k + 1, k == 0 ? Strs({"X", "Y"}) : Strs({})}; }
void Make(ZDL_LimitKindToSettleCodeListToClassList& e, int k) {
  e = {k + 1, k == 0 ? Strs({"S1"}) : Strs({}), k == 0 ? Strs({"C1", "C2"}) : Strs({"C3"})};
}
void Make(ZDL_StringListToString& e, int k) { e = {Dup(k == 0 ? "K1" : "K2"), k == 0 ? Strs({"X", "Y"}) : Strs({})}; }
void Make(ZDL_ClassListForCurrency& e, int k) { e = {Dup(k == 0 ? "USD" : "EUR"), k == 0 ? Strs({"C1"}) : Strs({})}; }
void Make(ZDL_StringAndDouble& e, int k) { e = {Dup(k == 0 ? "USD" : "EUR"), k == 0 ? 0.5 : -1.25}; }
void Make(ZDL_StringToArrayStrings& e, int k) { e = {Dup(k == 0 ? "B1" : "B2"), k == 0 ? Strs({"X", "Y"}) : Strs({})}; }
void Make(ZDL_ClassToSettleCodeToSec& e, int k) {
  e.strCode = Dup(k == 0 ? "C1" : "C2");
  e.lsSettleCodes = {0, nullptr};
  if (k != 0) return;
  e.lsSettleCodes = {2, new ZDL_StringToArrayStrings[2]};
  e.lsSettleCodes.items[0] = {Dup("S1"), Strs({"X", "Y"})};
  e.lsSettleCodes.items[1] = {Dup("S2"), Strs({})};
}
void Make(ZDL_TwoStringsAndArrayStrings& e, int k) {
  e = {Dup(k == 0 ? "C1" : "C2"), Dup(k == 0 ? "S1" : "S2"), k == 0 ? Strs({"X", "Y"}) : Strs({})};
}

void Drop(ZDL_StringToString& e) { Drop(e.str1), Drop(e.str2); }
void Drop(ZDL_IntToArrayString& e) { Drop(e.lsStrings); }
void Drop(ZDL_LimitKindToSettleCodeListToClassList& e) { Drop(e.lsSettleCodes), Drop(e.lsClasses); }
void Drop(ZDL_StringListToString& e) { Drop(e.str), Drop(e.lsStrings); }
void Drop(ZDL_ClassListForCurrency& e) { Drop(e.currency), Drop(e.lsClasses); }
void Drop(ZDL_StringAndDouble& e) { Drop(e.str); }
void Drop(ZDL_StringToArrayStrings& e) { Drop(e.strCode), Drop(e.lsStrings); }
void Drop(ZDL_ClassToSettleCodeToSec& e) {
  Drop(e.strCode);
  for (uint64_t i = 0; i < e.lsSettleCodes.count; ++i) Drop(e.lsSettleCodes.items[i]);
  delete[] e.lsSettleCodes.items;
}
void Drop(ZDL_TwoStringsAndArrayStrings& e) { Drop(e.str1), Drop(e.str2), Drop(e.lsStrings); }

// A settings function standing in for all of them: it writes down each
// argument, fills each result with a fixed value, and answers `answer`.
struct TFakeSettings {
  int answer = 0;
  std::vector<std::string> call;
  std::map<void*, std::function<void()>> handedOut;  // what a Get gave, and how to free it
  std::vector<std::string> freedThrough;

  char* NewText(const char* text) {
    char* s = new char[std::strlen(text) + 1];
    std::strcpy(s, text);
    handedOut[s] = [s] { delete[] s; };
    return s;
  }

  template <class A>
  void Arg(A a) {
    if constexpr (std::is_same_v<A, const char*>) {
      call.emplace_back(a);
    } else if constexpr (std::is_same_v<A, bool>) {
      call.push_back(std::string("b") + (a ? "1" : "0"));
    } else if constexpr (std::is_same_v<A, int>) {
      call.push_back("i" + std::to_string(a));
    } else if constexpr (std::is_same_v<A, double>) {
      call.push_back("d" + Num(a));
    } else if constexpr (std::is_same_v<A, ZDL_BaseDiscCoeff>) {
      call.push_back("{" + Num(a.coeff1) + "," + Num(a.coeff2) + "," + Num(a.coeff3) + "}");
    } else if constexpr (std::is_same_v<A, ZDL_VolatilityChangeScenarios>) {
      call.push_back("{" + Num(a.value1) + "," + Num(a.value2) + "}");
    } else if constexpr (std::is_same_v<A, ZDL_ArrayStrings*> || std::is_same_v<A, ZDL_ArrayDoubleNumbers*>) {
      if (a == nullptr) {
        call.push_back("null");
        return;
      }
      std::string text = "[";
      for (uint64_t i = 0; i < a->count; ++i) {
        if (i != 0) text += ",";
        if constexpr (std::is_same_v<A, ZDL_ArrayStrings*>) text += a->items[i];
        else text += Num(a->items[i]);
      }
      call.push_back(text + "]");
    } else if constexpr (std::is_pointer_v<A> && PlainArray<std::remove_pointer_t<A>>) {
      // Any other argument array: its elements written down.
      call.push_back(a == nullptr ? std::string("null") : Text(*a));
    } else if constexpr (std::is_pointer_v<A> && std::is_pointer_v<std::remove_pointer_t<A>> &&
                         PlainArray<std::remove_pointer_t<std::remove_pointer_t<A>>> &&
                         !std::is_same_v<A, ZDL_ArrayStrings**> && !std::is_same_v<A, ZDL_ArrayIntNumbers**> &&
                         !std::is_same_v<A, ZDL_ArrayDoubleNumbers**>) {
      // Any other result array: two elements, the second with empty inner lists.
      using Array = std::remove_pointer_t<std::remove_pointer_t<A>>;
      using Item = std::remove_pointer_t<decltype(Array::items)>;
      call.push_back(std::string("&") + typeid(Array).name());
      auto* r = new Array{2, new Item[2]};
      Make(r->items[0], 0);
      Make(r->items[1], 1);
      handedOut[r] = [r] {
        Drop(r->items[0]);
        Drop(r->items[1]);
        delete[] r->items;
        delete r;
      };
      *a = r;
    } else if constexpr (std::is_same_v<A, char**>) {
      call.push_back("&s");
      *a = NewText("OUT");
    } else if constexpr (std::is_same_v<A, int*>) {
      call.push_back("&i");
      *a = 42;
    } else if constexpr (std::is_same_v<A, bool*>) {
      call.push_back("&b");
      *a = true;
    } else if constexpr (std::is_same_v<A, double*>) {
      call.push_back("&d");
      *a = 2.5;
    } else if constexpr (std::is_same_v<A, ZDL_BaseDiscCoeff*>) {
      call.push_back("&c");
      *a = ZDL_BaseDiscCoeff{0.25, 0.5, 0.75};
    } else if constexpr (std::is_same_v<A, ZDL_VolatilityChangeScenarios*>) {
      call.push_back("&v");
      *a = ZDL_VolatilityChangeScenarios{1.5, -2};
    } else if constexpr (std::is_same_v<A, ZDL_ArrayStrings**>) {
      call.push_back("&as");
      auto* r = new ZDL_ArrayStrings{2, new char*[2]{new char[2]{'X', 0}, new char[2]{'Y', 0}}};
      handedOut[r] = [r] {
        delete[] r->items[0];
        delete[] r->items[1];
        delete[] r->items;
        delete r;
      };
      *a = r;
    } else if constexpr (std::is_same_v<A, ZDL_ArrayIntNumbers**>) {
      call.push_back("&ai");
      auto* r = new ZDL_ArrayIntNumbers{2, new int[2]{7, 8}};
      handedOut[r] = [r] {
        delete[] r->items;
        delete r;
      };
      *a = r;
    } else if constexpr (std::is_same_v<A, ZDL_ArrayDoubleNumbers**>) {
      call.push_back("&ad");
      auto* r = new ZDL_ArrayDoubleNumbers{2, new double[2]{0.5, 2}};
      handedOut[r] = [r] {
        delete[] r->items;
        delete r;
      };
      *a = r;
    } else {
      static_assert(!std::is_same_v<A, A>, "argument type the fake does not know");
    }
  }

  // On a failure a Get hands out nothing: drop what was made.
  void Fail() {
    for (auto& [p, free] : handedOut) free();
    handedOut.clear();
  }

  std::string Call() const {
    std::string text;
    for (std::size_t i = 0; i < call.size(); ++i) text += (i != 0 ? "|" : "") + call[i];
    return text;
  }
};

struct TCase {
  EAdapterShape shape;
  Record request;
  std::string call;  // the arguments as the fake wrote them down
  std::string line;  // the change line; empty for a reading shape
  Record replyExtra; // fields a reading shape adds to the request's
};

Record R() { return Record(); }

// The label the fake writes down for a result array of type Array.
template <class Array>
std::string Out() {
  return std::string("&") + typeid(Array).name();
}

std::vector<TCase> Cases() {
  using E = EAdapterShape;
  const Strings xy = {"x", "y"};
  auto f = [] { return R().Set("firmCode", std::string("F1")); };
  auto q = [](const char* s) { return std::string(s); };
  std::vector<TCase> c;
  // Shapes that send.
  c.push_back({E::SendOneString, f(), "F1", "Cmd, main, , ,", R()});
  c.push_back({E::SendTwoStrings, f().Set("strParam", q("A")), "F1|A", "Cmd, A, , ", R()});
  c.push_back({E::SendThreeStrings, f().Set("strParam1", q("A")).Set("strParam2", q("B")), "F1|A|B",
               "Cmd,main,\"A\",\"B\"", R()});
  c.push_back({E::SendOneStringAndInt, f().Set("intParam1", 7), "F1|i7", "Cmd,main,\"7\"", R()});
  c.push_back({E::SendFourStringsAndInt,
               f().Set("intParam1", 7).Set("strParam1", q("A")).Set("strParam2", q("B")).Set("strParam3", q("C")),
               "F1|i7|A|B|C", "Cmd,main,\"7\",\"A\",\"B\",\"C\"", R()});
  c.push_back({E::SendThreeStringsAndInt, f().Set("intParam1", 7).Set("strParam1", q("A")).Set("strParam2", q("B")),
               "F1|i7|A|B", "Cmd,main,\"7\",\"A\",\"B\"", R()});
  c.push_back({E::SendTwoStringsAndInt, f().Set("strParam", q("A")).Set("intParam1", 7), "F1|A|i7",
               "Cmd,main,\"A\",\"7\"", R()});
  c.push_back({E::SendOneStringAndBool, f().Set("boolParam1", true), "F1|b1", "Cmd,main,,,\"1\"", R()});
  c.push_back({E::SendTwoStringsAndBool, f().Set("strParam", q("A")).Set("boolParam1", true), "F1|A|b1",
               "Cmd,main,\"A\",\"1\"", R()});
  c.push_back({E::SendThreeStringsAndBool,
               f().Set("strParam1", q("A")).Set("strParam2", q("B")).Set("boolParam1", true), "F1|A|B|b1",
               "Cmd,main,\"A\",\"B\",\"1\"", R()});
  c.push_back({E::SendTwoStringsAndDouble, f().Set("strParam", q("A")).Set("doubleParam1", 1.5), "F1|A|d1.5",
               "Cmd,main,\"A\",\"1.5\"", R()});
  c.push_back({E::SendOneStringAndBaseDiscCoeff,
               f().Set("doubleParam1", 0.25).Set("doubleParam2", 0.5).Set("doubleParam3", 0.75),
               "F1|{0.25,0.5,0.75}", "Cmd,main,\"0.25\",\"0.5\",\"0.75\"", R()});
  c.push_back({E::SendThreeStringsAndDouble,
               f().Set("strParam1", q("A")).Set("strParam2", q("B")).Set("doubleParam1", 1.5), "F1|A|B|d1.5",
               "Cmd,main,\"A\",\"B\",\"1.5\"", R()});
  c.push_back({E::SendStringAndVolatilityChangeScenarios, f().Set("doubleParam1", 1.5).Set("doubleParam2", -2.0),
               "F1|{1.5,-2}", "Cmd,main,\"1.5\",\"-2\"", R()});
  c.push_back({E::SendTwoStringAndVolatilityChangeScenarios,
               f().Set("strParam", q("A")).Set("doubleParam1", 1.5).Set("doubleParam2", -2.0), "F1|A|{1.5,-2}",
               "Cmd,main,\"A\",\"1.5\",\"-2\"", R()});
  c.push_back({E::SendOneStringAndDouble, f().Set("doubleParam1", 1.5), "F1|d1.5", "Cmd,main,\"1.5\"", R()});
  c.push_back({E::SendTwoStringAndBaseDiscCoeff,
               f().Set("strParam", q("A")).Set("doubleParam1", 0.25).Set("doubleParam2", 0.5).Set("doubleParam3", 0.75),
               "F1|A|{0.25,0.5,0.75}", "Cmd,main,\"A\",\"0.25\",\"0.5\",\"0.75\"", R()});
  c.push_back({E::SendThreeStringAndVolatilityChangeScenarios,
               f().Set("strParam1", q("A")).Set("strParam2", q("B")).Set("doubleParam1", 1.5).Set("doubleParam2", -2.0),
               "F1|A|B|{1.5,-2}", "Cmd,main,\"A\",\"B\",\"1.5\",\"-2\"", R()});
  c.push_back({E::SendTwoStringsAndArrayDoubleNumbers,
               f().Set("strParam", q("A")).Set("lsDoubles", std::vector<double>{0.5, 2}), "F1|A|[0.5,2]",
               "Cmd,main,\"A\",2[0.5,2]", R()});
  c.push_back({E::SendOneStringAndArrayStrings, f().Set("lsStrings", xy), "F1|[x,y]", "Cmd,main,,2[x,y]", R()});
  c.push_back({E::SendStringAndArrayStrings, f().Set("lsStrings", xy), "F1|[x,y]", "Cmd,main,,2[x,y]", R()});
  c.push_back({E::SendTwoStringsAndArrayStrings, f().Set("strParam", q("A")).Set("lsStrings", xy), "F1|A|[x,y]",
               "Cmd,main,\"A\",2[x,y]", R()});
  c.push_back({E::SendThreeStringsAndArrayStrings,
               f().Set("strParam1", q("A")).Set("strParam2", q("B")).Set("lsStrings", xy), "F1|A|B|[x,y]",
               "Cmd,main,\"A\",\"B\",2[x,y]", R()});
  auto s3ia = [&] {
    return R().Set("strParam1", q("F1")).Set("intParam", 7).Set("strParam2", q("A")).Set("strParam3", q("B"));
  };
  c.push_back({E::SendThreeStringsAndIntWithArrayStrings, s3ia().Set("lsStrings", xy), "F1|i7|A|B|[x,y]",
               "Cmd,main,\"7\",\"A\",\"B\",2[x,y]", R()});
  c.push_back({E::SendOneStringAndIntWithTwoStringsAndArrayStrings, s3ia().Set("lsStrings", xy), "F1|i7|A|B|[x,y]",
               "Cmd,main,\"7\",\"A\",\"B\",2[x,y]", R()});
  c.push_back({E::SendStringAndArrayOfPairOfStrings,
               f().Set("lsPairs", TestWire::Pairs{{"C1", "T1"}, {"C2", ""}}), "F1|[C1:T1,C2:]",
               "Cmd,main,2[C1:T1,C2:]", R()});
  // Shapes that read.
  c.push_back({E::SendOneString_GetString, f(), "F1|&s", "", R().Set("strParam", q("OUT"))});
  c.push_back({E::SendTwoStrings_GetString, f().Set("strParam1", q("A")), "F1|A|&s", "",
               R().Set("strParam2", q("OUT"))});
  c.push_back({E::SendTwoStrings_GetInt, f().Set("strParam", q("A")), "F1|A|&i", "", R().Set("intParam1", 42)});
  c.push_back({E::SendOneString_GetBool, f(), "F1|&b", "", R().Set("boolParam1", true)});
  c.push_back({E::SendTwoStrings_GetBool, f().Set("strParam", q("A")), "F1|A|&b", "", R().Set("boolParam1", true)});
  c.push_back({E::SendOneString_GetInt, f(), "F1|&i", "", R().Set("intParam1", 42)});
  c.push_back({E::SendThreeStrings_GetBool, f().Set("strParam1", q("A")).Set("strParam2", q("B")), "F1|A|B|&b", "",
               R().Set("boolParam1", true)});
  c.push_back({E::SendStringWithDouble_GetString, f().Set("doubleParam1", 1.5), "F1|d1.5|&s", "",
               R().Set("strParam", q("OUT"))});
  c.push_back({E::SendTwoStrings_GetDouble, f().Set("strParam", q("A")), "F1|A|&d", "", R().Set("doubleParam1", 2.5)});
  auto coeff = [] { return R().Set("doubleParam1", 0.25).Set("doubleParam2", 0.5).Set("doubleParam3", 0.75); };
  auto scen = [] { return R().Set("doubleParam1", 1.5).Set("doubleParam2", -2.0); };
  c.push_back({E::SendOneString_GetBaseDiscCoeff, f(), "F1|&c", "", coeff()});
  c.push_back({E::SendThreeStrings_GetDouble, f().Set("strParam1", q("A")).Set("strParam2", q("B")), "F1|A|B|&d", "",
               R().Set("doubleParam1", 2.5)});
  c.push_back({E::SendTwoString_GetVolatilityChangeScenarios, f().Set("strParam", q("A")), "F1|A|&v", "", scen()});
  c.push_back({E::SendString_GetVolatilityChangeScenarios, f(), "F1|&v", "", scen()});
  c.push_back({E::SendOneString_GetDouble, f(), "F1|&d", "", R().Set("doubleParam1", 2.5)});
  c.push_back({E::SendTwoString_GetDiscCoeff, f().Set("strParam", q("A")), "F1|A|&c", "", coeff()});
  c.push_back({E::SendThreeString_GetVolatilityChangeScenarios, f().Set("strParam1", q("A")).Set("strParam2", q("B")),
               "F1|A|B|&v", "", scen()});
  c.push_back({E::SendTwoStrings_GetArrayDoubleNumbers, f().Set("strParam", q("A")), "F1|A|&ad", "",
               R().Set("lsDoubles", std::vector<double>{0.5, 2})});
  c.push_back({E::SendOneString_GetArrayIntNumbers, f(), "F1|&ai", "", R().Set("lsInts", std::vector<int>{7, 8})});
  c.push_back({E::SendString_GetArrayStrings, f(), "F1|&as", "", R().Set("lsStrings", Strings{"X", "Y"})});
  c.push_back({E::SendTwoStrings_GetArrayStrings, f().Set("strParam", q("A")), "F1|A|&as", "",
               R().Set("lsStrings", Strings{"X", "Y"})});
  c.push_back({E::SendThreeStrings_GetArrayStrings, f().Set("strParam1", q("A")).Set("strParam2", q("B")),
               "F1|A|B|&as", "", R().Set("lsStrings", Strings{"X", "Y"})});
  c.push_back({E::SendThreeStringsWithInt_GetArrayStrings, s3ia(), "F1|i7|A|B|&as", "",
               R().Set("lsStrings", Strings{"X", "Y"})});
  const TestWire::Pairs pq = {{"P", "Q"}, {"R", ""}};
  c.push_back({E::SendString_GetArrayOfPairOfStrings, f(), "F1|" + Out<ZDL_ArrayCodeToCodeTrdaccToTrdacc>(), "",
               R().Set("lsPairs", pq)});
  c.push_back({E::SendStringWithInt_GetArrayOfStringToString, f().Set("intParam1", 7),
               "F1|i7|" + Out<ZDL_ArrayStringToString>(), "", R().Set("lsPairs", pq)});

  // Composite lists that send: each request list, as the call receives it and
  // as the line writes it.
  using TestWire::Records;
  const Records ifs = {R().Set("intParam", 1).Set("lsStrings", xy), R().Set("intParam", 2)};
  const std::string ifsCall = "[1:[x,y],2:[]]", ifsLine = "2[1:[x,y],2:[]]";
  const Records ifss = {R().Set("intParam", 1).Set("lsSettleCodes", Strings{"s"}).Set("lsClasses", xy)};
  const std::string ifssCall = "[1:[s]:[x,y]]", ifssLine = "1[1:[s]:[x,y]]";
  const Records sl = {R().Set("str", q("T1")).Set("lsStrings", xy), R().Set("str", q("T2"))};
  const std::string slCall = "[T1:[x,y],T2:[]]", slLine = "2[T1:[x,y],T2:[]]";
  const Records clc = {R().Set("currency", q("USD")).Set("lsClasses", Strings{"x"})};
  const Records cd = {R().Set("str", q("USD")).Set("value", 0.5), R().Set("str", q("EUR")).Set("value", -1.25)};
  const std::string cdCall = "[USD:0.5,EUR:-1.25]", cdLine = "2[USD:0.5,EUR:-1.25]";
  const Records dba = {R().Set("strCode", q("B1")).Set("lsStrings", xy)};
  const Records t2sa = {R().Set("str1", q("C1")).Set("str2", q("S1")).Set("lsStrings", xy)};
  auto fa = [&] { return f().Set("strParam", q("A")); };
  auto fab = [&] { return f().Set("strParam1", q("A")).Set("strParam2", q("B")); };
  c.push_back({E::SendStringAndDerivativesBaseAssetsList, f().Set("lsItems", dba), "F1|[B1:[x,y]]",
               "Cmd,main,1[B1:[x,y]]", R()});
  c.push_back({E::SendStringAndClassListForCurrency, f().Set("lsItems", clc), "F1|[USD:[x]]", "Cmd,main,1[USD:[x]]",
               R()});
  for (E shape : {E::SendStringAndStringListToTag, E::SendStringAndArrayOfStringListToClass,
                  E::SendStringAndArrayOfStringListToSec})
    c.push_back({shape, f().Set("lsItems", sl), "F1|" + slCall, "Cmd,main," + slLine, R()});
  for (E shape : {E::SendTwoStringAndStringListToTag, E::SendTwoStringAndArrayOfStringListToClass,
                  E::SendTwoStringAndArrayOfStringListToSec, E::SendTwoStringAndStringListToCurrency})
    c.push_back({shape, fa().Set("lsItems", sl), "F1|A|" + slCall, "Cmd,main,\"A\"," + slLine, R()});
  c.push_back({E::SendStringAndArrayIntForString, f().Set("lsItems", ifs), "F1|" + ifsCall, "Cmd,main," + ifsLine, R()});
  c.push_back({E::SendTwoStringsAndArrayIntForString, fa().Set("lsItems", ifs), "F1|A|" + ifsCall,
               "Cmd,main,\"A\"," + ifsLine, R()});
  c.push_back({E::SendTwoStringsAndArrayCurrencyWithDiscount, fa().Set("lsItems", cd), "F1|A|" + cdCall,
               "Cmd,main,\"A\"," + cdLine, R()});
  c.push_back({E::SendThreeStringsAndArrayCurrencyWithDiscount, fab().Set("lsItems", cd), "F1|A|B|" + cdCall,
               "Cmd,main,\"A\",\"B\"," + cdLine, R()});
  c.push_back({E::SendStringAndArrayIntForStringForString, f().Set("lsItems", ifss), "F1|" + ifssCall,
               "Cmd,main," + ifssLine, R()});
  c.push_back({E::SendTwoStringsAndArrayIntForStringForString, fa().Set("lsItems", ifss), "F1|A|" + ifssCall,
               "Cmd,main,\"A\"," + ifssLine, R()});
  c.push_back({E::SendStringAndIntWithArrayOfTwoStringsAndArrayStrings, f().Set("intParam1", 7).Set("lsItems", t2sa),
               "F1|i7|[C1:S1:[x,y]]", "Cmd,main,\"7\",1[C1:S1:[x,y]]", R()});

  // Composite lists that read: the two elements the fake hands out, as the
  // reply carries them (an empty inner list is left out).
  const Strings XY = {"X", "Y"};
  const Records outIfs = {R().Set("intParam", 1).Set("lsStrings", XY), R().Set("intParam", 2)};
  const Records outIfss = {R().Set("intParam", 1).Set("lsSettleCodes", Strings{"S1"}).Set("lsClasses", Strings{"C1", "C2"}),
                           R().Set("intParam", 2).Set("lsClasses", Strings{"C3"})};
  const Records outSl = {R().Set("str", q("K1")).Set("lsStrings", XY), R().Set("str", q("K2"))};
  const Records outClc = {R().Set("currency", q("USD")).Set("lsClasses", Strings{"C1"}), R().Set("currency", q("EUR"))};
  const Records outCd = {R().Set("str", q("USD")).Set("value", 0.5), R().Set("str", q("EUR")).Set("value", -1.25)};
  const Records outDba = {R().Set("strCode", q("B1")).Set("lsStrings", XY), R().Set("strCode", q("B2"))};
  const Records outCss = {
      R().Set("strCode", q("C1")).Set("lsSettleCodes", Records{R().Set("strCode", q("S1")).Set("lsStrings", XY),
                                                               R().Set("strCode", q("S2"))}),
      R().Set("strCode", q("C2"))};
  const Records outT2sa = {R().Set("str1", q("C1")).Set("str2", q("S1")).Set("lsStrings", XY),
                           R().Set("str1", q("C2")).Set("str2", q("S2"))};
  c.push_back({E::SendString_GetDerivativesBaseAssetsList, f(), "F1|" + Out<ZDL_DerivativesBaseAssetsList>(), "",
               R().Set("lsItems", outDba)});
  c.push_back({E::SendStringWithInt_GetClassToSettleCodeList, f().Set("intParam1", 7),
               "F1|i7|" + Out<ZDL_ArrayClassCodeToSettleCodeList>(), "", R().Set("lsItems", outDba)});
  c.push_back({E::GetChangeFutClientCodesByFirmFromGlobalEx, fa(), "F1|A|" + Out<ZDL_ArrayClientCodeToTrdAcc>(), "",
               R().Set("lsPairs", pq)});
  c.push_back({E::SendString_GetClassListForCurrency, f(), "F1|" + Out<ZDL_ArrayClassListForCurrency>(), "",
               R().Set("lsItems", outClc)});
  c.push_back({E::SendString_GetStringListToTag, f(), "F1|" + Out<ZDL_ArrayStringListToTag>(), "",
               R().Set("lsItems", outSl)});
  c.push_back({E::SendString_GetArrayOfStringListToClass, f(), "F1|" + Out<ZDL_ArrayOfStringListToClass>(), "",
               R().Set("lsItems", outSl)});
  c.push_back({E::SendString_GetArrayOfStringListToSec, f(), "F1|" + Out<ZDL_ArrayOfStringListToSec>(), "",
               R().Set("lsItems", outSl)});
  c.push_back({E::SendTwoStrings_GetStringListToTag, fa(), "F1|A|" + Out<ZDL_ArrayStringListToTag>(), "",
               R().Set("lsItems", outSl)});
  c.push_back({E::SendTwoStrings_GetArrayOfStringListToClass, fa(), "F1|A|" + Out<ZDL_ArrayOfStringListToClass>(), "",
               R().Set("lsItems", outSl)});
  c.push_back({E::SendTwoStrings_GetArrayOfStringListToSec, fa(), "F1|A|" + Out<ZDL_ArrayOfStringListToSec>(), "",
               R().Set("lsItems", outSl)});
  c.push_back({E::SendTwoStrings_GetStringListToCurrency, fa(), "F1|A|" + Out<ZDL_ArrayOfStringListToCurrency>(), "",
               R().Set("lsItems", outSl)});
  c.push_back({E::SendString_GetArrayIntForString, f(), "F1|" + Out<ZDL_ArrayClassToLimitKind>(), "",
               R().Set("lsItems", outIfs)});
  c.push_back({E::SendTwoStrings_GetArrayIntForString, fa(), "F1|A|" + Out<ZDL_ArrayClassToLimitKind>(), "",
               R().Set("lsItems", outIfs)});
  c.push_back({E::SendTwoStrings_GetArrayCurrencyWithDiscount, fa(), "F1|A|" + Out<ZDL_ArrayCurrencyWithDiscount>(),
               "", R().Set("lsItems", outCd)});
  c.push_back({E::SendThreeStrings_GetArrayCurrencyWithDiscount, fab(),
               "F1|A|B|" + Out<ZDL_ArrayCurrencyWithDiscount>(), "", R().Set("lsItems", outCd)});
  c.push_back({E::SendString_GetArrayIntForStringForString, f(),
               "F1|" + Out<ZDL_ArrayLimitKindToSettleCodeListToClassList>(), "", R().Set("lsItems", outIfss)});
  c.push_back({E::SendTwoStrings_GetArrayIntForStringForString, fa(),
               "F1|A|" + Out<ZDL_ArrayLimitKindToSettleCodeListToClassList>(), "", R().Set("lsItems", outIfss)});
  c.push_back({E::SendStringWithInt_GetArrayOfTwoStringsAndArrayStrings, f().Set("intParam1", 7),
               "F1|i7|" + Out<ZDL_ArrayOfTwoStringsAndArrayStrings>(), "", R().Set("lsItems", outT2sa)});
  c.push_back({E::SendStringWithInt_GetClassToSettleCodeToSecList, f().Set("intParam1", 7),
               "F1|i7|" + Out<ZDL_ClassToSettleCodeToSecList>(), "", R().Set("lsItems", outCss)});
  return c;
}

class ShapeTableTest : public ::testing::Test {
 protected:
  void SetUp() override {
    env_.noteChange = [this](const std::string& firm, std::string line) { changes_.emplace_back(firm, line); };
    env_.freeMemory = [this](const char* firm, void** block) {
      fake_.freedThrough.emplace_back(firm);
      auto it = fake_.handedOut.find(*block);
      if (it == fake_.handedOut.end()) return 4;
      it->second();
      fake_.handedOut.erase(it);
      *block = nullptr;
      return 0;
    };
  }

  int Run(EAdapterShape shape, std::vector<unsigned char>& data) {
    fake_.call.clear();
    auto fn = [this](auto... args) {
      (fake_.Arg(args), ...);
      if (fake_.answer != 0) fake_.Fail();
      return fake_.answer;
    };
    return RunShape(shape, fn, "Cmd", data, "HOLDER", env_);
  }

  TAdapterEnv env_;
  TFakeSettings fake_;
  std::vector<std::pair<std::string, std::string>> changes_;
};

TEST_F(ShapeTableTest, EveryShapeOfTheTableIsDeclaredAndHasACase) {
  std::set<std::string> tested;
  for (const TCase& c : Cases()) tested.insert(TestShapeName(c.shape));
  std::size_t rows = 0;
#define ZDL_SHAPE(name, kind)                                                        \
  ++rows;                                                                            \
  EXPECT_TRUE(TShape<EAdapterShape::name>::kBuilt) << #name << " is not declared";   \
  EXPECT_TRUE(tested.count(#name)) << #name << " has no case";
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
  EXPECT_EQ(rows, 85u);
  EXPECT_EQ(DL::Adapters::kBuiltShapeCount, 85u);
  EXPECT_EQ(tested.size(), 85u);
}

TEST_F(ShapeTableTest, EachShapeCallsInOrderRepliesByteForByteAndNotesItsLine) {
  for (const TCase& c : Cases()) {
    SCOPED_TRACE(TestShapeName(c.shape));
    changes_.clear();
    fake_.freedThrough.clear();
    std::vector<unsigned char> data = c.request.Block();
    ASSERT_EQ(Run(c.shape, data), 0);
    EXPECT_EQ(fake_.Call(), c.call);
    if (IsReadShape(c.shape)) {
      // The reply holds the request's fields with the result put in.
      EXPECT_TRUE(changes_.empty());
      EXPECT_TRUE(fake_.handedOut.empty()) << "a result was not released";
      for (const std::string& f : fake_.freedThrough) EXPECT_EQ(f, "F1");
      EXPECT_EQ(data, c.request.Merged(c.replyExtra).Block());
    } else {
      EXPECT_EQ(data, c.request.Block()) << "a sending shape leaves the block as it came";
      ASSERT_EQ(changes_.size(), 1u);
      EXPECT_EQ(changes_[0].first, "HOLDER");
      EXPECT_EQ(changes_[0].second, c.line);
    }
  }
}

TEST_F(ShapeTableTest, EachShapeTurnsAFailureIntoCodePlus1000AndLeavesAll) {
  fake_.answer = 3;
  for (const TCase& c : Cases()) {
    SCOPED_TRACE(TestShapeName(c.shape));
    changes_.clear();
    std::vector<unsigned char> data = c.request.Block();
    EXPECT_EQ(Run(c.shape, data), 1003);
    EXPECT_EQ(data, c.request.Block());
    EXPECT_TRUE(changes_.empty());
  }
}

TEST_F(ShapeTableTest, EmptyBlockGoesOutWithAnEmptyFirmCode) {
  std::vector<unsigned char> data;
  auto fn = [](const char* firm) { return firm[0] == '\0' ? 2 : 0; };
  EXPECT_EQ(TShape<EAdapterShape::SendOneString>::Run(fn, "Cmd", data, "HOLDER", env_), 1002);
  EXPECT_TRUE(changes_.empty());
  EXPECT_TRUE(data.empty());
}

TEST_F(ShapeTableTest, EmptyListsGoOutAsNullArrays) {
  std::vector<unsigned char> data = R().Set("firmCode", std::string("F1")).Block();
  ASSERT_EQ(Run(EAdapterShape::SendStringAndArrayStrings, data), 0);
  EXPECT_EQ(fake_.Call(), "F1|null");
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].second, "Cmd,main,,0NULL");
  data = R().Set("firmCode", std::string("F1")).Set("strParam", std::string("A")).Block();
  ASSERT_EQ(Run(EAdapterShape::SendTwoStringsAndArrayDoubleNumbers, data), 0);
  EXPECT_EQ(fake_.Call(), "F1|A|null");
  EXPECT_EQ(changes_[1].second, "Cmd,main,\"A\",0NULL");
}

TEST_F(ShapeTableTest, ChangeLineGoesUnderTheCallersFirmNotTheRecords) {
  std::vector<unsigned char> data = R().Set("firmCode", std::string("B")).Set("boolParam1", true).Block();
  ASSERT_EQ(Run(EAdapterShape::SendOneStringAndBool, data), 0);
  EXPECT_EQ(fake_.Call(), "B|b1");
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].first, "HOLDER");
}

TEST_F(ShapeTableTest, EmptyFunctionThrows) {
  std::vector<unsigned char> data = R().Set("firmCode", std::string("F1")).Set("lsStrings", Strings{"x"}).Block();
  std::function<int(const char*, ZDL_ArrayStrings*)> empty;
  EXPECT_THROW(TShape<EAdapterShape::SendStringAndArrayStrings>::Run(empty, "Cmd", data, "HOLDER", env_),
               std::bad_function_call);
  EXPECT_TRUE(changes_.empty());
}

TEST_F(ShapeTableTest, EveryCutOfEveryRequestDecodesWithoutHarm) {
  // A block cut short anywhere decodes to what it still carries (or to
  // defaults); the call goes out and nothing breaks.
  for (const TCase& c : Cases()) {
    SCOPED_TRACE(TestShapeName(c.shape));
    const TestWire::Bytes whole = c.request.Block();
    for (std::size_t size = 0; size < whole.size(); ++size) {
      std::vector<unsigned char> data(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
      changes_.clear();
      EXPECT_EQ(Run(c.shape, data), 0);
      EXPECT_TRUE(fake_.handedOut.empty());
    }
  }
}

TEST_F(ShapeTableTest, AListClaimingAHugeCountInAShortBlockGivesNoList) {
  // "lsStrings" says 1073741823 elements but the block ends right after.
  TestWire::Bytes data = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01, 0x01, 0x04};
  const char name[] = "lsStrings";
  data.insert(data.end(), name, name + sizeof name);
  data.push_back(0x03);
  TestWire::Compact(data, 0x3FFFFFFF);
  ASSERT_EQ(Run(EAdapterShape::SendStringAndArrayStrings, data), 0);
  EXPECT_EQ(fake_.Call(), "|null");
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].second, "Cmd,main,,0NULL");
}

TEST_F(ShapeTableTest, FieldsOfTheWrongTypeReadAsDefaultsOrTheirLowBytes) {
  // "intParam1" sent as a string and "firmCode" sent as an int.
  std::vector<unsigned char> data = R().Set("firmCode", 5).Set("intParam1", std::string("7")).Block();
  ASSERT_EQ(Run(EAdapterShape::SendOneStringAndInt, data), 0);
  ASSERT_EQ(fake_.call.size(), 2u);
  EXPECT_EQ(fake_.call[1], "i55");  // the two bytes "7\0" land in the low bytes of 0
}

// Settings functions of both forms that share the name of a limit-kind shape.
int g_secCalls = 0;
int g_classCalls = 0;
int SetSecurityKinds(const char*, ZDL_ArraySecToLimitKind* a) {
  ++g_secCalls;
  return a != nullptr && a->count == 1 && a->items[0].intParam == 5 ? 0 : 9;
}
int SetClassKinds(const char*, ZDL_ArrayClassToLimitKind* a) {
  ++g_classCalls;
  return a != nullptr && a->count == 1 && a->items[0].intParam == 5 ? 0 : 9;
}

TEST_F(ShapeTableTest, ALimitKindShapeSendsTheArrayTypeTheFunctionTakes) {
  const Record request = R().Set("firmCode", std::string("F1"))
                             .Set("lsItems", TestWire::Records{R().Set("intParam", 5).Set("lsStrings", Strings{"S"})});
  std::vector<unsigned char> data = request.Block();
  using Shape = TShape<EAdapterShape::SendStringAndArrayIntForString>;
  EXPECT_EQ(Shape::Run(&SetSecurityKinds, "Cmd", data, "HOLDER", env_), 0);
  EXPECT_EQ(Shape::Run(std::function<int(const char*, ZDL_ArraySecToLimitKind*)>(&SetSecurityKinds), "Cmd", data,
                       "HOLDER", env_),
            0);
  EXPECT_EQ(Shape::Run(&SetClassKinds, "Cmd", data, "HOLDER", env_), 0);
  EXPECT_EQ(g_secCalls, 2);
  EXPECT_EQ(g_classCalls, 1);
  EXPECT_EQ(changes_.size(), 3u);
}

TEST_F(ShapeTableTest, ALimitKindShapeReadsTheArrayTypeTheFunctionHandsOut) {
  std::vector<std::string> gave;
  auto securities = [&](const char*, ZDL_ArraySecToLimitKind** out) {
    gave.push_back("sec");
    auto* a = new ZDL_ArraySecToLimitKind{1, new ZDL_IntToArrayString[1]};
    a->items[0] = {4, Strs({"SBER"})};
    fake_.handedOut[a] = [a] {
      Drop(a->items[0]);
      delete[] a->items;
      delete a;
    };
    *out = a;
    return 0;
  };
  std::vector<unsigned char> data = R().Set("firmCode", std::string("F1")).Block();
  ASSERT_EQ(TShape<EAdapterShape::SendString_GetArrayIntForString>::Run(securities, "Cmd", data, "HOLDER", env_), 0);
  EXPECT_EQ(gave.size(), 1u);
  EXPECT_TRUE(fake_.handedOut.empty());
  const Record reply = R().Set("firmCode", std::string("F1"))
                           .Set("lsItems", TestWire::Records{R().Set("intParam", 4).Set("lsStrings", Strings{"SBER"})});
  EXPECT_EQ(data, reply.Block());
}

TEST_F(ShapeTableTest, ARequestListWithAHugeCountOfElementRecordsGivesNoList) {
  // "lsItems" says 2^31 elements, then one element that breaks off.
  TestWire::Bytes data = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01, 0x01, 0x04};
  const char name[] = "lsItems";
  data.insert(data.end(), name, name + sizeof name);
  data.push_back(0x03);
  TestWire::Compact(data, 0x80000000u);
  data.insert(data.end(), {0x01, 0x04, 's', 't', 'r'});
  ASSERT_EQ(Run(EAdapterShape::SendStringAndStringListToTag, data), 0);
  EXPECT_EQ(fake_.Call(), "|null");
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].second, "Cmd,main,0NULL");
}

TEST_F(ShapeTableTest, AStringWithoutItsTerminatorIsCutAtTheBlocksEnd) {
  // "firmCode" holds "F1" and no zero, the last bytes of the block.
  TestWire::Bytes data = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01, 0x01, 0x04};
  const char name[] = "firmCode";
  data.insert(data.end(), name, name + sizeof name);
  data.insert(data.end(), {0x02, 0x02, 0x08, 'F', '1'});
  ASSERT_EQ(Run(EAdapterShape::SendOneString, data), 0);
  EXPECT_EQ(fake_.Call(), "F1");
}

TEST_F(ShapeTableTest, ANumberListWithAHugeCountGivesNoList) {
  // "lsDoubles" says 2^31 values and the block ends after the count.
  TestWire::Bytes data = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01, 0x01, 0x04};
  const char name[] = "lsDoubles";
  data.insert(data.end(), name, name + sizeof name);
  data.insert(data.end(), {0x04, 0x01});
  TestWire::Compact(data, 0x80000000u);
  ASSERT_EQ(Run(EAdapterShape::SendTwoStringsAndArrayDoubleNumbers, data), 0);
  EXPECT_EQ(fake_.Call(), "||null");
}

TEST_F(ShapeTableTest, ACompositeListSentAsAStringIsNoList) {
  std::vector<unsigned char> data =
      R().Set("firmCode", std::string("F1")).Set("lsItems", std::string("not a list")).Block();
  ASSERT_EQ(Run(EAdapterShape::SendStringAndClassListForCurrency, data), 0);
  EXPECT_EQ(fake_.Call(), "F1|null");
  // An element whose fields come with the wrong types reads them as the
  // decoder does: an int's bytes as a string up to its zero, a string's bytes
  // into the low bytes of the number.
  data = R().Set("firmCode", std::string("F1"))
             .Set("lsItems", TestWire::Records{R().Set("str", 7).Set("value", std::string("x"))})
             .Block();
  ASSERT_EQ(Run(EAdapterShape::SendTwoStringsAndArrayCurrencyWithDiscount, data), 0);
  double low = 0;
  const unsigned char bytes[] = {'x', 0};
  std::memcpy(&low, bytes, sizeof bytes);
  EXPECT_EQ(fake_.Call(), "F1||[\x07:" + Num(low) + "]");
}

TEST(ShapeTableMemoryTest, ANestedResultMadeInTheFirmsMemoryIsCopiedBackAndGivenBack) {
  TMemory memory;
  TAdapterEnv env;
  env.noteChange = [](const std::string&, std::string) { FAIL() << "a reading shape notes nothing"; };
  env.freeMemory = [&](const char*, void** block) { return memory.FreeMemory(block); };
  auto settings = [&](const char* firm, int user, ZDL_ClassToSettleCodeToSecList** out) {
    if (std::string(firm) != "F1" || user != 3) return 4;
    ZDL_ClassToSettleCodeToSecList* list = memory.ConstructClassToSettleCodeToSecList(1);
    list->items[0].strCode = Dup("TQBR");
    list->items[0].lsSettleCodes = {1, new ZDL_StringToArrayStrings[1]};
    list->items[0].lsSettleCodes.items[0] = {Dup("T0"), Strs({"SBER", "GAZP"})};
    *out = list;
    return 0;
  };
  std::vector<unsigned char> data = R().Set("firmCode", std::string("F1")).Set("intParam1", 3).Block();
  ASSERT_EQ(TShape<EAdapterShape::SendStringWithInt_GetClassToSettleCodeToSecList>::Run(settings, "Cmd", data,
                                                                                         "HOLDER", env),
            0);
  EXPECT_EQ(memory.Outstanding(), 0u);  // given back through the firm, with every inner list
  const Record reply =
      R().Set("firmCode", std::string("F1"))
          .Set("intParam1", 3)
          .Set("lsItems", TestWire::Records{R().Set("strCode", std::string("TQBR"))
                                                .Set("lsSettleCodes",
                                                     TestWire::Records{R().Set("strCode", std::string("T0"))
                                                                           .Set("lsStrings", Strings{"SBER", "GAZP"})})});
  EXPECT_EQ(data, reply.Block());
}

}  // namespace
