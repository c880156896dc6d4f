#pragma once
// The named block storage: a small tree of named entries and its flat block,
// the form in which every argument and result of the remote settings API
// travels inside a CAlert binary field. Client and server agree on names only.
//
// Block layout (integers little-endian):
//   offset 0, 8 bytes   magic 0x889F1ED9F34D49A2: A2 49 4D F3 D9 1E 9F 88
//   offset 8, 1 byte    format version, 1 (0 is read as well)
//   offset 9, rest      the root entry, a section
//
// Entries, each starting with its type byte:
//   1 section        compact count, then per child: name, zero, the child entry;
//                    children in bytewise ascending name order
//   2 value          kind byte, compact length, the bytes
//   3 sections array compact count, then that many section entries
//   4 values array   kind byte, compact count, then per element: compact length, bytes
//
// Compact unsigned number: the two low bits of the first byte give the width
// (0: 1 byte, 1: 2, 2: 4, 3: 8), the little-endian unit shifted right by two
// is the value. Widths are chosen by value: below 64, below 16384, up to and
// including 1073741824, above. The top of the 4-byte range does not survive the
// shift: 1073741824 is written as 02 00 00 00 and reads back as 0. Kept so, as
// the remote client writes it that way too.
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "support/MemBlock.h"

namespace StorageNamed::InMemStorageSpace {

using mem_block = mem_block_t<free_via_delete>;

enum EEntryType : unsigned char {
  etSection = 1,
  etValue = 2,
  etSectionsArray = 3,
  etValuesArray = 4,
};

enum EValueKind : unsigned char {
  vkNative = 1,  // raw native bytes of a number
  vkString = 2,  // a string with its terminating zero
};

inline constexpr uint64_t kBlockMagic = 0x889F1ED9F34D49A2ULL;
inline constexpr unsigned char kBlockVersion = 1;
inline constexpr unsigned long kBlockHeaderSize = 9;
// Sections nest no deeper than this when a block is read: records nest a few
// levels; a block nested deeper is damaged and is refused.
inline constexpr unsigned kMaxSectionDepth = 64;

// Cursor over a block for packing and unpacking. It advances only when the
// whole step lies within the limit; a step that does not fit moves nothing,
// writes nothing and reads nothing.
class running_ptr {
 public:
  running_ptr(unsigned char* start, unsigned long limit) : m_start(start), m_limit(limit) {}

  unsigned long pos() const { return m_pos; }
  unsigned long left() const { return m_limit - m_pos; }
  const unsigned char* current() const { return m_start + m_pos; }

  bool put(const void* from, unsigned long n);
  bool take(void* to, unsigned long n);
  bool skip(unsigned long n);
  // The byte at the cursor, without moving.
  bool peek(unsigned char* byte) const;

  // Nesting guard for reading sections: false once kMaxSectionDepth is reached.
  bool enter();
  void leave() { --m_depth; }

 private:
  unsigned char* m_start;  // block start
  unsigned long m_pos = 0; // current position, from the start
  unsigned long m_limit;   // bytes in the block
  unsigned m_depth = 0;    // sections being read
};

// Compact numbers and names; each Put/Pop/Pack/UnPack is false when the
// block's limit would be crossed.
unsigned long GetUnsignedCompactSize(unsigned long value);
bool PutUnsignedCompact(running_ptr& rp, unsigned long value);
bool PopUnsignedCompact(running_ptr& rp, unsigned long* value);
// A name is its bytes and a terminating zero.
unsigned long GetPackedNameEntrySize(std::string_view name);
bool PackNameEntry(running_ptr& rp, std::string_view name);
bool UnPackNameEntry(running_ptr& rp, std::string* name);

class ISSectionEntry {
 public:
  virtual ~ISSectionEntry() = default;
  virtual unsigned char GetEntryType() const = 0;
  // Bytes the entry takes in a block: type byte, kind byte if any, compact
  // numbers at their widths, children with their names.
  virtual unsigned long GetInRawSize() const = 0;
  // Both give the bytes written or read, 0 on failure.
  virtual unsigned long PackEntryToBuff(running_ptr& rp) const = 0;
  virtual unsigned long UnPackEntryFromBuff(running_ptr& rp) = 0;
};

// An empty entry of the given type; null for a type outside 1 to 4.
std::unique_ptr<ISSectionEntry> BuildEntryByType(unsigned char type);

// The block owned by a value.
class CMemoryObjectEx : public mem_block {};

class CSSection : public ISSectionEntry {
 public:
  using TEntries = std::map<std::string, std::shared_ptr<ISSectionEntry>, std::less<>>;

  CSSection() = default;
  CSSection(const CSSection&) = delete;
  CSSection& operator=(const CSSection&) = delete;

  unsigned char GetEntryType() const override { return etSection; }
  unsigned long GetInRawSize() const override;
  unsigned long PackEntryToBuff(running_ptr& rp) const override;
  // Empties the section first. A child of unknown type ends the reading there,
  // keeping the children before it; a repeated name replaces the earlier child.
  unsigned long UnPackEntryFromBuff(running_ptr& rp) override;

  ISSectionEntry* Find(std::string_view name) const;
  // Inserts or replaces.
  void Put(std::string_view name, std::shared_ptr<ISSectionEntry> entry);
  bool Erase(std::string_view name);
  void Clear() { m_entries.clear(); }
  const TEntries& Entries() const { return m_entries; }

 private:
  TEntries m_entries;
};

class CSValue : public ISSectionEntry {
 public:
  CSValue() = default;
  explicit CSValue(unsigned char kind) : m_kind(kind) {}

  unsigned char GetEntryType() const override { return etValue; }
  unsigned long GetInRawSize() const override;
  unsigned long PackEntryToBuff(running_ptr& rp) const override;
  unsigned long UnPackEntryFromBuff(running_ptr& rp) override;

  unsigned char GetKind() const { return m_kind; }
  void SetKind(unsigned char kind) { m_kind = kind; }
  CMemoryObjectEx& Value() { return m_value; }
  const CMemoryObjectEx& Value() const { return m_value; }

 private:
  unsigned char m_kind = vkNative;
  CMemoryObjectEx m_value;
};

// The elements of an array with a read position for walking them. Elements
// stay in place while others are appended.
template <class T>
class CSEntriesArrayBase {
 public:
  CSEntriesArrayBase() = default;
  CSEntriesArrayBase(const CSEntriesArrayBase&) = delete;
  CSEntriesArrayBase& operator=(const CSEntriesArrayBase&) = delete;

  unsigned long Count() const { return m_count; }
  T& Append() {
    T& element = m_items.emplace_back();
    ++m_count;
    return element;
  }
  void Clear() {
    m_items.clear();
    m_count = 0;
    m_read = m_items.end();
  }
  // Read position to the first element.
  void Rewind() { m_read = m_items.begin(); }
  // The element at the read position, which then moves on; null at the end.
  T* Next() {
    if (m_read == m_items.end()) return nullptr;
    T* element = &*m_read;
    ++m_read;
    return element;
  }
  const std::list<T>& Items() const { return m_items; }

 protected:
  std::list<T> m_items;
  unsigned long m_count = 0;
  typename std::list<T>::iterator m_read = m_items.end();
};

class CSSectionsArray : public ISSectionEntry, public CSEntriesArrayBase<CSSection> {
 public:
  unsigned char GetEntryType() const override { return etSectionsArray; }
  unsigned long GetInRawSize() const override;
  unsigned long PackEntryToBuff(running_ptr& rp) const override;
  // Empties the array first; afterwards the read position is at the first element.
  unsigned long UnPackEntryFromBuff(running_ptr& rp) override;
};

class CSValuesArray : public ISSectionEntry, public CSEntriesArrayBase<CMemoryObjectEx> {
 public:
  CSValuesArray() = default;
  explicit CSValuesArray(unsigned char kind) : m_kind(kind) {}

  unsigned char GetEntryType() const override { return etValuesArray; }
  unsigned long GetInRawSize() const override;
  unsigned long PackEntryToBuff(running_ptr& rp) const override;
  // Empties the array first; afterwards the read position is at the first element.
  unsigned long UnPackEntryFromBuff(running_ptr& rp) override;

  unsigned char GetKind() const { return m_kind; }
  void SetKind(unsigned char kind) { m_kind = kind; }

 private:
  unsigned char m_kind = vkNative;
};

// A section handle; null means the root.
using HSSECTION = CSSection*;

// One conversion's tree: built on the stack, filled, packed or read, dropped.
// Every operation that takes a name fails (false or null) for a null name.
class CInMemStorage {
 public:
  CInMemStorage() = default;
  CInMemStorage(const CInMemStorage&) = delete;
  CInMemStorage& operator=(const CInMemStorage&) = delete;
  virtual ~CInMemStorage() = default;

  // Removes a child; false if there is none.
  virtual bool DeleteEntry(const char* name, HSSECTION parent);

  // The child section, created if missing and create is set; null if the child
  // is missing or is not a section.
  HSSECTION OpenSection(const char* name, HSSECTION parent, bool create);
  // Sets a value, creating it if missing; false if the child is another kind of entry.
  bool SetValue(const char* name, const mem_block* value, HSSECTION parent, unsigned char kind);
  // Copies the value out through out->set() (a view takes what fits); kind may be
  // null. False if the child is missing or is not a value.
  bool GetValue(const char* name, mem_block* out, HSSECTION parent, unsigned char* kind);
  ISSectionEntry* GetSecEntry(const char* name, HSSECTION parent);
  // Inserts or replaces a child and takes ownership of entry; on any failure the
  // entry is deleted.
  bool InsertSecEntry(const char* name, ISSectionEntry* entry, HSSECTION parent);

  // Creates the array if missing, empties it, adds one section (given in *out)
  // and returns the array; null if the name is taken by anything but an array of sections.
  CSSectionsArray* InsertFirstSection(const char* name, CSSection** out, HSSECTION parent);
  bool InsertNextSection(CSSectionsArray* array, CSSection** out);
  // The same for arrays of values: the array takes a copy of the block.
  CSValuesArray* InsertFirstValue(const char* name, const mem_block* value, HSSECTION parent, unsigned char kind);
  bool InsertNextValue(CSValuesArray* array, const mem_block* value);
  // Walks an array of sections: the array remembers the position, so one walk
  // at a time. Null or false when the array is missing or at its end.
  CSSectionsArray* GetFirstSection(const char* name, CSSection** out, HSSECTION parent);
  bool GetNextSection(CSSectionsArray* array, CSSection** out);
  // Walks an array of values, copying each into out through out->set().
  CSValuesArray* GetFirstValue(const char* name, mem_block* out, HSSECTION parent);
  bool GetNextValue(CSValuesArray* array, mem_block* out);

  // Writes the block into out (out->alloc_buff of the exact size); gives its
  // size, 0 for a null out or when no block can be had.
  unsigned long PackToSolidBuffer(mem_block* out) const;
  // Rebuilds the tree from a block; gives the bytes consumed. 0 when the block
  // is 9 bytes or fewer, the magic differs or the version is above 1 (the tree
  // stays as it was), and 0 when the root is not a section or the block is
  // damaged or cut short (the tree is then empty). Never reads outside the block.
  unsigned long LoadFromSolidBuffer(const mem_block* in);

  CSSection& Root() { return m_root; }

 private:
  CSSection& Parent(HSSECTION parent) { return parent != nullptr ? *parent : m_root; }

  CSSection m_root;
};

}  // namespace StorageNamed::InMemStorageSpace
