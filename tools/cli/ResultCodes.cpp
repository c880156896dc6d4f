#include "tools/cli/ResultCodes.h"

#include "base/ResultCodes.h"

namespace zentdl {

std::string SettingsCodeMeaning(int code) {
  switch (code) {
    case ZDL_OK: return "success";
    case ZDL_FAILED: return "the change did not take";
    case ZDL_FIRM_NOT_LOADED: return "firm not loaded";
    case ZDL_BAD_ARGUMENT: return "bad argument (null, empty, out of range or of the wrong type)";
    case ZDL_NOT_FOUND: return "not found (section, parameter or item)";
    case ZDL_CLASS_CODE_TOO_LONG: return "class code too long";
    case ZDL_CLIENT_CODE_TOO_LONG: return "client code too long";
    case ZDL_CURR_CODE_TOO_LONG: return "currency code too long";
    case ZDL_FUT_CLIENT_PAIR_TOO_LONG: return "client code or trade account of a futures client pair too long";
    case ZDL_SEC_CODE_TOO_LONG: return "security code too long";
    case ZDL_TRADE_ACCOUNT_TOO_LONG: return "trade account too long";
    case ZDL_TEMPLATE_NOT_EXIST: return "template missing";
    case ZDL_ALREADY_EXISTS: return "already exists";
    case ZDL_PARTNER_CODE_TOO_LONG: return "partner code too long";
    case ZDL_SETTLE_CODE_TOO_LONG: return "settle code too long";
    case ZDL_WRONG_SCOPE: return "wrong scope (0 normal, 1 soft)";
    case ZDL_CLIENT_SETTINGS_NOT_EXIST: return "client settings missing";
    case ZDL_TEMPLATE_CODE_TOO_LONG: return "template code too long";
    case ZDL_TAG_TOO_LONG: return "tag too long";
    case ZDL_SUBBROKER_NOT_FOUND: return "sub-broker not found";
    case ZDL_ROW_TOO_LONG: return "set name or row longer than 255";
    case ZDL_SCALE_HAS_NO_ROWS: return "commission scale has no rows";
    case ZDL_USER_SETTINGS_NOT_EXIST: return "user settings missing";
    default: return "unknown result code";
  }
}

std::string RemoteCodeMeaning(int code) {
  switch (code) {
    case 0: return "success";
    case 1: return "unknown command (for DLGetClassList: the host's database module or its Execute is missing)";
    case 9: return "the firm code is not a library of this port";
    case 11: return "another user holds the file, or the record's firm is not the firm you hold";
    case 12: return "read-only: Add, Remove and Set need a library opened for writing (DLOpenFile with nMode 0)";
    case 13: return "DLUpdateFile: you do not hold the file, or writing or replacing it failed";
    case 1001: return "DLOpenFile: the library file could not be opened; otherwise settings code 1: " +
                      SettingsCodeMeaning(1);
    case 1002: return "DLCloseFile: you do not have the file open; otherwise settings code 2: " +
                      SettingsCodeMeaning(2) + " (open the library first)";
    default: break;
  }
  if (code > 1000) return "settings code " + std::to_string(code - 1000) + ": " + SettingsCodeMeaning(code - 1000);
  return "unknown result code";
}

}  // namespace zentdl
