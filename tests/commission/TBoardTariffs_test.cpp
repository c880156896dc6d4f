// The map of a firm's board tariffs and its rates per board.
#include "commission/TBoardTariffs.h"

#include <gtest/gtest.h>

#include <string>

#include "commission/TNormalTariff.h"
#include "commission/TariffExpect.h"

namespace {

using DL::ABoardTariff;
using DL::TBoardTariffs;
using DL::TExchCommRate;
using DL::TNormalTariff;
using ztest::NotSet;

std::unique_ptr<ABoardTariff> Normal(double ts) { return std::make_unique<TNormalTariff>(ts, 0.0, 0.0, NotSet(), false); }

double TSRate(const ABoardTariff* t) { return dynamic_cast<const TNormalTariff&>(*t).Rates.TS; }

TEST(TBoardTariffsTest, BoardsAreKeptInUpperCaseAndFoundIgnoringCase) {
  TBoardTariffs m;
  m.Set("tqbr", Normal(0.1));
  ASSERT_EQ(m.Size(), 1u);
  EXPECT_EQ(m.Tariffs().begin()->first, "TQBR");
  ASSERT_NE(m.Find("TQBR"), nullptr);
  EXPECT_EQ(m.Find("TqBr"), m.Find("tqbr"));
  EXPECT_TRUE(m.Contains("tQBR"));
}

TEST(TBoardTariffsTest, ALaterTariffReplacesTheEarlier) {
  TBoardTariffs m;
  m.Set("PYGC", Normal(0.1));
  m.Set("pygc", Normal(0.2));
  EXPECT_EQ(m.Size(), 1u);
  EXPECT_DOUBLE_EQ(TSRate(m.Find("PYGC")), 0.2);
}

TEST(TBoardTariffsTest, AnUnknownBoardGetsTheDefaultTariff) {
  TBoardTariffs m;
  m.Set("TQBR", Normal(0.1));
  EXPECT_EQ(m.Get("XXXX"), nullptr);  // no "DEFAULT" yet
  m.Set(TBoardTariffs::kDefaultBoard, Normal(0.0105));
  EXPECT_EQ(m.Find("XXXX"), nullptr);
  ASSERT_NE(m.Get("XXXX"), nullptr);
  EXPECT_DOUBLE_EQ(TSRate(m.Get("XXXX")), 0.0105);
  EXPECT_DOUBLE_EQ(TSRate(m.Get("tqbr")), 0.1);
}

TEST(TBoardTariffsTest, ANullTariffIsIgnored) {
  TBoardTariffs m;
  m.Set("TQBR", Normal(0.1));
  m.Set("TQBR", nullptr);
  ASSERT_NE(m.Find("TQBR"), nullptr);
  EXPECT_DOUBLE_EQ(TSRate(m.Find("TQBR")), 0.1);
}

TEST(TBoardTariffsTest, ALongBoardCodeIsFoundToo) {
  TBoardTariffs m;
  const std::string code(40, 'a');
  m.Set(code, Normal(0.3));
  EXPECT_NE(m.Find(std::string(40, 'A')), nullptr);
  EXPECT_EQ(m.Find(std::string(39, 'A')), nullptr);
}

TEST(TBoardTariffsTest, IndividualRatesAreMinusOneWhereNotGiven) {
  TBoardTariffs m;
  m.SetRate(TBoardTariffs::rpOrg, "tqbr", 0.02);
  m.SetRate(TBoardTariffs::rpClearing, "TQBR", 0.0);
  const TExchCommRate r = m.GetIndividualCommRate("TqBr");
  EXPECT_DOUBLE_EQ(r.TS, -1.0);
  EXPECT_DOUBLE_EQ(r.Org, 0.02);
  EXPECT_DOUBLE_EQ(r.Clearing, 0.0);
  const TExchCommRate none = m.GetIndividualCommRate("EQBR");
  EXPECT_DOUBLE_EQ(none.TS, -1.0);
  EXPECT_DOUBLE_EQ(none.Org, -1.0);
  EXPECT_DOUBLE_EQ(none.Clearing, -1.0);
  EXPECT_EQ(m.Rates(TBoardTariffs::rpOrg).count("TQBR"), 1u);
}

TEST(TBoardTariffsTest, ClearEmptiesTariffsAndRates) {
  TBoardTariffs m;
  m.Set("TQBR", Normal(0.1));
  m.SetRate(TBoardTariffs::rpTS, "TQBR", 0.5);
  m.Clear();
  EXPECT_EQ(m.Size(), 0u);
  EXPECT_DOUBLE_EQ(m.GetIndividualCommRate("TQBR").TS, -1.0);
}

}  // namespace
