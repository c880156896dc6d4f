#pragma once
// The remote settings API. An administrator client sends, through the module
// verb "ZDealerAPI", a command name and a binary argument block; the
// dispatcher runs one of the five file verbs itself or finds the command's
// handler in its table, decides who may run what, and gathers the change lines
// that the next "DLUpdateFile" reports to the audit trail.
#include <map>
#include <string>
#include <vector>

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
  // A command handler: decodes its record from data, calls the settings layer,
  // encodes the result back into data. firm is the firm the caller holds
  // (empty for a reader).
  using THandler = int (CExecDealerAPI::*)(std::vector<unsigned char>& data, std::string& firm);

  CExecDealerAPI();  // builds the command table
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

  // Handlers of the registered commands, generated from the command table.
#define ZDL_IMPLEMENTED(name) int ZA_##name(std::vector<unsigned char>& data, std::string& firm);
#include "api/Implemented.def"
#undef ZDL_IMPLEMENTED

  // The firm's change lines, each followed by "\r\n"; the list is emptied.
  // The caller holds g_Locker.
  std::string m_DEALLIB_PACKET_CHANGE_map_To_Str(std::string& firm);

  // Number of commands in the table.
  size_t CommandCount() const { return m_mapFunctions.size(); }
  bool HasCommand(const std::string& name) const { return m_mapFunctions.count(name) != 0; }

  std::map<std::string, std::vector<std::string>> m_DEALLIB_PACKET_CHANGE_map;  // firm -> pending change lines
  std::vector<std::string> m_lsClasses;                                        // classes of the last DLGetClassList
  std::map<std::string, THandler> m_mapFunctions;                              // command name -> handler

 protected:
  // Puts every registered command into m_mapFunctions under its name.
  void RegisterCommands();

  // Appends a change line of a successful change under the firm the caller holds.
  void AddChangeLine(const std::string& firm, std::string line);
};

// The one instance, built when the module is loaded.
extern CExecDealerAPI g_ExecDealerAPI;
