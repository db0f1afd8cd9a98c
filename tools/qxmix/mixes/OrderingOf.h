#pragma once

#include "MixPlans.h"
#include "OrderingRules.h"

namespace qxmix {

/// An ordering of the module with the rule that it goes by.
struct NamedOrdering {
    decltype(MixPlan::order) order;
    const OrderingRule* rule;
};

// clang-format off
constexpr NamedOrdering kOrderings[] = {
    {&Mix::SortLCUByDenomination,                     &kByDenomination},
    {&Mix::SortLCUByTotalAmount,                      &kByTotalAmount},
    {&Mix::SortLCUByDenominationWithoutLOWCST,        &kByDenominationWithoutLOWCST},
    {&Mix::SortLCUByDenomWithoutCSTBelowCSTMin,       &kByDenomWithoutCSTBelowCSTMin},
    {&Mix::SortLCUByTotalAmountWithoutCSTBelowCSTMin, &kByTotalAmountWithoutCSTBelowCSTMin},
};
// clang-format on

/// @return null for an ordering that is missing here.
constexpr const OrderingRule* OrderingOf(const MixPlan& plan) {
    for (const NamedOrdering& ordering : kOrderings) {
        if (ordering.order == plan.order) {
            return ordering.rule;
        }
    }
    return nullptr;
}

}  // namespace qxmix
