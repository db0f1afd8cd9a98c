#pragma once

#include "LoadingSearch.h"

#include <memory>
#include <vector>

namespace qxmix {

/// Looks for the cheapest loading of one mix after the other: with the notes that the cassettes
/// have, or with the best choice of those that they may have.
class MixSearch {
public:
    explicit MixSearch(const FillAsking& asking);

    /// @throw Interruption; then `fill` holds what is known.
    void Run(MixFill& fill);

private:
    using Searches = std::vector<std::unique_ptr<LoadingSearch>>;

    /// The place of the first choice of notes that reaches the service with full cassettes; if none
    /// does, of that which serves most.
    std::size_t FirstOf(const Searches& searches);

    FillAsking asking_;
    std::vector<Dispenser> choices_;  // of notes
    std::size_t unpayable_ = 0;       // that were left out of them
};

}  // namespace qxmix
