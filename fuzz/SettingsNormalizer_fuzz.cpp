// Any text: normalising keeps every (section, key, value) the reader found,
// and normalising the result again changes no byte.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "settings/SettingsNormalizer.h"

namespace {

std::vector<std::tuple<std::string, std::string, std::string>> Contents(const DL::SettingsSectionList& list) {
  std::vector<std::tuple<std::string, std::string, std::string>> all;
  for (const auto& [name, parameters] : list) {
    for (const auto& [key, value] : parameters) all.emplace_back(name, key, value);
  }
  std::sort(all.begin(), all.end());
  return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const DL::SettingsNormalizer prototype;  // rules compiled once; copies share nothing mutable
  const std::string_view text(reinterpret_cast<const char*>(data), size);

  DL::SettingsNormalizer first = prototype;
  first.ReadFrom(text);
  const auto before = Contents(first.GetSections());
  const size_t sections = first.GetSectionCount();
  first.Normalize();
  if (first.GetSectionCount() != sections || Contents(first.GetSections()) != before) std::abort();

  std::string once;
  first.WriteTo(once);
  DL::SettingsNormalizer second = prototype;
  second.ReadFrom(once);
  second.Normalize();
  std::string twice;
  second.WriteTo(twice);
  if (twice != once) std::abort();
  return 0;
}
