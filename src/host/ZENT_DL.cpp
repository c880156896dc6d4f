#include "host/ZENT_DL.h"

#include <strings.h>

#include <algorithm>
#include <vector>

#include "api/ExecDealerAPI.h"
#include "host/FileService.h"
#include "ini/IniFile.h"
#include "ini/PrivateProfile.h"
#include "support/FileUtils.h"
#include "support/HostEvent.h"
#include "support/HostModule.h"
#include "support/LinuxUtils.h"

std::map<int, tagDL_work> g_mapDL_work;

namespace {

constexpr const char* kLibrarySection = "dealer-library";
constexpr const char* kGeneralSection = "General";
constexpr unsigned kDefaultMaxDeallibSize = 10485760;  // 10 MiB

// Cuts a four-number version "a.b.c.d" to its first three numbers.
std::string CutLastVersionNumber(const std::string& version) {
  size_t dot = version.rfind('.');
  return dot == std::string::npos ? version : version.substr(0, dot);
}

// The directory of the library list, with its trailing slash; relative library
// paths are taken from there. Empty when the full path has no slash.
std::string LibraryBaseDirectory(std::string libraryList) {
  if (libraryList.rfind(".\\", 0) == 0 || libraryList.rfind("./", 0) == 0) libraryList.erase(0, 2);
  std::string full = Library::FileUtils::GetFullPath(libraryList);
  size_t slash = full.rfind('/');
  return slash == std::string::npos ? std::string() : full.substr(0, slash + 1);
}

// A library path as configured, in UTF-8, with forward slashes, made absolute
// against the list's directory.
std::string LibraryPath(const std::string& configured, const std::string& base) {
  std::string path = IconvConvert(configured, true);
  std::replace(path.begin(), path.end(), '\\', '/');
  if (!Library::FileUtils::IsFullPath(path)) path = base + path;
  return path;
}

unsigned ReadMaxDeallibSize(const std::string& serverSettings, int port) {
  std::string perPort = "MaxDeallibSize_" + std::to_string(port);
  unsigned size = static_cast<unsigned>(
      lx_GetPrivateProfileInt(kGeneralSection, perPort.c_str(), 0, serverSettings.c_str()));
  if (size == 0)
    size = static_cast<unsigned>(lx_GetPrivateProfileInt(kGeneralSection, "MaxDeallibSize",
                                                         kDefaultMaxDeallibSize, serverSettings.c_str()));
  return size;
}

}  // namespace

ZDL_EXPORT int ModuleInit(std::string& name, unsigned* kind) {
  name = kModuleName;
  *kind = 1;
  std::string executable = Library::FileUtils::GetFullPath(Library::FileUtils::GetFullModuleName());
  g_strVersion = CutLastVersionNumber(Library::FileUtils::GetFileVersion(executable, Library::FileUtils::VERSION_NUMBER_4));
  return 1;
}

ZDL_EXPORT int InitDB(const std::string& libraryList, const std::string& serverSettings, int port) {
  Library::Ini::CIniFile list(libraryList);
  std::vector<Library::Ini::CIniFile::CRecord> records = list.GetRecords(kLibrarySection);

  mapMaxDeallibSize[static_cast<unsigned>(port)] = ReadMaxDeallibSize(serverSettings, port);

  tagDL_work& work = g_mapDL_work[port];
  work.port = port;

  if (records.empty()) {
    Library::Host::Event(0, "Section \"dealer-library\" in file[%s] for port[%d] is empty.",
                         libraryList.c_str(), port);
    return 0;
  }

  const std::string base = LibraryBaseDirectory(libraryList);
  for (const auto& record : records) {
    // The configured value's last four characters (its extension, whatever it is) go.
    std::string stem = record.value.size() < 4 ? record.value : record.value.substr(0, record.value.size() - 4);
    std::string file = LibraryPath(stem + ".ini", base);
    std::string soft = LibraryPath(stem + ".soft.ini", base);
    work.mapLibrary[record.key] = file;
    work.mapFileState[file] = tagDL_fileState{};
    if (Library::FileUtils::IsFileExist(soft)) {
      // The ".soft" name leads to the main file; the soft path is only a state key.
      work.mapLibrary[record.key + ".soft"] = file;
      work.mapFileState[soft] = tagDL_fileState{};
    }
  }
  Library::Host::Event(0, "DealerLib for [%d] count [%d]", port, static_cast<int>(work.mapLibrary.size()));
  return 1;
}

ZDL_EXPORT int Reset(int user, int port) {
  auto found = g_mapDL_work.find(port);
  if (found == g_mapDL_work.end()) return 0;
  tagDL_work& work = found->second;
  for (auto& [path, state] : work.mapFileState) {
    if (state.user != user) continue;
    Library::Thread::Lock lock(g_Locker);
    state = tagDL_fileState{};
  }
  work.mapUserLanguage.erase(user);
  return 1;
}

ZDL_EXPORT std::string GetDLInUse(int user, int port) {
  auto found = g_mapDL_work.find(port);
  if (found == g_mapDL_work.end()) return {};
  const tagDL_work& work = found->second;
  auto held = std::find_if(work.mapFileState.begin(), work.mapFileState.end(),
                           [user](const auto& entry) { return entry.second.user == user; });
  if (held == work.mapFileState.end()) return {};
  for (const auto& [name, path] : work.mapLibrary)
    if (path == held->first) return name;
  return {};
}

ZDL_EXPORT int Execute(const std::string& command, CAlert& message, int user, int port,
                       const std::string& userName) {
  auto found = g_mapDL_work.find(port);
  if (found == g_mapDL_work.end()) {
    message.clear();
    message << std::string("Error") << command << 5 << std::string("unknown connection port");
    return 0;
  }
  tagDL_work* work = &found->second;
  const unsigned kind = static_cast<unsigned>(Library::Host::WhoIsIt(user, port));

  const char* verb = command.c_str();
  if (strcasecmp(verb, "Init") == 0) return UserInit(message, user, kind, work, port, userName);
  if (strcasecmp(verb, "GetDLList") == 0) return GetDLList(message, user, work);
  if (strcasecmp(verb, "GetDLFile") == 0) return GetDLFile(message, user, kind, work, port, userName);
  if (strcasecmp(verb, "SaveDLFile") == 0) return SaveDLFile(message, user, kind, work, port, userName);
  if (strcasecmp(verb, "ZDealerAPI") == 0) {
    // A request is (command name, argument block); the reply is (name, result, block).
    std::string name;
    std::vector<unsigned char> block;
    message >> name >> block;
    int result = g_ExecDealerAPI.ExecuteDealerAPI(name, block, work, user, static_cast<int>(kind), userName, port);
    message.clear();
    message << name << result << block;
    return result == 0 ? 1 : 0;
  }
  return 0;
}
