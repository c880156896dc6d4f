#include "host/FileService.h"

#include <vector>

#include "host/TextResources.h"
#include "host/ZENT_DL.h"
#include "support/HostEvent.h"
#include "support/HostModule.h"
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

// Reads the keyed rows while the message still counts fields.
FileRequest ReadFileRequest(CAlert& message) {
  FileRequest request;
  while (message.get_fields_count() != 0) {
    CAlert row;
    message >> row;
    std::string key;
    row >> key;
    if (key == "FIRM")
      row >> request.firm;
    else if (key == "READONLY")
      row >> request.readOnly;
    else if (key == "CANCEL")
      row >> request.cancel;
    else if (key == "DATA")
      row >> request.data;
  }
  return request;
}

void WriteRefusal(CAlert& message, const char* verb, tagDL_work* work, int user) {
  message.clear();
  message << std::string(kModuleName) << std::string(verb) << kRefusalCode
          << LoadResourseString(IDS_NO_PERMISSION, UserLanguage(work, user));
}

// Reads a whole file; false when it cannot be opened or read.
bool ReadWholeFile(const std::string& path, std::string* text) {
  Library::WinFile::CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  if (!file.IsValid()) return false;
  text->assign(static_cast<size_t>(file.Size()), '\0');
  return file.Read(text->data(), static_cast<unsigned>(text->size())) != 0;
}

// True when the process may open the existing file for writing.
bool IsWritable(const std::string& path) {
  Library::WinFile::CFile file(path, GENERIC_WRITE, OPEN_EXISTING, false);
  return file.IsValid();
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
  FileRequest request = ReadFileRequest(message);
  message.clear();

  // An unknown name is added here with an empty path, and is listed from now on.
  const std::string path = work->mapLibrary[request.firm];
  int readOnly = request.readOnly;
  if (!IsWritable(path)) readOnly = 1;

  std::string text;
  if (!ReadWholeFile(path, &text)) {
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
    state.user = user;
    state.busy = 1;
    std::vector<std::string> fields = Library::Host::NewAuditRecord();
    fields[0] = userName;
    fields[1] = std::to_string(user);
    fields[2] = request.firm;
    fields[3] = Library::Host::ThreadIdText();
    fields[20] = text;
    std::string event = "SRV_USER_BO_DEALLIB_OPEN";
    audit_DEALLIB_CHANGE(port, user, event, fields);
  }

  message << readOnly << request.firm << text;
  Library::Host::Event(0,
                       "User[%d], call GetDLFile for port[%d], library name[%s]readonly[%d]size[%d]user[%d]busy[%d].",
                       user, port, request.firm.c_str(), readOnly, static_cast<int>(text.size()), state.user,
                       state.busy);
  NotifyDLUserConnected(user, port, -1);
  return 1;
}
