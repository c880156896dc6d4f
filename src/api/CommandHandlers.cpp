// The handlers of the registered commands. Each is generated from its row of
// the command table: the row's adapter shape decides how the request block
// becomes a call of the settings function and how the result comes back.
#include <string_view>
#include <type_traits>

#include "api/Adapters.h"
#include "api/CommandTable.h"
#include "api/ExecDealerAPI.h"
#include "api/ZDLArrays.h"
#include "api/ZDeallibAPI.h"

namespace {

using DL::EAdapterShape;

// The command's row, found while compiling; a name missing from the table
// stops the build.
constexpr const DL::TCommandRow& RowOf(std::string_view name) {
  for (const DL::TCommandRow& row : DL::kCommandTable)
    if (row.name == name) return row;
  throw "command is not in the table";
}

// Runs the adapter of the shape around the settings function.
template <EAdapterShape Shape, class Fn>
int RunAdapter(Fn fn, const char* command, std::vector<unsigned char>& data, std::string& firm,
               const DL::Adapters::TAdapterEnv& env) {
  namespace A = DL::Adapters;
  if constexpr (Shape == EAdapterShape::SendOneString) {
    return A::SendOneString(fn, command, data, firm, env);
  } else if constexpr (Shape == EAdapterShape::SendTwoStrings) {
    return A::SendTwoStrings(fn, command, data, firm, env);
  } else if constexpr (Shape == EAdapterShape::SendOneStringAndBool) {
    return A::SendOneStringAndBool(fn, command, data, firm, env);
  } else if constexpr (Shape == EAdapterShape::SendOneString_GetBool) {
    return A::SendOneString_GetBool(fn, data, firm);
  } else if constexpr (Shape == EAdapterShape::SendOneString_GetInt) {
    return A::SendOneString_GetInt(fn, data, firm);
  } else {
    static_assert(!std::is_same_v<Fn, Fn>, "the command's shape has no adapter yet");
    return 0;
  }
}

}  // namespace

#define ZDL_IMPLEMENTED(name)                                                                                  \
  int CExecDealerAPI::ZA_##name(std::vector<unsigned char>& data, std::string& firm) {                         \
    constexpr EAdapterShape kShape = RowOf(#name).shape;                                                       \
    static_assert(RowOf(#name).function == "ZDL_" #name, "the handler calls the settings function of its row"); \
    DL::Adapters::TAdapterEnv env{[this](const std::string& f, std::string line) { AddChangeLine(f, std::move(line)); }, \
                                  &ZDL_FreeMemory};                                                            \
    return RunAdapter<kShape>(&ZDL_##name, #name, data, firm, env);                                            \
  }
#include "api/Implemented.def"
#undef ZDL_IMPLEMENTED

void CExecDealerAPI::RegisterCommands() {
#define ZDL_IMPLEMENTED(name) m_mapFunctions[#name] = &CExecDealerAPI::ZA_##name;
#include "api/Implemented.def"
#undef ZDL_IMPLEMENTED
}
