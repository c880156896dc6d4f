#include "base/TMemory.h"

#include <memory>

#include "base/ResultCodes.h"

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
#define ZDL_MEMORY_STRING(kind) \
  case kind:                    \
    delete[] static_cast<char*>(p); \
    return;
#define ZDL_MEMORY_ARRAY(kind, Name)                              \
  case kind: {                                                    \
    auto* a = static_cast<ZDL_##Name*>(p);                        \
    ZDLPlain::ReleaseContents(*a);                                \
    delete a;                                                     \
    return;                                                       \
  }
#define ZDL_MEMORY_RECORD(kind, Name)                             \
  case kind: {                                                    \
    auto* r = static_cast<ZDL_##Name*>(p);                        \
    ZDLPlain::ReleaseItem(*r);                                    \
    delete r;                                                     \
    return;                                                       \
  }
#include "base/TMemory.def"
#undef ZDL_MEMORY_STRING
#undef ZDL_MEMORY_ARRAY
#undef ZDL_MEMORY_RECORD
    case MEM_KIND_COUNT:
      return;
  }
}
