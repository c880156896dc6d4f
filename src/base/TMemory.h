#pragma once
// The allocator of the results a firm's settings hand out. Every array or
// string a Get operation returns, and the saved settings text, is registered
// here under its kind until the caller gives it back with FreeMemory or the
// firm is finished (the destructor releases what is left).
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "base/ApiRecords.h"

class TMemory {
 public:
  enum EMEM_TYPE : int {
#define ZDL_MEMORY_STRING(kind) kind,
#define ZDL_MEMORY_ARRAY(kind, Name) kind,
#define ZDL_MEMORY_RECORD(kind, Name) kind,
#include "base/TMemory.def"
#undef ZDL_MEMORY_STRING
#undef ZDL_MEMORY_ARRAY
#undef ZDL_MEMORY_RECORD
    MEM_KIND_COUNT
  };
  // Kinds are numbered 0 to 69; a registered kind above that cannot be released.
  static constexpr int kMaxKind = 69;
  static_assert(MEM_KIND_COUNT == kMaxKind + 1, "the kind table has 70 rows");

  TMemory() = default;
  TMemory(const TMemory&) = delete;
  TMemory& operator=(const TMemory&) = delete;
  ~TMemory();

  // The kind under which a record type is registered, from TMemory.def.
  template <class Record>
  struct KindOf;

  // A zeroed block of `size` characters, registered as a string.
  char* ConstructString(size_t size);

  // An array record with `count` zeroed items, registered under its kind;
  // items is null for a count of 0. The strings and inner arrays inside the
  // items are the caller's to fill (each with array new); they are released
  // with the array. An impossible count throws std::bad_array_new_length.
  // A list of strings handed out, each a copy in a block of its own.
  ZDL_ArrayStrings* ConstructStrings(const std::vector<std::string>& items) {
    ZDL_ArrayStrings* array = ConstructArray<ZDL_ArrayStrings>(items.size());
    for (size_t i = 0; i < items.size(); ++i) array->items[i] = ZDLPlain::NewText(items[i]);
    return array;
  }

  template <class Array>
  Array* ConstructArray(size_t count) {
    using Item = std::remove_pointer_t<decltype(Array::items)>;
    // Owned here until registered: an allocation that fails on the way leaks nothing.
    std::unique_ptr<Array> a(new Array{});
    std::unique_ptr<Item[]> items(count == 0 ? nullptr : new Item[count]());
    a->count = count;
    a->items = items.get();
    AddMemory(a.get(), KindOf<Array>::value);
    items.release();
    return a.release();
  }

  // One zeroed element record, registered under its kind.
  template <class Record>
  Record* ConstructRecord() {
    std::unique_ptr<Record> r(new Record{});
    AddMemory(r.get(), KindOf<Record>::value);
    return r.release();
  }

  // Construct<Name>(count) for each array kind, Construct<Name>() for each
  // record kind.
#define ZDL_MEMORY_STRING(kind)
#define ZDL_MEMORY_ARRAY(kind, Name) \
  ZDL_##Name* Construct##Name(size_t count) { return ConstructArray<ZDL_##Name>(count); }
#define ZDL_MEMORY_RECORD(kind, Name) \
  ZDL_##Name* Construct##Name() { return ConstructRecord<ZDL_##Name>(); }
#include "base/TMemory.def"
#undef ZDL_MEMORY_STRING
#undef ZDL_MEMORY_ARRAY
#undef ZDL_MEMORY_RECORD

  // Registers a block under its kind; a null block is ignored. The block
  // must have been made as its kind says (see TMemory.def).
  void AddMemory(void* p, EMEM_TYPE kind);

  // Releases a registered block as its kind requires: 0, or 4 when p is not
  // registered or its kind is beyond the table (the block then stays).
  [[nodiscard]] int FreeMemory(void* p);
  // 3 for a null p, 4 for a null *p, else as above; *p is nulled on success.
  [[nodiscard]] int FreeMemory(void** p);

  // Number of blocks still registered.
  size_t Outstanding() const { return m_blocks.size(); }

 private:
  static void Release(void* p, EMEM_TYPE kind);

  std::map<void*, EMEM_TYPE> m_blocks;
};

template <>
struct TMemory::KindOf<char> {
  static constexpr TMemory::EMEM_TYPE value = TMemory::MEM_STRING;
};
#define ZDL_MEMORY_STRING(kind)
#define ZDL_MEMORY_KIND_OF_(kind, Name)                \
  template <>                                          \
  struct TMemory::KindOf<ZDL_##Name> {                 \
    static constexpr TMemory::EMEM_TYPE value = kind;  \
  };
#define ZDL_MEMORY_ARRAY(kind, Name) ZDL_MEMORY_KIND_OF_(TMemory::kind, Name)
#define ZDL_MEMORY_RECORD(kind, Name) ZDL_MEMORY_KIND_OF_(TMemory::kind, Name)
#include "base/TMemory.def"
#undef ZDL_MEMORY_STRING
#undef ZDL_MEMORY_ARRAY
#undef ZDL_MEMORY_RECORD
#undef ZDL_MEMORY_KIND_OF_
