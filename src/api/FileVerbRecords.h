#pragma once
// Argument records of the five file verbs of the remote settings API.
#include <string>
#include <vector>

#include "api/RecordFields.h"

// nMode 0 opens for writing, anything else for reading only.
ZDL_DECLARE_RECORD(TDL_DLOpenFile, (std::string, firmCode), (int, nMode));

ZDL_DECLARE_RECORD(TDL_DLUpdateFile, (std::string, firmCode));

ZDL_DECLARE_RECORD(TDL_DLCloseFile, (std::string, firmCode));

ZDL_DECLARE_RECORD(TDL_DLGetFirmList, (std::vector<StorageNamed::STL_string>, lsFirmList));
