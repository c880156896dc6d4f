#include "settings/NamePattern.h"

#include <optional>

namespace DL {

namespace {

// Bytes that mean something in an ECMAScript expression outside a bracket
// class; every other byte stands for itself.
bool IsPlain(char c) {
  switch (c) {
    case '^': case '$': case '\\': case '.': case '*': case '+': case '?':
    case '(': case ')': case '[': case ']': case '{': case '}': case '|':
      return false;
    default:
      return true;
  }
}

bool IsQuantifier(char c) { return c == '*' || c == '+' || c == '?' || c == '{'; }

// Splits the expression at its top-level "|". Nothing when the bracketing is
// not understood; the caller then relies on the regular expression alone.
std::optional<std::vector<std::string_view>> SplitAlternatives(std::string_view text) {
  std::vector<std::string_view> parts;
  int depth = 0;
  bool inClass = false;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\\') {
      ++i;  // the escaped byte is never structure
      continue;
    }
    if (inClass) {
      if (c == ']') inClass = false;
      continue;
    }
    if (c == '[') {
      inClass = true;
    } else if (c == '(') {
      ++depth;
    } else if (c == ')') {
      if (--depth < 0) return std::nullopt;
    } else if (c == '|' && depth == 0) {
      parts.push_back(text.substr(start, i - start));
      start = i + 1;
    }
  }
  if (depth != 0 || inClass) return std::nullopt;
  parts.push_back(text.substr(start));
  return parts;
}

// The name an alternative stands for when it is literal bytes, with at most a
// final "$" (which, for a whole-name match, adds nothing).
std::optional<std::string_view> LiteralOf(std::string_view alternative) {
  std::string_view body = alternative;
  if (!body.empty() && body.back() == '$') body.remove_suffix(1);
  for (char c : body) {
    if (!IsPlain(c)) return std::nullopt;
  }
  return body;
}

// True when an escape of the alternative spans more than the byte behind the
// backslash (\x41, \u0041, \cA, a back-reference): its bytes are then not
// followed, and the alternative gets no literal bounds.
bool HasLongEscape(std::string_view alternative) {
  for (size_t i = 0; i + 1 < alternative.size(); ++i) {
    if (alternative[i] != '\\') continue;
    const char next = alternative[i + 1];
    if (next == 'x' || next == 'u' || next == 'c' || (next >= '0' && next <= '9')) return true;
    ++i;
  }
  return false;
}

// The longest run of literal bytes that every match of the alternative holds
// between its first `from` and its last `to` bytes: a run outside any group
// and bracket class, its last byte dropped when a quantifier follows.
std::string_view LongestInnerRun(std::string_view alternative, size_t from, size_t to) {
  std::string_view best;
  int depth = 0;
  size_t i = 0;
  while (i < alternative.size()) {
    const char c = alternative[i];
    if (depth == 0 && IsPlain(c)) {
      const size_t start = i;
      while (i < alternative.size() && IsPlain(alternative[i])) ++i;
      size_t end = i;
      if (end < alternative.size() && IsQuantifier(alternative[end])) --end;
      if (start >= from && end <= to && end - start > best.size()) best = alternative.substr(start, end - start);
      continue;
    }
    if (c == '\\') {
      i += 2;
    } else if (c == '[') {
      const size_t close = alternative.find(']', i + 1);
      if (close == std::string_view::npos) return {};
      if (alternative.substr(i, close - i).find('\\') != std::string_view::npos) return {};  // not followed
      i = close + 1;
    } else if (c == '{' && depth == 0) {
      i = alternative.find('}', i);
      if (i == std::string_view::npos) return {};
      ++i;
    } else {
      if (c == '(') ++depth;
      if (c == ')') --depth;
      ++i;
    }
  }
  return best;
}

}  // namespace

NamePattern NamePattern::WholeName(const std::string& text) {
  NamePattern p;
  p.m_text = text;
  const auto parts = SplitAlternatives(text);
  if (parts) {
    std::vector<std::string> literals;
    for (std::string_view part : *parts) {
      const auto literal = LiteralOf(part);
      if (!literal) break;
      literals.emplace_back(*literal);
    }
    if (literals.size() == parts->size()) {
      p.m_kind = EKind::Literals;
      p.m_literals = std::move(literals);
      return p;
    }
  }

  p.m_kind = EKind::Expression;
  p.m_simple = SimpleExpression::Compile(text);
  if (!p.m_simple) p.m_regex = std::regex(text, std::regex::ECMAScript);
  if (parts) {
    for (std::string_view part : *parts) {
      if (HasLongEscape(part)) {
        p.m_bounds.push_back({});  // may match anything, as far as the filter knows
        continue;
      }
      size_t head = 0;
      while (head < part.size() && IsPlain(part[head])) ++head;
      // A quantified last byte may occur any number of times, even none.
      if (head > 0 && head < part.size() && IsQuantifier(part[head])) --head;

      const std::string_view rest = part.substr(head);
      size_t tail = 0;
      while (tail < rest.size() && IsPlain(rest[rest.size() - 1 - tail])) ++tail;
      // The first byte of the run is escaped, and so not a byte of its own.
      if (tail > 0 && tail < rest.size() && rest[rest.size() - 1 - tail] == '\\') --tail;

      const std::string_view middle = LongestInnerRun(part, head, part.size() - tail);
      p.m_bounds.push_back(
          {std::string(part.substr(0, head)), std::string(middle), std::string(rest.substr(rest.size() - tail))});
    }
  }
  return p;
}

NamePattern NamePattern::Prefix(const std::string& text) {
  NamePattern p;
  p.m_kind = EKind::Prefix;
  p.m_text = text;
  return p;
}

std::bitset<256> NamePattern::FirstBytes() const {
  std::bitset<256> bytes;
  switch (m_kind) {
    case EKind::Prefix:
      if (m_text.empty()) return bytes.set();
      bytes.set(static_cast<unsigned char>(m_text[0]));
      return bytes;
    case EKind::Literals:
      for (const std::string& literal : m_literals) {
        if (!literal.empty()) bytes.set(static_cast<unsigned char>(literal[0]));
      }
      return bytes;
    case EKind::Expression:
      if (m_bounds.empty()) return bytes.set();
      for (const Bounds& b : m_bounds) {
        if (b.head.empty()) return bytes.set();
        bytes.set(static_cast<unsigned char>(b.head[0]));
      }
      return bytes;
  }
  return bytes.set();
}

bool NamePattern::MayMatch(std::string_view name) const {
  if (m_bounds.empty()) return true;
  for (const Bounds& b : m_bounds) {
    if (name.size() < b.head.size() + b.middle.size() + b.tail.size()) continue;
    if (!name.starts_with(b.head) || !name.ends_with(b.tail)) continue;
    if (b.middle.empty()) return true;
    const size_t at = name.find(b.middle, b.head.size());
    if (at != std::string_view::npos && at + b.middle.size() <= name.size() - b.tail.size()) return true;
  }
  return false;
}

bool NamePattern::Matches(std::string_view name) const {
  switch (m_kind) {
    case EKind::Prefix:
      return name.starts_with(m_text);
    case EKind::Literals:
      for (const std::string& literal : m_literals) {
        if (name == literal) return true;
      }
      return false;
    case EKind::Expression:
      if (name.size() > kMaxExpressionInput || !MayMatch(name)) return false;
      return m_simple ? m_simple->Matches(name) : std::regex_match(name.begin(), name.end(), m_regex);
  }
  return false;
}

}  // namespace DL
