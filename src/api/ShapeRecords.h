#pragma once
// The record of each generic adapter shape as a client sees it: its name and
// its fields with their wire types, read from the shape table.
#include <string>
#include <string_view>
#include <vector>

#include "api/CommandTable.h"

namespace DL {

struct TRecordField {
  std::string name;  // as it travels
  std::string type;  // wire type, e.g. "string", "int (4 bytes)", "list of strings"
};

// Whether the shape's adapter is written (its commands can be registered).
bool ShapeIsBuilt(EAdapterShape shape);
// The record the shape decodes and encodes; empty for a shape not built.
std::string ShapeRecordName(EAdapterShape shape);
// The record's fields in wire order; empty for a shape not built.
std::vector<TRecordField> ShapeRecordFields(EAdapterShape shape);

// Whether the command with a record of its own whose settings function is
// `function` (e.g. "ZDL_GetListOfClientTemplates") has its record declared.
bool OwnRecordIsDeclared(std::string_view function);
// That record's fields in wire order; empty when it is not declared.
std::vector<TRecordField> OwnRecordFields(std::string_view function);

}  // namespace DL
