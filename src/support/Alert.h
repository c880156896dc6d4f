#pragma once
// CAlert: the field-typed message that carries every request from the host to
// the module and every reply back. The buffer is the wire format, exchanged
// byte for byte with the host and the remote administrator client:
//
//   offset 0, 4 bytes   unsigned field counter (little-endian)
//   offset 4, rest      fields, back to back: one type byte, then the value
//
//   code  value bytes                         travels as
//   1     1                                   char, unsigned char, signed char
//   2     2                                   short, unsigned short, bool (0 or 1)
//   3     4                                   int, unsigned int
//   4     8                                   long
//   5     8                                   double
//   6     4-byte length, then the bytes       string (no terminator)
//   7     4-byte length, then the bytes       vector<unsigned char>
//   8     4-byte length, then the bytes       nested CAlert, counter included
//   9     4                                   float
//
// The counter is the number of fields written and not yet taken: << adds one,
// >> takes one, and both keep the member and the first four bytes in step. A
// message read to its end therefore holds counter 0 although its fields remain.
//
// One cursor serves reading and writing. A handler reads its arguments, calls
// clear() and writes its answer into the same object. A message is used by one
// thread at a time.
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Raised by CAlert on a malformed message; the host catches it, so its type
// information is exported from the module.
class __attribute__((visibility("default"))) CAlertException : public std::runtime_error {
 public:
  CAlertException(const char* what, int code);
  ~CAlertException() override;

  int get_code() const noexcept { return m_code; }

 private:
  int m_code;
};

class CAlert {
 public:
  enum TFieldType : unsigned char {
    ftNone = 0,  // no byte left at the cursor
    ftChar = 1,
    ftShort = 2,
    ftInt = 3,
    ftLong = 4,
    ftDouble = 5,
    ftString = 6,
    ftBinary = 7,
    ftAlert = 8,
    ftFloat = 9,
  };

  // Every exception CAlert raises carries this code.
  static constexpr int kErrorCode = 1;

  // Empty message: counter 0, four bytes, cursor 4 (ready for writing).
  CAlert();
  // Copies the bytes and reads the counter: the cursor stands at 4, ready for reading.
  CAlert(const void* data, unsigned size);
  // Takes the other's buffer, then rewinds and reads the counter; the other keeps
  // an empty buffer. Self-assignment does nothing.
  CAlert(CAlert&& other) noexcept;
  CAlert& operator=(CAlert&& other) noexcept;
  CAlert(const CAlert&) = delete;
  CAlert& operator=(const CAlert&) = delete;
  ~CAlert() = default;

  // Takes the given buffer as it is (capacity included), rewinds and reads the counter.
  void SetData(std::vector<char>&& data);
  // Back to an empty message ready for writing; a large block is given back.
  void clear();
  // Rewinds for a fresh reading; the counter is read again from the bytes as they are now.
  void set_begin();

  char* get_data() { return m_data.data(); }
  const char* get_data() const { return m_data.data(); }
  unsigned get_size() const { return static_cast<unsigned>(m_data.size()); }
  // Bytes reserved for the buffer (see resize).
  unsigned get_capacity() const { return static_cast<unsigned>(m_data.capacity()); }
  unsigned get_cursor() const { return m_cursor; }
  unsigned get_fields_count() const { return m_fields; }
  bool empty() const { return m_fields == 0; }
  // The type byte at the cursor without moving; ftNone if no byte is left.
  TFieldType get_field_type() const;

  // Copies n bytes from the cursor and advances it; 1 on success. If n is 0 or
  // fewer than n bytes remain, copies nothing, keeps the cursor and gives 0.
  int read(void* to, unsigned n);
  // Grows the buffer by n, copies to the cursor (not to the end) and advances it; 1.
  int write(const void* from, unsigned n);
  // Sets the buffer's size; new bytes are zero. Capacity moves in the steps of
  // Library::getAlign; a request of 0 gives a large block back.
  void resize(unsigned n);

  // Reads one field of the expected type code and advances the cursor past it.
  // Throws CAlertException on a type mismatch ("invalid field type: get[%d]need[%d];",
  // cursor behind the type byte) or a counted field longer than the bytes left
  // ("Invalid message element size", cursor behind the length). Missing value
  // bytes of a fixed-size field leave the target unchanged. A null target of a
  // fixed-size field checks the type byte only. The counter is not touched.
  void get_field(char* to);
  void get_field(unsigned char* to);
  void get_field(signed char* to);
  void get_field(short* to);
  void get_field(unsigned short* to);
  void get_field(int* to);
  void get_field(unsigned int* to);
  void get_field(long* to);
  void get_field(double* to);
  void get_field(float* to);
  void get_field(bool* to);  // code 2; true if the 16-bit value is not 0
  void get_field(std::string* to);
  void get_field(std::vector<unsigned char>* to);
  // Ready for reading afterwards; a field of length 0 leaves the target's counter.
  void get_field(CAlert* to);

  // Appends one field; the counter is not touched.
  void set_field(const char* from);  // one char, code 1 (not a string)
  void set_field(const unsigned char* from);
  void set_field(const signed char* from);
  void set_field(const short* from);
  void set_field(const unsigned short* from);
  void set_field(const int* from);
  void set_field(const unsigned int* from);
  void set_field(const long* from);
  void set_field(const double* from);
  void set_field(const float* from);
  void set_field(const bool* from);  // code 2, 16-bit 0 or 1
  void set_field(const std::string* from);
  void set_field(const std::vector<unsigned char>* from);
  void set_field(const CAlert* from);
  // Appends a field of any code: type byte, then the code's fixed width from
  // value, or for codes 6 to 8 the length and size bytes. A code outside 1 to 9
  // throws "invalid field type" after the type byte is written.
  void set_typed_field(unsigned char type, const void* value, unsigned size);

  // get_field, then one field fewer in the counter.
  template <class T>
  CAlert& operator>>(T& to) {
    get_field(&to);
    count_down();
    return *this;
  }
  // set_field, then one field more in the counter.
  template <class T>
  CAlert& operator<<(const T& from) {
    set_field(&from);
    count_up();
    return *this;
  }
  // Strings from a literal or a view, without building a std::string.
  CAlert& operator<<(std::string_view from);
  CAlert& operator<<(const char* from) { return *this << std::string_view(from); }

  // Appends a binary field (code 7) and counts it; gives the new count. A
  // negative size writes an empty block.
  unsigned SetBinary(const void* data, int size);
  // Reads a string field into the caller's array, terminates it and counts it
  // off; gives the length. Throws "Invalid message element size" also when the
  // string needs more than capacity - 1 bytes.
  int GetStringToCharArray(char* to, int capacity);
  // Skips n fields by their type bytes and lengths; the counter stays. A type
  // byte outside 1 to 9 is a field of no value bytes.
  void ignore(unsigned long n);

 private:
  void get_fixed(TFieldType need, void* to, unsigned width);
  // Checks the type byte and reads the length of a counted field.
  unsigned get_counted_length(TFieldType need);
  void check_type(TFieldType need);
  void put_counted(TFieldType type, const void* from, unsigned size);
  void read_counter();
  void store_counter();
  void count_down();
  void count_up();

  std::vector<char> m_data;
  unsigned m_cursor = 0;      // one position for reading and writing
  char* m_header = nullptr;   // the counter bytes; refreshed when the buffer moves
  unsigned m_fields = 0;      // copy of the counter
};
