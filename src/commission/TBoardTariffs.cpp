#include "commission/TBoardTariffs.h"

#include <array>
#include <cctype>

namespace DL {

namespace {

// Board codes are short: the upper-case form of a code of up to this many
// bytes is built on the stack, so a lookup does not allocate.
constexpr std::size_t kShortCode = 32;

// Calls f with the upper-case form of `board`.
template <class F>
auto WithUpper(std::string_view board, F&& f) {
  if (board.size() <= kShortCode) {
    std::array<char, kShortCode> buf;
    for (std::size_t i = 0; i < board.size(); ++i)
      buf[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(board[i])));
    return f(std::string_view(buf.data(), board.size()));
  }
  std::string up(board);
  for (char& c : up) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return f(std::string_view(up));
}

std::string Upper(std::string_view board) {
  return WithUpper(board, [](std::string_view up) { return std::string(up); });
}

}  // namespace

void TBoardTariffs::Clear() {
  m_tariffs.clear();
  for (TBoardRates& rates : m_rates) rates.clear();
}

void TBoardTariffs::Set(std::string_view board, std::unique_ptr<ABoardTariff> tariff) {
  if (!tariff) return;
  m_tariffs.insert_or_assign(Upper(board), std::move(tariff));
}

const ABoardTariff* TBoardTariffs::Find(std::string_view board) const {
  return WithUpper(board, [this](std::string_view up) -> const ABoardTariff* {
    const auto it = m_tariffs.find(up);
    return it == m_tariffs.end() ? nullptr : it->second.get();
  });
}

const ABoardTariff* TBoardTariffs::Get(std::string_view board) const {
  if (const ABoardTariff* own = Find(board)) return own;
  const auto it = m_tariffs.find(kDefaultBoard);
  return it == m_tariffs.end() ? nullptr : it->second.get();
}

void TBoardTariffs::SetRate(ERatePart part, std::string_view board, double rate) {
  m_rates[part].insert_or_assign(Upper(board), rate);
}

TExchCommRate TBoardTariffs::GetIndividualCommRate(std::string_view board) const {
  return WithUpper(board, [this](std::string_view up) {
    double parts[3];
    for (int p = rpTS; p <= rpClearing; ++p) {
      const auto it = m_rates[p].find(up);
      parts[p] = it == m_rates[p].end() ? ABoardTariff::kNotSet : it->second;
    }
    return TExchCommRate(parts[rpTS], parts[rpOrg], parts[rpClearing]);
  });
}

}  // namespace DL
