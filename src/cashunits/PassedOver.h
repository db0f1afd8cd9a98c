#pragma once

#include "CashUnitGroup.h"
#include "Numbers.h"
#include "OrderingRules.h"

#include <cstring>

/// Why an ordering passes a unit over; of several reasons the first in the order of the tests.
enum class PassedOver {
    No,
    Type,
    Status,
    Minimum,   ///< it holds no more than ulCstMinimum4Mix6
    Count,     ///< it holds nothing, or what reads as less
    Value,     ///< it is worth nothing, and no coupon
    Currency,  ///< it is not of the request's
};

/// Whether a unit holds enough to serve.
inline PassedOver
WhyForCount(const OrderingRule& rule, const CashUnitGroup& unit, std::uint32_t minimum) noexcept {
    if (rule.countTest != CountTest::Positive && unit.count <= minimum) {
        return PassedOver::Minimum;
    }
    if (rule.countTest != CountTest::AboveMinimum && AsSigned(unit.count) <= 0) {
        return PassedOver::Count;
    }
    return PassedOver::No;
}

/// The one place where it is decided whether a unit serves.
///
/// @param minimum  ulCstMinimum4Mix6.
inline PassedOver WhyPassedOver(const OrderingRule& rule,
                                const MixRequest& request,
                                const CashUnitGroup& unit,
                                std::uint32_t minimum) noexcept {
    if (!Contains(rule.types, unit.type)) {
        return PassedOver::Type;
    }
    if (Contains(rule.droppedStatuses, unit.status)) {
        return PassedOver::Status;
    }
    const PassedOver forCount = WhyForCount(rule, unit, minimum);
    if (forCount != PassedOver::No) {
        return forCount;
    }
    if (unit.value == 0 && !Contains(SetOf(CashUnitType::CouponCassette), unit.type)) {
        return PassedOver::Value;
    }
    if (std::memcmp(&unit.currency, &request.cCurrencyID, sizeof(CurrencyId)) != 0) {
        return PassedOver::Currency;
    }
    return PassedOver::No;
}
