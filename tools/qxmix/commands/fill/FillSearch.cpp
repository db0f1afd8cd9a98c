#include "FillSearch.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace qxmix {

TriedLoadings::TriedLoadings(FillSpace space, Reaches reaches)
    : space_(std::move(space)), reaches_(std::move(reaches)), byWorth_(space_.worth.size()) {
    std::iota(byWorth_.begin(), byWorth_.end(), 0);
    std::stable_sort(byWorth_.begin(), byWorth_.end(), [this](std::size_t left, std::size_t right) {
        return space_.worth[left] > space_.worth[right];
    });
}

bool TriedLoadings::DoesReach(const Bundles& bundles) {
    if (!CanBeEnough(bundles)) {
        return false;
    }
    const auto known = known_.find(bundles);
    if (known != known_.end()) {
        return known->second;
    }
    const bool does = reaches_(bundles);
    known_.emplace(bundles, does);
    return does;
}

bool TriedLoadings::CanBeEnough(const Bundles& bundles) const {
    Money held = space_.unloaded;
    held += WorthOf(bundles);
    return !(held < space_.least);
}

Money TriedLoadings::WorthOf(const Bundles& bundles) const {
    Money worth;
    for (std::size_t place = 0; place < bundles.size(); ++place) {
        worth += space_.worth[place].Times(bundles[place]);
    }
    return worth;
}

std::uint32_t
TriedLoadings::FewestOf(std::size_t cassette, Bundles bundles, std::uint32_t atLeast) {
    std::uint32_t enough = bundles[cassette];
    for (std::uint32_t candidate = atLeast; candidate < enough;) {
        const std::uint32_t middle = candidate + (enough - candidate) / 2;
        bundles[cassette] = middle;
        if (DoesReach(bundles)) {
            enough = middle;
        } else {
            candidate = middle + 1;
        }
    }
    return enough;
}

Cheapest FindCheapest(TriedLoadings& loadings, Bundles& best) {
    best = Descend(loadings, best);
    const Cheapest sureness = SearchBelow(loadings, best);
    // What the search has found it found with other cassettes at their most.
    const Bundles descended = Descend(loadings, best);
    best = descended;
    return sureness;
}

}  // namespace qxmix
