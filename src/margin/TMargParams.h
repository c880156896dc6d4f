#pragma once
// The five figures of a portfolio and their companions, as CalcMargParams
// gives them. All values are in the portfolio's currency.
#include <cstdint>
#include <string>

namespace DL::MDPLUS {

struct TMargParams {
  static constexpr int32_t kVersion = 20250718;

  int32_t Version = kVersion;  // the layout stamp of the record
  double minMarg = 0.0;         // initMarg * the client's minimal-margin rate
  double minMargNetto = 0.0;    // the same with full netting
  double initMarg = 0.0;        // initial margin
  double initMargNetto = 0.0;   // initial margin with full netting
  double corrMarg = 0.0;        // corrected margin (all orders counted); 1e50 when forbidden
  double portfolio = 0.0;       // the portfolio's value
  double NPR1_corr = 0.0;       // portfolio - initMarg
  double NPR2 = 0.0;            // portfolio - minMarg
  double NPR1_corrNetto = 0.0;  // portfolio - initMargNetto
  double NPR2Netto = 0.0;       // portfolio - minMargNetto
  double RestrictLongAsset = 0.0;
  double DecreaseRisk = 0.0;
  bool NM_Short = false;  // a critical non-marginal short was found

  // "minMarg:...; minMargNetto:...; ...; NM_Short:true|false", two decimals.
  std::string ToLog() const;
};

}  // namespace DL::MDPLUS
