#include "api/CommandTable.h"

#include <algorithm>
#include <cstdint>

namespace DL {
namespace {

// Row numbers in byte order of the names, sorted once at first use, so that a
// lookup is a binary search without any allocation. (Sorting 994 names while
// compiling is more than some compilers' constant evaluation allows; the test
// of the table checks that no name stands twice.)
const std::array<std::uint16_t, kCommandCount>& RowsByName() {
  static const std::array<std::uint16_t, kCommandCount> order = [] {
    std::array<std::uint16_t, kCommandCount> rows{};
    for (std::size_t i = 0; i < kCommandCount; ++i) rows[i] = static_cast<std::uint16_t>(i);
    std::sort(rows.begin(), rows.end(),
              [](std::uint16_t a, std::uint16_t b) { return kCommandTable[a].name < kCommandTable[b].name; });
    return rows;
  }();
  return order;
}

constexpr std::string_view kShapeNames[] = {
#define ZDL_SHAPE(name, kind) #name,
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
    "OwnRecord",
};

constexpr EShapeKind kShapeKinds[] = {
#define ZDL_SHAPE(name, kind) EShapeKind::kind,
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
    EShapeKind::Own,
};

}  // namespace

const TCommandRow* FindCommand(std::string_view name) {
  const auto& rows = RowsByName();
  auto it = std::lower_bound(rows.begin(), rows.end(), name,
                             [](std::uint16_t row, std::string_view key) { return kCommandTable[row].name < key; });
  if (it == rows.end() || kCommandTable[*it].name != name) return nullptr;
  return &kCommandTable[*it];
}

std::string_view VerbName(ECommandVerb verb) {
  switch (verb) {
    case ECommandVerb::Get: return "Get";
    case ECommandVerb::Set: return "Set";
    case ECommandVerb::Remove: return "Remove";
    case ECommandVerb::Add: return "Add";
    case ECommandVerb::Move: return "Move";
  }
  return {};
}

std::string_view ScopeName(ECommandScope scope) {
  switch (scope) {
    case ECommandScope::Global: return "Global";
    case ECommandScope::ClientSettings: return "ClientSettings";
    case ECommandScope::ClientTemplate: return "ClientTemplate";
    case ECommandScope::MarginTemplate: return "MarginTemplate";
    case ECommandScope::RestrictionTemplate: return "RestrictionTemplate";
    case ECommandScope::BaseAssetsTemplate: return "BaseAssetsTemplate";
    case ECommandScope::PortfolioRiskConfigTemplate: return "PortfolioRiskConfigTemplate";
    case ECommandScope::UserSettings: return "UserSettings";
    case ECommandScope::None: return "None";
  }
  return {};
}

std::string_view ShapeName(EAdapterShape shape) { return kShapeNames[static_cast<std::size_t>(shape)]; }

EShapeKind ShapeKind(EAdapterShape shape) { return kShapeKinds[static_cast<std::size_t>(shape)]; }

std::string HandlerName(const TCommandRow& row) {
  std::string_view base = row.function;
  if (base.starts_with("ZDL_")) base.remove_prefix(4);
  std::string handler = "ZA_";
  handler.append(base);
  return handler;
}

}  // namespace DL
