#include "tools/cli/Explain.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <string>

#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"
#include "base/Numbers.h"
#include "base/ResultCodes.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"

namespace zentdl {
namespace {

using DL::TIniParser;

std::string Number(double v) {
  if (v > DL::ForbiddenLimit) return "forbidden (" + std::string(v >= 1e49 ? "1e50" : "above 1e25") + ")";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.10g", v);
  return buf;
}

std::string YesNo(bool v) { return v ? "yes" : "no"; }

std::string List(const std::vector<int>& v) {
  std::string out;
  for (int x : v) out += (out.empty() ? "" : ", ") + std::to_string(x);
  return out.empty() ? "(none)" : out;
}

// The level a resolution landed on, in the administrator's words.
std::string LevelOf(const DL::TIniLogicParser& logic, const DL::TResolvedSection& r, const std::string& ending,
                    std::int32_t scaledLeverage, bool restriction) {
  const std::string& name = *r.section;
  switch (r.source) {
    case DL::SourceGlobal:
      return "global settings";
    case DL::SourceClient:
      return (name.find('*') != std::string::npos ? "prefix section [" : "personal section [") + name + "]";
    case DL::SourceTemplate:
      break;
  }
  if (DL::IsSameSettingsName(name, TIniParser::GetIniSectCode(DL::iscClGeneral_Margin)))
    return "general margin section [" + name + "]";
  if (scaledLeverage != DL::UNDEF_LEVERAGE) {
    const std::string& cl = TIniParser::GetPartIniSectCode(TIniParser::pscCl);
    const std::string& byLeverage = restriction ? logic.TemplateRestrictionSectionByLeverage(scaledLeverage, cl, ending)
                                                : logic.TemplateClientSectionByLeverage(cl, ending, scaledLeverage);
    if (!byLeverage.empty() && DL::IsSameSettingsName(byLeverage, name))
      return "leverage template [" + name + "] (IncludeClientsWithLeverage)";
  }
  return "template [" + name + "] (lists the client in Clients)";
}

}  // namespace

TExplanation ExplainClient(const std::string& text, const TExplainRequest& q) {
  TExplanation out;
  std::unique_ptr<DL::TInfoStorage> firm;
  try {
    firm = std::make_unique<DL::TInfoStorage>(text.c_str(), 2, true);
  } catch (const std::exception&) {
    out.code = ZDL_FIRM_NOT_LOADED;
    return out;
  }
  const char* client = q.client.c_str();
  const char* cls = q.classCode.c_str();
  const char* sec = q.secCode.c_str();
  const std::int32_t scaled = static_cast<std::int32_t>(DL::GetScaledLeverage(q.leverage));
  // Each family resolves with a section finder of its own, as each cache of
  // the module does: a finder remembers its answers per client, whatever the
  // section ending it was asked for. The finder only reads the parser.
  DL::TIniParser& parser = const_cast<DL::TIniParser&>(firm->Hub().GetParser());
  const DL::TIniLogicParser marginLogic(parser), clientLogic(parser), restrictionLogic(parser);
  auto add = [&](std::string name, std::string value, std::string level) {
    out.rows.push_back({std::move(name), std::move(value), std::move(level)});
  };

  const std::string marginEnding = TIniParser::GetPartIniSectCode(TIniParser::psc_Margin_Template);
  const std::string clientEnding = TIniParser::GetPartIniSectCode(TIniParser::psc_Client_Template);
  const std::string restrictionEnding = TIniParser::GetPartIniSectCode(TIniParser::psc_Restriction_Template);
  const std::string marginLevel =
      LevelOf(marginLogic, marginLogic.ResolveMarginSection(q.client, scaled), marginEnding, scaled, false);
  const std::string clientLevel =
      LevelOf(clientLogic, clientLogic.ResolveClientSection(q.client, scaled), clientEnding, scaled, false);
  const DL::TResolvedSection restriction = restrictionLogic.ResolveRestrictionTemplate(q.client, scaled);
  const std::string restrictionLevel =
      restriction.source == DL::SourceGlobal
          ? "global settings"
          : LevelOf(restrictionLogic, restriction, restrictionEnding, scaled, true);

  add("margin settings", "", marginLevel);
  add("client settings", "", clientLevel);
  add("restriction template", "", restrictionLevel);
  add("limit kinds", List(firm->ClientLimitKinds(client, q.leverage, 0)), marginLevel);
  add("effective limit kind of " + std::to_string(q.limitKind),
      std::to_string(firm->GetEffectiveLK(client, q.leverage, q.limitKind)), marginLevel);
  if (!q.classCode.empty())
    add("discount type of " + q.classCode, std::to_string(firm->GetDiscountType(client, q.limitKind, q.leverage, cls)),
        marginLevel);
  if (!q.classCode.empty() || !q.secCode.empty()) {
    add("limit kind of the operation", std::to_string(firm->GetLimitKindForOperationFromIni(client, q.leverage, sec, cls, "")),
        marginLevel);
    std::vector<int> chain;
    firm->GetChainLimitKindsForOperation(chain, sec, cls, "", client, q.leverage);
    add("limit kinds the operation draws on", List(chain), marginLevel);
  }
  if (!q.classCode.empty() && !q.secCode.empty()) {
    add("restricted for short positions", YesNo(firm->IsSecurityRestricted(client, q.leverage, cls, sec, q.limitKind)),
        marginLevel);
    add("allowed (AllowedSecurity)", YesNo(firm->IsSecurityAllowed(client, cls, sec, q.leverage)), clientLevel);
    int soft = 0;
    if (firm->IsSoftSecurityRestricted(&soft, client, q.leverage, cls, sec, q.limitKind, DL::sdBoth) == 0)
      add("soft SecurityRestricted hit", YesNo(soft != 0), restrictionLevel);
    add("allowed by the trade-account lists",
        YesNo(firm->IsSecurityAllowedTrdAcc(client, cls, sec, DL::sdBoth, q.leverage)), "global settings");

    const DL::TEffectiveDiscounts rec =
        firm->GetActualEffectiveDiscountsSettings(sec, cls, client, q.limitKind, q.leverage, false);
    add("discount line found", YesNo(rec.discountsSet), marginLevel);
    add("line DLong, DShort", Number(rec.DLong) + ", " + Number(rec.DShort), marginLevel);
    add("line KLong, KShort", Number(rec.KLong) + ", " + Number(rec.KShort), marginLevel);
    add("credit type", std::to_string(rec.creditType), "ClientLag / CREDITLAG");
    const std::string currency = q.currency.empty() ? firm->GetMainCurrency() : q.currency;
    DL::TDiscountsEx d;
    firm->GetEffectiveDiscountsEx(d, client, sec, cls, currency.c_str(), 0, q.limitKind, q.leverage, -1.0, -1.0, 0.0,
                                  0.0);
    add("effective DLong", Number(d.DLong), marginLevel);
    add("effective DShort", Number(d.DShort), marginLevel);
    add("effective DLongMin", Number(d.DLongMin), marginLevel);
    add("effective DShortMin", Number(d.DShortMin), marginLevel);
    add("risk currency", d.RCur[0] != '\0' ? std::string(d.RCur) : "(none)", marginLevel);
    add("marginal (bC), may short (bS)", YesNo(d.bC) + ", " + YesNo(d.bS), marginLevel);
  }
  const DLTypes::MarginTemplate* t = firm->GetMarginTemplate(client, q.leverage);
  add("margin template (typed store)", t != nullptr ? t->name : "(none)", marginLevel);
  add("main currency of the firm", firm->GetMainCurrency(), "global settings");
  return out;
}

}  // namespace zentdl
