// The effective-settings queries of TInfoStorage: which level of the
// settings answers for a client, and what the answer is.
#include <algorithm>
#include <cstring>

#include "cache/TCacheOfClientMarginRestrictions.h"
#include "cache/TCacheOfRestrictions.h"
#include "cache/TCacheOfSecurityRestrictions.h"
#include "cache/TEffectiveMarginStorage.h"
#include "core/DLFunctionHelpers.h"
#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"
#include "core/ZDLErrors.h"

namespace DL {

namespace {

const char* Safe(const char* s) { return s == nullptr ? "" : s; }

using TBody = TClientMarginRestrictionsBody;

// The margin settings of the client and the firm's global ones.
struct TMarginLookup {
  const TClientMarginRestrictions* client = nullptr;  // never null: the global object at worst
  const TClientMarginRestrictions* global = nullptr;
  bool atGlobal() const { return client == global; }
};

TMarginLookup LookupMargin(const TStorageHub& hub, const char* client, double leverage) {
  const TCacheOfClientMarginRestrictions* cache = hub.GetClientMarginRestrictionsCache();
  TIniCacheItemID id(Safe(client), leverage);
  TMarginLookup r;
  r.global = cache->GetGlobalSettings();
  r.client = cache->GetIniSetting(id);
  if (r.client == nullptr) r.client = r.global;
  return r;
}

const TBody* ZeroBody(const TClientMarginRestrictions* object) {
  return object == nullptr ? nullptr : object->Body(0);
}

template <class Map>
const typename Map::mapped_type* FindIn(const Map& map, std::string_view key) {
  if (map.empty()) return nullptr;
  const auto it = map.find(key);
  return it == map.end() ? nullptr : &it->second;
}

// "DiscountsTypeByClasses" of the class (the maps ignore case), client's
// limit kind 0 then the global one, else the body's "UseDiscountsType".
int DiscountTypeOf(const TMarginLookup& m, int kind, const char* classCode) {
  if (classCode == nullptr || *classCode == '\0') return 3;
  const TBody* body = TEffectiveMarginStorage(m.client).FindOrZero(static_cast<std::uint64_t>(kind));
  if (body == nullptr) return 3;
  const std::string_view cls = classCode;
  for (const TBody* b : {ZeroBody(m.client), ZeroBody(m.global)})
    if (b != nullptr)
      if (const int* type = FindIn(b->discountsTypeByClasses, cls)) return *type;
  return body->useDiscountsType.value;
}

}  // namespace

// ---- Limit kinds ----

std::vector<int> TInfoStorage::ClientLimitKinds(const char* client, double leverage, int kind) const {
  const TMarginLookup m = LookupMargin(Hub(), client, leverage);
  const TBody* body = TEffectiveMarginStorage(m.client).FindOrZero(static_cast<std::uint64_t>(kind));
  std::vector<int> out;
  if (body == nullptr) return out;
  for (const std::uint64_t k : body->limitKinds) out.push_back(static_cast<int>(k));
  std::sort(out.begin(), out.end());
  return out;
}

int TInfoStorage::GetEffectiveLK(const char* client, double leverage, int kind) const {
  const TMarginLookup m = LookupMargin(Hub(), client, leverage);
  return static_cast<int>(TEffectiveMarginStorage(m.client).GetEffectiveLK(static_cast<std::uint64_t>(kind)));
}

int TInfoStorage::GetLimitKindForOperationFromIni(const char* client, double leverage, const char* secCode,
                                                  const char* classCode, const char* settleCode) const {
  const TMarginLookup m = LookupMargin(Hub(), client, leverage);
  const TBody* own = ZeroBody(m.client);
  const TBody* global = ZeroBody(m.global);
  auto ask = [&](auto member, std::string_view key, int& out) {
    for (const TBody* b : {own, global}) {
      if (b == nullptr) continue;
      if (const std::int64_t* v = FindIn(b->*member, key)) {
        out = static_cast<int>(*v);
        return true;
      }
    }
    return false;
  };
  int kind = 0;
  const std::string_view sec = Safe(secCode), cls = Safe(classCode), settle = Safe(settleCode);
  if (!sec.empty() && ask(&TBody::securityToLimitKind, sec, kind)) return kind;
  if (!settle.empty() && !cls.empty()) {
    const std::string key = StrUpper(std::string(cls)) + "_" + StrUpper(std::string(settle));
    if (ask(&TBody::settleCodeToLimitKind, key, kind)) return kind;
  }
  if (!cls.empty() && ask(&TBody::classToLimitKind, StrUpper(std::string(cls)), kind)) return kind;
  return 0;
}

void TInfoStorage::GetChainLimitKindsForOperation(std::vector<int>& out, const char* secCode, const char* classCode,
                                                  const char* settleCode, const char* client,
                                                  double leverage) const {
  out.clear();
  const int k = GetLimitKindForOperationFromIni(client, leverage, secCode, classCode, settleCode);
  const std::vector<int> kinds = ClientLimitKinds(client, leverage, 0);
  if (kinds.empty()) {
    out.push_back(0);
    return;
  }
  const auto pos = kinds.back() <= k ? std::prev(kinds.end()) : std::lower_bound(kinds.begin(), kinds.end(), k);
  if (classCode != nullptr && *classCode != '\0' && Hub().IsClassWithoutLimitKinds(classCode)) {
    out.push_back(*pos);
    return;
  }
  out.assign(pos, kinds.end());
}

int TInfoStorage::GetLimitKindForOperation(const char* client, double leverage, const char* secCode,
                                           const char* classCode, const char* settleCode) const {
  std::vector<int> chain;
  GetChainLimitKindsForOperation(chain, secCode, classCode, settleCode, client, leverage);
  return chain.front();
}

// ---- Security restriction tests ----

bool TInfoStorage::IsSecurityRestricted(const char* client, double leverage, const char* classCode,
                                        const char* secCode, int kind) const {
  const TMarginLookup m = LookupMargin(Hub(), client, leverage);
  const TEffectiveMarginStorage storage(m.client);
  const TBody* body = storage.FindOrZero(static_cast<std::uint64_t>(kind));
  const TBody* zero = ZeroBody(m.client);
  const TBody* global = ZeroBody(m.global);
  static const TSecurityRestrictionLists kNone;
  // The list in use: the body's own (mode 2), that of limit kind 0 (mode 1),
  // else the global one.
  const TSecurityRestrictionLists* lists = global ? &global->restShortSecurities : &kNone;
  if (body != nullptr) {
    if (!body->restShortSecurities.Empty())
      lists = &body->restShortSecurities;
    else if (zero != nullptr && !zero->restShortSecurities.Empty())
      lists = &zero->restShortSecurities;
  }
  if (lists->restrictAll) return true;
  return TSecurityRestrictionLists::Test(lists->byClass, lists->bySecurity, Safe(classCode), Safe(secCode));
}

int TInfoStorage::IsSoftSecurityRestricted(int* out, const char* client, double leverage, const char* classCode,
                                           const char* secCode, int /*kind*/, ESide side) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  *out = 0;
  TCacheOfRestrictions* cache = Hub().GetRestrictionsCache();
  const TRestrictions& global = cache->GetGlobalSettings();
  TIniCacheItemID id(Safe(client), leverage);
  const TRestrictions* templ = cache->GetSettings(id);
  const std::string_view cls = Safe(classCode), sec = Safe(secCode);
  auto hitIn = [&](const TClassToSideToSecList& lists) -> int {
    const auto it = std::find_if(lists.begin(), lists.end(),
                                 [&](const auto& e) { return IsSameSettingsName(e.first, cls); });
    if (it == lists.end()) return -1;  // the class is not in these lists
    for (const auto& [s, list] : it->second) {
      if (s != sdBoth && s != side) continue;
      if (list.all || list.codes.count(std::string(sec)) != 0) return 1;
    }
    return 0;
  };
  int hit = templ != nullptr ? hitIn(templ->softSecurityRestricted) : -1;
  if (hit < 0) hit = hitIn(global.softSecurityRestricted);
  *out = hit > 0 ? 1 : 0;
  return ZDL_OK;
}

bool TInfoStorage::IsSecurityAllowed(const char* client, const char* classCode, const char* secCode,
                                     double leverage) const {
  const TCacheOfSecurityRestrictions* cache = Hub().GetSecurityRestrictionsCache();
  const TClientSecurityRestrictions* global = cache->GetGlobalSettings();
  TIniCacheItemID id(Safe(client), leverage);
  id.PrepareEmptyClient();
  const TClientSecurityRestrictions* own = cache->GetIniSetting(id);
  const bool checkClient = Hub().General().GetCheckClient();
  const bool clientList = checkClient && own != nullptr && own != global && !own->security.empty();
  const auto& list = clientList ? own->security : global->security;
  const std::string_view cls = Safe(classCode), sec = Safe(secCode);
  if (const auto it = list.find(std::string(cls)); it != list.end()) {
    if (it->second.IsAll()) return true;
    return it->second.Contains(sec);
  }
  if (!checkClient) return !clientList;
  // The client's list, asked in the opposite sense: a listed security is not
  // allowed to this client.
  if (own == nullptr || own == global) return !clientList;
  const auto it = own->security.find(std::string(cls));
  if (it == own->security.end()) return !clientList;
  if (it->second.IsAll()) return false;
  return !it->second.Contains(sec);
}

bool TInfoStorage::IsSecurityAllowedTrdAcc(const char* /*client*/, const char* classCode, const char* secCode,
                                           ESide /*side*/, double /*leverage*/) const {
  const TStorageHub& hub = Hub();
  const std::string_view cls = Safe(classCode), sec = Safe(secCode);
  auto listed = [&](const TStorageHub::TCodeToList& lists, bool& classKnown) {
    const auto it = lists.find(cls);
    classKnown = it != lists.end();
    return classKnown && (it->second.Contains(sec) || it->second.Contains("<ALL>"));
  };
  bool known = false;
  if (listed(hub.GetSecurityProhibitedTrdAcc(), known)) return false;
  const bool allowed = listed(hub.GetSecurityAllowedTrdAcc(), known);
  return !known || allowed;
}

// ---- Discounts ----

int TInfoStorage::GetDiscountType(const char* client, int kind, double leverage, const char* classCode) const {
  if (classCode == nullptr || *classCode == '\0') return 3;
  return DiscountTypeOf(LookupMargin(Hub(), client, leverage), kind, classCode);
}

TEffectiveDiscounts TInfoStorage::GetActualEffectiveDiscountsSettings(const char* secCode, const char* classCode,
                                                                      const char* client, int kind,
                                                                      double leverage, bool useBodyDefaults) const {
  const TStorageHub& hub = Hub();
  TEffectiveDiscounts r;
  r.secCode = Safe(secCode);
  r.classCode = Safe(classCode);
  r.limitKind = kind;
  r.leverage = leverage;
  const TMarginLookup m = LookupMargin(hub, client, leverage);
  const TEffectiveMarginStorage storage(m.client);
  const TBody* body = storage.FindOrZero(static_cast<std::uint64_t>(kind));
  const TBody* zero = ZeroBody(m.client);
  const TBody* global = ZeroBody(m.global);
  const int creditType = hub.General().GetCreditType(Safe(client));
  r.creditType = creditType;
  r.allowMarginTrading = creditType == kCreditTypeMarginByDiscounts;

  const TSecurityDiscounts* line = nullptr;
  const TBody* from = body;
  if (body == nullptr) {
    // No settings of the client at all: the global line.
    r.useGlobalDiscounts = zero == nullptr || !zero->doNotUseGlobalDiscounts.value;
    if (r.useGlobalDiscounts && global != nullptr) line = global->securityDiscounts.Find(r.secCode);
    from = global;
  } else {
    r.useGlobalDiscounts = !body->doNotUseGlobalDiscounts.value;
    const int mode = body->useSecurityDiscounts.value;
    if (mode == 2) {
      line = body->securityDiscounts.Find(r.secCode);
    } else if (mode == 1) {
      if (zero != nullptr) {
        line = zero->securityDiscounts.Find(r.secCode);
        from = zero;
      }
    } else if (r.useGlobalDiscounts && global != nullptr) {
      line = global->securityDiscounts.Find(r.secCode);
    }
  }
  r.discountType = DiscountTypeOf(m, kind, classCode);
  r.restrictCoeff = zero != nullptr && zero->baseDiscCoeff.value > 0.0;
  // Below the global level a line not found at the client's level comes
  // from the global settings when limit kind 0 holds a positive coefficient.
  if (line == nullptr && !m.atGlobal() && r.restrictCoeff && r.useGlobalDiscounts && global != nullptr)
    line = global->securityDiscounts.Find(r.secCode);

  if (line != nullptr) {
    r.KLong = line->KLong;
    r.KShort = line->KShort;
    r.DLong = line->DLong;
    r.DShort = line->DShort;
    r.DLongMin = line->DLongMin;
    r.DShortMin = line->DShortMin;
    r.RCur = line->RCur;
    r.lineFlag1 = line->flag1;
    r.lineFlag2 = line->flag2;
    r.discountsSet = true;
  }
  const double baseCoeff = from != nullptr && from->baseDiscCoeff.value >= 0.0 ? from->baseDiscCoeff.value : 1.0;
  r.stockCoefLong = r.KLong >= 0.0 ? r.KLong : baseCoeff;
  r.stockCoefShort = r.KShort >= 0.0 ? r.KShort : baseCoeff;
  if (r.allowMarginTrading && useBodyDefaults && from != nullptr) {
    if (r.DLong <= 0.0 && from->minDiscRateLong.value > 0.0) r.DLong = from->minDiscRateLong.value;
    if (r.DShort <= 0.0 && from->minDiscRateShort.value > 0.0) r.DShort = from->minDiscRateShort.value;
  }
  if (!r.discountsSet) r.RCur.clear();
  return r;
}

namespace {

// The request of GetEffectiveDiscountsEx2 for a client of a known credit type.
TDiscountRequest MakeRequest(const TGeneralSettings& g, int creditType, const char* client, const char* currency,
                             unsigned flags, double priceLong, double priceShort, double qtyLong, double qtyShort) {
  TDiscountRequest req;
  req.creditType = creditType;
  req.clientEmpty = client == nullptr || *client == '\0';
  req.marginalSigns = g.GetUseMarginalSignsFromDiscSettings();
  req.doNotApplyCoeffToOwn = g.GetDoNotApplyCoeffToOwnDiscounts();
  req.discountTrdAcc = !g.GetDiscountTrdAcc().empty();
  req.marginal = (flags & TInfoStorage::dfMarginal) != 0;
  req.uncapped = (flags & TInfoStorage::dfUncapped) != 0;
  req.currency = Safe(currency);
  req.priceLong = priceLong;
  req.priceShort = priceShort;
  req.qtyLong = qtyLong;
  req.qtyShort = qtyShort;
  return req;
}

}  // namespace

int TInfoStorage::GetEffectiveDiscountsEx2(TDiscountsEx& out, const TEffectiveDiscounts& rec, const char* client,
                                           const char* currency, unsigned flags, double priceLong,
                                           double priceShort, double qtyLong, double qtyShort) const {
  const TGeneralSettings& g = Hub().General();
  const TDiscountRequest req = MakeRequest(g, g.GetCreditType(Safe(client)), client, currency, flags, priceLong,
                                           priceShort, qtyLong, qtyShort);
  out = TDiscountsEx{};
  return DL::GetEffectiveDiscountsEx2(rec, req, IsEqualCurrencies(rec.RCur, req.currency), out);
}

int TInfoStorage::GetEffectiveDiscountsEx(TDiscountsEx& out, const char* client, const char* secCode,
                                          const char* classCode, const char* currency, unsigned flags, int kind,
                                          double leverage, double priceLong, double priceShort, double qtyLong,
                                          double qtyShort) const {
  const TEffectiveDiscounts rec =
      GetActualEffectiveDiscountsSettings(secCode, classCode, client, kind, leverage, (flags & dfBodyDefaults) != 0);
  if (!rec.discountsSet) {
    out = NM_Discs;
    return 1;
  }
  // The client's credit type was found with the record.
  const TDiscountRequest req =
      MakeRequest(Hub().General(), rec.creditType, client, currency, flags, priceLong, priceShort, qtyLong, qtyShort);
  out = TDiscountsEx{};
  return DL::GetEffectiveDiscountsEx2(rec, req, IsEqualCurrencies(rec.RCur, req.currency), out);
}

// ---- Currency identity ----

const std::set<std::string>& TInfoStorage::GetRublesEquivalents() const {
  return Hub().General().GetRublesEquivalents();
}

std::string TInfoStorage::ReplaceRubRurToMainRubles(std::string_view currency) const {
  return Hub().General().ReplaceRubRurToMainRubles(currency);
}

std::string TInfoStorage::ReplaceRubRurToDefaultRubles(std::string_view currency) {
  if (currency == "RUB" || currency == "RUR") return "SUR";
  return std::string(currency);
}

void TInfoStorage::ReplaceRubRurToSurInSet(std::set<std::string>& currencies) {
  std::set<std::string> out;
  for (const std::string& c : currencies) out.insert(ReplaceRubRurToDefaultRubles(c));
  currencies.swap(out);
}

bool TInfoStorage::IsEqualCurrencies(std::string_view a, std::string_view b) const {
  if (a.empty() || b.empty()) return false;
  if (a == b) return true;
  const TGeneralSettings& g = Hub().General();
  auto mainOf = [&](std::string_view c) {
    const std::string replaced = g.ReplaceRubRurToMainRubles(c);
    const std::string* main = g.GetMainCurrencyOfSubstitute(replaced);
    return main != nullptr ? *main : replaced;
  };
  return mainOf(a) == mainOf(b);
}

bool TInfoStorage::DoesClientSupportMultiCurrency(const char* client) const {
  return !Hub().General().GetClientsNoMultiCurrency().Contains(Safe(client));
}

const char* TInfoStorage::GetMainCurrency(const char* client, double leverage, const char* currency) const {
  const TStorageHub& hub = Hub();
  if (currency == nullptr || *currency == '\0') return nullptr;
  if (hub.General().GetSupportMultiCurrency() == 0 || !DoesClientSupportMultiCurrency(client)) return nullptr;
  const std::string_view cur = currency;
  const TCacheOfSecurityRestrictions* cache = hub.GetSecurityRestrictionsCache();
  TIniCacheItemID id(Safe(client), leverage);
  id.PrepareEmptyClient();
  const TClientSecurityRestrictions* own = cache->GetIniSetting(id);
  if (own != nullptr && own != cache->GetGlobalSettings() && !own->addMultiCurrency.empty()) {
    for (const auto& [main, list] : own->addMultiCurrency)
      if (main == cur || list.count(std::string(cur)) != 0) return main.c_str();
    return nullptr;
  }
  for (const auto& [main, list] : hub.GetAddMultiCurrency())
    if (main == cur || list.Contains(cur)) return main.c_str();
  return nullptr;
}

bool TInfoStorage::DoesSupportMultiCurrency(const char* client, double leverage, const char* classCode,
                                            const char* secCode, const char* currency) const {
  if (classCode == nullptr || *classCode == '\0' || secCode == nullptr || *secCode == '\0' ||
      currency == nullptr || *currency == '\0')
    return false;
  const auto& byClass = Hub().GetMultiCurrencyByClass();
  const auto it = byClass.find(std::string_view(classCode));
  if (it == byClass.end()) return false;
  // The class must list the currency, and the currency must belong to a
  // multi-currency group of the client whose main code the class lists too.
  if (!it->second.Contains(currency)) return false;
  const char* main = GetMainCurrency(client, leverage, currency);
  return main != nullptr && it->second.Contains(main);
}

std::string TInfoStorage::GetMainSec(const char* classCode, const char* secCode) const {
  return Hub().GetMainSec(Safe(classCode), Safe(secCode));
}

}  // namespace DL
