#pragma once

#include "FillLoading.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace qxmix {

/// What a loading is compared by: what it costs, and of equals what it is worth.
struct Price {
    Money cost;  ///< 0 where money alone counts
    Money worth;

    bool operator<(const Price& other) const {
        const int order = cost.Compare(other.cost);
        return order != 0 ? order < 0 : worth < other.worth;
    }
};

/// What is searched: the cheapest loading that reaches the service.
struct FillSpace {
    std::vector<Money> worth;  ///< of a bundle, by cassette that is loaded
    std::vector<Money> cost;   ///< that a bundle adds; empty: money alone counts
    Bundles most;              ///< as many as each takes
    Money unloaded;            ///< what cassettes hold that are not loaded
    Money least;               ///< what all cassettes have to hold in any case

    /// What a loading costs and is worth.
    Price PriceOf(const Bundles& bundles) const;

    /// What some bundles of one cassette cost and are worth.
    Price PriceOfSome(std::size_t cassette, std::uint32_t count) const;
};

/// How sure it is that no loading is cheaper.
enum class Cheapest {
    OfAll,         ///< every cheaper one was tried
    IfMoreIsMore,  ///< every cheaper one is ruled out, if more notes never serve fewer customers
    OfNeighbours,  ///< none with a bundle less, or with one exchanged for cheaper ones
};

/// Loadings of which is known whether they reach the service, and what they are worth.
///
/// Whether a loading reaches it is nearly monotone in what it holds, but not quite: a mix may take
/// other notes where there are more of them. So nothing of this is taken for sure unless it is
/// said.
class TriedLoadings {
public:
    using Reaches = std::function<bool(const Bundles&)>;

    /// @param reaches  asks the module, which takes long.
    TriedLoadings(FillSpace space, Reaches reaches);

    const FillSpace& Space() const { return space_; }

    bool DoesReach(const Bundles& bundles);

    /// Whether it is worth as much as any has to be; what is not does not reach.
    bool CanBeEnough(const Bundles& bundles) const;

    Price PriceOf(const Bundles& bundles) const { return space_.PriceOf(bundles); }

    /// Of how many the module was asked.
    std::size_t AskedCount() const { return known_.size(); }

    /// The cassettes, that with the most expensive bundle first.
    const std::vector<std::size_t>& ByPrice() const { return byPrice_; }

    /// The smallest number of bundles of one cassette with which the loading reaches, as halving
    /// the range finds it: one less does not reach.
    ///
    /// @param bundles  one that reaches, and keeps what it has of the others.
    std::uint32_t FewestOf(std::size_t cassette, Bundles bundles, std::uint32_t atLeast = 0);

private:
    FillSpace space_;
    Reaches reaches_;
    std::vector<std::size_t> byPrice_;
    std::map<Bundles, bool> known_;
};

/// Takes bundles out until none can be taken out of any cassette, nor exchanged for cheaper ones.
///
/// @param bundles  one that reaches.
Bundles Descend(TriedLoadings& loadings, Bundles bundles);

/// All of it, from a loading that reaches.
///
/// @param best  becomes the cheapest.
Cheapest FindCheapest(TriedLoadings& loadings, Bundles& best);

/// What there is below a price.
struct CheaperLoading {
    std::optional<Bundles> bundles;  ///< one that reaches; none: none was found
    Cheapest cheapest = Cheapest::OfAll;
};

/// How long it is looked for.
struct SearchEffort {
    std::size_t few = 1000;   ///< so few cheaper loadings are all tried
    std::size_t most = 1000;  ///< so many are tried at most where there are more
};

/// Looks for the cheapest loading below a price, in order, for as long as that is worth while.
CheaperLoading
FindCheaperThan(TriedLoadings& loadings, const Price& limit, const SearchEffort& effort = {});

}  // namespace qxmix
