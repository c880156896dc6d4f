#pragma once
// The stores of the hub's section lists: the currency replacement tables, the
// section lists of the old form, the plain lists of other sections and the
// tag sections. Each is read once at load from the text. A store that the
// save writes back keeps the lines it could not read (`raw`), as written, so
// that a save loses nothing.
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/TClassList.h"
#include "ini/SettingsText.h"

namespace DL {

// A key of the settings text to a list read from its value.
using TKeyToList = std::map<std::string, TClassList, StringMapComparerFunc>;

// One currency replacement section ("Currency", "Currency2", "Currency_..."):
// key a currency code (at most 4 characters), value the "," list of the
// currencies it stands for (each at most 4 characters).
struct TCurrencyReplacement {
  TKeyToList byCurrency;  // currency -> the currencies it replaces
  TIniKeyMap raw;         // lines with a longer code or without any currency
};

// "LimitAllowedSecurity", "AssetSecurities", "RestShortSecurities": key
// "<ALL>" for every class, or "SECURITY_" and a class; value the "," list of
// securities. Codes are at most 12 characters.
struct TSecuritiesByClass {
  bool hasAll = false;    // the key "<ALL>" is there
  TClassList all;         // the securities of "<ALL>"
  TKeyToList byClass;     // class -> securities
  TIniKeyMap raw;         // lines with another key or a longer code

  // True when the security is listed for the class or under "<ALL>".
  bool Contains(std::string_view classCode, std::string_view secCode) const;
  bool Empty() const { return !hasAll && byClass.empty() && raw.empty(); }
};

// "CounterpartyLimits": key a counterparty (at most 12 characters), value
// the "," list of classes on which its limit is kept.
struct TCounterpartyLimit {
  std::string counterparty;
  TClassList classes;
};

// "TranoutTag": key a non-trading instrument (at most 12 characters), value
// "class,currency" (at most 12 and 4 characters).
struct TTranoutTag {
  std::string nonTradeInstrument;
  std::string classCode;
  std::string currency;
};

// One security of a common trade account: a class and a security; an empty
// security stands for every security of the class.
struct TCommonSecRec {
  std::string classCode;
  std::string secCode;
};

// "AddCommonSecTrdacc": key a trade account (at most 12 characters), value a
// "," list of "class:security" items, or a class alone.
struct TAdditionalSecTrdaccRec {
  std::string trdAcc;
  std::vector<TCommonSecRec> securities;

  // True when the security of the class is one of the account's.
  bool Contains(std::string_view classCode, std::string_view secCode) const;
};

// "ReplaceableInstruments": key a class, value a "," list of
// "security:main security" pairs.
using TReplaceableInstruments = std::map<std::string, std::map<std::string, std::string>, StringMapComparerFunc>;

// A tag section: key a tag, board or security (at most 12 characters), value
// the "," list of codes (boards, trade accounts) it stands for.
class TTagToStrListStorage {
 public:
  void Clear();
  // Enters a key and its list; false (nothing entered) for an empty key or
  // a code longer than 12 characters.
  bool Add(const std::string& key, const std::string& value);

  const TKeyToList& Lists() const { return m_lists; }
  // The list of a key, null when the key is absent.
  const TClassList* Find(std::string_view key) const;
  bool Contains(std::string_view key, std::string_view code) const;
  // Every code of every list.
  bool ContainsAnywhere(std::string_view code) const;
  // The keys, as collected by TStorageHub::FillTagsFromTagToTagsSettings.
  const std::set<std::string>& Tags() const { return m_tags; }
  void CollectTags();
  // Lines that could not be read, as written.
  const TIniKeyMap& Raw() const { return m_raw; }
  void AddRaw(const std::string& key, const std::string& value) { m_raw[key] = value; }
  bool Empty() const { return m_lists.empty() && m_raw.empty(); }

 private:
  TKeyToList m_lists;
  std::set<std::string> m_tags;
  TIniKeyMap m_raw;
};

}  // namespace DL
