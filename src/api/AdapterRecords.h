#pragma once
// The generic records of the adapters: named after their shape, shared by all
// commands of a shape, one type for request and reply. Fields travel in the
// order and under the names listed.
#include <string>
#include <vector>

#include "api/RecordFields.h"

ZDL_DECLARE_RECORD(TDL_String, (std::string, firmCode));

ZDL_DECLARE_RECORD(TDL_TwoStrings, (std::string, firmCode), (std::string, strParam));

ZDL_DECLARE_RECORD(TDL_ThreeStrings, (std::string, firmCode), (std::string, strParam1), (std::string, strParam2));

ZDL_DECLARE_RECORD(TDL_StringAndBool, (std::string, firmCode), (bool, boolParam1));

ZDL_DECLARE_RECORD(TDL_StringAndInt, (std::string, firmCode), (int, intParam1));

ZDL_DECLARE_RECORD(TDL_StringAndArray, (std::string, firmCode), (std::vector<std::string>, lsStrings));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndArray, (std::string, firmCode), (std::string, strParam), (std::vector<std::string>, lsStrings));

ZDL_DECLARE_RECORD(TDL_ThreeStringsAndIntAndArrayStrings, (std::string, strParam1), (int, intParam), (std::string, strParam2), (std::string, strParam3), (std::vector<std::string>, lsStrings));

ZDL_DECLARE_RECORD(TDL_StringAndThreeDouble, (std::string, firmCode), (double, doubleParam1), (double, doubleParam2), (double, doubleParam3));
