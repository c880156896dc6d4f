#pragma once
// Recipes of the commands on the firm-wide client lists: the clients approved
// for complex instruments and the client values (see api/OwnCommands.h).
#include <string>
#include <vector>

#include "api/OwnShape.h"

// ---- Clients approved for complex instruments ----
ZDL_DECLARE_RECORD(TDL_GetComplexFIApprovedClientsFromGlobal, (std::string, firmCode), (std::vector<std::string>, lsClients));
ZDL_DECLARE_RECORD(TDL_SetComplexFIApprovedClientsToGlobal, (std::string, firmCode), (std::vector<std::string>, lsClients));
ZDL_DECLARE_RECORD(TDL_AddComplexFIApprovedClientsToGlobal, (std::string, firmCode), (std::string, clientCode));
ZDL_DECLARE_RECORD(TDL_RemoveComplexFIApprovedClientsFromGlobal, (std::string, firmCode), (std::string, clientCode));

// ---- Client values ----
ZDL_DECLARE_RECORD(TDL_GetClientCvalSignFromGlobal, (std::string, firmCode), (int, sign));
ZDL_DECLARE_RECORD(TDL_SetClientCvalSignToGlobal, (std::string, firmCode), (int, sign));
ZDL_DECLARE_RECORD(TDL_GetClientCvalListFromGlobal, (std::string, firmCode), (std::vector<TDL_StringsPair>, lsClientCvals));
ZDL_DECLARE_RECORD(TDL_SetClientCvalListToGlobal, (std::string, firmCode), (std::vector<TDL_StringsPair>, lsClientCvals));
ZDL_DECLARE_RECORD(TDL_AddClientCvalByClientCodeToGlobal, (std::string, firmCode), (std::string, clientCode), (int, clientCval));
ZDL_DECLARE_RECORD(TDL_RemoveClientCvalByClientCodeFromGlobal, (std::string, firmCode), (std::string, clientCode));
ZDL_DECLARE_RECORD(TDL_GetClientCvalByClientCodeFromGlobal, (std::string, firmCode), (std::string, clientCode), (int, clientCval));

namespace DL::Adapters::ClientListsRecipes {
using namespace Shape;
using GetApproved = TDL_GetComplexFIApprovedClientsFromGlobal;
using SetApproved = TDL_SetComplexFIApprovedClientsToGlobal;
using AddApproved = TDL_AddComplexFIApprovedClientsToGlobal;
using RemoveApproved = TDL_RemoveComplexFIApprovedClientsFromGlobal;
using GetSign = TDL_GetClientCvalSignFromGlobal;
using SetSign = TDL_SetClientCvalSignToGlobal;
using GetList = TDL_GetClientCvalListFromGlobal;
using SetList = TDL_SetClientCvalListToGlobal;
using AddCval = TDL_AddClientCvalByClientCodeToGlobal;
using RemoveCval = TDL_RemoveClientCvalByClientCodeFromGlobal;
using GetCval = TDL_GetClientCvalByClientCodeFromGlobal;

// A list of client and value pairs, passed as ZDL_ArrayStringToString*.
template <auto Member>
using ClientValues = Composite<ZDL_ArrayStringToString, Member>;
}  // namespace DL::Adapters::ClientListsRecipes

// clang-format off
ZDL_OWN_SHAPE(GetComplexFIApprovedClientsFromGlobal, Shape::TRead<ClientListsRecipes::GetApproved, Shape::OutStrings<&ClientListsRecipes::GetApproved::lsClients>, Shape::Str<&ClientListsRecipes::GetApproved::firmCode>>)
ZDL_OWN_SHAPE(SetComplexFIApprovedClientsToGlobal, Shape::TSend<ClientListsRecipes::SetApproved, Shape::LineArguments, Shape::Str<&ClientListsRecipes::SetApproved::firmCode>, Shape::Strings<&ClientListsRecipes::SetApproved::lsClients>>)
ZDL_OWN_SHAPE(AddComplexFIApprovedClientsToGlobal, Shape::TSend<ClientListsRecipes::AddApproved, Shape::LineArguments, Shape::Str<&ClientListsRecipes::AddApproved::firmCode>, Shape::Str<&ClientListsRecipes::AddApproved::clientCode>>)
ZDL_OWN_SHAPE(RemoveComplexFIApprovedClientsFromGlobal, Shape::TSend<ClientListsRecipes::RemoveApproved, Shape::LineArguments, Shape::Str<&ClientListsRecipes::RemoveApproved::firmCode>, Shape::Str<&ClientListsRecipes::RemoveApproved::clientCode>>)
ZDL_OWN_SHAPE(GetClientCvalSignFromGlobal, Shape::TRead<ClientListsRecipes::GetSign, Shape::OutVal<&ClientListsRecipes::GetSign::sign>, Shape::Str<&ClientListsRecipes::GetSign::firmCode>>)
ZDL_OWN_SHAPE(SetClientCvalSignToGlobal, Shape::TSend<ClientListsRecipes::SetSign, Shape::LineArguments, Shape::Str<&ClientListsRecipes::SetSign::firmCode>, Shape::Val<&ClientListsRecipes::SetSign::sign>>)
ZDL_OWN_SHAPE(GetClientCvalListFromGlobal, Shape::TRead<ClientListsRecipes::GetList, Shape::OutArray<ZDL_ArrayStringToString, &ClientListsRecipes::GetList::lsClientCvals>, Shape::Str<&ClientListsRecipes::GetList::firmCode>>)
ZDL_OWN_SHAPE(SetClientCvalListToGlobal, Shape::TSend<ClientListsRecipes::SetList, Shape::LineArguments, Shape::Str<&ClientListsRecipes::SetList::firmCode>, ClientListsRecipes::ClientValues<&ClientListsRecipes::SetList::lsClientCvals>>)
ZDL_OWN_SHAPE(AddClientCvalByClientCodeToGlobal, Shape::TSend<ClientListsRecipes::AddCval, Shape::LineArguments, Shape::Str<&ClientListsRecipes::AddCval::firmCode>, Shape::Str<&ClientListsRecipes::AddCval::clientCode>, Shape::Val<&ClientListsRecipes::AddCval::clientCval>>)
ZDL_OWN_SHAPE(RemoveClientCvalByClientCodeFromGlobal, Shape::TSend<ClientListsRecipes::RemoveCval, Shape::LineArguments, Shape::Str<&ClientListsRecipes::RemoveCval::firmCode>, Shape::Str<&ClientListsRecipes::RemoveCval::clientCode>>)
ZDL_OWN_SHAPE(GetClientCvalByClientCodeFromGlobal, Shape::TRead<ClientListsRecipes::GetCval, Shape::OutVal<&ClientListsRecipes::GetCval::clientCval>, Shape::Str<&ClientListsRecipes::GetCval::firmCode>, Shape::Str<&ClientListsRecipes::GetCval::clientCode>>)
// clang-format on
