#include "api/CLibraryHolds.h"

#include <cstdint>

#include "support/HostModule.h"
#include "support/LinuxUtils.h"
#include "support/WinFile.h"

const std::string* CLibraryHolds::FindPath(const std::string& library) const {
  auto found = m_work.mapLibrary.find(library);
  return found == m_work.mapLibrary.end() ? nullptr : &found->second;
}

void CLibraryHolds::Release(const std::string& path, int user, int port) {
  if (path.empty()) return;
  Library::Thread::Lock lock(g_Locker);
  m_work.mapFileState[path] = tagDL_fileState{};
  NotifyDLUserConnected(user, port, -1);
}

bool CLibraryHolds::Read(const std::string& path, std::string* text) {
  Library::WinFile::CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  const std::int64_t size = file.Size();
  if (!file.IsValid() || size < 0) return false;
  text->assign(static_cast<size_t>(size), '\0');
  return file.Read(text->data(), static_cast<unsigned>(text->size())) != 0;
}

CLibraryHolds::EReplace CLibraryHolds::Replace(const std::string& path, const std::string& text,
                                               Library::WinFile::CFile* guard) {
  const std::string temporary = path + ".temp";
  {
    Library::WinFile::CFile out(temporary, GENERIC_WRITE, CREATE_ALWAYS, false);
    if (!out.IsValid()) return EReplace::NotWritten;
    if (!out.Write(text.data(), static_cast<unsigned>(text.size()))) return EReplace::NotWritten;
    if (guard != nullptr) guard->Close();
  }
  const bool moved =
      MoveFileEx(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  return moved ? EReplace::Done : EReplace::NotMoved;
}

void CLibraryHolds::Audit(int port, int user, const char* event, const std::string& userName,
                          const std::string& library, const std::string& text, const std::string* count) {
  (void)AuditLibraryEvent(port, user, event, userName, library, text, count);
}
