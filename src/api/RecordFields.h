#pragma once
// Records that travel between the remote client and the command handlers.
//
// A record's fields are declared once, as (type, member) rows; the member, its
// wire name (the member's name) and both directions of conversion come from
// that one declaration:
//
//   ZDL_DECLARE_RECORD(TDL_TwoStrings, (std::string, firmCode), (std::string, strParam));
//
// gives struct TDL_TwoStrings { std::string firmCode{}; std::string strParam{}; }
// whose fields travel under the names "firmCode" and "strParam". Field types:
// std::string, int, bool, char, double, long long, std::vector<int>,
// std::vector<double>, std::vector<STL_string> and std::vector of a record.
// A type with a comma in it needs an alias first. Up to 256 rows per record.
//
// A record written by hand takes part too: give it the member type
// `using TransferRecordTag = void;` and a static
//   template <class Self, class Visitor> static void VisitFields(Self& r, Visitor&& visit)
// that calls visit("wireName", r.member) for each field in order.
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "support/StorageSerialize.h"

// Applies macro to every parenthesised row: macro (type, member).
#define ZDL_FOR_EACH_ROW_(macro, ...) __VA_OPT__(ZDL_ROWS_EXPAND_(ZDL_ROWS_STEP_(macro, __VA_ARGS__)))
#define ZDL_ROWS_STEP_(macro, row, ...) macro row __VA_OPT__(ZDL_ROWS_AGAIN_ ZDL_ROWS_PARENS_(macro, __VA_ARGS__))
#define ZDL_ROWS_AGAIN_() ZDL_ROWS_STEP_
#define ZDL_ROWS_PARENS_ ()
#define ZDL_ROWS_EXPAND_(...) ZDL_ROWS_EXPAND3_(ZDL_ROWS_EXPAND3_(ZDL_ROWS_EXPAND3_(ZDL_ROWS_EXPAND3_(__VA_ARGS__))))
#define ZDL_ROWS_EXPAND3_(...) ZDL_ROWS_EXPAND2_(ZDL_ROWS_EXPAND2_(ZDL_ROWS_EXPAND2_(ZDL_ROWS_EXPAND2_(__VA_ARGS__))))
#define ZDL_ROWS_EXPAND2_(...) ZDL_ROWS_EXPAND1_(ZDL_ROWS_EXPAND1_(ZDL_ROWS_EXPAND1_(ZDL_ROWS_EXPAND1_(__VA_ARGS__))))
#define ZDL_ROWS_EXPAND1_(...) ZDL_ROWS_EXPAND0_(ZDL_ROWS_EXPAND0_(ZDL_ROWS_EXPAND0_(ZDL_ROWS_EXPAND0_(__VA_ARGS__))))
#define ZDL_ROWS_EXPAND0_(...) __VA_ARGS__

#define ZDL_RECORD_MEMBER_(type, member) type member{};
#define ZDL_RECORD_VISIT_(type, member) visit(#member, record.member);

#define ZDL_DECLARE_RECORD(Name, ...)                        \
  struct Name {                                              \
    using TransferRecordTag = void;                          \
    static constexpr const char* kRecordName = #Name;        \
    ZDL_FOR_EACH_ROW_(ZDL_RECORD_MEMBER_, __VA_ARGS__)       \
    template <class Self, class Visitor>                     \
    static void VisitFields(Self& record, Visitor&& visit) { \
      (void)record;                                          \
      (void)visit;                                           \
      ZDL_FOR_EACH_ROW_(ZDL_RECORD_VISIT_, __VA_ARGS__)      \
    }                                                        \
  }

namespace RecordFields {

using StorageNamed::CStorageSerialize;
using StorageNamed::HSSECTION;
using StorageNamed::InMemStorageSpace::CInMemStorage;

template <class T>
concept TransferRecord = requires { typename T::TransferRecordTag; };

template <class T>
struct TIsVector : std::false_type {};
template <class T>
struct TIsVector<std::vector<T>> : std::true_type {
  using Element = T;
};

template <class T>
inline constexpr bool kAlwaysFalse = false;

// One field in or out, chosen by its type.
template <class F>
bool StoreField(const F& field, CInMemStorage& storage, HSSECTION section, const char* name) {
  if constexpr (std::is_same_v<F, std::string>) {
    return CStorageSerialize::SerializeStlStringAnsi(field, storage, section, name);
  } else if constexpr (StorageNamed::kIsNativeField<F>) {
    return CStorageSerialize::SerializeNative(field, storage, section, name);
  } else if constexpr (TIsVector<F>::value) {
    using E = typename TIsVector<F>::Element;
    if constexpr (StorageNamed::kIsPodListElement<E>) {
      return CStorageSerialize::SerializeSTL_Pod(field, storage, section, name);
    } else {
      static_assert(std::is_same_v<E, StorageNamed::STL_string> || TransferRecord<E>,
                    "a list holds int, double, STL_string or records");
      return CStorageSerialize::SerializeSTL_T(field, storage, section, name);
    }
  } else {
    static_assert(kAlwaysFalse<F>, "field type cannot travel");
    return false;
  }
}

template <class F>
bool LoadField(F& field, CInMemStorage& storage, HSSECTION section, const char* name) {
  if constexpr (std::is_same_v<F, std::string>) {
    return CStorageSerialize::UnSerializeStlStringAnsi(field, storage, section, name);
  } else if constexpr (StorageNamed::kIsNativeField<F>) {
    return CStorageSerialize::UnSerializeNative(field, storage, section, name);
  } else if constexpr (TIsVector<F>::value) {
    using E = typename TIsVector<F>::Element;
    if constexpr (StorageNamed::kIsPodListElement<E>) {
      return CStorageSerialize::UnSerializeSTL_Pod(field, storage, section, name);
    } else {
      static_assert(std::is_same_v<E, StorageNamed::STL_string> || TransferRecord<E>,
                    "a list holds int, double, STL_string or records");
      return CStorageSerialize::UnSerializeSTL_T(field, storage, section, name);
    }
  } else {
    static_assert(kAlwaysFalse<F>, "field type cannot travel");
    return false;
  }
}

// Every field of the record into the section; false if one could not be stored.
template <TransferRecord T>
bool StoreRecord(const T& record, CInMemStorage& storage, HSSECTION section) {
  bool ok = true;
  T::VisitFields(record, [&](const char* name, const auto& field) {
    ok = StoreField(field, storage, section, name) && ok;
  });
  return ok;
}

// Every field the section carries into the record; the others keep their values.
template <TransferRecord T>
void LoadRecord(T& record, CInMemStorage& storage, HSSECTION section) {
  T::VisitFields(record, [&](const char* name, auto& field) { LoadField(field, storage, section, name); });
}

}  // namespace RecordFields

namespace StorageNamed {

template <RecordFields::TransferRecord T>
struct TSectionElement<T> {
  template <class TStorage>
  static bool Store(const T& element, TStorage& storage, HSSECTION section) {
    return RecordFields::StoreRecord(element, storage, section);
  }
  template <class TStorage>
  static bool Load(T& element, TStorage& storage, HSSECTION section) {
    RecordFields::LoadRecord(element, storage, section);
    return true;
  }
};

}  // namespace StorageNamed

// Decodes a request block into the record. The block is read where it lies;
// an empty, damaged or cut block leaves every field it does not carry as the
// record had it. Whether the block was whole is not reported: the settings
// layer judges the values.
template <class T>
void LoadDataForZDeallibAPI(T& record, std::vector<unsigned char>& data) {
  StorageNamed::InMemStorageSpace::CInMemStorage storage;
  fake_mem_block block(data.data(), data.size());
  storage.LoadFromSolidBuffer(&block);
  RecordFields::LoadRecord(record, storage, nullptr);
}

#include "api/RecordPacker.h"  // needs the declarations above

// Encodes the record into data, which becomes exactly the block: packed
// directly (api/RecordPacker.h), byte for byte what CInMemStorage packs.
template <class T>
void StoreDataForZDealerAPI(const T& record, std::vector<unsigned char>& data) {
  RecordPacker::PackRecord(record, data);
}
