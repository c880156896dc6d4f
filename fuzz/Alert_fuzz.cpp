// Arbitrary bytes as a message, read by a script of typed reads: every field
// type, the raw operations and the list walk. A malformed message may only
// raise CAlertException (code 1); nothing may read or write outside the buffer.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/Alert.h"

namespace {

// Reads one field by the type byte at the cursor, nested messages to a limited depth.
void ReadAny(CAlert& m, int depth) {
  switch (m.get_field_type()) {
    case CAlert::ftChar: { char v; m >> v; break; }
    case CAlert::ftShort: { short v; m >> v; break; }
    case CAlert::ftInt: { int v; m >> v; break; }
    case CAlert::ftLong: { long v; m >> v; break; }
    case CAlert::ftDouble: { double v; m >> v; break; }
    case CAlert::ftFloat: { float v; m >> v; break; }
    case CAlert::ftString: { std::string v; m >> v; break; }
    case CAlert::ftBinary: { std::vector<unsigned char> v; m >> v; break; }
    case CAlert::ftAlert: {
      CAlert inner;
      m >> inner;
      for (int i = 0; depth < 4 && i < 64 && !inner.empty(); ++i) {
        try {
          ReadAny(inner, depth + 1);
        } catch (const CAlertException& e) {
          if (e.get_code() != 1) std::abort();
          break;
        }
      }
      break;
    }
    default: { int v; m >> v; break; }  // a type byte no reader expects
  }
}

void Step(CAlert& m, uint8_t op) {
  switch (op % 24) {
    case 0: { char v; m >> v; break; }
    case 1: { unsigned char v; m >> v; break; }
    case 2: { signed char v; m >> v; break; }
    case 3: { short v; m >> v; break; }
    case 4: { unsigned short v; m >> v; break; }
    case 5: { int v; m >> v; break; }
    case 6: { unsigned int v; m >> v; break; }
    case 7: { long v; m >> v; break; }
    case 8: { double v; m >> v; break; }
    case 9: { float v; m >> v; break; }
    case 10: { bool v; m >> v; break; }
    case 11: { std::string v; m >> v; break; }
    case 12: { std::vector<unsigned char> v; m >> v; break; }
    case 13: { CAlert v; m >> v; break; }
    case 14: {
      char text[16];
      m.GetStringToCharArray(text, op % 17);
      break;
    }
    case 15: m.ignore(op / 24); break;
    case 16: m.set_begin(); break;
    case 17: m.get_field(static_cast<double*>(nullptr)); break;
    case 18: {
      char raw[16];
      m.read(raw, op % 16);
      break;
    }
    case 19: m << static_cast<int>(op) << "s"; break;
    case 20: m.resize(op % 40); break;
    case 21: m.clear(); break;
    case 22: ReadAny(m, 0); break;
    case 23: {
      unsigned char code = op / 24;  // 0 to 10: the invalid codes raise
      long value = 0;
      m.set_typed_field(code, &value, 0);
      break;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  size_t scriptLength = data[0] < size - 1 ? data[0] : size - 1;
  const uint8_t* script = data + 1;
  CAlert m(data + 1 + scriptLength, static_cast<unsigned>(size - 1 - scriptLength));
  for (size_t i = 0; i < scriptLength; ++i) {
    try {
      Step(m, script[i]);
    } catch (const CAlertException& e) {
      if (e.get_code() != 1) std::abort();
    }
  }
  // Whatever was done, the message reads to its end by type bytes.
  m.set_begin();
  for (int i = 0; i < 256 && m.get_field_type() != CAlert::ftNone; ++i) {
    try {
      ReadAny(m, 0);
    } catch (const CAlertException& e) {
      if (e.get_code() != 1) std::abort();
      break;
    }
  }
  return 0;
}
