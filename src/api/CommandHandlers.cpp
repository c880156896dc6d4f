// The handlers of the commands whose settings operation exists, one per line
// of core/SettingsOperations.def. Each is generated from the command's row:
// the row's adapter shape decides how the request block becomes a call of the
// ZDL_ function and how the result comes back.
#include <string_view>

#include "api/Adapters.h"
#include "api/OwnCommands.h"
#include "api/ShapeTable.h"
#include "api/CommandTable.h"
#include "api/ExecDealerAPI.h"
#include "api/ZDLArrays.h"
#include "api/ZDeallibAPI.h"

namespace {

using DL::EAdapterShape;

// The row whose settings function is `function`, found while compiling; an
// operation without a row stops the build.
constexpr const DL::TCommandRow& RowOfFunction(std::string_view function) {
  for (const DL::TCommandRow& row : DL::kCommandTable)
    if (row.function == function) return row;
  throw "the operation has no row in the command table";
}

// Runs the adapter of the shape around the settings function.
template <EAdapterShape Shape, class Fn>
int RunAdapter(Fn fn, const char* command, std::vector<unsigned char>& data, std::string& firm,
               const DL::Adapters::TAdapterEnv& env) {
  using TheShape = DL::Adapters::TShape<Shape>;
  static_assert(TheShape::kBuilt, "the command's shape has no adapter yet");
  return TheShape::Run(fn, command, data, firm, env);
}

// Where an adapter notes its change line and gives back what the settings
// layer handed out.
DL::Adapters::TAdapterEnv MakeEnv(CExecDealerAPI& api) {
  return DL::Adapters::TAdapterEnv{
      [&api](const std::string& f, std::string line) { api.AddChangeLine(f, std::move(line)); }, &::ZDL_FreeMemory};
}

}  // namespace

namespace DL::CommandHandlers {

// The handler of a command served by an adapter shape.
#define ZDL_OPERATION(home, op, qualifier, params, args)                                                     \
  int ZDL_##op(CExecDealerAPI& api, std::vector<unsigned char>& data, std::string& firm) {                  \
    constexpr const TCommandRow& row = RowOfFunction("ZDL_" #op);                                            \
    static_assert(row.shape != EAdapterShape::OwnRecord, "a command with a record of its own has no adapter"); \
    return RunAdapter<row.shape>(&::ZDL_##op, row.name.data(), data, firm, MakeEnv(api));                  \
  }
// The handler of a command with a record of its own: its recipe in
// api/OwnCommands.h, whose record must be the one its row names.
#define ZDL_OWN_OPERATION(home, op, qualifier, params, args)                                                 \
  int ZDL_##op(CExecDealerAPI& api, std::vector<unsigned char>& data, std::string& firm) {                  \
    constexpr const TCommandRow& row = RowOfFunction("ZDL_" #op);                                            \
    static_assert(row.shape == EAdapterShape::OwnRecord, "the row of the command names an adapter shape");   \
    using Recipe = Adapters::Own::op;                                                                        \
    static_assert(row.record == Recipe::RecordType::kRecordName, "the recipe's record is not the row's");    \
    return Recipe::Run(&::ZDL_##op, row.name.data(), data, firm, MakeEnv(api));                             \
  }
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION
#undef ZDL_OWN_OPERATION

}  // namespace DL::CommandHandlers
