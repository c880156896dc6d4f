#pragma once
// A commission stepped by trade volume and side, for a list of classes. The
// table maps the volume from which a step holds to the step's kind and
// rates by side (both sides, buy, sell); a deal takes the highest step whose
// volume it reaches, the entry of its side or else that of both sides.
//
// Text form, one section per object (the section name is the owner's):
//   Classes=TQBR,TQTF          classes, "," separated; "<ALL>" for all
//   0=FIXED,0.05,0             a step for both sides: kind,rate,amount
//   1000000_B=TRADE_MAX,0.03,100
//   1000000_S=TRADE_MIN,0.04,50
// The key of a step is the volume, with "_B" or "_S" for one side; the kind
// is "FIXED", "TRADE_MAX" or "TRADE_MIN". Lines that do not read this way
// (also a "Classes" line without a class, or with a code longer than 12)
// are handed back as unread.
#include <map>
#include <set>
#include <string>
#include <vector>

#include "commission/TypeAndRate.h"
#include "commission/VolumeAndSideToTypeAndRate.h"
#include "base/TradingTypes.h"
#include "ini/SettingsText.h"

namespace DL {

class TVolumeBasedCommission {
 public:
  using TSideMap = std::map<ESide, TypeAndRate>;
  using TRates = std::map<double, TSideMap>;       // volume -> side -> step
  using TFilteredRates = std::map<double, TypeAndRate>;  // volume -> step of one side

  // Replaces the classes; a set holding "<ALL>" becomes the one entry
  // "<ALL>". Refreshes FirstClass.
  void Set(const std::set<std::string>& classes);
  // Adds a class ("<ALL>" makes the set the one entry "<ALL>"; a set that
  // stands for all classes is left as it is). False when nothing changed.
  bool AddClass(const std::string& classCode);
  // False when the class is not in the set.
  bool RemoveClass(const std::string& classCode);
  // The class is in the set, or the set stands for all classes.
  bool IsClassInList(const std::string& classCode) const;
  const std::set<std::string>& GetAllStrings() const { return m_classes; }
  const std::string& GetFirstClass() const { return FirstClass; }

  // Sets the step of (volume, side). ZDL_BAD_ARGUMENT (3), with nothing
  // changed, for an undefined or unknown side or kind, or a negative volume,
  // rate or amount; else ZDL_OK.
  [[nodiscard]] int AddSetting(double volume, ESide side, ECommType type, double rate, double amount);
  const TRates& GetRates() const { return m_rates; }
  // Every step in flat form, by rising volume and side.
  std::vector<VolumeAndSideToTypeAndRate> GetAllSettings() const;

  // The step for a deal of `volume` on `side`: the highest step whose volume
  // the deal reaches and that has an entry for the side or for both sides
  // (the side's own entry first). (3, 0, 0) when there is none.
  TypeAndRate GetEffectiveTypeAndRate(double volume, ESide side) const;

  // The commission of one step on `value`: a = Amount * 10^scale, v = value *
  // Rate / 100; fixed v, maximum the larger of a and v, minimum the smaller,
  // any other kind 0.
  static double CalcCommByType(double value, short scale, const TypeAndRate& t);
  // The entry of `side` in the step, else that of both sides, copied to
  // `out`, and its commission on `value`. With neither, 0 and `out` is left
  // as it is: callers check first.
  static double CalcCommByTypeAndSide(const TSideMap& sides, ESide side, short scale, TypeAndRate& out,
                                      double value);
  // The highest commission the steps give on `value`: each step up to the
  // one the value reaches is charged on the value, capped at the volume of
  // the next step less one (in units of 10^-scale). 0 without steps.
  double CalcMaxCommValue(double value, ESide side, short scale) const;
  // The steps of `side` (its own entry, else that of both sides) with a rate
  // or amount not zero, by rising volume; volumes equal within
  // 1 / 10^(scale + 1) count as one step, the first kept.
  void GetFilteredRatesList(ESide side, short scale, TFilteredRates& out) const;
  static void FillNonZeroRates(double volume, const TypeAndRate& t, short scale, TFilteredRates& out);

  // Reads a section in the text form above; the lines it does not read go to
  // `unread`, as written. The object is cleared first.
  void ParseFromSection(const TIniKeyMap& keys, TIniKeyMap& unread);
  // The lines of the text form: "Classes" (when there are any), then every
  // step by rising volume and side. Each line ends with a line feed.
  std::string ToSectionBody() const;

  // Ordered by FirstClass.
  bool operator<(const TVolumeBasedCommission& o) const { return FirstClass < o.FirstClass; }
  bool operator==(const TVolumeBasedCommission&) const = default;

 private:
  void RefreshFirstClass();

  std::set<std::string> m_classes;
  std::string FirstClass;  // the smallest class, or empty
  TRates m_rates;
};

}  // namespace DL
