#include "ModuleHarness.h"

#include <gtest/gtest.h>

#include "common/EventLog.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace ztest {
namespace {

template <class Fn>
Fn Symbol(void* handle, const char* name) {
  void* symbol = dlsym(handle, name);
  if (symbol == nullptr) throw std::runtime_error(std::string("missing symbol ") + name);
  return reinterpret_cast<Fn>(symbol);
}

LoadedModule Load() {
  char pattern[] = "/tmp/zdl_host_XXXXXX";
  if (mkdtemp(pattern) == nullptr) throw std::runtime_error("mkdtemp failed");
  fs::path root = pattern;
  fs::create_directories(root / "modules");
  fs::copy_file(ZDL_DBZENT_PATH, root / "modules" / "libdbzent.so");
  if (chdir(root.c_str()) != 0) throw std::runtime_error("chdir failed");

  // The server loads its database module before it calls ours.
  void* db = dlopen((root / "modules" / "libdbzent.so").c_str(), RTLD_NOW);
  if (db == nullptr) throw std::runtime_error(dlerror());
  void* module = dlopen(ZDL_MODULE_PATH, RTLD_NOW);
  if (module == nullptr) throw std::runtime_error(dlerror());

  LoadedModule m;
  m.ModuleInit = Symbol<decltype(m.ModuleInit)>(module, "ModuleInit");
  m.InitDB = Symbol<decltype(m.InitDB)>(module, "InitDB");
  m.Reset = Symbol<decltype(m.Reset)>(module, "Reset");
  m.GetDLInUse = Symbol<decltype(m.GetDLInUse)>(module, "GetDLInUse");
  m.Execute = Symbol<decltype(m.Execute)>(module, "Execute");
  m.db = Symbol<TestDbAccessor>(db, "TestDb")();
  m.root = root.string();
  return m;
}

}  // namespace

LoadedModule& Module() {
  static LoadedModule module = Load();
  return module;
}

void ResetRecordedCalls() {
  TestDbState* db = Module().db;
  db->audits.clear();
  db->notices.clear();
  db->executes.clear();
  db->kinds.clear();
  db->tableRows.clear();
  db->auditState = 1;
  db->auditResult = 1;
  ClearEvents();
}

int NewPort() {
  static std::atomic<int> next{7000};
  return next++;
}

std::string WriteServerFile(const std::string& relative, const std::string& content) {
  fs::path path = fs::path(Module().root) / relative;
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
  return path.string();
}

std::string ReadServerFile(const std::string& relative) {
  std::ifstream in(fs::path(Module().root) / relative, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

bool ServerFileExists(const std::string& relative) { return fs::exists(fs::path(Module().root) / relative); }

int Call(const std::string& command, CAlert& message, int user, int port, const std::string& userName) {
  message.set_begin();  // a request arrives from the wire ready for reading
  int result = Module().Execute(command, message, user, port, userName);
  message.set_begin();
  return result;
}

std::string ReadSourceFile(const std::string& relative) {
  std::ifstream in(std::string(ZDL_SOURCE_DIR) + "/" + relative, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

int Command(int port, const std::string& command, std::vector<unsigned char>& block, int user) {
  CAlert m;
  m << command << block;
  Call("ZDealerAPI", m, user, port, "user" + std::to_string(user));
  std::string name;
  int result = -1;
  m >> name >> result >> block;
  return result;
}

std::vector<std::string> ReadStrings(CAlert& message) {
  std::vector<std::string> out;
  while (message.get_fields_count() != 0) {
    std::string s;
    message >> s;
    out.push_back(s);
  }
  return out;
}

TLibrarySession::TLibrarySession(const std::string& prefix, const std::string& text, int user)
    : m_port(NewPort()), m_user(user) {
  ResetRecordedCalls();
  m_dir = prefix + std::to_string(m_port) + "/";
  m_firm = "F" + prefix + std::to_string(m_port);
  WriteServerFile(m_dir + "lib.ini", text);
  const std::string list = WriteServerFile(m_dir + "dl.ini", "[dealer-library]\n" + m_firm + "=lib.ini\n");
  EXPECT_EQ(Module().InitDB(list, "", m_port), 1);
  Open();
}

void TLibrarySession::Open() {
  TDL_DLOpenFile open{m_firm, 0};
  EXPECT_EQ(Command("DLOpenFile", open), 0);
}

std::string TLibrarySession::Save() {
  TDL_DLUpdateFile update{m_firm};
  EXPECT_EQ(Command("DLUpdateFile", update), 0);
  return ReadServerFile(m_dir + "lib.ini");
}

std::string TLibrarySession::SaveAndReload() {
  const std::string saved = Save();
  TDL_DLCloseFile close{m_firm};
  EXPECT_EQ(Command("DLCloseFile", close), 0);
  Open();
  return saved;
}

}  // namespace ztest
