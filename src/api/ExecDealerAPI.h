#pragma once
// The remote settings API. An administrator client sends, through the module
// verb "ZDealerAPI", a command name and a binary argument block; the
// dispatcher runs one of the five file verbs itself or finds the command's row
// in the command table (api/CommandTable.h) and applies it: the handler, the
// read-only rule and the firm check all come from the row. It also gathers the
// change lines that the next "DLUpdateFile" reports to the audit trail.
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "api/CommandTable.h"
#include "api/DLWork.h"

// Result codes of the remote API, as they go back in the reply.
enum EDealerAPIResult : int {
  ZDA_OK = 0,
  ZDA_UNKNOWN_COMMAND = 1,   // also: DLGetClassList cannot reach the host's table service
  ZDA_UNKNOWN_FIRM = 9,      // "firmCode" is not a library of this port
  ZDA_BUSY = 11,             // held by another user, or not the firm the caller holds
  ZDA_READ_ONLY = 12,        // a changing command from a user who holds nothing
  ZDA_UPDATE_FAILED = 13,    // not the holder, or writing or replacing the file failed
  ZDA_SETTINGS_BASE = 1000,  // plus the settings layer's code n
  ZDA_CANNOT_OPEN = 1001,    // DLOpenFile: the library file cannot be read
  ZDA_NOT_OPEN = 1002,       // DLCloseFile: the user does not have the file open
};

class CExecDealerAPI {
 public:
  // Finds a command's row by its exact name; null for a name that is none.
  using TFindCommand = const DL::TCommandRow* (*)(std::string_view name);

  // The module's dispatcher runs on the compiled table (DL::FindCommand); a
  // test may hand in rows of its own.
  explicit CExecDealerAPI(TFindCommand findCommand = &DL::FindCommand);
  virtual ~CExecDealerAPI();
  CExecDealerAPI(const CExecDealerAPI&) = delete;
  CExecDealerAPI& operator=(const CExecDealerAPI&) = delete;

  // Runs one request: a file verb, or a command of the table. Returns the
  // result code; data holds the reply block (unchanged on most failures).
  int ExecuteDealerAPI(std::string& command, std::vector<unsigned char>& data, tagDL_work* work, int user, int kind,
                       std::string userName, int port);

  int ZA_DLGetClassList(std::vector<unsigned char>& data, tagDL_work* work, int user, int kind, std::string userName,
                        int port);
  int ZA_DLGetFirmList(std::vector<unsigned char>& data, tagDL_work* work, int user, int kind, std::string userName);
  int ZA_DLOpenFile(std::vector<unsigned char>& data, tagDL_work* work, int user, int kind, std::string userName,
                    int port);
  int ZA_DLUpdateFile(std::vector<unsigned char>& data, tagDL_work* work, int user, int kind, std::string userName,
                      int port);
  int ZA_DLCloseFile(std::vector<unsigned char>& data, tagDL_work* work, int user, int kind, std::string userName);

  // The firm's change lines, each followed by "\r\n"; the list is emptied.
  // The caller holds g_Locker.
  std::string m_DEALLIB_PACKET_CHANGE_map_To_Str(std::string& firm);

  // Appends a change line of a successful change under the firm the caller
  // holds. Handlers call it; it takes g_Locker.
  void AddChangeLine(const std::string& firm, std::string line);

  std::map<std::string, std::vector<std::string>> m_DEALLIB_PACKET_CHANGE_map;  // firm -> pending change lines
  std::vector<std::string> m_lsClasses;                                        // classes of the last DLGetClassList

 private:
  TFindCommand m_findCommand;  // the command table
};

// The one instance, built when the module is loaded.
extern CExecDealerAPI g_ExecDealerAPI;
