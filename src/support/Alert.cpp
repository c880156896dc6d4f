#include "support/Alert.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

#include "support/Buffer.h"

namespace {

constexpr char kInvalidSize[] = "Invalid message element size";
constexpr char kInvalidWriteType[] = "invalid field type";

// Value bytes of the fixed-size codes; 0 for the counted ones and invalid codes.
unsigned FixedWidth(unsigned char type) {
  switch (type) {
    case CAlert::ftChar: return 1;
    case CAlert::ftShort: return 2;
    case CAlert::ftInt: return 4;
    case CAlert::ftLong: return 8;
    case CAlert::ftDouble: return 8;
    case CAlert::ftFloat: return 4;
    default: return 0;
  }
}

bool IsCounted(unsigned char type) {
  return type == CAlert::ftString || type == CAlert::ftBinary || type == CAlert::ftAlert;
}

}  // namespace

CAlertException::CAlertException(const char* what, int code) : std::runtime_error(what), m_code(code) {}

CAlertException::~CAlertException() = default;

CAlert::CAlert() { clear(); }

CAlert::CAlert(const void* data, unsigned size) {
  resize(size);
  if (size != 0) std::memcpy(m_data.data(), data, size);
  read_counter();
}

CAlert::CAlert(CAlert&& other) noexcept : m_data(std::move(other.m_data)) {
  other.m_data.clear();
  other.m_cursor = 0;
  other.m_header = nullptr;
  other.m_fields = 0;
  m_header = m_data.data();
  read_counter();
}

CAlert& CAlert::operator=(CAlert&& other) noexcept {
  if (this == &other) return *this;
  m_data = std::move(other.m_data);
  other.m_data.clear();
  other.m_cursor = 0;
  other.m_header = nullptr;
  other.m_fields = 0;
  m_header = m_data.data();
  read_counter();
  return *this;
}

void CAlert::SetData(std::vector<char>&& data) {
  std::vector<char> old(std::move(m_data));
  m_data = std::move(data);
  m_header = m_data.data();
  read_counter();
}

void CAlert::clear() {
  resize(0);
  m_cursor = 0;
  m_fields = 0;
  write(&m_fields, 4);
}

void CAlert::set_begin() { read_counter(); }

CAlert::TFieldType CAlert::get_field_type() const {
  if (m_cursor >= m_data.size()) return ftNone;
  return static_cast<TFieldType>(static_cast<unsigned char>(m_data[m_cursor]));
}

int CAlert::read(void* to, unsigned n) {
  if (n == 0 || m_cursor > m_data.size() || m_data.size() - m_cursor < n) return 0;
  std::memcpy(to, m_data.data() + m_cursor, n);
  m_cursor += n;
  return 1;
}

int CAlert::write(const void* from, unsigned n) {
  // A cursor left beyond the end by resize() would put the bytes outside the
  // buffer; the buffer then grows to reach them.
  size_t grown = m_data.size() + n;
  size_t needed = static_cast<size_t>(m_cursor) + n;
  resize(static_cast<unsigned>(grown > needed ? grown : needed));
  if (n != 0) std::memcpy(m_data.data() + m_cursor, from, n);
  m_cursor += n;
  return 1;
}

void CAlert::resize(unsigned n) {
  size_t cap = m_data.capacity();
  if (n != 0 && cap >= n) {
    m_data.resize(n);
    m_header = m_data.data();
    return;
  }
  size_t a = Library::getAlign(n);
  if (n == 0) m_data.resize(0);
  if (a < cap) {
    try {
      m_data.shrink_to_fit();
    } catch (...) {
      // Keeping the larger block is harmless.
    }
  } else if (a == cap) {
    m_data.resize(n);
    m_header = m_data.data();
    return;
  }
  size_t target = a > n ? a : a + n;
  if (target > m_data.capacity()) m_data.reserve(target);
  m_data.resize(n);
  m_header = m_data.data();
}

void CAlert::check_type(TFieldType need) {
  unsigned char got = 0;
  read(&got, 1);
  if (got == need) return;
  char text[256];
  std::snprintf(text, sizeof text, "invalid field type: get[%d]need[%d];", static_cast<int>(static_cast<signed char>(got)),
                static_cast<int>(static_cast<signed char>(need)));
  throw CAlertException(text, kErrorCode);
}

void CAlert::get_fixed(TFieldType need, void* to, unsigned width) {
  check_type(need);
  if (to != nullptr) read(to, width);
}

unsigned CAlert::get_counted_length(TFieldType need) {
  check_type(need);
  uint32_t length = 0;
  // Length bytes cut off by the end of the message are as bad as a length
  // that runs past it.
  if (read(&length, 4) == 0) throw CAlertException(kInvalidSize, kErrorCode);
  if (static_cast<uint64_t>(length) + m_cursor > m_data.size()) throw CAlertException(kInvalidSize, kErrorCode);
  return length;
}

void CAlert::get_field(char* to) { get_fixed(ftChar, to, 1); }
void CAlert::get_field(unsigned char* to) { get_fixed(ftChar, to, 1); }
void CAlert::get_field(signed char* to) { get_fixed(ftChar, to, 1); }
void CAlert::get_field(short* to) { get_fixed(ftShort, to, 2); }
void CAlert::get_field(unsigned short* to) { get_fixed(ftShort, to, 2); }
void CAlert::get_field(int* to) { get_fixed(ftInt, to, 4); }
void CAlert::get_field(unsigned int* to) { get_fixed(ftInt, to, 4); }
void CAlert::get_field(long* to) { get_fixed(ftLong, to, 8); }
void CAlert::get_field(double* to) { get_fixed(ftDouble, to, 8); }
void CAlert::get_field(float* to) { get_fixed(ftFloat, to, 4); }

void CAlert::get_field(bool* to) {
  check_type(ftShort);
  uint16_t value = 0;
  if (to != nullptr && read(&value, 2) != 0) *to = value != 0;
}

void CAlert::get_field(std::string* to) {
  unsigned length = get_counted_length(ftString);
  if (to == nullptr) {
    m_cursor += length;
    return;
  }
  to->resize(length);
  if (length != 0) read(to->data(), length);
}

void CAlert::get_field(std::vector<unsigned char>* to) {
  unsigned length = get_counted_length(ftBinary);
  if (to == nullptr) {
    m_cursor += length;
    return;
  }
  to->resize(length);
  if (length != 0) read(to->data(), length);
}

void CAlert::get_field(CAlert* to) {
  unsigned length = get_counted_length(ftAlert);
  if (to == nullptr) {
    m_cursor += length;
    return;
  }
  to->resize(length);
  if (length != 0) read(to->m_data.data(), length);
  to->read_counter();
}

void CAlert::set_typed_field(unsigned char type, const void* value, unsigned size) {
  write(&type, 1);
  if (IsCounted(type)) {
    put_counted(static_cast<TFieldType>(type), value, size);
    return;
  }
  unsigned width = FixedWidth(type);
  if (width == 0) throw CAlertException(kInvalidWriteType, kErrorCode);
  write(value, width);
}

void CAlert::put_counted(TFieldType, const void* from, unsigned size) {
  uint32_t length = size;
  write(&length, 4);
  write(from, size);
}

void CAlert::set_field(const char* from) { set_typed_field(ftChar, from, 1); }
void CAlert::set_field(const unsigned char* from) { set_typed_field(ftChar, from, 1); }
void CAlert::set_field(const signed char* from) { set_typed_field(ftChar, from, 1); }
void CAlert::set_field(const short* from) { set_typed_field(ftShort, from, 2); }
void CAlert::set_field(const unsigned short* from) { set_typed_field(ftShort, from, 2); }
void CAlert::set_field(const int* from) { set_typed_field(ftInt, from, 4); }
void CAlert::set_field(const unsigned int* from) { set_typed_field(ftInt, from, 4); }
void CAlert::set_field(const long* from) { set_typed_field(ftLong, from, 8); }
void CAlert::set_field(const double* from) { set_typed_field(ftDouble, from, 8); }
void CAlert::set_field(const float* from) { set_typed_field(ftFloat, from, 4); }

void CAlert::set_field(const bool* from) {
  uint16_t value = *from ? 1 : 0;
  set_typed_field(ftShort, &value, 2);
}

void CAlert::set_field(const std::string* from) {
  set_typed_field(ftString, from->data(), static_cast<unsigned>(from->size()));
}

void CAlert::set_field(const std::vector<unsigned char>* from) {
  set_typed_field(ftBinary, from->data(), static_cast<unsigned>(from->size()));
}

void CAlert::set_field(const CAlert* from) {
  // Copy the inner bytes first: a message written into itself grows while it is copied.
  if (from == this) {
    std::vector<char> copy(m_data);
    set_typed_field(ftAlert, copy.data(), static_cast<unsigned>(copy.size()));
    return;
  }
  set_typed_field(ftAlert, from->m_data.data(), from->get_size());
}

CAlert& CAlert::operator<<(std::string_view from) {
  set_typed_field(ftString, from.data(), static_cast<unsigned>(from.size()));
  count_up();
  return *this;
}

unsigned CAlert::SetBinary(const void* data, int size) {
  set_typed_field(ftBinary, data, size > 0 ? static_cast<unsigned>(size) : 0u);
  count_up();
  return m_fields;
}

int CAlert::GetStringToCharArray(char* to, int capacity) {
  unsigned length = get_counted_length(ftString);
  if (static_cast<int64_t>(length) > static_cast<int64_t>(capacity) - 1) throw CAlertException(kInvalidSize, kErrorCode);
  if (length != 0) read(to, length);
  to[length] = '\0';
  count_down();
  return static_cast<int>(length);
}

void CAlert::ignore(unsigned long n) {
  const size_t size = m_data.size();
  for (unsigned long i = 0; i < n && m_cursor < size; ++i) {
    unsigned char type = static_cast<unsigned char>(m_data[m_cursor++]);
    size_t skip = FixedWidth(type);
    if (IsCounted(type)) {
      uint32_t length = 0;
      if (read(&length, 4) == 0) {
        m_cursor = static_cast<unsigned>(size);
        break;
      }
      skip = length;
    }
    size_t left = size - m_cursor;
    m_cursor += static_cast<unsigned>(skip < left ? skip : left);
  }
}

void CAlert::read_counter() {
  m_cursor = 0;
  read(&m_fields, 4);
}

void CAlert::store_counter() {
  if (m_data.size() >= 4) std::memcpy(m_header, &m_fields, 4);
}

void CAlert::count_down() {
  --m_fields;
  store_counter();
}

void CAlert::count_up() {
  ++m_fields;
  store_counter();
}
