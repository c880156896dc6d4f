#pragma once
// The cache of commission scales. An item is a client with a tariff plan
// (the template name of the identity) and a board group (its board name).
// The firm's scale is the section "CommissionScale" (an empty scale when
// there is none); the board scales "bd<board>_CommissionScale" are read and
// hashed by board when the cache is built. A client's scale is found in the
// order: the personal "cl<client>_CommissionScale" (source 1); with a plan
// and a group, the plan's "tp<plan>_bd<group>_CommissionScale" (source 2);
// a scale template (source 2); the longest prefix
// "cl<prefix>*_CommissionScale" (source 1); the scale of the board group
// (source 2); else the firm's scale.
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "cache/TIniSettingCache.h"
#include "commission/TCommScale.h"
#include "commission/TCommScaleParser.h"

namespace DL {

class TCacheOfCommScales : public AIniSettingCacheMaster<TCommScale> {
 public:
  TCacheOfCommScales(TIniParser& parser, const IFirmSettings* firm);

  // The firm's scale, then the board scales hashed by upper-case board.
  void ParseGlobalSettings();
  void HashBoardScales();

  TParseResult ParseSettingsForClient(const TIniCacheItemID& id) const override;

  // The scale of a board group without a plan, or null.
  const TCommScale* BoardScale(const std::string& board) const;
  std::size_t BoardScaleCount() const { return m_boardScales.size(); }

  // Edits of the firm's scale (the home of the section "CommissionScale").
  void SetMinMaxTurnover(const TScaleCommExParams& limits) { GlobalSettings()->SetMinMaxTurnover(limits); }
  void SetScaleRates(const std::vector<TScaleRow>& rows) { GlobalSettings()->SetScaleRates(rows); }

  // The text of a scale: see TCommScale::MakeSettingsString.
  static void MakeSettingsString(std::string& out, const TCommScale& scale) { scale.MakeSettingsString(out); }

 private:
  struct TResolved {
    TCommScale* scale = nullptr;  // null: none found
    int source = SourceGlobal;
  };
  TCommScale* Keep(std::unique_ptr<TCommScale> scale) const;

  TCommScaleParser m_scaleParser;
  std::unordered_map<std::string, std::unique_ptr<TCommScale>> m_boardScales;  // upper-case board -> scale
  // Every search result by item, negative ones too, and the scales found:
  // a template's or plan's scale is not in the item table, and the memo
  // keeps its search from being repeated.
  mutable std::map<TIniCacheItemKey, TResolved> m_memo;
  mutable std::map<std::string, std::unique_ptr<TCommScale>> m_planScales;  // by upper-case section name
  mutable std::vector<std::unique_ptr<TCommScale>> m_owned;
};

}  // namespace DL
