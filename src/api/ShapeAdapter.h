#pragma once
// The engine of the generic adapters. A shape is declared once, as a type
// built from the pieces below (see api/ShapeTable.h):
//
//   TSend<Record, Line, In...>   decode Record, call fn(In...), note Line on success
//   TRead<Record, Out, In...>    decode Record, call fn(In..., &result), store
//                                Out into Record and encode it back
//
// Each In names one field of the record and how it is handed to fn: a string
// as const char*, a number by value, a list as a counted array (null when the
// list is empty) that is released after the call whatever its result, or a
// small composite by value. Each Out names the field(s) that take the result
// and how the result is released (strings and arrays through the firm that
// handed them out).
//
// Results: 0 stays 0, a settings code n becomes n + 1000. On a failure nothing
// is noted and data is left as it came.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "api/Adapters.h"
#include "api/ZDLArrays.h"
#include "base/ApiRecords.h"

namespace DL::Adapters::Shape {

// ---- What travels into fn -----------------------------------------------

// A value handed to fn as it is.
template <class T>
struct TPassed {
  T value;
  T get() const { return value; }
};

// A counted array built from a list for one call and released afterwards;
// get() is null for an empty list.
template <class Array, class Item, void (*Build)(Array&, const std::vector<Item>&), void (*Free)(Array&)>
class TBuiltArray {
 public:
  explicit TBuiltArray(const std::vector<Item>& list) {
    if (list.empty()) return;
    array_ = std::make_unique<Array>();
    Build(*array_, list);
  }
  TBuiltArray(const TBuiltArray&) = delete;
  TBuiltArray& operator=(const TBuiltArray&) = delete;
  ~TBuiltArray() {
    if (array_) Free(*array_);
  }
  Array* get() const { return array_.get(); }

 private:
  std::unique_ptr<Array> array_;
};

// A double as the change lines write it: the shortest form that reads back,
// in plain decimals unless the value is very large or very small (1000 is
// "1000", not "1e+03").
inline std::string NumberText(double value) {
  char text[64];
  for (int digits = 1; digits <= 17; ++digits) {
    std::snprintf(text, sizeof text, "%.*g", digits, value);
    if (std::strtod(text, nullptr) == value) break;
  }
  const double magnitude = value < 0 ? -value : value;
  if (std::strchr(text, 'e') == nullptr || magnitude >= 1e15 || magnitude < 1e-6) return text;
  for (int decimals = 0; decimals <= 17; ++decimals) {
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    if (std::strtod(text, nullptr) == value) break;
  }
  return text;
}

inline std::string Quoted(const std::string& text) { return '"' + text + '"'; }

// A string field, passed as const char*.
template <auto Member>
struct Str {
  template <class P, class R>
  static TPassed<const char*> Bind(R& r) {
    return {(r.*Member).c_str()};
  }
  template <class R>
  static std::string Text(const R& r) {
    return Quoted(r.*Member);
  }
};

// An int, bool or double field, passed by value.
template <auto Member>
struct Val {
  template <class P, class R>
  static auto Bind(R& r) {
    using T = std::remove_cvref_t<decltype(r.*Member)>;
    return TPassed<T>{r.*Member};
  }
  template <class R>
  static std::string Text(const R& r) {
    using T = std::remove_cvref_t<decltype(r.*Member)>;
    if constexpr (std::is_same_v<T, bool>) return Quoted(r.*Member ? "1" : "0");
    else if constexpr (std::is_same_v<T, double>) return Quoted(NumberText(r.*Member));
    else return Quoted(std::to_string(r.*Member));
  }
};

// One element of a list as a change line writes it: a string as it is, a
// number in its shortest form, a list in brackets, a record as its fields in
// order joined by ':' (a pair of codes is "str1:str2").
template <class Item>
std::string ItemText(const Item& item);

template <class Item>
std::string BracketedList(const std::vector<Item>& list) {
  std::vector<std::string> items;
  items.reserve(list.size());
  for (const Item& item : list) items.push_back(ItemText(item));
  return vectorSTLStringsToStr(items);
}

template <class Item>
std::string ItemText(const Item& item) {
  if constexpr (std::is_same_v<Item, std::string>) {
    return item;
  } else if constexpr (std::is_same_v<Item, double>) {
    return NumberText(item);
  } else if constexpr (std::is_arithmetic_v<Item>) {
    return std::to_string(item);
  } else if constexpr (RecordFields::TIsVector<Item>::value) {
    return BracketedList(item);
  } else {
    std::string text;
    bool first = true;
    Item::VisitFields(item, [&](const char*, const auto& field) {
      if (!first) text += ':';
      first = false;
      text += ItemText(field);
    });
    return text;
  }
}

// A list written into a change line: its count, then the list in brackets, or
// NULL when it is empty.
template <class Item>
std::string ListText(const std::vector<Item>& list) {
  std::string text = std::to_string(list.size());
  if (list.empty()) return text + "NULL";
  return text + BracketedList(list);
}

// A list field, passed as the plain array that Holder builds from it (null
// when empty) and releases after the call.
template <class Holder, auto Member>
struct ListArg {
  template <class P, class R>
  static Holder Bind(R& r) {
    return Holder(r.*Member);
  }
  template <class R>
  static std::string Text(const R& r) {
    return ListText(r.*Member);
  }
};

// A list of strings, passed as ZDL_ArrayStrings*.
template <auto Member>
using Strings =
    ListArg<TBuiltArray<ZDL_ArrayStrings, std::string, &New_ZDL_ArrayStrings, &Free_ZDL_ArrayStrings>, Member>;

// A list of doubles, passed as ZDL_ArrayDoubleNumbers*.
template <auto Member>
using Doubles = ListArg<TBuiltArray<ZDL_ArrayDoubleNumbers, double, &New_ZDL_ArrayDoubleNumbers,
                                    &Free_ZDL_ArrayDoubleNumbers>,
                        Member>;

// A list of whole numbers, passed as ZDL_ArrayIntNumbers*.
template <auto Member>
using Ints = ListArg<TBuiltArray<ZDL_ArrayIntNumbers, int, &New_ZDL_ArrayIntNumbers, &Free_ZDL_ArrayIntNumbers>, Member>;

// A list of code pairs, passed as ZDL_ArrayCodeToCodeTrdaccToTrdacc*.
template <auto Member>
using Pairs = ListArg<TBuiltArray<ZDL_ArrayCodeToCodeTrdaccToTrdacc, TDL_StringsPair,
                                  &New_ZDL_ArrayCodeToCodeTrdaccToTrdacc, &Free_ZDL_ArrayCodeToCodeTrdaccToTrdacc>,
                      Member>;

// A list of records, passed as the composite array Array (api/ZDLArrays.def).
template <class Array, class Item>
struct TComposite;
#define ZDL_COMPOSITE_ARRAY(array, element)                                                           \
  template <>                                                                                         \
  struct TComposite<ZDL_##array, element> {                                                           \
    using Built = TBuiltArray<ZDL_##array, element, &New_ZDL_##array, &Free_ZDL_##array>;             \
  };
#include "api/ZDLArrays.def"
#undef ZDL_COMPOSITE_ARRAY

template <class Array, auto Member>
struct Composite {
  template <class P, class R>
  static auto Bind(R& r) {
    using Item = typename RecordFields::TIsVector<std::remove_cvref_t<decltype(r.*Member)>>::Element;
    return typename TComposite<Array, Item>::Built(r.*Member);
  }
  template <class R>
  static std::string Text(const R& r) {
    return ListText(r.*Member);
  }
};

// A list whose array type is the one fn takes at this place: Preferred, or
// Other when fn's parameter there is Other* (two settings functions sharing a
// name over two array types of one layout). A callable whose parameters
// cannot be read gets Preferred.
template <class Preferred, class Other, auto Member>
struct EitherComposite {
  template <class P, class R>
  static auto Bind(R& r) {
    using Array = std::conditional_t<std::is_same_v<P, Other*>, Other, Preferred>;
    return Composite<Array, Member>::template Bind<P>(r);
  }
  template <class R>
  static std::string Text(const R& r) {
    return ListText(r.*Member);
  }
};

// Three double fields, passed as ZDL_BaseDiscCoeff by value.
template <auto M1, auto M2, auto M3>
struct DiscCoeff {
  template <class P, class R>
  static TPassed<ZDL_BaseDiscCoeff> Bind(R& r) {
    return {ZDL_BaseDiscCoeff{r.*M1, r.*M2, r.*M3}};
  }
  template <class R>
  static std::string Text(const R& r) {
    return Quoted(NumberText(r.*M1)) + ',' + Quoted(NumberText(r.*M2)) + ',' + Quoted(NumberText(r.*M3));
  }
};

// Two double fields, passed as ZDL_VolatilityChangeScenarios by value.
template <auto M1, auto M2>
struct Scenarios {
  template <class P, class R>
  static TPassed<ZDL_VolatilityChangeScenarios> Bind(R& r) {
    return {ZDL_VolatilityChangeScenarios{r.*M1, r.*M2}};
  }
  template <class R>
  static std::string Text(const R& r) {
    return Quoted(NumberText(r.*M1)) + ',' + Quoted(NumberText(r.*M2));
  }
};

// ---- What comes back from fn ----------------------------------------------

// An int, bool or double into a field of the same type.
template <auto Member>
struct OutVal {
  template <class R, class P>
  using Local = std::remove_cvref_t<decltype(std::declval<R&>().*Member)>;
  template <class R, class L>
  static void Store(R& r, L& local, const TAdapterEnv&, const std::string&) {
    r.*Member = local;
  }
};

// A char* handed out by the settings layer: copied, then released.
template <auto Member>
struct OutStr {
  template <class R, class P>
  using Local = char*;
  template <class R>
  static void Store(R& r, char*& text, const TAdapterEnv& env, const std::string& firmCode) {
    r.*Member = text != nullptr ? text : "";
    Detail::Release(env, firmCode, text);
  }
};

// A counted array handed out by the settings layer: copied in order, then released.
template <class Array, auto Member>
struct OutArray {
  template <class R, class P>
  using Local = Array*;
  template <class R, class A>
  static void Store(R& r, A*& array, const TAdapterEnv& env, const std::string& firmCode) {
    auto& list = r.*Member;
    list.clear();
    if (array != nullptr) ZDL_ToRecords(*array, list);
    Detail::Release(env, firmCode, array);
  }
};
template <auto Member>
using OutStrings = OutArray<ZDL_ArrayStrings, Member>;
template <auto Member>
using OutInts = OutArray<ZDL_ArrayIntNumbers, Member>;
template <auto Member>
using OutDoubles = OutArray<ZDL_ArrayDoubleNumbers, Member>;

// A result array of the type fn hands out at this place: Preferred, or Other
// when fn's parameter is Other** (see EitherComposite).
template <class Preferred, class Other, auto Member>
struct OutEitherArray {
  template <class R, class P>
  using Local = std::conditional_t<std::is_same_v<P, Other**>, Other*, Preferred*>;
  template <class R, class A>
  static void Store(R& r, A*& array, const TAdapterEnv& env, const std::string& firmCode) {
    OutArray<A, Member>::Store(r, array, env, firmCode);
  }
};

template <auto M1, auto M2, auto M3>
struct OutDiscCoeff {
  template <class R, class P>
  using Local = ZDL_BaseDiscCoeff;
  template <class R>
  static void Store(R& r, ZDL_BaseDiscCoeff& v, const TAdapterEnv&, const std::string&) {
    r.*M1 = v.coeff1;
    r.*M2 = v.coeff2;
    r.*M3 = v.coeff3;
  }
};

template <auto M1, auto M2>
struct OutScenarios {
  template <class R, class P>
  using Local = ZDL_VolatilityChangeScenarios;
  template <class R>
  static void Store(R& r, ZDL_VolatilityChangeScenarios& v, const TAdapterEnv&, const std::string&) {
    r.*M1 = v.value1;
    r.*M2 = v.value2;
  }
};

// ---- Change lines -----------------------------------------------------------

// The lines with a fixed form.
struct LineOneString {
  template <class R, class... In>
  static std::string Make(std::string_view command, const R&) {
    return ChangeLineSendOneString(command);
  }
};
struct LineTwoStrings {
  template <class R, class... In>
  static std::string Make(std::string_view command, const R& r) {
    return ChangeLineSendTwoStrings(command, r.strParam);
  }
};
struct LineStringAndBool {
  template <class R, class... In>
  static std::string Make(std::string_view command, const R& r) {
    return ChangeLineSendOneStringAndBool(command, r.boolParam1);
  }
};
struct LineStringAndArray {
  template <class R, class... In>
  static std::string Make(std::string_view command, const R& r) {
    return ChangeLineSendStringAndArrayStrings(command, r.lsStrings);
  }
};

// Every other sending shape: the command, "main", then each argument after
// the firm code in the order of the call, joined by commas.
struct LineArguments {
  template <class R, class First, class... Rest>
  static std::string Make(std::string_view command, const R& r) {
    std::string line(command);
    line += ",main";
    ((line += ',', line += Rest::Text(r)), ...);
    return line;
  }
};

// ---- The parameters of a settings function --------------------------------

// The parameter types of a callable whose signature can be read: a function,
// a function pointer, or an object with one non-template operator() (a
// std::function, a plain lambda). Params is void for any other callable.
template <class F, class = void>
struct TSignature {
  using Params = void;
};
template <class Ret, class... A>
struct TSignature<Ret (*)(A...), void> {
  using Params = std::tuple<A...>;
};
template <class Ret, class... A>
struct TSignature<Ret(A...), void> {
  using Params = std::tuple<A...>;
};
template <class M>
struct TMemberSignature {
  using Params = void;
};
template <class Ret, class C, class... A>
struct TMemberSignature<Ret (C::*)(A...)> {
  using Params = std::tuple<A...>;
};
template <class Ret, class C, class... A>
struct TMemberSignature<Ret (C::*)(A...) const> {
  using Params = std::tuple<A...>;
};
template <class Ret, class C, class... A>
struct TMemberSignature<Ret (C::*)(A...) noexcept> {
  using Params = std::tuple<A...>;
};
template <class Ret, class C, class... A>
struct TMemberSignature<Ret (C::*)(A...) const noexcept> {
  using Params = std::tuple<A...>;
};
template <class F>
struct TSignature<F, std::void_t<decltype(&F::operator())>> : TMemberSignature<decltype(&F::operator())> {};

template <class Params, std::size_t I, class = void>
struct TParamAt {
  using type = void;
};
template <class... A, std::size_t I>
struct TParamAt<std::tuple<A...>, I, std::enable_if_t<(I < sizeof...(A))>> {
  using type = std::tuple_element_t<I, std::tuple<A...>>;
};

// The type of fn's parameter at place I, or void when it cannot be read.
template <class Fn, std::size_t I>
using ParamAt = typename TParamAt<typename TSignature<std::remove_cvref_t<Fn>>::Params, I>::type;

// ---- The two kinds of shape ---------------------------------------------

template <class Record, class Line, class... In>
struct TSend {
  using RecordType = Record;
  static constexpr bool kSends = true;
  template <class Fn>
  static int Run(Fn&& fn, const std::string& command, std::vector<unsigned char>& data, const std::string& firm,
                 const TAdapterEnv& env) {
    return RunWith(std::forward<Fn>(fn), command, data, firm, env, std::index_sequence_for<In...>{});
  }

 private:
  template <class Fn, std::size_t... I>
  static int RunWith(Fn&& fn, const std::string& command, std::vector<unsigned char>& data, const std::string& firm,
                     const TAdapterEnv& env, std::index_sequence<I...>) {
    Record record;
    LoadDataForZDeallibAPI(record, data);
    // The built arrays live until the end of this statement: released whatever
    // fn returns, also when it throws.
    int n = std::invoke(fn, In::template Bind<ParamAt<Fn, I>>(record).get()...);
    if (n != 0) return SettingsResult(n);
    env.noteChange(firm, Line::template Make<Record, In...>(command, record));
    return 0;
  }
};

template <class Record, class Out, class... In>
struct TRead;

// The first argument is always the owner's code; a result is released
// through it.
template <class Record, class Out, class First, class... Rest>
struct TRead<Record, Out, First, Rest...> {
  using RecordType = Record;
  static constexpr bool kSends = false;
  template <class Fn>
  static int Run(Fn&& fn, const std::string& command, std::vector<unsigned char>& data, const std::string& firm,
                 const TAdapterEnv& env) {
    (void)command;
    (void)firm;
    return RunWith(std::forward<Fn>(fn), data, env, std::index_sequence_for<Rest...>{});
  }

 private:
  template <class Fn, std::size_t... I>
  static int RunWith(Fn&& fn, std::vector<unsigned char>& data, const TAdapterEnv& env, std::index_sequence<I...>) {
    Record record;
    LoadDataForZDeallibAPI(record, data);
    typename Out::template Local<Record, ParamAt<Fn, sizeof...(Rest) + 1>> result{};
    int n = std::invoke(fn, First::template Bind<ParamAt<Fn, 0>>(record).get(),
                        Rest::template Bind<ParamAt<Fn, I + 1>>(record).get()..., &result);
    if (n != 0) return SettingsResult(n);
    Out::Store(record, result, env, std::string(First::template Bind<void>(record).get()));
    StoreDataForZDealerAPI(record, data);
    return 0;
  }
};

}  // namespace DL::Adapters::Shape
