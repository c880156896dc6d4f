#pragma once
// The allocator of the results a firm's settings hand out. Every array or
// string a Get operation returns, and the saved settings text, is registered
// here under its kind until the caller gives it back with FreeMemory or the
// firm is finished (the destructor releases what is left).
#include <cstddef>
#include <map>
#include <memory>
#include <type_traits>

#include "base/ApiRecords.h"

class TMemory {
 public:
  enum EMEM_TYPE : int {
#define ZDL_MEMORY_KIND(kind, record) kind,
#include "base/TMemory.def"
#undef ZDL_MEMORY_KIND
    MEM_KIND_COUNT
  };
  // Kinds are numbered 0 to 69; a registered kind above that cannot be released.
  static constexpr int kMaxKind = 69;

  TMemory() = default;
  TMemory(const TMemory&) = delete;
  TMemory& operator=(const TMemory&) = delete;
  ~TMemory();

  // The kind under which a record type is registered, from TMemory.def.
  template <class Record>
  struct KindOf;

  // A zeroed block of `size` characters.
  char* ConstructString(size_t size);
  // An array record with `count` zeroed items, registered under its kind;
  // items is null for a count of 0. The strings inside a ZDL_ArrayStrings
  // are the caller's to fill (each with array new).
  template <class Array>
  Array* ConstructArray(size_t count) {
    using Item = std::remove_pointer_t<decltype(Array::items)>;
    // Owned here until registered: an allocation that fails on the way leaks nothing.
    std::unique_ptr<Array> a(new Array);
    std::unique_ptr<Item[]> items(count == 0 ? nullptr : new Item[count]());
    a->count = count;
    a->items = items.get();
    AddMemory(a.get(), KindOf<Array>::value);
    items.release();
    return a.release();
  }

  // Registers a block under its kind; a null block is ignored.
  void AddMemory(void* p, EMEM_TYPE kind);

  // Releases a registered block: 0, or 4 when p is not registered or its kind
  // is beyond the table.
  [[nodiscard]] int FreeMemory(void* p);
  // 3 for a null p, 4 for a null *p, else as above; *p is nulled on success.
  [[nodiscard]] int FreeMemory(void** p);

  // Number of blocks still registered.
  size_t Outstanding() const { return m_blocks.size(); }

 private:
  static void Release(void* p, EMEM_TYPE kind);

  std::map<void*, EMEM_TYPE> m_blocks;
};

#define ZDL_MEMORY_KIND(kind, record)                  \
  template <>                                          \
  struct TMemory::KindOf<record> {                     \
    static constexpr TMemory::EMEM_TYPE value = kind;  \
  };
#include "base/TMemory.def"
#undef ZDL_MEMORY_KIND
