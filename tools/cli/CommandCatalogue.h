#pragma once
// What `zentdl commands` prints and what `zentdl call` needs to build a
// request: each remote command and file verb with its record's fields, taken
// from the module's command table (api/Commands.def) and its record
// declarations, never from a list of the tool's own.
#include <string>
#include <string_view>
#include <vector>

namespace zentdl {

// The type of a record field as it travels.
enum class EFieldType { String, Int, Bool, Char, Double, Int64, IntList, DoubleList, StringList, RecordList };

std::string_view FieldTypeName(EFieldType type);

struct TFieldInfo {
  std::string name;  // the wire name
  EFieldType type;
};

struct TCommandInfo {
  std::string name;
  std::string verb;       // Get, Set, Remove, Add, Move; "file verb" for the five file verbs
  std::string scope;      // the scope word, "None", or empty for a file verb
  std::string servedBy;   // "adapter <Shape>" or "own record <TDL_...>" or "file verb"
  std::string record;     // the record's type name, when known
  bool fieldsKnown = false;        // the record is declared in this build
  std::vector<TFieldInfo> fields;  // in wire order, when known
  bool served = false;    // this build of the module registers the command (file verbs always)
  bool fileVerb = false;
};

// Every command of the table in catalogue order, then the five file verbs.
const std::vector<TCommandInfo>& AllCommands();

// The entry of a name (exact, case included), or null.
const TCommandInfo* FindCommandInfo(std::string_view name);

// Whether a name matches a pattern: with "*" or "?" a shell-style match
// ignoring case, otherwise a substring ignoring case. An empty pattern
// matches every name.
bool CommandNameMatches(std::string_view name, std::string_view pattern);

}  // namespace zentdl
