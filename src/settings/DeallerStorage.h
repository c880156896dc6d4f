#pragma once
// The typed store: the settings that the margin method reads, in checked
// types, built beside the hub from the same text. It answers which margin
// template and which sets of instruments apply to a client at a leverage.
// A setting that its type refuses keeps its default; a set of instruments
// whose name is refused is left out; nothing stops a load.
#include <map>
#include <string>
#include <utility>

#include "settings/DeallerParser.h"
#include "settings/TypedSections.h"

namespace DLTypes {

// 1: the entry names a template; anything else: the global settings apply.
using USING_SETTING_TYPE = int;
inline constexpr USING_SETTING_TYPE kUseTemplate = 1;

class Storage : public Parser {
 public:
  using TClaim = std::pair<USING_SETTING_TYPE, std::string>;  // how, and the template's name

  // Reads the settings file when `parse` is set.
  Storage(const char* path, bool parse);
  // Reads a section map already parsed (the hub's).
  explicit Storage(const DL::TIniSectionsMap& sections);
  // Reads a whole settings text.
  static Storage FromText(std::string_view text);

  // Turns what the parser read into typed values; tecSuccess, or the code of
  // the last refusal (which changed nothing).
  int LoadSettingsFromParser();

  const General& GetGeneralSection() const { return m_general; }
  void SetFlagToGeneralSection(SettingTypeFlag flag, bool value) { m_general.flags[flag] = value; }

  // The template of the client at the leverage; null when none claims them.
  const MarginTemplate* GetMarginTemplate(const std::string& client, double leverage) const;
  const MarginTemplate* GetMarginTemplateByName(const std::string& name) const;
  bool RemoveMarginTemplate(const std::string& name) { return m_templates.erase(name) != 0; }

  const TSetsByName& GetSetOfInstruments() const { return m_sets; }
  const SetOfInstruments* GetSetOfInstruments(const std::string& name) const;
  // The template's own sets, and the global ones when it says "UseGlobalSets"
  // (an own set stands in place of a global one of the same name).
  TSetsByName GetSetOfInstrumentsByTemplate(const std::string& templ) const;
  const SetOfInstruments* GetSetOfInstrumentsByTemplate(const std::string& templ, const std::string& name) const;
  // The template's own sets only.
  const TSetsByName* GetSetOfInstrumentsByTemplateEx(const std::string& templ) const;

  TSetsByName GetEffectiveSetOfInstruments(const std::string& client, double leverage) const;
  bool GetEffectiveFuturesDiscountFromCollateralAmount(const std::string& client, double leverage) const;

  const std::map<TLeverage, TClaim, BT::LeverageComparer>& ByLeverage() const { return m_byLeverage; }
  const std::map<TClientCode, TClaim>& ByClient() const { return m_byClient; }
  const std::map<std::string, MarginTemplate, DL::StringMapComparerFunc>& Templates() const { return m_templates; }

 private:
  Storage() = default;
  // The claim that decides for a client at a leverage; null without one.
  const TClaim* FindClaim(const std::string& client, double leverage) const;
  int LoadSet(const SectionText& section, const std::string& defaultName, SetOfInstruments& out) const;

  General m_general;
  TSetsByName m_sets;
  std::map<std::string, MarginTemplate, DL::StringMapComparerFunc> m_templates;
  std::map<TLeverage, TClaim, BT::LeverageComparer> m_byLeverage;
  std::map<TClientCode, TClaim> m_byClient;
  std::map<std::string, TSetsByName, DL::StringMapComparerFunc> m_setsByTemplate;  // owner -> its sets
};

}  // namespace DLTypes
