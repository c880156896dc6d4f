#pragma once
// The class-list file served to "GetTable": one class code a line; blank lines
// and lines beginning with "#" or ";" are skipped, spaces around a code dropped.
#include <string>
#include <vector>

namespace ZentHost {

[[nodiscard]] bool LoadClassList(const std::string& path, std::vector<std::string>& classes, std::string& error);

}  // namespace ZentHost
