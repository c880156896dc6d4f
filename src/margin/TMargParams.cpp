#include "margin/TMargParams.h"

#include "base/TextHelpers.h"
#include "base/TradingTypes.h"
#include "margin/TRisk.h"

namespace DL::MDPLUS {

std::string TMargParams::ToLog() const {
  struct Row {
    const char* tag;
    double value;
  };
  const Row rows[] = {
      {"minMarg:", minMarg},         {"; minMargNetto:", minMargNetto},
      {"; initMarg:", initMarg},     {"; initMargNetto:", initMargNetto},
      {"; corrMarg:", corrMarg},     {"; portfolio:", portfolio},
      {"; NPR1_corr:", NPR1_corr},   {"; NPR2:", NPR2},
      {"; NPR1_corrNetto:", NPR1_corrNetto}, {"; NPR2Netto:", NPR2Netto},
  };
  std::string s;
  for (const Row& r : rows) {
    s += r.tag;
    s += DoubleToStringWithWidth(r.value, 2, 20);
  }
  s += "; NM_Short:";
  s += BoolWord(NM_Short || corrMarg > ForbiddenLimit);
  return s;
}

}  // namespace DL::MDPLUS
