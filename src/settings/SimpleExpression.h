#pragma once
// A whole-name test for the small regular expressions of the ordering rules,
// answered without the library's regular expression engine (which costs a
// few microseconds a name and would dominate the sorting of a large text).
//
// Understood (ECMAScript syntax): single-byte atoms — a plain byte, ".",
// "\d", an escaped punctuation byte such as "\.", a bracket class of bytes and
// ranges such as "[_]" or "[0-9]" — each with an optional greedy quantifier
// ("*", "+", "?", "{n}", "{n,}", "{n,m}"); unquantified groups "( ... )";
// look-aheads "(?! ... )" and "(?= ... )"; and "|" between whole
// alternatives. Anything else (anchors, back-references, quantified groups,
// "|" inside a group, other escapes, lazy quantifiers) is not understood:
// Compile() then gives nothing and the caller uses std::regex.
//
// Where it compiles, the answer is the one std::regex_match gives: with no
// back-references, a whole match exists exactly when some way of taking each
// quantified atom some number of times reaches the end of the name, and a
// look-ahead holds when some prefix of the rest matches its contents.
#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace DL {

class SimpleExpression {
 public:
  [[nodiscard]] static std::optional<SimpleExpression> Compile(std::string_view text);

  // Whether the whole name matches. The work is bounded by the name's length
  // to the power of the number of unbounded atoms in one alternative; callers
  // keep names short (NamePattern::kMaxExpressionInput).
  [[nodiscard]] bool Matches(std::string_view name) const;

  // The bytes "." stands for: all but the line ends "\n" and "\r".
  static std::bitset<256> AnyByte();

 private:
  static constexpr size_t kUnbounded = static_cast<size_t>(-1);

  struct Item {
    std::string literal;     // for a run of plain bytes taken once each: the bytes; then nothing else counts
    std::bitset<256> bytes;  // for an atom: the bytes it takes
    size_t min = 1;          // times the atom is taken, at least
    size_t max = 1;          // and at most (kUnbounded: no limit)
    size_t lookAhead = 0;    // for a look-ahead: 1 + index of its sequence in m_sequences; 0 for an atom
    bool negative = false;   // for a look-ahead: "(?!"
  };
  using Sequence = std::vector<Item>;

  class Parser;

  bool MatchFrom(const Sequence& seq, size_t item, std::string_view name, size_t pos, bool whole) const;

  std::vector<Sequence> m_sequences;     // contents of the look-aheads
  std::vector<Sequence> m_alternatives;  // top-level "|" choices; any may match
};

}  // namespace DL
