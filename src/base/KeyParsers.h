#pragma once
// Parsers of settings keys such as "TQBR,SMAL_INSTR_SBER,GAZP" or
// "_ClassList_TQBR_Instruments_SBER_INTERVAL_60_TIME_10:00-12:00".
//
// Each parser looks for its marker word without regard to case and reports
// the position at which the marker began, so that the caller can split the
// key there. A list runs from behind its marker to the next marker word of a
// key (or to the end) and is split at ","; items are trimmed, empty items
// dropped. A class or security code longer than 12 characters makes the
// parser fail: such a line is not read.

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "base/PlainRecords.h"

namespace DL::Utils {

inline constexpr const char* IntervalMarker = "_INTERVAL_";
inline constexpr const char* TimeMarker = "_TIME_";
inline constexpr const char* ClassListMarker = "_ClassList_";
inline constexpr const char* InstrumentsMarker = "_Instruments_";
// The short security marker of restriction keys: "classes_INSTR_securities".
inline constexpr const char* InstrMarker = "_INSTR_";

// The decimal number behind "_INTERVAL_".
bool GetIntervalFromString(std::string_view key, int64_t& interval, size_t& markerPos);
// The interval "HH:MM-HH:MM" behind "_TIME_".
bool GetTimeFromString(std::string_view key, TTimeInterval& interval, size_t& markerPos);
// Digits only, as a quantity; an empty text or any other character fails.
bool GetQtyFromString(std::string_view text, int64_t& qty);
// The class list behind "_ClassList_".
bool GetClassListFromString(std::string_view key, std::set<std::string>& classes, size_t& markerPos);
// The security list behind "_Instruments_", or else behind "_INSTR_".
bool GetSecListFromString(std::string_view key, std::set<std::string>& securities, size_t& markerPos);
// The class list (behind "_ClassList_" if the key has it, else from the start
// of the key) up to the security marker, then the security list.
bool GetClassListAndSecListFromString(std::string_view key, std::set<std::string>& classes,
                                      std::set<std::string>& securities);
// Classes and securities from the key, the quantity from the value.
bool ParseQtyToClassListAndSecList(std::string_view key, std::string_view value, TQtyToClassListAndSecList& out);
// The same, and the key's "_INTERVAL_" number and "_TIME_" interval, all required.
bool ParseQtyToClassListAndSecListAndInterval(std::string_view key, std::string_view value,
                                              TQtyToClassListAndSecList& out);

// A price limit value "deviation,middle,reject": the deviation in per cent by
// strtod (-1.0 if empty), the middle price type's name upper-cased (empty if
// absent; the caller maps it, LAST by default), reject true when the third
// item is "1". More than three items fail.
bool GetDeviationMiddleReject(std::string_view value, double& deviation, std::string& middle, bool& reject);

// The first string (in the order of a) that stands in both sets.
bool FindStringsIntersection(const std::set<std::string>& a, const std::set<std::string>& b, std::string& found);

}  // namespace DL::Utils
