#include "base/TextHelpers.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/TradingTypes.h"
#include "base/Numbers.h"

namespace DL {
namespace {

bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }
char Upper(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }
bool IsWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

// Calls f(piece) for every piece between delimiters, the last one included.
template <class F>
void ForEachPiece(std::string_view text, char delimiter, F f) {
  size_t start = 0;
  while (true) {
    const size_t pos = text.find(delimiter, start);
    if (pos == std::string_view::npos) {
      f(text.substr(start));
      return;
    }
    f(text.substr(start, pos - start));
    start = pos + 1;
  }
}

template <class F>
void ForEachTrimmedItem(std::string_view text, char delimiter, bool keepEmpty, F f) {
  if (text.empty()) return;
  ForEachPiece(text, delimiter, [&](std::string_view piece) {
    std::string item = TrimStr(piece);
    if (item.empty() && !keepEmpty) return;
    f(std::move(item));
  });
}

// Reads the whole (trimmed) text as a number with the given reader; false if
// the text is empty or has anything after the number.
template <class T, class Reader>
bool ReadWhole(std::string_view text, T& out, Reader read) {
  const std::string s = TrimStr(text);
  if (s.empty()) return false;
  char* end = nullptr;
  const T v = read(s.c_str(), &end);
  if (end == s.c_str() || *end != '\0') return false;
  out = v;
  return true;
}

}  // namespace

bool IsNullOrEmpty(const char* text) { return text == nullptr || text[0] == '\0'; }

bool IsEmptyOrSpace(std::string_view text) {
  return std::all_of(text.begin(), text.end(), IsSpace);
}

bool IsEmptyOrSpace(const char* text) { return text == nullptr || IsEmptyOrSpace(std::string_view(text)); }

std::string TrimStr(std::string_view text) {
  size_t b = 0;
  size_t e = text.size();
  while (b < e && IsSpace(text[b])) ++b;
  while (e > b && IsSpace(text[e - 1])) --e;
  return std::string(text.substr(b, e - b));
}

void Trim(std::string& text) { text = TrimStr(text); }

std::string StrUpper(std::string_view text) {
  std::string r(text);
  RealStrToUpper(r);
  return r;
}

void RealStrToUpper(std::string& text) {
  for (char& c : text) c = Upper(c);
}

void StrUpperPartly(std::string& text, size_t count) {
  const size_t n = std::min(count, text.size());
  for (size_t i = 0; i < n; ++i) text[i] = Upper(text[i]);
}

char* strncpy_0(char* dst, const char* src, size_t n) {
  size_t i = 0;
  if (src != nullptr)
    for (; i < n && src[i] != '\0'; ++i) dst[i] = src[i];
  dst[i] = '\0';
  return dst;
}

std::vector<std::string> BoardListToVector(std::string_view text, char delimiter, bool keepEmpty) {
  std::vector<std::string> r;
  ForEachTrimmedItem(text, delimiter, keepEmpty, [&](std::string item) { r.push_back(std::move(item)); });
  return r;
}

std::vector<std::string> BoardListToVectorWithoutDuplicates(std::string_view text, char delimiter,
                                                            bool keepEmpty) {
  std::vector<std::string> r;
  std::set<std::string> seen;
  ForEachTrimmedItem(text, delimiter, keepEmpty, [&](std::string item) {
    if (seen.insert(item).second) r.push_back(std::move(item));
  });
  return r;
}

void ParseRowWithDelimsToListRows(std::string_view text, char delimiter, std::set<std::string>& out,
                                  bool keepEmpty) {
  out.clear();
  ForEachTrimmedItem(text, delimiter, keepEmpty, [&](std::string item) { out.insert(std::move(item)); });
}

std::string GetRowWithDelimsFromListRows(const std::set<std::string>& rows, char delimiter) {
  std::string r;
  bool first = true;
  for (const std::string& s : rows) {
    if (!first) r += delimiter;
    r += s;
    first = false;
  }
  return r;
}

std::string ListToString(const std::vector<std::string>& rows, char delimiter) {
  std::string r;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (i > 0) r += delimiter;
    r += rows[i];
  }
  return r;
}

std::vector<int> StringListToIntVector(std::string_view text, char delimiter) {
  std::vector<int> r;
  ForEachTrimmedItem(text, delimiter, false,
                     [&](const std::string& item) { r.push_back(static_cast<int>(std::strtol(item.c_str(), nullptr, 10))); });
  return r;
}

std::vector<int64_t> StringListToInt64Vector(std::string_view text, char delimiter) {
  std::vector<int64_t> r;
  ForEachTrimmedItem(text, delimiter, false,
                     [&](const std::string& item) { r.push_back(std::strtoll(item.c_str(), nullptr, 10)); });
  return r;
}

std::vector<double> StringListToDoubleVector(std::string_view text, char delimiter) {
  std::vector<double> r;
  ForEachTrimmedItem(text, delimiter, false,
                     [&](const std::string& item) { r.push_back(std::strtod(item.c_str(), nullptr)); });
  return r;
}

std::vector<double> StringListToDiscountVector(std::string_view text) {
  // Upper bound of each position; the lower bound is 0 for all.
  static constexpr double kMax[6] = {1e300, 1e300, 1.0, 1e300, 1.0, 1e300};
  std::vector<double> r(6, -1.0);
  size_t index = 0;
  size_t start = 0;
  while (index < 6 && start <= text.size()) {
    size_t end = text.find_first_of(",|", start);
    if (end == std::string_view::npos) end = text.size();
    double v = 0.0;
    if (ReadWhole(text.substr(start, end - start), v, [](const char* s, char** e) { return std::strtod(s, e); }) &&
        v >= 0.0 && v <= kMax[index])
      r[index] = v;
    ++index;
    start = end + 1;
  }
  return r;
}

bool IsStringsEqualOrMatchByPrefix(std::string_view pattern, std::string_view text) {
  if (pattern == "*") return true;
  if (pattern.size() >= 2 && pattern.back() == '*')
    return text.substr(0, pattern.size() - 1) == pattern.substr(0, pattern.size() - 1);
  return pattern == text;
}

bool RemoveFromStringList(std::vector<std::string>& list, std::string_view item) {
  const size_t before = list.size();
  list.erase(std::remove(list.begin(), list.end(), item), list.end());
  return list.size() != before;
}

void EraseRowsWithLengthZeroOrGreaterMaxLength(std::vector<std::string>& list, size_t maxLength) {
  list.erase(std::remove_if(list.begin(), list.end(),
                            [&](const std::string& s) { return s.empty() || s.size() > maxLength; }),
             list.end());
}

bool Check_LenghtOfListElements(const std::vector<std::string>& list, size_t maxLength) {
  return std::all_of(list.begin(), list.end(),
                     [&](const std::string& s) { return !s.empty() && s.size() <= maxLength; });
}

int StrToIntDef(const char* text, int def) {
  if (text == nullptr) return def;
  char* end = nullptr;
  const long v = std::strtol(text, &end, 10);
  if (end == text) return def;
  return static_cast<int>(v);
}

int StrToInt(const char* text) { return StrToIntDef(text, 0); }

bool StrToBool(const char* text) { return StrToInt(text) != 0; }

double StrToDouble(const char* text) {
  double v = 0.0;
  if (text == nullptr || std::sscanf(text, "%lf", &v) != 1) return 0.0;
  return v;
}

std::string IntToString(int64_t value) { return std::to_string(value); }

std::string DoubleToString(double value, int decimals) {
  char buf[400];
  std::snprintf(buf, sizeof buf, "%.*f", decimals, value);
  std::string r(buf);
  if (r.find('.') != std::string::npos) {
    while (r.back() == '0') r.pop_back();
    if (r.back() == '.') r.pop_back();
  }
  if (r == "-0") r.erase(0, 1);  // no negative zero in settings text
  return r;
}

std::string DoubleToStringIfPositive(double value, int decimals) {
  return MIsGTZero(value) ? DoubleToString(value, decimals) : std::string();
}

std::string BoolToString(bool value) { return value ? "1" : "0"; }

std::string DoubleToStringWithWidth(double value, int decimals, int width) {
  char buf[400];
  std::snprintf(buf, sizeof buf, "%*.*f", width, decimals, value);
  return buf;
}

size_t FindWordInStr(std::string_view text, std::string_view word) {
  if (word.empty()) return std::string_view::npos;
  size_t pos = text.find(word);
  while (pos != std::string_view::npos) {
    const bool leftFree = pos == 0 || !IsWordChar(text[pos - 1]);
    const size_t after = pos + word.size();
    const bool rightFree = after == text.size() || !IsWordChar(text[after]);
    if (leftFree && rightFree) return pos;
    pos = text.find(word, pos + 1);
  }
  return std::string_view::npos;
}

std::vector<size_t> GetAllDelimsPosesInStr(std::string_view text, char delimiter) {
  std::vector<size_t> r;
  for (size_t i = 0; i < text.size(); ++i)
    if (text[i] == delimiter) r.push_back(i);
  return r;
}

std::vector<std::string_view> GetAllSubStringsView(std::string_view text, char delimiter) {
  std::vector<std::string_view> r;
  ForEachPiece(text, delimiter, [&](std::string_view piece) { r.push_back(piece); });
  return r;
}

bool StringFinishes(std::string_view text, std::string_view suffix) {
  if (text.size() < suffix.size()) return false;
  const std::string_view tail = text.substr(text.size() - suffix.size());
  for (size_t i = 0; i < suffix.size(); ++i)
    if (Upper(tail[i]) != Upper(suffix[i])) return false;
  return true;
}

const char* stristr(const char* haystack, const char* needle) {
  if (haystack == nullptr || needle == nullptr) return nullptr;
  const size_t n = std::strlen(needle);
  for (const char* p = haystack;; ++p) {
    size_t i = 0;
    while (i < n && p[i] != '\0' && Upper(p[i]) == Upper(needle[i])) ++i;
    if (i == n) return p;
    if (*p == '\0') return nullptr;
  }
}

double ParseBaseDiscCoeffValue(const char* text) {
  double v = 0.0;
  if (IsNullOrEmpty(text) || std::sscanf(text, "%lf", &v) != 1) return -1.0;
  if (v <= 0.0 || v > 100.0) return -1.0;
  return v;
}

std::string ReplaceRubRurToDefaultRubles(std::string_view currency) {
  if (currency == "RUB" || currency == "RUR") return DefaultMainCurrency;
  return std::string(currency);
}

void ReplaceRubRurToSurInSet(std::set<std::string>& currencies) {
  std::set<std::string> r;
  for (const std::string& c : currencies) r.insert(ReplaceRubRurToDefaultRubles(c));
  currencies.swap(r);
}

}  // namespace DL

namespace Library::Utils {
namespace {

bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

constexpr char kBase64[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int Base64Value(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  if (c == '/') return 63;
  return -1;
}

}  // namespace

std::string TrimLeft(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) ++i;
  return std::string(text.substr(i));
}

std::string TrimRight(std::string_view text) {
  size_t n = text.size();
  while (n > 0 && IsSpace(text[n - 1])) --n;
  return std::string(text.substr(0, n));
}

std::string Trim(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) ++i;
  size_t n = text.size();
  while (n > i && IsSpace(text[n - 1])) --n;
  return std::string(text.substr(i, n - i));
}

std::vector<std::string> ParseStrToVector(std::string_view text, char delimiter, bool keepEmpty) {
  std::vector<std::string> items;
  if (text.empty()) return items;
  size_t start = 0;
  while (true) {
    size_t end = text.find(delimiter, start);
    std::string item = Trim(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
    if (keepEmpty || !item.empty()) items.push_back(std::move(item));
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  return items;
}

std::set<std::string> ParseStrToSet(std::string_view text, char delimiter) {
  std::vector<std::string> items = ParseStrToVector(text, delimiter, false);
  return std::set<std::string>(items.begin(), items.end());
}

std::string IntToStr(std::int64_t value) { return std::to_string(value); }

std::string DoubleToStr(double value, int precision) {
  char buffer[512];
  int n = std::snprintf(buffer, sizeof buffer, "%.*f", precision < 0 ? 0 : precision, value);
  if (n < 0) return std::string();
  if (static_cast<size_t>(n) < sizeof buffer) return std::string(buffer, static_cast<size_t>(n));
  std::string big(static_cast<size_t>(n) + 1, '\0');
  std::snprintf(big.data(), big.size(), "%.*f", precision < 0 ? 0 : precision, value);
  big.resize(static_cast<size_t>(n));
  return big;
}

std::string FormatDate(int year, int month, int day) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%02d.%02d.%04d", day, month, year);
  return buffer;
}

std::string FormatTime(int hour, int minute, int second) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", hour, minute, second);
  return buffer;
}

bool StringNoCaseEq(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

double StrToDouble(const std::string& text, double fallback) {
  double value = 0;
  return std::sscanf(text.c_str(), "%lf", &value) == 1 ? value : fallback;
}

std::string ConvertScaledInt64ToStr(std::int64_t value, int scale) {
  if (scale < 0) scale = 0;
  bool negative = value < 0;
  // The magnitude as unsigned, so that the lowest int64 has one too.
  std::uint64_t magnitude = negative ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
  std::string digits = std::to_string(magnitude);
  if (digits.size() <= static_cast<size_t>(scale)) digits.insert(0, static_cast<size_t>(scale) + 1 - digits.size(), '0');
  if (scale > 0) digits.insert(digits.size() - static_cast<size_t>(scale), 1, '.');
  return negative ? "-" + digits : digits;
}

std::string Base64Encode(std::string_view data) {
  std::string out;
  out.reserve((data.size() + 2) / 3 * 4);
  size_t i = 0;
  for (; i + 3 <= data.size(); i += 3) {
    std::uint32_t v = (static_cast<unsigned char>(data[i]) << 16) | (static_cast<unsigned char>(data[i + 1]) << 8) |
                      static_cast<unsigned char>(data[i + 2]);
    out += kBase64[v >> 18];
    out += kBase64[(v >> 12) & 63];
    out += kBase64[(v >> 6) & 63];
    out += kBase64[v & 63];
  }
  size_t rest = data.size() - i;
  if (rest > 0) {
    std::uint32_t v = static_cast<std::uint32_t>(static_cast<unsigned char>(data[i]) << 16);
    if (rest == 2) v |= static_cast<std::uint32_t>(static_cast<unsigned char>(data[i + 1]) << 8);
    out += kBase64[v >> 18];
    out += kBase64[(v >> 12) & 63];
    out += rest == 2 ? kBase64[(v >> 6) & 63] : '=';
    out += '=';
  }
  return out;
}

bool Base64Decode(std::string_view text, std::string& out) {
  out.clear();
  if (text.size() % 4 != 0) return false;
  out.reserve(text.size() / 4 * 3);
  for (size_t i = 0; i < text.size(); i += 4) {
    bool last = i + 4 == text.size();
    int pad = 0;
    if (last && text[i + 3] == '=') pad = text[i + 2] == '=' ? 2 : 1;
    std::uint32_t v = 0;
    for (size_t k = 0; k < 4; ++k) {
      int d = k < 4 - static_cast<size_t>(pad) ? Base64Value(text[i + k]) : 0;
      if (d < 0) {
        out.clear();
        return false;
      }
      v = (v << 6) | static_cast<std::uint32_t>(d);
    }
    out += static_cast<char>(v >> 16);
    if (pad < 2) out += static_cast<char>((v >> 8) & 0xFF);
    if (pad < 1) out += static_cast<char>(v & 0xFF);
  }
  return true;
}

}  // namespace Library::Utils
