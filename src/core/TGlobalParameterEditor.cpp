#include "core/TGlobalParameterEditor.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/ResultCodes.h"
#include "base/TextHelpers.h"
#include "ini/IniSectCodes.h"

namespace DL {

namespace {

const std::string& GeneralSection() {
  static const std::string name(IniSectName(iscGeneral));
  return name;
}

// Each coefficient is -1 (none) or above 0 and at most 100, as the load reads it.
bool IsDiscCoeffAllowed(double coeff) { return coeff == -1.0 || (coeff > 0.0 && coeff <= 100.0); }

}  // namespace

void TGlobalParameterEditor::TouchGeneral() { m_hub.m_parser->FindOrCreateIniSection(GeneralSection()); }

// ---- Raw parameters of "General" ----

int TGlobalParameterEditor::GetRaw(const char* key, bool* out) const {
  int value = 0;
  const int rc = GetRaw(key, &value);
  if (rc == ZDL_OK) *out = value != 0;
  return out == nullptr ? ZDL_BAD_ARGUMENT : rc;
}

int TGlobalParameterEditor::GetRaw(const char* key, int* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniKeyMap* general = m_hub.m_parser->FindIniSectionRef(GeneralSection());
  if (general == nullptr) return ZDL_NOT_FOUND;
  auto param = general->find(key);
  *out = param == general->end() ? 0 : static_cast<int>(std::strtol(param->second.c_str(), nullptr, 10));
  return ZDL_OK;
}

int TGlobalParameterEditor::GetRaw(const char* key, double* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniKeyMap* general = m_hub.m_parser->FindIniSectionRef(GeneralSection());
  if (general == nullptr) return ZDL_NOT_FOUND;
  auto param = general->find(key);
  if (param == general->end()) return ZDL_NOT_FOUND;
  *out = StrToDouble(param->second.c_str());
  return ZDL_OK;
}

int TGlobalParameterEditor::GetRaw(const char* key, ZDL_VolatilityChangeScenarios* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniKeyMap* general = m_hub.m_parser->FindIniSectionRef(GeneralSection());
  if (general == nullptr) return ZDL_NOT_FOUND;
  auto param = general->find(key);
  if (param == general->end()) return ZDL_NOT_FOUND;
  // "up,down", read as the load reads it.
  const std::string_view text(param->second);
  const std::size_t comma = text.find(',');
  out->value1 = StrToDouble(TrimStr(text.substr(0, comma)).c_str());
  out->value2 = comma == std::string_view::npos ? 0.0 : StrToDouble(TrimStr(text.substr(comma + 1)).c_str());
  return ZDL_OK;
}

int TGlobalParameterEditor::SetRawFlag(const char* key, int flag) {
  if (flag < 0 || flag > 1) return ZDL_BAD_ARGUMENT;
  return SetRawInt(key, flag);
}

int TGlobalParameterEditor::SetRawInt(const char* key, int value) {
  auto general = m_hub.m_parser->FindOrCreateIniSection(GeneralSection());
  // 0 is what a missing parameter reads as: the parameter goes.
  if (value != 0)
    m_hub.m_parser->SetIniParam(general, key, std::to_string(value));
  else
    general->second.erase(key);
  return ZDL_OK;
}

int TGlobalParameterEditor::SetRawNumber(const char* key, double value) {
  auto general = m_hub.m_parser->FindOrCreateIniSection(GeneralSection());
  m_hub.m_parser->SetIniParam(general, key, DoubleToString(value));
  return ZDL_OK;
}

int TGlobalParameterEditor::SetRawScenarios(const char* key, ZDL_VolatilityChangeScenarios value) {
  if (!std::isfinite(value.value1) || !std::isfinite(value.value2)) return ZDL_BAD_ARGUMENT;
  auto general = m_hub.m_parser->FindOrCreateIniSection(GeneralSection());
  m_hub.m_parser->SetIniParam(general, key, DoubleToString(value.value1) + "," + DoubleToString(value.value2));
  return ZDL_OK;
}

// ---- Rows of the general settings ----

int TGlobalParameterEditor::GetGeneral(EGeneralParam code, bool* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  if (kGeneralParamInfos[code].kind == EGeneralParamKind::Int) {
    int value = 0;
    const int rc = m_hub.m_general.GetIntParam(code, value);
    if (rc == ZDL_OK) *out = value != 0;
    return rc;
  }
  return m_hub.m_general.GetFlagParam(code, *out);
}

int TGlobalParameterEditor::GetGeneral(EGeneralParam code, int* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  return m_hub.m_general.GetIntParam(code, *out);
}

int TGlobalParameterEditor::GetGeneral(EGeneralParam code, double* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  return m_hub.m_general.GetNumberParam(code, *out);
}

int TGlobalParameterEditor::GetGeneral(EGeneralParam code, ZDL_BaseDiscCoeff* out) const {
  if (out == nullptr || code != gpBaseDiscCoeff) return ZDL_BAD_ARGUMENT;
  const std::vector<double>& coeffs = m_hub.m_general.GetBaseDiscCoeffs();
  auto at = [&coeffs](std::size_t i) { return i < coeffs.size() ? coeffs[i] : -1.0; };
  *out = ZDL_BaseDiscCoeff{at(0), at(1), at(2)};
  return ZDL_OK;
}

int TGlobalParameterEditor::SetGeneralFlag(EGeneralParam code, int flag) {
  if (flag < 0 || flag > 1) return ZDL_BAD_ARGUMENT;
  const int rc = kGeneralParamInfos[code].kind == EGeneralParamKind::Int
                     ? m_hub.m_general.SetIntParam(code, flag)
                     : m_hub.m_general.SetFlagParam(code, flag == 1);
  if (rc == ZDL_OK) TouchGeneral();
  return rc;
}

int TGlobalParameterEditor::SetGeneralInt(EGeneralParam code, int value) {
  const int rc = m_hub.m_general.SetIntParam(code, value);
  if (rc == ZDL_OK) TouchGeneral();
  return rc;
}

int TGlobalParameterEditor::SetGeneralNumber(EGeneralParam code, double value) {
  const int rc = m_hub.m_general.SetNumberParam(code, value);
  if (rc == ZDL_OK) TouchGeneral();
  return rc;
}

int TGlobalParameterEditor::SetGeneralDiscCoeff(EGeneralParam code, ZDL_BaseDiscCoeff value) {
  const double coeffs[] = {value.coeff1, value.coeff2, value.coeff3};
  for (double coeff : coeffs)
    if (!IsDiscCoeffAllowed(coeff)) return ZDL_BAD_ARGUMENT;
  // Positions count: a missing coefficient before a given one stays as an
  // empty item; trailing ones are left out, and none at all empties the text.
  std::size_t count = 3;
  while (count > 0 && coeffs[count - 1] == -1.0) --count;
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += ',';
    if (coeffs[i] != -1.0) text += DoubleToString(coeffs[i]);
  }
  const int rc = m_hub.m_general.SetTextParam(code, text);
  if (rc == ZDL_OK) TouchGeneral();
  return rc;
}

// ---- Typed parameters of "General" ----

int TGlobalParameterEditor::GetUniversal(int number, int* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  return m_hub.m_universalParser->GetIntParamFromGlobalSection(*out, iscGeneral, number);
}

int TGlobalParameterEditor::GetUniversal(int number, char** out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  char value = 0;
  const int rc = m_hub.m_universalParser->GetCharParamFromGlobalSection(value, iscGeneral, number);
  if (rc != ZDL_OK) return rc;
  // No character set reads as the empty text.
  char* text = m_hub.GetMemory().ConstructString(2);
  text[0] = value;
  text[1] = '\0';
  *out = text;
  return ZDL_OK;
}

int TGlobalParameterEditor::SetUniversalInt(int number, int value) {
  const int rc = m_hub.m_universalParser->SetIntParamToGlobalSection(value, iscGeneral, number);
  if (rc == ZDL_OK) TouchGeneral();
  return rc;
}

int TGlobalParameterEditor::SetUniversalChar(int number, const char* value) {
  if (value == nullptr || std::strlen(value) > 1) return ZDL_BAD_ARGUMENT;
  const int rc = m_hub.m_universalParser->SetCharParamToGlobalSection(value[0], iscGeneral, number);
  if (rc == ZDL_OK) TouchGeneral();
  return rc;
}

// ---- Groups removed whole ----

int TGlobalParameterEditor::RemoveBaseDiscCoeffFromGlobal() {
  if (m_hub.m_general.GetBaseDiscCoeffs().empty()) return ZDL_NOT_FOUND;
  return m_hub.m_general.SetTextParam(gpBaseDiscCoeff, std::string());
}

int TGlobalParameterEditor::RemoveVolatilityChangeScenariosFromGlobal() {
  const std::string key = TIniParser::GetIniParamCode(TIniParser::ipcVolatilityChangeScenarios);
  TIniKeyMap* general = m_hub.m_parser->FindIniSectionRef(GeneralSection());
  if (general == nullptr || general->erase(key) == 0) return ZDL_NOT_FOUND;
  return ZDL_OK;
}

// ---- Values the hub parses itself ----

int TGlobalParameterEditor::GetHub(THubValue value, bool* out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  switch (value) {
    case THubValue::ExtendedSubClient:
      *out = m_hub.m_extendedSubClient;
      return ZDL_OK;
    case THubValue::ManagerCanClosePos:
      *out = m_hub.m_prohibitOrders.managerCanClosePos;
      return ZDL_OK;
    case THubValue::UseCommissionScale:
      return GetGeneral(gpUseCommissionScale, out);
  }
  return ZDL_BAD_ARGUMENT;
}

int TGlobalParameterEditor::SetHubFlag(THubValue value, int flag) {
  if (flag < 0 || flag > 1) return ZDL_BAD_ARGUMENT;
  switch (value) {
    case THubValue::ExtendedSubClient:
      m_hub.m_extendedSubClient = flag == 1;
      TouchGeneral();
      return ZDL_OK;
    case THubValue::ManagerCanClosePos:
      m_hub.m_prohibitOrders.managerCanClosePos = flag == 1;
      m_hub.m_parser->FindOrCreateIniSection(std::string(IniSectName(iscProhibitOrders)));
      return ZDL_OK;
    case THubValue::UseCommissionScale: {
      // The scale is switched on only over a firm's scale with rows.
      if (m_hub.m_parser->FindIniSectionRef(GeneralSection()) == nullptr) return ZDL_NOT_FOUND;
      const TCommScale* scale = m_hub.GetCommScalesCache().GlobalSettings();
      if (scale == nullptr) return ZDL_NOT_FOUND;
      if (flag == 1 && scale->IsEmpty()) return ZDL_SCALE_HAS_NO_ROWS;
      return m_hub.m_general.SetIntParam(gpUseCommissionScale, flag);
    }
  }
  return ZDL_BAD_ARGUMENT;
}

}  // namespace DL
