// Repo commission kinds by name and their base kinds.
#include "commission/TREPOCommTypeEnum.h"

#include <gtest/gtest.h>

namespace DL {
namespace {

TEST(TREPOCommTypeEnumTest, NamesGiveTheirNumbers) {
  EXPECT_EQ(StrToEnumREPOCommType("REPOFIXED").value, 0);
  EXPECT_EQ(StrToEnumREPOCommType("REPOTRADE").value, 1);
  EXPECT_EQ(StrToEnumREPOCommType("REPOTRADE_MAX").value, 2);
  EXPECT_EQ(StrToEnumREPOCommType("REPOTRADE_SUM").value, 3);
}

TEST(TREPOCommTypeEnumTest, AnyOtherTextIsNotSet) {
  EXPECT_EQ(StrToEnumREPOCommType("").value, 4);
  EXPECT_EQ(StrToEnumREPOCommType("repofixed").value, 4);
  EXPECT_EQ(StrToEnumREPOCommType("REPOTRADE_MIN").value, 4);
  EXPECT_EQ(TREPOCommTypeEnum().value, 4);
}

TEST(TREPOCommTypeEnumTest, BaseKinds) {
  EXPECT_EQ(TREPOCommTypeEnum(0).ToBaseCommType(), 1);
  EXPECT_EQ(TREPOCommTypeEnum(1).ToBaseCommType(), 3);
  EXPECT_EQ(TREPOCommTypeEnum(2).ToBaseCommType(), 4);
  EXPECT_EQ(TREPOCommTypeEnum(3).ToBaseCommType(), 9);
  EXPECT_EQ(TREPOCommTypeEnum(4).ToBaseCommType(), 0);
  EXPECT_EQ(TREPOCommTypeEnum(5).ToBaseCommType(), 0);
  EXPECT_EQ(TREPOCommTypeEnum(-1).ToBaseCommType(), 0);
}

TEST(TREPOCommTypeEnumTest, SumHasItsOwnBaseKindNotThatOfMax) {
  EXPECT_EQ(StrToEnumREPOCommType("REPOTRADE_SUM").ToBaseCommType(), 9);
  EXPECT_NE(StrToEnumREPOCommType("REPOTRADE_SUM").ToBaseCommType(),
            StrToEnumREPOCommType("REPOTRADE_MAX").ToBaseCommType());
}

TEST(TREPOCommTypeEnumTest, NamesComeBack) {
  EXPECT_STREQ(TREPOCommTypeEnum(2).ToString(), "REPOTRADE_MAX");
  EXPECT_STREQ(TREPOCommTypeEnum(4).ToString(), "");
}

}  // namespace
}  // namespace DL
