#include "api/ExecDealerAPI.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <sstream>

#include "api/FileVerbRecords.h"
#include "api/ZDeallibAPI.h"
#include "support/Alert.h"
#include "support/HostEvent.h"
#include "support/HostModule.h"
#include "support/LinuxUtils.h"
#include "support/WinFile.h"

CExecDealerAPI g_ExecDealerAPI;

namespace {

// The moves of MoveFileEx the library is replaced with: rename over the target.
constexpr DWORD kReplaceLibrary = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;

int SettingsResult(int n) { return n == 0 ? ZDA_OK : n + ZDA_SETTINGS_BASE; }

// Reads a whole file as bytes; false when it cannot be opened.
bool ReadLibrary(const std::string& path, std::string* text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  try {
    text->assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  } catch (const std::ios_base::failure&) {
    // A folder opens as a stream here and fails at its first read: no library.
    return false;
  }
  return true;
}

// The library's file path on the port, or null when the name is no library of it.
const std::string* FindLibraryPath(const tagDL_work* work, const std::string& name) {
  auto library = work->mapLibrary.find(name);
  return library == work->mapLibrary.end() ? nullptr : &library->second;
}

}  // namespace

CExecDealerAPI::CExecDealerAPI() { RegisterCommands(); }

CExecDealerAPI::~CExecDealerAPI() = default;

int CExecDealerAPI::ExecuteDealerAPI(std::string& command, std::vector<unsigned char>& data, tagDL_work* work,
                                     int user, int kind, std::string userName, int port) {
  if (command == "DLGetClassList") return ZA_DLGetClassList(data, work, user, kind, userName, port);
  if (command == "DLGetFirmList") return ZA_DLGetFirmList(data, work, user, kind, userName);
  if (command == "DLOpenFile") return ZA_DLOpenFile(data, work, user, kind, userName, port);
  if (command == "DLUpdateFile") return ZA_DLUpdateFile(data, work, user, kind, userName, port);
  if (command == "DLCloseFile") return ZA_DLCloseFile(data, work, user, kind, userName);

  // The firm the caller holds; a caller who holds nothing is a reader.
  bool readOnly = true;
  std::string firm;
  {
    Library::Thread::Lock lock(g_Locker);
    for (const auto& [path, state] : work->mapFileState) {
      if (state.user != user || state.busy != 1) continue;
      readOnly = false;
      // The last name wins: a library with a ".soft" twin is held as the ".soft" name.
      for (const auto& [name, libraryPath] : work->mapLibrary)
        if (libraryPath == path) firm = name;
      break;
    }
  }

  auto handler = m_mapFunctions.find(command);
  if (handler == m_mapFunctions.end()) return ZDA_UNKNOWN_COMMAND;
  Library::Host::Event(10, "executeZDealerAPI %s", command.c_str());
  // Move commands pass here on purpose: their handlers' firm check answers 11.
  const std::string verb = command.substr(0, 3);
  if (readOnly && (verb == "Add" || verb == "Rem" || verb == "Set")) return ZDA_READ_ONLY;
  int result = (this->*handler->second)(data, firm);
  Library::Host::Event(10, "resultZDealerAPI %d", result);
  return result;
}

int CExecDealerAPI::ZA_DLGetClassList(std::vector<unsigned char>& data, tagDL_work* /*work*/, int user,
                                      int /*kind*/, std::string userName, int port) {
  // The block is a ready message addressed to the host's table service.
  CAlert message(data.data(), static_cast<unsigned>(data.size()));
  int hostResult = 0;
  if (!Library::Host::ExecuteInDbModule("GetTable", message, user, port, userName, &hostResult))
    return ZDA_UNKNOWN_COMMAND;
  message.set_begin();
  std::string name;
  int a = 0, b = 0, c = 0;
  CAlert rows;
  message >> name >> a >> b >> c >> rows;
  m_lsClasses.clear();
  while (rows.get_fields_count() != 0) {
    CAlert row;
    rows >> row;
    int id = 0;
    std::string classCode;
    row >> id >> classCode;
    m_lsClasses.push_back(classCode);
  }
  return ZDA_OK;  // the client gets its own block back
}

int CExecDealerAPI::ZA_DLGetFirmList(std::vector<unsigned char>& data, tagDL_work* work, int /*user*/,
                                     int /*kind*/, std::string /*userName*/) {
  TDL_DLGetFirmList record;
  LoadDataForZDeallibAPI(record, data);
  for (const auto& entry : work->mapLibrary) record.lsFirmList.push_back(entry.first);
  StoreDataForZDealerAPI(record, data);
  return ZDA_OK;
}

int CExecDealerAPI::ZA_DLOpenFile(std::vector<unsigned char>& data, tagDL_work* work, int user, int /*kind*/,
                                  std::string userName, int port) {
  TDL_DLOpenFile record;
  LoadDataForZDeallibAPI(record, data);
  Library::Thread::Lock lock(g_Locker);
  const std::string* found = FindLibraryPath(work, record.firmCode);
  if (found == nullptr) return ZDA_UNKNOWN_FIRM;
  const std::string path = *found;
  tagDL_fileState& state = work->mapFileState[path];
  if (record.nMode == 0 && state.busy != 0 && state.user != user) return ZDA_BUSY;

  std::string text;
  if (!ReadLibrary(path, &text)) return ZDA_CANNOT_OPEN;
  // Every successful open reloads the firm, also a read-only one.
  const int n = ZDL_LoadSettingsForFirm(record.firmCode.c_str(), text.c_str(), 2);
  if (n == 0) {
    work->mapFileUsers[path].insert(user);
    if (record.nMode == 0) {
      state.user = user;
      state.busy = 1;
      AuditLibraryEvent(port, user, "SRV_USER_BO_DEALLIB_OPEN", userName, record.firmCode, text);
    }
  }
  Library::Host::Event(0, "User[%d], call ZA_DLOpenFile for port[%d], library name[%s]size[%d]user[%d]busy[%d].",
                       user, port, record.firmCode.c_str(), static_cast<int>(text.size()), state.user, state.busy);
  return SettingsResult(n);
}

int CExecDealerAPI::ZA_DLUpdateFile(std::vector<unsigned char>& data, tagDL_work* work, int user, int /*kind*/,
                                    std::string userName, int port) {
  TDL_DLUpdateFile record;
  LoadDataForZDeallibAPI(record, data);
  Library::Thread::Lock lock(g_Locker);
  const std::string* found = FindLibraryPath(work, record.firmCode);
  if (found == nullptr) return ZDA_UNKNOWN_FIRM;
  const std::string path = *found;
  tagDL_fileState& state = work->mapFileState[path];
  if (state.busy == 0 || state.user != user) return ZDA_UPDATE_FAILED;

  std::string text;
  char* block = nullptr;
  const int n = ZDL_SaveSettingsToMemory(record.firmCode.c_str(), &block);
  if (n == 0) {
    text = block;
    void* given = block;
    (void)ZDL_FreeMemory(record.firmCode.c_str(), &given);

    const std::string temporary = path + ".temp";
    {
      std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
      if (out) out.write(text.data(), static_cast<std::streamsize>(text.size()));
      // The stream buffers: only the close tells whether the bytes reached the
      // file (a full disk shows here). A temporary file that is not whole must
      // never be moved over the library.
      if (out.is_open()) out.close();
      if (!out) {
        const int cause = errno;
        Library::Host::Event(0, "User[%d], call ZA_DLUpdateFile for port[%d], error save library [%s][%d].", user,
                             port, record.firmCode.c_str(), cause);
        return ZDA_UPDATE_FAILED;
      }
    }
    if (!MoveFileEx(temporary.c_str(), path.c_str(), kReplaceLibrary)) {
      Library::Host::Event(0, "User[%d], call ZA_DLUpdateFile for port[%d], error save library [%s][%d].", user,
                           port, record.firmCode.c_str(), static_cast<int>(GetLastError()));
      return ZDA_UPDATE_FAILED;  // the temporary file stays behind
    }
    std::vector<std::string>& lines = m_DEALLIB_PACKET_CHANGE_map[record.firmCode];
    const std::string count = std::to_string(lines.size());
    AuditLibraryEvent(port, user, "SRV_USER_BO_DEALLIB_PACKET_CHANGE", userName, record.firmCode,
                      m_DEALLIB_PACKET_CHANGE_map_To_Str(record.firmCode), &count);
    AuditLibraryEvent(port, user, "SRV_USER_BO_DEALLIB_CHANGE", userName, record.firmCode, text);
    state.user = user;  // the hold goes on
    state.busy = 1;
  }
  Library::Host::Event(0, "User[%d], call ZA_DLUpdateFile for port[%d], library name[%s]size[%d]user[%d]busy[%d].",
                       user, port, record.firmCode.c_str(), static_cast<int>(text.size()), state.user, state.busy);
  return SettingsResult(n);
}

int CExecDealerAPI::ZA_DLCloseFile(std::vector<unsigned char>& data, tagDL_work* work, int user, int /*kind*/,
                                   std::string /*userName*/) {
  TDL_DLCloseFile record;
  LoadDataForZDeallibAPI(record, data);
  Library::Thread::Lock lock(g_Locker);
  const std::string* found = FindLibraryPath(work, record.firmCode);
  if (found == nullptr) return ZDA_UNKNOWN_FIRM;
  const std::string path = *found;
  std::set<int>& users = work->mapFileUsers[path];
  if (users.erase(user) == 0) return ZDA_NOT_OPEN;

  tagDL_fileState& state = work->mapFileState[path];
  int n = 0;
  // Only the holder drops the firm's settings; a last reader leaves them loaded.
  if (state.user == user) {
    n = ZDL_FinishWorkWithFirm(record.firmCode.c_str());
    if (n == 0) {
      state = tagDL_fileState{};
      m_DEALLIB_PACKET_CHANGE_map[record.firmCode].clear();
    }
  }
  Library::Host::Event(0, "User[%d], call ZA_DLCloseFile for port[%d], library name[%s][%d][%d].", user,
                       work->port, record.firmCode.c_str(), state.user, state.busy);
  return SettingsResult(n);
}

std::string CExecDealerAPI::m_DEALLIB_PACKET_CHANGE_map_To_Str(std::string& firm) {
  std::vector<std::string>& lines = m_DEALLIB_PACKET_CHANGE_map[firm];
  std::string text;
  for (const std::string& line : lines) {
    text += line;
    text += "\r\n";
  }
  lines.clear();
  return text;
}

void CExecDealerAPI::AddChangeLine(const std::string& firm, std::string line) {
  Library::Thread::Lock lock(g_Locker);
  m_DEALLIB_PACKET_CHANGE_map[firm].push_back(std::move(line));
}
