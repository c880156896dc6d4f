#pragma once
// The meaning of every result code an administrator meets: the settings
// layer's codes and the remote API's (which passes a settings code n on as
// 1000 + n).
#include <string>

namespace zentdl {

// The meaning of a settings-layer code, e.g. "firm not loaded" for 2;
// "unknown result code" for a code the layer does not have.
std::string SettingsCodeMeaning(int code);

// The meaning of a remote result code: 0, 1, 9, 11, 12, 13, 1001, 1002 as the
// dispatcher documents them, and 1000 + n as the settings code n. The
// dispatcher's own readings of 1001 and 1002 are named beside the settings'.
std::string RemoteCodeMeaning(int code);

}  // namespace zentdl
