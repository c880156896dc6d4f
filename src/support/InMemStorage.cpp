#include "support/InMemStorage.h"

#include <cstring>
#include <new>

namespace StorageNamed::InMemStorageSpace {

// ---- running_ptr ----

bool running_ptr::put(const void* from, unsigned long n) {
  if (n > left()) return false;
  if (n != 0) std::memcpy(m_start + m_pos, from, n);
  m_pos += n;
  return true;
}

bool running_ptr::take(void* to, unsigned long n) {
  if (n > left()) return false;
  if (n != 0) std::memcpy(to, m_start + m_pos, n);
  m_pos += n;
  return true;
}

bool running_ptr::skip(unsigned long n) {
  if (n > left()) return false;
  m_pos += n;
  return true;
}

bool running_ptr::peek(unsigned char* byte) const {
  if (left() == 0) return false;
  *byte = m_start[m_pos];
  return true;
}

bool running_ptr::enter() {
  if (m_depth >= kMaxSectionDepth) return false;
  ++m_depth;
  return true;
}

// ---- compact numbers and names ----

unsigned long GetUnsignedCompactSize(unsigned long value) {
  if (value < 64) return 1;
  if (value < 16384) return 2;
  if (value <= 1073741824UL) return 4;
  return 8;
}

bool PutUnsignedCompact(running_ptr& rp, unsigned long value) {
  unsigned long width = GetUnsignedCompactSize(value);
  unsigned long lowBits = width == 1 ? 0 : width == 2 ? 1 : width == 4 ? 2 : 3;
  // Shifted in the width's own integer type: what does not fit is lost.
  uint64_t unit = (static_cast<uint64_t>(value) << 2) | lowBits;
  unsigned char bytes[8];
  for (unsigned long i = 0; i < width; ++i) bytes[i] = static_cast<unsigned char>(unit >> (8 * i));
  return rp.put(bytes, width);
}

bool PopUnsignedCompact(running_ptr& rp, unsigned long* value) {
  unsigned char first = 0;
  if (!rp.peek(&first)) return false;
  static constexpr unsigned long kWidths[4] = {1, 2, 4, 8};
  unsigned long width = kWidths[first & 3];
  unsigned char bytes[8];
  if (!rp.take(bytes, width)) return false;
  uint64_t unit = 0;
  for (unsigned long i = 0; i < width; ++i) unit |= static_cast<uint64_t>(bytes[i]) << (8 * i);
  *value = static_cast<unsigned long>(unit >> 2);
  return true;
}

unsigned long GetPackedNameEntrySize(std::string_view name) { return name.size() + 1; }

bool PackNameEntry(running_ptr& rp, std::string_view name) {
  if (GetPackedNameEntrySize(name) > rp.left()) return false;
  const unsigned char zero = 0;
  return rp.put(name.data(), name.size()) && rp.put(&zero, 1);
}

bool UnPackNameEntry(running_ptr& rp, std::string* name) {
  const void* end = std::memchr(rp.current(), 0, rp.left());
  if (end == nullptr) return false;
  unsigned long length = static_cast<unsigned long>(static_cast<const unsigned char*>(end) - rp.current());
  name->assign(reinterpret_cast<const char*>(rp.current()), length);
  return rp.skip(length + 1);
}

std::unique_ptr<ISSectionEntry> BuildEntryByType(unsigned char type) {
  switch (type) {
    case etSection: return std::make_unique<CSSection>();
    case etValue: return std::make_unique<CSValue>();
    case etSectionsArray: return std::make_unique<CSSectionsArray>();
    case etValuesArray: return std::make_unique<CSValuesArray>();
    default: return nullptr;
  }
}

namespace {

bool PutByte(running_ptr& rp, unsigned char byte) { return rp.put(&byte, 1); }

bool TakeType(running_ptr& rp, unsigned char expected) {
  unsigned char type = 0;
  return rp.take(&type, 1) && type == expected;
}

unsigned long RawSizeOfBlock(const mem_block& block) {
  unsigned long size = 0;
  block.get(&size);
  return GetUnsignedCompactSize(size) + size;
}

bool PackBlock(running_ptr& rp, const mem_block& block) {
  unsigned long size = 0;
  const unsigned char* data = block.get(&size);
  return PutUnsignedCompact(rp, size) && rp.put(data, size);
}

// A compact length and that many bytes, copied into the block.
bool UnPackBlock(running_ptr& rp, mem_block& block) {
  unsigned long size = 0;
  if (!PopUnsignedCompact(rp, &size) || size > rp.left()) return false;
  if (!block.set(rp.current(), size)) return false;
  return rp.skip(size);
}

}  // namespace

// ---- CSSection ----

unsigned long CSSection::GetInRawSize() const {
  unsigned long size = 1 + GetUnsignedCompactSize(m_entries.size());
  for (const auto& [name, entry] : m_entries) size += GetPackedNameEntrySize(name) + entry->GetInRawSize();
  return size;
}

unsigned long CSSection::PackEntryToBuff(running_ptr& rp) const {
  unsigned long start = rp.pos();
  if (!PutByte(rp, etSection) || !PutUnsignedCompact(rp, m_entries.size())) return 0;
  for (const auto& [name, entry] : m_entries) {
    if (!PackNameEntry(rp, name) || entry->PackEntryToBuff(rp) == 0) return 0;
  }
  return rp.pos() - start;
}

unsigned long CSSection::UnPackEntryFromBuff(running_ptr& rp) {
  m_entries.clear();
  unsigned long start = rp.pos();
  if (!TakeType(rp, etSection)) return 0;
  if (!rp.enter()) return 0;
  unsigned long count = 0;
  if (!PopUnsignedCompact(rp, &count)) return 0;
  std::string name;
  for (unsigned long i = 0; i < count; ++i) {
    if (!UnPackNameEntry(rp, &name)) return 0;
    unsigned char type = 0;
    if (!rp.peek(&type)) return 0;
    std::unique_ptr<ISSectionEntry> entry = BuildEntryByType(type);
    if (!entry) break;
    if (entry->UnPackEntryFromBuff(rp) == 0) return 0;
    Put(name, std::shared_ptr<ISSectionEntry>(std::move(entry)));
  }
  rp.leave();
  return rp.pos() - start;
}

ISSectionEntry* CSSection::Find(std::string_view name) const {
  auto it = m_entries.find(name);
  return it == m_entries.end() ? nullptr : it->second.get();
}

void CSSection::Put(std::string_view name, std::shared_ptr<ISSectionEntry> entry) {
  auto it = m_entries.find(name);
  if (it != m_entries.end()) {
    it->second = std::move(entry);
    return;
  }
  m_entries.emplace(std::string(name), std::move(entry));
}

bool CSSection::Erase(std::string_view name) {
  auto it = m_entries.find(name);
  if (it == m_entries.end()) return false;
  m_entries.erase(it);
  return true;
}

// ---- CSValue ----

unsigned long CSValue::GetInRawSize() const { return 2 + RawSizeOfBlock(m_value); }

unsigned long CSValue::PackEntryToBuff(running_ptr& rp) const {
  unsigned long start = rp.pos();
  if (!PutByte(rp, etValue) || !PutByte(rp, m_kind) || !PackBlock(rp, m_value)) return 0;
  return rp.pos() - start;
}

unsigned long CSValue::UnPackEntryFromBuff(running_ptr& rp) {
  m_value.release();
  unsigned long start = rp.pos();
  if (!TakeType(rp, etValue)) return 0;
  if (!rp.take(&m_kind, 1) || !UnPackBlock(rp, m_value)) return 0;
  return rp.pos() - start;
}

// ---- CSSectionsArray ----

unsigned long CSSectionsArray::GetInRawSize() const {
  unsigned long size = 1 + GetUnsignedCompactSize(m_count);
  for (const CSSection& section : m_items) size += section.GetInRawSize();
  return size;
}

unsigned long CSSectionsArray::PackEntryToBuff(running_ptr& rp) const {
  unsigned long start = rp.pos();
  if (!PutByte(rp, etSectionsArray) || !PutUnsignedCompact(rp, m_count)) return 0;
  for (const CSSection& section : m_items) {
    if (section.PackEntryToBuff(rp) == 0) return 0;
  }
  return rp.pos() - start;
}

unsigned long CSSectionsArray::UnPackEntryFromBuff(running_ptr& rp) {
  Clear();
  unsigned long start = rp.pos();
  if (!TakeType(rp, etSectionsArray)) return 0;
  unsigned long count = 0;
  if (!PopUnsignedCompact(rp, &count)) return 0;
  // Each element takes at least two bytes, so a count larger than the rest
  // of the block ends in a failed element long before memory runs short.
  for (unsigned long i = 0; i < count; ++i) {
    if (Append().UnPackEntryFromBuff(rp) == 0) return 0;
  }
  Rewind();
  return rp.pos() - start;
}

// ---- CSValuesArray ----

unsigned long CSValuesArray::GetInRawSize() const {
  unsigned long size = 2 + GetUnsignedCompactSize(m_count);
  for (const CMemoryObjectEx& element : m_items) size += RawSizeOfBlock(element);
  return size;
}

unsigned long CSValuesArray::PackEntryToBuff(running_ptr& rp) const {
  unsigned long start = rp.pos();
  if (!PutByte(rp, etValuesArray) || !PutByte(rp, m_kind) || !PutUnsignedCompact(rp, m_count)) return 0;
  for (const CMemoryObjectEx& element : m_items) {
    if (!PackBlock(rp, element)) return 0;
  }
  return rp.pos() - start;
}

unsigned long CSValuesArray::UnPackEntryFromBuff(running_ptr& rp) {
  Clear();
  unsigned long start = rp.pos();
  if (!TakeType(rp, etValuesArray)) return 0;
  unsigned long count = 0;
  if (!rp.take(&m_kind, 1) || !PopUnsignedCompact(rp, &count)) return 0;
  for (unsigned long i = 0; i < count; ++i) {
    if (!UnPackBlock(rp, Append())) return 0;
  }
  Rewind();
  return rp.pos() - start;
}

// ---- CInMemStorage ----

bool CInMemStorage::DeleteEntry(const char* name, HSSECTION parent) {
  if (name == nullptr) return false;
  return Parent(parent).Erase(name);
}

HSSECTION CInMemStorage::OpenSection(const char* name, HSSECTION parent, bool create) {
  if (name == nullptr) return nullptr;
  CSSection& owner = Parent(parent);
  ISSectionEntry* entry = owner.Find(name);
  if (entry != nullptr) return entry->GetEntryType() == etSection ? static_cast<CSSection*>(entry) : nullptr;
  if (!create) return nullptr;
  auto section = std::make_shared<CSSection>();
  CSSection* result = section.get();
  owner.Put(name, std::move(section));
  return result;
}

bool CInMemStorage::SetValue(const char* name, const mem_block* value, HSSECTION parent, unsigned char kind) {
  if (name == nullptr || value == nullptr) return false;
  CSSection& owner = Parent(parent);
  ISSectionEntry* entry = owner.Find(name);
  CSValue* target = nullptr;
  if (entry != nullptr) {
    if (entry->GetEntryType() != etValue) return false;
    target = static_cast<CSValue*>(entry);
  } else {
    auto created = std::make_shared<CSValue>();
    target = created.get();
    owner.Put(name, std::move(created));
  }
  target->SetKind(kind);
  return target->Value().set(*value);
}

bool CInMemStorage::GetValue(const char* name, mem_block* out, HSSECTION parent, unsigned char* kind) {
  if (name == nullptr || out == nullptr) return false;
  ISSectionEntry* entry = Parent(parent).Find(name);
  if (entry == nullptr || entry->GetEntryType() != etValue) return false;
  const CSValue* value = static_cast<const CSValue*>(entry);
  if (kind != nullptr) *kind = value->GetKind();
  return out->set(value->Value());
}

ISSectionEntry* CInMemStorage::GetSecEntry(const char* name, HSSECTION parent) {
  if (name == nullptr) return nullptr;
  return Parent(parent).Find(name);
}

bool CInMemStorage::InsertSecEntry(const char* name, ISSectionEntry* entry, HSSECTION parent) {
  std::unique_ptr<ISSectionEntry> owned(entry);
  if (name == nullptr || entry == nullptr) return false;
  // The shared owner is made before the map grows: a failure on either step
  // still deletes the entry.
  std::shared_ptr<ISSectionEntry> shared(std::move(owned));
  Parent(parent).Put(name, std::move(shared));
  return true;
}

CSSectionsArray* CInMemStorage::InsertFirstSection(const char* name, CSSection** out, HSSECTION parent) {
  if (name == nullptr) return nullptr;
  CSSection& owner = Parent(parent);
  ISSectionEntry* entry = owner.Find(name);
  CSSectionsArray* array = nullptr;
  if (entry != nullptr) {
    if (entry->GetEntryType() != etSectionsArray) return nullptr;
    array = static_cast<CSSectionsArray*>(entry);
    array->Clear();
  } else {
    auto created = std::make_shared<CSSectionsArray>();
    array = created.get();
    owner.Put(name, std::move(created));
  }
  CSSection& first = array->Append();
  array->Rewind();
  if (out != nullptr) *out = &first;
  return array;
}

bool CInMemStorage::InsertNextSection(CSSectionsArray* array, CSSection** out) {
  if (array == nullptr) return false;
  CSSection& next = array->Append();
  if (out != nullptr) *out = &next;
  return true;
}

CSValuesArray* CInMemStorage::InsertFirstValue(const char* name, const mem_block* value, HSSECTION parent,
                                               unsigned char kind) {
  if (name == nullptr || value == nullptr) return nullptr;
  CSSection& owner = Parent(parent);
  ISSectionEntry* entry = owner.Find(name);
  CSValuesArray* array = nullptr;
  if (entry != nullptr) {
    if (entry->GetEntryType() != etValuesArray) return nullptr;
    array = static_cast<CSValuesArray*>(entry);
    array->Clear();
  } else {
    auto created = std::make_shared<CSValuesArray>();
    array = created.get();
    owner.Put(name, std::move(created));
  }
  array->SetKind(kind);
  if (!array->Append().set(*value)) return nullptr;
  array->Rewind();
  return array;
}

bool CInMemStorage::InsertNextValue(CSValuesArray* array, const mem_block* value) {
  if (array == nullptr || value == nullptr) return false;
  return array->Append().set(*value);
}

CSSectionsArray* CInMemStorage::GetFirstSection(const char* name, CSSection** out, HSSECTION parent) {
  if (name == nullptr) return nullptr;
  ISSectionEntry* entry = Parent(parent).Find(name);
  if (entry == nullptr || entry->GetEntryType() != etSectionsArray) return nullptr;
  auto* array = static_cast<CSSectionsArray*>(entry);
  array->Rewind();
  CSSection* first = array->Next();
  if (first == nullptr) return nullptr;
  if (out != nullptr) *out = first;
  return array;
}

bool CInMemStorage::GetNextSection(CSSectionsArray* array, CSSection** out) {
  if (array == nullptr) return false;
  CSSection* next = array->Next();
  if (next == nullptr) return false;
  if (out != nullptr) *out = next;
  return true;
}

CSValuesArray* CInMemStorage::GetFirstValue(const char* name, mem_block* out, HSSECTION parent) {
  if (name == nullptr || out == nullptr) return nullptr;
  ISSectionEntry* entry = Parent(parent).Find(name);
  if (entry == nullptr || entry->GetEntryType() != etValuesArray) return nullptr;
  auto* array = static_cast<CSValuesArray*>(entry);
  array->Rewind();
  CMemoryObjectEx* first = array->Next();
  if (first == nullptr || !out->set(*first)) return nullptr;
  return array;
}

bool CInMemStorage::GetNextValue(CSValuesArray* array, mem_block* out) {
  if (array == nullptr || out == nullptr) return false;
  CMemoryObjectEx* next = array->Next();
  return next != nullptr && out->set(*next);
}

unsigned long CInMemStorage::PackToSolidBuffer(mem_block* out) const {
  if (out == nullptr) return 0;
  unsigned long size = kBlockHeaderSize + m_root.GetInRawSize();
  unsigned char* block = out->alloc_buff(size);
  if (block == nullptr) return 0;
  running_ptr rp(block, size);
  unsigned char header[kBlockHeaderSize];
  for (unsigned i = 0; i < 8; ++i) header[i] = static_cast<unsigned char>(kBlockMagic >> (8 * i));
  header[8] = kBlockVersion;
  if (!rp.put(header, sizeof header) || m_root.PackEntryToBuff(rp) == 0) return 0;
  return size;
}

unsigned long CInMemStorage::LoadFromSolidBuffer(const mem_block* in) {
  if (in == nullptr) return 0;
  unsigned long size = 0;
  const unsigned char* data = in->get(&size);
  if (data == nullptr || size <= kBlockHeaderSize) return 0;
  uint64_t magic = 0;
  for (unsigned i = 0; i < 8; ++i) magic |= static_cast<uint64_t>(data[i]) << (8 * i);
  if (magic != kBlockMagic || data[8] > kBlockVersion) return 0;
  // The cursor only reads; it takes a writable pointer because it serves packing too.
  running_ptr rp(const_cast<unsigned char*>(data), size);
  rp.skip(kBlockHeaderSize);
  if (m_root.UnPackEntryFromBuff(rp) == 0) {
    m_root.Clear();
    return 0;
  }
  return rp.pos();
}

}  // namespace StorageNamed::InMemStorageSpace
