#include "ClassList.h"

#include <fstream>

namespace ZentHost {

bool LoadClassList(const std::string& path, std::vector<std::string>& classes, std::string& error) {
  classes.clear();
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = path + ": cannot be read";
    return false;
  }
  std::string line;
  int number = 0;
  while (std::getline(in, line)) {
    ++number;
    auto first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos) continue;
    auto last = line.find_last_not_of(" \t\r");
    std::string code = line.substr(first, last - first + 1);
    if (code[0] == '#' || code[0] == ';') continue;
    if (code.size() > 12 || code.find_first_of(" \t") != std::string::npos) {
      error = path + ":" + std::to_string(number) + ": \"" + code + "\" is not a class code (at most 12 characters, no blanks)";
      return false;
    }
    classes.push_back(code);
  }
  return true;
}

}  // namespace ZentHost
