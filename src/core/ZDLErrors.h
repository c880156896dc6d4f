#pragma once
// Result codes of the settings API. Every ZDL_ function and TInfoStorage
// operation returns one of these (TInfoStorage::Refresh excepted, whose
// success is 1).
enum ZDLErrors : int {
  ZDL_OK = 0,
  ZDL_FAILURE = 1,                  // the change did not take, or a caught exception
  ZDL_FIRM_NOT_LOADED = 2,
  ZDL_BAD_ARGUMENT = 3,             // null, empty, out of range or wrong type
  ZDL_NOT_FOUND = 4,                // section, parameter or item absent
  ZDL_CLASS_CODE_TOO_LONG = 9,
  ZDL_CLIENT_CODE_TOO_LONG = 10,
  ZDL_CURRENCY_CODE_TOO_LONG = 11,
  ZDL_FUT_CLIENT_PAIR_TOO_LONG = 12,  // client code or trade account of a future client pair
  ZDL_SEC_CODE_TOO_LONG = 13,
  ZDL_TRADE_ACCOUNT_TOO_LONG = 14,
  ZDL_TEMPLATE_MISSING = 15,
  ZDL_ALREADY_EXISTS = 16,
  ZDL_PARTNER_CODE_TOO_LONG = 17,
  ZDL_SETTLE_CODE_TOO_LONG = 18,
  ZDL_WRONG_SCOPE = 19,
  ZDL_CLIENT_SETTINGS_MISSING = 20,
  ZDL_TEMPLATE_CODE_TOO_LONG = 21,
  ZDL_TAG_TOO_LONG = 22,
  ZDL_SUBBROKER_NOT_FOUND = 23,
  ZDL_SET_NAME_TOO_LONG = 24,       // set name or row longer than 255
  ZDL_COMMISSION_SCALE_EMPTY = 25,
  ZDL_USER_SETTINGS_MISSING = 26,
};
