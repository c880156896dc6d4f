#include "tools/cli/CanonicalText.h"

#include <string>

#include "api/ZDeallibAPI.h"

namespace zentdl {
namespace {
// A firm code no library of a host carries; the tool loads one text at a time.
constexpr const char* kFirm = "<zentdl>";
}  // namespace

TCanonicalResult CanonicalSettingsText(std::string_view text) {
  TCanonicalResult result;
  const std::string source(text.substr(0, text.find('\0')));
  result.code = ZDL_LoadSettingsForFirm(kFirm, source.c_str(), 2);
  if (result.code != 0) return result;
  char* block = nullptr;
  result.code = ZDL_SaveSettingsToMemory(kFirm, &block);
  if (result.code == 0 && block != nullptr) {
    result.text = block;
    void* p = block;
    (void)ZDL_FreeMemory(kFirm, &p);
  }
  (void)ZDL_FinishWorkWithFirm(kFirm);
  return result;
}

}  // namespace zentdl
