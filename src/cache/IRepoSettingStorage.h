#pragma once
// The common frame of the repo and settlement storages: the rows as the
// settings text gives them (kept for editing and writing back) and an index
// of numbers built from them, on which a check costs a few small lookups.
// Each dimension of a row (counterparty, currency, class, ...) keeps its
// distinct strings in one sorted vector; the index holds positions in those
// vectors instead of the strings.
#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace DL {

// The distinct strings of one dimension, sorted, and where "<ALL>" stands
// among them (-1 when it is absent).
struct TRepoSettingDimension {
  std::vector<std::string> values;
  long allPos = -1;

  void Clear() {
    values.clear();
    allPos = -1;
  }
  // Enters a string (unsorted); Finish sorts, drops repeats and finds "<ALL>".
  void Add(const std::string& value) { values.push_back(value); }
  void Finish();
  // The position of the string, or -1.
  long Find(std::string_view value) const;
};

// The position of `value` in the sorted vector, or -1.
long GetVectorElemIndex(const std::vector<std::string>& sorted, std::string_view value);
// Appends the index when it is 0 or above.
void AddIndexToListIfValid(std::vector<long>& list, long index);
// The positions that answer for a given string of a dimension: its own
// position and that of "<ALL>", each if present. With allowAll false only
// the string's own position.
std::vector<long> ApplicablePositions(const TRepoSettingDimension& dim, std::string_view value, bool allowAll = true);

// Finds the marks of a key in order in its upper-case form and cuts the
// texts between them (trimmed). Every mark must be there, in the given
// order, and no text may be empty (the last one may, if lastMayBeEmpty);
// else false. marks[0] must open the key; the last text runs to the end.
bool SplitKeyByMarks(std::string_view key, const std::vector<std::string_view>& marksUp,
                     std::vector<std::string>& texts, bool lastMayBeEmpty = false);
// A list of codes split at ","; items trimmed, empty ones dropped.
std::set<std::string> SplitCodeSet(std::string_view text);

template <class TRow, class TIndex>
class IRepoSettingStorage {
 public:
  using TRows = std::vector<TRow>;

  virtual ~IRepoSettingStorage() = default;

  // Parses one line (the key behind the parameter or section prefix, and its
  // value) and appends a row; false, and nothing appended, for a line that
  // does not fit.
  virtual bool ParseSettingString(const std::string& key, const std::string& value) = 0;
  // Builds the index from the rows; to be called after the rows change.
  virtual void RebuildSettingsIndex() = 0;

  TRows& GetRestriction() { return m_rows; }
  const TRows& GetConstRestriction() const { return m_rows; }
  // Replaces the rows; the index is stale until RebuildSettingsIndex.
  void SetRestriction(const TRows& rows) { m_rows = rows; }
  void Clear() {
    m_rows.clear();
    m_index = TIndex();
  }
  bool Empty() const { return m_rows.empty(); }
  const TIndex& GetIndex() const { return m_index; }

  // Two storages are equal when their rows are (the index follows the rows).
  bool operator==(const IRepoSettingStorage& o) const { return m_rows == o.m_rows; }

 protected:
  TRows m_rows;
  TIndex m_index;
};

}  // namespace DL
