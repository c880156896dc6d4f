// docs/architecture.md tells a newcomer where things are; every path it names
// in backticks must exist, or the page has gone stale.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// The backticked words of the text that look like paths: they hold a "/" and
// no space or parenthesis.
std::vector<std::string> NamedPaths(const std::string& text) {
  std::vector<std::string> paths;
  size_t at = 0;
  while ((at = text.find('`', at)) != std::string::npos) {
    const size_t end = text.find('`', at + 1);
    if (end == std::string::npos) break;
    const std::string word = text.substr(at + 1, end - at - 1);
    if (word.find('/') != std::string::npos && word.find_first_of(" ()") == std::string::npos)
      paths.push_back(word);
    at = end + 1;
  }
  return paths;
}

// A path of the source tree ("src/...", "tests/...", "cmake/...", "docs/...")
// stands as it is; any other ("base/Numbers.h", "api/Commands.def") is under src/.
std::filesystem::path InTree(const std::string& named) {
  const std::filesystem::path root(ZDL_SOURCE_DIR);
  for (const char* top : {"src/", "tests/", "cmake/", "docs/", "bench/", "examples/"})
    if (named.rfind(top, 0) == 0) return root / named;
  return root / "src" / named;
}

TEST(ArchitectureDocTest, NamesEveryFolderOfSrc) {
  const std::string text = ReadFile(std::string(ZDL_SOURCE_DIR) + "/docs/architecture.md");
  ASSERT_FALSE(text.empty());
  for (const auto& entry : std::filesystem::directory_iterator(std::string(ZDL_SOURCE_DIR) + "/src")) {
    if (!entry.is_directory()) continue;
    const std::string folder = "`src/" + entry.path().filename().string() + "`";
    EXPECT_NE(text.find(folder), std::string::npos) << folder << " is not described";
  }
}

TEST(ArchitectureDocTest, EveryPathItNamesExists) {
  const std::string text = ReadFile(std::string(ZDL_SOURCE_DIR) + "/docs/architecture.md");
  const std::vector<std::string> paths = NamedPaths(text);
  EXPECT_GT(paths.size(), 20u);
  for (const std::string& named : paths) EXPECT_TRUE(std::filesystem::exists(InTree(named))) << named;
}

}  // namespace
