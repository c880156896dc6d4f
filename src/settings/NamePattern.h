#pragma once
// A compiled test of a section name or a parameter key: a regular expression
// (ECMAScript, case-sensitive) that must match the whole name, or a literal
// prefix.
//
// Most expressions of the ordering rules are plain names or a choice of plain
// names ("Clients|MAIN|UseTotalBalance"). Those are recognised when the
// pattern is built and answered by comparing bytes. For a real expression the
// literal bytes it must begin with, hold and end with are worked out once, so that a name
// that cannot match is turned away early; the rest is answered by
// SimpleExpression, and only an expression beyond its reach by std::regex.
// Either way the answer is the one std::regex_match would give (up to the
// length limit below).
#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <optional>
#include <vector>

#include "settings/SimpleExpression.h"

// g++ 12 with the address sanitizer reports std::function members inside the
// regular expression compiler as maybe uninitialized (a false positive of the
// compiler's flow analysis in library code). The warning is silenced for the
// library header only.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <regex>
#pragma GCC diagnostic pop
#else
#include <regex>
#endif

namespace DL {

class NamePattern {
 public:
  // Matches no name.
  NamePattern() = default;

  // The whole name must match the expression text.
  // Throws std::regex_error when text is not a valid expression.
  static NamePattern WholeName(const std::string& text);
  // The name must begin with text.
  static NamePattern Prefix(const std::string& text);

  // A name longer than kMaxExpressionInput bytes matches no expression (a
  // literal choice or a prefix still applies): the library's regular
  // expression engine recurses once per byte of input and would run a host
  // thread out of stack on a long name. No real section name or key comes
  // near this length.
  static constexpr size_t kMaxExpressionInput = 256;

  // True when the expression is answered without std::regex (always so for
  // a prefix or a choice of literal names).
  bool IsSimple() const { return m_kind != EKind::Expression || m_simple.has_value(); }

  [[nodiscard]] bool Matches(std::string_view name) const;

  // The bytes a name this pattern matches can begin with (all bytes when
  // that is not worked out). Says nothing about the empty name.
  std::bitset<256> FirstBytes() const;

  // The names this pattern stands for when it is nothing but a choice of
  // literal names (a trailing "$" on a choice allowed); empty otherwise.
  const std::vector<std::string>& LiteralNames() const { return m_literals; }
  const std::string& Text() const { return m_text; }

 private:
  enum class EKind { Prefix, Literals, Expression };

  // Literal bytes every match of one top-level alternative holds: it begins
  // with head, ends with tail, and holds middle somewhere between them.
  struct Bounds {
    std::string head;
    std::string middle;  // the longest other literal run outside any group
    std::string tail;    // taken from the expression behind head, so the two never overlap
  };

  [[nodiscard]] bool MayMatch(std::string_view name) const;

  EKind m_kind = EKind::Literals;
  std::string m_text;
  std::vector<std::string> m_literals;  // for EKind::Literals
  std::vector<Bounds> m_bounds;         // for EKind::Expression; empty when not worked out
  std::optional<SimpleExpression> m_simple;  // for EKind::Expression, when it understands the text
  std::regex m_regex;                        // for EKind::Expression otherwise
};

}  // namespace DL
