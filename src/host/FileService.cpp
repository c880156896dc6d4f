#include "host/FileService.h"

#include <cstdint>
#include <vector>

#include "api/CLibraryHolds.h"
#include "api/ZDeallibAPI.h"
#include "host/TextResources.h"
#include "host/ModuleIdentity.h"
#include "support/HostEvent.h"
#include "support/HostModule.h"
#include "support/LinuxUtils.h"
#include "support/WinFile.h"

namespace {

constexpr unsigned kUserWithoutRight = 3;  // WhoIsIt kind that may not touch libraries
constexpr int kRefusalCode = 2;            // reply code of a refusal for lack of right
constexpr int kReadFailureCode = 255;      // reply code when the library cannot be read
constexpr const char* kApiModuleName = "ZDealerAPI";

// The user's language; a user who never signed on is taken as Russian from now on.
unsigned UserLanguage(tagDL_work* work, int user) {
  return static_cast<unsigned>(work->mapUserLanguage.try_emplace(user, kLanguageRussian).first->second);
}

// Fields of a GetDLFile or SaveDLFile request: keyed rows, unknown keys skipped.
struct FileRequest {
  std::string firm;     // "FIRM"
  int readOnly = 0;     // "READONLY"
  int cancel = 0;       // "CANCEL"
  std::string data;     // "DATA"
};

enum class EFileVerb { Get, Save };

// Reads the keyed rows while the message still counts fields. Each verb knows
// its own keys; a row with any other key is skipped unread.
FileRequest ReadFileRequest(CAlert& message, EFileVerb verb) {
  FileRequest request;
  while (message.get_fields_count() != 0) {
    CAlert row;
    message >> row;
    std::string key;
    row >> key;
    if (key == "FIRM")
      row >> request.firm;
    else if (verb == EFileVerb::Get && key == "READONLY")
      row >> request.readOnly;
    else if (verb == EFileVerb::Save && key == "CANCEL")
      row >> request.cancel;
    else if (verb == EFileVerb::Save && key == "DATA")
      row >> request.data;
  }
  return request;
}

void WriteRefusal(CAlert& message, const char* verb, tagDL_work* work, int user) {
  message.clear();
  message << std::string(kModuleName) << std::string(verb) << kRefusalCode
          << LoadResourseString(IDS_NO_PERMISSION, UserLanguage(work, user));
}

// True when the process may open the existing file for writing.
bool IsWritable(const std::string& path) {
  Library::WinFile::CFile file(path, GENERIC_WRITE, OPEN_EXISTING, false);
  return file.IsValid();
}

// The library name's settings, loaded from the client's text and saved again:
// the canonical form that goes to disk. 0, or the settings code that failed.
// The firm is finished whatever happened, so the verb leaves no settings loaded.
int NormaliseLibraryText(const std::string& firm, std::string* text) {
  int n = ZDL_LoadSettingsForFirm(firm.c_str(), text->c_str(), 2);
  if (n == 0) {
    char* block = nullptr;
    n = ZDL_SaveSettingsToMemory(firm.c_str(), &block);
    if (n == 0) {
      text->assign(block);  // up to its first zero byte
      void* given = block;
      (void)ZDL_FreeMemory(firm.c_str(), &given);
    }
  }
  if (n != 0) Library::Host::Event(0, "Failed to ordered DlLib in memory[%d]", n);
  (void)ZDL_FinishWorkWithFirm(firm.c_str());
  return n;
}

}  // namespace

int UserInit(CAlert& message, int user, unsigned kind, tagDL_work* work, int port, std::string userName) {
  std::string clientVersion;
  int language = 0;
  message >> clientVersion >> language;
  work->mapUserLanguage[user] = language;

  CAlert modules;
  message >> modules;
  bool apiClient = false;
  std::string moduleName;
  std::string moduleVersion;  // the last row decides
  while (modules.get_fields_count() != 0) {
    CAlert row;
    modules >> row;
    std::string name, version, note;
    row >> name >> version >> note;
    Library::Host::Event(0, "User[%d], module - %s[%s][%s]", user, name.c_str(), version.c_str(), note.c_str());
    if (name == kApiModuleName) apiClient = true;
    moduleName = name;
    moduleVersion = version;
  }

  int accepted = 1;
  int mayWork = 1;
  if (!apiClient) {
    if (g_strVersion != clientVersion || g_strVersion != moduleVersion) {
      accepted = 0;
      Library::Host::Event(0,
                           "%s: Not supported version. Version of the executable: server: %s, client: %s. "
                           "Version of module: server: %s, client: %s",
                           moduleName.c_str(), g_strVersion.c_str(), clientVersion.c_str(),
                           g_strVersion.c_str(), moduleVersion.c_str());
    }
  } else {
    if (kind == 1 || kind == 2) {
      std::vector<std::string> fields = Library::Host::NewAuditRecord();
      fields[0] = userName;
      fields[1] = moduleVersion;
      fields[2] = std::to_string(user);
      fields[3] = Library::Host::ThreadIdText();
      std::string event = "SRV_USER_BO_LOGON";
      audit_DEALLIB_CHANGE(port, user, event, fields);
    } else {
      mayWork = 0;
    }
    NotifyDLUserConnected(user, port, 1);
  }

  message.clear();
  message << accepted << mayWork << user << std::string() << clientVersion << 0;
  return 1;
}

int GetDLList(CAlert& message, int user, tagDL_work* work) {
  message.clear();
  for (const auto& entry : work->mapLibrary) message << entry.first;
  Library::Host::Event(0, "User[%d], call GetDLList for port[%d], library count[%d].", user, work->port,
                       static_cast<int>(work->mapLibrary.size()));
  return 1;
}

int GetDLFile(CAlert& message, int user, unsigned kind, tagDL_work* work, int port, std::string userName) {
  if (kind == kUserWithoutRight) {
    WriteRefusal(message, "GetDLFile", work, user);
    return 0;
  }
  FileRequest request = ReadFileRequest(message, EFileVerb::Get);
  message.clear();

  // An unknown name is added here with an empty path, and is listed from now on.
  const std::string path = work->mapLibrary[request.firm];
  int readOnly = request.readOnly;
  if (!IsWritable(path)) readOnly = 1;

  std::string text;
  if (!CLibraryHolds::Read(path, &text)) {
    message << std::string("GetDLFile") << std::string() << kReadFailureCode
            << LoadResourseString(IDS_CANNOT_OPEN_LIBRARY, UserLanguage(work, user)) + " " + request.firm;
    return 0;
  }

  tagDL_fileState& state = work->mapFileState[path];
  if (readOnly != 0) {
    readOnly = 1;
  } else if (state.busy != 0) {
    // Busy whoever holds it: a holder asking again gets it for reading only.
    readOnly = 1;
  } else {
    Library::Thread::Lock lock(g_Locker);
    CLibraryHolds(*work).Hold(path, user);
    CLibraryHolds::Audit(port, user, "SRV_USER_BO_DEALLIB_OPEN", userName, request.firm, text);
  }

  message << readOnly << request.firm << text;
  Library::Host::Event(0,
                       "User[%d], call GetDLFile for port[%d], library name[%s]readonly[%d]size[%d]user[%d]busy[%d].",
                       user, port, request.firm.c_str(), readOnly, static_cast<int>(text.size()), state.user,
                       state.busy);
  NotifyDLUserConnected(user, port, -1);
  return 1;
}

int SaveDLFile(CAlert& message, int user, unsigned kind, tagDL_work* work, int port, std::string userName) {
  FileRequest request = ReadFileRequest(message, EFileVerb::Save);
  message.clear();
  const std::string path = work->mapLibrary[request.firm];

  if (kind == kUserWithoutRight) {
    Library::Host::Event(0,
                         "Failed to save the file DL-library [%s] UserID[%d] Port[%d]: Sufficient permission to "
                         "perform this operation",
                         path.c_str(), user, port);
    CLibraryHolds(*work).Release(path, user, port);
    WriteRefusal(message, "SaveDLFile", work, user);
    return 0;
  }

  std::string text = request.data;
  int cancel = request.cancel;
  Library::Host::Event(0, "User[%d], call in SaveDLFile for port[%d], library name[%s]cancel[%d]size[%d].", user,
                       port, request.firm.c_str(), cancel, static_cast<int>(text.size()));

  // The library stays open for writing from here to the move, without being
  // truncated: it must exist and be writable, and it is never cut short.
  Library::WinFile::CFile guard(path, GENERIC_WRITE, OPEN_EXISTING, false);
  const int holder = work->mapFileState[path].user;
  if (!guard.IsValid()) {
    cancel = 1;
    Library::Host::Event(0, "Can not open file for write [%s][%d]", path.c_str(), static_cast<int>(GetLastError()));
  } else if (holder != user) {
    // The client's cancel value goes back as it came, though nothing is stored.
    Library::Host::Event(0, "Library use by another user [%s][%d][%d]", path.c_str(), holder, user);
  } else if (cancel == 0) {
    bool stored = false;
    if (NormaliseLibraryText(request.firm, &text) != 0) {
      cancel = 1;
    } else if (CLibraryHolds::Replace(path, text, &guard) != CLibraryHolds::EReplace::Done) {
      cancel = 1;
    } else {
      stored = true;
      CLibraryHolds::Audit(port, user, "SRV_USER_BO_DEALLIB_CHANGE", userName, request.firm, text);
    }
    if (!stored)
      Library::Host::Event(0, "Failed to save the new file DL-library [%s][%d][%d][%d]", path.c_str(), user,
                           guard.IsValid() ? 1 : 0, static_cast<int>(GetLastError()));
  }

  message << cancel << request.firm;
  const tagDL_fileState& state = work->mapFileState[path];
  Library::Host::Event(0,
                       "User[%d], call out SaveDLFile for port[%d], library name[%s]cancel[%d]size[%d]user[%d]busy[%d].",
                       user, port, request.firm.c_str(), cancel, static_cast<int>(text.size()), state.user, state.busy);
  // Ends the hold whoever had it, also after a refusal of another user's save.
  CLibraryHolds(*work).Release(path, user, port);
  return 1;
}
