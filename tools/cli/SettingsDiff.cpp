#include "tools/cli/SettingsDiff.h"

#include <cstddef>
#include <map>
#include <string>

#include "ini/SettingsText.h"
#include "settings/SettingsNormalizer.h"

namespace zentdl {
namespace {

using TKeys = std::map<std::string, std::string, DL::StringMapComparerFunc>;

struct TSide {
  std::vector<std::string> order;                                     // section names, first spelling
  std::map<std::string, TKeys, DL::StringMapComparerFunc> sections;   // merged like the module's reader
  std::map<std::string, std::vector<std::string>, DL::StringMapComparerFunc> keyOrder;
};

TSide Read(std::string_view text) {
  DL::SettingsSectionList list;
  DL::SettingsNormalizer::ParseSettingsList(text, ';', &list);
  TSide side;
  for (const auto& [name, params] : list) {
    auto [it, added] = side.sections.try_emplace(std::string(name));
    if (added) side.order.push_back(std::string(name));
    auto& order = side.keyOrder[std::string(name)];
    for (const auto& [key, value] : params)
      if (it->second.try_emplace(std::string(key), std::string(value)).second) order.push_back(std::string(key));
  }
  return side;
}

}  // namespace

std::vector<TSectionChange> DiffSettingsTexts(std::string_view a, std::string_view b) {
  const TSide sa = Read(a), sb = Read(b);
  std::vector<TSectionChange> out;
  for (const std::string& name : sa.order) {
    const TKeys& ka = sa.sections.at(name);
    const auto other = sb.sections.find(name);
    TSectionChange change{name, true, other != sb.sections.end(), {}};
    for (const std::string& key : sa.keyOrder.at(name)) {
      const std::string& va = ka.at(key);
      if (other == sb.sections.end()) {
        change.keys.push_back({key, true, false, va, {}});
        continue;
      }
      const auto vb = other->second.find(key);
      if (vb == other->second.end()) {
        change.keys.push_back({key, true, false, va, {}});
      } else if (vb->second != va) {
        change.keys.push_back({key, true, true, va, vb->second});
      }
    }
    if (other != sb.sections.end())
      for (const std::string& key : sb.keyOrder.at(other->first))
        if (ka.find(key) == ka.end()) change.keys.push_back({key, false, true, {}, other->second.at(key)});
    if (!change.inB || !change.keys.empty()) out.push_back(std::move(change));
  }
  for (const std::string& name : sb.order) {
    if (sa.sections.count(name) != 0) continue;
    TSectionChange change{name, false, true, {}};
    for (const std::string& key : sb.keyOrder.at(name))
      change.keys.push_back({key, false, true, {}, sb.sections.at(name).at(key)});
    out.push_back(std::move(change));
  }
  return out;
}

std::string FormatSettingsDiff(const std::vector<TSectionChange>& changes) {
  std::string out;
  for (const TSectionChange& s : changes) {
    const char* mark = s.inA && s.inB ? "" : s.inA ? "-" : "+";
    out += std::string(mark) + "[" + s.name + "]\n";
    for (const TKeyChange& k : s.keys) {
      if (k.inA) out += "-" + k.key + "=" + k.a + "\n";
      if (k.inB) out += "+" + k.key + "=" + k.b + "\n";
    }
  }
  return out;
}

}  // namespace zentdl
