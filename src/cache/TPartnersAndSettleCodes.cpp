#include "cache/TPartnersAndSettleCodes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "base/CodeLengths.h"
#include "base/TextHelpers.h"
#include "ini/TIniParser.h"

namespace DL {

namespace {

bool IsReservedClassName(const std::string& name) {
  static const TIniParser::EIniParamCodeNum kReserved[] = {
      TIniParser::ipcReserved_ALL, TIniParser::ipcReserved_ALL_NDM, TIniParser::ipcReserved_ALL_NDM_CCP,
      TIniParser::ipcReserved_ALL_REPO, TIniParser::ipcReserved_ALL_REPO_CCP};
  return std::any_of(std::begin(kReserved), std::end(kReserved),
                     [&](TIniParser::EIniParamCodeNum code) { return TIniParser::GetIniParamCode(code) == name; });
}

// The part of `text` from `from` to the nearer of the two marker positions
// that lie behind it (npos for a missing marker).
std::string_view PartUpTo(std::string_view text, std::size_t from, std::size_t a, std::size_t b) {
  std::size_t end = text.size();
  if (a != std::string_view::npos && a >= from) end = std::min(end, a);
  if (b != std::string_view::npos && b >= from) end = std::min(end, b);
  return text.substr(from, end - from);
}

}  // namespace

bool TPartnersAndSettleCodes::AddLine(std::string_view key, std::string_view value) {
  const std::string keyUp = StrUpper(key);
  const std::size_t sidePos = keyUp.find(kSideMarker);
  const std::size_t termPos = keyUp.find(kTermMarker);
  TKey k;
  const std::string_view classText = PartUpTo(key, 0, sidePos, termPos);
  for (std::string& cls : BoardListToVector(classText, ',')) {
    if (!IsReservedClassName(cls) && IsClassCodeLengthGreaterMaxLength(cls)) return false;
    k.classes.push_back(std::move(cls));
  }
  if (k.classes.empty()) return false;
  if (sidePos != std::string::npos) {
    const std::string side(PartUpTo(keyUp, sidePos + std::strlen(kSideMarker), termPos, std::string::npos));
    if (side == "B")
      k.side = sdBuy;
    else if (side == "S")
      k.side = sdSell;
    else
      return false;
  }
  if (termPos != std::string::npos) {
    const std::string term(PartUpTo(keyUp, termPos + std::strlen(kTermMarker), sidePos, std::string::npos));
    k.hasTerm = true;
    k.term = std::strtoll(term.c_str(), nullptr, 10);
  }
  const std::size_t separator = value.find(kSettleCodesSeparator);
  TCodes codes;
  for (std::string& partner : BoardListToVector(value.substr(0, separator), ',')) {
    if (IsPartnerCodeLengthGreaterMaxLength(partner)) return false;
    codes.partners.push_back(std::move(partner));
  }
  if (separator != std::string_view::npos)
    for (std::string& settle : BoardListToVector(value.substr(separator + 1), ',')) {
      if (IsSettleCodeLengthGreaterMaxLength(settle)) return false;
      codes.settleCodes.push_back(std::move(settle));
    }
  if (codes.partners.empty() && codes.settleCodes.empty()) return false;
  m_items[std::move(k)] = std::move(codes);
  return true;
}

std::string TPartnersAndSettleCodes::KeyToStr(const TKey& key) {
  std::string out = ListToString(key.classes);
  if (key.side == sdBuy || key.side == sdSell) {
    out += kSideMarker;
    out += key.side == sdBuy ? "B" : "S";
  }
  if (key.hasTerm) {
    out += kTermMarker;
    out += std::to_string(key.term);
  }
  return out;
}

std::string TPartnersAndSettleCodes::CodesToStr(const TCodes& codes) {
  std::string out = ListToString(codes.partners);
  if (!codes.settleCodes.empty()) {
    out += kSettleCodesSeparator;
    out += ListToString(codes.settleCodes);
  }
  return out;
}

}  // namespace DL
