#pragma once
// Repo commission by class: one rate per class code and one for every other
// class. A commission section gives a class its rate with the key
// "RepoPerDayCommission_<class>" and the value "KIND,a,b" (see
// ParseRepoCommRates); the class "<ALL>" sets the rate of all other classes.
#include <map>
#include <string>

#include "commission/TRepoCommRates.h"
#include "ini/SettingsText.h"

namespace DL {

class TRepoPerDayCommissionStorage {
 public:
  using TByClass = std::map<std::string, TRepoCommRates, StringMapComparerFunc>;

  // Reads one key (the prefix compared without regard to case) and its
  // value. False, with nothing changed, for a key without the prefix or
  // without a class, or a value that does not read.
  bool ParseSettingString(const std::string& key, const std::string& value);
  // The class's rates if it has its own; otherwise the common rates unless
  // those are not set. False when neither.
  bool GetCommissionRates(const std::string& classCode, TRepoCommRates* out) const;
  // Sets the class's rates ("<ALL>": the common rates).
  void SetRates(const std::string& classCode, const TRepoCommRates& rates);
  // The class has a rate of its own.
  bool HasClass(const std::string& classCode) const { return m_byClass.count(classCode) != 0; }

  const TByClass& GetByClass() const { return m_byClass; }
  const TRepoCommRates& GetCommon() const { return m_common; }
  bool operator==(const TRepoPerDayCommissionStorage&) const = default;

 private:
  TByClass m_byClass;
  TRepoCommRates m_common;  // the rates of all classes without their own
};

}  // namespace DL
