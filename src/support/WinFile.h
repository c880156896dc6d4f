#pragma once
// Files with Windows-style calls, each a thin wrapper of its POSIX call, and
// Library::WinFile::CFile, the file object of the library. A failing call
// returns its failure value and notes errno in the last error (LinuxUtils.h).
#include <cstdint>
#include <string>

#include "support/LinuxUtils.h"
#include "support/lock.h"

using HANDLE = int;  // a file descriptor
using LONG = std::int32_t;
inline constexpr HANDLE INVALID_HANDLE_VALUE = -1;

// Access values. Only GENERIC_WRITE and FILE_APPEND_DATA open for reading and
// writing; every other value, GENERIC_READ | GENERIC_WRITE included, opens
// read-only. FILE_APPEND_DATA also appends.
enum EFileAccess : DWORD {
  FILE_APPEND_DATA = 4,
  GENERIC_WRITE = 0x40000000u,
  GENERIC_READ = 0x80000000u,
};

// Share values: accepted and ignored.
enum EFileShare : DWORD {
  FILE_SHARE_READ = 1,
  FILE_SHARE_WRITE = 2,
  FILE_SHARE_DELETE = 4,
};

// Creation values, with the open flags they add to the access:
enum EFileCreation : DWORD {
  CREATE_NEW = 1,         // create, exclusive: fails on an existing file
  CREATE_ALWAYS = 2,      // create, truncate
  OPEN_EXISTING = 3,      // nothing: fails on a missing file
  OPEN_ALWAYS = 4,        // create
  TRUNCATE_EXISTING = 5,  // truncate
};                        // any other value: read-only, the access is dropped

// Origins of SetFilePointer.
enum EFileMoveMethod : DWORD {
  FILE_BEGIN = 0,
  FILE_CURRENT = 1,
  FILE_END = 2,
};

// Flags of MoveFileEx. MOVEFILE_REPLACE_EXISTING chooses rename over the
// target; MOVEFILE_WRITE_THROUGH makes the move durable (see MoveFileEx).
enum EMoveFileFlags : DWORD {
  MOVEFILE_REPLACE_EXISTING = 1,
  MOVEFILE_WRITE_THROUGH = 8,
};

// Failure results of SetFilePointer and GetFileSize.
inline constexpr DWORD INVALID_SET_FILE_POINTER = 0xFFFFFFFFu;
inline constexpr DWORD INVALID_FILE_SIZE = 0xFFFFFFFFu;

// open() with mode 0600; access and creation as told by the enums above.
// share, security, flags and templateFile are ignored. INVALID_HANDLE_VALUE
// on failure.
HANDLE CreateFile(const char* path, DWORD access, DWORD share, void* security, DWORD creation,
                  DWORD flags, HANDLE templateFile);
// One read() of at most toRead bytes; *read gets the count, 0 at the end of
// the file. overlapped is ignored. 1 on success, 0 on failure.
BOOL ReadFile(HANDLE file, void* buffer, DWORD toRead, DWORD* read, void* overlapped);
// One write() of at most toWrite bytes; *written gets the count. 1 or 0.
BOOL WriteFile(HANDLE file, const void* buffer, DWORD toWrite, DWORD* written, void* overlapped);
// lseek(). Without distanceHigh the distance is a signed 32-bit offset; with
// it the two make one 64-bit offset and *distanceHigh gets the high half of
// the new position. Returns the low half of the new position, or
// INVALID_SET_FILE_POINTER on failure.
DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD moveMethod);
// fstat() size: the low half, the high half into *sizeHigh when given.
// INVALID_FILE_SIZE on failure.
DWORD GetFileSize(HANDLE file, DWORD* sizeHigh);
// close(). 1 or 0.
BOOL CloseHandle(HANDLE file);
// unlink(). 1 or 0.
BOOL DeleteFile(const char* path);
// Cuts the file at its current position (ftruncate). 1 or 0.
BOOL SetEndOfFile(HANDLE file);
// With MOVEFILE_REPLACE_EXISTING rename(), which replaces the target;
// otherwise renameat2() with RENAME_NOREPLACE, which fails on an existing
// target. With MOVEFILE_WRITE_THROUGH the source is flushed to the disk
// before the move (a failed flush fails the call and moves nothing) and the
// target's folder after it (a failure there fails the call, though the move
// is done). 1 or 0.
BOOL MoveFileEx(const char* from, const char* to, DWORD flags);

namespace Library::WinFile {

// A file of the library. Every operation takes the object's own mutex, so one
// CFile may be shared by threads. Results are 1 for success and 0 for failure
// unless told otherwise.
class CFile {
 public:
  // CreateFile(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
  // null, creation, 0, 0); with seekEnd the position moves to the end.
  CFile(const std::string& path, DWORD access, DWORD creation, bool seekEnd);
  virtual ~CFile();
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  bool IsValid() const;
  // Size in bytes; -1 for a closed file or a failure.
  std::int64_t Size() const;
  void Close();
  BOOL SeekBegin();
  BOOL SeekEnd();
  // Moves by offset from the origin (FILE_BEGIN, FILE_CURRENT, FILE_END).
  BOOL Seek(std::int64_t offset, DWORD moveMethod);
  // Empties the file: back to the start and cut there.
  BOOL Clear();
  // Closes the file and removes it by its name.
  BOOL Delete();
  // Reads exactly n bytes, looping over short reads. 0 on an error, a closed
  // file, or an end of file before n bytes. n of 0 gives 1.
  BOOL Read(void* to, unsigned n);
  // Writes all n bytes, looping over short writes. 0 if the file is closed or
  // a write fails.
  BOOL Write(const void* from, unsigned n);

  const std::string& Name() const { return m_name; }

 private:
  mutable Library::Thread::Mutex m_mutex;
  HANDLE m_handle = INVALID_HANDLE_VALUE;  // -1 while closed
  std::string m_name;                      // the path given at construction
};

}  // namespace Library::WinFile
