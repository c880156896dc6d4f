#pragma once
// A C file that is closed when the scope ends.
#include <cstdio>

namespace Library {

class TScopedFile {
 public:
  explicit TScopedFile(FILE* file) : m_file(file) {}
  ~TScopedFile() {
    if (m_file != nullptr) std::fclose(m_file);
  }
  TScopedFile(const TScopedFile&) = delete;
  TScopedFile& operator=(const TScopedFile&) = delete;
  FILE* get() const { return m_file; }

 private:
  FILE* m_file;  // null when the open failed
};

}  // namespace Library
