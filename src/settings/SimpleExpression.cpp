#include "settings/SimpleExpression.h"

namespace DL {

// Reads the expression text by recursive descent; every method gives false
// at the first thing it does not understand.
class SimpleExpression::Parser {
 public:
  Parser(std::string_view text, SimpleExpression* out) : m_text(text), m_out(out) {}

  bool Alternatives() {
    do {
      Sequence seq;
      if (!SequenceUntil(&seq)) return false;
      m_out->m_alternatives.push_back(std::move(seq));
    } while (Take('|'));
    return m_at == m_text.size();
  }

 private:
  bool AtEnd() const { return m_at == m_text.size(); }
  char Peek() const { return m_text[m_at]; }
  bool Take(char c) {
    if (AtEnd() || Peek() != c) return false;
    ++m_at;
    return true;
  }

  // Items up to the end of the text, a "|" or a ")".
  bool SequenceUntil(Sequence* seq) {
    while (!AtEnd() && Peek() != '|' && Peek() != ')') {
      if (Take('(')) {
        if (!Group(seq)) return false;
        continue;
      }
      Item item;
      if (!Atom(&item.bytes) || !Quantifier(&item)) return false;
      Append(seq, std::move(item));
    }
    return true;
  }

  // Adds an item; a byte taken exactly once joins the literal run before it,
  // so that a run is compared in one step.
  static void Append(Sequence* seq, Item item) {
    const bool single = item.min == 1 && item.max == 1 && item.bytes.count() == 1;
    if (!single) {
      seq->push_back(std::move(item));
      return;
    }
    char byte = 0;
    for (unsigned c = 0; c < 256; ++c) {
      if (item.bytes.test(c)) byte = static_cast<char>(c);
    }
    if (seq->empty() || seq->back().literal.empty()) {
      Item run;
      run.literal.assign(1, byte);
      seq->push_back(std::move(run));
    } else {
      seq->back().literal += byte;
    }
  }

  // After "(": a look-ahead, or a plain group whose items join the sequence.
  bool Group(Sequence* seq) {
    if (Take('?')) {
      Item item;
      if (Take('!')) {
        item.negative = true;
      } else if (!Take('=')) {
        return false;
      }
      Sequence inner;
      if (!SequenceUntil(&inner) || !Take(')')) return false;
      m_out->m_sequences.push_back(std::move(inner));
      item.lookAhead = m_out->m_sequences.size();
      seq->push_back(std::move(item));
      return true;
    }
    if (!SequenceUntil(seq) || !Take(')')) return false;
    // A quantifier here would apply to the whole group.
    return AtEnd() || (Peek() != '*' && Peek() != '+' && Peek() != '?' && Peek() != '{');
  }

  bool Atom(std::bitset<256>* bytes) {
    const char c = m_text[m_at++];
    switch (c) {
      case '.':
        *bytes = AnyByte();
        return true;
      case '\\':
        return Escape(bytes);
      case '[':
        return Class(bytes);
      case '^': case '$': case '*': case '+': case '?': case ']': case '{': case '}':
        return false;
      default:
        bytes->set(static_cast<unsigned char>(c));
        return true;
    }
  }

  bool Escape(std::bitset<256>* bytes) {
    if (AtEnd()) return false;
    const unsigned char c = static_cast<unsigned char>(m_text[m_at++]);
    if (c == 'd') {
      for (unsigned char d = '0'; d <= '9'; ++d) bytes->set(d);
      return true;
    }
    // Letters and digits after "\" are classes, controls or references.
    const bool alnum = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (alnum || c >= 0x80) return false;
    bytes->set(c);
    return true;
  }

  // After "[": plain bytes and ranges up to "]"; no negation, no escapes.
  bool Class(std::bitset<256>* bytes) {
    if (Take('^') || Take(']')) return false;
    while (!Take(']')) {
      if (AtEnd()) return false;
      const unsigned char from = static_cast<unsigned char>(m_text[m_at++]);
      if (from == '\\' || from == '[' || from >= 0x80) return false;
      unsigned char to = from;
      if (m_at + 1 < m_text.size() && Peek() == '-' && m_text[m_at + 1] != ']') {
        to = static_cast<unsigned char>(m_text[m_at + 1]);
        if (to == '\\' || to == '[' || to >= 0x80 || to < from) return false;
        m_at += 2;
      }
      for (unsigned c = from; c <= to; ++c) bytes->set(c);
    }
    return bytes->any();
  }

  bool Quantifier(Item* item) {
    if (Take('*')) {
      item->min = 0;
      item->max = kUnbounded;
    } else if (Take('+')) {
      item->max = kUnbounded;
    } else if (Take('?')) {
      item->min = 0;
    } else if (Take('{')) {
      if (!Number(&item->min)) return false;
      item->max = item->min;
      if (Take(',')) {
        item->max = kUnbounded;
        if (!AtEnd() && Peek() != '}' && (!Number(&item->max) || item->max < item->min)) return false;
      }
      if (!Take('}')) return false;
    } else {
      return true;
    }
    return AtEnd() || (Peek() != '?' && Peek() != '*' && Peek() != '+' && Peek() != '{');  // no lazy or double quantifier
  }

  bool Number(size_t* value) {
    size_t digits = 0;
    *value = 0;
    while (!AtEnd() && Peek() >= '0' && Peek() <= '9' && digits < 6) {
      *value = *value * 10 + static_cast<size_t>(m_text[m_at++] - '0');
      ++digits;
    }
    return digits > 0 && (AtEnd() || Peek() < '0' || Peek() > '9');
  }

  std::string_view m_text;
  size_t m_at = 0;
  SimpleExpression* m_out;
};

std::bitset<256> SimpleExpression::AnyByte() {
  std::bitset<256> all;
  all.set();
  all.reset('\n');
  all.reset('\r');
  return all;
}

std::optional<SimpleExpression> SimpleExpression::Compile(std::string_view text) {
  SimpleExpression e;
  Parser parser(text, &e);
  if (!parser.Alternatives()) return std::nullopt;
  return e;
}

bool SimpleExpression::MatchFrom(const Sequence& seq, size_t item, std::string_view name, size_t pos,
                                 bool whole) const {
  if (item == seq.size()) return !whole || pos == name.size();
  const Item& it = seq[item];
  if (!it.literal.empty()) {
    return name.substr(pos).starts_with(it.literal) && MatchFrom(seq, item + 1, name, pos + it.literal.size(), whole);
  }
  if (it.lookAhead != 0) {
    const bool found = MatchFrom(m_sequences[it.lookAhead - 1], 0, name, pos, false);
    return found != it.negative && MatchFrom(seq, item + 1, name, pos, whole);
  }
  size_t run = 0;
  while (run < it.max && pos + run < name.size() && it.bytes[static_cast<unsigned char>(name[pos + run])]) ++run;
  if (run < it.min) return false;
  // The last atom of a whole match must take all that is left.
  if (whole && item + 1 == seq.size()) return pos + run == name.size();
  // When a literal run follows, only the places where it begins are worth
  // trying.
  const bool literalNext = item + 1 < seq.size() && !seq[item + 1].literal.empty();
  for (size_t take = run + 1; take-- > it.min;) {
    if (literalNext && (pos + take >= name.size() || name[pos + take] != seq[item + 1].literal[0])) continue;
    if (MatchFrom(seq, item + 1, name, pos + take, whole)) return true;
  }
  return false;
}

bool SimpleExpression::Matches(std::string_view name) const {
  for (const Sequence& seq : m_alternatives) {
    if (MatchFrom(seq, 0, name, 0, true)) return true;
  }
  return false;
}

}  // namespace DL
