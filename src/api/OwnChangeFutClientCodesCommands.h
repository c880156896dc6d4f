#pragma once
// Recipes of the commands on client codes and trade accounts of the
// derivatives market (see api/OwnCommands.h). After "firmCode" a record names
// the firm on that market, "firmCodeOnDerivMarket".
#include <string>
#include <vector>

#include "api/OwnShape.h"

ZDL_DECLARE_RECORD(TDL_GetListOfFirmsGlobalChangeFutClientCodes, (std::string, firmCode), (std::vector<std::string>, lsFirms));
ZDL_DECLARE_RECORD(TDL_AddCorrespToGlobalChangeFutClientCodes, (std::string, firmCode), (std::string, firmCodeOnDerivMarket), (std::string, clientCode), (std::string, trdAcc));
ZDL_DECLARE_RECORD(TDL_GetClientCodeGlobalChangeFutClientCodesByTrdAcc, (std::string, firmCode), (std::string, firmCodeOnDerivMarket), (std::string, trdAcc), (std::string, clientCode));
ZDL_DECLARE_RECORD(TDL_GetTrdAccGlobalChangeFutClientCodesByClientCode, (std::string, firmCode), (std::string, firmCodeOnDerivMarket), (std::string, clientCode), (std::string, trdAcc));
ZDL_DECLARE_RECORD(TDL_RemoveAllCorrespsFromGlobalChangeFutClientCodes, (std::string, firmCode), (std::string, firmCodeOnDerivMarket));
ZDL_DECLARE_RECORD(TDL_RemoveCorrespFromGlobalChangeFutClientCodesByClientCode, (std::string, firmCode), (std::string, firmCodeOnDerivMarket), (std::string, clientCode));
ZDL_DECLARE_RECORD(TDL_RemoveCorrespFromGlobalChangeFutClientCodesByTrdAcc, (std::string, firmCode), (std::string, firmCodeOnDerivMarket), (std::string, trdAcc));
ZDL_DECLARE_RECORD(TDL_GetChangeFutClientCodesByFirmFromGlobal, (std::string, firmCode), (std::string, firmCodeOnDerivMarket), (std::vector<TDL_StringsPair>, lsCorresps));

namespace DL::Adapters::ChangeFutRecipes {
using ListFirms = TDL_GetListOfFirmsGlobalChangeFutClientCodes;
using Add = TDL_AddCorrespToGlobalChangeFutClientCodes;
using ClientByAcc = TDL_GetClientCodeGlobalChangeFutClientCodesByTrdAcc;
using AccByClient = TDL_GetTrdAccGlobalChangeFutClientCodesByClientCode;
using RemoveAll = TDL_RemoveAllCorrespsFromGlobalChangeFutClientCodes;
using RemoveByClient = TDL_RemoveCorrespFromGlobalChangeFutClientCodesByClientCode;
using RemoveByAcc = TDL_RemoveCorrespFromGlobalChangeFutClientCodesByTrdAcc;
using ByFirm = TDL_GetChangeFutClientCodesByFirmFromGlobal;
}  // namespace DL::Adapters::ChangeFutRecipes

// clang-format off
ZDL_OWN_SHAPE(GetListOfFirmsGlobalChangeFutClientCodes, Shape::TRead<ChangeFutRecipes::ListFirms, Shape::OutStrings<&ChangeFutRecipes::ListFirms::lsFirms>, Shape::Str<&ChangeFutRecipes::ListFirms::firmCode>>)
ZDL_OWN_SHAPE(AddCorrespToGlobalChangeFutClientCodes, Shape::TSend<ChangeFutRecipes::Add, Shape::LineArguments, Shape::Str<&ChangeFutRecipes::Add::firmCode>, Shape::Str<&ChangeFutRecipes::Add::firmCodeOnDerivMarket>, Shape::Str<&ChangeFutRecipes::Add::clientCode>, Shape::Str<&ChangeFutRecipes::Add::trdAcc>>)
ZDL_OWN_SHAPE(GetClientCodeGlobalChangeFutClientCodesByTrdAcc, Shape::TRead<ChangeFutRecipes::ClientByAcc, Shape::OutStr<&ChangeFutRecipes::ClientByAcc::clientCode>, Shape::Str<&ChangeFutRecipes::ClientByAcc::firmCode>, Shape::Str<&ChangeFutRecipes::ClientByAcc::firmCodeOnDerivMarket>, Shape::Str<&ChangeFutRecipes::ClientByAcc::trdAcc>>)
ZDL_OWN_SHAPE(GetTrdAccGlobalChangeFutClientCodesByClientCode, Shape::TRead<ChangeFutRecipes::AccByClient, Shape::OutStr<&ChangeFutRecipes::AccByClient::trdAcc>, Shape::Str<&ChangeFutRecipes::AccByClient::firmCode>, Shape::Str<&ChangeFutRecipes::AccByClient::firmCodeOnDerivMarket>, Shape::Str<&ChangeFutRecipes::AccByClient::clientCode>>)
ZDL_OWN_SHAPE(RemoveAllCorrespsFromGlobalChangeFutClientCodes, Shape::TSend<ChangeFutRecipes::RemoveAll, Shape::LineArguments, Shape::Str<&ChangeFutRecipes::RemoveAll::firmCode>, Shape::Str<&ChangeFutRecipes::RemoveAll::firmCodeOnDerivMarket>>)
ZDL_OWN_SHAPE(RemoveCorrespFromGlobalChangeFutClientCodesByClientCode, Shape::TSend<ChangeFutRecipes::RemoveByClient, Shape::LineArguments, Shape::Str<&ChangeFutRecipes::RemoveByClient::firmCode>, Shape::Str<&ChangeFutRecipes::RemoveByClient::firmCodeOnDerivMarket>, Shape::Str<&ChangeFutRecipes::RemoveByClient::clientCode>>)
ZDL_OWN_SHAPE(RemoveCorrespFromGlobalChangeFutClientCodesByTrdAcc, Shape::TSend<ChangeFutRecipes::RemoveByAcc, Shape::LineArguments, Shape::Str<&ChangeFutRecipes::RemoveByAcc::firmCode>, Shape::Str<&ChangeFutRecipes::RemoveByAcc::firmCodeOnDerivMarket>, Shape::Str<&ChangeFutRecipes::RemoveByAcc::trdAcc>>)
ZDL_OWN_SHAPE(GetChangeFutClientCodesByFirmFromGlobal, Shape::TRead<ChangeFutRecipes::ByFirm, Shape::OutArray<ZDL_ArrayCodeToCodeTrdaccToTrdacc, &ChangeFutRecipes::ByFirm::lsCorresps>, Shape::Str<&ChangeFutRecipes::ByFirm::firmCode>, Shape::Str<&ChangeFutRecipes::ByFirm::firmCodeOnDerivMarket>>)
// clang-format on
