#pragma once
// Types shared by the settings core, the commission engine and the margin
// engine: sides, commission rates and values, commission kinds, effective
// discounts, code lengths and the constant codes of the trading system.

#include <array>
#include <string>
#include <string_view>

namespace DL {

// ---- Constants ----

inline constexpr const char* DefaultMainCurrency = "SUR";  // main currency unless settings say otherwise
inline constexpr std::array<const char*, 3> DefaultRublesEquivalents = {"SUR", "RUR", "RUB"};
inline constexpr const char* AllMark = "<ALL>";          // stands for "all" in keys and lists
inline constexpr const char* UndefinedText = "UNDEFINED";

// Maximal code lengths in characters (a buffer needs one more for the zero).
inline constexpr size_t MaxClassCodeLength = 12;
inline constexpr size_t MaxClientCodeLength = 12;
inline constexpr size_t MaxFirmCodeLength = 12;
inline constexpr size_t MaxPartnerCodeLength = 12;
inline constexpr size_t MaxSecCodeLength = 12;
inline constexpr size_t MaxSettleCodeLength = 12;
inline constexpr size_t MaxTradeAccountLength = 12;
inline constexpr size_t MaxTemplateCodeLength = 12;
inline constexpr size_t MaxCurrCodeLength = 4;
inline constexpr size_t MaxTagCodeLength = 4;

// ---- Side of a deal ----

enum ESide { sdBoth = 0, sdBuy = 1, sdSell = 2, sdUndefined = 3 };

// 'B' is buy, 'S' is sell, any other char undefined.
ESide CharToEnumSide(char c);
// "B" is buy, "S" is sell, the empty text both sides, anything else undefined.
ESide StrToEnumSide(std::string_view text);
// "" for both sides, "B", "S", and "UNDEFINED" for anything else.
const char* EnumSideToStr(ESide side);

// A side built from text or from a char, by the rules above.
struct TSide {
  ESide value = sdBoth;

  TSide() = default;
  TSide(ESide v) : value(v) {}  // NOLINT: a side is its value
  explicit TSide(std::string_view text) : value(StrToEnumSide(text)) {}
  explicit TSide(char c) : value(CharToEnumSide(c)) {}

  operator ESide() const { return value; }  // NOLINT
  const char* ToString() const { return EnumSideToStr(value); }
};

// ---- Commission ----

// Rates in per cent, in the order trading system, organiser, clearing. In a
// firm's own rates a negative value means "not set".
struct TExchCommRate {
  double TS = 0.0;
  double Org = 0.0;
  double Clearing = 0.0;

  TExchCommRate() = default;
  TExchCommRate(double ts, double org, double clearing) : TS(ts), Org(org), Clearing(clearing) {}
  // All three are zero within 1e-7.
  bool IsZero() const;
};

// Money in the deal's currency, the same three parts.
struct TExchCommValue {
  double TS = 0.0;
  double Org = 0.0;
  double Clearing = 0.0;

  TExchCommValue() = default;
  TExchCommValue(double ts, double org, double clearing) : TS(ts), Org(org), Clearing(clearing) {}
  // All three are zero within 0.1 (money tolerance).
  bool IsZero() const;
};

enum ECommType { ctFixed = 0, ctTradeMax = 1, ctTradeMin = 2, ctUndefined = 3 };

// Kind of a commission: "FIXED", "TRADE_MAX", "TRADE_MIN"; the empty text is
// FIXED, any other text undefined.
struct TCommType {
  ECommType value = ctFixed;

  TCommType() = default;
  TCommType(ECommType v) : value(v) {}  // NOLINT: a kind is its value
  explicit TCommType(std::string_view text);

  operator ECommType() const { return value; }  // NOLINT
  // "FIXED", "TRADE_MAX", "TRADE_MIN", "undefined" for any other value.
  const char* ToString() const;
};

// ---- Effective discounts of one security for one client ----

struct TDiscountsEx {
  double DLong = 0.0;      // discount of a long position, 0 to 1
  double DShort = 0.0;     // discount of a short position; above 1e25 shorting is forbidden
  double DLongMin = 0.0;   // minimal discount, long
  double DShortMin = 0.0;  // minimal discount, short
  char RCur[5] = {};       // currency of the discount (risk currency), zero-terminated
  bool bC = false;         // the security counts as marginal (collateral)
  bool bS = false;         // the security may be shorted
};

// Above this magnitude a margin value means "forbidden".
inline constexpr double ForbiddenLimit = 1e25;
// The value margin functions return for a forbidden state.
inline constexpr double ForbiddenValue = 1e50;

// A non-marginal security: 1.0, 1e50, 1.0, 1e50, no currency, not marginal, no short.
inline constexpr TDiscountsEx NM_Discs = {1.0, 1e50, 1.0, 1e50, {}, false, false};

}  // namespace DL
