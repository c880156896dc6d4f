// The library-holds service that the dispatcher's file verbs and the host's
// whole-file verbs share: paths, holds, reading, atomic replacement.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "api/CLibraryHolds.h"
#include "support/TempDir.h"

namespace {

using EReplace = CLibraryHolds::EReplace;

TEST(LibraryHoldsTest, FindsOnlyTheLibrariesOfThePort) {
  tagDL_work work;
  work.mapLibrary["FIRM1"] = "/libs/FIRM1.ini";
  CLibraryHolds holds(work);
  ASSERT_NE(holds.FindPath("FIRM1"), nullptr);
  EXPECT_EQ(*holds.FindPath("FIRM1"), "/libs/FIRM1.ini");
  EXPECT_EQ(holds.FindPath("firm1"), nullptr);
  EXPECT_EQ(holds.FindPath("FIRM2"), nullptr);
  EXPECT_EQ(work.mapLibrary.size(), 1u);
}

TEST(LibraryHoldsTest, HoldAndReleaseSetBothFieldsTogether) {
  tagDL_work work;
  CLibraryHolds holds(work);
  EXPECT_FALSE(holds.HeldByOther("/libs/A.ini", 5));
  holds.Hold("/libs/A.ini", 5);
  EXPECT_EQ(work.mapFileState["/libs/A.ini"].user, 5);
  EXPECT_EQ(work.mapFileState["/libs/A.ini"].busy, 1);
  EXPECT_FALSE(holds.HeldByOther("/libs/A.ini", 5));
  EXPECT_TRUE(holds.HeldByOther("/libs/A.ini", 6));
  holds.Release("/libs/A.ini", 6, 4100);  // whoever had it
  EXPECT_EQ(work.mapFileState["/libs/A.ini"].user, 0);
  EXPECT_EQ(work.mapFileState["/libs/A.ini"].busy, 0);
  holds.Hold("/libs/A.ini", 5);
  holds.Release("", 5, 4100);  // an empty path changes nothing
  EXPECT_EQ(work.mapFileState["/libs/A.ini"].busy, 1);
}

TEST(LibraryHoldsTest, ReadsTheWholeFileAsBytes) {
  ztest::TempDir dir;
  const std::string bytes("[General]\r\nA=1\n\0tail", 20);
  ztest::WriteBytes(dir.File("L.ini"), bytes);
  std::string text;
  ASSERT_TRUE(CLibraryHolds::Read(dir.File("L.ini"), &text));
  EXPECT_EQ(text, bytes);
  ztest::WriteBytes(dir.File("Empty.ini"), "");
  ASSERT_TRUE(CLibraryHolds::Read(dir.File("Empty.ini"), &text));
  EXPECT_EQ(text, "");
  EXPECT_FALSE(CLibraryHolds::Read(dir.File("Missing.ini"), &text));
}

TEST(LibraryHoldsTest, ReplaceWritesATemporaryFileAndMovesItOverTheLibrary) {
  ztest::TempDir dir;
  const std::string path = dir.File("L.ini");
  ztest::WriteBytes(path, "old");
  EXPECT_EQ(CLibraryHolds::Replace(path, "[General]\nUsePGO=1\n"), EReplace::Done);
  EXPECT_EQ(ztest::ReadBytes(path), "[General]\nUsePGO=1\n");
  EXPECT_FALSE(std::filesystem::exists(path + ".temp"));
}

TEST(LibraryHoldsTest, ATemporaryFileThatCannotBeWrittenLeavesTheLibraryAlone) {
  ztest::TempDir dir;
  const std::string path = dir.File("no_such_dir/L.ini");
  EXPECT_EQ(CLibraryHolds::Replace(path, "new"), EReplace::NotWritten);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(LibraryHoldsTest, AFailedMoveLeavesTheTemporaryFileBehind) {
  ztest::TempDir dir;
  // A directory with something in it cannot be replaced by a file.
  const std::string path = dir.File("L.ini");
  std::filesystem::create_directory(path);
  ztest::WriteBytes(path + "/inside", "x");
  EXPECT_EQ(CLibraryHolds::Replace(path, "new"), EReplace::NotMoved);
  EXPECT_EQ(ztest::ReadBytes(path + ".temp"), "new");
  EXPECT_TRUE(std::filesystem::is_directory(path));
}

}  // namespace
