#pragma once

#include "FillLoading.h"

#include <cstddef>
#include <functional>
#include <map>
#include <vector>

namespace qxmix {

/// What is searched: the cheapest loading that reaches the service.
struct FillSpace {
    std::vector<Money> worth;  ///< of a bundle, by cassette that is loaded
    Bundles most;              ///< as many as each takes
    Money unloaded;            ///< what cassettes hold that are not loaded
    Money least;               ///< what all cassettes have to hold in any case
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

    Money WorthOf(const Bundles& bundles) const;

    /// Of how many the module was asked.
    std::size_t AskedCount() const { return known_.size(); }

    /// The cassettes, that with the most expensive bundle first.
    const std::vector<std::size_t>& ByWorth() const { return byWorth_; }

    /// The smallest number of bundles of one cassette with which the loading reaches, as halving
    /// the range finds it: one less does not reach.
    ///
    /// @param bundles  one that reaches, and keeps what it has of the others.
    std::uint32_t FewestOf(std::size_t cassette, Bundles bundles, std::uint32_t atLeast = 0);

private:
    FillSpace space_;
    Reaches reaches_;
    std::vector<std::size_t> byWorth_;
    std::map<Bundles, bool> known_;
};

/// Takes bundles out until none can be taken out of any cassette, nor exchanged for cheaper ones.
///
/// @param bundles  one that reaches.
Bundles Descend(TriedLoadings& loadings, Bundles bundles);

/// Goes on to look for a cheaper loading, in order, for as long as that is worth while.
///
/// @param best  the cheapest so far, which reaches; becomes cheaper if there is one.
Cheapest SearchBelow(TriedLoadings& loadings, Bundles& best);

/// All of it, from a loading that reaches.
///
/// @param best  becomes the cheapest.
Cheapest FindCheapest(TriedLoadings& loadings, Bundles& best);

}  // namespace qxmix
