#include "api/Adapters.h"

namespace DL::Adapters {

int SettingsResult(int n) { return n == 0 ? 0 : n + 1000; }

std::string vectorSTLStringsToStr(const std::vector<std::string>& list) {
  std::string out = "[";
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (i != 0) out += ',';
    out += list[i];
  }
  out += ']';
  return out;
}

std::string ChangeLineSendOneString(std::string_view command) {
  std::string line(command);
  line += ", main, , ,";
  return line;
}

std::string ChangeLineSendTwoStrings(std::string_view command, std::string_view strParam) {
  std::string line(command);
  line += ", ";
  line += strParam;
  line += ", , ";
  return line;
}

std::string ChangeLineSendOneStringAndBool(std::string_view command, bool value) {
  std::string line(command);
  line += ",main,,,\"";
  line += value ? '1' : '0';
  line += '"';
  return line;
}

std::string ChangeLineSendStringAndArrayStrings(std::string_view command, const std::vector<std::string>& list) {
  std::string line(command);
  line += ",main,,";
  line += std::to_string(list.size());
  line += list.empty() ? std::string("NULL") : vectorSTLStringsToStr(list);
  return line;
}

}  // namespace DL::Adapters
