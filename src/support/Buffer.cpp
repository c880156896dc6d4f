#include "support/Buffer.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace Library {

size_t getAlign(size_t n) {
  constexpr size_t kLargest = 8388608;
  for (size_t step = 8192; step < kLargest; step *= 2) {
    if (step > n) return step;
  }
  return kLargest;
}

TBuffer::TBuffer() { resize(0); }

TBuffer::TBuffer(const void* data, size_t size) {
  resize(size);
  if (size != 0) std::memcpy(m_data, data, size);
}

TBuffer::TBuffer(TBuffer&& other) noexcept
    : m_data(other.m_data), m_size(other.m_size), m_capacity(other.m_capacity), m_pos(other.m_pos) {
  other.m_data = nullptr;
  other.m_size = other.m_capacity = other.m_pos = 0;
}

TBuffer& TBuffer::operator=(TBuffer&& other) noexcept {
  if (this == &other) return *this;
  std::free(m_data);
  m_data = other.m_data;
  m_size = other.m_size;
  m_capacity = other.m_capacity;
  m_pos = other.m_pos;
  other.m_data = nullptr;
  other.m_size = other.m_capacity = other.m_pos = 0;
  return *this;
}

TBuffer::~TBuffer() { std::free(m_data); }

void TBuffer::append(const void* from, size_t n) {
  size_t old = size();
  resize(old + n);
  if (n != 0) std::memcpy(m_data + m_pos + old, from, n);
}

void TBuffer::resize(size_t n) {
  size_t end = n + m_pos;
  if (end < n) throw std::runtime_error("Bad alloc");
  if (end != 0 && m_capacity > end) {
    m_size = end;
    return;
  }
  size_t a = getAlign(end);
  size_t capacity = a > end ? a : a + end;
  if (capacity < end) throw std::runtime_error("Bad alloc");
  void* block = std::realloc(m_data, capacity);
  if (block == nullptr) throw std::runtime_error("Bad alloc");
  m_data = static_cast<char*>(block);
  m_capacity = capacity;
  m_size = end;
}

void TBuffer::shrink() {
  if (m_pos != 0 && m_pos >= m_size) {
    m_pos = 0;
    resize(0);
  }
}

void TBuffer::clear() {
  m_pos = 0;
  resize(0);
}

}  // namespace Library
