#pragma once
// The public face of one loaded copy of a firm's settings: everything above
// (the ZDL_ settings API, a host engine linking this code) reads, edits and
// saves a firm through it. It holds no settings itself; they live in the hub.
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cache/TEffectiveDiscounts.h"

#include "commission/TRepoCommRates.h"
#include "commission/TypeAndRate.h"
#include "base/ApiRecords.h"
#include "base/TradingTypes.h"
#include "base/ApiRecords.h"
#include "core/TGeneralSettings.h"
// The typed store takes floating-point template arguments, which the clang of
// the fuzz build cannot compile yet; that build alone defines
// ZDL_NO_TYPED_STORE and goes without it.
#ifndef ZDL_NO_TYPED_STORE
#include "settings/TypedSections.h"
#endif

class TLogWriter;
namespace DLTypes {
class Storage;
}

namespace DL {

class TStorageHub;

class TInfoStorage {
 public:
  // Builds the hub from the source (see TStorageHub). A load that finds a hole
  // in the program's own tables throws CErrors.
  TInfoStorage(const char* ini_source_name, int ini_source_type, bool buildTypedStore);
  ~TInfoStorage();
  TInfoStorage(const TInfoStorage&) = delete;
  TInfoStorage& operator=(const TInfoStorage&) = delete;

  // Builds everything anew from the source and swaps it in; the old state is
  // kept when the build throws. Returns 1 (not 0) on success. The new hub has
  // no logger until ActivateLog.
  int Refresh(const char* ini_source_name, int ini_source_type, bool buildTypedStore);

  // The small reload: from a settings text, replaces the restriction
  // templates, the complex instrument settings of "General" and the
  // ClientCval clients, and leaves everything else in force. 3 for a null
  // text, 1 when a step threw (the steps before it stay done), else 0.
  [[nodiscard]] int InitLite(const char* text);

  void ActivateLog(TLogWriter* log);
  void DeactivateLog();

  // The canonical settings text, in this firm's memory (see TStorageHub).
  [[nodiscard]] int SaveSettingsToMemory(char** out);
  // Gives back a block this storage handed out: 3 for a null p, 4 for a null
  // or unknown *p, 0 with *p nulled on success.
  [[nodiscard]] int FreeMemory(void** p);

  // The settings operations of the remote commands, one per line of
  // SettingsOperations.def; each forwards to its home's member of its name.
#define ZDL_OPERATION(home, name, qualifier, params, args) [[nodiscard]] int name params qualifier;
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION

  // ---- General parameters for a host engine, as read at load ----
  // One Get per row of GeneralParams.def, forwarding to the hub.
#define ZDL_GENERAL_PARAM(field, key, section, kind, def) \
  const TGeneralParamType<EGeneralParamKind::kind>::type& Get##field() const;
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
  // The same by code: 0, or 3 for a code out of range or of another kind.
  [[nodiscard]] int GetFlagParam(EGeneralParam code, bool& out) const;
  [[nodiscard]] int GetIntParam(EGeneralParam code, int& out) const;
  [[nodiscard]] int GetNumberParam(EGeneralParam code, double& out) const;
  [[nodiscard]] int GetTextParam(EGeneralParam code, std::string& out) const;
  [[nodiscard]] int GetListParam(EGeneralParam code, const TClassList*& out) const;
  // Currency identity.
  const std::string& GetMainCurrency() const;
  bool IsRublesEquivalent(const std::string& currency) const;
  // Typed parameters of the global sections (TUniversalParser's codes).
  [[nodiscard]] int GetBoolParamFromGlobalSection(bool& out, int sect, int num) const;
  [[nodiscard]] int GetIntParamFromGlobalSection(int& out, int sect, int num) const;
  [[nodiscard]] int GetCharParamFromGlobalSection(char& out, int sect, int num) const;

  // ---- Volume-based and repo commission for a host engine ----
  // The table of the client and class (TStorageHub::FindVolumeBasedCommission):
  // its highest commission on `value`, 0 without a table; its step for the
  // volume and side, (3, 0, 0) without one.
  double CalcMaxVolumeBasedCommission(const char* client, const char* classCode, double value, ESide side,
                                      short scale) const;
  TypeAndRate GetEffectiveVolumeBasedCommTypeAndRate(const char* client, const char* classCode, double volume,
                                                     ESide side) const;
  // The client's repo commission of the class for a term in days: the scale
  // of terms first, then the rate per day (CalcRepoCommission). False when
  // neither is set, or the kind found is not one of the four.
  bool GetRepoCommByClass(const char* classCode, double leverage, const char* client, short term,
                          TRepoCommission& out) const;

  // ==== Effective-settings queries for a host engine ====
  // What applies to one client at one leverage (-1: none), limit kind, class
  // and security. Null codes count as empty; an empty client asks for the
  // firm's global settings. Every query answers for an unknown client (the
  // chain of levels ends at the global settings). Queries fill the caches on
  // first use: one thread at a time.

  // The limit kinds ("LimitKinds") of the client's body of `kind`, sorted.
  std::vector<int> ClientLimitKinds(const char* client, double leverage, int kind) const;
  // The kind that answers for `kind`: 0 when the client's limit kind 0 says
  // all limit kinds are the same ("CheckForAllLimitKinds").
  int GetEffectiveLK(const char* client, double leverage, int kind) const;
  // The configured kind of an operation: by security, then by class and
  // settle code, then by class (client's map before the global one), else 0.
  int GetLimitKindForOperationFromIni(const char* client, double leverage, const char* secCode,
                                      const char* classCode, const char* settleCode) const;
  // The limit kinds an operation may draw on, its own first.
  void GetChainLimitKindsForOperation(std::vector<int>& out, const char* secCode, const char* classCode,
                                      const char* settleCode, const char* client, double leverage) const;
  int GetLimitKindForOperation(const char* client, double leverage, const char* secCode, const char* classCode,
                               const char* settleCode) const;
  // The security restricted for short positions for the client in `kind`.
  bool IsSecurityRestricted(const char* client, double leverage, const char* classCode, const char* secCode,
                            int kind) const;
  // A hit of the soft "SecurityRestricted" lists (the resolved restriction
  // template's list of a class replaces the global one): *out 1 or 0.
  // Returns 0, or 3 for a null out.
  [[nodiscard]] int IsSoftSecurityRestricted(int* out, const char* client, double leverage, const char* classCode,
                                             const char* secCode, int kind, ESide side) const;
  // The security may be traded by the "AllowedSecurity" lists.
  bool IsSecurityAllowed(const char* client, const char* classCode, const char* secCode, double leverage) const;
  // The security may be traded by the firm's trade-account lists: false
  // when "SecurityProhibitedTrdAcc" lists it for the class (or "<ALL>"),
  // else, when "SecurityAllowedTrdAcc" names the class, true only if it
  // lists it; true otherwise. The side does not change the answer.
  bool IsSecurityAllowedTrdAcc(const char* client, const char* classCode, const char* secCode, ESide side,
                               double leverage) const;
  // "DiscountsTypeByClasses" of the class (client, then global), else the
  // body's "UseDiscountsType"; 3 for an empty class or without a body.
  int GetDiscountType(const char* client, int kind, double leverage, const char* classCode) const;
  // The discount settings of one security for the client. `useBodyDefaults`:
  // for a client of credit type 5, an unset discount takes the body's
  // MinDiscRateLong / MinDiscRateShort when above 0.
  TEffectiveDiscounts GetActualEffectiveDiscountsSettings(const char* secCode, const char* classCode,
                                                          const char* client, int kind, double leverage,
                                                          bool useBodyDefaults) const;
  // Request flags of GetEffectiveDiscountsEx.
  enum EDiscountFlags : unsigned {
    dfMarginal = 1u,     // marginal treatment for a client of credit type 5
    dfUncapped = 2u,     // a price-derived discount is not capped
    dfBodyDefaults = 4u  // see GetActualEffectiveDiscountsSettings
  };
  // The effective discounts of a security; prices in per cent (below 0 or
  // exactly 100: the settings alone), quantities of the discount trade
  // account. A security without a discount line gets NM_Discs (1.0, 1e50:
  // not marginal). Returns 1 in every path.
  int GetEffectiveDiscountsEx(TDiscountsEx& out, const char* client, const char* secCode, const char* classCode,
                              const char* currency, unsigned flags, int kind, double leverage, double priceLong,
                              double priceShort, double qtyLong, double qtyShort) const;
  int GetEffectiveDiscountsEx2(TDiscountsEx& out, const TEffectiveDiscounts& rec, const char* client,
                               const char* currency, unsigned flags, double priceLong, double priceShort,
                               double qtyLong, double qtyShort) const;
  // Currency identity.
  const std::set<std::string>& GetRublesEquivalents() const;
  std::string ReplaceRubRurToMainRubles(std::string_view currency) const;
  static std::string ReplaceRubRurToDefaultRubles(std::string_view currency);
  static void ReplaceRubRurToSurInSet(std::set<std::string>& currencies);
  bool IsEqualCurrencies(std::string_view a, std::string_view b) const;
  // False for a client of "ClientsNoMultiCurrency".
  bool DoesClientSupportMultiCurrency(const char* client) const;
  // The main currency of the multi-currency group holding `currency`, for
  // the client; null when multi-currency is off, the client is excluded or
  // no group holds it. The text lives as long as the loaded settings.
  const char* GetMainCurrency(const char* client, double leverage, const char* currency) const;
  bool DoesSupportMultiCurrency(const char* client, double leverage, const char* classCode, const char* secCode,
                                const char* currency) const;
  // The main code of a replaceable security, else the code itself.
  std::string GetMainSec(const char* classCode, const char* secCode) const;
#ifndef ZDL_NO_TYPED_STORE
  // The typed store (sets of instruments, margin templates); null when the
  // storage was built without it.
  const DLTypes::Storage* GetTypedStore() const;
  // The margin template that claims the client at the leverage (by leverage
  // first, then by client); null without the typed store or a claim.
  const DLTypes::MarginTemplate* GetMarginTemplate(const char* client, double leverage) const;
  // The sets of instruments with dependent prices that apply to the client:
  // its template's, or the global ones when "UseSetsForNonTemplateClients"
  // is set; empty without the typed store.
  DLTypes::TSetsByName GetEffectiveSetOfInstrumentsByClient(const char* client, double leverage) const;
#endif

  TStorageHub& Hub() const;

 private:
  struct Impl;
  struct pImplDeleter {
    void operator()(Impl* impl) const;
  };
  static Impl* BuildImpl(const char* ini_source_name, int ini_source_type, bool buildTypedStore);

  std::unique_ptr<Impl, pImplDeleter> m_impl;
};

}  // namespace DL
