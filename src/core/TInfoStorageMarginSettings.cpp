#include "core/TInfoStorageMarginSettings.h"

#include "cache/TCacheOfClientMarginRestrictions.h"
#include "cache/TClientMarginRestrictions.h"
#include "cache/TIniCacheItemID.h"
#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"

namespace DL {

namespace {
// The margin body that applies to the client at the leverage: the body of the
// limit kind, or of kind 0 when the client's settings have none for it; null
// without any settings.
const TClientMarginRestrictionsBody* ClientBody(const TInfoStorage& storage, const std::string& client,
                                                double leverage, int limitKind) {
  const TCacheOfClientMarginRestrictions* cache = storage.Hub().GetClientMarginRestrictionsCache();
  if (!cache) return nullptr;
  TIniCacheItemID id(client.c_str(), leverage);
  const TClientMarginRestrictions* settings = cache->GetIniSetting(id);
  if (!settings) return nullptr;
  auto it = settings->find(static_cast<std::uint64_t>(limitKind < 0 ? 0 : limitKind));
  if (it == settings->end()) it = settings->find(0);
  return it == settings->end() ? nullptr : &it->second;
}

const TClientMarginRestrictionsBody* GlobalBody(const TInfoStorage& storage) {
  const TCacheOfClientMarginRestrictions* cache = storage.Hub().GetClientMarginRestrictionsCache();
  if (!cache || !cache->GetGlobalSettings()) return nullptr;
  const TClientMarginRestrictions* global = cache->GetGlobalSettings();
  auto it = global->find(0);
  return it == global->end() ? nullptr : &it->second;
}
}  // namespace

std::string TInfoStorageMarginSettings::MainCurrency() const { return m_storage.GetMainCurrency(); }

std::string TInfoStorageMarginSettings::MainMultiCurrForCurr(const std::string& currency) const {
  const TStorageHub& hub = m_storage.Hub();
  if (currency.empty() || !hub.IsMultiCurrencySupported()) return currency;
  for (const auto& [main, list] : hub.GetAddMultiCurrency())
    if (main == currency || list.Contains(currency)) return main;
  return currency;
}

double TInfoStorageMarginSettings::MDPlusMinMarginCalcRate(const std::string& client, double leverage,
                                                           int limitKind) const {
  if (const TClientMarginRestrictionsBody* body = ClientBody(m_storage, client, leverage, limitKind))
    return body->mdPlusMinMarginCalcRate.value;
  return m_storage.GetMDPlusMinMarginCalcRate();
}

int TInfoStorageMarginSettings::MDPlusDefaultNettingType(const std::string& client, double leverage,
                                                         int limitKind) const {
  if (const TClientMarginRestrictionsBody* body = ClientBody(m_storage, client, leverage, limitKind))
    return body->mdPlusDefaultNettingType.value;
  return m_storage.GetMDPlusDefaultNettingType();
}

bool TInfoStorageMarginSettings::FuturesDiscountFromCollateralAmount(const std::string& /*client*/,
                                                                     double /*leverage*/) const {
  return m_storage.GetFuturesDiscountFromCollateralAmount();
}

bool TInfoStorageMarginSettings::IsMDPlusDiffCurrAssetsInSets(const std::string& /*client*/,
                                                              double /*leverage*/) const {
  const TClientMarginRestrictionsBody* body = GlobalBody(m_storage);
  return body && body->mdPlusDiffCurrAssetsInSets;
}

bool TInfoStorageMarginSettings::IsUseMarginalSignsFromDiscSettings() const {
  return m_storage.GetUseMarginalSignsFromDiscSettings();
}

bool TInfoStorageMarginSettings::IsUseOwnAssetDiscInSets() const { return m_storage.GetUseOwnAssetDiscInSets(); }

bool TInfoStorageMarginSettings::IsEnableDiscountPerevorot() const {
  return m_storage.GetEnableDiscountPerevorot();
}

bool TInfoStorageMarginSettings::IsMDPlusCurrRiskNetting() const { return m_storage.GetMDPlusCurrRiskNetting(); }

bool TInfoStorageMarginSettings::IsRestrictSecuritiesPropotionInCollateral(const std::string& secCode) const {
  return m_storage.Hub().IsRestrictSecuritiesPropotionInCollateral(secCode);
}

}  // namespace DL
