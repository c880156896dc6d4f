#pragma once
// Helpers of the zentdl tests: running the program, temporary files.
#include <string>
#include <vector>

namespace ztest {

struct TRun {
  int exitCode = -1;
  std::string out;  // standard output
  std::string err;  // standard error
};

// Runs the built zentdl with the arguments (no shell), with extra environment
// entries "NAME=VALUE" added, and collects both outputs.
TRun RunZentdl(const std::vector<std::string>& args, const std::vector<std::string>& env = {});

// A fresh directory under the system's temporary directory, removed by the destructor.
class TTempDir {
 public:
  TTempDir();
  ~TTempDir();
  TTempDir(const TTempDir&) = delete;
  TTempDir& operator=(const TTempDir&) = delete;
  // Writes a file in the directory and returns its full path.
  std::string Write(const std::string& name, const std::string& content) const;
  std::string Path(const std::string& name) const { return m_dir + "/" + name; }

 private:
  std::string m_dir;
};

std::string ReadFileBytes(const std::string& path);

// The example libraries shipped with the project.
std::string ExampleLibrary(const std::string& name);

}  // namespace ztest
