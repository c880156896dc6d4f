#pragma once
// The second reading of a settings text: only the sections the margin method
// wants typed ("General", sets of instruments, margin templates), each by a
// declared grammar of flags, simple settings and complex settings. The parser
// keeps the text of every recognised setting; the typed store converts it.
// Nothing here fails: a section outside the grammar, an unknown key or an
// item that is not well formed is dropped, and the rest of the text goes on.
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ini/SettingsText.h"

namespace DLTypes {

enum SettingTypeFlag : int {
  stfNone = 0,
  stfFuturesDiscountFromCollateralAmount,
  stfUseSetsForNonTemplateClients,
  stfHighRiskLevelClients,
  stfUseGlobalSets,
};

enum SettingTypeSimple : int {
  stsNone = 0,
  stsBaseCurrency,
  stsClassesWithVarMarginCalc,
  stsClassesWithVarMarginCalcOnSettlePrice,
  stsCreditLag,
  stsDerivativesAutoInclusion,
  stsMDPlusMinMarginCalcRate,
  stsThresMarginCoeff,
  stsVolatilityChangeScenarios,
  stsBaseIndicator,
  stsNettingType,
  stsClients,
  stsIncludeClientsWithLeverage,
};

enum SettingTypeComplex : int {
  stcNone = 0,
  stcInstruments,  // rows of "Instrument" with "RelativeRiskRate" and "DependencyTrend"
};

enum SettingParameterID : int {
  spNone = 0,
  spValue,  // the one argument of a simple setting
  spInstrument,
  spRelativeRiskRate,
  spDependencyTrend,
};

// The kinds of template section, in the order their rules are tried.
enum TemplateSectionName : int {
  tsnMarginTemplate = 0,        // "cl" code "_Margin_Template"
  tsnSetOfInstruments = 1,      // "SetOfInstruments_" name
  tsnTemplateSetOfInstruments = 2,  // "cl" code "_SetOfInstruments_" name "_Template"
  tsnNone = 4,                  // no template section
};

// One "Name<value>" item of a setting line.
struct SettingParameter {
  std::string name;
  std::string value;
  bool operator==(const SettingParameter&) const = default;
};
using SettingArgs = std::vector<SettingParameter>;

// The classification of a section name: its kind and the texts of its parts
// (for a margin template the code; for a global set its name; for a set of a
// template the code and the name).
struct TemplateSectionNameInfo {
  TemplateSectionName kind = tsnNone;
  std::vector<std::string> parts;
};

// What was read of one section, by setting type; the last line of a flag or
// simple setting stands, complex rows keep their order.
struct SectionText {
  std::string name;  // the section name as written
  std::map<SettingTypeFlag, std::string> flags;
  std::map<SettingTypeSimple, std::string> simple;
  std::map<SettingTypeComplex, std::vector<SettingArgs>> complex;
};

namespace TOOLS {
// Reads "Name<value>" items from `start`, separated by blanks, commas or
// both. Stops at the first item that is not well formed (empty name, no "<"
// before its ">", a blank inside the name) and returns what was gathered.
SettingArgs GetSettingArgs(std::string_view value, std::size_t start = 0);
}  // namespace TOOLS

class Parser {
 public:
  Parser() = default;
  virtual ~Parser() = default;

  // Builds the name tables. Called once, before any parse.
  void InitParser();
  // Parses a settings file (false when it cannot be read: nothing parsed).
  bool ParseIniFile(const char* path);
  // Parses a whole settings text, section by section in the order written.
  void ParseIniText(std::string_view text);
  // Parses sections already read into a section map (in its order; a key
  // keeps the value the map holds).
  void ParseIniFile(const DL::TIniSectionsMap& sections);

  static TemplateSectionNameInfo IsSectionTemplate(std::string_view name);
  bool IsGlobalSectionRepeat(std::string_view name) const;
  bool IsTemplateSectionRepeat(const TemplateSectionNameInfo& info) const;

  // What was read of "General" (null when the text has none).
  const SectionText* GetGlobalSection() const { return m_general.name.empty() ? nullptr : &m_general; }
  std::string GetGlobalFlagSettingText(SettingTypeFlag flag) const;
  std::string GetGlobalSimpleSettingText(SettingTypeSimple setting) const;
  // All sections read of one template kind, by their parts.
  const std::map<std::vector<std::string>, SectionText>& GetTemplateTypeExamples(TemplateSectionName kind) const;
  const SectionText* GetTemplateSection(TemplateSectionName kind, const std::vector<std::string>& parts) const;

 private:
  struct TGrammar {
    std::map<std::string, SettingTypeFlag, DL::StringMapComparerFunc> flags;
    std::map<std::string, SettingTypeSimple, DL::StringMapComparerFunc> simple;
    // A complex setting by the names of its items.
    std::vector<std::pair<std::vector<std::string>, SettingTypeComplex>> complex;
  };
  void BeginSection(const std::string& name);
  void ParseSettingLine(const TGrammar& grammar, SectionText& section, const std::string& key,
                        const std::string& value) const;
  static bool IsComplexSetting(const TGrammar& grammar, const SettingArgs& args, SettingTypeComplex& out);

  TGrammar m_globalGrammar;
  TGrammar m_setGrammar;
  TGrammar m_templateGrammar;
  bool m_initialised = false;

  SectionText m_general;
  std::map<std::vector<std::string>, SectionText> m_templates[3];
  // The section being read: null when its lines are skipped.
  SectionText* m_current = nullptr;
  const TGrammar* m_currentGrammar = nullptr;
};

}  // namespace DLTypes
