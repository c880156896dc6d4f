// The hub's currency-market commission and the sale-side copies of the board
// tariffs that read the side of a deal.
#include <cctype>
#include <memory>
#include <string>

#include "core/TStorageHub.h"

namespace DL {

const TFirmCurrencyIdentity& TStorageHub::GetCurrencyIdentity() {
  if (!m_currencyIdentity) m_currencyIdentity = std::make_unique<TFirmCurrencyIdentity>(m_general);
  return *m_currencyIdentity;
}

TMoexCurrencyCommission& TStorageHub::GetMoexCurrencyCommission() {
  if (!m_moexCurrencyCommission)
    m_moexCurrencyCommission = std::make_unique<TMoexCurrencyCommission>(&GetCurrencyIdentity());
  return *m_moexCurrencyCommission;
}

const ABoardTariff* TStorageHub::GetSellSideBoardTariff(std::string_view board) {
  const ABoardTariff* own = m_boardTariffs.Get(board);
  const auto* bonds = dynamic_cast<const ABondsTariff*>(own);
  if (bonds == nullptr || bonds->Side == 'S') return own;
  if (const ABoardTariff* copy = m_sellSideTariffs.Find(board)) return copy;
  std::unique_ptr<ABoardTariff> copy = own->Clone();
  dynamic_cast<ABondsTariff&>(*copy).SetSide('S');
  const ABoardTariff* result = copy.get();
  m_sellSideTariffs.Set(board, std::move(copy));
  return result;
}

bool TStorageHub::FindRepoTermOfUpperBoard(std::string_view upperBoard, int& days) {
  if (!m_repoTermsByUpperBoard) {
    m_repoTermsByUpperBoard.emplace();
    for (const auto& [board, term] : m_general.GetRepoTerms()) {
      std::string up(board);
      for (char& c : up) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      m_repoTermsByUpperBoard->emplace(std::move(up), term);
    }
  }
  const auto it = m_repoTermsByUpperBoard->find(upperBoard);
  if (it == m_repoTermsByUpperBoard->end()) return false;
  days = it->second;
  return true;
}

}  // namespace DL
