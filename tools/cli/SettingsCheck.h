#pragma once
// What `zentdl check` finds in a settings text: everything the module would
// silently drop, merge or ignore when it loads the text, with the line it
// stands on. The module itself says nothing about such lines; this is where
// an administrator learns of them before a library goes live.
#include <string>
#include <string_view>
#include <vector>

namespace zentdl {

// The kinds of finding. The name in the table below is the stable word that
// the JSON form carries; the text of a finding says what the module does.
enum class EFindingKind {
  BeforeHeader,       // a line before the first header: skipped
  MalformedLine,      // no "=", or "=" first: skipped
  BadHeader,          // "[" without "]" or with an empty name: skipped, keys go on into the section before
  TextAfterHeader,    // bytes behind "]": ignored
  EmptySection,       // a header without a valid key line: no section comes of it
  RepeatedSection,    // a header met before (ignoring case): its keys join the first
  RepeatedKey,        // a key met before in the section (ignoring case): this value is ignored
  CommentCut,         // ";" inside a key line: the rest of the line is dropped
  LaterClientCval,    // a second run of ClientCval: an ordinary section, not client values
  UnknownSection,     // a section name the catalogue does not know
  UnknownParameter,   // a parameter the catalogue does not know for this kind of section
  BadValue,           // a value that does not read as its parameter's type
  InvalidSection,     // a negative limit kind: the section joins no group
  ClientInTwoTemplates,  // a client in "Clients" of two templates of one kind: one of them loses
};

// The stable word of a kind ("repeated-key" and so on).
std::string_view FindingKindName(EFindingKind kind);

struct TFinding {
  int line = 0;         // 1-based line of the text
  EFindingKind kind{};
  std::string message;  // one sentence, naming the section and key concerned
};

// Every finding of the text, in line order (findings of one line in the order
// they are made). A clean text gives none.
std::vector<TFinding> CheckSettingsText(std::string_view text);

}  // namespace zentdl
