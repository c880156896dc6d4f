#include "base/TMemory.h"

#include <memory>

#include "base/ResultCodes.h"

namespace {

// A string block.
void ReleaseRecord(char* s) { delete[] s; }

// An array record and its items; the strings of an array of strings first.
template <class Array>
void ReleaseRecord(Array* a) {
  if constexpr (std::is_same_v<decltype(a->items), char**>) {
    if (a->items != nullptr)
      for (uint64_t i = 0; i < a->count; ++i) delete[] a->items[i];
  } else if constexpr (std::is_same_v<decltype(a->items), ZDL_StringToString*>) {
    if (a->items != nullptr)
      for (uint64_t i = 0; i < a->count; ++i) {
        delete[] a->items[i].str1;
        delete[] a->items[i].str2;
      }
  }
  delete[] a->items;
  delete a;
}

}  // namespace

TMemory::~TMemory() {
  for (auto& [p, kind] : m_blocks) Release(p, kind);
}

char* TMemory::ConstructString(size_t size) {
  // Owned here until registered: a failed registration leaks nothing.
  std::unique_ptr<char[]> s(new char[size]());
  AddMemory(s.get(), MEM_STRING);
  return s.release();
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
#define ZDL_MEMORY_KIND(kind, record) \
  case kind:                          \
    ReleaseRecord(static_cast<record*>(p)); \
    return;
#include "base/TMemory.def"
#undef ZDL_MEMORY_KIND
    case MEM_KIND_COUNT:
      return;
  }
}
