#pragma once
// Result codes of the settings layer (TInfoStorage and the ZDL_ functions).
// 0 is success; the remote API passes them on as 1000 plus the code.

enum ZDLErrors : int {
  ZDL_OK = 0,
  ZDL_FAILED = 1,                     // the change did not take, or a caught exception
  ZDL_FIRM_NOT_LOADED = 2,
  ZDL_BAD_ARGUMENT = 3,               // null or empty where a value is needed, out of range, wrong type
  ZDL_NOT_FOUND = 4,                  // section, parameter or item not found
  ZDL_CLASS_CODE_TOO_LONG = 9,
  ZDL_CLIENT_CODE_TOO_LONG = 10,
  ZDL_CURR_CODE_TOO_LONG = 11,
  ZDL_FUT_CLIENT_PAIR_TOO_LONG = 12,  // client code or trade account of a future client pair
  ZDL_SEC_CODE_TOO_LONG = 13,
  ZDL_TRADE_ACCOUNT_TOO_LONG = 14,
  ZDL_TEMPLATE_NOT_EXIST = 15,
  ZDL_ALREADY_EXISTS = 16,            // the item, the section, or the client in a template of this kind
  ZDL_PARTNER_CODE_TOO_LONG = 17,
  ZDL_SETTLE_CODE_TOO_LONG = 18,
  ZDL_WRONG_SCOPE = 19,
  ZDL_CLIENT_SETTINGS_NOT_EXIST = 20,
  ZDL_TEMPLATE_CODE_TOO_LONG = 21,
  ZDL_TAG_TOO_LONG = 22,
  ZDL_SUBBROKER_NOT_FOUND = 23,
  ZDL_ROW_TOO_LONG = 24,              // set name or row longer than 255
  ZDL_SCALE_HAS_NO_ROWS = 25,         // commission scale section has no rows
  ZDL_USER_SETTINGS_NOT_EXIST = 26,
};
