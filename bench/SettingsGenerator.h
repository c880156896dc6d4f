#pragma once
// Synthetic settings texts of a firm for benchmarks: global sections, the
// ClientCval list, a few client templates, and one section "cl<code>" of about
// twenty parameters per client. The same arguments always give the same text.
//
//   GenerateSettingsText({.clients = 10000})       a firm of 10000 clients
//   GenerateSettingsTextOfSize(10 << 20)            about 10 MB of text
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <string>

namespace zbench {

struct TSettingsTextShape {
  std::size_t clients = 1000;         // client sections "cl<code>"
  std::size_t paramsPerClient = 20;   // key lines per client section, at most 24
  bool crlf = true;                   // "\r\n" and an empty line after each section, as the normalizer writes
  std::uint32_t seed = 1;             // varies the values, not the layout
  bool allGroups = false;             // also margin, restriction and commission scale sections of every group
};

namespace detail {

class TRandom {
 public:
  explicit TRandom(std::uint32_t seed) : m_state(seed * 2654435761u + 1) {}
  std::uint32_t Next() {
    m_state ^= m_state << 13;
    m_state ^= m_state >> 17;
    m_state ^= m_state << 5;
    return m_state;
  }
  std::uint32_t Below(std::uint32_t n) { return Next() % n; }

 private:
  std::uint32_t m_state;
};

// Keys of a client section, in the order a canonical text lists them (not sorted).
inline const char* const kClientKeys[] = {
    "UseTotalBalance",      "LimitsInLots",         "MaxOrderQuantity_TQBR", "MaxOrderQuantity_SPBFUT",
    "OrderMaxValue",        "PriceLimit_TQBR",      "ProhibedTrdAcc",        "AllowedPartners",
    "CommissionType",       "TradeCommission",      "TSCommission_TQBR",     "RepoPerDayCommission_EQRP",
    "MinDiscRateLong",      "MinDiscRateShort",     "SecPricePrior",         "UseCHSecurityDiscounts",
    "RelativeRiskRate",     "ThresMarginCoeff",     "ManagerCanClosePos",    "MaxPositionLimit_SBER",
    "QualifiedInvestors",   "FloodControl",         "UseSecurityDiscounts",  "SecurityRestricted_TQBR",
};

class TWriter {
 public:
  TWriter(std::string& out, bool crlf) : m_out(out), m_eol(crlf ? "\r\n" : "\n"), m_crlf(crlf) {}
  void Header(const std::string& name) {
    m_out += '[';
    m_out += name;
    m_out += ']';
    m_out += m_eol;
  }
  void Key(const std::string& key, const std::string& value) {
    m_out += key;
    m_out += '=';
    m_out += value;
    m_out += m_eol;
  }
  void End() {
    if (m_crlf) m_out += m_eol;
  }

 private:
  std::string& m_out;
  const char* m_eol;
  bool m_crlf;
};

inline std::string Number(std::uint32_t v) { return std::to_string(v); }

inline std::string Decimal(TRandom& r) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%u.%02u", r.Below(1000), r.Below(100));
  return buf;
}

}  // namespace detail

// The client code of the i-th client: "C" and six digits.
inline std::string ClientCode(std::size_t i) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "C%06zu", i % 1000000);
  return buf;
}

inline std::string GenerateSettingsText(const TSettingsTextShape& shape) {
  detail::TRandom r(shape.seed);
  std::string out;
  detail::TWriter w(out, shape.crlf);

  w.Header("General");
  const char* const general[] = {"CLIENTCVAL",          "CREDITLAG",       "LimitsInLots",      "UseTotalBalance",
                                 "CheckClientRestrictions", "ClientMarketOrder", "WriteDebugInfo", "SupportMultiCurrency",
                                 "UseDiscountsType",    "UseCommissionScale", "MDPlusMinMarginCalcRate",
                                 "CommissionSettingsCurrency", "TransferBoard", "SecPricePrior"};
  for (const char* key : general) w.Key(key, detail::Number(r.Below(3)));
  w.End();

  w.Header("RestrictSecurity");
  w.Key("TQBR", "SBER,GAZP,LKOH,ROSN,VTBR,GMKN");
  w.Key("TQOB", "SU26238RMFS4,SU26240RMFS0");
  w.Key("SPBFUT", "SiZ6,RIZ6,BRF7");
  w.End();

  w.Header("ProhibitOrders");
  w.Key("Clients", ClientCode(0) + "," + ClientCode(1));
  w.End();

  w.Header("ClientCval");
  for (std::size_t i = 0; i < shape.clients; i += 7) w.Key(ClientCode(i), detail::Number(r.Below(2)));
  w.End();

  for (std::size_t t = 0; t < 5; ++t) {
    w.Header("clTemplate" + std::to_string(t) + "_Client_Template");
    std::string clients;
    for (std::size_t i = t; i < shape.clients && i < t + 200; i += 5) clients += (clients.empty() ? "" : ",") + ClientCode(i);
    w.Key("Clients", clients);
    w.Key("Leverage", std::to_string(t + 1));
    w.Key("TradeCommission", detail::Decimal(r));
    w.End();
  }

  if (shape.allGroups) {
    // The general margin section and its limit kinds.
    w.Header("cl<General>_Margin");
    w.Key("MarginCallLevel", detail::Decimal(r));
    w.Key("CloseLevel", detail::Decimal(r));
    w.End();
    w.Header("cl<General>_Margin_LimitKind_2");
    w.Key("MarginCallLevel", detail::Decimal(r));
    w.End();
    // Client masks: one prefix margin section per hundred codes.
    for (std::size_t p = 0; p * 100 < shape.clients && p < 50; ++p) {
      w.Header("cl" + ClientCode(p * 100).substr(0, 5) + "*_Margin");
      w.Key("MarginCallLevel", detail::Decimal(r));
      w.End();
    }
    // Margin templates with leverages and client lists, one with a limit kind.
    for (std::size_t t = 0; t < 5; ++t) {
      const std::string name = "clMarginTemplate" + std::to_string(t) + "_Margin_Template";
      w.Header(name);
      std::string clients;
      for (std::size_t i = t + 1; i < shape.clients && i < t + 300; i += 5)
        clients += (clients.empty() ? "" : ",") + ClientCode(i);
      w.Key("Clients", clients);
      w.Key("IncludeClientsWithLeverage", std::to_string(t + 1) + "," + std::to_string(t + 1) + ".5");
      w.Key("MarginCallLevel", detail::Decimal(r));
      w.End();
      if (t == 0) {
        w.Header(name + "_LimitKind_1");
        w.Key("MarginCallLevel", detail::Decimal(r));
        w.End();
      }
    }
    for (std::size_t t = 0; t < 3; ++t) {
      w.Header("clRestr" + std::to_string(t) + "_Restriction_Template");
      w.Key("Clients", ClientCode(t) + "," + ClientCode(t + 3));
      w.Key("RestrictSecurity", "SBER,GAZP");
      w.End();
    }
    w.Header("CommissionScaleBoards");
    w.Key("TQBR", "1");
    w.End();
    w.Header("bdTQBR_CommissionScale");
    w.Key("0", "0.05");
    w.Key("1000000", "0.03");
    w.End();
    // One margin section per fiftieth client.
    for (std::size_t i = 0; i < shape.clients; i += 50) {
      w.Header("cl" + ClientCode(i) + "_Margin");
      w.Key("MarginCallLevel", detail::Decimal(r));
      w.Key("CloseLevel", detail::Decimal(r));
      w.End();
    }
  }

  const std::size_t params = shape.paramsPerClient < std::size(detail::kClientKeys) ? shape.paramsPerClient
                                                                                    : std::size(detail::kClientKeys);
  for (std::size_t i = 0; i < shape.clients; ++i) {
    w.Header("cl" + ClientCode(i));
    for (std::size_t k = 0; k < params; ++k) {
      const std::uint32_t kind = static_cast<std::uint32_t>(k % 4);
      std::string value = kind == 0   ? detail::Number(r.Below(2))
                          : kind == 1 ? detail::Number(r.Below(1000000))
                          : kind == 2 ? detail::Decimal(r)
                                      : "TQBR,SPBFUT,CETS";
      w.Key(detail::kClientKeys[k], value);
    }
    w.End();
  }
  return out;
}

inline std::string GenerateSettingsText(std::size_t clients) {
  TSettingsTextShape shape;
  shape.clients = clients;
  return GenerateSettingsText(shape);
}

// A text of about targetBytes (within one client section), of the given shape
// otherwise.
inline std::string GenerateSettingsTextOfSize(std::size_t targetBytes, TSettingsTextShape shape = {}) {
  shape.clients = 1000;
  const std::size_t perThousand = GenerateSettingsText(shape).size();
  shape.clients = 0;
  const std::size_t fixed = GenerateSettingsText(shape).size();
  const std::size_t perClient = (perThousand - fixed) / 1000;
  shape.clients = targetBytes > fixed ? (targetBytes - fixed) / (perClient == 0 ? 1 : perClient) : 0;
  return GenerateSettingsText(shape);
}

}  // namespace zbench
