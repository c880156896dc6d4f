#include "settings/SettingsNormalizer.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <istream>
#include <iterator>

#include "settings/KeyRankCache.h"
#include "settings/StableSortByKey.h"

namespace DL {

namespace {

// ------------------------------------------------------------------ rule table

enum class EParameterList : size_t {
#define ZDL_NORM_LIST(list) list,
#include "settings/SettingsNormalizerRules.def"
  Count
};

enum class ERuleKind { Pattern, Prefix, Number, Include };

struct ParameterRow {
  EParameterList list;
  ERuleKind kind;
  const char* text;      // null for Include
  EParameterList other;  // for Include: the list whose rules follow
};

constexpr ParameterRow kParameterRows[] = {
#define ZDL_NORM_PARAM(list, kind, text) {EParameterList::list, ERuleKind::kind, text, EParameterList::Count},
#define ZDL_NORM_INCLUDE(list, other) {EParameterList::list, ERuleKind::Include, nullptr, EParameterList::other},
#include "settings/SettingsNormalizerRules.def"
};

struct SectionRow {
  const char* pattern;
  EParameterList list;
};

constexpr SectionRow kSectionRows[] = {
#define ZDL_NORM_SECTION(pattern, list) {pattern, EParameterList::list},
#include "settings/SettingsNormalizerRules.def"
};

void AddParameterRules(EParameterList list, SettingRules* rules) {
  for (const ParameterRow& row : kParameterRows) {
    if (row.list != list) continue;
    switch (row.kind) {
      case ERuleKind::Pattern:
        rules->Add(NamePattern::WholeName(row.text));
        break;
      case ERuleKind::Prefix:
        rules->Add(NamePattern::Prefix(row.text));
        break;
      case ERuleKind::Number:
        rules->Add(NamePattern::WholeName(row.text), true);
        break;
      case ERuleKind::Include:
        AddParameterRules(row.other, rules);
        break;
    }
  }
}

constexpr char kCommentChar = ';';

// -------------------------------------------------------------------- sorting

// A run of decimal digits without its leading zeros: two such runs compare
// by value when compared by length, then by bytes.
std::string_view WithoutLeadingZeros(std::string_view digits) {
  while (!digits.empty() && digits.front() == '0') digits.remove_prefix(1);
  return digits;
}

int CompareValues(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  for (size_t i = 0; i < a.size(); ++i) {  // a digit or two, mostly: not worth a call
    if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
  }
  return 0;
}

// The first eight bytes of a name as a number, the first byte highest and
// missing bytes zero: two names whose heads differ compare as their heads do.
uint64_t HeadOf(std::string_view name) {
  uint64_t head = 0;
  for (size_t i = 0; i < 8; ++i) {
    head <<= 8;
    if (i < name.size()) head |= static_cast<unsigned char>(name[i]);
  }
  return head;
}

// Everything the section order needs, worked out once per section. The order
// is (rank, number in the name, limit kind, bytes of the name), each compared
// only when all before it are equal.
//
// The number is that of "u12" or "PreTrade_12"; all names of those two ranks
// have one, the others have none (empty, which compares equal). The limit
// kind is the number of a margin section's "..._LimitKind_N" name; the base
// section ("cl..._Margin", "cl..._Margin_Template") is of kind 0, and so is
// every other name. Counting a name without a "_LimitKind_" suffix as kind 0,
// rather than comparing it with a kind by bytes, keeps the order transitive
// when such a name meets margin sections of different kinds. Numbers are kept
// without leading zeros, so they compare by value.
struct SectionKey {
  unsigned long rank;
  std::string_view number;     // digits of the "u12" / "PreTrade_12" number, or empty
  std::string_view limitKind;  // digits of the margin limit kind; empty for kind 0
  uint64_t head;               // HeadOf(name), which settles most ties without reaching the name
  std::string_view name;
};

// The orders are function objects rather than functions, so that the sort
// inlines them instead of calling through a pointer.
struct SectionBefore {
  bool operator()(const SectionKey& a, const SectionKey& b) const {
    if (a.rank != b.rank) return a.rank < b.rank;
    if (const int c = CompareValues(a.number, b.number); c != 0) return c < 0;
    if (const int c = CompareValues(a.limitKind, b.limitKind); c != 0) return c < 0;
    if (a.head != b.head) return a.head < b.head;
    return a.name < b.name;  // bytes as unsigned char
  }
};

struct ParameterKey {
  unsigned long rank;
  unsigned long long number;  // value under a numeric rule, else 0
  std::string_view key;
};

struct ParameterBefore {
  bool operator()(const ParameterKey& a, const ParameterKey& b) const {
    if (a.rank != b.rank) return a.rank < b.rank;
    if (a.number != b.number) return a.number < b.number;
    return a.key < b.key;
  }
};

}  // namespace

// ---------------------------------------------------------------------- class

SettingsNormalizer::SettingsNormalizer()
    : m_userPattern(NamePattern::WholeName("u\\d{1,}")),
      m_preTradePattern(NamePattern::WholeName("PreTrade_\\d{1,}")),
      m_limitKindPattern(
          NamePattern::WholeName("cl.{1,12}_Margin_LimitKind_\\d+|cl.+_Margin_Template_LimitKind_\\d+")) {
  setPriorities();
}

void SettingsNormalizer::setPriorities() {
  m_parameterRules.resize(static_cast<size_t>(EParameterList::Count));
  for (size_t list = 0; list < m_parameterRules.size(); ++list) {
    AddParameterRules(static_cast<EParameterList>(list), &m_parameterRules[list]);
  }
  for (const SectionRow& row : kSectionRows) {
    m_priorities.Add(NamePattern::WholeName(row.pattern), false, static_cast<size_t>(row.list));
  }
}

bool SettingsNormalizer::Load(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  m_texts.push_back(std::make_shared<const std::string>(std::move(text)));
  ParseSettingsList(*m_texts.back(), kCommentChar, &m_sections);
  return true;
}

void SettingsNormalizer::ReadFrom(std::string_view text) {
  m_texts.push_back(std::make_shared<const std::string>(text));
  ParseSettingsList(*m_texts.back(), kCommentChar, &m_sections);
}

void SettingsNormalizer::ParseSettingsList(std::istream& in, char separator, SettingsSectionList* list,
                                           std::string* text) {
  if (list == nullptr || text == nullptr) return;
  // The whole stream, then the text reading: lines split at "\n" alike.
  text->assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  SettingsListReader::Read(*text, separator, list);
}

void SettingsNormalizer::ParseSettingsList(std::string_view text, char separator, SettingsSectionList* list) {
  if (list == nullptr) return;
  SettingsListReader::Read(text, separator, list);
}

void SettingsNormalizer::Normalize() {
  std::vector<KeyAt<SectionKey>> sectionKeys;
  sectionKeys.reserve(m_sections.size());
  std::vector<KeyAt<ParameterKey>> parameterKeys;  // room for the keys of every section
  // The same keys come back in section after section: each parameter list
  // remembers what it answered for a key during this run.
  std::vector<KeyRankCache> answered(m_parameterRules.size());

  for (SettingsSection& section : m_sections) {
    const std::string_view name = section.first;
    const SettingRules::Match match = m_priorities.Find(name);

    // The parameters, by the parameter list of the section's rule.
    const size_t list = match.rule ? match.rule->children : 0;
    const SettingRules* children = match.rule ? &m_parameterRules[list] : nullptr;
    SettingsParameterList& parameters = section.second;
    parameterKeys.clear();
    parameterKeys.reserve(parameters.size());
    for (const SettingsParameter& p : parameters) {
      if (children != nullptr) {
        KeyRankCache& known = answered[list];
        const SettingRules::Match* remembered = known.Find(p.first);
        const SettingRules::Match m = remembered ? *remembered : children->Find(p.first);
        if (remembered == nullptr) known.Add(p.first, m);
        parameterKeys.push_back({{m.Priority(), m.number, p.first}, parameterKeys.size()});
      } else {
        parameterKeys.push_back({{kUnrankedPriority, 0, p.first}, parameterKeys.size()});
      }
    }
    StableSortByKey(parameters, parameterKeys, ParameterBefore{});

    SectionKey key{match.Priority(), {}, {}, HeadOf(name), name};
    if (m_userPattern.Matches(name)) {
      key.number = WithoutLeadingZeros(name.substr(1));
    } else if (m_preTradePattern.Matches(name)) {
      key.number = WithoutLeadingZeros(name.substr(name.find('_') + 1));
    }
    if (m_limitKindPattern.Matches(name)) {
      key.limitKind = WithoutLeadingZeros(name.substr(name.rfind('_') + 1));
    }
    sectionKeys.push_back({key, sectionKeys.size()});
  }

  StableSortByKey(m_sections, sectionKeys, SectionBefore{});
}

namespace {

// Copies bytes to at and returns the end of the copy.
char* Put(char* at, std::string_view bytes) {
  if (!bytes.empty()) std::memcpy(at, bytes.data(), bytes.size());
  return at + bytes.size();
}

char* PutLineEnd(char* at) {
  at[0] = '\r';
  at[1] = '\n';
  return at + 2;
}

// "key=value": when the text read held the line untrimmed, key, "=" and
// value lie side by side there and go in one copy.
char* PutParameter(char* at, const SettingsParameter& p) {
  const std::string_view key = p.first;
  const std::string_view value = p.second;
  if (key.data() + key.size() + 1 == value.data() && key.data()[key.size()] == '=') {
    return Put(at, std::string_view(key.data(), key.size() + 1 + value.size()));
  }
  at = Put(at, key);
  *at++ = '=';
  return Put(at, value);
}

}  // namespace

void SettingsNormalizer::WriteTo(std::string& out) const {
  size_t size = 0;
  for (const SettingsSection& section : m_sections) {
    size += section.first.size() + 6;  // "[" "]\r\n" and the closing "\r\n"
    for (const SettingsParameter& p : section.second) size += p.first.size() + p.second.size() + 3;
  }
  // The text is laid down in one buffer of its final size.
  out.clear();
  out.resize(size);
  char* at = out.data();
  for (const SettingsSection& section : m_sections) {
    *at++ = '[';
    at = Put(at, section.first);
    *at++ = ']';
    at = PutLineEnd(at);
    for (const SettingsParameter& p : section.second) at = PutLineEnd(PutParameter(at, p));
    at = PutLineEnd(at);
  }
}

bool SettingsNormalizer::Save(const std::string& path) const {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!file) return false;
  std::string text;
  WriteTo(text);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  return !file.fail();
}

}  // namespace DL
