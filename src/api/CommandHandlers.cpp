// The handlers of the commands whose settings operation exists, one per line
// of core/SettingsOperations.def. Each is generated from the command's row:
// the row's adapter shape decides how the request block becomes a call of the
// ZDL_ function and how the result comes back.
#include <string_view>

#include "api/Adapters.h"
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

}  // namespace

namespace DL::CommandHandlers {

#define ZDL_OPERATION(op, qualifier, params, args)                                                           \
  int ZDL_##op(CExecDealerAPI& api, std::vector<unsigned char>& data, std::string& firm) {                  \
    constexpr const TCommandRow& row = RowOfFunction("ZDL_" #op);                                            \
    static_assert(row.shape != EAdapterShape::OwnRecord, "a command with a record of its own has no adapter"); \
    Adapters::TAdapterEnv env{                                                                               \
        [&api](const std::string& f, std::string line) { api.AddChangeLine(f, std::move(line)); },            \
        &::ZDL_FreeMemory};                                                                                  \
    return RunAdapter<row.shape>(&::ZDL_##op, row.name.data(), data, firm, env);                           \
  }
#include "core/SettingsOperations.def"
#undef ZDL_OPERATION

}  // namespace DL::CommandHandlers
