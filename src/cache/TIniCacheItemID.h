#pragma once
// Identity of an item of a settings cache: client, board, template, security
// and leverage, with the key text precomputed once, since the caches look it
// up on every query.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

namespace DLConst {
// The client code under which an empty client is cached.
inline constexpr const char* EMPTY_CLIENT_INI_CODE = "<EMPTY>";
}  // namespace DLConst

namespace DL {

// Key of the item table: the item text and the leverage in hundredths.
struct TIniCacheItemKey {
  std::string itemText;
  std::int32_t leverage = -1;

  bool operator==(const TIniCacheItemKey& o) const { return leverage == o.leverage && itemText == o.itemText; }
  bool operator<(const TIniCacheItemKey& o) const {
    return std::tie(itemText, leverage) < std::tie(o.itemText, o.leverage);
  }
};

// The same key without its own copy of the text, for lookups.
struct TIniCacheItemKeyView {
  std::string_view itemText;
  std::int32_t leverage = -1;
};

// FNV-1a, 32 bits: offset basis 0x811c9dc5, prime 16777619.
constexpr std::uint32_t Fnv1a32(std::string_view bytes) {
  std::uint32_t h = 0x811c9dc5u;
  for (const char c : bytes) {
    h ^= static_cast<unsigned char>(c);
    h *= 16777619u;
  }
  return h;
}

// The hash of an item: FNV-1a of the item text, exclusive-or twice the
// leverage taken as an unsigned 64-bit number.
constexpr std::uint64_t HashIniCacheItem(std::string_view itemText, std::int32_t leverage) {
  return static_cast<std::uint64_t>(Fnv1a32(itemText)) ^
         static_cast<std::uint64_t>(2 * static_cast<std::int64_t>(leverage));
}

// Hash and equality of the item table; both accept a key or a view, so a
// lookup needs no copy of the text.
struct TIniCacheItemKeyHash {
  using is_transparent = void;
  std::size_t operator()(const TIniCacheItemKey& k) const { return HashIniCacheItem(k.itemText, k.leverage); }
  std::size_t operator()(const TIniCacheItemKeyView& k) const { return HashIniCacheItem(k.itemText, k.leverage); }
};

struct TIniCacheItemKeyEqual {
  using is_transparent = void;
  template <class A, class B>
  bool operator()(const A& a, const B& b) const {
    return a.leverage == b.leverage && std::string_view(a.itemText) == std::string_view(b.itemText);
  }
};

class TIniCacheItemID {
 public:
  // Kind 0, leverage -1, empty codes; the item text is the four headers alone.
  TIniCacheItemID();
  // The long forms. Null texts count as empty, an empty client as "<EMPTY>".
  // The item text is "cc" client "_bn" board "_tn" template "_sn" security.
  TIniCacheItemID(const char* client, const char* board, const char* templ, const char* security,
                  double leverage);
  TIniCacheItemID(const char* client, const char* board, const char* security, double leverage);
  // The client-only form (kind 1): the item text is the client alone.
  TIniCacheItemID(const char* client, double leverage);

  // A leverage at or above zero (tolerance 1e-7) is kept in hundredths,
  // truncating leverage * 100 + 0.5; any other is -1.
  static std::int32_t ScaleLeverage(double leverage);

  int Kind() const { return m_kind; }
  // The leverage as a real, -1.0 for none.
  double Leverage() const { return m_leverage == -1 ? -1.0 : m_leverage / 100.0; }
  std::int32_t LeverageInt() const { return m_leverage; }
  TIniCacheItemKey ItemID() const { return TIniCacheItemKey{m_itemText, m_leverage}; }
  TIniCacheItemKeyView ItemKeyView() const { return TIniCacheItemKeyView{m_itemText, m_leverage}; }
  const std::string& ClientCode() const { return m_clientCode; }
  const std::string& BoardName() const { return m_boardName; }
  const std::string& TemplateName() const { return m_templateName; }
  const std::string& SecurityName() const { return m_securityName; }
  const std::string& ItemText() const { return m_itemText; }
  // An empty client code becomes "<EMPTY>".
  void PrepareEmptyClient();

  static const std::string cch, bnh, tnh, snh;  // "cc", "_bn", "_tn", "_sn"

 private:
  void ComposeLongItemText();

  std::int32_t m_kind = 0;       // 0 for the long forms, 1 for the client-only form
  std::int32_t m_leverage = -1;  // hundredths, -1 for none
  std::string m_clientCode;
  std::string m_boardName;
  std::string m_templateName;
  std::string m_securityName;
  std::string m_itemText;  // the key text
};

// Identity of an item of the margin cache: the client code alone.
class TIniMarginCacheItemID {
 public:
  explicit TIniMarginCacheItemID(const char* client) : m_client(client ? client : "") {}
  const std::string& ItemID() const { return m_client; }
  const std::string& ClientCode() const { return m_client; }

 private:
  std::string m_client;
};

}  // namespace DL
