#pragma once
// The settings text of a firm: the maps it is read into, the reader, and the
// two line forms in which the system writes it.
//
// Text is bytes. Section names, keys and values pass through untouched; only
// the ordering of the maps folds case, and only for the ASCII letters, since
// the system never sets a locale.
#include <cstddef>
#include <cstring>
#include <iterator>
#include <istream>
#include <streambuf>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "ini/IniSectCodes.h"

namespace DL {

// Name of the section whose first run the reader sends to the client-value
// map: section code 20 of the section catalogue, taken from its table.
inline constexpr std::string_view kClientCvalSectionName = IniSectName(iscClientCval);

// The C library's toupper of one byte under the "C" locale: only 'a'..'z' fold.
constexpr char ToUpperAscii(char c) noexcept {
  return (c >= 'a' && c <= 'z') ? static_cast<char>(c - ('a' - 'A')) : c;
}

// Ordering of two bytes after folding both to upper case, the bytes taken as
// signed characters: a byte with the high bit set sorts before every ASCII byte.
constexpr bool nocase_compare(char a, char b) noexcept {
  return static_cast<signed char>(ToUpperAscii(a)) < static_cast<signed char>(ToUpperAscii(b));
}

// The ordering of every settings map: lexicographic over nocase_compare, a
// proper prefix sorting first. Two names that differ only in the case of ASCII
// letters are one name. Transparent, so maps are searched with a string_view.
struct StringMapComparerFunc {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const noexcept {
    const std::size_t n = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < n; ++i) {
      const signed char x = static_cast<signed char>(ToUpperAscii(a[i]));
      const signed char y = static_cast<signed char>(ToUpperAscii(b[i]));
      if (x != y) return x < y;
    }
    return a.size() < b.size();
  }
};

// Calls f on each entry of a map ordered by StringMapComparerFunc whose key
// begins with `prefix`, compared ignoring case. Such keys stand together in
// that order, so only they are visited.
template <class TMap, class F>
void ForEachWithPrefixNoCase(TMap& map, std::string_view prefix, F&& f) {
  for (auto it = map.lower_bound(prefix); it != map.end(); ++it) {
    const std::string_view key = it->first;
    if (key.size() < prefix.size()) break;
    bool same = true;
    for (std::size_t i = 0; i < prefix.size() && same; ++i) same = ToUpperAscii(key[i]) == ToUpperAscii(prefix[i]);
    if (!same) break;
    f(*it);
  }
}

// True when the two texts are one name under StringMapComparerFunc.
constexpr bool IsSameSettingsName(std::string_view a, std::string_view b) noexcept {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (ToUpperAscii(a[i]) != ToUpperAscii(b[i])) return false;
  return true;
}

// Keys of one section and their values.
using TIniKeyMap = std::map<std::string, std::string, StringMapComparerFunc>;
// Every section of a settings text under the spelling of its first header.
using TIniSectionsMap = std::map<std::string, TIniKeyMap, StringMapComparerFunc>;
// The keys of the first run of section ClientCval.
using TIniClientValueMap = TIniKeyMap;

namespace SettingsTextDetail {

// isspace under the "C" locale.
constexpr bool IsSpace(char c) noexcept {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

constexpr std::string_view TrimSpaces(std::string_view s) noexcept {
  std::size_t b = 0, e = s.size();
  while (b < e && IsSpace(s[b])) ++b;
  while (e > b && IsSpace(s[e - 1])) --e;
  return s.substr(b, e - b);
}

// Inserts (key, value) unless the map already has the key; never overwrites.
// Text written by this system lists keys in map order, so the end of the map
// is tried first.
template <class TMap>
void InsertFirst(TMap& map, std::string_view key, std::string_view value) {
  const auto& less = map.key_comp();
  auto hint = map.end();
  if (!map.empty() && !less(map.rbegin()->first, key)) {
    hint = map.lower_bound(key);
    if (hint != map.end() && !less(key, hint->first)) return;
  }
  map.emplace_hint(hint, std::piecewise_construct, std::forward_as_tuple(key),
                   std::forward_as_tuple(value));
}

// The state of one pass over a settings text, fed one line at a time
// (the line without its "\n").
template <class TSections, class TValues>
class TSettingsLineReader {
 public:
  TSettingsLineReader(char comment, TSections* sections, TValues* clientValues)
      : m_comment(comment), m_sections(sections), m_clientValues(clientValues) {}

  void Line(std::string_view line) {
    // A comment begins at the comment character wherever it stands.
    if (!line.empty())
      if (const void* c = std::memchr(line.data(), m_comment, line.size()))
        line = line.substr(0, static_cast<std::size_t>(static_cast<const char*>(c) - line.data()));
    line = TrimSpaces(line);
    if (line.empty()) return;

    if (line.front() == '[') {
      const std::size_t close = line.find(']', 1);
      // No "]", or "[]": the line is skipped and the section in force stays.
      if (close == std::string_view::npos || close == 1) return;
      m_pending.assign(line.data() + 1, close - 1);
      m_hasPending = true;
      return;
    }
    if (m_current == nullptr && !m_hasPending) return;  // text before the first header

    const std::size_t eq = line.find('=');
    if (eq == std::string_view::npos || eq == 0) return;
    const std::string_view key = TrimSpaces(line.substr(0, eq));
    const std::string_view value = TrimSpaces(line.substr(eq + 1));

    if (m_hasPending) {
      // A section comes into being with its first valid key line.
      m_valuesDone = m_valuesDone || m_insideValues;
      m_insideValues = false;
      if (!m_valuesDone) m_insideValues = IsSameSettingsName(m_pending, kClientCvalSectionName);
      m_current = &FindOrAddSection(std::string_view(m_pending));
      m_hasPending = false;
      m_pending.clear();
    }
    if (!m_insideValues)
      InsertFirst(*m_current, key, value);
    else if (m_clientValues != nullptr)
      InsertFirst(*m_clientValues, key, value);
  }

 private:
  // The section of that name, entered with an empty key map when new. The
  // sections of a text mostly follow one another in map order, or nearly so
  // (a text written by this system is in map order): the place behind the
  // section met last is tried first, a few steps on, sparing a descent of a
  // large map per section.
  typename TSections::mapped_type& FindOrAddSection(std::string_view name) {
    constexpr int kStepsFromLast = 4;
    const auto& less = m_sections->key_comp();
    if (m_hasLast && less(m_last->first, name)) {
      auto next = std::next(m_last);
      for (int step = 0; step < kStepsFromLast && next != m_sections->end() && less(next->first, name); ++step)
        ++next;
      if (next == m_sections->end() || less(name, next->first)) return Enter(next, name);
      if (!less(next->first, name)) return Remember(next);  // that very section
    } else if (m_hasLast && !less(name, m_last->first)) {
      return m_last->second;  // the same section once more
    }
    const auto found = m_sections->lower_bound(name);
    if (found != m_sections->end() && !less(name, found->first)) return Remember(found);
    return Enter(found, name);
  }
  // Enters a new section right before `before`, where it belongs.
  typename TSections::mapped_type& Enter(typename TSections::iterator before, std::string_view name) {
    return Remember(
        m_sections->emplace_hint(before, std::piecewise_construct, std::forward_as_tuple(name), std::tuple<>()));
  }
  typename TSections::mapped_type& Remember(typename TSections::iterator it) {
    m_last = it;
    m_hasLast = true;
    return it->second;
  }

  char m_comment;
  TSections* m_sections;
  TValues* m_clientValues;
  std::string m_pending;                                   // header met, not yet entered
  bool m_hasPending = false;
  typename TSections::mapped_type* m_current = nullptr;    // section of the key lines
  typename TSections::iterator m_last{};                   // the section met last, if m_hasLast
  bool m_hasLast = false;
  bool m_insideValues = false;                             // key lines go to the client values
  bool m_valuesDone = false;                               // the first ClientCval run is over
};

// Feeds every line of the text to the reader: lines end at "\n", and a last
// line without one counts.
template <class TReader>
void FeedLines(std::string_view text, TReader& reader) {
  while (!text.empty()) {
    const void* nl = std::memchr(text.data(), '\n', text.size());
    if (nl == nullptr) {
      reader.Line(text);
      return;
    }
    const std::size_t len = static_cast<std::size_t>(static_cast<const char*>(nl) - text.data());
    reader.Line(text.substr(0, len));
    text.remove_prefix(len + 1);
  }
}

// Reads the stream to its end in blocks and feeds the whole lines of each;
// the bytes of an unfinished line wait at the front of the buffer, which grows
// for a long line. Afterwards the stream has failbit and eofbit set, as after
// a loop of getline.
template <class TReader>
void FeedStream(std::istream& in, TReader& reader) {
  constexpr std::size_t kBlock = std::size_t{1} << 16;
  std::string buf;
  std::size_t kept = 0;  // bytes of an unfinished line, never holding a "\n"
  for (;;) {
    if (buf.size() < kept + kBlock) buf.resize(kept + kBlock);
    in.read(buf.data() + kept, static_cast<std::streamsize>(kBlock));
    const std::size_t got = static_cast<std::size_t>(in.gcount());
    if (got == 0) break;
    const std::size_t lastNl = std::string_view(buf.data() + kept, got).rfind('\n');
    if (lastNl == std::string_view::npos) {
      kept += got;
      continue;
    }
    const std::size_t end = kept + lastNl + 1;
    FeedLines(std::string_view(buf.data(), end), reader);
    kept = kept + got - end;
    if (kept != 0) std::char_traits<char>::move(buf.data(), buf.data() + end, kept);
  }
  if (kept != 0) reader.Line(std::string_view(buf.data(), kept));
  in.setstate(std::ios::eofbit | std::ios::failbit);
}

}  // namespace SettingsTextDetail

// An input stream over bytes in memory that it neither copies nor owns: the
// text of a firm handed over whole is read in place. The bytes must outlive
// the stream.
class TMemoryInputStream : public std::istream {
 public:
  explicit TMemoryInputStream(std::string_view text) : std::istream(nullptr), m_buf(text) { rdbuf(&m_buf); }
  TMemoryInputStream(const TMemoryInputStream&) = delete;
  TMemoryInputStream& operator=(const TMemoryInputStream&) = delete;

 private:
  class TBuf : public std::streambuf {
   public:
    explicit TBuf(std::string_view text) {
      char* begin = const_cast<char*>(text.data());  // never written through: no put area
      setg(begin, begin, begin + text.size());
    }
  };
  TBuf m_buf;
};

// Reads a settings text from the stream to its end into the sections map and
// the client-value map (both the caller's; entries already there are kept and
// never overwritten). Lines end at "\n"; a "\r" before it is trimmed away with
// the other white space; a last line without a line end counts.
//
// Per line: cut at the first comment character wherever it stands, trim; a
// header "[name]" makes name (untrimmed, anything behind "]" ignored) the
// pending section; a line "key=value" enters the pending section (merging
// into one of the same name met earlier) and adds key and value, both
// trimmed, unless the key is there already. Lines before the first header,
// without "=", beginning with "=", and headers without "]" or with an empty
// name are skipped. The keys of the first run of section ClientCval go to the
// client-value map, its section staying behind empty.
//
// A null sections map reads nothing; a null client-value map drops the keys
// that would go there. The maps must be ordered by StringMapComparerFunc or an
// ordering with the same equivalence.
template <class TSections, class TValues>
void ParseSettings_T(std::istream& in, char comment, TSections* sections, TValues* clientValues) {
  if (sections == nullptr) return;
  SettingsTextDetail::TSettingsLineReader<TSections, TValues> reader(comment, sections, clientValues);
  SettingsTextDetail::FeedStream(in, reader);
}

// The same over a text in memory.
template <class TSections, class TValues>
void ParseSettingsText_T(std::string_view text, char comment, TSections* sections, TValues* clientValues) {
  if (sections == nullptr) return;
  SettingsTextDetail::TSettingsLineReader<TSections, TValues> reader(comment, sections, clientValues);
  SettingsTextDetail::FeedLines(text, reader);
}

extern template void ParseSettings_T<TIniSectionsMap, TIniClientValueMap>(std::istream&, char, TIniSectionsMap*,
                                                                          TIniClientValueMap*);
extern template void ParseSettingsText_T<TIniSectionsMap, TIniClientValueMap>(std::string_view, char,
                                                                              TIniSectionsMap*,
                                                                              TIniClientValueMap*);

// The reader of the settings text as TIniParser calls it. It holds
// ParseSettings_T over the ordered maps; a test or a host may put another
// reader of the same form in its place.
using TParseSettingsFunc = void (*)(std::istream& in, char comment, TIniSectionsMap* sections,
                                    TIniClientValueMap* clientValues);
extern TParseSettingsFunc ParseSettings;

// Line ends of the two writers of settings text.
enum class ESettingsLineEnd {
  Lf,    // TIniParser::GetRowFromSection: "\n"
  CrLf,  // SettingsNormalizer::WriteTo: "\r\n", and an empty line after each section
};

// Appends "[name]" and the line end.
void AppendSettingsHeader(std::string& out, std::string_view name, ESettingsLineEnd end);
// Appends "key=value" and the line end.
void AppendSettingsKeyLine(std::string& out, std::string_view key, std::string_view value, ESettingsLineEnd end);
// Appends what closes a section: nothing for Lf, one empty line "\r\n" for CrLf.
void AppendSettingsSectionEnd(std::string& out, ESettingsLineEnd end);

// One section as GetRowFromSection writes it: the header and each key line
// in map order, each ended by "\n", no blank line; an empty key map gives the
// empty string.
std::string SectionToRowText(std::string_view name, const TIniKeyMap& keys);

}  // namespace DL
