#pragma once
// The settings API: flat functions over plain records, one per operation on a
// firm's settings. Each takes the firm code first and returns a ZDLErrors
// code; a firm that is not loaded gives 2. Arrays passed in stay the caller's;
// arrays and strings handed out belong to the firm's memory until given back
// with ZDL_FreeMemory (and die with the firm).
#include "base/ApiRecords.h"

namespace DL {
class TFirmManager;
}  // namespace DL

// The registry all ZDL_ functions reach firms through.
DL::TFirmManager& ZDL_GetFirmManager();

// Loads (or reloads) the firm from a settings file (type 1) or from the whole
// text (type 2). 0, or 2 when no storage could be built. A hole in the
// program's own tables raises CErrors and leaves a loaded firm as it was.
[[nodiscard]] int ZDL_LoadSettingsForFirm(const char* firm, const char* ini_source_name, int ini_source_type);

// The canonical settings text of the firm in *text; give it back with ZDL_FreeMemory.
[[nodiscard]] int ZDL_SaveSettingsToMemory(const char* firm, char** text);

// Gives back a block the firm handed out (see TMemory::FreeMemory).
[[nodiscard]] int ZDL_FreeMemory(const char* firm, void** block);

// Drops the firm's settings: 0, or 4 when it is not loaded.
[[nodiscard]] int ZDL_FinishWorkWithFirm(const char* firm);

// Tells whether the firm is loaded (0) or not (2). It writes nothing: a firm's
// text goes out only through ZDL_SaveSettingsToMemory.
[[nodiscard]] int ZDL_SaveSettingsToFile(const char* firm, const char* path);

// ---- The operations of the remote commands ----

// "(const char* firm, <the parameters of the line>)".
#define ZDL_FIRM_AND_(...) (const char* firm __VA_OPT__(, ) __VA_ARGS__)
// "(firm, <the arguments of the line>)".
#define ZDL_FIRM_ARGS_(...) (firm __VA_OPT__(, ) __VA_ARGS__)

// ZDL_<name> for every line of SettingsOperations.def, where its meaning is told.
#define ZDL_OPERATION(home, name, qualifier, params, args) [[nodiscard]] int ZDL_##name ZDL_FIRM_AND_ params;
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION
