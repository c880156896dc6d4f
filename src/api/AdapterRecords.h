#pragma once
// The generic records of the adapters: named after their shape, shared by all
// commands of a shape, one type for request and reply. Fields travel in the
// order and under the names listed.
#include <string>
#include <vector>

#include "api/RecordFields.h"

#define TDL_String_FIELDS(FIELD) FIELD(std::string, firmCode)
ZDL_DECLARE_RECORD(TDL_String, TDL_String_FIELDS);

#define TDL_TwoStrings_FIELDS(FIELD) \
  FIELD(std::string, firmCode)       \
  FIELD(std::string, strParam)
ZDL_DECLARE_RECORD(TDL_TwoStrings, TDL_TwoStrings_FIELDS);

#define TDL_ThreeStrings_FIELDS(FIELD) \
  FIELD(std::string, firmCode)         \
  FIELD(std::string, strParam1)        \
  FIELD(std::string, strParam2)
ZDL_DECLARE_RECORD(TDL_ThreeStrings, TDL_ThreeStrings_FIELDS);

#define TDL_StringAndBool_FIELDS(FIELD) \
  FIELD(std::string, firmCode)          \
  FIELD(bool, boolParam1)
ZDL_DECLARE_RECORD(TDL_StringAndBool, TDL_StringAndBool_FIELDS);

#define TDL_StringAndInt_FIELDS(FIELD) \
  FIELD(std::string, firmCode)         \
  FIELD(int, intParam1)
ZDL_DECLARE_RECORD(TDL_StringAndInt, TDL_StringAndInt_FIELDS);

#define TDL_StringAndArray_FIELDS(FIELD) \
  FIELD(std::string, firmCode)           \
  FIELD(std::vector<std::string>, lsStrings)
ZDL_DECLARE_RECORD(TDL_StringAndArray, TDL_StringAndArray_FIELDS);

#define TDL_TwoStringsAndArray_FIELDS(FIELD) \
  FIELD(std::string, firmCode)               \
  FIELD(std::string, strParam)               \
  FIELD(std::vector<std::string>, lsStrings)
ZDL_DECLARE_RECORD(TDL_TwoStringsAndArray, TDL_TwoStringsAndArray_FIELDS);

#define TDL_ThreeStringsAndIntAndArrayStrings_FIELDS(FIELD) \
  FIELD(std::string, strParam1)                             \
  FIELD(int, intParam)                                      \
  FIELD(std::string, strParam2)                             \
  FIELD(std::string, strParam3)                             \
  FIELD(std::vector<std::string>, lsStrings)
ZDL_DECLARE_RECORD(TDL_ThreeStringsAndIntAndArrayStrings, TDL_ThreeStringsAndIntAndArrayStrings_FIELDS);

#define TDL_StringAndThreeDouble_FIELDS(FIELD) \
  FIELD(std::string, firmCode)                 \
  FIELD(double, doubleParam1)                  \
  FIELD(double, doubleParam2)                  \
  FIELD(double, doubleParam3)
ZDL_DECLARE_RECORD(TDL_StringAndThreeDouble, TDL_StringAndThreeDouble_FIELDS);
