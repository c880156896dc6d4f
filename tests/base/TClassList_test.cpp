#include "base/TClassList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using DL::TClassList;
using Strings = std::vector<std::string>;

TEST(TClassListTest, ItemsAreTrimmedAndEmptyOnesDropped) {
  TClassList list(" TQBR , ,CETS,,", TClassList::KeepRepeats);
  EXPECT_EQ((Strings{"TQBR", "CETS"}), list.Items());
  EXPECT_EQ(2u, list.Size());
}

TEST(TClassListTest, KeepRepeatsKeepsEveryItemInOrder) {
  TClassList list("B,A,B", TClassList::KeepRepeats);
  EXPECT_EQ((Strings{"B", "A", "B"}), list.Items());
  EXPECT_TRUE(list.Contains("B"));
}

TEST(TClassListTest, NoRepeatsKeepsTheFirstOccurrence) {
  TClassList list("B,A,B,C,A", TClassList::NoRepeats);
  EXPECT_EQ((Strings{"B", "A", "C"}), list.Items());
}

TEST(TClassListTest, UpperNoRepeatsFoldsCaseBeforeDroppingRepeats) {
  TClassList list("tqbr,TQBR,<all>", TClassList::UpperNoRepeats);
  EXPECT_EQ((Strings{"TQBR", "<ALL>"}), list.Items());
}

TEST(TClassListTest, ContainsComparesBytes) {
  TClassList list("TQBR", TClassList::KeepRepeats);
  EXPECT_TRUE(list.Contains("TQBR"));
  EXPECT_FALSE(list.Contains("tqbr"));
  EXPECT_FALSE(list.Contains("TQB"));
}

TEST(TClassListTest, EmptyTextGivesEmptyList) {
  TClassList list("", TClassList::KeepRepeats);
  EXPECT_TRUE(list.Empty());
  EXPECT_FALSE(list.Contains(""));
  EXPECT_EQ("", list.ToString());
}

TEST(TClassListTest, AssignReplacesAndAppendMissingSkipsHeldItems) {
  TClassList list("A,B", TClassList::KeepRepeats);
  list.Assign("C", TClassList::KeepRepeats);
  EXPECT_EQ((Strings{"C"}), list.Items());
  EXPECT_FALSE(list.Contains("A"));
  list.AppendMissing(TClassList("A,C,D", TClassList::KeepRepeats));
  EXPECT_EQ("C,A,D", list.ToString());
}

}  // namespace
