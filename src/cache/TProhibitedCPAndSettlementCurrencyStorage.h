#pragma once
// "ProhibitedCPAndSettlementCurrency": deals with a counterparty in a
// settlement currency on a class are prohibited for the listed value items.
// A line reads
//   CP_<counterparty>_SettlementCurrency_<currency>_ClassList_<classes>=<items>
// and "<ALL>" may stand in any dimension.
#include <array>
#include <set>
#include <string>
#include <tuple>

#include "cache/IRepoSettingStorage.h"

namespace DL {

using TProhibitedCPRow = std::tuple<std::string,            // counterparty
                                    std::string,            // settlement currency
                                    std::set<std::string>,  // classes
                                    std::set<std::string>>; // value items
using TProhibitedCPIndex = std::set<std::array<long, 4>>;

class TProhibitedCPAndSettlementCurrencyStorage
    : public IRepoSettingStorage<TProhibitedCPRow, TProhibitedCPIndex> {
 public:
  // The template parameter that opens a line of this storage.
  static constexpr const char* kParam = "ProhibitedCPAndSettlementCurrency_";

  bool ParseSettingString(const std::string& key, const std::string& value) override;
  void RebuildSettingsIndex() override;

  // True if the combination is prohibited; an empty storage or an empty
  // string answers false.
  bool CheckRestriction(const std::string& cp, const std::string& currency, const std::string& classCode,
                        const std::string& item) const;

  // Every row as a template line ("Soft_" first with soft), in row order.
  void MakeSettingsString(std::string& out, bool soft) const;
  // Every row as a line of the global section (the key without the parameter).
  void MakeSectionString(std::string& out) const;

 private:
  void Make(std::string& out, const std::string& prefix) const;
  std::array<TRepoSettingDimension, 4> m_dims;
};

}  // namespace DL
