#pragma once
// Request and reply blocks written byte by byte in the test, independent of the
// module's own encoder: magic A2 49 4D F3 D9 1E 9F 88, version 01, then the
// root section (type 01, compact count, children sorted by name, each as its
// name, a zero and its entry).
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace TestWire {

using Bytes = std::vector<unsigned char>;

inline void Compact(Bytes& out, uint64_t value) {
  if (value < 64) {
    out.push_back(static_cast<unsigned char>(value << 2));
  } else if (value < 16384) {
    uint16_t v = static_cast<uint16_t>((value << 2) | 1);
    out.push_back(static_cast<unsigned char>(v & 0xFF));
    out.push_back(static_cast<unsigned char>(v >> 8));
  } else if (value < 1073741824) {
    uint32_t v = static_cast<uint32_t>((value << 2) | 2);
    for (int i = 0; i < 4; ++i) out.push_back(static_cast<unsigned char>((v >> (8 * i)) & 0xFF));
  } else {
    uint64_t v = (value << 2) | 3;
    for (int i = 0; i < 8; ++i) out.push_back(static_cast<unsigned char>((v >> (8 * i)) & 0xFF));
  }
}

template <class T>
void Raw(Bytes& out, const T& value) {
  unsigned char b[sizeof(T)];
  std::memcpy(b, &value, sizeof(T));
  out.insert(out.end(), b, b + sizeof(T));
}

// A value entry: type 02, kind, compact length, bytes.
inline void Value(Bytes& out, unsigned char kind, const Bytes& bytes) {
  out.push_back(0x02);
  out.push_back(kind);
  Compact(out, static_cast<uint32_t>(bytes.size()));
  out.insert(out.end(), bytes.begin(), bytes.end());
}

inline Bytes StringBytes(const std::string& s) {
  Bytes b(s.begin(), s.end());
  b.push_back(0);
  return b;
}

template <class T>
Bytes RawBytes(const T& v) {
  Bytes b;
  Raw(b, v);
  return b;
}

using Pairs = std::vector<std::pair<std::string, std::string>>;  // records of "str1", "str2"

class Record;
using Records = std::vector<Record>;  // a list of records, each a section of its own

using Field = std::variant<std::string, int, bool, double, std::vector<std::string>, std::vector<int>,
                           std::vector<double>, Pairs, Records>;

// The fields of one record by name; the block lists them sorted by name, and
// an empty list is left out.
class Record {
 public:
  Record& Set(const std::string& name, Field value) {
    fields_[name] = std::move(value);
    return *this;
  }

  // These fields with those of `other` put in (replacing same names).
  Record Merged(const Record& other) const {
    Record out = *this;
    for (const auto& [name, value] : other.fields_) out.fields_[name] = value;
    return out;
  }

  Bytes Block() const {
    Bytes out = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01};
    Section(out);
    return out;
  }

  // The record as a section entry: type 01, the count of present fields, the
  // fields sorted by name.
  void Section(Bytes& out) const {
    out.push_back(0x01);
    uint32_t count = 0;
    for (const auto& [name, value] : fields_) count += Present(value) ? 1 : 0;
    Compact(out, count);
    for (const auto& [name, value] : fields_) {
      if (!Present(value)) continue;
      out.insert(out.end(), name.begin(), name.end());
      out.push_back(0);
      Entry(out, value);
    }
  }

 private:
  static bool Present(const Field& f) {
    if (auto* l = std::get_if<std::vector<std::string>>(&f)) return !l->empty();
    if (auto* l = std::get_if<std::vector<int>>(&f)) return !l->empty();
    if (auto* l = std::get_if<std::vector<double>>(&f)) return !l->empty();
    if (auto* l = std::get_if<Pairs>(&f)) return !l->empty();
    if (auto* l = std::get_if<Records>(&f)) return !l->empty();
    return true;
  }

  template <class T>
  static void PodList(Bytes& out, const std::vector<T>& list) {
    out.push_back(0x04);
    out.push_back(0x01);
    Compact(out, static_cast<uint32_t>(list.size()));
    for (const T& item : list) {
      Compact(out, sizeof(T));
      Raw(out, item);
    }
  }

  static void Entry(Bytes& out, const Field& f) {
    if (auto* s = std::get_if<std::string>(&f)) {
      Value(out, 0x02, StringBytes(*s));
    } else if (auto* i = std::get_if<int>(&f)) {
      Value(out, 0x01, RawBytes(*i));
    } else if (auto* b = std::get_if<bool>(&f)) {
      Value(out, 0x01, Bytes{static_cast<unsigned char>(*b ? 1 : 0)});
    } else if (auto* d = std::get_if<double>(&f)) {
      Value(out, 0x01, RawBytes(*d));
    } else if (auto* l = std::get_if<std::vector<std::string>>(&f)) {
      out.push_back(0x03);
      Compact(out, static_cast<uint32_t>(l->size()));
      for (const std::string& item : *l) {
        out.push_back(0x01);
        Compact(out, 1);
        const char kName[] = "STL_string";
        out.insert(out.end(), kName, kName + sizeof kName);
        Value(out, 0x02, StringBytes(item));
      }
    } else if (auto* li = std::get_if<std::vector<int>>(&f)) {
      PodList(out, *li);
    } else if (auto* ld = std::get_if<std::vector<double>>(&f)) {
      PodList(out, *ld);
    } else if (auto* lp = std::get_if<Pairs>(&f)) {
      out.push_back(0x03);
      Compact(out, static_cast<uint32_t>(lp->size()));
      for (const auto& [first, second] : *lp) {
        out.push_back(0x01);
        Compact(out, 2);
        out.insert(out.end(), {'s', 't', 'r', '1', 0});
        Value(out, 0x02, StringBytes(first));
        out.insert(out.end(), {'s', 't', 'r', '2', 0});
        Value(out, 0x02, StringBytes(second));
      }
    } else if (auto* lr = std::get_if<Records>(&f)) {
      out.push_back(0x03);
      Compact(out, static_cast<uint32_t>(lr->size()));
      for (const Record& item : *lr) item.Section(out);
    }
  }

  std::map<std::string, Field> fields_;
};

}  // namespace TestWire
