#include "commission/ABoardTariff.h"

namespace DL {

void ABoardTariff::ApplyINIRates(TExchCommValue& out, double value) const {
  if (!(0 > INIRates.TS)) out.TS = PercentOf(value, INIRates.TS, Percent);
  if (!(0 > INIRates.Org)) out.Org = PercentOf(value, INIRates.Org, Percent);
  if (!(0 > INIRates.Clearing)) out.Clearing = PercentOf(value, INIRates.Clearing, Percent);
}

}  // namespace DL
