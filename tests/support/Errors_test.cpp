#include "support/Errors.h"

#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

namespace {

TEST(ErrorsTest, ANewListHasNoError) {
  CErrors errors;
  EXPECT_FALSE(errors.IsErrorOccurred());
  EXPECT_EQ(errors.Message(), "");
}

TEST(ErrorsTest, AddErrorAppendsInOrder) {
  CErrors errors;
  errors.AddError("first");
  errors.AddError("second");
  EXPECT_TRUE(errors.IsErrorOccurred());
  EXPECT_EQ(errors.Message(), "first\nsecond\n");
}

TEST(ErrorsTest, AnEmptyTextIsIgnored) {
  CErrors errors;
  errors.AddError("");
  errors += std::string();
  EXPECT_FALSE(errors.IsErrorOccurred());
  EXPECT_TRUE(errors.Errors().empty());
}

TEST(ErrorsTest, PlusEqualsATextAppends) {
  CErrors errors;
  (errors += std::string("a")) += std::string("b");
  EXPECT_EQ(errors.Message(), "a\nb\n");
}

TEST(ErrorsTest, PlusEqualsAListAppendsItsTexts) {
  CErrors errors, more;
  errors.AddError("a");
  more.AddError("b");
  more.AddError("c");
  errors += more;
  EXPECT_EQ(errors.Message(), "a\nb\nc\n");
  EXPECT_EQ(more.Message(), "b\nc\n");
}

TEST(ErrorsTest, PlusEqualsItselfDoublesTheList) {
  CErrors errors;
  errors.AddError("a");
  errors.AddError("b");
  errors += errors;
  EXPECT_EQ(errors.Message(), "a\nb\na\nb\n");
}

TEST(ErrorsTest, TextsWithLineFeedsAreKeptAsTheyAre) {
  CErrors errors;
  errors.AddError("Not mapped section \"X\".\n");
  EXPECT_EQ(errors.Message(), "Not mapped section \"X\".\n\n");
}

TEST(ErrorsTest, WriteInLogWritesTheMessageToClog) {
  CErrors errors;
  errors.AddError("one");
  errors.AddError("two");
  std::ostringstream captured;
  std::streambuf* saved = std::clog.rdbuf(captured.rdbuf());
  errors.WriteInLog();
  std::clog.rdbuf(saved);
  EXPECT_EQ(captured.str(), "one\ntwo\n");
}

TEST(ErrorsTest, ThrowExceptionIfErrorsOccurredThrowsACopy) {
  CErrors errors;
  errors.AddError("broken table");
  try {
    ThrowExceptionIfErrorsOccurred(errors);
    FAIL() << "no exception";
  } catch (const CErrors& thrown) {
    EXPECT_NE(&thrown, &errors);
    EXPECT_EQ(thrown.Message(), "broken table\n");
  }
  EXPECT_EQ(errors.Message(), "broken table\n");
}

TEST(ErrorsTest, ThrowExceptionIfErrorsOccurredDoesNothingForAnEmptyList) {
  CErrors errors;
  EXPECT_NO_THROW(ThrowExceptionIfErrorsOccurred(errors));
}

}  // namespace
