#pragma once
// Library::TBuffer: a plain growing byte block for file input and output.
// It shares its size policy, Library::getAlign, with CAlert.
#include <cstddef>

namespace Library {

// The capacity step for a block that must hold n bytes: the smallest of
// 8 KiB, 16 KiB, ..., 4 MiB that exceeds n, and 8 MiB for anything larger.
size_t getAlign(size_t n);

// A block taken with realloc and given back with free. The valid bytes run from
// the read position pos() to the end; data() and size() see only that part.
class TBuffer {
 public:
  // Both allocate at once; the second also copies the bytes.
  TBuffer();
  TBuffer(const void* data, size_t size);
  // Take over block, size, capacity and position; the other is left zeroed.
  TBuffer(TBuffer&& other) noexcept;
  TBuffer& operator=(TBuffer&& other) noexcept;
  TBuffer(const TBuffer&) = delete;
  TBuffer& operator=(const TBuffer&) = delete;
  virtual ~TBuffer();

  // The block plus the read position.
  char* data() { return m_data + m_pos; }
  const char* data() const { return m_data + m_pos; }
  // Valid bytes after the read position; 0 once skip() went past the end.
  size_t size() const { return m_size > m_pos ? m_size - m_pos : 0; }
  size_t pos() const { return m_pos; }
  size_t capacity() const { return m_capacity; }
  // The address of the byte i after the read position.
  char* operator[](size_t i) { return m_data + m_pos + i; }

  // Moves the read position forward by n, without a check.
  void skip(size_t n) { m_pos += n; }
  // Read position back to the block's start.
  void reset() { m_pos = 0; }
  // Copies n bytes after the current end.
  void append(const void* from, size_t n);
  // Makes size() equal n. A block that is too small moves in the steps of
  // getAlign; the capacity is also brought down when it is not above the end.
  // Throws std::runtime_error("Bad alloc") if the block cannot be had; the old
  // block then stays.
  void resize(size_t n);
  // Once everything was read (position not 0 and at or past the end), starts over empty.
  void shrink();
  // Position to 0 and no bytes.
  void clear();

 private:
  char* m_data = nullptr;  // from realloc
  size_t m_size = 0;       // end of the valid bytes, from the block's start
  size_t m_capacity = 0;   // size of the block
  size_t m_pos = 0;        // read position, from the block's start
};

}  // namespace Library
