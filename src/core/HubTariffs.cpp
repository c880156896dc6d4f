// Board tariffs of the hub: the exchange's schedule (BoardTariffSchedule.def)
// with the firm's rates per board.
#include <cstdlib>
#include <memory>
#include <string>

#include "commission/BondsTariffs.h"
#include "commission/GZBTariffs.h"
#include "commission/RepoTariffs.h"
#include "commission/TDarkPool.h"
#include "commission/TDoubleSidedDealsWithCC.h"
#include "commission/TNormalTariff.h"
#include "commission/TTPlusBondsTariff.h"
#include "commission/TVolumeScaledBondsTariff.h"
#include "base/TextHelpers.h"
#include "core/TStorageHub.h"

namespace DL {

namespace {

// The rates of a board without a tariff of its own: key "COMMISSION" of the
// sections "TS", "ORG" and "CLEARING".
constexpr const char* kCommissionKey = "COMMISSION";
constexpr const char* kDefaultTSSection = "TS";
constexpr const char* kDefaultOrgSection = "ORG";
constexpr const char* kDefaultClearingSection = "CLEARING";
constexpr double kDefaultTSRate = 0.0105;
constexpr double kDefaultOrgRate = 0.0;
constexpr double kDefaultClearingRate = 0.0;

// The firm's rates per board: key a board code, value a rate in per cent.
constexpr const char* kBoardTSRatesSection = "BOARDCOMMISSION";
constexpr const char* kBoardOrgRatesSection = "ORGCOMMISSION";
constexpr const char* kBoardClearingRatesSection = "CLEARINGCOMMISSION";

// What a row of the schedule may ask of a board.
struct TBoardContext {
  TExchCommRate iniRates;      // the firm's rates of the board
  bool minTS = false;          // in "MINTSCOMMCLASSES"
  bool buySellRepo = false;    // in "BUYSELLREPOTSCOMMCLASSES"
  bool reducedRate = false;    // "UseBondPlacementReducedMOEXRate"
};

// Reads one section of rates per board into `part`. A key with an empty
// value gives no rate; any other value reads by strtod.
void FillIndBoardCommRate(const TIniParser& parser, const char* section, TBoardTariffs::ERatePart part,
                          TBoardTariffs& out) {
  const TIniKeyMap* keys = parser.FindIniSectionRef(section);
  if (keys == nullptr) return;
  for (const auto& [board, value] : *keys) {
    if (board.empty() || IsEmptyOrSpace(value)) continue;
    out.SetRate(part, board, std::strtod(value.c_str(), nullptr));
  }
}

}  // namespace

void TStorageHub::FillBoardTariffs() {
  m_boardTariffs.Clear();
  const TIniParser& parser = *m_parser;
  // 1. The rates of the default board.
  const double defaultTS = parser.GetIniParamDouble(kDefaultTSSection, kCommissionKey, kDefaultTSRate);
  const double defaultOrg = parser.GetIniParamDouble(kDefaultOrgSection, kCommissionKey, kDefaultOrgRate);
  const double defaultClearing =
      parser.GetIniParamDouble(kDefaultClearingSection, kCommissionKey, kDefaultClearingRate);
  // 2. The firm's rates per board.
  FillIndBoardCommRate(parser, kBoardTSRatesSection, TBoardTariffs::rpTS, m_boardTariffs);
  FillIndBoardCommRate(parser, kBoardOrgRatesSection, TBoardTariffs::rpOrg, m_boardTariffs);
  FillIndBoardCommRate(parser, kBoardClearingRatesSection, TBoardTariffs::rpClearing, m_boardTariffs);
  // 3. The board that no row names.
  const TExchCommRate notSet(ABoardTariff::kNotSet, ABoardTariff::kNotSet, ABoardTariff::kNotSet);
  m_boardTariffs.Set(TBoardTariffs::kDefaultBoard,
                     std::make_unique<TNormalTariff>(defaultTS, defaultOrg, defaultClearing, notSet, false));
  // 4. The exchange's schedule, row by row; a later row replaces an earlier
  // one for the same board.
  const auto contextOf = [this](const std::string& board) {
    TBoardContext c;
    c.iniRates = m_boardTariffs.GetIndividualCommRate(board);
    c.minTS = m_general.IsBoardInMinTSCommClasses(board);
    c.buySellRepo = m_general.IsBoardInBuySellREPOTSCommClasses(board);
    c.reducedRate = m_general.GetUseBondPlacementReducedMOEXRate();
    return c;
  };
#define ZDL_INI ctx.iniRates
#define ZDL_MIN ctx.minTS
#define ZDL_NOMIN ctx.buySellRepo
#define ZDL_REDUCED ctx.reducedRate
#define ZDL_BOARD_TARIFF(cls, args, boards)                   \
  for (const std::string& board : BoardListToVector(boards, ',')) { \
    const TBoardContext ctx = contextOf(board);               \
    m_boardTariffs.Set(board, std::make_unique<cls> args);    \
  }
#include "commission/BoardTariffSchedule.def"
#undef ZDL_BOARD_TARIFF
#undef ZDL_REDUCED
#undef ZDL_NOMIN
#undef ZDL_MIN
#undef ZDL_INI
  // 5. Boards the firm names that the schedule does not know: those with
  // rates of their own, then those of the minimum commission list, which
  // take the exchange's minimum.
  const auto addNormal = [&](const std::string& board, bool useMin) {
    if (board.empty() || m_boardTariffs.Contains(board)) return;
    m_boardTariffs.Set(board, std::make_unique<TNormalTariff>(defaultTS, defaultOrg, defaultClearing,
                                                              m_boardTariffs.GetIndividualCommRate(board), useMin));
  };
  for (int part = TBoardTariffs::rpTS; part <= TBoardTariffs::rpClearing; ++part) {
    // The rate maps are not changed below, so their keys stay valid.
    for (const auto& [board, rate] : m_boardTariffs.Rates(static_cast<TBoardTariffs::ERatePart>(part)))
      addNormal(board, false);
  }
  for (const std::string& board : m_general.GetMinTSCommClasses().Items()) addNormal(board, true);
}

}  // namespace DL
