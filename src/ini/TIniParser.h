#pragma once
// TIniParser: the parsed settings text of one firm, and the catalogue of the
// section and parameter names it knows by number.
//
// The catalogue (code tables, price types, supported parameters per section
// group) is static: shared by every parser of the process, filled by the
// first Init and read-only afterwards. Each list is one declarative .def
// table in this folder; the enums below and the name tables are generated
// from it, so a name has one spelling in the whole system.
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ini/IniSectCodes.h"

namespace DL {

class TIniParser {
 public:
  // Parameter names, by code number (IniParamCodes.def).
  enum EIniParamCodeNum : int {
#define ZDL_INI_PARAM(id, name) ipc##id,
#include "ini/IniParamCodes.def"
#undef ZDL_INI_PARAM
    ipcCount  // number of parameter codes; also "no parameter" (ipcNone)
  };
  static constexpr EIniParamCodeNum ipcNone = ipcCount;

  // Parts of section names (IniPartSectCodes.def).
  enum EPartIniSectCodeNum : int {
#define ZDL_INI_PART_SECT(id, text) psc##id,
#include "ini/IniPartSectCodes.def"
#undef ZDL_INI_PART_SECT
    pscCount
  };

  // Parts of parameter names (IniPartParamCodes.def).
  enum EPartIniParamCodeNum : int {
#define ZDL_INI_PART_PARAM(id, text) ppc##id,
#include "ini/IniPartParamCodes.def"
#undef ZDL_INI_PART_PARAM
    ppcCount
  };

  // The group a section of the text belongs to (see GetSectionsGroupNum).
  enum ESectType : int {
    SectClient = 0,                 // "cl" and a client code of up to 12 bytes
    SectClientTemplate = 1,         // "cl", name, "_Client_Template"
    SectGlobal = 2,                 // anything else
    SectMarginClient = 3,           // "cl", client or prefix "*" or <General>, "_Margin"[, "_LimitKind_" n]
    SectMarginTemplate = 4,         // "cl", name, "_Margin_Template"[, "_LimitKind_" n]
    SectRestrictionTemplate = 5,    // "cl", name, "_Restriction_Template"
    SectCommissionScale = 6,        // CommissionScaleBoards..., or "bd" ... "_CommissionScale"
    SectVolumeBasedCommission = 7,  // "cl" ... "VolumeBasedCommission_" ...
    SectSetOfInstruments = 8,       // "cl" ... "SetOfInstruments_" ...
    SectInvalid = 9,                // a negative limit kind: in no group
    SectTypeCount = 10
  };

  enum ETemplateType : int {
    TemplateClient = 0,
    TemplateCommissionScale = 1,
    TemplateMargin = 2,
    TemplateRestriction = 3
  };

  // How a key of a section matches a supported parameter's name; both are
  // compared in upper case.
  enum EParamMatchKind : std::int32_t {
    ParamMatchWhole = 0,   // the key is the name
    ParamMatchPrefix = 1,  // the key begins with the name
    ParamMatchSuffix = 2   // the key ends with the name
  };

  struct TSupParamAndSectCodes {
    std::int32_t paramCode;  // EIniParamCodeNum, ipcNone for none
    std::int32_t kind;       // EParamMatchKind
    std::int32_t sectCode;   // EIniSectCodeNum, iscNone for none
  };

  // ---- The catalogue ----

  // Names by code number, returned by reference; no bounds check. The Up
  // forms are the names through upper-casing, for comparisons ignoring case.
  // Valid once the tables are filled (FillCodeTables, run by Init).
  static const std::string& GetIniSectCode(EIniSectCodeNum code) { return m_iniSectCodes[code]; }
  static const std::string& GetIniSectCodeUp(EIniSectCodeNum code) { return m_iniSectCodesUp[code]; }
  static const std::string& GetPartIniSectCode(EPartIniSectCodeNum code) { return m_partIniSectCodes[code]; }
  static const std::string& GetPartIniSectCodeUp(EPartIniSectCodeNum code) { return m_partIniSectCodesUp[code]; }
  static const std::string& GetIniParamCode(EIniParamCodeNum code) { return m_iniParamCodes[code]; }
  static const std::string& GetIniParamCodeUp(EIniParamCodeNum code) { return m_iniParamCodesUp[code]; }
  static const std::string& GetPartIniParamCode(EPartIniParamCodeNum code) { return m_partIniParamCodes[code]; }
  static const std::string& GetPartIniParamCodeUp(EPartIniParamCodeNum code) { return m_partIniParamCodesUp[code]; }

  // Price types: the number of a name (exact, case included), 0 for an
  // unknown one; the name of a number, empty from 8 on; a number below 8
  // (0 included) is a price type.
  static int GetPriceType(const std::string& name);
  static const std::string& GetPriceTypeString(int type);
  static bool IsPriceType(int type) { return type < kPriceTypeCount; }
  static constexpr int kPriceTypeCount = 8;

  // The part section code of a template type's ending ("_Client_Template"
  // and so on). Returns 0, or 4 for a type that is no template type, leaving
  // `code` unset.
  [[nodiscard]] static int GetPartIniSectCodeNum__XXX_Template(EPartIniSectCodeNum& code, int type);

  // True when a key, given in upper case, matches the row's parameter by the
  // row's kind. A row without a parameter matches nothing.
  static bool DoesKeyMatchSupportedParam(const TSupParamAndSectCodes& row, std::string_view keyUp);

  // Each filler places its table's rows and checks it; the result is empty
  // on success, or the message naming the empty numbers. An already filled
  // table is left alone, so only the first call of the process works.
  static std::string SetIniSectionCodes();
  static std::string SetPartIniSectionCodes();
  static std::string SetIniParamCodes();
  static std::string SetPartIniParamCodes();
  static std::string SetPriceTypes();
  // Fills supParamAndSectCodes_ from its table when still empty.
  static void SetSupParamAndSectCodes();
  // Runs the five fillers and SetSupParamAndSectCodes; throws CErrors with
  // every message when a table has a hole. Called by Init.
  static void FillCodeTables();

  // By section group (ESectType), the parameters and sections it supports.
  static std::vector<std::vector<TSupParamAndSectCodes>> supParamAndSectCodes_;
  // Upper-case name to name of every section named in supParamAndSectCodes_:
  // the known global sections. Filled by DivideSectionsIntoGroups.
  static std::map<std::string, std::string> supGlobSectCodeUpToSectCodes_;

  static std::vector<std::string> m_iniSectCodes, m_iniSectCodesUp;
  static std::vector<std::string> m_partIniSectCodes, m_partIniSectCodesUp;
  static std::vector<std::string> m_iniParamCodes, m_iniParamCodesUp;
  static std::vector<std::string> m_partIniParamCodes, m_partIniParamCodesUp;
  static std::map<std::string, int> m_priceTypeSgToPriceType;
  static std::vector<std::string> m_priceTypeToPriceTypeSg;
};

}  // namespace DL
