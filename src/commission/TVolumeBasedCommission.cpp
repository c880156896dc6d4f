#include "commission/TVolumeBasedCommission.h"

#include <cmath>
#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/ResultCodes.h"
#include "base/Numbers.h"

namespace DL {

namespace {

constexpr const char* kClassesKey = "Classes";
constexpr std::size_t kClassCodeMax = 12;
// Commission values are money: steps and bounds compare within 0.1.
constexpr double kMoneyTolerance = 0.1;

bool IsKnownSide(ESide side) { return side == sdBoth || side == sdBuy || side == sdSell; }
bool IsKnownType(ECommType type) { return type == ctFixed || type == ctTradeMax || type == ctTradeMin; }

bool ReadNumber(const std::string& text, double& out) {
  const std::string t = TrimStr(text);
  if (t.empty()) return false;
  char* end = nullptr;
  const double v = std::strtod(t.c_str(), &end);
  if (end == t.c_str() || *end != '\0' || !std::isfinite(v)) return false;
  out = v;
  return true;
}

// "volume", "volume_B" or "volume_S".
bool ReadStepKey(const std::string& key, double& volume, ESide& side) {
  std::string text = TrimStr(key);
  side = sdBoth;
  const std::size_t cut = text.rfind('_');
  if (cut != std::string::npos) {
    const std::string letter = StrUpper(text.substr(cut + 1));
    if (letter.size() != 1) return false;
    side = CharToEnumSide(letter[0]);
    if (side == sdUndefined) return false;
    text.resize(cut);
  }
  return ReadNumber(text, volume);
}

// "KIND,rate,amount".
bool ReadStepValue(const std::string& value, ECommType& type, double& rate, double& amount) {
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.size() != 3) return false;
  type = TCommType(TrimStr(items[0]));
  return ReadNumber(items[1], rate) && ReadNumber(items[2], amount);
}

}  // namespace

void TVolumeBasedCommission::RefreshFirstClass() { FirstClass = m_classes.empty() ? std::string() : *m_classes.begin(); }

void TVolumeBasedCommission::Set(const std::set<std::string>& classes) {
  if (classes.count(AllMark) != 0)
    m_classes = {AllMark};
  else
    m_classes = classes;
  RefreshFirstClass();
}

bool TVolumeBasedCommission::AddClass(const std::string& classCode) {
  if (classCode.empty() || m_classes.count(AllMark) != 0) return false;
  if (classCode == AllMark) {
    m_classes = {AllMark};
  } else if (!m_classes.insert(classCode).second) {
    return false;
  }
  RefreshFirstClass();
  return true;
}

bool TVolumeBasedCommission::RemoveClass(const std::string& classCode) {
  if (m_classes.erase(classCode) == 0) return false;
  RefreshFirstClass();
  return true;
}

bool TVolumeBasedCommission::IsClassInList(const std::string& classCode) const {
  return m_classes.count(classCode) != 0 || m_classes.count(AllMark) != 0;
}

int TVolumeBasedCommission::AddSetting(double volume, ESide side, ECommType type, double rate, double amount) {
  if (!IsKnownSide(side) || !IsKnownType(type) || volume < 0.0 || rate < 0.0 || amount < 0.0)
    return ZDL_BAD_ARGUMENT;
  m_rates[volume][side].Set(type, rate, amount);
  return ZDL_OK;
}

std::vector<VolumeAndSideToTypeAndRate> TVolumeBasedCommission::GetAllSettings() const {
  std::vector<VolumeAndSideToTypeAndRate> out;
  for (const auto& [volume, sides] : m_rates)
    for (const auto& [side, t] : sides) out.push_back({volume, side, t});
  return out;
}

TypeAndRate TVolumeBasedCommission::GetEffectiveTypeAndRate(double volume, ESide side) const {
  for (auto step = m_rates.rbegin(); step != m_rates.rend(); ++step) {
    if (MIsLT(volume, step->first)) continue;
    auto entry = step->second.find(side);
    if (entry == step->second.end()) entry = step->second.find(sdBoth);
    if (entry != step->second.end()) return entry->second;
  }
  return TypeAndRate(ctUndefined, 0.0, 0.0);
}

double TVolumeBasedCommission::CalcCommByType(double value, short scale, const TypeAndRate& t) {
  const double a = t.Amount * pow10(scale);
  const double v = value * t.Rate / 100.0;
  switch (t.CommType) {
    case ctFixed:
      return v;
    case ctTradeMax:
      return a > v ? a : v;
    case ctTradeMin:
      return a < v ? a : v;
    default:
      return 0.0;
  }
}

double TVolumeBasedCommission::CalcCommByTypeAndSide(const TSideMap& sides, ESide side, short scale,
                                                     TypeAndRate& out, double value) {
  auto entry = sides.find(side);
  if (entry == sides.end()) entry = sides.find(sdBoth);
  if (entry == sides.end()) return 0.0;
  out = entry->second;
  return CalcCommByType(value, scale, out);
}

void TVolumeBasedCommission::FillNonZeroRates(double volume, const TypeAndRate& t, short scale,
                                              TFilteredRates& out) {
  if (MIsZero(t.Rate) && MIsZero(t.Amount)) return;
  const double tolerance = 1.0 / pow10(scale + 1);
  for (const auto& kept : out)
    if (MIsEqual(kept.first, volume, tolerance)) return;
  out.emplace(volume, t);
}

void TVolumeBasedCommission::GetFilteredRatesList(ESide side, short scale, TFilteredRates& out) const {
  for (const auto& [volume, sides] : m_rates) {
    auto entry = sides.find(side);
    if (entry == sides.end()) entry = sides.find(sdBoth);
    if (entry == sides.end()) continue;
    FillNonZeroRates(volume, entry->second, scale, out);
  }
}

double TVolumeBasedCommission::CalcMaxCommValue(double value, ESide side, short scale) const {
  if (m_rates.empty()) return 0.0;
  TFilteredRates steps;
  GetFilteredRatesList(side, scale, steps);
  const double p = pow10(scale);
  double maximum = 0.0;
  bool first = true;
  for (auto step = steps.begin(); step != steps.end(); ++step) {
    if (MIsLE(value, step->first * p - 1.0, kMoneyTolerance)) break;
    const auto next = std::next(step);
    double w = value;
    if (next != steps.end()) {
      double bound = next->first * p - 1.0;
      if (bound <= 0.0) bound = 0.0;
      w = MIsLT(value, bound, kMoneyTolerance) ? value : bound;
    }
    const double c = CalcCommByType(w, scale, step->second);
    if (first || MIsGT(c, maximum, kMoneyTolerance)) maximum = c;
    first = false;
  }
  return maximum;
}

void TVolumeBasedCommission::ParseFromSection(const TIniKeyMap& keys, TIniKeyMap& unread) {
  *this = TVolumeBasedCommission();
  for (const auto& [key, value] : keys) {
    if (IsSameSettingsName(TrimStr(key), kClassesKey)) {
      std::set<std::string> classes;
      bool read = true;
      for (const std::string& item : BoardListToVector(value, ',')) {
        const std::string code = TrimStr(item);
        if (code.empty()) continue;
        if (code.size() > kClassCodeMax) read = false;
        classes.insert(code);
      }
      // A list with no class says nothing: it stays as written.
      if (read && !classes.empty())
        Set(classes);
      else
        unread[key] = value;
      continue;
    }
    double volume = 0.0, rate = 0.0, amount = 0.0;
    ESide side = sdBoth;
    ECommType type = ctUndefined;
    // A second line for a step already read (the same volume written another
    // way) stays as written, so that neither is lost.
    const bool read = ReadStepKey(key, volume, side) && ReadStepValue(value, type, rate, amount) &&
                      !(m_rates.count(volume) != 0 && m_rates.at(volume).count(side) != 0) &&
                      AddSetting(volume, side, type, rate, amount) == ZDL_OK;
    if (!read) unread[key] = value;
  }
}

std::string TVolumeBasedCommission::ToSectionBody() const {
  std::string out;
  if (!m_classes.empty()) {
    out += kClassesKey;
    out += '=';
    bool firstItem = true;
    for (const std::string& code : m_classes) {
      if (!firstItem) out += ',';
      out += code;
      firstItem = false;
    }
    out += '\n';
  }
  for (const auto& [volume, sides] : m_rates)
    for (const auto& [side, t] : sides) {
      out += DoubleToString(volume);
      if (side != sdBoth) {
        out += '_';
        out += EnumSideToStr(side);
      }
      out += '=';
      out += TCommType(t.CommType).ToString();
      out += ',';
      out += DoubleToString(t.Rate);
      out += ',';
      out += DoubleToString(t.Amount);
      out += '\n';
    }
  return out;
}

}  // namespace DL
