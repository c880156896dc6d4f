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
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "ini/IniSectCodes.h"
#include "ini/SettingsText.h"

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
  // Fills supParamAndSectCodes_ from its table when still empty, and the
  // known global sections from it.
  static void SetSupParamAndSectCodes();
  // Enters every section named in supParamAndSectCodes_ into
  // supGlobSectCodeUpToSectCodes_ (upper-case name to name).
  static void FillKnownGlobalSections();
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

  // ---- The parsed text ----

  using TKeyMap = DL::TIniKeyMap;            // key -> value, case-insensitive keys
  using TSectionsMap = DL::TIniSectionsMap;  // section name -> key map
  using TSectionIt = TSectionsMap::iterator;
  using TLimitKindMap = std::map<std::uint64_t, TSectionIt>;  // limit kind -> section
  using TClientSectionsMap = std::map<std::string, TSectionIt, StringMapComparerFunc>;
  using TClientLimitKindsMap = std::map<std::string, TLimitKindMap, StringMapComparerFunc>;
  using TLeverageToTemplateMap = std::map<std::int32_t, TClientSectionsMap::iterator>;
  using TLeverageToMarginTemplateMap = std::map<std::int32_t, TClientLimitKindsMap::iterator>;
  using TClientToMarginTemplateMap =
      std::map<std::string, TClientLimitKindsMap::iterator, StringMapComparerFunc>;
  // Canonical section name -> section; end() of the sections map when a
  // supported section is absent from the text.
  using TGlobalSectionsMap = std::map<std::string, TSectionIt, StringMapComparerFunc>;

  // Source modes of Init.
  enum ESourceMode : int { SourceFile = 1, SourceText = 2 };

  TIniParser();
  // Constructs and calls Init with the same arguments.
  TIniParser(const char* source, int mode, char comment, unsigned flags);
  TIniParser(const TIniParser&) = delete;
  TIniParser& operator=(const TIniParser&) = delete;

  // Fills the catalogue (throws CErrors on a hole), forgets the previous
  // text, and reads `source`: mode 1 a file path, mode 2 the text itself.
  // Returns 1 when a text was read, 0 otherwise (missing file, other mode);
  // the parser is then empty but usable.
  int Init(const char* source, int mode, char comment, unsigned flags);

  // ---- Reading a parameter ----
  // Each getter takes the section as a key map, a pointer to one (null for
  // none), a sections iterator (end() for none) or a section name, and the
  // parameter as a name or an EIniParamCodeNum, and a default. A missing
  // section or key gives the default.

  // The value; a key with an empty value gives the empty value.
  template <class S, class K>
  const std::string& GetIniParamString(const S& section, const K& key, const std::string& def) const {
    const std::string* v = FindValue(SectionOf(section), KeyOf(key));
    return v ? *v : def;
  }
  // strtol in base 10 narrowed to 32 bits; an empty value gives the default.
  template <class S, class K>
  int GetIniParamInt(const S& section, const K& key, int def) const {
    return ValueToInt(FindValue(SectionOf(section), KeyOf(key)), def);
  }
  // strtod; an empty value gives the default.
  template <class S, class K>
  double GetIniParamDouble(const S& section, const K& key, double def) const {
    return ValueToDouble(FindValue(SectionOf(section), KeyOf(key)), def);
  }
  // strtol in base 10 not equal to zero; an empty value gives the default.
  template <class S, class K>
  bool GetIniParamBool(const S& section, const K& key, bool def) const {
    const std::string* v = FindValue(SectionOf(section), KeyOf(key));
    return (v && !v->empty()) ? ValueToInt(v, 0) != 0 : def;
  }
  // The first byte; an empty value gives the default.
  template <class S, class K>
  char GetIniParamChar(const S& section, const K& key, char def) const {
    const std::string* v = FindValue(SectionOf(section), KeyOf(key));
    return (v && !v->empty()) ? (*v)[0] : def;
  }
  // C form: copies the value (or the default, null taken as empty) with its
  // end byte into `out` and returns its length.
  int GetIniParamString(const char* section, const char* key, char* out, const char* def) const;

  // The value of the first key equal to `key` ignoring case, in map order,
  // split at "," with items trimmed; an empty vector when there is none.
  static std::vector<std::string> GetIniSettingByKey(const TKeyMap& keys, const std::string& key);

  // ---- Composing names ----
  void GetClientSettingsSectionCode(std::string& out, const std::string& client) const;
  void GetClientTemplateSectionCode(std::string& out, const std::string& templ) const;
  void GetRestrictionTemplateSectionCode(std::string& out, const std::string& templ) const;
  // "cl", client, "_Margin"; a limit kind other than 0 adds "_LimitKind_" n.
  void GetMarginClientSettingsSectionCode(std::string& out, const std::string& client,
                                          std::uint64_t limitKind) const;
  void GetMarginTemplateSectionCode(std::string& out, const std::string& templ,
                                    std::uint64_t limitKind) const;
  // "[", the section's name, "]".
  void GetSectionHeader(std::string& out, EIniSectCodeNum code) const;
  // "TP" plan "_" (with a plan), then "BD" board "_COMMISSIONSCALE".
  std::string GetTPScaleSectionName(const std::string& plan, const std::string& board) const;
  // The parameter's name, "=", the value in decimal.
  void SettingIntValueToStr(std::string& out, EIniParamCodeNum code, long long value) const;

  // ---- Finding sections ----
  TSectionIt FindIniSection(const std::string& name);
  TSectionsMap::const_iterator FindIniSection(const std::string& name) const;
  TKeyMap* FindIniSectionRef(const std::string& name);
  const TKeyMap* FindIniSectionRef(const std::string& name) const;
  // Group 2: the section of the global map (null if absent from the text);
  // other groups: the section of that name, or null.
  TKeyMap* FindIniSection(EIniSectCodeNum code, ESectType type);
  bool IsSectionExist(const std::string& name) const;
  bool IsSectionExist(TSectionsMap::const_iterator it) const;
  // A copy of the key map, empty for a missing section.
  TKeyMap GetIniSection(const std::string& name) const;
  // The lines key=value, each ended by a zero byte, then one more zero byte;
  // an empty string (one zero byte) for a missing section. Returns the bytes
  // written before the final zero.
  int GetIniSection(const char* section, char* out) const;
  // The names, each ended by a zero byte, then one more zero byte. Returns
  // the bytes written before the final zero.
  int GetIniSectionNames(char* out) const;
  // True only if the name is known and its key map is empty.
  bool DoesSectionEmpty(const std::string& name) const;
  // With an empty ending: the upper-case name equal to the upper-case
  // beginning, found by binary search among the sorted names; with an
  // ending: the first upper-case name, in sorted order, that begins and ends
  // so. The empty string when there is none. Sections added since the last
  // InitSectionNames are not seen by the binary search.
  std::string DoesSectionExist(const std::string& beginning, const std::string& ending) const;
  // The binary search alone, for an upper-case name: the hot path of prefix
  // resolution, free of allocation.
  bool DoesSectionExistUp(std::string_view nameUp) const;
  // The names (as written) whose upper form begins with the upper text;
  // an empty text gives all.
  std::vector<std::string> GetSectionNamesFromParser(const std::string& text) const;
  // Without `contains`: the section of that exact name; with it, every
  // section whose upper name holds the upper text. Returns 0 when something
  // was found, 4 when not.
  [[nodiscard]] int GetSectionFromParser(const std::string& text, bool contains, TSectionsMap& out) const;
  // Group 2 only: `out` is the global map; for any other type null. Returns 0.
  int GetSectionDictionary(int type, TGlobalSectionsMap*& out);

  // ---- Classifying sections ----
  struct TSectionClass {
    ESectType group = SectGlobal;
    std::string name;             // canonical name (groups 2, 6, 8)
    std::string client;           // client or prefix (groups 0, 3)
    std::string templ;            // template name (groups 1, 4, 5)
    std::int64_t limitKind = 0;   // groups 3, 4
    int clientKind = 2;           // group 3: 0 general, 1 prefix, 2 client
  };
  // The group of a section name, ignoring case; see the rules in the .cpp.
  static ESectType GetSectionsGroupNum(const std::string& section, std::string& name,
                                       std::string& client, std::string& templ,
                                       std::int64_t& limitKind, int& clientKind);
  static TSectionClass ClassifySection(const std::string& section);

  // ---- Editing ----
  // Sets key to the value written through a stream; end() does nothing.
  template <class V>
  void SetIniParam(TSectionIt it, const std::string& key, const V& value) {
    if (it == m_sections.end()) return;
    it->second[key] = ToText(value);
  }
  // Creates a missing section, appending its name to the name vectors
  // unsorted and entering it into no group: the caller does that.
  template <class V>
  void SetIniParam(const std::string& section, const std::string& key, const V& value) {
    SetIniParam(CreateSectionUngrouped(section), key, value);
  }
  // Inserts a copy (an existing section is kept) and enters it into its group.
  TSectionIt AddIniSection(const std::string& name, const TKeyMap& keys);
  TSectionIt FindOrCreateIniSection(const std::string& name);
  // Takes the section out of its group and erases it; the name vectors stay.
  void RemoveIniSection(const std::string& name);
  void RemoveIniSection(TSectionIt it);
  void AddSectionIntoSectionsGroup(TSectionIt it);
  void RemoveSectionFromSectionsGroup(TSectionIt it);
  // Edits a ","-separated list value: see the .cpp. A missing key is added.
  static void ChangeIniParamValueListByKey(TKeyMap& keys, const std::string& key,
                                           const std::string& valueList, bool replace,
                                           bool keepOrder);
  // Sets the parameter in the template's section and in each of its
  // "_LimitKind_" twins. Returns 0, 3 for an empty template name, 15 for an
  // unknown type or a commission scale template that cannot be created.
  [[nodiscard]] int SetTemplateParamToAllLimitKinds(int type, const std::string& templ,
                                                    EIniParamCodeNum param, const std::string& value);
  // Replaces this parser's restriction templates by those of `other`.
  void ReloadRestrictionsTemplates(const TIniParser& other);
  // Sorts the name vectors anew; sections added by SetIniParam become
  // visible to DoesSectionExist.
  void InitSectionNames();

  // ---- Templates ----
  // True if `item` stands in the CLIENTS list of the section. The list is
  // split and sorted on first use and kept until Init or
  // ReloadRestrictionsTemplates: later edits of the list are not seen.
  bool FindTemplateString(const std::string& section, const std::string& item);
  // The client template bound to the leverage, by its exact scaled value.
  // Returns 1 and the template's name, or 0 (leverage below -1e-7, null out).
  int GetTemplateClientSectionByLeverage(double leverage, std::string* out) const;

  // ---- Rendering ----
  // "[name]\n" and each "key=value\n" in map order; empty for an empty section.
  std::string GetRowFromSection(TSectionsMap::const_iterator it) const;
  std::string GetRowFromSection(const std::string& name) const;
  // The same with the Clients line first, even when the key is absent.
  std::string GetRowFromTemplateSection(TSectionsMap::const_iterator it) const;

  // ---- Group maps and name vectors ----
  TSectionsMap& GetSections() { return m_sections; }
  const TSectionsMap& GetSections() const { return m_sections; }
  const TKeyMap& GetCValSection() const { return m_cvalSection; }
  // The same map for an edit (the save writes it as it stands).
  TKeyMap& GetCValSectionForEdit() { return m_cvalSection; }
  const std::vector<std::string>& GetIniSectionNames() const { return m_sectionNamesUp; }
  const std::vector<std::string>& GetIniSectionNamesUpperOrdered() const { return m_sectionNamesUpOrdered; }
  const std::vector<std::string>& GetIniSectionNamesNotUpper() const { return m_sectionNames; }
  const TClientSectionsMap& GetClientSettings() const { return m_clientSections; }
  const TClientSectionsMap& GetClientTemplateSettings() const { return m_clientTemplates; }
  const TLeverageToTemplateMap& GetClientTemplateWithLeverageSettings() const { return m_clientTemplatesByLeverage; }
  const TGlobalSectionsMap& GetGlobalSettings() const { return m_globalSections; }
  const TLimitKindMap& GetMarginGlobalSettings() const { return m_marginGlobal; }
  const TClientLimitKindsMap& GetMarginClientSettings() const { return m_marginClients; }
  const TClientLimitKindsMap& GetMarginPrefixClientSettings() const { return m_marginPrefixClients; }
  const TClientLimitKindsMap& GetMarginTemplateSettings() const { return m_marginTemplates; }
  const TLeverageToMarginTemplateMap& GetMarginTemplateWithLeverageSettings() const { return m_marginTemplatesByLeverage; }
  const TClientToMarginTemplateMap& GetMarginTemplateWithClientCodeSettings() const { return m_marginTemplatesByClient; }
  const TClientSectionsMap& GetRestrictionTemplateSettings() const { return m_restrictionTemplates; }
  const std::string& GetListSeparator() const { return m_listSeparator; }
  // Changes whenever the name vectors change (InitSectionNames, a section
  // created by SetIniParam), so that a reader may keep what it derived from
  // them until then.
  std::uint64_t GetSectionNamesGeneration() const { return m_namesGeneration; }
  // A default that outlives every call, for the by-reference getters.
  static const std::string& EmptyString();

 private:
  const TKeyMap* SectionOf(const TKeyMap& m) const { return &m; }
  const TKeyMap* SectionOf(const TKeyMap* m) const { return m; }
  const TKeyMap* SectionOf(TSectionsMap::const_iterator it) const {
    return it == m_sections.end() ? nullptr : &it->second;
  }
  const TKeyMap* SectionOf(TSectionIt it) const { return SectionOf(TSectionsMap::const_iterator(it)); }
  const TKeyMap* SectionOf(const std::string& name) const { return FindIniSectionRef(name); }
  const TKeyMap* SectionOf(const char* name) const { return FindIniSectionRef(std::string(name ? name : "")); }
  static const std::string& KeyOf(const std::string& key) { return key; }
  static std::string KeyOf(const char* key) { return key ? key : ""; }
  static const std::string& KeyOf(EIniParamCodeNum code) { return GetIniParamCode(code); }
  static const std::string* FindValue(const TKeyMap* keys, const std::string& key);
  static int ValueToInt(const std::string* v, int def);
  static double ValueToDouble(const std::string* v, double def);
  template <class V>
  std::string ToText(const V& value) {
    m_out.str(std::string());
    m_out.clear();
    m_out << value;
    return m_out.str();
  }
  TSectionIt CreateSectionUngrouped(const std::string& name);
  // GetSectionsGroupNum for a name whose upper form is at hand.
  static ESectType SectionsGroupOfUpper(const std::string& section, const std::string& up, std::string& name,
                                        std::string& client, std::string& templ, std::int64_t& limitKind,
                                        int& clientKind);
  // InitSectionNames and DivideSectionsIntoGroups, with the same outcome,
  // in one walk of the sections map: the indexing step of Init.
  void IndexSections();
  void StartSectionNames();   // a new generation of empty name vectors
  void FinishSectionNames();  // sorts them, fills the upper forms in written order
  void DivideSectionsIntoGroups();
  void StartGroups();   // empty group maps, the known global sections listed
  void FinishGroups();  // each known global section absent from the text enters without a section
  void AddSectionIntoSectionsGroup_Body(TSectionIt it, const TSectionClass& c);
  void RemoveSectionFromSectionsGroup_Body(TSectionIt it, const TSectionClass& c);
  void ClearGroups();
  std::string ComposeTemplateSection(const std::string& templ, EPartIniSectCodeNum ending) const;

  std::string m_listSeparator = ",";
  TSectionsMap m_sections;
  TKeyMap m_cvalSection;
  std::vector<std::string> m_sectionNamesUp;         // sorted upper names
  std::vector<std::string> m_sectionNamesUpOrdered;  // upper forms in the order of m_sectionNames
  std::vector<std::string> m_sectionNames;           // sorted names as written
  std::uint64_t m_namesGeneration = 0;
  TClientSectionsMap m_clientSections;
  TClientSectionsMap m_clientTemplates;
  TLeverageToTemplateMap m_clientTemplatesByLeverage;
  TGlobalSectionsMap m_globalSections;
  TLimitKindMap m_marginGlobal;
  TClientLimitKindsMap m_marginClients;
  TClientLimitKindsMap m_marginPrefixClients;
  TClientLimitKindsMap m_marginTemplates;
  TLeverageToMarginTemplateMap m_marginTemplatesByLeverage;
  TClientToMarginTemplateMap m_marginTemplatesByClient;
  TClientSectionsMap m_restrictionTemplates;
  std::map<std::string, std::vector<std::string>, StringMapComparerFunc> m_templateStringMemo;
  const TKeyMap m_emptySection{};
  std::ostringstream m_out;  // number formatting of SetIniParam
};

}  // namespace DL
