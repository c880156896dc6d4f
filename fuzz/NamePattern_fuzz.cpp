// Any name: every expression of the ordering rules answers as std::regex_match
// does, for names within the length limit.
#include <cstdint>
#include <cstdlib>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "settings/NamePattern.h"

namespace {

struct Compiled {
  DL::NamePattern pattern;
  std::regex reference;
};

std::vector<Compiled> CompileAll() {
  std::vector<std::string> texts;
#define ZDL_NORM_PARAM(list, kind, text) \
  if (std::string(#kind) != "Prefix") texts.push_back(text);
#define ZDL_NORM_SECTION(pattern, list) texts.push_back(pattern);
#include "settings/SettingsNormalizerRules.def"
  texts.push_back("cl.{1,12}_Margin_LimitKind_\\d+|cl.+_Margin_Template_LimitKind_\\d+");
  std::vector<Compiled> all;
  for (const std::string& t : texts) all.push_back({DL::NamePattern::WholeName(t), std::regex(t, std::regex::ECMAScript)});
  return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::vector<Compiled> patterns = CompileAll();
  if (size > DL::NamePattern::kMaxExpressionInput) return 0;
  const std::string name(reinterpret_cast<const char*>(data), size);
  for (const Compiled& c : patterns) {
    if (c.pattern.Matches(name) != std::regex_match(name, c.reference)) std::abort();
  }
  return 0;
}
