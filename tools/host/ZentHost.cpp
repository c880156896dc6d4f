// zent_host: the reference host of libzent_dl.
//
//   zent_host SERVER_DIR
//
// SERVER_DIR holds the server's configuration: host.ini, whose section "ports"
// maps each connection port to its library list (a file with a section
// "dealer-library"), and server.ini with the section "General" (audit size
// limits). The host works, as the trading server does, from a directory with
// modules/libdbzent.so: the directory of this program. It loads the database
// module and then the dealer library, calls ModuleInit, InitDB for every port,
// and shows what each port registered: every library with the size of its text
// as a client fetching it for reading would receive it.
#include <dlfcn.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "ini/IniFile.h"
#include "support/Alert.h"

namespace fs = std::filesystem;

// The host's event log, which the module finds by name.
extern "C" __attribute__((visibility("default"))) void devent(int level, const char* format, ...) {
  va_list args;
  va_start(args, format);
  std::fprintf(stderr, "devent[%d] ", level);
  std::vfprintf(stderr, format, args);
  std::fputc('\n', stderr);
  va_end(args);
}

namespace {

struct Module {
  int (*ModuleInit)(std::string&, unsigned*);
  int (*InitDB)(const std::string&, const std::string&, int);
  int (*Execute)(const std::string&, CAlert&, int, int, const std::string&);
};

template <class Fn>
Fn Symbol(void* handle, const char* name) {
  void* symbol = dlsym(handle, name);
  if (symbol == nullptr) {
    std::fprintf(stderr, "zent_host: the module lacks %s\n", name);
    std::exit(2);
  }
  return reinterpret_cast<Fn>(symbol);
}

void* Open(const std::string& path) {
  void* handle = dlopen(path.c_str(), RTLD_NOW);
  if (handle == nullptr) {
    std::fprintf(stderr, "zent_host: %s\n", dlerror());
    std::exit(2);
  }
  return handle;
}

constexpr int kHostUser = 1;
const std::string kHostUserName = "zent_host";

// Hands a request to the module as the server does, ready for reading, and
// rewinds the reply for reading, as a client receiving it would.
int Call(const Module& module, const std::string& verb, CAlert& message, int port) {
  message.set_begin();
  int result = module.Execute(verb, message, kHostUser, port, kHostUserName);
  message.set_begin();
  return result;
}

void ShowPort(const Module& module, int port) {
  CAlert list;
  Call(module, "GetDLList", list, port);
  std::vector<std::string> names;
  while (list.get_fields_count() != 0) {
    std::string name;
    list >> name;
    names.push_back(name);
  }
  std::printf("port %d: %zu libraries\n", port, names.size());
  for (const std::string& name : names) {
    CAlert request, row, ro;
    row << std::string("FIRM") << name;
    ro << std::string("READONLY") << 1;
    request << row << ro;
    if (Call(module, "GetDLFile", request, port) == 1) {
      int readOnly = 0;
      std::string firm, text;
      request >> readOnly >> firm >> text;
      std::printf("  %-20s %zu bytes\n", name.c_str(), text.size());
    } else {
      std::printf("  %-20s cannot be read\n", name.c_str());
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: zent_host SERVER_DIR\n");
    return 2;
  }
  const fs::path server = fs::absolute(argv[1]);
  const fs::path hostIni = server / "host.ini";
  if (!fs::is_regular_file(hostIni)) {
    std::fprintf(stderr, "zent_host: %s is missing\n", hostIni.c_str());
    return 2;
  }

  // Work where modules/libdbzent.so is, as the server does.
  const fs::path home = fs::canonical("/proc/self/exe").parent_path();
  if (chdir(home.c_str()) != 0) {
    std::perror("zent_host: chdir");
    return 2;
  }
  setenv("PWD", home.c_str(), 1);
  Open((home / "modules" / "libdbzent.so").string());
  void* handle = Open(ZDL_MODULE_PATH);
  Module module{Symbol<decltype(Module::ModuleInit)>(handle, "ModuleInit"),
                Symbol<decltype(Module::InitDB)>(handle, "InitDB"),
                Symbol<decltype(Module::Execute)>(handle, "Execute")};

  std::string name;
  unsigned kind = 0;
  module.ModuleInit(name, &kind);
  std::printf("module %s, kind %u\n", name.c_str(), kind);

  Library::Ini::CIniFile config(hostIni.string());
  const std::string serverSettings = (server / "server.ini").string();
  int registered = 0;
  for (const auto& record : config.GetRecords("ports")) {
    int port = std::atoi(record.key.c_str());
    std::string list = (server / record.value).string();
    if (module.InitDB(list, serverSettings, port) == 1) ++registered;
    ShowPort(module, port);
  }
  if (registered == 0) {
    std::fprintf(stderr, "zent_host: no port registered a library\n");
    return 1;
  }
  return 0;
}
