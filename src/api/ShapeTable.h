#pragma once
// Every generic adapter shape, declared once: the record it decodes, the
// arguments handed to the settings function in their order, the result it
// reads back or the change line it notes. TShape<S>::Run is the adapter
// CallDLFunction_<S>; TShape<S>::kBuilt is false for a shape not declared
// here (its commands cannot be registered).
#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/ShapeAdapter.h"

namespace DL::Adapters {

template <EAdapterShape S>
struct TShape {
  static constexpr bool kBuilt = false;
};

#define ZDL_SHAPE_DECLARE(name, ...)                   \
  template <>                                          \
  struct TShape<EAdapterShape::name> : __VA_ARGS__ {   \
    static constexpr bool kBuilt = true;               \
  };

namespace ShapeRows {
using namespace Shape;
using S1 = TDL_String;
using S2 = TDL_TwoStrings;
using S3 = TDL_ThreeStrings;
using SI = TDL_StringAndInt;
using SB = TDL_StringAndBool;
using SD = TDL_StringAndOneDouble;
using S4I = TDL_FourStringsAndInt;
using S3I = TDL_ThreeStringsAndInt;
using S2I = TDL_TwoStringsAndInt;
using S2B = TDL_TwoStringsAndBool;
using S3B = TDL_ThreeStringsAndBool;
using S2D = TDL_TwoStringsAndDouble;
using S3D = TDL_ThreeStringsAndDouble;
using SDS = TDL_StringWithDoubleAndString;
using SDDD = TDL_StringAndThreeDouble;
using S2DDD = TDL_TwoStringsAndThreeDouble;
using SDD = TDL_StringAndTwoDouble;
using S2DD = TDL_TwoStringsAndTwoDouble;
using S3DD = TDL_ThreeStringsAndTwoDouble;
using SA = TDL_StringAndArray;
using S2A = TDL_TwoStringsAndArray;
using S3A = TDL_ThreeStringsAndArray;
using S3IA = TDL_ThreeStringsAndIntAndArrayStrings;
using SAI = TDL_StringAndArrayInt;
using S2AD = TDL_TwoStringsAndArrayDouble;
using SAP = TDL_StringAndArrayOfPairs;
using SIAP = TDL_StringWithIntAndArrayOfPairs;
using S2AP = TDL_TwoStringsAndArrayOfPairs;
using SIFS = TDL_StringAndArrayIntForString;
using S2IFS = TDL_TwoStringsAndArrayIntForString;
using SIFSS = TDL_StringAndArrayIntForStringForString;
using S2IFSS = TDL_TwoStringsAndArrayIntForStringForString;
using SSL = TDL_StringAndStringLists;
using S2SL = TDL_TwoStringsAndStringLists;
using SCLC = TDL_StringAndClassListForCurrency;
using S2CD = TDL_TwoStringsAndArrayCurrencyWithDiscount;
using S3CD = TDL_ThreeStringsAndArrayCurrencyWithDiscount;
using SDBA = TDL_StringAndDerivativesBaseAssetsList;
using SICS = TDL_StringWithIntAndClassToSettleCodeList;
using SICSS = TDL_StringWithIntAndClassToSettleCodeToSecList;
using SI2SA = TDL_StringWithIntAndArrayOfTwoStringsAndArrayStrings;
// Limit kinds by class or by security: one shape for both array types.
template <auto Member>
using IntForString = EitherComposite<ZDL_ArrayClassToLimitKind, ZDL_ArraySecToLimitKind, Member>;
template <auto Member>
using OutIntForString = OutEitherArray<ZDL_ArrayClassToLimitKind, ZDL_ArraySecToLimitKind, Member>;
}  // namespace ShapeRows

// clang-format off
// ---- Shapes that send ----
ZDL_SHAPE_DECLARE(SendOneString, ShapeRows::TSend<ShapeRows::S1, Shape::LineOneString, Shape::Str<&ShapeRows::S1::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoStrings, ShapeRows::TSend<ShapeRows::S2, Shape::LineTwoStrings, Shape::Str<&ShapeRows::S2::firmCode>, Shape::Str<&ShapeRows::S2::strParam>>)
ZDL_SHAPE_DECLARE(SendThreeStrings, ShapeRows::TSend<ShapeRows::S3, Shape::LineArguments, Shape::Str<&ShapeRows::S3::firmCode>, Shape::Str<&ShapeRows::S3::strParam1>, Shape::Str<&ShapeRows::S3::strParam2>>)
ZDL_SHAPE_DECLARE(SendOneStringAndInt, ShapeRows::TSend<ShapeRows::SI, Shape::LineArguments, Shape::Str<&ShapeRows::SI::firmCode>, Shape::Val<&ShapeRows::SI::intParam1>>)
ZDL_SHAPE_DECLARE(SendFourStringsAndInt, ShapeRows::TSend<ShapeRows::S4I, Shape::LineArguments, Shape::Str<&ShapeRows::S4I::firmCode>, Shape::Val<&ShapeRows::S4I::intParam1>, Shape::Str<&ShapeRows::S4I::strParam1>, Shape::Str<&ShapeRows::S4I::strParam2>, Shape::Str<&ShapeRows::S4I::strParam3>>)
ZDL_SHAPE_DECLARE(SendThreeStringsAndInt, ShapeRows::TSend<ShapeRows::S3I, Shape::LineArguments, Shape::Str<&ShapeRows::S3I::firmCode>, Shape::Val<&ShapeRows::S3I::intParam1>, Shape::Str<&ShapeRows::S3I::strParam1>, Shape::Str<&ShapeRows::S3I::strParam2>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndInt, ShapeRows::TSend<ShapeRows::S2I, Shape::LineArguments, Shape::Str<&ShapeRows::S2I::firmCode>, Shape::Str<&ShapeRows::S2I::strParam>, Shape::Val<&ShapeRows::S2I::intParam1>>)
ZDL_SHAPE_DECLARE(SendOneStringAndBool, ShapeRows::TSend<ShapeRows::SB, Shape::LineStringAndBool, Shape::Str<&ShapeRows::SB::firmCode>, Shape::Val<&ShapeRows::SB::boolParam1>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndBool, ShapeRows::TSend<ShapeRows::S2B, Shape::LineArguments, Shape::Str<&ShapeRows::S2B::firmCode>, Shape::Str<&ShapeRows::S2B::strParam>, Shape::Val<&ShapeRows::S2B::boolParam1>>)
ZDL_SHAPE_DECLARE(SendThreeStringsAndBool, ShapeRows::TSend<ShapeRows::S3B, Shape::LineArguments, Shape::Str<&ShapeRows::S3B::firmCode>, Shape::Str<&ShapeRows::S3B::strParam1>, Shape::Str<&ShapeRows::S3B::strParam2>, Shape::Val<&ShapeRows::S3B::boolParam1>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndDouble, ShapeRows::TSend<ShapeRows::S2D, Shape::LineArguments, Shape::Str<&ShapeRows::S2D::firmCode>, Shape::Str<&ShapeRows::S2D::strParam>, Shape::Val<&ShapeRows::S2D::doubleParam1>>)
ZDL_SHAPE_DECLARE(SendOneStringAndBaseDiscCoeff, ShapeRows::TSend<ShapeRows::SDDD, Shape::LineArguments, Shape::Str<&ShapeRows::SDDD::firmCode>, Shape::DiscCoeff<&ShapeRows::SDDD::doubleParam1, &ShapeRows::SDDD::doubleParam2, &ShapeRows::SDDD::doubleParam3>>)
ZDL_SHAPE_DECLARE(SendThreeStringsAndDouble, ShapeRows::TSend<ShapeRows::S3D, Shape::LineArguments, Shape::Str<&ShapeRows::S3D::firmCode>, Shape::Str<&ShapeRows::S3D::strParam1>, Shape::Str<&ShapeRows::S3D::strParam2>, Shape::Val<&ShapeRows::S3D::doubleParam1>>)
ZDL_SHAPE_DECLARE(SendStringAndVolatilityChangeScenarios, ShapeRows::TSend<ShapeRows::SDD, Shape::LineArguments, Shape::Str<&ShapeRows::SDD::firmCode>, Shape::Scenarios<&ShapeRows::SDD::doubleParam1, &ShapeRows::SDD::doubleParam2>>)
ZDL_SHAPE_DECLARE(SendTwoStringAndVolatilityChangeScenarios, ShapeRows::TSend<ShapeRows::S2DD, Shape::LineArguments, Shape::Str<&ShapeRows::S2DD::firmCode>, Shape::Str<&ShapeRows::S2DD::strParam>, Shape::Scenarios<&ShapeRows::S2DD::doubleParam1, &ShapeRows::S2DD::doubleParam2>>)
ZDL_SHAPE_DECLARE(SendOneStringAndDouble, ShapeRows::TSend<ShapeRows::SD, Shape::LineArguments, Shape::Str<&ShapeRows::SD::firmCode>, Shape::Val<&ShapeRows::SD::doubleParam1>>)
ZDL_SHAPE_DECLARE(SendTwoStringAndBaseDiscCoeff, ShapeRows::TSend<ShapeRows::S2DDD, Shape::LineArguments, Shape::Str<&ShapeRows::S2DDD::firmCode>, Shape::Str<&ShapeRows::S2DDD::strParam>, Shape::DiscCoeff<&ShapeRows::S2DDD::doubleParam1, &ShapeRows::S2DDD::doubleParam2, &ShapeRows::S2DDD::doubleParam3>>)
ZDL_SHAPE_DECLARE(SendThreeStringAndVolatilityChangeScenarios, ShapeRows::TSend<ShapeRows::S3DD, Shape::LineArguments, Shape::Str<&ShapeRows::S3DD::firmCode>, Shape::Str<&ShapeRows::S3DD::strParam1>, Shape::Str<&ShapeRows::S3DD::strParam2>, Shape::Scenarios<&ShapeRows::S3DD::doubleParam1, &ShapeRows::S3DD::doubleParam2>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndArrayDoubleNumbers, ShapeRows::TSend<ShapeRows::S2AD, Shape::LineArguments, Shape::Str<&ShapeRows::S2AD::firmCode>, Shape::Str<&ShapeRows::S2AD::strParam>, Shape::Doubles<&ShapeRows::S2AD::lsDoubles>>)
ZDL_SHAPE_DECLARE(SendOneStringAndArrayStrings, ShapeRows::TSend<ShapeRows::SA, Shape::LineStringAndArray, Shape::Str<&ShapeRows::SA::firmCode>, Shape::Strings<&ShapeRows::SA::lsStrings>>)
ZDL_SHAPE_DECLARE(SendStringAndArrayStrings, ShapeRows::TSend<ShapeRows::SA, Shape::LineStringAndArray, Shape::Str<&ShapeRows::SA::firmCode>, Shape::Strings<&ShapeRows::SA::lsStrings>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndArrayStrings, ShapeRows::TSend<ShapeRows::S2A, Shape::LineArguments, Shape::Str<&ShapeRows::S2A::firmCode>, Shape::Str<&ShapeRows::S2A::strParam>, Shape::Strings<&ShapeRows::S2A::lsStrings>>)
ZDL_SHAPE_DECLARE(SendThreeStringsAndArrayStrings, ShapeRows::TSend<ShapeRows::S3A, Shape::LineArguments, Shape::Str<&ShapeRows::S3A::firmCode>, Shape::Str<&ShapeRows::S3A::strParam1>, Shape::Str<&ShapeRows::S3A::strParam2>, Shape::Strings<&ShapeRows::S3A::lsStrings>>)
ZDL_SHAPE_DECLARE(SendThreeStringsAndIntWithArrayStrings, ShapeRows::TSend<ShapeRows::S3IA, Shape::LineArguments, Shape::Str<&ShapeRows::S3IA::strParam1>, Shape::Val<&ShapeRows::S3IA::intParam>, Shape::Str<&ShapeRows::S3IA::strParam2>, Shape::Str<&ShapeRows::S3IA::strParam3>, Shape::Strings<&ShapeRows::S3IA::lsStrings>>)
ZDL_SHAPE_DECLARE(SendOneStringAndIntWithTwoStringsAndArrayStrings, ShapeRows::TSend<ShapeRows::S3IA, Shape::LineArguments, Shape::Str<&ShapeRows::S3IA::strParam1>, Shape::Val<&ShapeRows::S3IA::intParam>, Shape::Str<&ShapeRows::S3IA::strParam2>, Shape::Str<&ShapeRows::S3IA::strParam3>, Shape::Strings<&ShapeRows::S3IA::lsStrings>>)
ZDL_SHAPE_DECLARE(SendStringAndArrayOfPairOfStrings, ShapeRows::TSend<ShapeRows::SAP, Shape::LineArguments, Shape::Str<&ShapeRows::SAP::firmCode>, Shape::Pairs<&ShapeRows::SAP::lsPairs>>)
ZDL_SHAPE_DECLARE(SendStringAndDerivativesBaseAssetsList, ShapeRows::TSend<ShapeRows::SDBA, Shape::LineArguments, Shape::Str<&ShapeRows::SDBA::firmCode>, Shape::Composite<ZDL_DerivativesBaseAssetsList, &ShapeRows::SDBA::lsItems>>)
ZDL_SHAPE_DECLARE(SendStringAndClassListForCurrency, ShapeRows::TSend<ShapeRows::SCLC, Shape::LineArguments, Shape::Str<&ShapeRows::SCLC::firmCode>, Shape::Composite<ZDL_ArrayClassListForCurrency, &ShapeRows::SCLC::lsItems>>)
ZDL_SHAPE_DECLARE(SendStringAndStringListToTag, ShapeRows::TSend<ShapeRows::SSL, Shape::LineArguments, Shape::Str<&ShapeRows::SSL::firmCode>, Shape::Composite<ZDL_ArrayStringListToTag, &ShapeRows::SSL::lsItems>>)
ZDL_SHAPE_DECLARE(SendStringAndArrayOfStringListToClass, ShapeRows::TSend<ShapeRows::SSL, Shape::LineArguments, Shape::Str<&ShapeRows::SSL::firmCode>, Shape::Composite<ZDL_ArrayOfStringListToClass, &ShapeRows::SSL::lsItems>>)
ZDL_SHAPE_DECLARE(SendStringAndArrayOfStringListToSec, ShapeRows::TSend<ShapeRows::SSL, Shape::LineArguments, Shape::Str<&ShapeRows::SSL::firmCode>, Shape::Composite<ZDL_ArrayOfStringListToSec, &ShapeRows::SSL::lsItems>>)
ZDL_SHAPE_DECLARE(SendTwoStringAndStringListToTag, ShapeRows::TSend<ShapeRows::S2SL, Shape::LineArguments, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>, Shape::Composite<ZDL_ArrayStringListToTag, &ShapeRows::S2SL::lsItems>>)
ZDL_SHAPE_DECLARE(SendTwoStringAndArrayOfStringListToClass, ShapeRows::TSend<ShapeRows::S2SL, Shape::LineArguments, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>, Shape::Composite<ZDL_ArrayOfStringListToClass, &ShapeRows::S2SL::lsItems>>)
ZDL_SHAPE_DECLARE(SendTwoStringAndArrayOfStringListToSec, ShapeRows::TSend<ShapeRows::S2SL, Shape::LineArguments, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>, Shape::Composite<ZDL_ArrayOfStringListToSec, &ShapeRows::S2SL::lsItems>>)
ZDL_SHAPE_DECLARE(SendTwoStringAndStringListToCurrency, ShapeRows::TSend<ShapeRows::S2SL, Shape::LineArguments, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>, Shape::Composite<ZDL_ArrayOfStringListToCurrency, &ShapeRows::S2SL::lsItems>>)
ZDL_SHAPE_DECLARE(SendStringAndArrayIntForString, ShapeRows::TSend<ShapeRows::SIFS, Shape::LineArguments, Shape::Str<&ShapeRows::SIFS::firmCode>, ShapeRows::IntForString<&ShapeRows::SIFS::lsItems>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndArrayIntForString, ShapeRows::TSend<ShapeRows::S2IFS, Shape::LineArguments, Shape::Str<&ShapeRows::S2IFS::firmCode>, Shape::Str<&ShapeRows::S2IFS::strParam>, ShapeRows::IntForString<&ShapeRows::S2IFS::lsItems>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndArrayCurrencyWithDiscount, ShapeRows::TSend<ShapeRows::S2CD, Shape::LineArguments, Shape::Str<&ShapeRows::S2CD::firmCode>, Shape::Str<&ShapeRows::S2CD::strParam>, Shape::Composite<ZDL_ArrayCurrencyWithDiscount, &ShapeRows::S2CD::lsItems>>)
ZDL_SHAPE_DECLARE(SendThreeStringsAndArrayCurrencyWithDiscount, ShapeRows::TSend<ShapeRows::S3CD, Shape::LineArguments, Shape::Str<&ShapeRows::S3CD::firmCode>, Shape::Str<&ShapeRows::S3CD::strParam1>, Shape::Str<&ShapeRows::S3CD::strParam2>, Shape::Composite<ZDL_ArrayCurrencyWithDiscount, &ShapeRows::S3CD::lsItems>>)
ZDL_SHAPE_DECLARE(SendStringAndArrayIntForStringForString, ShapeRows::TSend<ShapeRows::SIFSS, Shape::LineArguments, Shape::Str<&ShapeRows::SIFSS::firmCode>, Shape::Composite<ZDL_ArrayLimitKindToSettleCodeListToClassList, &ShapeRows::SIFSS::lsItems>>)
ZDL_SHAPE_DECLARE(SendTwoStringsAndArrayIntForStringForString, ShapeRows::TSend<ShapeRows::S2IFSS, Shape::LineArguments, Shape::Str<&ShapeRows::S2IFSS::firmCode>, Shape::Str<&ShapeRows::S2IFSS::strParam>, Shape::Composite<ZDL_ArrayLimitKindToSettleCodeListToClassList, &ShapeRows::S2IFSS::lsItems>>)
ZDL_SHAPE_DECLARE(SendStringAndIntWithArrayOfTwoStringsAndArrayStrings, ShapeRows::TSend<ShapeRows::SI2SA, Shape::LineArguments, Shape::Str<&ShapeRows::SI2SA::firmCode>, Shape::Val<&ShapeRows::SI2SA::intParam1>, Shape::Composite<ZDL_ArrayOfTwoStringsAndArrayStrings, &ShapeRows::SI2SA::lsItems>>)

// ---- Shapes that read ----
ZDL_SHAPE_DECLARE(SendOneString_GetString, ShapeRows::TRead<ShapeRows::S2, Shape::OutStr<&ShapeRows::S2::strParam>, Shape::Str<&ShapeRows::S2::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetString, ShapeRows::TRead<ShapeRows::S3, Shape::OutStr<&ShapeRows::S3::strParam2>, Shape::Str<&ShapeRows::S3::firmCode>, Shape::Str<&ShapeRows::S3::strParam1>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetInt, ShapeRows::TRead<ShapeRows::S2I, Shape::OutVal<&ShapeRows::S2I::intParam1>, Shape::Str<&ShapeRows::S2I::firmCode>, Shape::Str<&ShapeRows::S2I::strParam>>)
ZDL_SHAPE_DECLARE(SendOneString_GetBool, ShapeRows::TRead<ShapeRows::SB, Shape::OutVal<&ShapeRows::SB::boolParam1>, Shape::Str<&ShapeRows::SB::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetBool, ShapeRows::TRead<ShapeRows::S2B, Shape::OutVal<&ShapeRows::S2B::boolParam1>, Shape::Str<&ShapeRows::S2B::firmCode>, Shape::Str<&ShapeRows::S2B::strParam>>)
ZDL_SHAPE_DECLARE(SendOneString_GetInt, ShapeRows::TRead<ShapeRows::SI, Shape::OutVal<&ShapeRows::SI::intParam1>, Shape::Str<&ShapeRows::SI::firmCode>>)
ZDL_SHAPE_DECLARE(SendThreeStrings_GetBool, ShapeRows::TRead<ShapeRows::S3B, Shape::OutVal<&ShapeRows::S3B::boolParam1>, Shape::Str<&ShapeRows::S3B::firmCode>, Shape::Str<&ShapeRows::S3B::strParam1>, Shape::Str<&ShapeRows::S3B::strParam2>>)
ZDL_SHAPE_DECLARE(SendStringWithDouble_GetString, ShapeRows::TRead<ShapeRows::SDS, Shape::OutStr<&ShapeRows::SDS::strParam>, Shape::Str<&ShapeRows::SDS::firmCode>, Shape::Val<&ShapeRows::SDS::doubleParam1>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetDouble, ShapeRows::TRead<ShapeRows::S2D, Shape::OutVal<&ShapeRows::S2D::doubleParam1>, Shape::Str<&ShapeRows::S2D::firmCode>, Shape::Str<&ShapeRows::S2D::strParam>>)
ZDL_SHAPE_DECLARE(SendOneString_GetBaseDiscCoeff, ShapeRows::TRead<ShapeRows::SDDD, Shape::OutDiscCoeff<&ShapeRows::SDDD::doubleParam1, &ShapeRows::SDDD::doubleParam2, &ShapeRows::SDDD::doubleParam3>, Shape::Str<&ShapeRows::SDDD::firmCode>>)
ZDL_SHAPE_DECLARE(SendThreeStrings_GetDouble, ShapeRows::TRead<ShapeRows::S3D, Shape::OutVal<&ShapeRows::S3D::doubleParam1>, Shape::Str<&ShapeRows::S3D::firmCode>, Shape::Str<&ShapeRows::S3D::strParam1>, Shape::Str<&ShapeRows::S3D::strParam2>>)
ZDL_SHAPE_DECLARE(SendTwoString_GetVolatilityChangeScenarios, ShapeRows::TRead<ShapeRows::S2DD, Shape::OutScenarios<&ShapeRows::S2DD::doubleParam1, &ShapeRows::S2DD::doubleParam2>, Shape::Str<&ShapeRows::S2DD::firmCode>, Shape::Str<&ShapeRows::S2DD::strParam>>)
ZDL_SHAPE_DECLARE(SendString_GetVolatilityChangeScenarios, ShapeRows::TRead<ShapeRows::SDD, Shape::OutScenarios<&ShapeRows::SDD::doubleParam1, &ShapeRows::SDD::doubleParam2>, Shape::Str<&ShapeRows::SDD::firmCode>>)
ZDL_SHAPE_DECLARE(SendOneString_GetDouble, ShapeRows::TRead<ShapeRows::SD, Shape::OutVal<&ShapeRows::SD::doubleParam1>, Shape::Str<&ShapeRows::SD::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoString_GetDiscCoeff, ShapeRows::TRead<ShapeRows::S2DDD, Shape::OutDiscCoeff<&ShapeRows::S2DDD::doubleParam1, &ShapeRows::S2DDD::doubleParam2, &ShapeRows::S2DDD::doubleParam3>, Shape::Str<&ShapeRows::S2DDD::firmCode>, Shape::Str<&ShapeRows::S2DDD::strParam>>)
ZDL_SHAPE_DECLARE(SendThreeString_GetVolatilityChangeScenarios, ShapeRows::TRead<ShapeRows::S3DD, Shape::OutScenarios<&ShapeRows::S3DD::doubleParam1, &ShapeRows::S3DD::doubleParam2>, Shape::Str<&ShapeRows::S3DD::firmCode>, Shape::Str<&ShapeRows::S3DD::strParam1>, Shape::Str<&ShapeRows::S3DD::strParam2>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetArrayDoubleNumbers, ShapeRows::TRead<ShapeRows::S2AD, Shape::OutDoubles<&ShapeRows::S2AD::lsDoubles>, Shape::Str<&ShapeRows::S2AD::firmCode>, Shape::Str<&ShapeRows::S2AD::strParam>>)
ZDL_SHAPE_DECLARE(SendOneString_GetArrayIntNumbers, ShapeRows::TRead<ShapeRows::SAI, Shape::OutInts<&ShapeRows::SAI::lsInts>, Shape::Str<&ShapeRows::SAI::firmCode>>)
ZDL_SHAPE_DECLARE(SendString_GetArrayStrings, ShapeRows::TRead<ShapeRows::SA, Shape::OutStrings<&ShapeRows::SA::lsStrings>, Shape::Str<&ShapeRows::SA::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetArrayStrings, ShapeRows::TRead<ShapeRows::S2A, Shape::OutStrings<&ShapeRows::S2A::lsStrings>, Shape::Str<&ShapeRows::S2A::firmCode>, Shape::Str<&ShapeRows::S2A::strParam>>)
ZDL_SHAPE_DECLARE(SendThreeStrings_GetArrayStrings, ShapeRows::TRead<ShapeRows::S3A, Shape::OutStrings<&ShapeRows::S3A::lsStrings>, Shape::Str<&ShapeRows::S3A::firmCode>, Shape::Str<&ShapeRows::S3A::strParam1>, Shape::Str<&ShapeRows::S3A::strParam2>>)
ZDL_SHAPE_DECLARE(SendThreeStringsWithInt_GetArrayStrings, ShapeRows::TRead<ShapeRows::S3IA, Shape::OutStrings<&ShapeRows::S3IA::lsStrings>, Shape::Str<&ShapeRows::S3IA::strParam1>, Shape::Val<&ShapeRows::S3IA::intParam>, Shape::Str<&ShapeRows::S3IA::strParam2>, Shape::Str<&ShapeRows::S3IA::strParam3>>)
ZDL_SHAPE_DECLARE(SendString_GetArrayOfPairOfStrings, ShapeRows::TRead<ShapeRows::SAP, Shape::OutArray<ZDL_ArrayCodeToCodeTrdaccToTrdacc, &ShapeRows::SAP::lsPairs>, Shape::Str<&ShapeRows::SAP::firmCode>>)
ZDL_SHAPE_DECLARE(SendStringWithInt_GetArrayOfStringToString, ShapeRows::TRead<ShapeRows::SIAP, Shape::OutArray<ZDL_ArrayStringToString, &ShapeRows::SIAP::lsPairs>, Shape::Str<&ShapeRows::SIAP::firmCode>, Shape::Val<&ShapeRows::SIAP::intParam1>>)
ZDL_SHAPE_DECLARE(SendString_GetDerivativesBaseAssetsList, ShapeRows::TRead<ShapeRows::SDBA, Shape::OutArray<ZDL_DerivativesBaseAssetsList, &ShapeRows::SDBA::lsItems>, Shape::Str<&ShapeRows::SDBA::firmCode>>)
ZDL_SHAPE_DECLARE(SendStringWithInt_GetClassToSettleCodeList, ShapeRows::TRead<ShapeRows::SICS, Shape::OutArray<ZDL_ArrayClassCodeToSettleCodeList, &ShapeRows::SICS::lsItems>, Shape::Str<&ShapeRows::SICS::firmCode>, Shape::Val<&ShapeRows::SICS::intParam1>>)
ZDL_SHAPE_DECLARE(GetChangeFutClientCodesByFirmFromGlobalEx, ShapeRows::TRead<ShapeRows::S2AP, Shape::OutArray<ZDL_ArrayClientCodeToTrdAcc, &ShapeRows::S2AP::lsPairs>, Shape::Str<&ShapeRows::S2AP::firmCode>, Shape::Str<&ShapeRows::S2AP::strParam>>)
ZDL_SHAPE_DECLARE(SendString_GetClassListForCurrency, ShapeRows::TRead<ShapeRows::SCLC, Shape::OutArray<ZDL_ArrayClassListForCurrency, &ShapeRows::SCLC::lsItems>, Shape::Str<&ShapeRows::SCLC::firmCode>>)
ZDL_SHAPE_DECLARE(SendString_GetStringListToTag, ShapeRows::TRead<ShapeRows::SSL, Shape::OutArray<ZDL_ArrayStringListToTag, &ShapeRows::SSL::lsItems>, Shape::Str<&ShapeRows::SSL::firmCode>>)
ZDL_SHAPE_DECLARE(SendString_GetArrayOfStringListToClass, ShapeRows::TRead<ShapeRows::SSL, Shape::OutArray<ZDL_ArrayOfStringListToClass, &ShapeRows::SSL::lsItems>, Shape::Str<&ShapeRows::SSL::firmCode>>)
ZDL_SHAPE_DECLARE(SendString_GetArrayOfStringListToSec, ShapeRows::TRead<ShapeRows::SSL, Shape::OutArray<ZDL_ArrayOfStringListToSec, &ShapeRows::SSL::lsItems>, Shape::Str<&ShapeRows::SSL::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetStringListToTag, ShapeRows::TRead<ShapeRows::S2SL, Shape::OutArray<ZDL_ArrayStringListToTag, &ShapeRows::S2SL::lsItems>, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetArrayOfStringListToClass, ShapeRows::TRead<ShapeRows::S2SL, Shape::OutArray<ZDL_ArrayOfStringListToClass, &ShapeRows::S2SL::lsItems>, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetArrayOfStringListToSec, ShapeRows::TRead<ShapeRows::S2SL, Shape::OutArray<ZDL_ArrayOfStringListToSec, &ShapeRows::S2SL::lsItems>, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetStringListToCurrency, ShapeRows::TRead<ShapeRows::S2SL, Shape::OutArray<ZDL_ArrayOfStringListToCurrency, &ShapeRows::S2SL::lsItems>, Shape::Str<&ShapeRows::S2SL::firmCode>, Shape::Str<&ShapeRows::S2SL::strParam>>)
ZDL_SHAPE_DECLARE(SendString_GetArrayIntForString, ShapeRows::TRead<ShapeRows::SIFS, ShapeRows::OutIntForString<&ShapeRows::SIFS::lsItems>, Shape::Str<&ShapeRows::SIFS::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetArrayIntForString, ShapeRows::TRead<ShapeRows::S2IFS, ShapeRows::OutIntForString<&ShapeRows::S2IFS::lsItems>, Shape::Str<&ShapeRows::S2IFS::firmCode>, Shape::Str<&ShapeRows::S2IFS::strParam>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetArrayCurrencyWithDiscount, ShapeRows::TRead<ShapeRows::S2CD, Shape::OutArray<ZDL_ArrayCurrencyWithDiscount, &ShapeRows::S2CD::lsItems>, Shape::Str<&ShapeRows::S2CD::firmCode>, Shape::Str<&ShapeRows::S2CD::strParam>>)
ZDL_SHAPE_DECLARE(SendThreeStrings_GetArrayCurrencyWithDiscount, ShapeRows::TRead<ShapeRows::S3CD, Shape::OutArray<ZDL_ArrayCurrencyWithDiscount, &ShapeRows::S3CD::lsItems>, Shape::Str<&ShapeRows::S3CD::firmCode>, Shape::Str<&ShapeRows::S3CD::strParam1>, Shape::Str<&ShapeRows::S3CD::strParam2>>)
ZDL_SHAPE_DECLARE(SendString_GetArrayIntForStringForString, ShapeRows::TRead<ShapeRows::SIFSS, Shape::OutArray<ZDL_ArrayLimitKindToSettleCodeListToClassList, &ShapeRows::SIFSS::lsItems>, Shape::Str<&ShapeRows::SIFSS::firmCode>>)
ZDL_SHAPE_DECLARE(SendTwoStrings_GetArrayIntForStringForString, ShapeRows::TRead<ShapeRows::S2IFSS, Shape::OutArray<ZDL_ArrayLimitKindToSettleCodeListToClassList, &ShapeRows::S2IFSS::lsItems>, Shape::Str<&ShapeRows::S2IFSS::firmCode>, Shape::Str<&ShapeRows::S2IFSS::strParam>>)
ZDL_SHAPE_DECLARE(SendStringWithInt_GetArrayOfTwoStringsAndArrayStrings, ShapeRows::TRead<ShapeRows::SI2SA, Shape::OutArray<ZDL_ArrayOfTwoStringsAndArrayStrings, &ShapeRows::SI2SA::lsItems>, Shape::Str<&ShapeRows::SI2SA::firmCode>, Shape::Val<&ShapeRows::SI2SA::intParam1>>)
ZDL_SHAPE_DECLARE(SendStringWithInt_GetClassToSettleCodeToSecList, ShapeRows::TRead<ShapeRows::SICSS, Shape::OutArray<ZDL_ClassToSettleCodeToSecList, &ShapeRows::SICSS::lsItems>, Shape::Str<&ShapeRows::SICSS::firmCode>, Shape::Val<&ShapeRows::SICSS::intParam1>>)
// clang-format on

#undef ZDL_SHAPE_DECLARE

// The number of shapes declared above.
inline constexpr std::size_t kBuiltShapeCount = 0
#define ZDL_SHAPE(name, kind) +(TShape<EAdapterShape::name>::kBuilt ? 1 : 0)
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
    ;

}  // namespace DL::Adapters
