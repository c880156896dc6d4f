#pragma once
// TCommScaleParser: finds and reads the commission scale of a client:
// personal "cl<client>_CommissionScale", a template
// "cl<template>_CommissionScale_Template" (by leverage, or listing the
// client), a prefix "cl<prefix>*_CommissionScale", or the global section
// "CommissionScale". Every scale is a new object owned by the caller; null
// means the search found no section or the section is empty.
#include <memory>
#include <string>

#include "commission/TCommScale.h"
#include "ini/TIniParser.h"

namespace DL {

class TCommScaleParser {
 public:
  explicit TCommScaleParser(TIniParser& parser) : m_parser(parser) {}

  std::unique_ptr<TCommScale> PersonalCommScale(const std::string& client) const;
  // With a leverage above -1e-7: the scale template of the client template
  // bound to that leverage, if it gives a scale. Otherwise the first scale
  // template (in sorted upper-case name order) whose Clients list holds the
  // client: the list is trimmed and framed by "," and searched for
  // ",client,".
  std::unique_ptr<TCommScale> TemplateCommScale(const std::string& client, double leverage) const;
  // Mode 2: prefixes from the empty one up; mode 3: the first section that
  // begins with "CL" and ends with "*_COMMISSIONSCALE", whatever its prefix;
  // any other mode: from the whole code down to the empty prefix.
  std::unique_ptr<TCommScale> PrefixCommScale(const std::string& client, int searchMode) const;
  std::unique_ptr<TCommScale> GlobalCommScale() const;
  // Reads a scale section: MinValue, MaxValue, MinVolume and TradeCommission
  // times 100; ConsiderRepoTerm true for "1"; Clients skipped; any other key
  // a row, the key times 100 the threshold and the value the rate.
  std::unique_ptr<TCommScale> CommScaleFromSection(const std::string& section) const;

 private:
  TIniParser& m_parser;
};

}  // namespace DL
