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

// Records of the remaining scalar and list shapes. Strings after the firm code
// are "strParam" when there is one, else "strParam1", "strParam2", ...;
// numbers are "intParam1", "boolParam1", "doubleParam1", ...; lists are
// "lsStrings", "lsInts" and "lsDoubles". Fields stand in the order of the
// settings function's arguments.
ZDL_DECLARE_RECORD(TDL_FourStringsAndInt, (std::string, firmCode), (int, intParam1), (std::string, strParam1), (std::string, strParam2), (std::string, strParam3));

ZDL_DECLARE_RECORD(TDL_ThreeStringsAndInt, (std::string, firmCode), (int, intParam1), (std::string, strParam1), (std::string, strParam2));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndInt, (std::string, firmCode), (std::string, strParam), (int, intParam1));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndBool, (std::string, firmCode), (std::string, strParam), (bool, boolParam1));

ZDL_DECLARE_RECORD(TDL_ThreeStringsAndBool, (std::string, firmCode), (std::string, strParam1), (std::string, strParam2), (bool, boolParam1));

ZDL_DECLARE_RECORD(TDL_StringAndOneDouble, (std::string, firmCode), (double, doubleParam1));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndDouble, (std::string, firmCode), (std::string, strParam), (double, doubleParam1));

ZDL_DECLARE_RECORD(TDL_ThreeStringsAndDouble, (std::string, firmCode), (std::string, strParam1), (std::string, strParam2), (double, doubleParam1));

ZDL_DECLARE_RECORD(TDL_StringWithDoubleAndString, (std::string, firmCode), (double, doubleParam1), (std::string, strParam));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndThreeDouble, (std::string, firmCode), (std::string, strParam), (double, doubleParam1), (double, doubleParam2), (double, doubleParam3));

ZDL_DECLARE_RECORD(TDL_StringAndTwoDouble, (std::string, firmCode), (double, doubleParam1), (double, doubleParam2));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndTwoDouble, (std::string, firmCode), (std::string, strParam), (double, doubleParam1), (double, doubleParam2));

ZDL_DECLARE_RECORD(TDL_ThreeStringsAndTwoDouble, (std::string, firmCode), (std::string, strParam1), (std::string, strParam2), (double, doubleParam1), (double, doubleParam2));

ZDL_DECLARE_RECORD(TDL_ThreeStringsAndArray, (std::string, firmCode), (std::string, strParam1), (std::string, strParam2), (std::vector<std::string>, lsStrings));

ZDL_DECLARE_RECORD(TDL_StringAndArrayInt, (std::string, firmCode), (std::vector<int>, lsInts));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndArrayDouble, (std::string, firmCode), (std::string, strParam), (std::vector<double>, lsDoubles));

// An element of a list of code pairs.
ZDL_DECLARE_RECORD(TDL_StringsPair, (std::string, str1), (std::string, str2));

ZDL_DECLARE_RECORD(TDL_StringAndArrayOfPairs, (std::string, firmCode), (std::vector<TDL_StringsPair>, lsPairs));

ZDL_DECLARE_RECORD(TDL_StringWithIntAndArrayOfPairs, (std::string, firmCode), (int, intParam1), (std::vector<TDL_StringsPair>, lsPairs));
