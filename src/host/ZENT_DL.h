#pragma once
// The module's entry points and its registry of connection ports.
//
// The trading server loads libzent_dl.so, calls ModuleInit once, InitDB once
// per connection port that serves dealer libraries, then Execute for every
// request of an administrator client; Reset tells that a user has gone.
// Strings and messages are passed as the server's own objects: server and
// module share the compiler and the standard library.
#include <map>
#include <string>

#include "api/DLWork.h"
#include "host/ModuleIdentity.h"
#include "support/Alert.h"

#define ZDL_EXPORT extern "C" __attribute__((visibility("default")))

// Sets name to "ZENT_DL" and *kind to 1, reads the server's version; returns 1.
ZDL_EXPORT int ModuleInit(std::string& name, unsigned* kind);

// Registers the libraries of `port` listed in section "dealer-library" of the
// file libraryList, and the audit size limit from section "General" of
// serverSettings. Returns 1, or 0 when the library section is empty.
ZDL_EXPORT int InitDB(const std::string& libraryList, const std::string& serverSettings, int port);

// Frees every file `user` holds on `port`. 0 for an unknown port, else 1.
ZDL_EXPORT int Reset(int user, int port);

// The name of the library `user` holds on `port`, or an empty string. The
// server calls it with C linkage and takes the string object itself, since it
// shares the compiler and standard library with the module.
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif
ZDL_EXPORT std::string GetDLInUse(int user, int port);
#if defined(__clang__)
#pragma clang diagnostic pop
#endif

// Handles one request in place: arguments in `message`, the reply goes back in
// it. Returns 1 on success, 0 on failure. A malformed message raises
// CAlertException, which is the server's to catch.
ZDL_EXPORT int Execute(const std::string& command, CAlert& message, int user, int port,
                       const std::string& userName);

// The registry, by port. Records are never erased, so pointers stay valid.
extern std::map<int, tagDL_work> g_mapDL_work;
