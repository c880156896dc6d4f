#include "base/TradingTypes.h"

#include "base/Numbers.h"

namespace DL {

ESide CharToEnumSide(char c) {
  if (c == 'B') return sdBuy;
  if (c == 'S') return sdSell;
  return sdUndefined;
}

ESide StrToEnumSide(std::string_view text) {
  if (text.empty()) return sdBoth;
  if (text.size() == 1) return CharToEnumSide(text[0]);
  return sdUndefined;
}

const char* EnumSideToStr(ESide side) {
  switch (side) {
    case sdBoth: return "";
    case sdBuy: return "B";
    case sdSell: return "S";
    default: return UndefinedText;
  }
}

bool TExchCommRate::IsZero() const { return MIsZero(TS) && MIsZero(Org) && MIsZero(Clearing); }

bool TExchCommValue::IsZero() const {
  return MIsZero(TS, 0.1) && MIsZero(Org, 0.1) && MIsZero(Clearing, 0.1);
}

TCommType::TCommType(std::string_view text) {
  if (text.empty() || text == "FIXED") value = ctFixed;
  else if (text == "TRADE_MAX") value = ctTradeMax;
  else if (text == "TRADE_MIN") value = ctTradeMin;
  else value = ctUndefined;
}

const char* TCommType::ToString() const {
  switch (value) {
    case ctFixed: return "FIXED";
    case ctTradeMax: return "TRADE_MAX";
    case ctTradeMin: return "TRADE_MIN";
    default: return "undefined";
  }
}

}  // namespace DL
