#include "commission/TCommScale.h"

#include <cstdio>

namespace DL {

namespace {

void SetIfPositive(double& field, double value) {
  if (value > 0.0) field = value * 100.0;
}

void AppendNumberLine(std::string& out, const char* key, double hundredths) {
  out += key;
  out += '=';
  out += ScaleNumberToString(hundredths / 100.0);
  out += '\n';
}

}  // namespace

std::string ScaleNumberToString(double value) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.10f", value);
  return buf;
}

void TCommScale::SetMinMaxTurnover(const TScaleCommExParams& limits) {
  SetIfPositive(minValue, limits.minValue);
  SetIfPositive(maxValue, limits.maxValue);
  SetIfPositive(minVolume, limits.minVolume);
}

void TCommScale::SetScaleRates(const std::vector<TScaleRow>& rows) {
  rates.clear();
  for (const TScaleRow& row : rows) SetScaleRate(row.turnover * 100.0, row.rate);
}

void TCommScale::MakeSettingsString(std::string& out) const {
  if (minValue > 0.0) AppendNumberLine(out, "MinValue", minValue);
  if (maxValue > 0.0) AppendNumberLine(out, "MaxValue", maxValue);
  if (minVolume > 0.0) AppendNumberLine(out, "MinVolume", minVolume);
  if (tradeCommission > 0.0) AppendNumberLine(out, "TradeCommission", tradeCommission);
  if (considerRepoTerm) out += "ConsiderRepoTerm=1\n";
  for (const TScaleRate& row : rates) {
    out += ScaleNumberToString(row.turnover / 100.0);
    out += '=';
    out += ScaleNumberToString(row.rate);
    out += '\n';
  }
}

bool TCommScale::IsEmpty() const {
  return minValue == 0.0 && maxValue == 0.0 && minVolume == 0.0 && tradeCommission == 0.0 && !considerRepoTerm &&
         rates.empty();
}

}  // namespace DL
