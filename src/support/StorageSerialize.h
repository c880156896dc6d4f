#pragma once
// CStorageSerialize: puts record fields into a storage tree by name and takes
// them out again. Every function takes (field, storage, section handle, name);
// a null section is the root.
//
//   field type                 stored as
//   string                     value, kind 2: the bytes and the terminating zero
//   int, bool, char            value, kind 1: the native bytes (4, 1, 1)
//   double, long long          value, kind 1: the native bytes (8)
//   vector<int>, <double>      values array, kind 1, one element per item
//   vector<STL_string>         sections array, each section one string "STL_string"
//   vector<record>             sections array, each section the record's fields
//   empty vector               nothing at all
//
// An absent field leaves the target as it was (and gives false), so a record
// decodes to what it held before for every field the block does not carry.
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "support/InMemStorage.h"

namespace StorageNamed {

using InMemStorageSpace::CSSection;
using InMemStorageSpace::CSSectionsArray;
using InMemStorageSpace::CSValue;
using InMemStorageSpace::CSValuesArray;
using InMemStorageSpace::HSSECTION;

// A list of strings travels as a list of one-field sections.
using STL_string = std::string;
inline constexpr char kStlStringName[] = "STL_string";

// How one element of a list of sections goes into its section and comes back.
// Specialised for STL_string here and for records by the record declarations:
//   template <class TStorage> static bool Store(const T&, TStorage&, HSSECTION);
//   template <class TStorage> static bool Load(T&, TStorage&, HSSECTION);
template <class T>
struct TSectionElement;

template <class T>
inline constexpr bool kIsNativeField = std::is_same_v<T, int> || std::is_same_v<T, bool> ||
                                       std::is_same_v<T, char> || std::is_same_v<T, double> ||
                                       std::is_same_v<T, long long>;

template <class T>
inline constexpr bool kIsPodListElement = std::is_same_v<T, int> || std::is_same_v<T, double>;

struct CStorageSerialize {
  // Stores size() + 1 bytes from the string's data: the terminator always travels.
  template <class TStorage>
  static bool SerializeStlStringAnsi(const std::string& field, TStorage& storage, HSSECTION section,
                                     const char* name) {
    fake_mem_block view(field.c_str(), field.size() + 1);
    return storage.SetValue(name, &view, section, InMemStorageSpace::vkString);
  }

  // Reads the value as a zero-terminated string: an embedded zero cuts it, and a
  // value without a terminator ends at its last byte.
  template <class TStorage>
  static bool UnSerializeStlStringAnsi(std::string& field, TStorage& storage, HSSECTION section,
                                       const char* name) {
    InMemStorageSpace::ISSectionEntry* entry = storage.GetSecEntry(name, section);
    if (entry == nullptr || entry->GetEntryType() != InMemStorageSpace::etValue) return false;
    unsigned long size = 0;
    const char* data = reinterpret_cast<const char*>(static_cast<CSValue*>(entry)->Value().get(&size));
    field.assign(data, data != nullptr ? ::strnlen(data, size) : 0);
    return true;
  }

  template <class T, class TStorage>
  static bool SerializeNative(const T& field, TStorage& storage, HSSECTION section, const char* name) {
    static_assert(kIsNativeField<T>, "native fields are int, bool, char, double and long long");
    fake_mem_block view(&field, sizeof field);
    return storage.SetValue(name, &view, section, InMemStorageSpace::vkNative);
  }

  // Copies the smaller of the stored size and sizeof(T) into the target's low
  // bytes: a short value changes only those and leaves the rest as it was.
  template <class T, class TStorage>
  static bool UnSerializeNative(T& field, TStorage& storage, HSSECTION section, const char* name) {
    static_assert(kIsNativeField<T>, "native fields are int, bool, char, double and long long");
    if constexpr (std::is_same_v<T, bool>) {
      // Any stored byte but 0 is true; a bool never takes another bit pattern.
      unsigned char byte = field ? 1 : 0;
      fake_mem_block view(&byte, 1);
      if (!storage.GetValue(name, &view, section, nullptr)) return false;
      field = byte != 0;
      return true;
    } else {
      fake_mem_block view(&field, sizeof field);
      return storage.GetValue(name, &view, section, nullptr);
    }
  }

  template <class T, class TStorage>
  static bool SerializeSTL_Pod(const std::vector<T>& field, TStorage& storage, HSSECTION section,
                               const char* name) {
    static_assert(kIsPodListElement<T>, "lists of plain numbers hold int or double");
    if (field.empty()) return true;
    fake_mem_block first(&field[0], sizeof(T));
    CSValuesArray* array = storage.InsertFirstValue(name, &first, section, InMemStorageSpace::vkNative);
    if (array == nullptr) return false;
    for (size_t i = 1; i < field.size(); ++i) {
      fake_mem_block next(&field[i], sizeof(T));
      if (!storage.InsertNextValue(array, &next)) return false;
    }
    return true;
  }

  // Empties the list first. Each element is read into a zeroed element: a longer
  // stored element is cut to sizeof(T), a shorter one fills the low bytes.
  template <class T, class TStorage>
  static bool UnSerializeSTL_Pod(std::vector<T>& field, TStorage& storage, HSSECTION section, const char* name) {
    static_assert(kIsPodListElement<T>, "lists of plain numbers hold int or double");
    field.clear();
    T element{};
    fake_mem_block view(&element, sizeof element);
    CSValuesArray* array = storage.GetFirstValue(name, &view, section);
    if (array == nullptr) return false;
    do {
      field.push_back(element);
      element = T{};
    } while (storage.GetNextValue(array, &view));
    return true;
  }

  template <class T, class TStorage>
  static bool SerializeSTL_T(const std::vector<T>& field, TStorage& storage, HSSECTION section,
                             const char* name) {
    if (field.empty()) return true;
    CSSection* element = nullptr;
    CSSectionsArray* array = storage.InsertFirstSection(name, &element, section);
    if (array == nullptr) return false;
    bool ok = TSectionElement<T>::Store(field[0], storage, element);
    for (size_t i = 1; i < field.size(); ++i) {
      if (!storage.InsertNextSection(array, &element)) return false;
      ok = TSectionElement<T>::Store(field[i], storage, element) && ok;
    }
    return ok;
  }

  // Empties the list first; each element starts as T{} and takes the fields
  // its section carries. A missing list gives an empty list and false.
  template <class T, class TStorage>
  static bool UnSerializeSTL_T(std::vector<T>& field, TStorage& storage, HSSECTION section, const char* name) {
    field.clear();
    CSSection* element = nullptr;
    CSSectionsArray* array = storage.GetFirstSection(name, &element, section);
    if (array == nullptr) return false;
    do {
      T value{};
      TSectionElement<T>::Load(value, storage, element);
      field.push_back(std::move(value));
    } while (storage.GetNextSection(array, &element));
    return true;
  }
};

template <>
struct TSectionElement<STL_string> {
  template <class TStorage>
  static bool Store(const std::string& element, TStorage& storage, HSSECTION section) {
    return CStorageSerialize::SerializeStlStringAnsi(element, storage, section, kStlStringName);
  }
  template <class TStorage>
  static bool Load(std::string& element, TStorage& storage, HSSECTION section) {
    return CStorageSerialize::UnSerializeStlStringAnsi(element, storage, section, kStlStringName);
  }
};

}  // namespace StorageNamed
