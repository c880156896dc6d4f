#pragma once
// Code numbers of the whole section names of the settings text. The numbers
// index TIniParser's section name tables; the list itself is IniSectCodes.def.
#include <string_view>

namespace DL {

enum EIniSectCodeNum : int {
#define ZDL_INI_SECT(id, name) isc##id,
#include "ini/IniSectCodes.def"
#undef ZDL_INI_SECT
  iscCount  // number of section codes
};

// In the table of supported parameters and sections: "no section".
inline constexpr EIniSectCodeNum iscNone = iscCount;

// The names by code, known at compile time. TIniParser's tables are filled
// from the same rows; this form serves readers that run before any parser
// exists, such as the settings text reader looking for ClientCval.
inline constexpr std::string_view kIniSectCodeNames[] = {
#define ZDL_INI_SECT(id, name) name,
#include "ini/IniSectCodes.def"
#undef ZDL_INI_SECT
};

static_assert(sizeof(kIniSectCodeNames) / sizeof(kIniSectCodeNames[0]) == iscCount);
static_assert(iscCount == 109, "the settings text knows 109 section names");

// The name of a section code, as written in the text. No bounds check.
constexpr std::string_view IniSectName(EIniSectCodeNum code) { return kIniSectCodeNames[code]; }

}  // namespace DL
