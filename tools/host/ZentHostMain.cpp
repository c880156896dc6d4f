// zent-host: a small real host of libzent_dl. It loads the module the way a
// trading server does, keeps its event log, audit trail and users, and serves
// administrator clients over TCP (see docs/protocol.md).
#include <dlfcn.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "DbZentSettings.h"
#include "DealerModule.h"
#include "HostConfig.h"
#include "HostLog.h"
#include "HostServer.h"
#include "UsersFile.h"

namespace fs = std::filesystem;
using namespace ZentHost;

// The host's version record, which the module reads from this executable at
// ModuleInit and compares with a whole-file client's versions at "Init".
extern "C" __attribute__((used, section(".version"))) const char kZentHostVersion[] = ZDL_VERSION ".0";

namespace {

constexpr const char* kUsage =
    "Usage:\n"
    "  zent-host [--port-file FILE] CONFIG   serve administrator clients as CONFIG says\n"
    "  zent-host --check CONFIG              validate CONFIG and the files it names\n"
    "  zent-host --make-user NAME ID KIND [ITERATIONS]\n"
    "                                        read a secret from standard input and print\n"
    "                                        the users-file line for it (KIND 1, 2 or 3)\n"
    "  zent-host --help | --version\n"
    "\n"
    "zent-host loads libzent_dl.so with its database module modules/libdbzent.so,\n"
    "calls ModuleInit and InitDB for every port of CONFIG, and listens on the\n"
    "configured address. Each connection logs on with a user of the users file,\n"
    "then sends the module's verbs (Init, GetDLList, GetDLFile, SaveDLFile,\n"
    "ZDealerAPI). Audit records go to the SQLite audit trail, events to the log.\n"
    "SIGTERM or SIGINT stops it gracefully. --port-file receives the TCP port\n"
    "once the host listens (useful with Port=0).\n";

int Fail(const std::string& text) {
  std::fprintf(stderr, "zent-host: %s\n", text.c_str());
  return 1;
}

int Check(const std::string& path) {
  std::vector<std::string> problems;
  LoadHostConfig(path, true, problems);
  for (const std::string& p : problems) std::printf("%s\n", p.c_str());
  if (!problems.empty()) return 1;
  std::printf("%s: the configuration is valid\n", path.c_str());
  return 0;
}

int MakeUser(int argc, char** argv) {
  if (argc < 5 || argc > 6) return Fail("--make-user needs NAME ID KIND [ITERATIONS]");
  TUser user;
  user.name = argv[2];
  user.id = std::atoi(argv[3]);
  user.kind = std::atoi(argv[4]);
  int iterations = argc == 6 ? std::atoi(argv[5]) : kDefaultIterations;
  if (user.name.empty() || user.name.find(':') != std::string::npos) return Fail("the name must be non-empty, no \":\"");
  if (user.id <= 0) return Fail("the id must be a positive number");
  if (user.kind < 1 || user.kind > 3) return Fail("the kind must be 1, 2 or 3");
  if (iterations < 1) return Fail("the iteration count must be positive");
  std::string secret;
  std::getline(std::cin, secret);
  if (!secret.empty() && secret.back() == '\r') secret.pop_back();
  if (secret.empty()) return Fail("no secret on standard input");
  if (!MakeSecretHash(secret, iterations, user.secret)) return Fail("hashing failed");
  std::printf("%s\n", TUsersFile::FormatLine(user).c_str());
  return 0;
}

std::string ProgramDir() {
  std::error_code ec;
  fs::path self = fs::canonical("/proc/self/exe", ec);
  return ec ? std::string(".") : self.parent_path().string();
}

int Serve(const std::string& configPath, const std::string& portFile) {
  std::vector<std::string> problems;
  THostConfig config = LoadHostConfig(configPath, false, problems);
  if (!problems.empty()) {
    for (const std::string& p : problems) std::fprintf(stderr, "%s\n", p.c_str());
    return Fail("the configuration has faults; see above (zent-host --check " + configPath + ")");
  }
  std::string error;
  if (!OpenHostLog(config.log, config.logLevel, error)) return Fail("log: " + error);
  HostEvent(0, "zent-host " ZDL_VERSION " starting with " + config.file);

  TUsersFile users;
  if (!users.Load(config.users, error)) return Fail(error);

  // The server's working directory: the module finds modules/libdbzent.so under it.
  const std::string home = config.moduleHome.empty() ? ProgramDir() : config.moduleHome;
  const std::string modulePath = config.module.empty() ? std::string(ZDL_MODULE_PATH) : config.module;
  if (::chdir(home.c_str()) != 0) return Fail(home + ": " + std::strerror(errno));
  ::setenv("PWD", home.c_str(), 1);
  const std::string dbPath = home + "/modules/libdbzent.so";
  void* db = dlopen(dbPath.c_str(), RTLD_NOW);
  if (db == nullptr) {
    // Without it the host knows no user's kind and keeps no audit trail: it does not serve.
    const char* text = dlerror();
    const std::string why = text != nullptr ? text : dbPath + ": cannot be loaded";
    HostEvent(0, "zent-host: the database module " + dbPath + " cannot be loaded: " + why);
    CloseHostLog();
    return Fail(why);
  }
  auto dbOpen = reinterpret_cast<DbZentOpenFn>(dlsym(db, "dbzent_Open"));
  auto dbClose = reinterpret_cast<DbZentCloseFn>(dlsym(db, "dbzent_Close"));
  if (dbOpen == nullptr || dbClose == nullptr) return Fail(dbPath + " is not zent-host's database module");
  TDbZentSettings settings{config.users, config.auditDatabase, config.classList, {}};
  for (const TPortConfig& p : config.ports) settings.audit[p.port] = p.audit;
  if (dbOpen(settings, error) != 1) {
    HostEvent(0, "zent-host: the database module refused to open: " + error);
    CloseHostLog();
    return Fail("database module: " + error);
  }

  TDealerModule module;
  if (!module.Load(modulePath, error)) return Fail(error);
  std::string name;
  unsigned kind = 0;
  module.ModuleInit(name, &kind);
  HostEvent(0, "zent-host: module " + name + " kind " + std::to_string(kind) + " from " + modulePath);
  for (const TPortConfig& p : config.ports) {
    int rc = module.InitDB(p.libraries, p.serverSettings, p.port);
    HostEvent(0, "zent-host: InitDB port[" + std::to_string(p.port) + "] " + p.libraries + " returned " +
                     std::to_string(rc));
    if (rc != 1) std::fprintf(stderr, "zent-host: port %d registered no library\n", p.port);
  }

  // Signals are taken by this thread alone; the others never see them.
  sigset_t stopSignals;
  sigemptyset(&stopSignals);
  sigaddset(&stopSignals, SIGTERM);
  sigaddset(&stopSignals, SIGINT);
  pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
  ::signal(SIGPIPE, SIG_IGN);

  int signal = 0;
  {
    THostServer server(config, module, users);
    if (!server.Listen(error)) {
      dbClose();
      return Fail(error);
    }
    if (!portFile.empty()) {
      std::string temp = portFile + ".tmp";
      std::ofstream(temp) << server.BoundPort() << "\n";
      fs::rename(temp, portFile);
    }
    std::printf("zent-host: listening on %s:%d (log %s)\n", config.listen.c_str(), server.BoundPort(),
                config.log.c_str());
    std::fflush(stdout);
    server.Start();
    while (sigwait(&stopSignals, &signal) != 0) {
    }
    HostEvent(0, std::string("zent-host: ") + (signal == SIGTERM ? "SIGTERM" : "SIGINT") + ", stopping");
    server.Stop();
  }
  dbClose();
  HostEvent(0, "zent-host: stopped");
  CloseHostLog();
  std::printf("zent-host: stopped\n");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (args[0] == "--help" || args[0] == "-h") {
    std::fputs(kUsage, stdout);
    return 0;
  }
  if (args[0] == "--version") {
    std::printf("zent-host %s\n", ZDL_VERSION);
    return 0;
  }
  if (args[0] == "--check") {
    if (args.size() != 2) return Fail("--check needs CONFIG");
    return Check(args[1]);
  }
  if (args[0] == "--make-user") return MakeUser(argc, argv);
  std::string portFile;
  std::size_t i = 0;
  if (args[0] == "--port-file") {
    if (args.size() < 2) return Fail("--port-file needs FILE");
    portFile = args[1];
    i = 2;
  }
  if (args.size() != i + 1 || args[i].rfind("--", 0) == 0) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (!portFile.empty()) portFile = fs::absolute(portFile).string();
  return Serve(args[i], portFile);
}
