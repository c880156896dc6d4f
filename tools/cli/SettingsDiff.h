#pragma once
// The difference of two settings texts, section by section and key by key.
// Both texts are compared as given; `zentdl diff` hands it the canonical forms
// so that order, spelling of line ends and comments no longer count.
#include <string>
#include <string_view>
#include <vector>

namespace zentdl {

struct TKeyChange {
  std::string key;
  bool inA = false, inB = false;  // present on each side
  std::string a, b;               // the values where present
};

struct TSectionChange {
  std::string name;
  bool inA = false, inB = false;  // a section on one side only is added or removed whole
  std::vector<TKeyChange> keys;   // only the keys that differ
};

// Sections and keys are matched by name ignoring the case of ASCII letters, as
// the module matches them. Sections come in the order of A, then those only in
// B in B's order; keys likewise. Identical texts give no change.
std::vector<TSectionChange> DiffSettingsTexts(std::string_view a, std::string_view b);

// The changes as text:
//   [Section]            a section with changed keys
//   -key=old             a key removed or changed (its old value)
//   +key=new             a key added or changed (its new value)
//   +[Section] / -[Section] with all its keys for a section on one side only.
// Lines end in "\n"; no changes give the empty text.
std::string FormatSettingsDiff(const std::vector<TSectionChange>& changes);

}  // namespace zentdl
