#pragma once
// "RestrictMaxValueForSettlementCurrency": the largest order value allowed in
// a settlement currency, by class and side.
//   SettlementCurrency_<cur>_ClassList_<classes>_Side_<side>=<maximum>
// The side is "" (both), "B" or "S". "<ALL>" may stand for the classes, not
// for the currency.
#include <array>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "cache/IRepoSettingStorage.h"
#include "base/TradingTypes.h"

namespace DL {

using TMaxValueRow = std::tuple<std::string,            // settlement currency
                                std::set<std::string>,  // classes
                                ESide,                  // side
                                double>;                // maximum
using TMaxValueIndex = std::map<std::tuple<long, long, ESide>, double>;

class TRestrictMaxValueForSettlementCurrencyStorage : public IRepoSettingStorage<TMaxValueRow, TMaxValueIndex> {
 public:
  static constexpr const char* kParam = "RestrictMaxValueForSettlementCurrency_";

  // A negative maximum or an unknown side drops the line.
  bool ParseSettingString(const std::string& key, const std::string& value) override;
  void RebuildSettingsIndex() override;

  // True if `value` exceeds the maximum of an applicable combination (the
  // given side, then both sides); that maximum is written to *limit. A
  // negative value or a null limit answers false.
  bool CheckRestriction(const std::string& currency, const std::string& classCode, ESide side, double value,
                        double* limit) const;

  // Rows whose maximum is not above zero are not written.
  void MakeSettingsString(std::string& out, bool soft) const;
  void MakeSectionString(std::string& out) const;

 private:
  void Make(std::string& out, const std::string& prefix) const;
  std::array<TRepoSettingDimension, 2> m_dims;
};

}  // namespace DL
