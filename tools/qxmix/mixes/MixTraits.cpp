#include "MixTraits.h"

#include "OrderingOf.h"
#include "SearchUnits.h"
#include "dispenser/Dispenser.h"

#include <array>

namespace qxmix {

namespace {

/// What a search does that the rules of lint look at.
struct SearchTraits {
    decltype(MixPlan::search) search;
    bool isFirstFit;
    bool comparesShares;
    bool comparesEvenness;
    bool stopsAtLimit;
    bool refusesInSilence;
};

// clang-format off
constexpr SearchTraits kSearches[] = {
    //                          first fit  shares  evenness  stops at limit  in silence
    {Mix::CalcMinimumNotes,     false,     false,  false,    false,          false},
    {Mix::CalcEqualNotes,       false,     false,  true,     true,           true},
    {Mix::CalcEqualEmptying,    false,     true,   false,    true,           false},
    {Mix::CalcFirstFitEmptying, true,      false,  false,    false,          true},
    {Mix::CalcMaximumNotes,     false,     false,  false,    false,          false},
};
// clang-format on

constexpr const SearchTraits* SearchOf(const MixPlan& plan) {
    for (const SearchTraits& search : kSearches) {
        if (search.search == plan.search) {
            return &search;
        }
    }
    return nullptr;
}

static_assert(kFirstMix == 1 && kLastMix == kMixCount, "the numbers that a dispenser can name");

constexpr bool AllAreKnown() {
    for (const MixPlan& plan : kMixPlans) {
        if (OrderingOf(plan) == nullptr || SearchOf(plan) == nullptr) {
            return false;
        }
    }
    return true;
}
static_assert(AllAreKnown(), "a mix has an ordering (OrderingOf.h) or a search that has no row");

constexpr MixTraits TraitsOf(const MixPlan& plan) {
    const OrderingRule& ordering = *OrderingOf(plan);
    const SearchTraits& search = *SearchOf(plan);
    MixTraits traits;
    traits.keepsMinimum = ordering.countTest != CountTest::Positive;
    traits.passesOverLow =
        Contains(ordering.droppedStatuses, static_cast<std::uint16_t>(CashUnitStatus::Low));
    traits.rescalesNotes = ordering.rescales;
    traits.isFirstFit = search.isFirstFit;
    traits.comparesShares = search.comparesShares;
    traits.comparesEvenness = search.comparesEvenness;
    traits.stopsAtLimit = search.stopsAtLimit;
    traits.refusesInSilence = search.refusesInSilence;
    traits.mostUnits = kMaxSearchUnits;
    return traits;
}

/// By mix number, from 0, which no mix has.
using TraitsTable = std::array<MixTraits, kMixCount + 1>;

constexpr TraitsTable AllTraits() {
    TraitsTable table{};
    for (std::size_t mix = kFirstMix; mix < table.size(); ++mix) {
        table[mix] = TraitsOf(kMixPlans[mix - kFirstMix]);
    }
    return table;
}

constexpr TraitsTable kTraits = AllTraits();

std::vector<std::uint16_t> MixesWhere(bool MixTraits::*trait, bool value) {
    std::vector<std::uint16_t> mixes;
    for (const std::uint16_t mix : AllMixes()) {
        if (Traits(mix).*trait == value) {
            mixes.push_back(mix);
        }
    }
    return mixes;
}

}  // namespace

const MixTraits& Traits(std::uint16_t mix) {
    return kTraits[mix <= kMixCount ? mix : 0];
}

std::vector<std::uint16_t> AllMixes() {
    std::vector<std::uint16_t> mixes;
    for (std::uint16_t mix = kFirstMix; mix <= kMixCount; ++mix) {
        mixes.push_back(mix);
    }
    return mixes;
}

std::vector<std::uint16_t> MixesWith(bool MixTraits::*trait) {
    return MixesWhere(trait, true);
}

std::vector<std::uint16_t> MixesWithout(bool MixTraits::*trait) {
    return MixesWhere(trait, false);
}

}  // namespace qxmix
