#include "base/KeyParsers.h"

#include <cstdlib>

#include "base/CodeLengths.h"
#include "base/Dates.h"
#include "base/TextHelpers.h"

namespace DL::Utils {
namespace {

// Every marker word that may follow a list in a key, upper-cased.
constexpr const char* kKeyMarkers[] = {
    "_CLASSLIST_", "_INSTRUMENTS_", "_INSTR_", "_INTERVAL_", "_TIME_", "_SIDE_", "_ASSETTYPE_",
    "_SETTLEMENTCURRENCY_", "_FACEVALUECURRENCY_", "_REPOTERM_", "_RATETYPE_", "_TYPE_",
};

size_t FindMarker(const std::string& upperKey, const char* marker) {
  return upperKey.find(StrUpper(marker));
}

// Where the text that starts at from ends: at the next marker word or the end.
size_t EndOfPart(const std::string& upperKey, size_t from) {
  size_t end = upperKey.size();
  for (const char* m : kKeyMarkers) {
    const size_t p = upperKey.find(m, from);
    if (p != std::string::npos && p < end) end = p;
  }
  return end;
}

// Splits a list part into codes of at most 12 characters; false on a longer one.
bool SplitCodes(std::string_view part, std::set<std::string>& out) {
  std::set<std::string> codes;
  ParseRowWithDelimsToListRows(part, ',', codes);
  for (const std::string& c : codes)
    if (IsRowLengthGreaterMaxLength(c.c_str(), MaxSecCodeLength)) return false;
  out = std::move(codes);
  return true;
}

// The part of the key behind the marker, up to the next marker.
bool PartBehind(std::string_view key, const std::string& upperKey, const char* marker, std::string_view& part,
                size_t& markerPos) {
  const size_t pos = FindMarker(upperKey, marker);
  if (pos == std::string::npos) return false;
  const size_t from = pos + std::string_view(marker).size();
  part = key.substr(from, EndOfPart(upperKey, from) - from);
  markerPos = pos;
  return true;
}

// Position of the security marker, the long form first; sets the marker's length.
size_t FindSecMarker(const std::string& upperKey, size_t& markerLength) {
  size_t pos = FindMarker(upperKey, InstrumentsMarker);
  markerLength = std::string_view(InstrumentsMarker).size();
  if (pos == std::string::npos) {
    pos = FindMarker(upperKey, InstrMarker);
    markerLength = std::string_view(InstrMarker).size();
  }
  return pos;
}

}  // namespace

bool GetIntervalFromString(std::string_view key, int64_t& interval, size_t& markerPos) {
  const std::string upper = StrUpper(key);
  std::string_view part;
  size_t pos = 0;
  if (!PartBehind(key, upper, IntervalMarker, part, pos)) return false;
  int64_t v = 0;
  if (!GetQtyFromString(part, v)) return false;
  interval = v;
  markerPos = pos;
  return true;
}

bool GetTimeFromString(std::string_view key, TTimeInterval& interval, size_t& markerPos) {
  const std::string upper = StrUpper(key);
  std::string_view part;
  size_t pos = 0;
  if (!PartBehind(key, upper, TimeMarker, part, pos)) return false;
  if (!StrToTimeInterval(std::string(part), interval)) return false;
  markerPos = pos;
  return true;
}

bool GetQtyFromString(std::string_view text, int64_t& qty) {
  if (text.empty() || text.size() > 18) return false;  // 18 digits always fit 64 bits
  for (char c : text)
    if (c < '0' || c > '9') return false;
  qty = std::strtoll(std::string(text).c_str(), nullptr, 10);
  return true;
}

bool GetClassListFromString(std::string_view key, std::set<std::string>& classes, size_t& markerPos) {
  const std::string upper = StrUpper(key);
  std::string_view part;
  size_t pos = 0;
  if (!PartBehind(key, upper, ClassListMarker, part, pos)) return false;
  if (!SplitCodes(part, classes)) return false;
  markerPos = pos;
  return true;
}

bool GetSecListFromString(std::string_view key, std::set<std::string>& securities, size_t& markerPos) {
  const std::string upper = StrUpper(key);
  size_t length = 0;
  const size_t pos = FindSecMarker(upper, length);
  if (pos == std::string::npos) return false;
  const size_t from = pos + length;
  if (!SplitCodes(key.substr(from, EndOfPart(upper, from) - from), securities)) return false;
  markerPos = pos;
  return true;
}

bool GetClassListAndSecListFromString(std::string_view key, std::set<std::string>& classes,
                                      std::set<std::string>& securities) {
  const std::string upper = StrUpper(key);
  size_t length = 0;
  const size_t secPos = FindSecMarker(upper, length);
  if (secPos == std::string::npos) return false;
  size_t from = 0;
  const size_t classPos = FindMarker(upper, ClassListMarker);
  if (classPos != std::string::npos && classPos < secPos) from = classPos + std::string_view(ClassListMarker).size();
  std::set<std::string> c;
  std::set<std::string> s;
  size_t ignored = 0;
  if (!SplitCodes(key.substr(from, secPos - from), c)) return false;
  if (!GetSecListFromString(key, s, ignored)) return false;
  classes = std::move(c);
  securities = std::move(s);
  return true;
}

bool ParseQtyToClassListAndSecList(std::string_view key, std::string_view value, TQtyToClassListAndSecList& out) {
  TQtyToClassListAndSecList r;
  if (!GetClassListAndSecListFromString(key, r.Classes, r.Securities)) return false;
  if (!GetQtyFromString(TrimStr(value), r.Qty)) return false;
  out = std::move(r);
  return true;
}

bool ParseQtyToClassListAndSecListAndInterval(std::string_view key, std::string_view value,
                                              TQtyToClassListAndSecList& out) {
  TQtyToClassListAndSecList r;
  size_t pos = 0;
  if (!ParseQtyToClassListAndSecList(key, value, r)) return false;
  if (!GetIntervalFromString(key, r.Interval, pos)) return false;
  if (!GetTimeFromString(key, r.Time, pos)) return false;
  out = std::move(r);
  return true;
}

bool GetDeviationMiddleReject(std::string_view value, double& deviation, std::string& middle, bool& reject) {
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.size() > 3) return false;
  deviation = -1.0;
  middle.clear();
  reject = false;
  if (!items.empty() && !items[0].empty()) deviation = std::strtod(items[0].c_str(), nullptr);
  if (items.size() > 1) middle = StrUpper(items[1]);
  if (items.size() > 2) reject = items[2] == "1";
  return true;
}

bool FindStringsIntersection(const std::set<std::string>& a, const std::set<std::string>& b, std::string& found) {
  for (const std::string& s : a)
    if (b.count(s) != 0) {
      found = s;
      return true;
    }
  return false;
}

}  // namespace DL::Utils
