#include "FillSearch.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace qxmix {

TriedLoadings::TriedLoadings(FillSpace space, Reaches reaches)
    : space_(std::move(space)), reaches_(std::move(reaches)), byPrice_(space_.worth.size()) {
    std::iota(byPrice_.begin(), byPrice_.end(), 0);
    std::stable_sort(byPrice_.begin(), byPrice_.end(), [this](std::size_t left, std::size_t right) {
        return space_.PriceOfSome(right, 1) < space_.PriceOfSome(left, 1);
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
    held += PriceOf(bundles).worth;
    return !(held < space_.least);
}

Price FillSpace::PriceOf(const Bundles& bundles) const {
    Price price;
    for (std::size_t place = 0; place < bundles.size(); ++place) {
        const Price some = PriceOfSome(place, bundles[place]);
        price.cost += some.cost;
        price.worth += some.worth;
    }
    return price;
}

Price FillSpace::PriceOfSome(std::size_t cassette, std::uint32_t count) const {
    const Money some = cost.empty() ? Money() : cost[cassette].Times(count);
    return {some, worth[cassette].Times(count)};
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
    const CheaperLoading cheaper = FindCheaperThan(loadings, loadings.PriceOf(best));
    // What the search has found it found with other cassettes at their most.
    best = Descend(loadings, cheaper.bundles.value_or(best));
    const bool isMoreMore =
        cheaper.cheapest != Cheapest::IfMoreIsMore || loadings.DoesReach(loadings.Space().most);
    return isMoreMore ? cheaper.cheapest : Cheapest::OfNeighbours;
}

}  // namespace qxmix
