#include "support/WinFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "support/TempDir.h"

namespace {

using Library::WinFile::CFile;
using ztest::ReadBytes;
using ztest::WriteBytes;

class WinFileTest : public ::testing::Test {
 protected:
  HANDLE Open(const std::string& path, DWORD access, DWORD creation) {
    return CreateFile(path.c_str(), access, 7, nullptr, creation, 0, 0);
  }
  static bool Write(HANDLE h, const std::string& bytes) {
    DWORD written = 0;
    return WriteFile(h, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 1 &&
           written == bytes.size();
  }
  static std::string Read(HANDLE h, DWORD n) {
    std::string bytes(n, '\0');
    DWORD got = 0;
    if (ReadFile(h, bytes.data(), n, &got, nullptr) != 1) return "<failed>";
    bytes.resize(got);
    return bytes;
  }
  void ExpectFailureNoted(int code) {
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(code));
    EXPECT_EQ(GetDLErrorTextString(), std::strerror(code));
  }

  ztest::TempDir dir;
};

// ---- CreateFile: creation values --------------------------------------------

TEST_F(WinFileTest, CreateNewMakesAMissingFileWithMode0600) {
  std::string path = dir.File("a");
  HANDLE h = Open(path, GENERIC_WRITE, CREATE_NEW);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_EQ(CloseHandle(h), 1);
  struct stat st;
  ASSERT_EQ(::stat(path.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
}

TEST_F(WinFileTest, CreateNewFailsOnAnExistingFile) {
  std::string path = dir.File("a");
  WriteBytes(path, "old");
  SetLastError(0);
  EXPECT_EQ(Open(path, GENERIC_WRITE, CREATE_NEW), INVALID_HANDLE_VALUE);
  ExpectFailureNoted(EEXIST);
  EXPECT_EQ(ReadBytes(path), "old");
}

TEST_F(WinFileTest, CreateAlwaysTruncatesAnExistingFile) {
  std::string path = dir.File("a");
  WriteBytes(path, "old content");
  HANDLE h = Open(path, GENERIC_WRITE, CREATE_ALWAYS);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(Write(h, "new"));
  CloseHandle(h);
  EXPECT_EQ(ReadBytes(path), "new");
}

TEST_F(WinFileTest, CreateAlwaysMakesAMissingFile) {
  std::string path = dir.File("a");
  HANDLE h = Open(path, GENERIC_WRITE, CREATE_ALWAYS);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  CloseHandle(h);
  EXPECT_EQ(::access(path.c_str(), F_OK), 0);
}

TEST_F(WinFileTest, OpenExistingFailsOnAMissingFile) {
  SetLastError(0);
  EXPECT_EQ(Open(dir.File("missing"), GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
  ExpectFailureNoted(ENOENT);
}

TEST_F(WinFileTest, OpenExistingKeepsTheContent) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE h = Open(path, GENERIC_WRITE, OPEN_EXISTING);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Read(h, 10), "abc");
  CloseHandle(h);
}

TEST_F(WinFileTest, OpenAlwaysMakesAMissingFileAndKeepsAnExistingOne) {
  std::string path = dir.File("a");
  HANDLE h = Open(path, GENERIC_WRITE, OPEN_ALWAYS);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(Write(h, "xyz"));
  CloseHandle(h);
  h = Open(path, GENERIC_WRITE, OPEN_ALWAYS);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Read(h, 10), "xyz");
  CloseHandle(h);
}

TEST_F(WinFileTest, TruncateExistingEmptiesAnExistingFile) {
  std::string path = dir.File("a");
  WriteBytes(path, "old");
  HANDLE h = Open(path, GENERIC_WRITE, TRUNCATE_EXISTING);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  CloseHandle(h);
  EXPECT_EQ(ReadBytes(path), "");
}

TEST_F(WinFileTest, TruncateExistingFailsOnAMissingFile) {
  SetLastError(0);
  EXPECT_EQ(Open(dir.File("missing"), GENERIC_WRITE, TRUNCATE_EXISTING), INVALID_HANDLE_VALUE);
  ExpectFailureNoted(ENOENT);
}

TEST_F(WinFileTest, AnUnknownCreationValueOpensReadOnlyAndDropsTheAccess) {
  std::string path = dir.File("a");
  WriteBytes(path, "keep");
  HANDLE h = Open(path, GENERIC_WRITE, 7);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(Write(h, "x"));
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EBADF));
  EXPECT_EQ(Read(h, 10), "keep");
  CloseHandle(h);
}

TEST_F(WinFileTest, AnUnknownCreationValueDoesNotCreate) {
  SetLastError(0);
  EXPECT_EQ(Open(dir.File("missing"), GENERIC_WRITE, 0), INVALID_HANDLE_VALUE);
  ExpectFailureNoted(ENOENT);
}

// ---- CreateFile: access values ----------------------------------------------

TEST_F(WinFileTest, GenericReadOpensReadOnly) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE h = Open(path, GENERIC_READ, OPEN_EXISTING);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(Write(h, "x"));
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EBADF));
  CloseHandle(h);
}

TEST_F(WinFileTest, GenericWriteOpensForReadingAndWriting) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE h = Open(path, GENERIC_WRITE, OPEN_EXISTING);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Read(h, 1), "a");
  EXPECT_TRUE(Write(h, "X"));
  CloseHandle(h);
  EXPECT_EQ(ReadBytes(path), "aXc");
}

TEST_F(WinFileTest, ReadAndWriteTogetherCountAsAnyOtherAccessValue) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE h = Open(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(Write(h, "x"));
  CloseHandle(h);
  EXPECT_EQ(ReadBytes(path), "abc");
}

TEST_F(WinFileTest, AppendAccessReadsAndAlwaysWritesAtTheEnd) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE h = Open(path, FILE_APPEND_DATA, OPEN_EXISTING);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Read(h, 1), "a");
  EXPECT_TRUE(Write(h, "d"));
  EXPECT_EQ(SetFilePointer(h, 0, nullptr, FILE_BEGIN), 0u);
  EXPECT_TRUE(Write(h, "e"));
  CloseHandle(h);
  EXPECT_EQ(ReadBytes(path), "abcde");
}

// ---- ReadFile, WriteFile ----------------------------------------------------

TEST_F(WinFileTest, ReadFileAtTheEndSucceedsWithNothingRead) {
  std::string path = dir.File("a");
  WriteBytes(path, "ab");
  HANDLE h = Open(path, GENERIC_READ, OPEN_EXISTING);
  EXPECT_EQ(Read(h, 2), "ab");
  char c;
  DWORD got = 99;
  EXPECT_EQ(ReadFile(h, &c, 1, &got, nullptr), 1);
  EXPECT_EQ(got, 0u);
  CloseHandle(h);
}

TEST_F(WinFileTest, ReadFileOnABadHandleFails) {
  char c;
  DWORD got = 99;
  SetLastError(0);
  EXPECT_EQ(ReadFile(INVALID_HANDLE_VALUE, &c, 1, &got, nullptr), 0);
  EXPECT_EQ(got, 0u);
  ExpectFailureNoted(EBADF);
}

TEST_F(WinFileTest, WriteFileOnABadHandleFails) {
  DWORD written = 99;
  SetLastError(0);
  EXPECT_EQ(WriteFile(INVALID_HANDLE_VALUE, "x", 1, &written, nullptr), 0);
  EXPECT_EQ(written, 0u);
  ExpectFailureNoted(EBADF);
}

// ---- SetFilePointer, GetFileSize, SetEndOfFile -------------------------------

TEST_F(WinFileTest, SetFilePointerMovesFromEachOrigin) {
  std::string path = dir.File("a");
  WriteBytes(path, "0123456789");
  HANDLE h = Open(path, GENERIC_READ, OPEN_EXISTING);
  EXPECT_EQ(SetFilePointer(h, 4, nullptr, FILE_BEGIN), 4u);
  EXPECT_EQ(SetFilePointer(h, 2, nullptr, FILE_CURRENT), 6u);
  EXPECT_EQ(SetFilePointer(h, -3, nullptr, FILE_END), 7u);
  EXPECT_EQ(Read(h, 1), "7");
  CloseHandle(h);
}

TEST_F(WinFileTest, SetFilePointerJoinsAndReturnsTheHighHalf) {
  std::string path = dir.File("a");
  WriteBytes(path, "");
  HANDLE h = Open(path, GENERIC_WRITE, OPEN_EXISTING);
  LONG high = 1;  // 4 GiB + 16: a sparse position, nothing is written
  EXPECT_EQ(SetFilePointer(h, 16, &high, FILE_BEGIN), 16u);
  EXPECT_EQ(high, 1);
  high = 0;
  EXPECT_EQ(SetFilePointer(h, 0, &high, FILE_CURRENT), 16u);
  EXPECT_EQ(high, 1);
  CloseHandle(h);
}

TEST_F(WinFileTest, SetFilePointerBeforeTheStartFails) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE h = Open(path, GENERIC_READ, OPEN_EXISTING);
  SetLastError(0);
  EXPECT_EQ(SetFilePointer(h, -10, nullptr, FILE_BEGIN), INVALID_SET_FILE_POINTER);
  ExpectFailureNoted(EINVAL);
  CloseHandle(h);
}

TEST_F(WinFileTest, SetFilePointerWithAnUnknownOriginFails) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE h = Open(path, GENERIC_READ, OPEN_EXISTING);
  SetLastError(0);
  EXPECT_EQ(SetFilePointer(h, 0, nullptr, 3), INVALID_SET_FILE_POINTER);
  ExpectFailureNoted(EINVAL);
  CloseHandle(h);
}

TEST_F(WinFileTest, SetFilePointerOnABadHandleFails) {
  SetLastError(0);
  EXPECT_EQ(SetFilePointer(INVALID_HANDLE_VALUE, 0, nullptr, FILE_BEGIN), INVALID_SET_FILE_POINTER);
  ExpectFailureNoted(EBADF);
}

TEST_F(WinFileTest, GetFileSizeGivesBothHalves) {
  std::string path = dir.File("a");
  WriteBytes(path, "12345");
  HANDLE h = Open(path, GENERIC_READ, OPEN_EXISTING);
  DWORD high = 99;
  EXPECT_EQ(GetFileSize(h, &high), 5u);
  EXPECT_EQ(high, 0u);
  EXPECT_EQ(GetFileSize(h, nullptr), 5u);
  CloseHandle(h);
}

TEST_F(WinFileTest, GetFileSizeOnABadHandleFails) {
  SetLastError(0);
  EXPECT_EQ(GetFileSize(INVALID_HANDLE_VALUE, nullptr), INVALID_FILE_SIZE);
  ExpectFailureNoted(EBADF);
}

TEST_F(WinFileTest, SetEndOfFileCutsAtThePosition) {
  std::string path = dir.File("a");
  WriteBytes(path, "0123456789");
  HANDLE h = Open(path, GENERIC_WRITE, OPEN_EXISTING);
  SetFilePointer(h, 4, nullptr, FILE_BEGIN);
  EXPECT_EQ(SetEndOfFile(h), 1);
  CloseHandle(h);
  EXPECT_EQ(ReadBytes(path), "0123");
}

TEST_F(WinFileTest, SetEndOfFileOnAReadOnlyFileFails) {
  std::string path = dir.File("a");
  WriteBytes(path, "0123");
  HANDLE h = Open(path, GENERIC_READ, OPEN_EXISTING);
  SetLastError(0);
  EXPECT_EQ(SetEndOfFile(h), 0);
  EXPECT_NE(GetLastError(), 0u);
  CloseHandle(h);
  EXPECT_EQ(ReadBytes(path), "0123");
}

TEST_F(WinFileTest, SetEndOfFileOnABadHandleFails) {
  SetLastError(0);
  EXPECT_EQ(SetEndOfFile(INVALID_HANDLE_VALUE), 0);
  ExpectFailureNoted(EBADF);
}

// ---- CloseHandle, DeleteFile ---------------------------------------------------

TEST_F(WinFileTest, CloseHandleOnABadHandleFails) {
  SetLastError(0);
  EXPECT_EQ(CloseHandle(INVALID_HANDLE_VALUE), 0);
  ExpectFailureNoted(EBADF);
}

TEST_F(WinFileTest, DeleteFileRemovesTheFile) {
  std::string path = dir.File("a");
  WriteBytes(path, "x");
  EXPECT_EQ(DeleteFile(path.c_str()), 1);
  EXPECT_NE(::access(path.c_str(), F_OK), 0);
}

TEST_F(WinFileTest, DeleteFileOfAMissingFileFails) {
  SetLastError(0);
  EXPECT_EQ(DeleteFile(dir.File("missing").c_str()), 0);
  ExpectFailureNoted(ENOENT);
}

// ---- MoveFileEx ------------------------------------------------------------------

TEST_F(WinFileTest, MoveFileExWithFlags9ReplacesAnExistingTarget) {
  std::string from = dir.File("from"), to = dir.File("to");
  WriteBytes(from, "new");
  WriteBytes(to, "old");
  EXPECT_EQ(MoveFileEx(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH), 1);
  EXPECT_EQ(ReadBytes(to), "new");
  EXPECT_NE(::access(from.c_str(), F_OK), 0);
}

TEST_F(WinFileTest, MoveFileExWithFlags8FailsOnAnExistingTarget) {
  std::string from = dir.File("from"), to = dir.File("to");
  WriteBytes(from, "new");
  WriteBytes(to, "old");
  SetLastError(0);
  EXPECT_EQ(MoveFileEx(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH), 0);
  ExpectFailureNoted(EEXIST);
  EXPECT_EQ(ReadBytes(to), "old");
  EXPECT_EQ(ReadBytes(from), "new");
}

TEST_F(WinFileTest, MoveFileExWithFlags8MovesToAFreeName) {
  std::string from = dir.File("from"), to = dir.File("to");
  WriteBytes(from, "new");
  EXPECT_EQ(MoveFileEx(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH), 1);
  EXPECT_EQ(ReadBytes(to), "new");
  EXPECT_NE(::access(from.c_str(), F_OK), 0);
}

TEST_F(WinFileTest, MoveFileExOfAMissingSourceFails) {
  SetLastError(0);
  EXPECT_EQ(MoveFileEx(dir.File("missing").c_str(), dir.File("to").c_str(), 9), 0);
  ExpectFailureNoted(ENOENT);
  SetLastError(0);
  EXPECT_EQ(MoveFileEx(dir.File("missing").c_str(), dir.File("to").c_str(), 0), 0);
  ExpectFailureNoted(ENOENT);
}

TEST_F(WinFileTest, MoveFileExWriteThroughThatCannotFlushTheSourceMovesNothing) {
  // A FIFO opens but cannot be flushed: the move must fail before the rename.
  std::string from = dir.File("from"), to = dir.File("to");
  ASSERT_EQ(::mkfifo(from.c_str(), 0600), 0);
  WriteBytes(to, "old");
  SetLastError(0);
  EXPECT_EQ(MoveFileEx(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH), 0);
  ExpectFailureNoted(EINVAL);
  EXPECT_EQ(ReadBytes(to), "old");
  EXPECT_EQ(::access(from.c_str(), F_OK), 0);
}

TEST_F(WinFileTest, MoveFileExWithoutWriteThroughMovesAFifoAsAName) {
  std::string from = dir.File("from"), to = dir.File("to");
  ASSERT_EQ(::mkfifo(from.c_str(), 0600), 0);
  WriteBytes(to, "old");
  EXPECT_EQ(MoveFileEx(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING), 1);
  EXPECT_NE(::access(from.c_str(), F_OK), 0);
}

TEST_F(WinFileTest, MoveFileExWriteThroughIntoTheWorkingFolder) {
  // A bare file name: the folder flushed after the move is the working one.
  std::string from = dir.File("from");
  WriteBytes(from, "new");
  char cwd[4096];
  ASSERT_NE(::getcwd(cwd, sizeof cwd), nullptr);
  ASSERT_EQ(::chdir(dir.Path().c_str()), 0);
  BOOL moved = MoveFileEx("from", "to", MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
  ASSERT_EQ(::chdir(cwd), 0);
  EXPECT_EQ(moved, 1);
  EXPECT_EQ(ReadBytes(dir.File("to")), "new");
}

// ---- CFile ------------------------------------------------------------------------

TEST_F(WinFileTest, CFileOnAMissingFileWithOpenExistingIsNotValid) {
  SetLastError(0);
  CFile file(dir.File("missing"), GENERIC_READ, OPEN_EXISTING, false);
  EXPECT_FALSE(file.IsValid());
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOENT));
  EXPECT_EQ(file.Name(), dir.File("missing"));
}

TEST_F(WinFileTest, CFileReadsExactlyTheAskedBytes) {
  std::string path = dir.File("a");
  WriteBytes(path, "abcdef");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  ASSERT_TRUE(file.IsValid());
  EXPECT_EQ(file.Size(), 6);
  char buf[4] = {};
  EXPECT_EQ(file.Read(buf, 4), 1);
  EXPECT_EQ(std::string(buf, 4), "abcd");
}

TEST_F(WinFileTest, CFileReadPastTheEndFails) {
  std::string path = dir.File("a");
  WriteBytes(path, "ab");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  char buf[4];
  EXPECT_EQ(file.Read(buf, 4), 0);
}

TEST_F(WinFileTest, CFileReadOfNothingSucceeds) {
  std::string path = dir.File("a");
  WriteBytes(path, "");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  char buf[1];
  EXPECT_EQ(file.Read(buf, 0), 1);
  CFile missing(dir.File("missing"), GENERIC_READ, OPEN_EXISTING, false);
  EXPECT_EQ(missing.Read(buf, 0), 1);
}

TEST_F(WinFileTest, CFileReadOnAClosedFileFails) {
  std::string path = dir.File("a");
  WriteBytes(path, "ab");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  file.Close();
  EXPECT_FALSE(file.IsValid());
  char buf[1];
  EXPECT_EQ(file.Read(buf, 1), 0);
  EXPECT_EQ(file.Size(), -1);
}

TEST_F(WinFileTest, CFileWithSeekEndStartsAtTheEnd) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  CFile file(path, GENERIC_WRITE, OPEN_EXISTING, true);
  char buf[1];
  EXPECT_EQ(file.Read(buf, 1), 0);  // seekEnd left the position at the end
  EXPECT_EQ(file.SeekBegin(), 1);
  EXPECT_EQ(file.Read(buf, 1), 1);
  EXPECT_EQ(buf[0], 'a');
}

TEST_F(WinFileTest, CFileSeeksFromEachOrigin) {
  std::string path = dir.File("a");
  WriteBytes(path, "0123456789");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  char c;
  EXPECT_EQ(file.Seek(3, FILE_BEGIN), 1);
  EXPECT_EQ(file.Read(&c, 1), 1);
  EXPECT_EQ(c, '3');
  EXPECT_EQ(file.Seek(2, FILE_CURRENT), 1);
  EXPECT_EQ(file.Read(&c, 1), 1);
  EXPECT_EQ(c, '6');
  EXPECT_EQ(file.Seek(-1, FILE_END), 1);
  EXPECT_EQ(file.Read(&c, 1), 1);
  EXPECT_EQ(c, '9');
  EXPECT_EQ(file.SeekEnd(), 1);
  EXPECT_EQ(file.Read(&c, 1), 0);
}

TEST_F(WinFileTest, CFileSeekFailures) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  SetLastError(0);
  EXPECT_EQ(file.Seek(-5, FILE_BEGIN), 0);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EINVAL));
  SetLastError(0);
  EXPECT_EQ(file.Seek(0, 9), 0);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EINVAL));
  file.Close();
  EXPECT_EQ(file.SeekBegin(), 0);
  EXPECT_EQ(file.SeekEnd(), 0);
}

TEST_F(WinFileTest, CFileClearEmptiesTheFile) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  CFile file(path, GENERIC_WRITE, OPEN_EXISTING, true);
  EXPECT_EQ(file.Clear(), 1);
  EXPECT_EQ(file.Size(), 0);
  EXPECT_EQ(ReadBytes(path), "");
}

TEST_F(WinFileTest, CFileClearFailsOnAReadOnlyOrClosedFile) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  EXPECT_EQ(file.Clear(), 0);
  EXPECT_EQ(ReadBytes(path), "abc");
  file.Close();
  EXPECT_EQ(file.Clear(), 0);
}

TEST_F(WinFileTest, CFileDeleteClosesAndRemoves) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  EXPECT_EQ(file.Delete(), 1);
  EXPECT_FALSE(file.IsValid());
  EXPECT_NE(::access(path.c_str(), F_OK), 0);
}

TEST_F(WinFileTest, CFileDeleteOfAGoneFileFails) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  ::unlink(path.c_str());
  SetLastError(0);
  EXPECT_EQ(file.Delete(), 0);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOENT));
}

TEST_F(WinFileTest, CFileWriteWritesAllBytesAtThePosition) {
  std::string path = dir.File("a");
  WriteBytes(path, "0123456789");
  CFile file(path, GENERIC_WRITE, OPEN_EXISTING, false);
  ASSERT_EQ(file.Seek(2, FILE_BEGIN), 1);
  EXPECT_EQ(file.Write("abc", 3), 1);
  file.Close();
  EXPECT_EQ(ReadBytes(path), "01abc56789");
}

TEST_F(WinFileTest, CFileWithSeekEndWritesAfterTheContent) {
  std::string path = dir.File("a");
  WriteBytes(path, "head");
  CFile file(path, GENERIC_WRITE, OPEN_EXISTING, true);
  EXPECT_EQ(file.Write("tail", 4), 1);
  file.Close();
  EXPECT_EQ(ReadBytes(path), "headtail");
}

TEST_F(WinFileTest, CFileWriteOfALargeBlock) {
  std::string path = dir.File("a");
  std::string block(5 * 1024 * 1024 + 7, '\0');
  for (size_t i = 0; i < block.size(); ++i) block[i] = static_cast<char>(i * 131 % 251);
  CFile file(path, GENERIC_WRITE, CREATE_ALWAYS, false);
  EXPECT_EQ(file.Write(block.data(), static_cast<unsigned>(block.size())), 1);
  EXPECT_EQ(file.Size(), static_cast<std::int64_t>(block.size()));
  file.Close();
  EXPECT_EQ(ReadBytes(path), block);
}

TEST_F(WinFileTest, CFileWriteOfNothingSucceedsOnAnOpenFile) {
  std::string path = dir.File("a");
  CFile file(path, GENERIC_WRITE, CREATE_ALWAYS, false);
  EXPECT_EQ(file.Write("", 0), 1);
  EXPECT_EQ(file.Size(), 0);
}

TEST_F(WinFileTest, CFileWriteOnAClosedFileFails) {
  std::string path = dir.File("a");
  CFile file(path, GENERIC_WRITE, CREATE_ALWAYS, false);
  file.Close();
  EXPECT_EQ(file.Write("x", 1), 0);
  EXPECT_EQ(file.Write("", 0), 0);
  CFile missing(dir.File("missing"), GENERIC_WRITE, OPEN_EXISTING, false);
  EXPECT_EQ(missing.Write("x", 1), 0);
}

TEST_F(WinFileTest, CFileWriteOnAReadOnlyFileFails) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  SetLastError(0);
  EXPECT_EQ(file.Write("x", 1), 0);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EBADF));
  EXPECT_EQ(ReadBytes(path), "abc");
}

TEST_F(WinFileTest, CFileWriteToAFullDeviceFails) {
  if (::access("/dev/full", W_OK) != 0) GTEST_SKIP() << "/dev/full is not available";
  CFile file("/dev/full", GENERIC_WRITE, OPEN_EXISTING, false);
  ASSERT_TRUE(file.IsValid());
  SetLastError(0);
  EXPECT_EQ(file.Write("x", 1), 0);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOSPC));
}

TEST_F(WinFileTest, CFileSharedByThreadsKeepsEachWriteWhole) {
  std::string path = dir.File("a");
  CFile file(path, FILE_APPEND_DATA, CREATE_ALWAYS, false);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&file, t] {
      std::string record(1000, static_cast<char>('a' + t));
      record.back() = '\n';
      for (int i = 0; i < 50; ++i) file.Write(record.data(), static_cast<unsigned>(record.size()));
    });
  for (std::thread& t : threads) t.join();
  file.Close();
  std::string text = ReadBytes(path);
  ASSERT_EQ(text.size(), 4u * 50u * 1000u);
  for (size_t at = 0; at < text.size(); at += 1000) {
    char c = text[at];
    EXPECT_EQ(text.substr(at, 999), std::string(999, c));
    EXPECT_EQ(text[at + 999], '\n');
  }
}

TEST_F(WinFileTest, CFileClosesInItsDestructor) {
  std::string path = dir.File("a");
  WriteBytes(path, "abc");
  HANDLE seen;
  {
    CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
    ASSERT_TRUE(file.IsValid());
    seen = CreateFile(path.c_str(), GENERIC_READ, 7, nullptr, OPEN_EXISTING, 0, 0);
    CloseHandle(seen);  // seen is now the lowest free descriptor after the file's own
  }
  HANDLE again = CreateFile(path.c_str(), GENERIC_READ, 7, nullptr, OPEN_EXISTING, 0, 0);
  EXPECT_LT(again, seen);  // the file's descriptor was given back
  CloseHandle(again);
}

}  // namespace
