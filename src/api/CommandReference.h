#pragma once
// The reference of the remote commands in Markdown, printed from the command
// table. docs/api.md holds its output; a test keeps the two equal.
#include <string>

namespace DL {

// The whole reference: the totals, one table per scope in catalogue order, and
// the adapter shapes with the number of commands each serves. Lines end in "\n".
std::string CommandReferenceMarkdown();

}  // namespace DL
