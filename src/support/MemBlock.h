#pragma once
// Owned and borrowed byte blocks, the currency of the block storage: values
// go into the storage tree from a block and come out into one.
#include <cstring>

// Release policy of mem_block_t: the block was taken with array new.
struct free_via_delete {
  static unsigned char* allocate(unsigned long size) { return new unsigned char[size]; }
  static void free(unsigned char* block) noexcept { delete[] block; }
};

// An owned byte block: a pointer and a size. Every operation is virtual so
// that a view (fake_mem_block) can stand in wherever a block is expected.
template <class TFree>
class mem_block_t {
 public:
  mem_block_t() = default;
  mem_block_t(const mem_block_t&) = delete;
  mem_block_t& operator=(const mem_block_t&) = delete;
  virtual ~mem_block_t() { TFree::free(m_ptr); }

  // The block and its size (size may be null). Null and 0 when empty.
  virtual unsigned char* get(unsigned long* size) {
    if (size != nullptr) *size = m_size;
    return m_ptr;
  }
  virtual const unsigned char* get(unsigned long* size) const {
    if (size != nullptr) *size = m_size;
    return m_ptr;
  }
  // Replaces the content by a copy of size bytes; data may lie in this block.
  virtual bool set(const void* data, unsigned long size) {
    if (size == 0) {
      release();
      return true;
    }
    if (data == nullptr) return false;
    unsigned char* block = TFree::allocate(size);
    std::memcpy(block, data, size);
    release();
    m_ptr = block;
    m_size = size;
    return true;
  }
  virtual bool set(const mem_block_t& other) {
    unsigned long size = 0;
    const unsigned char* data = other.get(&size);
    return set(data, size);
  }
  // Releases what the block held and takes a new block of size bytes, which
  // it returns (uninitialised). A size of 0 leaves the block empty and gives null.
  virtual unsigned char* alloc_buff(unsigned long size) {
    release();
    if (size == 0) return nullptr;
    m_ptr = TFree::allocate(size);
    m_size = size;
    return m_ptr;
  }
  virtual void release() {
    TFree::free(m_ptr);
    m_ptr = nullptr;
    m_size = 0;
  }

 protected:
  unsigned char* m_ptr = nullptr;
  unsigned long m_size = 0;
};

// A view of memory owned by someone else, used to move a field in or out of
// the storage without another copy. set() copies into the viewed bytes and cuts
// what does not fit; bytes past a shorter value keep what they held.
// alloc_buff() hands out the view itself if it is large enough. Nothing is
// ever released. A view of read-only memory must only be read from.
class fake_mem_block : public mem_block_t<free_via_delete> {
 public:
  fake_mem_block(const void* data, unsigned long size) {
    m_ptr = static_cast<unsigned char*>(const_cast<void*>(data));
    m_size = size;
  }
  ~fake_mem_block() override {
    // The base destructor releases m_ptr: the view owns nothing.
    m_ptr = nullptr;
    m_size = 0;
  }

  bool set(const void* data, unsigned long size) override {
    unsigned long n = size < m_size ? size : m_size;
    if (n != 0) {
      if (data == nullptr) return false;
      std::memmove(m_ptr, data, n);
    }
    return true;
  }
  bool set(const mem_block_t& other) override {
    unsigned long size = 0;
    const unsigned char* data = other.get(&size);
    return set(data, size);
  }
  unsigned char* alloc_buff(unsigned long size) override { return size != 0 && size <= m_size ? m_ptr : nullptr; }
  void release() override {}
};
