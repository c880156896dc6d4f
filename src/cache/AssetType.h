#pragma once
// The asset types of the settle date restriction, and their words in the
// settings text ("MaxSettleDateByAssetType_..._AssetType_<word>_...").
#include <string_view>

enum ZDL_AssetType : int {
  ZDL_atUnknown = -1,  // a word that is none of the below
  ZDL_atShare = 0,     // "SHARE"
  ZDL_atBond = 1,      // "BOND"
  ZDL_atCurrency = 2,  // "CURRENCY"
  ZDL_atFund = 3,      // "FUND"
  ZDL_atReceipt = 4,   // "RECEIPT": depositary receipts
  ZDL_atOther = 5      // "OTHER"
};

namespace DL {

// The type of a word, compared without regard to case; ZDL_atUnknown for
// any other word.
ZDL_AssetType AssetTypeToEnum(std::string_view word);
// The word of a type; the empty text for ZDL_atUnknown and values out of range.
const char* EnumToAssetType(ZDL_AssetType type);

}  // namespace DL
