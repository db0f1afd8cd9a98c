#include "CMixAlgorithm.h"
#include "CashUnitGroup.h"
#include "Numbers.h"
#include "OrderingRules.h"
#include "PassedOver.h"
#include "Trace.h"

namespace {

constexpr std::uint16_t kAscendingMix = 10;

/// A unit that serves, and what it is sorted by.
struct KeptUnit {
    CashUnitGroup* group;
    std::uint32_t key;
};

/// Tells why a unit is passed over; the unit is named by its number among all groups.
void TracePassedOver(const OrderingRule& rule,
                     const CashUnitGroup& unit,
                     PassedOver reason) noexcept {
    const int number = unit.number;
    // On purpose: one ordering tells the status, though it is the count that was too small.
    const bool tellsStatus =
        reason == PassedOver::Status ||
        (reason == PassedOver::Minimum && rule.countTest == CountTest::AboveMinimumAndPositive);
    if (reason == PassedOver::Type) {
        Trace("%sThe type of Cassette %d is %d.", rule.tracePrefix, number, int{unit.type});
    } else if (tellsStatus) {
        Trace("%sThe status of Cassette %d is %d.", rule.tracePrefix, number, int{unit.status});
    } else if (reason != PassedOver::Currency) {  // On purpose: another currency leaves no trace.
        Trace("%sThe Cassette %d is not available.", rule.tracePrefix, number);
    }
}

bool Serves(const OrderingRule& rule,
            const MixRequest& request,
            const CashUnitGroup& unit,
            std::uint32_t minimum) noexcept {
    const PassedOver reason = WhyPassedOver(rule, request, unit, minimum);
    if (reason != PassedOver::No) {
        TracePassedOver(rule, unit, reason);
    }
    return reason == PassedOver::No;
}

/// Brings the value of a unit that serves to the unit of the amount.
KeptUnit Keep(const OrderingRule& rule, int exponent, CashUnitGroup& unit) noexcept {
    if (rule.rescales && exponent < 0 && !Contains(kCoinTypes, unit.type)) {
        unit.value = ScaleByPowerOfTen(unit.value, -exponent);
    }
    const bool byTotal = rule.sortKey == SortKey::TotalDescending;
    return {&unit, byTotal ? unit.value * unit.count : unit.value};
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

void SortCassettes(const OrderingRule& rule, CashUnitGroup& unit) noexcept {
    ExchangeSort(unit.cassettes.data(), unit.cassetteCount, rule.cassetteScan,
                 [](const PhysicalCashUnit* first, const PhysicalCashUnit* second) {
                     return first->ulCount < second->ulCount;
                 });
}

/// The skeleton of every ordering: group the cassettes, keep the units that serve, sort them, and
/// write them out in that order, the cassettes of each sorted, fullest first.
///
/// Pointers are exchanged instead of records, which leaves the same order.
void SelectAndOrder(const OrderingRule& rule,
                    const MixRequest& request,
                    std::uint32_t minimum,
                    LcuTable& ordered) noexcept {
    CashUnitGroup groups[kMaxCashUnits];
    const unsigned groupCount = GroupCassettes(request, groups);
    KeptUnit kept[kMaxCashUnits];
    unsigned count = 0;
    for (unsigned index = 0; index < groupCount; ++index) {
        if (Serves(rule, request, groups[index], minimum)) {
            kept[count] = Keep(rule, request.sExponent, groups[index]);
            ++count;
        }
    }
    SortUnits(rule, request, kept, count);
    for (unsigned place = 0; place < count; ++place) {
        CashUnitGroup& unit = *kept[place].group;
        SortCassettes(rule, unit);
        WriteUnit(unit, ordered.aLCUs[place]);
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
