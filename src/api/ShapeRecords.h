#pragma once
// The record of each generic adapter shape as a client sees it: its name and
// its fields with their wire types, read from the shape table.
#include <string>
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

}  // namespace DL
