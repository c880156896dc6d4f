#include "cache/TClientMarginRestrictionsBody.h"

#include "base/Numbers.h"

namespace DL {

int ConvertIniValueToIntSetting(int read, int base, int global, bool first) {
  if (read == kMarginInherit) return first ? global : base;
  if (read == kMarginDefault) return first ? kMarginDefault : global;
  return read;
}

double ConvertIniValueToDoubleSetting(double read, double base, double global, bool first) {
  if (MIsEqual(read, static_cast<double>(kMarginInherit))) return first ? global : base;
  if (MIsEqual(read, static_cast<double>(kMarginDefault))) return first ? static_cast<double>(kMarginDefault) : global;
  return read;
}

bool ConvertIniValueToBoolSetting(int read, bool base, bool global, bool first) {
  if (read == kMarginInherit) return first ? global : base;
  if (read == kMarginDefault) return first ? true : global;
  return read != 0;
}

int InheritIntSettingFromBaseSection(int read, int base) { return read == kMarginInherit ? base : read; }

bool InheritBoolSettingFromBaseSection(int read, bool base) { return read == kMarginInherit ? base : read != 0; }

int ConvertIniNegativeMoneyToShortToEnum(int value) { return value == 1 || value == 2 ? value : 0; }

}  // namespace DL
