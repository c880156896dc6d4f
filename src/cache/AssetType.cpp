#include "cache/AssetType.h"

#include <array>

#include "base/TextHelpers.h"

namespace DL {

namespace {
constexpr std::array<const char*, 6> kWords = {"SHARE", "BOND", "CURRENCY", "FUND", "RECEIPT", "OTHER"};
}  // namespace

ZDL_AssetType AssetTypeToEnum(std::string_view word) {
  const std::string up = StrUpper(TrimStr(word));
  for (size_t i = 0; i < kWords.size(); ++i)
    if (up == kWords[i]) return static_cast<ZDL_AssetType>(i);
  return ZDL_atUnknown;
}

const char* EnumToAssetType(ZDL_AssetType type) {
  if (type < 0 || static_cast<size_t>(type) >= kWords.size()) return "";
  return kWords[static_cast<size_t>(type)];
}

}  // namespace DL
