#pragma once

#include "Records.h"

#include <array>

/// A logical unit as native numbers, its cassettes left where they lie in the request. The
/// orderings choose and sort these, and write the records of what they keep once.
struct CashUnitGroup {
    std::uint16_t number;  ///< index among the groups of the request
    std::uint16_t type;
    CurrencyId currency;
    std::uint16_t status;  ///< the best status of its cassettes, see StatusRank.h
    std::uint32_t value;   ///< of one item
    std::uint32_t count;   ///< items that count as available
    unsigned cassetteCount;
    std::array<const PhysicalCashUnit*, kMaxCashUnits> cassettes;
};

/// Groups the cassettes that hold the same item, in the order in which they are met.
///
/// @param groups  [kMaxCashUnits], written as far as there are any.
/// @return how many groups there are.
unsigned GroupCassettes(const MixRequest& request, CashUnitGroup* groups) noexcept;

/// Writes every byte of a unit: the group, and copies of its cassettes in their order there.
void WriteUnit(const CashUnitGroup& group, LogicalCashUnit& unit) noexcept;
