#include "commission/TCacheOfCommScalesBoards.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace DL {
namespace {

class CommScalesBoardsTest : public ::testing::Test {
 protected:
  void Load(const std::string& text) {
    parser = std::make_unique<TIniParser>();
    ASSERT_EQ(parser->Init(text.c_str(), TIniParser::SourceText, ';', 1), 1);
    cache = std::make_unique<TCacheOfCommScalesBoards>(*parser);
  }
  std::unique_ptr<TIniParser> parser;
  std::unique_ptr<TCacheOfCommScalesBoards> cache;
};

TEST_F(CommScalesBoardsTest, APlansGroupGivesItsBoardsLessTheProhibitedOnes) {
  Load("[CommissionScaleBoards_P1]\nG1=TQBR, tqob,TQBR,TQCB\nPROHIBITED_BOARDS=TQOB\n");
  const TScaleBoards& b = cache->GetIniSetting("p1", "g1");
  EXPECT_TRUE(b.fromPlan);
  EXPECT_EQ(b.boards, (std::vector<std::string>{"TQBR", "TQCB"}));
  EXPECT_EQ(&cache->GetIniSetting("P1", "G1"), &b);  // kept
}

TEST_F(CommScalesBoardsTest, AGroupThePlanDoesNotListIsABoardOfItsOwn) {
  Load("[CommissionScaleBoards_P1]\nG1=TQBR\n");
  const TScaleBoards& b = cache->GetIniSetting("P1", "tqob");
  EXPECT_FALSE(b.fromPlan);
  EXPECT_EQ(b.boards, std::vector<std::string>{"TQOB"});
  EXPECT_EQ(cache->GetIniSetting("", "TQBR").boards, std::vector<std::string>{"TQBR"});
  EXPECT_TRUE(cache->GetIniSetting("P2", "").boards.empty());
}

}  // namespace
}  // namespace DL
