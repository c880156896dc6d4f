#include "base/CodeLengths.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace DL;

TEST(CodeLengthTest, ClientCodeOfTwelvePassesThirteenFails) {
  EXPECT_FALSE(IsClientCodeLengthGreaterMaxLength("123456789012"));
  EXPECT_TRUE(IsClientCodeLengthGreaterMaxLength("1234567890123"));
  EXPECT_FALSE(IsClientCodeLengthGreaterMaxLength(std::string("123456789012")));
  EXPECT_TRUE(IsClientCodeLengthGreaterMaxLength(std::string("1234567890123")));
}

TEST(CodeLengthTest, CurrencyOfFourPassesFiveFails) {
  EXPECT_FALSE(IsCurrCodeLengthGreaterMaxLength("USD1"));
  EXPECT_TRUE(IsCurrCodeLengthGreaterMaxLength("USD12"));
  EXPECT_FALSE(IsCurrCodeLengthGreaterMaxLength(std::string("USD1")));
  EXPECT_TRUE(IsCurrCodeLengthGreaterMaxLength(std::string("USD12")));
}

TEST(CodeLengthTest, TagOfFourPassesFiveFails) {
  EXPECT_FALSE(IsTagCodeLengthGreaterMaxLength("EQTV"));
  EXPECT_TRUE(IsTagCodeLengthGreaterMaxLength("EQTVX"));
  EXPECT_TRUE(IsTagCodeLengthGreaterMaxLength(std::string("EQTVX")));
}

TEST(CodeLengthTest, TwelveCharacterKinds) {
  const char* twelve = "ABCDEFGHIJKL";
  const char* thirteen = "ABCDEFGHIJKLM";
  using Pred = bool (*)(const char*);
  const Pred preds[] = {IsClassCodeLengthGreaterMaxLength,   IsFirmCodeLengthGreaterMaxLength,
                        IsPartnerCodeLengthGreaterMaxLength, IsSecCodeLengthGreaterMaxLength,
                        IsSettleCodeLengthGreaterMaxLength,  IsTradeAccountLengthGreaterMaxLength,
                        IsTemplateCodeLengthGreaterMaxLength};
  for (Pred p : preds) {
    EXPECT_FALSE(p(twelve));
    EXPECT_TRUE(p(thirteen));
  }
  using SPred = bool (*)(const std::string&);
  const SPred spreds[] = {IsClassCodeLengthGreaterMaxLength,   IsFirmCodeLengthGreaterMaxLength,
                          IsPartnerCodeLengthGreaterMaxLength, IsSecCodeLengthGreaterMaxLength,
                          IsSettleCodeLengthGreaterMaxLength,  IsTradeAccountLengthGreaterMaxLength,
                          IsTemplateCodeLengthGreaterMaxLength};
  for (SPred p : spreds) {
    EXPECT_FALSE(p(twelve));
    EXPECT_TRUE(p(thirteen));
  }
}

TEST(CodeLengthTest, NullCodeIsNotTooLong) {
  EXPECT_FALSE(IsClientCodeLengthGreaterMaxLength(static_cast<const char*>(nullptr)));
  EXPECT_FALSE(IsRowLengthGreaterMaxLength(static_cast<const char*>(nullptr), size_t{0}));
}

TEST(CodeLengthTest, RowWithGivenLength) {
  EXPECT_FALSE(IsRowLengthGreaterMaxLength("abc", size_t{3}));
  EXPECT_TRUE(IsRowLengthGreaterMaxLength("abcd", size_t{3}));
}

TEST(CodeLengthTest, RowBySettingType) {
  for (EClassSettingType t : {cstCurrency, cstTag}) {
    EXPECT_FALSE(IsRowLengthGreaterMaxLength("ABCD", t));
    EXPECT_TRUE(IsRowLengthGreaterMaxLength("ABCDE", t));
    EXPECT_TRUE(IsRowLengthGreaterMaxLength(std::string_view("ABCDE"), t));
  }
  for (EClassSettingType t :
       {cstClass, cstClient, cstFirm, cstPartner, cstSecurity, cstSettleCode, cstTradeAccount}) {
    EXPECT_FALSE(IsRowLengthGreaterMaxLength("ABCDEFGHIJKL", t));
    EXPECT_TRUE(IsRowLengthGreaterMaxLength("ABCDEFGHIJKLM", t));
    EXPECT_FALSE(IsRowLengthGreaterMaxLength(std::string_view("ABCDEFGHIJKL"), t));
  }
}

TEST(CodeLengthTest, UnknownSettingTypeIsAlwaysTooLong) {
  const auto unknown = static_cast<EClassSettingType>(9);
  EXPECT_TRUE(IsRowLengthGreaterMaxLength("", unknown));
  EXPECT_TRUE(IsRowLengthGreaterMaxLength(std::string_view("A"), unknown));
  EXPECT_EQ(GetCodeSymbCount(unknown), 0u);
}

TEST(CodeLengthTest, SymbolCountAndBufferSize) {
  EXPECT_EQ(GetCodeSymbCount(cstCurrency), 4u);
  EXPECT_EQ(GetCodeStrSize(cstCurrency), 5u);
  EXPECT_EQ(GetCodeSymbCount(cstTag), 4u);
  EXPECT_EQ(GetCodeSymbCount(cstClient), 12u);
  EXPECT_EQ(GetCodeStrSize(cstTradeAccount), 13u);
}

TEST(CodeListTest, OneLongCodeMakesTheListTooLong) {
  const std::vector<std::string> ok = {"A", "ABCD"};
  const std::vector<std::string> bad = {"A", "ABCDE"};
  EXPECT_FALSE(CheckIfCodeInListLengthGreaterMaxLength(ok, 4));
  EXPECT_TRUE(CheckIfCodeInListLengthGreaterMaxLength(bad, 4));
  EXPECT_FALSE(CheckIfCodeInListLengthGreaterMaxLength(std::vector<std::string>{}, 4));
}

// The shape of every ZDL_ string array.
struct FakeArrayStrings {
  uint64_t count;
  char** items;
};

class CheckZDLTypeTest : public ::testing::Test {
 protected:
  char a_[8] = "TQBR";
  char b_[16] = "TQBRTOOLONG1234";
  char empty_[1] = "";
};

TEST_F(CheckZDLTypeTest, NullListIsBadArgument) {
  EXPECT_EQ(CheckZDLType<FakeArrayStrings>(nullptr, ZDL_CLASS_CODE_TOO_LONG, 12), ZDL_BAD_ARGUMENT);
}

TEST_F(CheckZDLTypeTest, EmptyCountIsFineEvenWithoutItems) {
  FakeArrayStrings list{0, nullptr};
  EXPECT_EQ(CheckZDLType(&list, ZDL_CLASS_CODE_TOO_LONG, 12), ZDL_OK);
}

TEST_F(CheckZDLTypeTest, NullItemArrayIsBadArgument) {
  FakeArrayStrings list{1, nullptr};
  EXPECT_EQ(CheckZDLType(&list, ZDL_CLASS_CODE_TOO_LONG, 12), ZDL_BAD_ARGUMENT);
}

TEST_F(CheckZDLTypeTest, NullItemIsBadArgument) {
  char* items[2] = {a_, nullptr};
  FakeArrayStrings list{2, items};
  EXPECT_EQ(CheckZDLType(&list, ZDL_CLASS_CODE_TOO_LONG, 12), ZDL_BAD_ARGUMENT);
}

TEST_F(CheckZDLTypeTest, EmptyItemIsBadArgument) {
  char* items[2] = {a_, empty_};
  FakeArrayStrings list{2, items};
  EXPECT_EQ(CheckZDLType(&list, ZDL_CLASS_CODE_TOO_LONG, 12), ZDL_BAD_ARGUMENT);
}

TEST_F(CheckZDLTypeTest, LongItemGivesTheCallersCode) {
  char* items[2] = {a_, b_};
  FakeArrayStrings list{2, items};
  EXPECT_EQ(CheckZDLType(&list, ZDL_CLASS_CODE_TOO_LONG, 12), ZDL_CLASS_CODE_TOO_LONG);
  EXPECT_EQ(CheckZDLType(&list, ZDL_SEC_CODE_TOO_LONG, 12), ZDL_SEC_CODE_TOO_LONG);
}

TEST_F(CheckZDLTypeTest, GoodListIsFine) {
  char* items[1] = {a_};
  FakeArrayStrings list{1, items};
  EXPECT_EQ(CheckZDLType(&list, ZDL_CLASS_CODE_TOO_LONG, 12), ZDL_OK);
  EXPECT_EQ(CheckZDLType(&list, ZDL_CURR_CODE_TOO_LONG, 4), ZDL_OK);
}

TEST(ResultCodesTest, NumbersAreFixed) {
  EXPECT_EQ(ZDL_OK, 0);
  EXPECT_EQ(ZDL_FAILED, 1);
  EXPECT_EQ(ZDL_FIRM_NOT_LOADED, 2);
  EXPECT_EQ(ZDL_BAD_ARGUMENT, 3);
  EXPECT_EQ(ZDL_NOT_FOUND, 4);
  EXPECT_EQ(ZDL_CLASS_CODE_TOO_LONG, 9);
  EXPECT_EQ(ZDL_CLIENT_CODE_TOO_LONG, 10);
  EXPECT_EQ(ZDL_CURR_CODE_TOO_LONG, 11);
  EXPECT_EQ(ZDL_FUT_CLIENT_PAIR_TOO_LONG, 12);
  EXPECT_EQ(ZDL_SEC_CODE_TOO_LONG, 13);
  EXPECT_EQ(ZDL_TRADE_ACCOUNT_TOO_LONG, 14);
  EXPECT_EQ(ZDL_TEMPLATE_NOT_EXIST, 15);
  EXPECT_EQ(ZDL_ALREADY_EXISTS, 16);
  EXPECT_EQ(ZDL_PARTNER_CODE_TOO_LONG, 17);
  EXPECT_EQ(ZDL_SETTLE_CODE_TOO_LONG, 18);
  EXPECT_EQ(ZDL_WRONG_SCOPE, 19);
  EXPECT_EQ(ZDL_CLIENT_SETTINGS_NOT_EXIST, 20);
  EXPECT_EQ(ZDL_TEMPLATE_CODE_TOO_LONG, 21);
  EXPECT_EQ(ZDL_TAG_TOO_LONG, 22);
  EXPECT_EQ(ZDL_SUBBROKER_NOT_FOUND, 23);
  EXPECT_EQ(ZDL_ROW_TOO_LONG, 24);
  EXPECT_EQ(ZDL_SCALE_HAS_NO_ROWS, 25);
  EXPECT_EQ(ZDL_USER_SETTINGS_NOT_EXIST, 26);
}

TEST(ValidatorTest, GEZero) {
  EXPECT_EQ(CheckGEZero(0), ZDL_OK);
  EXPECT_EQ(CheckGEZero(5), ZDL_OK);
  EXPECT_EQ(CheckGEZero(-1), ZDL_BAD_ARGUMENT);
}

TEST(ValidatorTest, GEMinus1) {
  EXPECT_EQ(CheckGEMinus1(-1), ZDL_OK);
  EXPECT_EQ(CheckGEMinus1(0), ZDL_OK);
  EXPECT_EQ(CheckGEMinus1(-2), ZDL_BAD_ARGUMENT);
}

TEST(ValidatorTest, GTZero) {
  EXPECT_EQ(CheckGTZero(1), ZDL_OK);
  EXPECT_EQ(CheckGTZero(0), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(CheckGTZero(-1), ZDL_BAD_ARGUMENT);
}

TEST(ValidatorTest, IntAsBool) {
  EXPECT_EQ(CheckIntAsBool(0), ZDL_OK);
  EXPECT_EQ(CheckIntAsBool(1), ZDL_OK);
  EXPECT_EQ(CheckIntAsBool(2), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(CheckIntAsBool(-1), ZDL_BAD_ARGUMENT);
}

TEST(ValidatorTest, IntAsBoolAndMinus1) {
  EXPECT_EQ(CheckIntAsBoolAndMinus1(-1), ZDL_OK);
  EXPECT_EQ(CheckIntAsBoolAndMinus1(0), ZDL_OK);
  EXPECT_EQ(CheckIntAsBoolAndMinus1(1), ZDL_OK);
  EXPECT_EQ(CheckIntAsBoolAndMinus1(2), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(CheckIntAsBoolAndMinus1(-2), ZDL_BAD_ARGUMENT);
}

}  // namespace
