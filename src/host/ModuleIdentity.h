#pragma once
// Who the module is: the name it reports to the server, and the server's
// version that a whole-file client must match. The entry points set the
// version; the file service reads both.
#include <string>

// The name the module reports to the server.
inline constexpr const char* kModuleName = "ZENT_DL";

// The server executable's version in three numbers, set by ModuleInit.
extern std::string g_strVersion;
