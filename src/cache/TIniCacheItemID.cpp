#include "cache/TIniCacheItemID.h"

#include <limits>

#include "base/Numbers.h"

namespace DL {

const std::string TIniCacheItemID::cch = "cc";
const std::string TIniCacheItemID::bnh = "_bn";
const std::string TIniCacheItemID::tnh = "_tn";
const std::string TIniCacheItemID::snh = "_sn";

namespace {
const char* OrEmpty(const char* text) { return text ? text : ""; }
}  // namespace

std::int32_t TIniCacheItemID::ScaleLeverage(double leverage) {
  if (!MIsGEZero(leverage)) return -1;
  const double scaled = leverage * 100 + 0.5;
  // The field is 32 bits wide; a leverage beyond it saturates rather than wraps.
  if (scaled >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
    return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(scaled);
}

TIniCacheItemID::TIniCacheItemID() { ComposeLongItemText(); }

TIniCacheItemID::TIniCacheItemID(const char* client, const char* board, const char* templ, const char* security,
                                 double leverage)
    : m_leverage(ScaleLeverage(leverage)),
      m_clientCode(OrEmpty(client)),
      m_boardName(OrEmpty(board)),
      m_templateName(OrEmpty(templ)),
      m_securityName(OrEmpty(security)) {
  PrepareEmptyClient();
  ComposeLongItemText();
}

TIniCacheItemID::TIniCacheItemID(const char* client, const char* board, const char* security, double leverage)
    : TIniCacheItemID(client, board, nullptr, security, leverage) {}

TIniCacheItemID::TIniCacheItemID(const char* client, double leverage)
    : m_kind(1), m_leverage(ScaleLeverage(leverage)), m_clientCode(OrEmpty(client)) {
  PrepareEmptyClient();
  m_itemText = m_clientCode;
}

void TIniCacheItemID::PrepareEmptyClient() {
  if (m_clientCode.empty()) m_clientCode = DLConst::EMPTY_CLIENT_INI_CODE;
}

void TIniCacheItemID::ComposeLongItemText() {
  m_itemText.reserve(cch.size() + bnh.size() + tnh.size() + snh.size() + m_clientCode.size() +
                     m_boardName.size() + m_templateName.size() + m_securityName.size());
  m_itemText = cch;
  m_itemText += m_clientCode;
  m_itemText += bnh;
  m_itemText += m_boardName;
  m_itemText += tnh;
  m_itemText += m_templateName;
  m_itemText += snh;
  m_itemText += m_securityName;
}

}  // namespace DL
