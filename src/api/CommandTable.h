#pragma once
// The remote command table: one row per command of the "ZDealerAPI" verb,
// expanded from api/Commands.def while compiling. The table is the dispatcher:
// ExecuteDealerAPI finds the row by name and applies its handler, its
// read-only rule and its firm check. The reference in docs/api.md is printed
// from the same rows.
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class CExecDealerAPI;

namespace DL {

// A command's handler: decodes the request block in data, runs the settings
// operation, encodes the reply into data. firm is the firm the caller holds
// (empty for a reader); api takes the change lines.
using TCommandHandler = int (*)(CExecDealerAPI& api, std::vector<unsigned char>& data, std::string& firm);

// Whether a caller who holds no file may run the command: every name that does
// not begin with "Add", "Rem" or "Set". Move commands pass here; the firm check
// of their rows stops a reader instead.
constexpr bool PassesReadOnlyTest(std::string_view name) {
  const std::string_view head = name.substr(0, 3);
  return head != "Add" && head != "Rem" && head != "Set";
}

// The handler of every row, by the name of its settings function. A line of
// core/SettingsOperations.def (either form) declares the real handler here (its body is in
// CommandHandlers.cpp); every other name falls through to the null of
// NotImplemented, because a qualified name found in the namespace itself hides
// the names brought in by a using-directive.
namespace CommandHandlers {
namespace NotImplemented {
#define ZDL_COMMAND(name, verb, scope, shape, record, function, firmCheck) inline constexpr std::nullptr_t function = nullptr;
#include "api/Commands.def"
#undef ZDL_COMMAND
}  // namespace NotImplemented
using namespace NotImplemented;
#define ZDL_OPERATION(home, name, qualifier, params, args) \
  int ZDL_##name(CExecDealerAPI& api, std::vector<unsigned char>& data, std::string& firm);
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION
}  // namespace CommandHandlers

// The first word of a command's name.
enum class ECommandVerb : unsigned char { Get, Set, Remove, Add, Move };
inline constexpr std::size_t kCommandVerbCount = 5;

// Where the setting lives; None for tariff plans, spread orders and the like.
enum class ECommandScope : unsigned char {
  Global,
  ClientSettings,
  ClientTemplate,
  MarginTemplate,
  RestrictionTemplate,
  BaseAssetsTemplate,
  PortfolioRiskConfigTemplate,
  UserSettings,
  None,
};
inline constexpr std::size_t kCommandScopeCount = 9;

// The generic adapter that serves a command, or OwnRecord for a command whose
// handler decodes a record of its own.
enum class EAdapterShape : unsigned char {
#define ZDL_SHAPE(name, kind) name,
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
  OwnRecord,
};
inline constexpr std::size_t kAdapterShapeCount = static_cast<std::size_t>(EAdapterShape::OwnRecord);

// Send: passes arguments and records a change line. Read: returns a result in
// the reply record. Own: not an adapter.
enum class EShapeKind : unsigned char { Send, Read, Own };

struct TCommandRow {
  std::string_view name;      // as the client sends it; compared byte for byte
  ECommandVerb verb;          // the first word of name
  ECommandScope scope;        // the last scope word of name, None if it has none
  EAdapterShape shape;        // adapter, or OwnRecord
  std::string_view record;    // TDL_ record of an own handler; empty for an adapter command
  std::string_view function;  // the settings function the handler calls, "ZDL_..."
  bool firmCheck;             // refuses a "firmCode" other than the firm the caller holds
  bool readerMayRun;          // a caller who holds nothing may run it (PassesReadOnlyTest)
  TCommandHandler handler;    // null while the settings operation is not written
};

namespace CommandTableTokens {
// The words of the firmCheck column.
inline constexpr bool FirmCheck = true;
inline constexpr bool NoFirmCheck = false;

// The record column says ShapeRecord for an adapter command: its record is the
// generic one of the shape, so the row carries none.
constexpr std::string_view RecordColumn(std::string_view text) {
  return text == "ShapeRecord" ? std::string_view() : text;
}
}  // namespace CommandTableTokens

// Number of rows of the table.
inline constexpr std::size_t kCommandCount = 0
#define ZDL_COMMAND(name, verb, scope, shape, record, function, firmCheck) +1
#include "api/Commands.def"
#undef ZDL_COMMAND
    ;

// All commands, in catalogue order. The size is spelt out: deducing it from
// 994 initialisers is more than some compilers allow.
inline constexpr std::array<TCommandRow, kCommandCount> kCommandTable = {{
#define ZDL_COMMAND(name, verb, scope, shape, record, function, firmCheck)                          \
  TCommandRow{#name,                                                                                \
              ECommandVerb::verb,                                                                   \
              ECommandScope::scope,                                                                 \
              EAdapterShape::shape,                                                                 \
              CommandTableTokens::RecordColumn(#record),                                            \
              #function,                                                                            \
              CommandTableTokens::firmCheck,                                                        \
              PassesReadOnlyTest(#name),                                                            \
              TCommandHandler(CommandHandlers::function)},
#include "api/Commands.def"
#undef ZDL_COMMAND
}};

// The row of a command, or null for a name that is not in the table. The
// comparison is exact: a name that differs only in case is unknown.
[[nodiscard]] const TCommandRow* FindCommand(std::string_view name);

// Number of rows with the given verb, scope or shape.
constexpr std::size_t CountCommands(ECommandVerb verb) {
  std::size_t n = 0;
  for (const TCommandRow& row : kCommandTable) n += row.verb == verb ? 1 : 0;
  return n;
}
constexpr std::size_t CountCommands(ECommandScope scope) {
  std::size_t n = 0;
  for (const TCommandRow& row : kCommandTable) n += row.scope == scope ? 1 : 0;
  return n;
}
constexpr std::size_t CountCommands(EAdapterShape shape) {
  std::size_t n = 0;
  for (const TCommandRow& row : kCommandTable) n += row.shape == shape ? 1 : 0;
  return n;
}
// Number of rows with a handler: the commands a client can run today.
constexpr std::size_t CountHandlers() {
  std::size_t n = 0;
  for (const TCommandRow& row : kCommandTable) n += row.handler != nullptr ? 1 : 0;
  return n;
}
// Number of rows whose handler has the firm check.
constexpr std::size_t CountFirmChecks() {
  std::size_t n = 0;
  for (const TCommandRow& row : kCommandTable) n += row.firmCheck ? 1 : 0;
  return n;
}

std::string_view VerbName(ECommandVerb verb);
std::string_view ScopeName(ECommandScope scope);
// "OwnRecord" for EAdapterShape::OwnRecord.
std::string_view ShapeName(EAdapterShape shape);
EShapeKind ShapeKind(EAdapterShape shape);

// The handler's name: "ZA_" and the settings function's name without "ZDL_".
std::string HandlerName(const TCommandRow& row);

}  // namespace DL
