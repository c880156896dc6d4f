#pragma once
// The recording stand-in for the server's database module. Tests read and
// steer it through TestDb(), resolved from the loaded module with dlsym.
#include <map>
#include <string>
#include <vector>

class CAlert;

struct TestDbAudit {
  int port;
  int user;
  std::string event;
  std::vector<std::string> fields;
};

struct TestDbNotice {
  int user;
  int port;
  int state;
};

struct TestDbExecute {
  std::string command;
  std::string userName;
  int user;
  int port;
};

struct TestDbState {
  std::map<int, int> kinds;      // user -> WhoIsIt answer; users not listed are kind 1
  int auditState = 1;            // what audit_State answers
  int auditResult = 1;           // what audit_DEALLIB_CHANGE answers
  std::vector<std::string> tableRows;  // class codes the "GetTable" request answers with
  std::vector<TestDbAudit> audits;
  std::vector<TestDbNotice> notices;
  std::vector<TestDbExecute> executes;
  int whoIsItCalls = 0;
};

using TestDbAccessor = TestDbState* (*)();
