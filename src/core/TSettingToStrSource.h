#pragma once
// What a rendering function of the save writes from; shared by the hub and
// the components whose rendering the hub's maps name.
#include <string>

#include "ini/TIniParser.h"

namespace DL {

struct TRestrictions;
struct TClientSecurityRestrictions;
struct TClientMarginRestrictions;

// What a rendering function writes from: the kind of the section being
// written (TIniParser::ESectType), its name, its raw parameters (null when
// the text has no such section), and the parsed object of the section when
// it is written from a cache (a client, template or limit-kind section).
// With no parsed object a rendering function writes from the global home of
// its setting.
struct TSettingToStrSource {
  int kind = TIniParser::SectGlobal;
  std::string section;
  const TIniKeyMap* keys = nullptr;
  const TRestrictions* restrictions = nullptr;                   // restriction template
  const TClientSecurityRestrictions* securityRestrictions = nullptr;  // client, client template
  const TClientMarginRestrictions* marginRestrictions = nullptr;      // margin section
  int limitKind = 0;                                                  // margin section
};

}  // namespace DL
