#pragma once
// A firm's board tariffs: the tariff object of each board code, the entry
// "DEFAULT" for a board the schedule does not know, and the firm's own rates
// per board. Board codes are kept in upper case and looked up ignoring case.
// The object owns its tariffs.
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "commission/ABoardTariff.h"

namespace DL {

class TBoardTariffs {
 public:
  // The key of the tariff of an unknown board.
  static constexpr std::string_view kDefaultBoard = "DEFAULT";

  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const noexcept { return std::hash<std::string_view>()(s); }
  };
  using TTariffMap = std::unordered_map<std::string, std::unique_ptr<ABoardTariff>, THash, std::equal_to<>>;
  // Upper-case board code -> the firm's rate in per cent.
  using TBoardRates = std::unordered_map<std::string, double, THash, std::equal_to<>>;

  // Empties the tariffs and the rates.
  void Clear();

  // Enters the tariff under the upper-case board code, replacing any
  // earlier one. A null tariff is ignored.
  void Set(std::string_view board, std::unique_ptr<ABoardTariff> tariff);
  bool Contains(std::string_view board) const { return Find(board) != nullptr; }
  // The board's own tariff, or null.
  const ABoardTariff* Find(std::string_view board) const;
  // The board's own tariff, else the tariff of "DEFAULT"; null only when
  // neither is there (before a fill).
  const ABoardTariff* Get(std::string_view board) const;
  std::size_t Size() const { return m_tariffs.size(); }
  const TTariffMap& Tariffs() const { return m_tariffs; }

  // The firm's rates by board: trading system, organiser, clearing.
  // SetRate keys by the upper-case code; a later rate of the same code
  // replaces the earlier one.
  enum ERatePart { rpTS = 0, rpOrg = 1, rpClearing = 2 };
  void SetRate(ERatePart part, std::string_view board, double rate);
  const TBoardRates& Rates(ERatePart part) const { return m_rates[part]; }
  // The three rates of a board, kNotSet (-1.0) where the firm gave none.
  TExchCommRate GetIndividualCommRate(std::string_view board) const;

 private:
  TTariffMap m_tariffs;
  TBoardRates m_rates[3];
};

}  // namespace DL
