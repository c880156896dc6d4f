#include "tools/cli/FileText.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sys/stat.h>

namespace zentdl {

bool ReadWholeFile(const std::string& path, std::string& text, std::string& reason) {
  struct stat st {};
  if (::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) {
    reason = "is a directory";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    reason = std::strerror(errno);
    return false;
  }
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  if (in.bad()) {
    reason = "read error";
    return false;
  }
  return true;
}

bool WriteWholeFile(const std::string& path, const std::string& text, std::string& reason) {
  if (path == "-") {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
    std::cout.flush();
    if (!std::cout) {
      reason = "cannot write to standard output";
      return false;
    }
    return true;
  }
  const std::string temp = path + ".temp";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    if (!out) {
      reason = std::string("cannot create ") + temp + ": " + std::strerror(errno);
      return false;
    }
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out) {
      reason = std::string("cannot write ") + temp;
      std::remove(temp.c_str());
      return false;
    }
  }
  if (std::rename(temp.c_str(), path.c_str()) != 0) {
    reason = std::string("cannot move ") + temp + " over " + path + ": " + std::strerror(errno);
    std::remove(temp.c_str());
    return false;
  }
  return true;
}

}  // namespace zentdl
