#pragma once
// "RestrictREPOWithCPBasedOnTerm": the longest repo term allowed with a
// counterparty, by settlement currency, face value currency and class.
//   CP_<cp>_SettlementCurrency_<cur>_FaceValueCurrency_<cur>_ClassList_<classes>=<term>
// "<ALL>" may stand in any dimension.
#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "cache/IRepoSettingStorage.h"

namespace DL {

using TRepoTermRow = std::tuple<std::string,            // counterparty
                                std::string,            // settlement currency
                                std::string,            // face value currency
                                std::set<std::string>,  // classes
                                std::int16_t>;          // term in days
using TRepoTermIndex = std::map<std::array<long, 4>, std::int16_t>;

class TRestrictREPOWithCPBasedOnTermStorage : public IRepoSettingStorage<TRepoTermRow, TRepoTermIndex> {
 public:
  static constexpr const char* kParam = "RestrictREPOWithCPBasedOnTerm_";

  // The value must be a whole number (strtol consuming all of it) that fits
  // 16 bits.
  bool ParseSettingString(const std::string& key, const std::string& value) override;
  void RebuildSettingsIndex() override;

  // True if `term` exceeds a stored term of an applicable combination; the
  // first such stored term is written to *found (when not null).
  bool CheckRestriction(const std::string& cp, const std::string& currency, const std::string& faceCurrency,
                        const std::string& classCode, int term, int* found) const;

  void MakeSettingsString(std::string& out, bool soft) const;
  void MakeSectionString(std::string& out) const;

 private:
  void Make(std::string& out, const std::string& prefix) const;
  std::array<TRepoSettingDimension, 4> m_dims;
};

}  // namespace DL
