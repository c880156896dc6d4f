#pragma once
// The canonical form of a settings text, made the way the module makes it
// when a library is saved: the text is loaded as a firm's settings
// (ZDL_LoadSettingsForFirm, from memory), written back with
// ZDL_SaveSettingsToMemory, and the firm is dropped again.
#include <string>
#include <string_view>

namespace zentdl {

struct TCanonicalResult {
  int code = 0;       // 0, or the settings layer's result code of the step that failed
  std::string text;   // the canonical text when code is 0
};

// The text is taken up to its first zero byte, as the module takes it. The
// firm code used for the round trip is private to the tool.
TCanonicalResult CanonicalSettingsText(std::string_view text);

}  // namespace zentdl
