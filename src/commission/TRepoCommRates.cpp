#include "commission/TRepoCommRates.h"

#include <cmath>
#include <cstdlib>

#include "base/TextHelpers.h"

namespace DL {

namespace {

// A whole finite number with nothing after it.
bool ReadNumber(const std::string& text, double& out) {
  const std::string t = TrimStr(text);
  if (t.empty()) return false;
  char* end = nullptr;
  const double v = std::strtod(t.c_str(), &end);
  if (end == t.c_str() || *end != '\0' || !std::isfinite(v)) return false;
  out = v;
  return true;
}

}  // namespace

bool ParseSettingRepoPerDayAndScaleCommission(const std::string& text, TREPOCommTypeEnum type, double& rate,
                                              double& amount) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) return false;
  const std::string first = text.substr(0, comma);
  const std::string second = text.substr(comma + 1);
  if (second.find(',') != std::string::npos) return false;
  double a = 0.0, b = 0.0;
  if (!ReadNumber(first, a) || !ReadNumber(second, b)) return false;
  switch (type.value) {
    case rctRepoFixed:
      rate = a;
      amount = 0.0;
      return true;
    case rctRepoTrade:
      rate = 0.0;
      amount = b;
      return true;
    case rctRepoTradeMax:
    case rctRepoTradeSum:
      rate = a;
      amount = b;
      return true;
    default:
      return false;
  }
}

bool ParseRepoCommRates(const std::string& value, TRepoCommRates& out) {
  const std::size_t comma = value.find(',');
  if (comma == std::string::npos) return false;
  const TREPOCommTypeEnum type = StrToEnumREPOCommType(TrimStr(value.substr(0, comma)));
  if (type.value == rctNotSet) return false;
  double rate = 0.0, amount = 0.0;
  if (!ParseSettingRepoPerDayAndScaleCommission(value.substr(comma + 1), type, rate, amount)) return false;
  out.CommType = type;
  out.Rate = rate;
  out.Amount = amount;
  return true;
}

bool CalcRepoCommission(const TRepoCommRates& found, short term, TRepoCommission& out) {
  out.BaseCommType = found.CommType.ToBaseCommType();
  const double days = term != 0 ? static_cast<double>(term) : 1.0;
  switch (found.CommType.value) {
    case rctRepoFixed:
      out.Rate = found.Rate * days;
      out.Amount = 0.0;
      return true;
    case rctRepoTrade:
      out.Rate = 0.0;
      out.Amount = found.Amount;
      return true;
    case rctRepoTradeMax:
    case rctRepoTradeSum:
      out.Rate = found.Rate * days;
      out.Amount = found.Amount;
      return true;
    default:
      out.Rate = 0.0;
      out.Amount = 0.0;
      return false;
  }
}

std::string RepoCommRatesToStr(const TRepoCommRates& rates) {
  return std::string(rates.CommType.ToString()) + "," + DoubleToString(rates.Rate) + "," +
         DoubleToString(rates.Amount);
}

}  // namespace DL
