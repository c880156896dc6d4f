#include "host/TextResources.h"

#include <gtest/gtest.h>

#include "support/LinuxUtils.h"

namespace {

TEST(TextResourcesTest, EnglishTextsAreSentWordForWord) {
  EXPECT_EQ(LoadResourseString(101, 1033), "Can not open file dealer library for firm");
  EXPECT_EQ(LoadResourseString(102, 1033), "Sufficient permission to perform this operation");
  EXPECT_EQ(LoadResourseString(103, 1033), "Limit calculation library list is not specified");
}

TEST(TextResourcesTest, LanguageZeroMeansEnglish) {
  EXPECT_EQ(LoadResourseString(101, 0), LoadResourseString(101, 1033));
}

TEST(TextResourcesTest, RussianTextsAreHeldInCp1251) {
  EXPECT_FALSE(IsUTF8(LoadResourseString(101, 1049)));
  EXPECT_EQ(IconvConvert(LoadResourseString(101, 1049), true),
            "\xD0\x9D\xD0\xB5 \xD1\x83\xD0\xB4\xD0\xB0\xD0\xB5\xD1\x82\xD1\x81\xD1\x8F "
            "\xD0\xBE\xD1\x82\xD0\xBA\xD1\x80\xD1\x8B\xD1\x82\xD1\x8C \xD1\x84\xD0\xB0\xD0\xB9\xD0\xBB "
            "\xD0\xB4\xD0\xB8\xD0\xBB\xD0\xB5\xD1\x80\xD1\x81\xD0\xBA\xD0\xBE\xD0\xB9 "
            "\xD0\xB1\xD0\xB8\xD0\xB1\xD0\xBB\xD0\xB8\xD0\xBE\xD1\x82\xD0\xB5\xD0\xBA\xD0\xB8 "
            "\xD0\xB4\xD0\xBB\xD1\x8F \xD1\x84\xD0\xB8\xD1\x80\xD0\xBC\xD1\x8B");
  EXPECT_EQ(IconvConvert(LoadResourseString(102, 1049), true),
            "\xD0\x9D\xD0\xB5\xD0\xB4\xD0\xBE\xD1\x81\xD1\x82\xD0\xB0\xD1\x82\xD0\xBE\xD1\x87\xD0\xBD\xD0\xBE "
            "\xD0\xBF\xD1\x80\xD0\xB0\xD0\xB2 \xD0\xB4\xD0\xBB\xD1\x8F "
            "\xD0\xB2\xD1\x8B\xD0\xBF\xD0\xBE\xD0\xBB\xD0\xBD\xD0\xB5\xD0\xBD\xD0\xB8\xD1\x8F "
            "\xD0\xB4\xD0\xB0\xD0\xBD\xD0\xBD\xD0\xBE\xD0\xB9 "
            "\xD0\xBE\xD0\xBF\xD0\xB5\xD1\x80\xD0\xB0\xD1\x86\xD0\xB8\xD0\xB8");
}

TEST(TextResourcesTest, AnUnknownLanguageOrIdGivesAnEmptyText) {
  EXPECT_EQ(LoadResourseString(101, 1031), "");
  EXPECT_EQ(LoadResourseString(104, 1033), "");
}

}  // namespace
