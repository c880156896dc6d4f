#include "api/CommandReference.h"

#include <string_view>

#include "api/CommandTable.h"
#include "api/ShapeRecords.h"

namespace DL {
namespace {

void AppendCount(std::string& out, std::size_t n) { out += std::to_string(n); }

std::string_view ScopeHeading(ECommandScope scope) {
  return scope == ECommandScope::None ? "No scope word" : ScopeName(scope);
}

// A record's fields as "`name` type" joined by "; ".
std::string FieldsText(const std::vector<TRecordField>& fields) {
  std::string out;
  for (const TRecordField& f : fields) {
    if (!out.empty()) out += "; ";
    out += '`';
    out += f.name;
    out += "` ";
    out += f.type;
  }
  return out;
}

// The request and reply record of a command with its fields, or a note when
// the record is not declared in this build.
std::string RecordCell(const TCommandRow& row) {
  if (row.shape == EAdapterShape::OwnRecord) {
    if (!OwnRecordIsDeclared(row.function)) return "not declared yet";
    return "`" + std::string(row.record) + "`: " + FieldsText(OwnRecordFields(row.function));
  }
  if (!ShapeIsBuilt(row.shape)) return "not declared yet";
  std::string out = "`";
  out += ShapeRecordName(row.shape);
  out += "`: ";
  out += FieldsText(ShapeRecordFields(row.shape));
  return out;
}

std::size_t CountRegistered() {
  std::size_t n = 0;
  for (const TCommandRow& row : kCommandTable) n += row.handler != nullptr ? 1 : 0;
  return n;
}

void AppendRow(std::string& out, const TCommandRow& row) {
  out += "| `";
  out += row.name;
  out += "` | ";
  out += VerbName(row.verb);
  out += " | ";
  if (row.shape == EAdapterShape::OwnRecord) {
    out += "own record `";
    out += row.record;
    out += '`';
  } else {
    out += "adapter `";
    out += ShapeName(row.shape);
    out += '`';
  }
  out += " | ";
  out += RecordCell(row);
  out += " | `";
  out += row.function;
  out += "` | ";
  out += row.firmCheck ? "yes" : "no";
  out += " | ";
  out += row.handler != nullptr ? "yes" : "no";
  out += " |\n";
}

}  // namespace

std::string CommandReferenceMarkdown() {
  std::string out;
  out += "# Remote commands\n\n";
  out += "Printed from `src/api/Commands.def` by `tools/commands`; do not edit by hand.\n\n";

  out += "There are ";
  AppendCount(out, kCommandCount);
  out += " commands:";
  for (std::size_t v = 0; v < kCommandVerbCount; ++v) {
    auto verb = static_cast<ECommandVerb>(v);
    out += v == 0 ? " " : ", ";
    AppendCount(out, CountCommands(verb));
    out += ' ';
    out += VerbName(verb);
  }
  out += ". ";
  AppendCount(out, kCommandCount - CountCommands(EAdapterShape::OwnRecord));
  out += " are served by generic adapters, ";
  AppendCount(out, CountCommands(EAdapterShape::OwnRecord));
  out += " by handlers with a record of their own; ";
  AppendCount(out, CountFirmChecks());
  out += " handlers refuse a \"firmCode\" other than the firm the caller holds (firm check).\n";

  out += "\n";
  AppendCount(out, CountRegistered());
  out += " commands are registered (they answer through `Execute`); ";
  AppendCount(out, kCommandCount - CountRegistered());
  out += " are not registered yet and answer as unknown commands. The column Registered tells which.\n";

  out += "\nA record travels as a block of named fields (docs/protocol.md). An adapter command sends its record and, "
         "for a `Get`, receives the same record back with the result filled in; a sending command's reply is the "
         "request block unchanged. A field missing from a request reads as empty, 0 or false.\n";

  out += "\nA handler is named `ZA_` plus the settings function's name without `ZDL_`. ";
  out += "Commands beginning with `Add`, `Rem` or `Set` are refused to a caller who holds no file.\n";

  ECommandScope current = ECommandScope::None;
  bool first = true;
  for (const TCommandRow& row : kCommandTable) {
    if (first || row.scope != current) {
      current = row.scope;
      first = false;
      out += "\n## ";
      out += ScopeHeading(current);
      out += " (";
      AppendCount(out, CountCommands(current));
      out += ")\n\n";
      out += "| Command | Verb | Served by | Request and reply record | Settings function | Firm check | Registered |\n";
      out += "|---|---|---|---|---|---|---|\n";
    }
    AppendRow(out, row);
  }

  out += "\n## Adapter shapes\n\n";
  out += "| Shape | Kind | Commands | Record |\n";
  out += "|---|---|---|---|\n";
  for (std::size_t s = 0; s < kAdapterShapeCount; ++s) {
    auto shape = static_cast<EAdapterShape>(s);
    out += "| `";
    out += ShapeName(shape);
    out += "` | ";
    out += ShapeKind(shape) == EShapeKind::Send ? "send" : "read";
    out += " | ";
    AppendCount(out, CountCommands(shape));
    out += " | ";
    out += ShapeIsBuilt(shape) ? "`" + ShapeRecordName(shape) + "`: " + FieldsText(ShapeRecordFields(shape))
                               : std::string("not declared yet");
    out += " |\n";
  }
  return out;
}

}  // namespace DL
