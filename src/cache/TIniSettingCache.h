#pragma once
// The framework of the settings caches: each kind of settings has a cache
// that turns an identity (client, board, template, security, leverage) into
// a parsed object. The global settings are parsed when the cache is built;
// a client's section is resolved (TIniLogicParser) and parsed on the first
// query for it, and afterwards answered from a hash table.
//
// Only client-level results (a personal or prefix section) enter the item
// table. A template's object stays in the cache's own map of parsed
// sections, shared by every client of the template, so the table does not
// grow with the number of clients under a template; such a query repeats the
// resolution, which then costs one memo lookup.
//
// Queries are const but fill the tables: one thread at a time per cache.
// Pointers handed out live until the cache is rebuilt or the template is
// dropped.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include "cache/TIniCacheItemID.h"
#include "base/ResultCodes.h"
#include "ini/SettingsText.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"

namespace DL {

class IFirmSettings;

// Objects parsed from sections, one per section name (case ignored), built
// once and shared by every query that resolves to the section.
template <class T>
class TParsedSections {
 public:
  // The object of the section, parsing it on first use with parse(name),
  // which returns a std::unique_ptr<T>. A null result is not kept, so the
  // next query tries again.
  template <class F>
  T* GetOrParse(const std::string& section, F&& parse) {
    auto it = m_parsed.find(section);
    if (it != m_parsed.end() && it->second) return it->second.get();
    std::unique_ptr<T> parsed = parse(section);
    if (!parsed) return nullptr;
    if (it == m_parsed.end()) return m_parsed.emplace(section, std::move(parsed)).first->second.get();
    it->second = std::move(parsed);
    return it->second.get();
  }
  // Enters a name without an object, so that it is known before first use.
  void Register(const std::string& section) { m_parsed.try_emplace(section); }
  bool Contains(const std::string& section) const { return m_parsed.count(section) != 0; }
  // Drops the object of one name but keeps the name known; false for an
  // unknown name.
  bool Drop(const std::string& section) {
    const auto it = m_parsed.find(section);
    if (it == m_parsed.end()) return false;
    it->second.reset();
    return true;
  }
  // The object, or null when the name is unknown or not parsed yet.
  T* Find(const std::string& section) const {
    const auto it = m_parsed.find(section);
    return it == m_parsed.end() ? nullptr : it->second.get();
  }
  // Drops the object of one section; false if there is none.
  bool Remove(const std::string& section) { return m_parsed.erase(section) != 0; }
  std::size_t Size() const { return m_parsed.size(); }
  template <class F>
  void ForEach(F&& f) const {
    for (const auto& [name, object] : m_parsed)
      if (object) f(*object);
  }

 private:
  std::map<std::string, std::unique_ptr<T>, StringMapComparerFunc> m_parsed;
};

// The abstract base of the caches. The derived class parses the global
// settings in its constructor (SetGlobalSettings) and resolves and parses a
// client's section in ParseSettingsForClient.
template <class T>
class AIniSettingCacheMaster {
 public:
  // The parsed object and its source (ESettingsSource: 0 global, 1
  // client-level, 2 template); a null object means none was found.
  using TParseResult = std::pair<T*, int>;
  using TItemTable = std::unordered_map<TIniCacheItemKey, T*, TIniCacheItemKeyHash, TIniCacheItemKeyEqual>;

  AIniSettingCacheMaster(TIniParser& parser, const IFirmSettings* firm) : m_parser(parser), m_firm(firm) {
    m_items.max_load_factor(1.0f);
  }
  AIniSettingCacheMaster(const AIniSettingCacheMaster&) = delete;
  AIniSettingCacheMaster& operator=(const AIniSettingCacheMaster&) = delete;
  virtual ~AIniSettingCacheMaster() = default;

  virtual TParseResult ParseSettingsForClient(const TIniCacheItemID& id) const = 0;

  // The settings of the item: from the item table, or resolved and parsed
  // now. Never null while the global settings exist: an item without
  // settings of its own gets the global ones, and is not entered.
  T* GetIniSetting(const TIniCacheItemID& id) const {
    const TIniCacheItemKeyView key = id.ItemKeyView();
    const auto hit = m_items.find(key);
    if (hit != m_items.end() && hit->second != nullptr) return hit->second;
    const TParseResult result = ParseSettingsForClient(id);
    if (result.first == nullptr) return m_global.get();
    if (result.second == SourceClient) m_items.insert_or_assign(id.ItemID(), result.first);
    return result.first;
  }

  T* GlobalSettings() const { return m_global.get(); }
  const TItemTable& ItemTable() const { return m_items; }
  TIniParser& Parser() const { return m_parser; }
  const IFirmSettings* Firm() const { return m_firm; }

 protected:
  void SetGlobalSettings(std::unique_ptr<T> global) { m_global = std::move(global); }
  TItemTable& Items() const { return m_items; }

 private:
  TIniParser& m_parser;
  const IFirmSettings* m_firm;   // not owned; null where a cache does not need it
  std::unique_ptr<T> m_global;   // parsed by the derived class's constructor
  mutable TItemTable m_items;    // resolved client-level items; the objects are not owned here
};

// The parsed templates of a cache, by template name. A cache registers every
// template of the text when it is built, so that dropping an unknown one is
// told apart from dropping one not parsed yet.
template <class T>
class TParsedTemplates : public TParsedSections<T> {
 public:
  // Drops the parsed object of a known template, to be parsed again on its
  // next use: 0, or 15 for an unknown template, changing nothing.
  [[nodiscard]] int RemoveParsedTemplateSettings(const std::string& templ) {
    return this->Drop(templ) ? ZDL_OK : ZDL_TEMPLATE_NOT_EXIST;
  }
};

}  // namespace DL
