#pragma once
// Repo commission by class and term: for each class code a scale of terms
// in days, each with its rates, and one scale for every other class. A
// commission section gives one step with the key "RepoScale_<class>_<term>"
// and the value "KIND,a,b" (see ParseRepoCommRates); the class "<ALL>" fills
// the scale of all other classes. The term is read behind the last "_", so
// that a class code may hold "_" itself.
#include <cstdint>
#include <map>
#include <string>

#include "commission/TRepoCommRates.h"
#include "ini/SettingsText.h"

namespace DL {

class TRepoScaleCommissionStorage {
 public:
  using TScale = std::map<std::int16_t, TRepoCommRates>;  // term in days -> rates
  using TByClass = std::map<std::string, TScale, StringMapComparerFunc>;

  // Reads one key (the prefix compared without regard to case) and its
  // value. False, with nothing changed, for a key without the prefix, a
  // class or a term that is a whole number in the 16-bit range, or a value
  // that does not read.
  bool ParseSettingString(const std::string& key, const std::string& value);
  // In the class's scale if it has one, else in the common scale: the step
  // of the longest term that is at most `term`, or the shortest step when
  // every term is longer. False for an empty scale and for a step found
  // whose kind is not set.
  bool GetCommissionScaleRates(const std::string& classCode, short term, TRepoCommRates* out) const;
  // Sets one step of the class's scale ("<ALL>": of the common scale).
  void SetStep(const std::string& classCode, std::int16_t term, const TRepoCommRates& rates);
  // The class has a scale of its own.
  bool HasClass(const std::string& classCode) const { return m_byClass.count(classCode) != 0; }

  const TByClass& GetByClass() const { return m_byClass; }
  const TScale& GetCommon() const { return m_common; }
  bool operator==(const TRepoScaleCommissionStorage&) const = default;

 private:
  TByClass m_byClass;
  TScale m_common;  // the scale of all classes without their own
};

}  // namespace DL
