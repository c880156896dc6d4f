#pragma once
// Checked value types of the typed settings. Each value knows its limits and
// refuses a value outside them with a TypeErrorCode where it is set; a refused
// value changes nothing. The tag argument (an empty BT... class) makes every
// use a type of its own, so that a client code cannot be passed where an
// instrument is wanted.

#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/TextHelpers.h"

namespace DLTypes {

// Result of setting a checked value. A caller treats every non-zero value as a
// refusal; the string codes tell which kind of string was refused.
enum TypeErrorCode : int {
  tecSuccess = 0,
  tecBadName = 1,        // board name or set name
  tecBadInstrument = 3,  // instrument inside a complex setting
  tecBadClient = 7,      // client code
  tecBadValue = 8,       // number out of range or not readable
};

// How an instrument's price follows the base board.
enum Enum_TrendToBaseBoard : int {
  ttbbDirect = 1,
  ttbbInverse = -1,
};

// ---- Text to primitive and back ----

// Assigns; tecSuccess.
TypeErrorCode ConvertStringToPrimitive(const std::string& text, std::string& out);
// strtod; text that is no number gives 0.0, and still tecSuccess.
TypeErrorCode ConvertStringToPrimitive(const std::string& text, double& out);
// strtol in base 10; tecSuccess.
TypeErrorCode ConvertStringToPrimitive(const std::string& text, int& out);
// strtol in base 10, truncated to 32 bits; a negative value stores 0 and gives tecBadValue.
TypeErrorCode ConvertStringToPrimitive(const std::string& text, unsigned int& out);
// strtol: 1 and -1 are stored; anything else gives tecBadValue and leaves out.
TypeErrorCode ConvertStringToPrimitive(const std::string& text, Enum_TrendToBaseBoard& out);

// Doubles with 13 decimals (DL::DoubleToString), integers in decimal, strings
// unchanged, the trend as its number.
std::string ConvertPrimitiveToString(double value);
std::string ConvertPrimitiveToString(int value);
std::string ConvertPrimitiveToString(unsigned int value);
std::string ConvertPrimitiveToString(const std::string& value);
std::string ConvertPrimitiveToString(Enum_TrendToBaseBoard value);

// The trend from an int (1 or -1; anything else gives tecBadValue and leaves
// out) and back.
TypeErrorCode ConvertIntToPrimitive(int value, Enum_TrendToBaseBoard& out);
int ConvertPrimitiveToInt(Enum_TrendToBaseBoard value);

// ---- NumClass: a number in the closed range [Min, Max] ----

template <class T, T Min, T Max, TypeErrorCode Error, class Tag, int Precision>
class NumClass {
 public:
  using value_type = T;
  using tag_type = Tag;
  static constexpr T min_value = Min;
  static constexpr T max_value = Max;
  static constexpr TypeErrorCode error_code = Error;
  static constexpr int precision = Precision;  // decimals shown in text

  NumClass() = default;
  // An initial value outside the range leaves the value at Min.
  explicit NumClass(T initial) {
    if (InRange(initial)) m_value = initial;
  }

  static bool InRange(T v) { return v >= Min && v <= Max; }  // false for NaN too

  // Refuses a value outside the range with Error and keeps the old one.
  [[nodiscard]] TypeErrorCode Set(T v) {
    if (!InRange(v)) return Error;
    m_value = v;
    return tecSuccess;
  }
  // Converts with ConvertStringToPrimitive, then Set. A refusal changes nothing.
  [[nodiscard]] TypeErrorCode SetFromString(const std::string& text) {
    T v{};
    const TypeErrorCode rc = ConvertStringToPrimitive(text, v);
    if (rc != tecSuccess) return rc;
    return Set(v);
  }

  T Get() const { return m_value; }
  // With Precision decimals, trailing zeros dropped.
  std::string ToString() const {
    if constexpr (std::is_floating_point_v<T>) return DL::DoubleToString(m_value, Precision);
    else return ConvertPrimitiveToString(m_value);
  }

  friend bool operator<(const NumClass& a, const NumClass& b) { return a.m_value < b.m_value; }
  friend bool operator==(const NumClass& a, const NumClass& b) { return a.m_value == b.m_value; }

 private:
  T m_value = Min;
};

// ---- StringClass: a string of MinLength to MaxLength characters ----

template <size_t MinLength, size_t MaxLength, TypeErrorCode Error, class Tag>
class StringClass {
 public:
  using value_type = std::string;
  using tag_type = Tag;
  static constexpr size_t min_length = MinLength;
  static constexpr size_t max_length = MaxLength;
  static constexpr TypeErrorCode error_code = Error;

  StringClass() = default;

  static bool LengthFits(std::string_view v) { return v.size() >= MinLength && v.size() <= MaxLength; }

  // Refuses a string of a length outside the limits with Error and keeps the old one.
  [[nodiscard]] TypeErrorCode Set(const std::string& v) {
    if (!LengthFits(v)) return Error;
    m_value = v;
    return tecSuccess;
  }
  [[nodiscard]] TypeErrorCode SetFromString(const std::string& text) { return Set(text); }

  const std::string& Get() const { return m_value; }
  std::string ToString() const { return m_value; }

  friend bool operator<(const StringClass& a, const StringClass& b) { return a.m_value < b.m_value; }
  friend bool operator==(const StringClass& a, const StringClass& b) { return a.m_value == b.m_value; }

 private:
  std::string m_value;
};

// ---- DList: an ordered, duplicate-free set of checked values ----

// T is a NumClass or StringClass (anything with SetFromString, ToString and
// operator<). With AllowEmptyText an empty text is an empty list and success;
// otherwise it is refused.
template <class T, bool AllowEmptyText = false, class Compare = std::less<T>>
class DList {
 public:
  using value_type = T;
  using container_type = std::set<T, Compare>;

  // Parses comma-separated text into the list, replacing its contents:
  // an empty text gives tecBadValue (unless AllowEmptyText) and an empty list;
  // an empty piece ends the parse with tecBadValue; the first value that its
  // type refuses ends the parse with that type's code. The values read before
  // the end stay in the list. A repeated value is dropped without an error.
  TypeErrorCode StringToList(const std::string& text) {
    m_list.clear();
    m_result = Parse(text);
    return m_result;
  }

  // Adds one value; false if it was there.
  bool Insert(const T& v) { return m_list.insert(v).second; }
  bool Erase(const T& v) { return m_list.erase(v) != 0; }
  bool Contains(const T& v) const { return m_list.count(v) != 0; }
  void Clear() { m_list.clear(); m_result = tecSuccess; }

  // The values in order, joined by ",".
  std::string ToString() const {
    std::string r;
    for (const T& v : m_list) {
      if (!r.empty()) r += ',';
      r += v.ToString();
    }
    return r;
  }

  TypeErrorCode Result() const { return m_result; }  // code of the last StringToList
  const container_type& List() const { return m_list; }
  size_t size() const { return m_list.size(); }
  bool empty() const { return m_list.empty(); }
  typename container_type::const_iterator begin() const { return m_list.begin(); }
  typename container_type::const_iterator end() const { return m_list.end(); }

 private:
  TypeErrorCode Parse(const std::string& text) {
    if (text.empty()) return AllowEmptyText ? tecSuccess : tecBadValue;
    size_t start = 0;
    while (true) {
      const size_t comma = text.find(',', start);
      const size_t end = comma == std::string::npos ? text.size() : comma;
      if (end == start) return tecBadValue;
      T v;
      const TypeErrorCode rc = v.SetFromString(text.substr(start, end - start));
      if (rc != tecSuccess) return rc;
      m_list.insert(std::move(v));
      if (comma == std::string::npos) return tecSuccess;
      start = comma + 1;
    }
  }

  container_type m_list;
  TypeErrorCode m_result = tecSuccess;
};

// ---- ComplexKeyVal: one entry of a complex setting ----

// The parts of an entry: its key, its value and, where a setting has it, a
// third field (the trend to the base board).
template <class K> struct Complex1T { K value; };
template <class V> struct Complex2T { V value; };
template <class E> struct Complex3T { E value; };

namespace detail {

// Reads one part from text: checked types through SetFromString, the trend
// through its primitive conversion.
template <class T>
TypeErrorCode PartFromText(const std::string& text, T& out) {
  T v = out;
  const TypeErrorCode rc = v.SetFromString(text);
  if (rc == tecSuccess) out = std::move(v);
  return rc;
}
inline TypeErrorCode PartFromText(const std::string& text, Enum_TrendToBaseBoard& out) {
  return ConvertStringToPrimitive(text, out);
}

template <class T>
std::string PartToText(const T& v) { return v.ToString(); }
inline std::string PartToText(Enum_TrendToBaseBoard v) { return ConvertPrimitiveToString(v); }

}  // namespace detail

template <class... Parts>
class ComplexKeyVal;

// A key and a value.
template <class K, class V>
class ComplexKeyVal<Complex1T<K>, Complex2T<V>> {
 public:
  using key_type = K;
  using mapped_type = V;
  static constexpr size_t part_count = 2;

  ComplexKeyVal() = default;
  ComplexKeyVal(K key, V value) : m_key{std::move(key)}, m_value{std::move(value)} {}

  // Texts in part order; a missing text keeps that part as it is. The first
  // refused part ends with its code and the entry is left unchanged.
  TypeErrorCode SetByText(const std::vector<std::string>& texts) {
    ComplexKeyVal r = *this;
    TypeErrorCode rc = tecSuccess;
    if (texts.size() > 0 && (rc = detail::PartFromText(texts[0], r.m_key.value)) != tecSuccess) return rc;
    if (texts.size() > 1 && (rc = detail::PartFromText(texts[1], r.m_value.value)) != tecSuccess) return rc;
    *this = std::move(r);
    return tecSuccess;
  }
  std::vector<std::string> ToText() const {
    return {detail::PartToText(m_key.value), detail::PartToText(m_value.value)};
  }

  const K& GetKey() const { return m_key.value; }
  const V& GetValue() const { return m_value.value; }

  friend bool operator<(const ComplexKeyVal& a, const ComplexKeyVal& b) { return a.GetKey() < b.GetKey(); }

 private:
  Complex1T<K> m_key{};
  Complex2T<V> m_value{};
};

// A key, a value and a third field.
template <class K, class V, class E>
class ComplexKeyVal<Complex1T<K>, Complex2T<V>, Complex3T<E>> {
 public:
  using key_type = K;
  using mapped_type = V;
  using third_type = E;
  static constexpr size_t part_count = 3;

  ComplexKeyVal() = default;
  ComplexKeyVal(K key, V value, E third)
      : m_key{std::move(key)}, m_value{std::move(value)}, m_third{std::move(third)} {}

  // As for two parts, with the third text for the third field.
  TypeErrorCode SetByText(const std::vector<std::string>& texts) {
    ComplexKeyVal r = *this;
    TypeErrorCode rc = tecSuccess;
    if (texts.size() > 0 && (rc = detail::PartFromText(texts[0], r.m_key.value)) != tecSuccess) return rc;
    if (texts.size() > 1 && (rc = detail::PartFromText(texts[1], r.m_value.value)) != tecSuccess) return rc;
    if (texts.size() > 2 && (rc = detail::PartFromText(texts[2], r.m_third.value)) != tecSuccess) return rc;
    *this = std::move(r);
    return tecSuccess;
  }
  std::vector<std::string> ToText() const {
    return {detail::PartToText(m_key.value), detail::PartToText(m_value.value), detail::PartToText(m_third.value)};
  }

  const K& GetKey() const { return m_key.value; }
  const V& GetValue() const { return m_value.value; }
  const E& GetThird() const { return m_third.value; }

  friend bool operator<(const ComplexKeyVal& a, const ComplexKeyVal& b) { return a.GetKey() < b.GetKey(); }

 private:
  Complex1T<K> m_key{};
  Complex2T<V> m_value{};
  Complex3T<E> m_third{};
};

}  // namespace DLTypes
