#include "api/ExecDealerAPI.h"

#include "api/CLibraryHolds.h"
#include "api/FileVerbRecords.h"
#include "api/ZDeallibAPI.h"
#include "support/Alert.h"
#include "support/HostEvent.h"
#include "support/HostModule.h"
#include "support/LinuxUtils.h"
#include "support/WinFile.h"

CExecDealerAPI g_ExecDealerAPI;

namespace {

int SettingsResult(int n) { return n == 0 ? ZDA_OK : n + ZDA_SETTINGS_BASE; }

// The five file verbs, which the dispatcher runs itself before any check.
struct TFileVerb {
  std::string_view name;
  int (*run)(CExecDealerAPI& api, std::vector<unsigned char>& data, tagDL_work* work, int user, int kind,
             const std::string& userName, int port);
};

constexpr TFileVerb kFileVerbs[] = {
    {"DLGetClassList",
     [](CExecDealerAPI& api, std::vector<unsigned char>& data, tagDL_work* work, int user, int kind,
        const std::string& userName, int port) { return api.ZA_DLGetClassList(data, work, user, kind, userName, port); }},
    {"DLGetFirmList",
     [](CExecDealerAPI& api, std::vector<unsigned char>& data, tagDL_work* work, int user, int kind,
        const std::string& userName, int) { return api.ZA_DLGetFirmList(data, work, user, kind, userName); }},
    {"DLOpenFile",
     [](CExecDealerAPI& api, std::vector<unsigned char>& data, tagDL_work* work, int user, int kind,
        const std::string& userName, int port) { return api.ZA_DLOpenFile(data, work, user, kind, userName, port); }},
    {"DLUpdateFile",
     [](CExecDealerAPI& api, std::vector<unsigned char>& data, tagDL_work* work, int user, int kind,
        const std::string& userName, int port) { return api.ZA_DLUpdateFile(data, work, user, kind, userName, port); }},
    {"DLCloseFile",
     [](CExecDealerAPI& api, std::vector<unsigned char>& data, tagDL_work* work, int user, int kind,
        const std::string& userName, int) { return api.ZA_DLCloseFile(data, work, user, kind, userName); }},
};

// The "firmCode" of a request block, the field every command's record begins
// with; empty when the block has none.
ZDL_DECLARE_RECORD(TDL_RecordFirm, (std::string, firmCode));

std::string RecordFirm(std::vector<unsigned char>& data) {
  TDL_RecordFirm record;
  LoadDataForZDeallibAPI(record, data);
  return record.firmCode;
}

}  // namespace

CExecDealerAPI::CExecDealerAPI(TFindCommand findCommand) : m_findCommand(findCommand) {}

CExecDealerAPI::~CExecDealerAPI() = default;

int CExecDealerAPI::ExecuteDealerAPI(std::string& command, std::vector<unsigned char>& data, tagDL_work* work,
                                     int user, int kind, std::string userName, int port) {
  for (const TFileVerb& verb : kFileVerbs)
    if (command == verb.name) return verb.run(*this, data, work, user, kind, userName, port);

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

  // A row without a handler is a command whose settings operation is not
  // written yet: unknown to a client, like a name that is not in the table.
  const DL::TCommandRow* row = m_findCommand(command);
  if (row == nullptr || row->handler == nullptr) return ZDA_UNKNOWN_COMMAND;
  Library::Host::Event(10, "executeZDealerAPI %s", command.c_str());
  // Move commands pass here on purpose: their firm check answers 11.
  if (readOnly && !row->readerMayRun) return ZDA_READ_ONLY;
  // The firm check: a record addressed to another firm than the one the caller
  // holds is refused before anything is touched.
  const int result = row->firmCheck && RecordFirm(data) != firm ? ZDA_BUSY : row->handler(*this, data, firm);
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
  CLibraryHolds holds(*work);
  const std::string* found = holds.FindPath(record.firmCode);
  if (found == nullptr) return ZDA_UNKNOWN_FIRM;
  const std::string path = *found;
  tagDL_fileState& state = holds.State(path);
  if (record.nMode == 0 && holds.HeldByOther(path, user)) return ZDA_BUSY;

  std::string text;
  if (!CLibraryHolds::Read(path, &text)) return ZDA_CANNOT_OPEN;
  // Every successful open reloads the firm, also a read-only one.
  const int n = ZDL_LoadSettingsForFirm(record.firmCode.c_str(), text.c_str(), 2);
  if (n == 0) {
    work->mapFileUsers[path].insert(user);
    if (record.nMode == 0) {
      holds.Hold(path, user);
      CLibraryHolds::Audit(port, user, "SRV_USER_BO_DEALLIB_OPEN", userName, record.firmCode, text);
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
  CLibraryHolds holds(*work);
  const std::string* found = holds.FindPath(record.firmCode);
  if (found == nullptr) return ZDA_UNKNOWN_FIRM;
  const std::string path = *found;
  tagDL_fileState& state = holds.State(path);
  if (state.busy == 0 || state.user != user) return ZDA_UPDATE_FAILED;

  std::string text;
  char* block = nullptr;
  const int n = ZDL_SaveSettingsToMemory(record.firmCode.c_str(), &block);
  if (n == 0) {
    text = block;
    void* given = block;
    (void)ZDL_FreeMemory(record.firmCode.c_str(), &given);

    const CLibraryHolds::EReplace replaced = CLibraryHolds::Replace(path, text);
    if (replaced != CLibraryHolds::EReplace::Done) {
      // Not written (a full disk shows here) or not moved: the library is as it was.
      Library::Host::Event(0, "User[%d], call ZA_DLUpdateFile for port[%d], error save library [%s][%d].", user,
                           port, record.firmCode.c_str(), static_cast<int>(GetLastError()));
      return ZDA_UPDATE_FAILED;  // a temporary file that was not moved stays behind
    }
    std::vector<std::string>& lines = m_DEALLIB_PACKET_CHANGE_map[record.firmCode];
    const std::string count = std::to_string(lines.size());
    CLibraryHolds::Audit(port, user, "SRV_USER_BO_DEALLIB_PACKET_CHANGE", userName, record.firmCode,
                         m_DEALLIB_PACKET_CHANGE_map_To_Str(record.firmCode), &count);
    CLibraryHolds::Audit(port, user, "SRV_USER_BO_DEALLIB_CHANGE", userName, record.firmCode, text);
    holds.Hold(path, user);  // the hold goes on
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
  CLibraryHolds holds(*work);
  const std::string* found = holds.FindPath(record.firmCode);
  if (found == nullptr) return ZDA_UNKNOWN_FIRM;
  const std::string path = *found;
  std::set<int>& users = work->mapFileUsers[path];
  if (users.erase(user) == 0) return ZDA_NOT_OPEN;

  tagDL_fileState& state = holds.State(path);
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
