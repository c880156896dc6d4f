#pragma once
// The broker's commission settings of one client, template, prefix or of the
// firm, as parsed from a settings section, and the fields that
// TStorageHub::ClientCommSettings completes for one class.
#include <map>
#include <set>
#include <string>
#include <utility>

#include "commission/TRepoPerDayCommissionStorage.h"
#include "commission/TRepoScaleCommissionStorage.h"
#include "ini/TIniParser.h"

namespace DL {

// Kinds of the broker's commission.
enum ECommKind : int {
  CommKindNone = 0,
  CommKindFixed = 1,          // "_FIXED": a fixed rate
  CommKindScale = 2,          // a commission scale
  CommKindTrade = 3,          // "_TRADE": a rate by trade
  CommKindTradeMax = 4,       // "_TRADE_MAX": a rate by trade and a money maximum
  CommKindPerSecurity = 5,    // "_1SEC": a rate per security
  CommKindPerLot = 6,         // "_TRADELOT": a rate per lot
  CommKindTwoRates = 7,       // "_TRADE_MAX_1SEC": a rate by trade and one per security
};

struct TClientCommSettings {
  int CommKind = CommKindFixed;
  bool HasClassRate = false;   // the last answer was found by class (or by "DEFAULT")
  bool UsedDefaultRate = false;  // the last answer came from the "DEFAULT" key
  std::string PlanName;        // the tariff plan
  std::string BoardGroup;      // the board group last used
  bool ScaleJump = false;      // "COMMISSIONSCALEJUMP"
  bool RoundOnDayValue = false;  // "ROUNDSCALECOMMISSIONONDAYVALUE"
  bool HasBoardScale = false;  // a scale on a board was found
  bool NoRepoBroker = false;
  bool HasTPScale = false;     // the plan's scale section exists
  double FixedRate = 0.5;      // fixed rate, or the money maximum of kind 4
  double RepoBrokerCommission = 0.0;  // "RepoBroker" of "Commission"
  double TradeRate = 0.0;
  double SecRate = 0.0;
  double LotRate = 0.0;

  // Rates by class code, from keys "<class><suffix>". Rates by trade, per
  // security and per lot are held times 100; fixed rates and maxima as
  // written.
  std::map<std::string, double> fixedRates;                      // "_FIXED"
  std::map<std::string, double> tradeRates;                      // "_TRADE"
  std::map<std::string, std::pair<double, double>> tradeMaxRates;  // "_TRADE_MAX": rate, maximum
  std::map<std::string, std::pair<double, double>> twoRates;     // "_TRADE_MAX_1SEC": trade, security
  std::map<std::string, double> lotRates;                        // "_TRADELOT"
  std::map<std::string, double> secRates;                        // "_1SEC"
  std::set<std::string> repoBrokerClasses;                       // "RepoBroker_<class>"
  TRepoPerDayCommissionStorage RepoPerDay;                       // "RepoPerDayCommission_<class>"
  TRepoScaleCommissionStorage RepoScale;                         // "RepoScale_<class>_<term>"

  // Reads every key of a commission section: repo rows, rates by class
  // suffix and repo broker classes. A key whose value does not fit its
  // suffix (one number where two are needed) is dropped and the walk goes
  // on. Sets HasClassRate when any rate was read.
  void ParseClassRates(const TIniKeyMap& keys);

  // Looks the code up in the maps in the order fixed, trade, trade-max, per
  // security, per lot, two rates; on a hit sets CommKind and its rate
  // fields and returns true.
  bool ApplyClassRate(const std::string& classCode);
  // The same for the key "DEFAULT", in the order trade-max, two rates,
  // fixed, trade, per security, per lot.
  bool ApplyDefaultRate();
  // True when the class has a repo broker class entry or a repo row.
  bool IsRepoClass(const std::string& classCode) const;
  bool HasAnyRate() const;
};

}  // namespace DL
