#pragma once
// Argument records of the five file verbs of the remote settings API.
#include <string>
#include <vector>

#include "api/RecordFields.h"

#define TDL_DLOpenFile_FIELDS(FIELD) \
  FIELD(std::string, firmCode)       \
  FIELD(int, nMode) /* 0 opens for writing, anything else for reading only */
ZDL_DECLARE_RECORD(TDL_DLOpenFile, TDL_DLOpenFile_FIELDS);

#define TDL_DLUpdateFile_FIELDS(FIELD) FIELD(std::string, firmCode)
ZDL_DECLARE_RECORD(TDL_DLUpdateFile, TDL_DLUpdateFile_FIELDS);

#define TDL_DLCloseFile_FIELDS(FIELD) FIELD(std::string, firmCode)
ZDL_DECLARE_RECORD(TDL_DLCloseFile, TDL_DLCloseFile_FIELDS);

#define TDL_DLGetFirmList_FIELDS(FIELD) FIELD(std::vector<StorageNamed::STL_string>, lsFirmList)
ZDL_DECLARE_RECORD(TDL_DLGetFirmList, TDL_DLGetFirmList_FIELDS);
