#pragma once
// Text helpers shared by every subsystem: trimming and case, splitting and
// joining lists, conversions between text and numbers, prefix and suffix
// matching, base64. Text is bytes: case rules are those of toupper in the C
// locale. Two namespaces: DL holds the rules of the settings text, and
// Library::Utils the plain helpers of the runtime layer.

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace DL {

// ---- Emptiness, trimming, case ----

bool IsNullOrEmpty(const char* text);
// Empty, or white space only; a null text counts as empty.
bool IsEmptyOrSpace(const char* text);
bool IsEmptyOrSpace(std::string_view text);

// A copy without leading and trailing white space.
std::string TrimStr(std::string_view text);
// Removes leading and trailing white space in place.
void Trim(std::string& text);

// An upper-case copy.
std::string StrUpper(std::string_view text);
// Upper-cases in place.
void RealStrToUpper(std::string& text);
// Upper-cases the first count characters in place (all if count is larger).
void StrUpperPartly(std::string& text, size_t count);

// Copies at most n characters of src and always ends dst with a zero, so dst
// needs n + 1 bytes. A null src gives an empty dst.
char* strncpy_0(char* dst, const char* src, size_t n);

// ---- Lists ----

// Splits at the delimiter and trims each item; empty items are dropped unless
// keepEmpty. An empty text gives an empty list.
std::vector<std::string> BoardListToVector(std::string_view text, char delimiter, bool keepEmpty = false);
// The same, keeping only the first occurrence of each item, in order.
std::vector<std::string> BoardListToVectorWithoutDuplicates(std::string_view text, char delimiter,
                                                            bool keepEmpty = false);
// The same into a set (which drops the repeats itself); the set is cleared first.
void ParseRowWithDelimsToListRows(std::string_view text, char delimiter, std::set<std::string>& out,
                                  bool keepEmpty = false);
// Joins the set in its order with the delimiter.
std::string GetRowWithDelimsFromListRows(const std::set<std::string>& rows, char delimiter = ',');
// Joins the vector in its order with the delimiter.
std::string ListToString(const std::vector<std::string>& rows, char delimiter = ',');

// Split at the delimiter and convert each non-empty item (strtol, strtoll, strtod).
std::vector<int> StringListToIntVector(std::string_view text, char delimiter = ',');
std::vector<int64_t> StringListToInt64Vector(std::string_view text, char delimiter = ',');
std::vector<double> StringListToDoubleVector(std::string_view text, char delimiter = ',');

// The six numbers of a security discount line, split at "," or "|":
// KLong, KShort (0 or more), DLong (0 to 1), DShort (0 or more),
// DLongMin (0 to 1), DShortMin (0 or more). An empty, unreadable or out of
// range item, or a missing one, is -1. Always six values.
std::vector<double> StringListToDiscountVector(std::string_view text);

// A pattern of two or more characters ending in "*" matches a text with that
// prefix; a lone "*" matches anything; otherwise the two must be equal.
bool IsStringsEqualOrMatchByPrefix(std::string_view pattern, std::string_view text);

// Removes every item equal to the given one; true if one was removed.
bool RemoveFromStringList(std::vector<std::string>& list, std::string_view item);
// Drops empty items and items longer than maxLength.
void EraseRowsWithLengthZeroOrGreaterMaxLength(std::vector<std::string>& list, size_t maxLength);
// True if every item is non-empty and at most maxLength long.
bool Check_LenghtOfListElements(const std::vector<std::string>& list, size_t maxLength);

// ZDL_ string arrays (fields count and items) to containers and text. Null
// arrays and null items are skipped.
template <class TArray>
std::vector<std::string> ConvertStringList(const TArray* list) {
  std::vector<std::string> r;
  if (list == nullptr || list->items == nullptr) return r;
  for (size_t i = 0; i < list->count; ++i)
    if (list->items[i] != nullptr) r.emplace_back(list->items[i]);
  return r;
}
// The same, trimmed, without empty items and without repeats (first stays).
template <class TArray>
std::vector<std::string> ConvertAndCleanStringList(const TArray* list) {
  std::vector<std::string> r;
  std::set<std::string> seen;
  for (std::string& s : ConvertStringList(list)) {
    s = TrimStr(s);
    if (!s.empty() && seen.insert(s).second) r.push_back(std::move(s));
  }
  return r;
}
// The items joined by the delimiter.
template <class TArray>
std::string ConvertArrayStringsToString(const TArray* list, char delimiter = ',') {
  return ListToString(ConvertStringList(list), delimiter);
}

// ---- Text and numbers ----

// strtol in base 10; def if the text has no number at its start.
int StrToIntDef(const char* text, int def);
int StrToInt(const char* text);
// A number that is not zero is true.
bool StrToBool(const char* text);
// "%lf"; 0.0 if unreadable.
double StrToDouble(const char* text);

std::string IntToString(int64_t value);
// Fixed notation with the given decimals, trailing zeros and a trailing point
// removed: 2.5 -> "2.5", 100.0 -> "100", -0.0 -> "0".
std::string DoubleToString(double value, int decimals = 13);
// DoubleToString for a value above zero (tolerance 1e-7), else the empty text.
std::string DoubleToStringIfPositive(double value, int decimals = 13);
// "1" or "0".
std::string BoolToString(bool value);
// printf "%*.*f": right-aligned in width, exactly decimals decimals.
std::string DoubleToStringWithWidth(double value, int decimals, int width);

// The position of word standing as a whole word (not inside a longer run of
// letters, digits or "_"), or npos.
size_t FindWordInStr(std::string_view text, std::string_view word);
// The positions of every delimiter in the text.
std::vector<size_t> GetAllDelimsPosesInStr(std::string_view text, char delimiter);
// The pieces between delimiters, empties included; views into text.
std::vector<std::string_view> GetAllSubStringsView(std::string_view text, char delimiter);
// Byte for byte; inline, as the hot paths of section resolution test names with them.
inline bool StringStartsCaseSens(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && text.compare(0, prefix.size(), prefix) == 0;
}
inline bool StringFinishesCaseSens(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}
// Case-insensitive.
bool StringFinishes(std::string_view text, std::string_view suffix);
// Case-insensitive strstr; null if absent or an argument is null.
const char* stristr(const char* haystack, const char* needle);

// "BaseDiscCoeff": "%lf"; an empty or unreadable text, a value at or below 0
// or above 100 gives -1.
double ParseBaseDiscCoeffValue(const char* text);

// ---- Currencies (rules that need no firm) ----

// "RUB" and "RUR" become "SUR"; any other code stays.
std::string ReplaceRubRurToDefaultRubles(std::string_view currency);
// The same for every code of the set.
void ReplaceRubRurToSurInSet(std::set<std::string>& currencies);

}  // namespace DL

// ---- Plain helpers of the runtime layer ----

namespace Library::Utils {

// Without the leading / trailing / both white-space bytes (isspace).
std::string TrimLeft(std::string_view text);
std::string TrimRight(std::string_view text);
std::string Trim(std::string_view text);

// Splits at delimiter and trims every item. Empty items are dropped unless
// keepEmpty; "a,,b" gives {"a", "b"} or {"a", "", "b"}. An empty text gives
// no item.
std::vector<std::string> ParseStrToVector(std::string_view text, char delimiter, bool keepEmpty = false);
// The same items, without empties, as a sorted set.
std::set<std::string> ParseStrToSet(std::string_view text, char delimiter);

// Decimal text of an integer.
std::string IntToStr(std::int64_t value);
// Fixed notation with precision digits after the point ("%.*f").
std::string DoubleToStr(double value, int precision);
// "DD.MM.YYYY" and "hh:mm:ss", each field zero-padded.
std::string FormatDate(int year, int month, int day);
std::string FormatTime(int hour, int minute, int second);

// Equal byte for byte after toupper.
bool StringNoCaseEq(std::string_view a, std::string_view b);
// The number at the start of text as "%lf" reads it; fallback when there is none.
double StrToDouble(const std::string& text, double fallback = 0.0);
// value / 10^scale with exactly scale digits after the point: (12345, 2) gives
// "123.45", (-5, 3) gives "-0.005", (7, 0) gives "7". A negative scale counts as 0.
std::string ConvertScaledInt64ToStr(std::int64_t value, int scale);

// Standard base64 (RFC 4648 alphabet, "=" padding).
std::string Base64Encode(std::string_view data);
// Decodes a padded base64 text into out. False, with out emptied, on a
// length that is no multiple of 4, a byte outside the alphabet, or padding
// anywhere but at the end.
bool Base64Decode(std::string_view text, std::string& out);

}  // namespace Library::Utils
