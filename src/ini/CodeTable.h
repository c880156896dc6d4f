#pragma once
// Filling and checking of the name tables of the settings catalogue. A table
// is given as rows of (code number, name); filling places each name at its
// number and refuses a table in which some number has no name, since every
// layer names sections and parameters through these numbers.
#include <cstddef>
#include <initializer_list>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace DL {

struct TCodeName {
  int code;          // place in the table, from 0
  const char* name;  // text as written in the settings; never null
};

// Fills `table` with `rowCount` entries, each row at its code, and then
// `tableUp` with the upper-case form of each. Returns the empty text on
// success. If some number from 0 to rowCount-1 is left empty (no row, an
// empty name, or a row whose code is out of range), returns `message`, the
// empty numbers joined by ", ", and "."; `tableUp` then stays untouched.
// A table that is already filled is left as it is, and the result is empty.
std::string FillCodeTable(std::span<const TCodeName> rows, std::size_t rowCount,
                          std::string_view message, std::vector<std::string>& table,
                          std::vector<std::string>& tableUp);

// Fills the price type tables: `byName` maps each name to its number, and
// `byNumber` has `rowCount` rows, row 0 empty (no price type) and the others
// named by their rows. Returns the empty text on success; otherwise
// "Not filled \"Price Type -> Price Type Id\".\n" when `byName` does not end
// with rowCount-1 names, and "Not filled \"Price Types\" with numbers: ", the
// empty numbers from 1 on and "." when `byNumber` has holes. Both tables
// already filled: nothing is done.
std::string FillPriceTypeTables(std::span<const TCodeName> rows, std::size_t rowCount,
                                std::map<std::string, int>& byName,
                                std::vector<std::string>& byNumber);

// Gathers the texts of the fillers into one CErrors and throws it when any
// is not empty: a hole in a table is a fault of the program and stops every
// parser from being built.
void ThrowIfCodeTableErrors(std::initializer_list<std::string> texts);

}  // namespace DL
