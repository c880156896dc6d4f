#pragma once
// The work record of one connection port and the lock that guards its holds.
#include <map>
#include <set>
#include <string>

#include "support/lock.h"

// State of one library file on a port. Both fields are always set together.
struct tagDL_fileState {
  int user = 0;  // who holds the file for writing; 0 if nobody
  int busy = 0;  // 1 while held; cleared together with user
};

// One per connection port, never removed while the module lives, so a pointer
// to it stays valid across calls.
struct tagDL_work {
  int port = 0;                                     // equals the registry key
  std::map<std::string, std::string> mapLibrary;    // library name -> full file path
  std::map<std::string, tagDL_fileState> mapFileState;  // file path -> hold
  std::map<std::string, std::set<int>> mapFileUsers;    // file path -> users with it open via the API
  std::map<int, int> mapUserLanguage;               // user -> language code given at Init
};

// The one lock of the host side: file holds, API file users, audit change lists.
extern Library::Thread::Mutex g_Locker;
