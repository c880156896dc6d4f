#include "settings/BaseTypes.h"

#include <cstdint>

namespace DLTypes {

TypeErrorCode ConvertStringToPrimitive(const std::string& text, std::string& out) {
  out = text;
  return tecSuccess;
}

TypeErrorCode ConvertStringToPrimitive(const std::string& text, double& out) {
  out = std::strtod(text.c_str(), nullptr);
  return tecSuccess;
}

TypeErrorCode ConvertStringToPrimitive(const std::string& text, int& out) {
  out = static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
  return tecSuccess;
}

TypeErrorCode ConvertStringToPrimitive(const std::string& text, unsigned int& out) {
  const long v = std::strtol(text.c_str(), nullptr, 10);
  if (v < 0) {
    out = 0;
    return tecBadValue;
  }
  out = static_cast<unsigned int>(static_cast<uint64_t>(v) & 0xFFFFFFFFu);
  return tecSuccess;
}

TypeErrorCode ConvertStringToPrimitive(const std::string& text, Enum_TrendToBaseBoard& out) {
  const long v = std::strtol(text.c_str(), nullptr, 10);
  if (v != 1 && v != -1) return tecBadValue;
  out = static_cast<Enum_TrendToBaseBoard>(v);
  return tecSuccess;
}

std::string ConvertPrimitiveToString(double value) { return DL::DoubleToString(value, 13); }
std::string ConvertPrimitiveToString(int value) { return std::to_string(value); }
std::string ConvertPrimitiveToString(unsigned int value) { return std::to_string(value); }
std::string ConvertPrimitiveToString(const std::string& value) { return value; }
std::string ConvertPrimitiveToString(Enum_TrendToBaseBoard value) { return std::to_string(static_cast<int>(value)); }

TypeErrorCode ConvertIntToPrimitive(int value, Enum_TrendToBaseBoard& out) {
  if (value != 1 && value != -1) return tecBadValue;
  out = static_cast<Enum_TrendToBaseBoard>(value);
  return tecSuccess;
}

int ConvertPrimitiveToInt(Enum_TrendToBaseBoard value) { return static_cast<int>(value); }

}  // namespace DLTypes
