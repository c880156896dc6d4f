#include "commission/CurrOpCurrencies.h"

namespace DL {

namespace {

constexpr std::size_t kCurrencyLength = 3;

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool AreLetters(std::string_view s) {
  for (char c : s)
    if (!IsLetter(c)) return false;
  return true;
}

}  // namespace

bool FillBaseCurrencyForCurrOp(std::string_view sec, std::string_view& out) {
  out = {};
  if (sec.size() < kCurrencyLength || !AreLetters(sec.substr(0, kCurrencyLength))) return false;
  out = sec.substr(0, kCurrencyLength);
  return true;
}

bool FillQuoteCurrencyForCurrOp(std::string_view sec, std::string_view mainRubles, std::string_view& out) {
  std::string_view base;
  if (!FillBaseCurrencyForCurrOp(sec, base)) {
    out = {};
    return false;
  }
  std::size_t pos = kCurrencyLength;
  if (pos < sec.size() && sec[pos] == '_') ++pos;
  // Three letters, then a separator: "_" or a digit.
  const std::size_t end = pos + kCurrencyLength;
  if (end < sec.size() && AreLetters(sec.substr(pos, kCurrencyLength)) && (sec[end] == '_' || IsDigit(sec[end]))) {
    out = sec.substr(pos, kCurrencyLength);
    return true;
  }
  out = mainRubles;
  return true;
}

}  // namespace DL
