#pragma once
// Price limits by class or by security: how far an order's price may stand
// from a reference price, which price that is, and whether a breach rejects
// the order.
#include <map>
#include <string>

#include "base/Numbers.h"

namespace DL {

// The default deviation and price type of a family of limits (the
// "..._MIDDLE" keys, and "MIDDLE" of a global section). Its value reads
// "[deviation][,price type]"; a lone price type name is the price type.
struct TDeviationPercentMiddle {
  double deviation = -1.0;  // per cent; below zero: none
  int priceType = 0;        // 0: none
  bool IsSet() const { return !MIsLTZero(deviation) || priceType != 0; }
  bool operator==(const TDeviationPercentMiddle& o) const {
    return MIsEqual(deviation, o.deviation) && priceType == o.priceType;
  }
};

// One limit: "deviation,price type,reject".
struct TPriceLimitItem {
  double deviation = -1.0;  // per cent; a negative one deletes the limit
  int priceType = 0;        // price type number (ini/PriceTypes.def)
  bool reject = false;      // third item "1"
  bool operator==(const TPriceLimitItem& o) const {
    return MIsEqual(deviation, o.deviation) && priceType == o.priceType && reject == o.reject;
  }
};

// The limits of one family by class or security code (upper case), and the
// price type of each item's "_MIDDLE" key.
struct TPriceLimit {
  std::map<std::string, TPriceLimitItem> limits;
  std::map<std::string, int> middles;
  bool Empty() const { return limits.empty() && middles.empty(); }
  bool operator==(const TPriceLimit&) const = default;
};

}  // namespace DL
