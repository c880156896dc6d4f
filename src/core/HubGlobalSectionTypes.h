#pragma once
// The parsed forms of the firm-wide sections that the hub reads itself: the
// sub-brokers, the option order restrictions, the futures client code
// correspondences, the pre-trade sections and the sections read late in the
// load. Each store keeps the lines it cannot read in `raw`, as written, so
// that a save writes them back and nothing is lost.
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/PlainRecords.h"
#include "base/TClassList.h"
#include "ini/SettingsText.h"

namespace DL {

// Lines of a section that no field holds: key -> value, as written.
using TRawLines = TIniKeyMap;

// At most `count` transactions within `interval` seconds; a count of -1
// means no control. Written "count,interval".
struct TFloodControlSettings {
  int count = -1;
  int interval = 1;

  bool operator==(const TFloodControlSettings&) const = default;
};

// "count,interval": an empty text or an empty first item gives -1 and 1, a
// missing second item gives the interval 1. False, with `out` untouched, for
// a count or interval that is not a whole number, an interval below 1, a
// count below -1, or more than two items.
bool ParseFloodControlSettings(std::string_view text, TFloodControlSettings& out);
std::string FloodControlSettingsToStr(const TFloodControlSettings& settings);

// A "PreTrade_<n>" section.
struct TPreTradeSettings {
  int number = 0;
  bool hasFloodControl = false;        // "FloodControl" was given and readable
  TFloodControlSettings floodControl;  // "FloodControl"
  TRawLines raw;                       // every other line, and an unreadable "FloodControl"

  bool operator==(const TPreTradeSettings&) const = default;
};

// One sub-broker, gathered from the four sub-broker sections, each of which
// has the form "sub-broker code = comma list".
struct TSubBrokerSettings {
  TClassList clients;     // "SubBrokers": the sub-broker's clients
  TClassList globals;     // "SubBrokerGlobals": global settings the sub-broker takes
  TClassList yesGlobals;  // "SubBrokerYesGlobals": global settings it is allowed to change
  TClassList noGlobals;   // "SubBrokerNoGlobals": global settings it is refused
};

// "RestrictOptionOrders": per base asset (or "<ALL>"), which option orders
// are refused: "base asset = comma list of BUYCALL, SELLCALL, BUYPUT, SELLPUT".
struct TRestrictOptionOrders {
  bool buyCall = false;
  bool sellCall = false;
  bool buyPut = false;
  bool sellPut = false;

  bool operator==(const TRestrictOptionOrders&) const = default;
};

// One "ChangeFutClientCodes_<firm>" section: the client code on the
// derivatives market by the client code, for the firm behind the "_".
struct TChangeFutClientCodes {
  std::string section;  // the section's name as written
  std::string firm;     // the rest of the name behind "ChangeFutClientCodes" and its "_"
  std::map<std::string, std::string> trdAccByClient;  // client code -> trade account
  TRawLines raw;

  bool operator==(const TChangeFutClientCodes&) const = default;
};

// One line of "MinOrderQuantityInSetTime": "classes_INSTR_securities
// _INTERVAL_<seconds>_TIME_HH:MM-HH:MM = quantity".
struct TMinOrderQuantityInSetTime {
  std::set<std::string> classes;
  std::set<std::string> securities;
  int64_t interval = 0;  // seconds
  TTimeInterval time;
  int64_t quantity = 0;

  bool operator==(const TMinOrderQuantityInSetTime&) const = default;
};

// One line of "RestOrdVolumeByAvgTurnover" or its soft twin: "classes
// _INSTR_ securities = limit in per cent, second number, text".
struct TGlobalRestOrdVolumeItem {
  std::set<std::string> classes;     // upper case
  std::set<std::string> securities;  // upper case
  double limitPercent = -1.0;
  double second = 0.0;
  std::string text;  // upper case

  bool operator==(const TGlobalRestOrdVolumeItem&) const = default;
};

struct TGlobalRestOrdVolume {
  bool present = false;  // the section is in the text
  int basePeriod = 0;    // "BasePeriod"
  std::vector<TGlobalRestOrdVolumeItem> items;
  TRawLines raw;

  bool operator==(const TGlobalRestOrdVolume&) const = default;
};

// One line of "FloodControlByInstrument": "classes_INSTR_securities = count,interval".
struct TFloodControlByInstrument {
  std::set<std::string> classes;
  std::set<std::string> securities;
  TFloodControlSettings floodControl;

  bool operator==(const TFloodControlByInstrument&) const = default;
};

// A section of the form "code = value" read into a map, with the lines whose
// key or value does not read kept raw.
template <class TValue>
struct TKeyedSection {
  std::map<std::string, TValue, StringMapComparerFunc> values;
  TRawLines raw;

  bool operator==(const TKeyedSection&) const = default;
};

}  // namespace DL
