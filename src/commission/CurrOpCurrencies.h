#pragma once
// The two currencies of a currency-market instrument, read from its code.
//
// The code begins with the base currency: "USD000UTSTOM", "EUR_RUB__TOM",
// "CNYRUB_TOM", "EURUSD000TOM", "GLDRUB_TOM". The quote currency follows the
// base, after at most one "_", when it is three letters followed by "_" or a
// digit ("RUB" of "CNYRUB_TOM", "USD" of "EURUSD000TOM"). Any other code is
// quoted in the firm's rubles: "USD000UTSTOM", "USDTOM". The results are
// views into the code (or into mainRubles); nothing is allocated.
#include <string_view>

namespace DL {

// The first three characters when they are letters; false (out empty)
// otherwise.
bool FillBaseCurrencyForCurrOp(std::string_view sec, std::string_view& out);
// The quote currency as above, or mainRubles for a code that names none.
// False (out empty) when the code has no base currency.
bool FillQuoteCurrencyForCurrOp(std::string_view sec, std::string_view mainRubles, std::string_view& out);

}  // namespace DL
