#include "CMixAlgorithm.h"
#include "Numbers.h"
#include "OrderingRules.h"
#include "Trace.h"

#include <cstring>

namespace {

constexpr std::uint16_t kAscendingMix = 10;

/// A unit that serves: where it stands in the full table, its value and what it is sorted by.
struct KeptUnit {
    unsigned index;
    std::uint32_t value;
    std::uint32_t key;
};

/// Traces why a unit is passed over; the unit is named by its place in the full table.
template <typename... Values>
bool PassOver(const OrderingRule& rule, const char* format, Values... values) noexcept {
    Trace(format, rule.tracePrefix, values...);
    return false;
}

constexpr const char* kTypeLine = "%sThe type of Cassette %d is %d.";
constexpr const char* kStatusLine = "%sThe status of Cassette %d is %d.";
constexpr const char* kNotAvailableLine = "%sThe Cassette %d is not available.";

bool PassesCountTest(const OrderingRule& rule,
                     const LogicalCashUnit& unit,
                     int index,
                     std::uint32_t minimum) noexcept {
    const bool aboveMinimum = unit.ulCount > minimum;
    const bool positive = AsSigned(unit.ulCount) > 0;
    switch (rule.countTest) {
    case CountTest::AboveMinimum:
        return aboveMinimum || PassOver(rule, kNotAvailableLine, index);
    case CountTest::AboveMinimumAndPositive:
        if (!aboveMinimum) {
            // On purpose: the line of the status, though it is the count that was too small.
            return PassOver(rule, kStatusLine, index, int{unit.usStatus});
        }
        break;
    case CountTest::Positive:
        break;
    }
    return positive || PassOver(rule, kNotAvailableLine, index);
}

bool Serves(const OrderingRule& rule,
            const MixRequest& request,
            const LogicalCashUnit& unit,
            int index,
            std::uint32_t minimum) noexcept {
    if (!Contains(rule.types, unit.usType)) {
        return PassOver(rule, kTypeLine, index, int{unit.usType});
    }
    if (Contains(rule.droppedStatuses, unit.usStatus)) {
        return PassOver(rule, kStatusLine, index, int{unit.usStatus});
    }
    if (!PassesCountTest(rule, unit, index, minimum)) {
        return false;
    }
    if (unit.ulValues == 0 && !Contains(SetOf(CashUnitType::CouponCassette), unit.usType)) {
        return PassOver(rule, kNotAvailableLine, index);
    }
    // On purpose: another currency leaves no trace.
    return std::memcmp(&unit.cCurrencyID, &request.cCurrencyID, sizeof(CurrencyId)) == 0;
}

KeptUnit Keep(const OrderingRule& rule,
              const MixRequest& request,
              const LogicalCashUnit& unit,
              unsigned index) noexcept {
    const int exponent = request.sExponent;
    const bool rescaled = rule.rescales && exponent < 0 && !Contains(kCoinTypes, unit.usType);
    const std::uint32_t value =
        rescaled ? ScaleByPowerOfTen(unit.ulValues, -exponent) : std::uint32_t{unit.ulValues};
    const bool byTotal = rule.sortKey == SortKey::TotalDescending;
    return {index, value, byTotal ? value * unit.ulCount : value};
}

void SortUnits(const OrderingRule& rule,
               const MixRequest& request,
               KeptUnit* units,
               unsigned count) noexcept {
    const bool ascending =
        rule.sortKey == SortKey::ValueAscendingInMix10 && request.usMixNumber == kAscendingMix;
    ExchangeSort(units, count, Scan::Downwards,
                 [ascending](const KeptUnit& first, const KeptUnit& second) {
                     return ascending ? first.key > second.key : first.key < second.key;
                 });
}

/// The skeleton of every ordering: build the full table, keep the units that serve, sort them, copy
/// them out in that order, and sort the cassettes of each, fullest first.
///
/// Units are sorted by key and copied once, which leaves the same order as exchanging the records.
void SelectAndOrder(const OrderingRule& rule,
                    const MixRequest& request,
                    std::uint32_t minimum,
                    LcuTable& ordered) noexcept {
    LcuTable all;
    CMixAlgorithm::BuildLCUTable(request, all);
    KeptUnit kept[kMaxCashUnits];
    unsigned count = 0;
    for (unsigned index = 0; index < all.usCount; ++index) {
        const LogicalCashUnit& unit = all.aLCUs[index];
        if (Serves(rule, request, unit, static_cast<int>(index), minimum)) {
            kept[count] = Keep(rule, request, unit, index);
            ++count;
        }
    }
    SortUnits(rule, request, kept, count);
    for (unsigned place = 0; place < count; ++place) {
        LogicalCashUnit& unit = ordered.aLCUs[place];
        unit = all.aLCUs[kept[place].index];
        unit.ulValues = kept[place].value;
        ExchangeSort(unit.aPhysicalCUs, unit.usNumPhysicalCUs, rule.cassetteScan,
                     [](const PhysicalCashUnit& first, const PhysicalCashUnit& second) {
                         return first.ulCount < second.ulCount;
                     });
    }
    ordered.usCount = static_cast<std::uint16_t>(count);
}

}  // namespace

void CMixAlgorithm::SortLCUByDenomination(const MixRequest& request,
                                          LcuTable& table) const noexcept {
    SelectAndOrder(kByDenomination, request, ulCstMinimum4Mix6, table);
}

void CMixAlgorithm::SortLCUByTotalAmount(const MixRequest& request,
                                         LcuTable& table) const noexcept {
    SelectAndOrder(kByTotalAmount, request, ulCstMinimum4Mix6, table);
}

void CMixAlgorithm::SortLCUByDenominationWithoutLOWCST(const MixRequest& request,
                                                       LcuTable& table) const noexcept {
    SelectAndOrder(kByDenominationWithoutLOWCST, request, ulCstMinimum4Mix6, table);
}

void CMixAlgorithm::SortLCUByDenomWithoutCSTBelowCSTMin(const MixRequest& request,
                                                        LcuTable& table) const noexcept {
    SelectAndOrder(kByDenomWithoutCSTBelowCSTMin, request, ulCstMinimum4Mix6, table);
}

void CMixAlgorithm::SortLCUByTotalAmountWithoutCSTBelowCSTMin(const MixRequest& request,
                                                              LcuTable& table) const noexcept {
    SelectAndOrder(kByTotalAmountWithoutCSTBelowCSTMin, request, ulCstMinimum4Mix6, table);
}
