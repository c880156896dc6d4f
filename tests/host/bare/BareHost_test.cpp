// The module in a server that has no database module loaded and whose
// executable carries no version record.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "common/EventLog.h"
#include "support/Alert.h"

namespace {

namespace fs = std::filesystem;

struct Bare {
  int (*ModuleInit)(std::string&, unsigned*);
  int (*InitDB)(const std::string&, const std::string&, int);
  int (*Execute)(const std::string&, CAlert&, int, int, const std::string&);
  fs::path root;
};

Bare& Module() {
  static Bare bare = [] {
    Bare b{};
    char pattern[] = "/tmp/zdl_bare_XXXXXX";
    b.root = mkdtemp(pattern);
    fs::create_directories(b.root / "modules");  // the folder is there, the module is not
    EXPECT_EQ(chdir(b.root.c_str()), 0);
    void* module = dlopen(ZDL_MODULE_PATH, RTLD_NOW);
    EXPECT_NE(module, nullptr) << dlerror();
    b.ModuleInit = reinterpret_cast<decltype(b.ModuleInit)>(dlsym(module, "ModuleInit"));
    b.InitDB = reinterpret_cast<decltype(b.InitDB)>(dlsym(module, "InitDB"));
    b.Execute = reinterpret_cast<decltype(b.Execute)>(dlsym(module, "Execute"));
    std::ofstream(b.root / "dl.ini") << "[dealer-library]\nF=f.ini\n";
    std::ofstream(b.root / "f.ini") << "[General]\nA=1\n";
    EXPECT_EQ(b.InitDB((b.root / "dl.ini").string(), "", 7100), 1);
    return b;
  }();
  return bare;
}

int Call(const std::string& verb, CAlert& m) {
  m.set_begin();
  int r = Module().Execute(verb, m, 1, 7100, "u");
  m.set_begin();
  return r;
}

TEST(BareHostTest, ModuleInitWithAnEmptyVersionRecordReturnsOne) {
  std::string name;
  unsigned kind = 0;
  EXPECT_EQ(Module().ModuleInit(name, &kind), 1);
  EXPECT_EQ(name, "ZENT_DL");
  // The server's version is empty: a client with empty versions is accepted.
  CAlert modules, row, m;
  row << std::string("Terminal") << std::string("") << std::string("");
  modules << row;
  m << std::string("") << 1033 << modules;
  ASSERT_EQ(Call("Init", m), 1);
  int accepted = -1;
  m >> accepted;
  EXPECT_EQ(accepted, 1);
}

TEST(BareHostTest, AnApiClientSignsOnWithoutTheDatabaseModule) {
  CAlert modules, row, m;
  row << std::string("ZDealerAPI") << std::string("1") << std::string("");
  modules << row;
  m << std::string("1") << 1033 << modules;
  ASSERT_EQ(Call("Init", m), 1);
  int accepted = -1, mayWork = -1;
  m >> accepted >> mayWork;
  EXPECT_EQ(accepted, 1);
  EXPECT_EQ(mayWork, 0);  // WhoIsIt is missing: the kind is 0, which may not work with the API
}

TEST(BareHostTest, FilesAreServedWithoutTheDatabaseModule) {
  CAlert row, m;
  row << std::string("FIRM") << std::string("F");
  m << row;
  ASSERT_EQ(Call("GetDLFile", m), 1);
  int readOnly = -1;
  std::string name, text;
  m >> readOnly >> name >> text;
  EXPECT_EQ(readOnly, 0);
  EXPECT_EQ(text, "[General]\nA=1\n");
}

TEST(BareHostTest, TheClassListNeedsTheHostsTableService) {
  CAlert request;
  std::vector<unsigned char> block;
  CAlert m;
  m << std::string("DLGetClassList") << block;
  ASSERT_EQ(Call("ZDealerAPI", m), 0);
  std::string name;
  int result = -1;
  m >> name >> result;
  EXPECT_EQ(result, 1);
}

}  // namespace
