#include "support/WinFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "support/Buffer.h"

namespace {

// Open flags for an access and a creation value; see the enums in the header.
int OpenFlags(DWORD access, DWORD creation) {
  int flags = (access == GENERIC_WRITE || access == FILE_APPEND_DATA) ? O_RDWR : O_RDONLY;
  if (access == FILE_APPEND_DATA) flags |= O_APPEND;
  switch (creation) {
    case CREATE_NEW: return flags | O_CREAT | O_EXCL;
    case CREATE_ALWAYS: return flags | O_CREAT | O_TRUNC;
    case OPEN_EXISTING: return flags;
    case OPEN_ALWAYS: return flags | O_CREAT;
    case TRUNCATE_EXISTING: return flags | O_TRUNC;
    default: return O_RDONLY;
  }
}

int Whence(DWORD moveMethod) {
  switch (moveMethod) {
    case FILE_BEGIN: return SEEK_SET;
    case FILE_CURRENT: return SEEK_CUR;
    case FILE_END: return SEEK_END;
    default: return -1;
  }
}

}  // namespace

HANDLE CreateFile(const char* path, DWORD access, DWORD /*share*/, void* /*security*/,
                  DWORD creation, DWORD /*flags*/, HANDLE /*templateFile*/) {
  HANDLE file = ::open(path, OpenFlags(access, creation), 0600);
  if (file < 0) {
    SetLastError(errno);
    return INVALID_HANDLE_VALUE;
  }
  return file;
}

BOOL ReadFile(HANDLE file, void* buffer, DWORD toRead, DWORD* read, void* /*overlapped*/) {
  ssize_t n;
  do {
    n = ::read(file, buffer, toRead);
  } while (n < 0 && errno == EINTR);
  if (n < 0) {
    SetLastError(errno);
    if (read != nullptr) *read = 0;
    return 0;
  }
  if (read != nullptr) *read = static_cast<DWORD>(n);
  return 1;
}

BOOL WriteFile(HANDLE file, const void* buffer, DWORD toWrite, DWORD* written,
               void* /*overlapped*/) {
  ssize_t n;
  do {
    n = ::write(file, buffer, toWrite);
  } while (n < 0 && errno == EINTR);
  if (n < 0) {
    SetLastError(errno);
    if (written != nullptr) *written = 0;
    return 0;
  }
  if (written != nullptr) *written = static_cast<DWORD>(n);
  return 1;
}

DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD moveMethod) {
  int whence = Whence(moveMethod);
  if (whence < 0) {
    SetLastError(EINVAL);
    return INVALID_SET_FILE_POINTER;
  }
  off_t offset = distance;
  if (distanceHigh != nullptr)
    offset = static_cast<off_t>((static_cast<std::uint64_t>(static_cast<std::uint32_t>(*distanceHigh)) << 32) |
                                static_cast<std::uint32_t>(distance));
  off_t pos = ::lseek(file, offset, whence);
  if (pos < 0) {
    SetLastError(errno);
    return INVALID_SET_FILE_POINTER;
  }
  if (distanceHigh != nullptr) *distanceHigh = static_cast<LONG>(static_cast<std::uint64_t>(pos) >> 32);
  return static_cast<DWORD>(static_cast<std::uint64_t>(pos) & 0xFFFFFFFFu);
}

DWORD GetFileSize(HANDLE file, DWORD* sizeHigh) {
  struct stat st;
  if (::fstat(file, &st) != 0) {
    SetLastError(errno);
    return INVALID_FILE_SIZE;
  }
  auto size = static_cast<std::uint64_t>(st.st_size);
  if (sizeHigh != nullptr) *sizeHigh = static_cast<DWORD>(size >> 32);
  return static_cast<DWORD>(size & 0xFFFFFFFFu);
}

BOOL CloseHandle(HANDLE file) {
  if (::close(file) != 0) {
    SetLastError(errno);
    return 0;
  }
  return 1;
}

BOOL DeleteFile(const char* path) {
  if (::unlink(path) != 0) {
    SetLastError(errno);
    return 0;
  }
  return 1;
}

BOOL SetEndOfFile(HANDLE file) {
  off_t pos = ::lseek(file, 0, SEEK_CUR);
  if (pos < 0 || ::ftruncate(file, pos) != 0) {
    SetLastError(errno);
    return 0;
  }
  return 1;
}

namespace {

// fsync() of a path opened for reading; the flush reaches the file's data
// whichever descriptor wrote it. O_NONBLOCK keeps a FIFO from hanging the open
// (its fsync then fails with EINVAL, as it should). 0 or an errno value.
int SyncPath(const char* path, int extraFlags) {
  int fd;
  do {
    fd = ::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | extraFlags);
  } while (fd < 0 && errno == EINTR);
  if (fd < 0) return errno;
  int error = ::fsync(fd) == 0 ? 0 : errno;
  ::close(fd);
  return error;
}

// The folder a path lives in: everything before its last '/', or ".".
std::string FolderOf(const char* path) {
  std::string folder(path);
  std::size_t slash = folder.rfind('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  folder.resize(slash);
  return folder;
}

}  // namespace

BOOL MoveFileEx(const char* from, const char* to, DWORD flags) {
  if ((flags & MOVEFILE_WRITE_THROUGH) != 0) {
    // The data goes to the disk before the name does: a crash after the
    // rename then finds the whole new text, never an empty file.
    if (int error = SyncPath(from, 0); error != 0) {
      SetLastError(error);
      return 0;
    }
  }
  int rc = (flags & MOVEFILE_REPLACE_EXISTING) != 0
               ? std::rename(from, to)
               : ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
  if (rc != 0) {
    SetLastError(errno);
    return 0;
  }
  if ((flags & MOVEFILE_WRITE_THROUGH) != 0) {
    // The rename itself lives in the folder; a folder that cannot be flushed
    // (EINVAL: the file system has no such flush) is taken as written.
    if (int error = SyncPath(FolderOf(to).c_str(), O_DIRECTORY); error != 0 && error != EINVAL) {
      SetLastError(error);
      return 0;
    }
  }
  return 1;
}

namespace Library::WinFile {

using Library::Thread::Lock;

CFile::CFile(const std::string& path, DWORD access, DWORD creation, bool seekEnd) : m_name(path) {
  m_handle = CreateFile(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, creation, 0, 0);
  if (seekEnd && m_handle != INVALID_HANDLE_VALUE) ::lseek(m_handle, 0, SEEK_END);
}

CFile::~CFile() { Close(); }

bool CFile::IsValid() const {
  Lock lock(m_mutex);
  return m_handle != INVALID_HANDLE_VALUE;
}

std::int64_t CFile::Size() const {
  Lock lock(m_mutex);
  if (m_handle == INVALID_HANDLE_VALUE) return -1;
  struct stat st;
  if (::fstat(m_handle, &st) != 0) {
    SetLastError(errno);
    return -1;
  }
  return static_cast<std::int64_t>(st.st_size);
}

void CFile::Close() {
  Lock lock(m_mutex);
  if (m_handle == INVALID_HANDLE_VALUE) return;
  CloseHandle(m_handle);
  m_handle = INVALID_HANDLE_VALUE;
}

BOOL CFile::Seek(std::int64_t offset, DWORD moveMethod) {
  Lock lock(m_mutex);
  if (m_handle == INVALID_HANDLE_VALUE) return 0;
  int whence = Whence(moveMethod);
  if (whence < 0) {
    SetLastError(EINVAL);
    return 0;
  }
  if (::lseek(m_handle, static_cast<off_t>(offset), whence) < 0) {
    SetLastError(errno);
    return 0;
  }
  return 1;
}

BOOL CFile::SeekBegin() { return Seek(0, FILE_BEGIN); }
BOOL CFile::SeekEnd() { return Seek(0, FILE_END); }

BOOL CFile::Clear() {
  Lock lock(m_mutex);
  if (m_handle == INVALID_HANDLE_VALUE) return 0;
  if (::lseek(m_handle, 0, SEEK_SET) < 0) {
    SetLastError(errno);
    return 0;
  }
  return SetEndOfFile(m_handle);
}

BOOL CFile::Delete() {
  Lock lock(m_mutex);
  if (m_handle != INVALID_HANDLE_VALUE) {
    CloseHandle(m_handle);
    m_handle = INVALID_HANDLE_VALUE;
  }
  return DeleteFile(m_name.c_str());
}

BOOL CFile::Read(void* to, unsigned n) {
  if (n == 0) return 1;
  Lock lock(m_mutex);
  if (m_handle == INVALID_HANDLE_VALUE) return 0;
  auto* p = static_cast<char*>(to);
  unsigned done = 0;
  while (done < n) {
    DWORD got = 0;
    if (!ReadFile(m_handle, p + done, n - done, &got, nullptr)) return 0;
    if (got == 0) return 0;  // the file ended first
    done += got;
  }
  return 1;
}

BOOL CFile::Write(const void* from, unsigned n) {
  Lock lock(m_mutex);
  if (m_handle == INVALID_HANDLE_VALUE) return 0;
  // The bytes go through a buffer of their own whose read position marks
  // what is out; short writes simply continue from there.
  Library::TBuffer pending(from, n);
  while (pending.size() > 0) {
    DWORD written = 0;
    if (!WriteFile(m_handle, pending.data(), static_cast<DWORD>(pending.size()), &written, nullptr)) return 0;
    if (written == 0) {  // a file that takes nothing would loop for ever
      SetLastError(EIO);
      return 0;
    }
    pending.skip(written);
  }
  return 1;
}

}  // namespace Library::WinFile
