#pragma once
// Packs a record straight into its block, without building the named tree of
// CInMemStorage first: the bytes are those that CInMemStorage::PackToSolidBuffer
// writes for the same record (magic, version, then the root section with its
// children by name, bytewise ascending). A reply of many list elements thus
// costs one allocation instead of a few per element.
//
// What each field becomes:
//   string               value of kind 2: the bytes and the terminating zero
//   int, bool, char,     value of kind 1: the native bytes
//   double, long long
//   vector<int|double>   array of values of kind 1, one per element
//   vector<string>       array of sections, each with one string "STL_string"
//   vector<record>       array of sections, each with the element's fields
//   an empty vector      no child at all
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

// Included at the end of api/RecordFields.h, whose record concept it uses.
#include "support/StorageSerialize.h"

namespace RecordPacker {

// Width of a compact unsigned number (the 4-byte form reaches 1073741824).
constexpr std::size_t CompactSize(std::uint64_t value) {
  return value < 64 ? 1 : value < 16384 ? 2 : value <= 1073741824ULL ? 4 : 8;
}

inline unsigned char* PutCompact(unsigned char* out, std::uint64_t value) {
  const std::size_t width = CompactSize(value);
  const std::uint64_t lowBits = width == 1 ? 0 : width == 2 ? 1 : width == 4 ? 2 : 3;
  const std::uint64_t unit = (value << 2) | lowBits;  // what does not fit the width is lost
  for (std::size_t i = 0; i < width; ++i) out[i] = static_cast<unsigned char>(unit >> (8 * i));
  return out + width;
}

inline unsigned char* PutBytes(unsigned char* out, const void* data, std::size_t size) {
  if (size != 0) std::memcpy(out, data, size);
  return out + size;
}

// A child's name as packed: the bytes and a zero.
inline unsigned char* PutName(unsigned char* out, const char* name) {
  return PutBytes(out, name, std::strlen(name) + 1);
}

constexpr unsigned char kSection = 1, kValue = 2, kSectionsArray = 3, kValuesArray = 4;
constexpr unsigned char kNative = 1, kString = 2;

template <class F>
struct TField;

// The children of one record's section in name order. The permutation of a
// record type's fields is worked out once, with the field names it was made
// from; a record written by hand whose fields differ from one instance to the
// next gets the order of its own names.
struct TFieldOrder {
  std::vector<const char*> names;  // as VisitFields gives them
  std::vector<std::size_t> order;  // indexes into names, by name
};

inline std::vector<std::size_t> OrderOfNames(const std::vector<const char*>& names) {
  std::vector<std::size_t> indexes(names.size());
  for (std::size_t i = 0; i < indexes.size(); ++i) indexes[i] = i;
  std::stable_sort(indexes.begin(), indexes.end(),
                   [&](std::size_t a, std::size_t b) { return std::strcmp(names[a], names[b]) < 0; });
  return indexes;
}

template <class T>
const TFieldOrder& SortedFieldOrder() {
  static const TFieldOrder order = [] {
    TFieldOrder o;
    T record{};
    T::VisitFields(record, [&](const char* name, const auto&) { o.names.push_back(name); });
    o.order = OrderOfNames(o.names);
    return o;
  }();
  return order;
}

// One child of a section, erased to what packing needs.
struct TChild {
  const char* name;
  const void* field;
  std::size_t (*size)(const void*);  // entry size, 0 for a field that writes no child
  unsigned char* (*put)(unsigned char*, const void*);
};

template <class F>
TChild ChildOf(const char* name, const F& field) {
  return TChild{name, &field, [](const void* f) { return TField<F>::Size(*static_cast<const F*>(f)); },
                [](unsigned char* out, const void* f) { return TField<F>::Put(out, *static_cast<const F*>(f)); }};
}

// The children of a record, in declaration order; records of up to 32 fields
// keep them on the stack.
class TChildren {
 public:
  template <class T>
  explicit TChildren(const T& record) {
    T::VisitFields(record, [&](const char* name, const auto& field) {
      if (m_count < m_small.size()) m_small[m_count] = ChildOf(name, field);
      else m_large.push_back(ChildOf(name, field));
      ++m_count;
    });
  }
  const TChild& operator[](std::size_t i) const { return i < m_small.size() ? m_small[i] : m_large[i - m_small.size()]; }
  std::size_t size() const { return m_count; }

 private:
  std::array<TChild, 32> m_small{};
  std::vector<TChild> m_large;
  std::size_t m_count = 0;
};

// Size and bytes of a record's whole section entry (type byte included).
template <class T>
struct TSection {
  static std::size_t Size(const T& record) {
    const TChildren children(record);
    std::size_t count = 0, size = 0;
    for (std::size_t i = 0; i < children.size(); ++i) {
      const TChild& c = children[i];
      const std::size_t entry = c.size(c.field);
      if (entry == 0) continue;
      ++count;
      size += std::strlen(c.name) + 1 + entry;
    }
    return 1 + CompactSize(count) + size;
  }
  static unsigned char* Put(unsigned char* out, const T& record) {
    const TChildren children(record);
    std::size_t count = 0;
    for (std::size_t i = 0; i < children.size(); ++i) count += children[i].size(children[i].field) != 0 ? 1 : 0;
    *out++ = kSection;
    out = PutCompact(out, count);
    const TFieldOrder& typeOrder = SortedFieldOrder<T>();
    bool same = children.size() == typeOrder.names.size();
    for (std::size_t i = 0; same && i < children.size(); ++i)
      same = children[i].name == typeOrder.names[i] || std::strcmp(children[i].name, typeOrder.names[i]) == 0;
    std::vector<std::size_t> ownOrder;
    if (!same) {
      std::vector<const char*> names(children.size());
      for (std::size_t i = 0; i < children.size(); ++i) names[i] = children[i].name;
      ownOrder = OrderOfNames(names);
    }
    for (std::size_t i : same ? typeOrder.order : ownOrder) {
      const TChild& c = children[i];
      if (c.size(c.field) == 0) continue;
      out = PutName(out, c.name);
      out = c.put(out, c.field);
    }
    return out;
  }
};

template <>
struct TField<std::string> {
  static std::size_t Size(const std::string& s) { return 2 + CompactSize(s.size() + 1) + s.size() + 1; }
  static unsigned char* Put(unsigned char* out, const std::string& s) {
    *out++ = kValue;
    *out++ = kString;
    out = PutCompact(out, s.size() + 1);
    return PutBytes(out, s.c_str(), s.size() + 1);
  }
};

template <class F>
  requires StorageNamed::kIsNativeField<F>
struct TField<F> {
  static std::size_t Size(const F&) { return 2 + CompactSize(sizeof(F)) + sizeof(F); }
  static unsigned char* Put(unsigned char* out, const F& value) {
    *out++ = kValue;
    *out++ = kNative;
    out = PutCompact(out, sizeof(F));
    return PutBytes(out, &value, sizeof(F));
  }
};

// A list of plain numbers: an array of values.
template <class E>
  requires StorageNamed::kIsPodListElement<E>
struct TField<std::vector<E>> {
  static std::size_t Size(const std::vector<E>& list) {
    if (list.empty()) return 0;
    return 2 + CompactSize(list.size()) + list.size() * (CompactSize(sizeof(E)) + sizeof(E));
  }
  static unsigned char* Put(unsigned char* out, const std::vector<E>& list) {
    *out++ = kValuesArray;
    *out++ = kNative;
    out = PutCompact(out, list.size());
    for (const E& e : list) {
      out = PutCompact(out, sizeof(E));
      out = PutBytes(out, &e, sizeof(E));
    }
    return out;
  }
};

// One section with a single string child "STL_string".
struct TStringElement {
  static constexpr std::size_t kNameSize = sizeof(StorageNamed::kStlStringName);  // with its zero
  static std::size_t Size(const std::string& s) {
    return 1 + CompactSize(1) + kNameSize + TField<std::string>::Size(s);
  }
  static unsigned char* Put(unsigned char* out, const std::string& s) {
    *out++ = kSection;
    out = PutCompact(out, 1);
    out = PutBytes(out, StorageNamed::kStlStringName, kNameSize);
    return TField<std::string>::Put(out, s);
  }
};

// A list of strings or of records: an array of sections.
template <class E>
  requires(std::is_same_v<E, std::string> || RecordFields::TransferRecord<E>)
struct TField<std::vector<E>> {
  using Element = std::conditional_t<std::is_same_v<E, std::string>, TStringElement, TSection<E>>;
  static std::size_t Size(const std::vector<E>& list) {
    if (list.empty()) return 0;
    std::size_t size = 1 + CompactSize(list.size());
    for (const E& e : list) size += Element::Size(e);
    return size;
  }
  static unsigned char* Put(unsigned char* out, const std::vector<E>& list) {
    *out++ = kSectionsArray;
    out = PutCompact(out, list.size());
    for (const E& e : list) out = Element::Put(out, e);
    return out;
  }
};

// The whole block of a record into data, which becomes exactly the block.
template <RecordFields::TransferRecord T>
void PackRecord(const T& record, std::vector<unsigned char>& data) {
  static constexpr unsigned char kHead[9] = {0xA2, 0x49, 0x4D, 0xF3, 0xD9, 0x1E, 0x9F, 0x88, 0x01};
  data.resize(sizeof kHead + TSection<T>::Size(record));
  unsigned char* out = PutBytes(data.data(), kHead, sizeof kHead);
  TSection<T>::Put(out, record);
}

}  // namespace RecordPacker
