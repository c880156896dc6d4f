#include "ini/CodeTable.h"

#include "base/TextHelpers.h"
#include "support/Errors.h"

namespace DL {
namespace {

// ", "-joined numbers of the empty rows from `first` on; empty if none.
std::string EmptyRowNumbers(const std::vector<std::string>& table, std::size_t first) {
  std::string numbers;
  for (std::size_t i = first; i < table.size(); ++i) {
    if (!table[i].empty()) continue;
    if (!numbers.empty()) numbers += ", ";
    numbers += std::to_string(i);
  }
  return numbers;
}

// Places each row at its code; rows out of range are dropped, leaving a hole.
void PlaceRows(std::span<const TCodeName> rows, std::vector<std::string>& table) {
  for (const TCodeName& row : rows) {
    if (row.code < 0 || static_cast<std::size_t>(row.code) >= table.size()) continue;
    table[row.code] = row.name;
  }
}

}  // namespace

std::string FillCodeTable(std::span<const TCodeName> rows, std::size_t rowCount,
                          std::string_view message, std::vector<std::string>& table,
                          std::vector<std::string>& tableUp) {
  if (!table.empty()) return {};
  table.resize(rowCount);
  PlaceRows(rows, table);
  const std::string holes = EmptyRowNumbers(table, 0);
  if (!holes.empty()) return std::string(message) + holes + ".";
  tableUp.resize(table.size());
  for (std::size_t i = 0; i < table.size(); ++i) tableUp[i] = StrUpper(table[i]);
  return {};
}

std::string FillPriceTypeTables(std::span<const TCodeName> rows, std::size_t rowCount,
                                std::map<std::string, int>& byName,
                                std::vector<std::string>& byNumber) {
  if (!byName.empty() && !byNumber.empty()) return {};
  std::string errors;
  for (const TCodeName& row : rows) byName.emplace(row.name, row.code);
  if (byName.size() + 1 != rowCount) errors += "Not filled \"Price Type -> Price Type Id\".\n";
  byNumber.assign(rowCount, std::string());
  PlaceRows(rows, byNumber);
  if (!byNumber.empty()) byNumber[0].clear();  // number 0 is "no price type"
  const std::string holes = EmptyRowNumbers(byNumber, 1);
  if (!holes.empty()) errors += "Not filled \"Price Types\" with numbers: " + holes + ".";
  return errors;
}

void ThrowIfCodeTableErrors(std::initializer_list<std::string> texts) {
  CErrors errors;
  for (const std::string& text : texts) errors += text;
  ThrowExceptionIfErrorsOccurred(errors);
}

}  // namespace DL
