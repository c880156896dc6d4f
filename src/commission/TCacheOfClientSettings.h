#pragma once
// The cache of the broker's commission settings of clients. The firm's
// settings ("Commission" and "General") are parsed when the cache is built;
// a client's section is found on the first query by its own logic parser, in
// the order: the client template bound to the leverage, the personal section
// "cl"+client, a client template listing the client, the longest prefix
// section "cl"+prefix+"*"; with none, the firm's settings stand.
#include <memory>
#include <string>

#include "cache/TIniSettingCache.h"
#include "commission/TClientCommSettings.h"
#include "ini/TIniLogicParser.h"

namespace DL {

class TCacheOfClientSettings : public AIniSettingCacheMaster<TClientCommSettings> {
 public:
  // Builds the cache with a logic parser of its own (its memo serves this
  // cache alone) and parses the firm's settings.
  TCacheOfClientSettings(TIniParser& parser, const IFirmSettings* firm);

  // The firm's settings: the kind and fixed rate by "UseCommissionScale"
  // of "General" (1: a scale and rate 0; otherwise fixed, "Broker" of
  // "Commission", default 0.5), "RepoBroker" of "Commission" (default 0),
  // "RoundScaleCommissionOnDayValue" and "CommissionScaleJump" of "General",
  // and the rates by class of the keys of "Commission".
  void ParseGlobalSettings();

  TParseResult ParseSettingsForClient(const TIniCacheItemID& id) const override;

  // The scale jump flag of the firm's settings.
  void SetCommScaleJump(bool value);

  // Forgets the parsed object of an edited client or client template
  // section and every client's resolution, so that the next query parses the
  // section as it stands.
  void ForgetParsedSection(const std::string& section) {
    m_parsed.Remove(section);
    Items().clear();
  }

  const TIniLogicParser& LogicParser() const { return m_logic; }
  const TParsedSections<TClientCommSettings>& ParsedSections() const { return m_parsed; }

 private:
  std::unique_ptr<TClientCommSettings> ParseSection(const std::string& section) const;

  TIniLogicParser m_logic;
  // The firm's settings as parsed: the firm's object is also the answer for
  // clients without a section, and ClientCommSettings writes its result
  // fields into it, so sections parsed later start from this copy.
  TClientCommSettings m_firm;
  mutable TParsedSections<TClientCommSettings> m_parsed;  // by section name
};

}  // namespace DL
