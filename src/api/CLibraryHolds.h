#pragma once
// The library files of one connection port as both file services see them:
// which path a library name stands for, who holds it, reading it whole,
// replacing it atomically, and the audit records about it. The dispatcher's
// file verbs ("DLOpenFile", "DLUpdateFile", "DLCloseFile") and the host's
// whole-file verbs ("GetDLFile", "SaveDLFile") both go through here, so a
// library is read, held and written back one way only.
//
// Locking: every member but Release expects the caller to hold g_Locker for
// as long as the verb's rules say (the dispatcher's verbs hold it throughout,
// the whole-file verbs only around the change of a hold). Release takes the
// lock itself.
#include <string>

#include "api/DLWork.h"

namespace Library::WinFile {
class CFile;
}

class CLibraryHolds {
 public:
  explicit CLibraryHolds(tagDL_work& work) : m_work(work) {}

  // The file path of a library of the port, or null for a name that is none.
  const std::string* FindPath(const std::string& library) const;

  // The hold of a file; an unknown path gets a free entry.
  tagDL_fileState& State(const std::string& path) { return m_work.mapFileState[path]; }
  // True when another user than `user` holds the file.
  bool HeldByOther(const std::string& path, int user) {
    const tagDL_fileState& state = State(path);
    return state.busy != 0 && state.user != user;
  }
  // `user` holds the file from now on.
  void Hold(const std::string& path, int user) {
    tagDL_fileState& state = State(path);
    state.user = user;
    state.busy = 1;
  }
  // Ends the hold whoever had it and tells the host that the user's file call
  // is over. Does nothing for an empty path. Takes g_Locker.
  void Release(const std::string& path, int user, int port);

  // The whole file as bytes; false when it cannot be opened or read.
  static bool Read(const std::string& path, std::string* text);
  // How a replacement ended.
  enum class EReplace { Done, NotWritten, NotMoved };
  // Writes the text to path plus ".temp" and moves that over the library,
  // which is replaced in one step. A `guard` held open on the library is closed
  // between the two. NotWritten when the temporary file cannot be written
  // (the library is untouched), NotMoved when the move fails (the temporary
  // file stays behind; GetLastError tells why).
  static EReplace Replace(const std::string& path, const std::string& text, Library::WinFile::CFile* guard = nullptr);

  // An audit record about the library (AuditLibraryEvent): field 0 the user's
  // name, 1 the user, 2 the library, 3 the thread, 4 the count when given, 20
  // the text.
  static void Audit(int port, int user, const char* event, const std::string& userName,
                    const std::string& library, const std::string& text, const std::string* count = nullptr);

 private:
  tagDL_work& m_work;
};
