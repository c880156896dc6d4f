#include "cache/TClientSecurityRestrictions.h"

#include "base/Numbers.h"

namespace DL {

bool TClientSecurityRestrictions::operator==(const TClientSecurityRestrictions& o) const {
  return MIsEqual(orderMaxValue.amount, o.orderMaxValue.amount) && orderMaxValue.currency == o.orderMaxValue.currency &&
         orderMaxValueSet == o.orderMaxValueSet && allowedPartners == o.allowedPartners &&
         prohibitedPartners == o.prohibitedPartners && userTemplate == o.userTemplate &&
         allowedPartnersAndSettleCodes == o.allowedPartnersAndSettleCodes &&
         prohibitedPartnersAndSettleCodes == o.prohibitedPartnersAndSettleCodes &&
         softProhibitedPartnersAndSettleCodes == o.softProhibitedPartnersAndSettleCodes && priceLimit == o.priceLimit &&
         secPriceLimit == o.secPriceLimit && softPriceLimit == o.softPriceLimit &&
         softSecPriceLimit == o.softSecPriceLimit && priceLimitMiddle == o.priceLimitMiddle &&
         secPriceLimitMiddle == o.secPriceLimitMiddle && softPriceLimitMiddle == o.softPriceLimitMiddle &&
         softSecPriceLimitMiddle == o.softSecPriceLimitMiddle && restrictOpen == o.restrictOpen &&
         restSecurity == o.restSecurity && security == o.security && trdAcc == o.trdAcc &&
         noAllowedList == o.noAllowedList && commissionWriteOffCurrency == o.commissionWriteOffCurrency &&
         classesWithoutTSCommission.Items() == o.classesWithoutTSCommission.Items() &&
         linkedUserTemplate.Items() == o.linkedUserTemplate.Items() &&
         brokerQuoteBoard.Items() == o.brokerQuoteBoard.Items() && transferBoard.Items() == o.transferBoard.Items() &&
         addMultiCurrency == o.addMultiCurrency && currency == o.currency && currency2 == o.currency2 &&
         ignoreCheckLimits == o.ignoreCheckLimits;
}

}  // namespace DL
