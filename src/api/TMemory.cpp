#include "api/TMemory.h"

#include "core/ZDLErrors.h"

namespace {

template <class Array>
Array* NewArray(size_t count) {
  using Item = std::remove_pointer_t<decltype(Array::items)>;
  Array* a = new Array;
  a->count = count;
  a->items = count == 0 ? nullptr : new Item[count]();
  return a;
}

}  // namespace

TMemory::~TMemory() {
  for (auto& [p, kind] : m_blocks) Release(p, kind);
}

char* TMemory::ConstructString(size_t size) {
  char* s = new char[size]();
  AddMemory(s, MEM_STRING);
  return s;
}

ZDL_ArrayStrings* TMemory::ConstructArrayStrings(size_t count) {
  ZDL_ArrayStrings* a = NewArray<ZDL_ArrayStrings>(count);
  AddMemory(a, MEM_ARRAY_STRINGS);
  return a;
}

ZDL_ArrayIntNumbers* TMemory::ConstructArrayIntNumbers(size_t count) {
  ZDL_ArrayIntNumbers* a = NewArray<ZDL_ArrayIntNumbers>(count);
  AddMemory(a, MEM_ARRAY_INT_NUMBERS);
  return a;
}

ZDL_ArrayDoubleNumbers* TMemory::ConstructArrayDoubleNumbers(size_t count) {
  ZDL_ArrayDoubleNumbers* a = NewArray<ZDL_ArrayDoubleNumbers>(count);
  AddMemory(a, MEM_ARRAY_DOUBLE_NUMBERS);
  return a;
}

void TMemory::AddMemory(void* p, EMEM_TYPE kind) {
  if (p != nullptr) m_blocks[p] = kind;
}

int TMemory::FreeMemory(void* p) {
  auto it = m_blocks.find(p);
  if (it == m_blocks.end() || it->second > kMaxKind || it->second < 0) return ZDL_NOT_FOUND;
  Release(it->first, it->second);
  m_blocks.erase(it);
  return ZDL_OK;
}

int TMemory::FreeMemory(void** p) {
  if (p == nullptr) return ZDL_BAD_ARGUMENT;
  if (*p == nullptr) return ZDL_NOT_FOUND;
  int result = FreeMemory(*p);
  if (result == ZDL_OK) *p = nullptr;
  return result;
}

void TMemory::Release(void* p, EMEM_TYPE kind) {
  switch (kind) {
    case MEM_STRING:
      delete[] static_cast<char*>(p);
      return;
    case MEM_ARRAY_STRINGS: {
      auto* a = static_cast<ZDL_ArrayStrings*>(p);
      if (a->items != nullptr)
        for (uint64_t i = 0; i < a->count; ++i) delete[] a->items[i];
      delete[] a->items;
      delete a;
      return;
    }
    case MEM_ARRAY_INT_NUMBERS: {
      auto* a = static_cast<ZDL_ArrayIntNumbers*>(p);
      delete[] a->items;
      delete a;
      return;
    }
    case MEM_ARRAY_DOUBLE_NUMBERS: {
      auto* a = static_cast<ZDL_ArrayDoubleNumbers*>(p);
      delete[] a->items;
      delete a;
      return;
    }
    case MEM_KIND_COUNT:
      return;
  }
}
