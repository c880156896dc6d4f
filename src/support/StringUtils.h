#pragma once
// Ordinary text and number helpers of the library.
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

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
