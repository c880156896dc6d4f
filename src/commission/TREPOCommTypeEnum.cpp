#include "commission/TREPOCommTypeEnum.h"

namespace DL {

namespace {

struct TRepoKindName {
  ERepoCommType kind;
  const char* name;
  ERepoBaseCommType base;
};
constexpr TRepoKindName kRepoKinds[] = {
    {rctRepoFixed, "REPOFIXED", rbctFixed},
    {rctRepoTrade, "REPOTRADE", rbctTrade},
    {rctRepoTradeMax, "REPOTRADE_MAX", rbctTradeMax},
    {rctRepoTradeSum, "REPOTRADE_SUM", rbctTradeSum},
};

}  // namespace

int TREPOCommTypeEnum::ToBaseCommType() const {
  for (const TRepoKindName& k : kRepoKinds)
    if (k.kind == value) return k.base;
  return rbctNone;
}

const char* TREPOCommTypeEnum::ToString() const {
  for (const TRepoKindName& k : kRepoKinds)
    if (k.kind == value) return k.name;
  return "";
}

TREPOCommTypeEnum StrToEnumREPOCommType(std::string_view text) {
  for (const TRepoKindName& k : kRepoKinds)
    if (text == k.name) return TREPOCommTypeEnum(k.kind);
  return TREPOCommTypeEnum(rctNotSet);
}

}  // namespace DL
