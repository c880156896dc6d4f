#pragma once
// The checked value types in use by the typed settings, one tag per meaning,
// and the complex setting section that holds rows of such values.

#include <map>
#include <string>
#include <vector>

#include "base/Numbers.h"
#include "settings/BaseTypes.h"

namespace DLTypes {

// ---- Tags: empty classes that make each use a type of its own ----

struct BTMarginType {};
struct BTNettingType {};
struct BTDerivativesAutoInclusion {};
struct BTLeverage {};
struct BTMinMarginCalcRate {};
struct BTRellativeRisk {};
struct BTThresMarginCoeff {};
struct BTBoardNone {};
struct BTInstrument {};
struct BTClient {};

// ---- Numbers ----

using TMarginType = NumClass<unsigned int, 0u, 5u, tecBadValue, BTMarginType, 0>;
using TNettingType = NumClass<unsigned int, 0u, 2u, tecBadValue, BTNettingType, 0>;
using TDerivativesAutoInclusion = NumClass<unsigned int, 0u, 1u, tecBadValue, BTDerivativesAutoInclusion, 0>;
using TLeverage = NumClass<double, 0.0, 999999999.0, tecBadValue, BTLeverage, 2>;
using TMinMarginCalcRate = NumClass<double, 0.0, 1.0, tecBadValue, BTMinMarginCalcRate, 2>;
using TRellativeRisk = NumClass<double, 0.0, 1.0, tecBadValue, BTRellativeRisk, 2>;
using TThresMarginCoeff = NumClass<double, 0.0, 100.0, tecBadValue, BTThresMarginCoeff, 2>;

// ---- Strings, 0 to 13 characters ----

using TBoardName = StringClass<0, 13, tecBadName, BTBoardNone>;
using TSetName = StringClass<0, 13, tecBadName, BTInstrument>;               // name of a set of instruments
using TInstrumentName = StringClass<0, 13, tecBadInstrument, BTInstrument>;  // instrument inside a complex setting
using TClientCode = StringClass<0, 13, tecBadClient, BTClient>;

namespace BT {
// Orders leverages by their value in hundredths (DL::GetScaledLeverage), so
// that 2.0 and 2.001 are one leverage.
struct LeverageComparer {
  bool operator()(const TLeverage& a, const TLeverage& b) const {
    return DL::GetScaledLeverage(a.Get()) < DL::GetScaledLeverage(b.Get());
  }
};
}  // namespace BT

// ---- Lists ----

using TBoardList = DList<TBoardName>;
using TClientList = DList<TClientCode>;
using TLeverageList = DList<TLeverage, false, BT::LeverageComparer>;

// ---- Complex settings ----

// An instrument of a set with its relative risk and its trend to the base board.
using TInstrumentRow = ComplexKeyVal<Complex1T<TInstrumentName>, Complex2T<TRellativeRisk>,
                                     Complex3T<Enum_TrendToBaseBoard>>;

// A complex setting of a section: rows keyed by their first part.
class IComplexSettingSection {
 public:
  virtual ~IComplexSettingSection() = default;
  // Sets one row from the texts of its parts (key first). A row with the same
  // key is replaced. A refused part leaves the section unchanged.
  virtual TypeErrorCode SetKeyValueByText(const std::vector<std::string>& texts) = 0;
  // Replaces all rows. The first refused row ends with its code; the rows
  // before it stay.
  virtual TypeErrorCode SetAllSettings(const std::vector<std::vector<std::string>>& rows) = 0;
};

// Rows of one ComplexKeyVal type. A new row starts as a copy of the
// prototype, so parts a line leaves out take the prototype's values.
template <class Row>
class TComplexSettingSection : public IComplexSettingSection {
 public:
  using key_type = typename Row::key_type;

  explicit TComplexSettingSection(Row prototype = Row()) : m_prototype(std::move(prototype)) {}

  TypeErrorCode SetKeyValueByText(const std::vector<std::string>& texts) override {
    Row row = m_prototype;
    const TypeErrorCode rc = row.SetByText(texts);
    if (rc != tecSuccess) return rc;
    m_rows.insert_or_assign(row.GetKey(), row);
    return tecSuccess;
  }

  TypeErrorCode SetAllSettings(const std::vector<std::vector<std::string>>& rows) override {
    m_rows.clear();
    for (const std::vector<std::string>& texts : rows) {
      const TypeErrorCode rc = SetKeyValueByText(texts);
      if (rc != tecSuccess) return rc;
    }
    return tecSuccess;
  }

  const std::map<key_type, Row>& Rows() const { return m_rows; }
  bool Remove(const key_type& key) { return m_rows.erase(key) != 0; }

 private:
  Row m_prototype;
  std::map<key_type, Row> m_rows;
};

// The prototype of an instrument row: relative risk 1, trend direct.
inline TInstrumentRow DefaultInstrumentRow() {
  return TInstrumentRow(TInstrumentName(), TRellativeRisk(1.0), ttbbDirect);
}

}  // namespace DLTypes
