// The static catalogue of TIniParser: name tables, price types, supported
// parameters per section group, and the fillers that check them.
#include <span>

#include "base/ResultCodes.h"
#include "ini/CodeTable.h"
#include "ini/TIniParser.h"

namespace DL {
namespace {

constexpr TCodeName kIniSectRows[] = {
#define ZDL_INI_SECT(id, name) {isc##id, name},
#include "ini/IniSectCodes.def"
#undef ZDL_INI_SECT
};

constexpr TCodeName kPartIniSectRows[] = {
#define ZDL_INI_PART_SECT(id, text) {TIniParser::psc##id, text},
#include "ini/IniPartSectCodes.def"
#undef ZDL_INI_PART_SECT
};

constexpr TCodeName kIniParamRows[] = {
#define ZDL_INI_PARAM(id, name) {TIniParser::ipc##id, name},
#include "ini/IniParamCodes.def"
#undef ZDL_INI_PARAM
};

constexpr TCodeName kPartIniParamRows[] = {
#define ZDL_INI_PART_PARAM(id, text) {TIniParser::ppc##id, text},
#include "ini/IniPartParamCodes.def"
#undef ZDL_INI_PART_PARAM
};

constexpr TCodeName kPriceTypeRows[] = {
#define ZDL_PRICE_TYPE(number, name) {number, name},
#include "ini/PriceTypes.def"
#undef ZDL_PRICE_TYPE
};

struct TSupRow {
  TIniParser::ESectType group;
  TIniParser::TSupParamAndSectCodes codes;
};

constexpr TSupRow kSupRows[] = {
#define ZDL_SUP_ROW(group, param, kind, sect)                                    \
  {TIniParser::group,                                                            \
   {TIniParser::ipc##param, TIniParser::ParamMatch##kind, isc##sect}},
#include "ini/SupParamAndSectCodes.def"
#undef ZDL_SUP_ROW
};

static_assert(std::size(kPartIniSectRows) == 21);
static_assert(std::size(kIniParamRows) == 195);
static_assert(std::size(kPartIniParamRows) == 7);
static_assert(std::size(kPriceTypeRows) + 1 == TIniParser::kPriceTypeCount);

}  // namespace

std::vector<std::vector<TIniParser::TSupParamAndSectCodes>> TIniParser::supParamAndSectCodes_;
std::map<std::string, std::string> TIniParser::supGlobSectCodeUpToSectCodes_;
std::vector<std::string> TIniParser::m_iniSectCodes, TIniParser::m_iniSectCodesUp;
std::vector<std::string> TIniParser::m_partIniSectCodes, TIniParser::m_partIniSectCodesUp;
std::vector<std::string> TIniParser::m_iniParamCodes, TIniParser::m_iniParamCodesUp;
std::vector<std::string> TIniParser::m_partIniParamCodes, TIniParser::m_partIniParamCodesUp;
std::map<std::string, int> TIniParser::m_priceTypeSgToPriceType;
std::vector<std::string> TIniParser::m_priceTypeToPriceTypeSg;

std::string TIniParser::SetIniSectionCodes() {
  return FillCodeTable(kIniSectRows, iscCount, "Not filled ini-section codes with numbers: ",
                       m_iniSectCodes, m_iniSectCodesUp);
}

std::string TIniParser::SetPartIniSectionCodes() {
  return FillCodeTable(kPartIniSectRows, pscCount,
                       "Not filled part of ini-section codes with numbers: ", m_partIniSectCodes,
                       m_partIniSectCodesUp);
}

std::string TIniParser::SetIniParamCodes() {
  return FillCodeTable(kIniParamRows, ipcCount, "Not filled ini-parameter codes with numbers: ",
                       m_iniParamCodes, m_iniParamCodesUp);
}

std::string TIniParser::SetPartIniParamCodes() {
  return FillCodeTable(kPartIniParamRows, ppcCount,
                       "Not filled part of ini-parameter codes with numbers: ",
                       m_partIniParamCodes, m_partIniParamCodesUp);
}

std::string TIniParser::SetPriceTypes() {
  return FillPriceTypeTables(kPriceTypeRows, kPriceTypeCount, m_priceTypeSgToPriceType,
                             m_priceTypeToPriceTypeSg);
}

void TIniParser::SetSupParamAndSectCodes() {
  if (supParamAndSectCodes_.empty()) {
    supParamAndSectCodes_.resize(SectTypeCount - 1);  // one vector per group up to SectSetOfInstruments
    for (const TSupRow& row : kSupRows) supParamAndSectCodes_[row.group].push_back(row.codes);
  }
  FillKnownGlobalSections();
}

void TIniParser::FillKnownGlobalSections() {
  // Needs the section name tables; a hole there is reported by the caller.
  if (m_iniSectCodesUp.size() != iscCount) return;
  for (const auto& group : supParamAndSectCodes_)
    for (const TSupParamAndSectCodes& row : group)
      if (row.sectCode >= 0 && row.sectCode < iscCount) {
        const auto code = static_cast<EIniSectCodeNum>(row.sectCode);
        supGlobSectCodeUpToSectCodes_.emplace(GetIniSectCodeUp(code), GetIniSectCode(code));
      }
}

int TIniParser::GetPriceType(const std::string& name) {
  const auto it = m_priceTypeSgToPriceType.find(name);
  return it == m_priceTypeSgToPriceType.end() ? 0 : it->second;
}

const std::string& TIniParser::GetPriceTypeString(int type) {
  static const std::string kNone;
  if (type < 0 || type >= kPriceTypeCount ||
      static_cast<std::size_t>(type) >= m_priceTypeToPriceTypeSg.size())
    return kNone;
  return m_priceTypeToPriceTypeSg[type];
}

int TIniParser::GetPartIniSectCodeNum__XXX_Template(EPartIniSectCodeNum& code, int type) {
  switch (type) {
    case TemplateClient: code = psc_Client_Template; return ZDL_OK;
    case TemplateCommissionScale: code = psc_CommissionScale_Template; return ZDL_OK;
    case TemplateMargin: code = psc_Margin_Template; return ZDL_OK;
    case TemplateRestriction: code = psc_Restriction_Template; return ZDL_OK;
    default: return ZDL_NOT_FOUND;
  }
}

bool TIniParser::DoesKeyMatchSupportedParam(const TSupParamAndSectCodes& row,
                                            std::string_view keyUp) {
  if (row.paramCode < 0 || row.paramCode >= ipcCount) return false;
  const std::string& name = m_iniParamCodesUp[row.paramCode];
  switch (row.kind) {
    case ParamMatchWhole: return keyUp == name;
    case ParamMatchPrefix: return keyUp.starts_with(name);
    case ParamMatchSuffix: return keyUp.ends_with(name);
    default: return false;
  }
}

}  // namespace DL
