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

ZDL_DECLARE_RECORD(TDL_TwoStringsAndArrayOfPairs, (std::string, firmCode), (std::string, strParam), (std::vector<TDL_StringsPair>, lsPairs));

// ---- Elements of the composite lists --------------------------------------

// A limit kind and its classes or securities.
ZDL_DECLARE_RECORD(TDL_IntToArrayString, (int, intParam), (std::vector<std::string>, lsStrings));

// A limit kind with its settle codes and classes.
ZDL_DECLARE_RECORD(TDL_IntToSettleCodeListToClassList, (int, intParam), (std::vector<std::string>, lsSettleCodes), (std::vector<std::string>, lsClasses));

// A code (class, security, tag, currency) and the list that belongs to it.
ZDL_DECLARE_RECORD(TDL_StringListToString, (std::string, str), (std::vector<std::string>, lsStrings));

// A currency and its classes.
ZDL_DECLARE_RECORD(TDL_ClassListForCurrency, (std::string, currency), (std::vector<std::string>, lsClasses));
// A price limit of a class or security: deviation in per cent, price type, reject.
ZDL_DECLARE_RECORD(TDL_PriceLimit, (std::string, classCode), (double, deviation), (int, priceType), (bool, reject));
// A smallest order value: its classes, its securities, the value and its currency.
ZDL_DECLARE_RECORD(TDL_MinOrderValue, (std::vector<std::string>, lsClasses), (std::vector<std::string>, lsInstruments), (double, value), (std::string, currency));

// A currency and its discount.
ZDL_DECLARE_RECORD(TDL_StringAndDouble, (std::string, str), (double, value));

// A code and the codes it maps to.
ZDL_DECLARE_RECORD(TDL_StringToArrayStrings, (std::string, strCode), (std::vector<std::string>, lsStrings));

// A class with its settle codes, each with its securities.
ZDL_DECLARE_RECORD(TDL_ClassToSettleCodeToSec, (std::string, strCode), (std::vector<TDL_StringToArrayStrings>, lsSettleCodes));

// Two codes and a list.
ZDL_DECLARE_RECORD(TDL_TwoStringsAndArrayStrings, (std::string, str1), (std::string, str2), (std::vector<std::string>, lsStrings));

// ---- Records of the composite shapes --------------------------------------
// The list of a composite shape travels as "lsItems"; the other fields follow
// the scheme above.
ZDL_DECLARE_RECORD(TDL_StringAndArrayIntForString, (std::string, firmCode), (std::vector<TDL_IntToArrayString>, lsItems));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndArrayIntForString, (std::string, firmCode), (std::string, strParam), (std::vector<TDL_IntToArrayString>, lsItems));

ZDL_DECLARE_RECORD(TDL_StringAndArrayIntForStringForString, (std::string, firmCode), (std::vector<TDL_IntToSettleCodeListToClassList>, lsItems));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndArrayIntForStringForString, (std::string, firmCode), (std::string, strParam), (std::vector<TDL_IntToSettleCodeListToClassList>, lsItems));

ZDL_DECLARE_RECORD(TDL_StringAndStringLists, (std::string, firmCode), (std::vector<TDL_StringListToString>, lsItems));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndStringLists, (std::string, firmCode), (std::string, strParam), (std::vector<TDL_StringListToString>, lsItems));

ZDL_DECLARE_RECORD(TDL_StringAndClassListForCurrency, (std::string, firmCode), (std::vector<TDL_ClassListForCurrency>, lsItems));

ZDL_DECLARE_RECORD(TDL_TwoStringsAndArrayCurrencyWithDiscount, (std::string, firmCode), (std::string, strParam), (std::vector<TDL_StringAndDouble>, lsItems));

ZDL_DECLARE_RECORD(TDL_ThreeStringsAndArrayCurrencyWithDiscount, (std::string, firmCode), (std::string, strParam1), (std::string, strParam2), (std::vector<TDL_StringAndDouble>, lsItems));

ZDL_DECLARE_RECORD(TDL_StringAndDerivativesBaseAssetsList, (std::string, firmCode), (std::vector<TDL_StringToArrayStrings>, lsItems));

ZDL_DECLARE_RECORD(TDL_StringWithIntAndClassToSettleCodeList, (std::string, firmCode), (int, intParam1), (std::vector<TDL_StringToArrayStrings>, lsItems));

ZDL_DECLARE_RECORD(TDL_StringWithIntAndClassToSettleCodeToSecList, (std::string, firmCode), (int, intParam1), (std::vector<TDL_ClassToSettleCodeToSec>, lsItems));

ZDL_DECLARE_RECORD(TDL_StringWithIntAndArrayOfTwoStringsAndArrayStrings, (std::string, firmCode), (int, intParam1), (std::vector<TDL_TwoStringsAndArrayStrings>, lsItems));
