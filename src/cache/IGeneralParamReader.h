#pragma once
// The typed integer parameters of the firm's "General" section, read from
// their home. The settings core implements it (TUniversalParser holds those
// values once the text is parsed); a cache that wants them reads through this
// interface, so it depends on nothing above its own floor, and a test or a
// host engine may hand in values of its own.

namespace DL {

class IGeneralParamReader {
 public:
  virtual ~IGeneralParamReader() = default;
  // True, with `out` set, when `key` (any case) is a typed integer parameter
  // of "General"; false, with `out` untouched, for any other name.
  virtual bool ReadGeneralInt(const char* key, int& out) const = 0;
};

}  // namespace DL
