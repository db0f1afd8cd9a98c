#pragma once

#include "FillQuestions.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qxmix {

/// How many bundles each of the cassettes that are loaded gets.
using Bundles = std::vector<std::uint32_t>;

/// A cassette that is loaded.
struct LoadedCassette {
    std::size_t cassette = 0;  ///< its place in the dispenser
    std::uint32_t bundle = 1;  ///< items
    std::uint32_t most = 0;    ///< bundles that it takes, or that could ever be drawn from it
    Money worth;               ///< of a bundle
};

/// Whether a cassette is one that is loaded.
bool IsLoaded(const Dispenser& dispenser, const Cassette& cassette);

/// Which cassettes of a dispenser are loaded, and how.
class FillLoading {
public:
    /// Those of the dispenser's currency that give, and whose status only tells how much they hold.
    ///
    /// @param bundle  items of one, where a cassette does not say.
    FillLoading(const Dispenser& dispenser, std::uint32_t bundle, const RunDemands& demands);

    const std::vector<LoadedCassette>& Cassettes() const { return cassettes_; }

    /// The dispenser with such a loading; the statuses follow the counts.
    Dispenser With(const Bundles& bundles) const;

    /// What such a loading is worth.
    Money WorthOf(const Bundles& bundles) const;

    /// Each cassette as full as it can be.
    Bundles Most() const;

    /// So many items in each cassette of the dispenser, or what is in whole bundles next above it.
    Bundles Holding(const std::vector<std::uint64_t>& items) const;

    /// What cassettes hold that are not loaded.
    Money Unloaded() const { return unloaded_; }

private:
    Dispenser dispenser_;
    std::vector<LoadedCassette> cassettes_;
    Money unloaded_;
};

/// What a loading has to be worth at least, whatever the mix: enough runs pay all their withdrawals
/// but the largest ones, of which as many as the service leaves unserved.
Money LeastWorth(const FillQuestions& questions,
                 const RunDemands& demands,
                 const ServedShare& service);

}  // namespace qxmix
