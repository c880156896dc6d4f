#pragma once
// Records and recipes of the limit-kind commands (see api/OwnCommands.h):
// "firmCode", the owner's "clientCode" or "templateCode", and "lsLimitKinds".
// A Set's change line lists the owner and the numbers after "main":
//   SetMarginTemplateLimitKinds,main,"QUAL",2[1,3]
#include <string>
#include <vector>

#include "api/OwnShape.h"

ZDL_DECLARE_RECORD(TDL_GetGlobalLimitKinds, (std::string, firmCode), (std::vector<int>, lsLimitKinds));
ZDL_DECLARE_RECORD(TDL_SetGlobalLimitKinds, (std::string, firmCode), (std::vector<int>, lsLimitKinds));
ZDL_DECLARE_RECORD(TDL_GetClientSettingsLimitKinds, (std::string, firmCode), (std::string, clientCode),
                   (std::vector<int>, lsLimitKinds));
ZDL_DECLARE_RECORD(TDL_SetClientSettingsLimitKinds, (std::string, firmCode), (std::string, clientCode),
                   (std::vector<int>, lsLimitKinds));
ZDL_DECLARE_RECORD(TDL_GetMarginTemplateLimitKinds, (std::string, firmCode), (std::string, templateCode),
                   (std::vector<int>, lsLimitKinds));
ZDL_DECLARE_RECORD(TDL_SetMarginTemplateLimitKinds, (std::string, firmCode), (std::string, templateCode),
                   (std::vector<int>, lsLimitKinds));

namespace DL::Adapters::LimitKindsRecipes {
using namespace Shape;
template <class R>
using GetFirm = TRead<R, OutInts<&R::lsLimitKinds>, Str<&R::firmCode>>;
template <class R>
using SetFirm = TSend<R, LineArguments, Str<&R::firmCode>, Ints<&R::lsLimitKinds>>;
template <class R, auto Owner>
using GetOwner = TRead<R, OutInts<&R::lsLimitKinds>, Str<&R::firmCode>, Str<Owner>>;
template <class R, auto Owner>
using SetOwner = TSend<R, LineArguments, Str<&R::firmCode>, Str<Owner>, Ints<&R::lsLimitKinds>>;
}  // namespace DL::Adapters::LimitKindsRecipes

ZDL_OWN_SHAPE(GetGlobalLimitKinds, LimitKindsRecipes::GetFirm<TDL_GetGlobalLimitKinds>)
ZDL_OWN_SHAPE(SetGlobalLimitKinds, LimitKindsRecipes::SetFirm<TDL_SetGlobalLimitKinds>)
ZDL_OWN_SHAPE(GetClientSettingsLimitKinds,
              LimitKindsRecipes::GetOwner<TDL_GetClientSettingsLimitKinds, &TDL_GetClientSettingsLimitKinds::clientCode>)
ZDL_OWN_SHAPE(SetClientSettingsLimitKinds,
              LimitKindsRecipes::SetOwner<TDL_SetClientSettingsLimitKinds, &TDL_SetClientSettingsLimitKinds::clientCode>)
ZDL_OWN_SHAPE(GetMarginTemplateLimitKinds,
              LimitKindsRecipes::GetOwner<TDL_GetMarginTemplateLimitKinds, &TDL_GetMarginTemplateLimitKinds::templateCode>)
ZDL_OWN_SHAPE(SetMarginTemplateLimitKinds,
              LimitKindsRecipes::SetOwner<TDL_SetMarginTemplateLimitKinds, &TDL_SetMarginTemplateLimitKinds::templateCode>)
