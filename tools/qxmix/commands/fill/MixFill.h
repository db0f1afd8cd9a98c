#pragma once

#include "FillCurve.h"
#include "FillLevels.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// How far a search is.
struct FillProgress {
    std::size_t tried = 0;     ///< loadings
    std::size_t expected = 0;  ///< about as many will be tried; no fewer than that
    std::uint16_t mix = 0;
    std::size_t choice = 0;     ///< of notes that are behind it
    std::size_t choices = 1;    ///< of notes
    std::optional<Money> best;  ///< the cheapest that reaches so far; none: none does
};

/// The loading that is proposed for one mix.
struct FillProposal {
    Bundles bundles;
    Dispenser loaded;
    FillOutcome outcome;
    Price price;  ///< that it was chosen by
    /// With a bundle less or more in one cassette, by cassette that is loaded; none: it holds
    /// nothing, or takes no more.
    std::vector<std::optional<FillOutcome>> less;
    std::vector<std::optional<FillOutcome>> more;
    Cheapest cheapest = Cheapest::OfNeighbours;
    bool isChecked = false;  ///< no bundle can be taken out of any cassette
};

/// What is known of one mix.
struct MixFill {
    std::uint16_t mix = 0;
    std::optional<FillOutcome> now;    ///< with what is loaded now; none: interrupted
    std::optional<FillProposal> load;  ///< none: dangerous, or interrupted
    ServedShare service;               ///< that the proposal was made for
    bool isReached = false;            ///< that is what was asked
    bool isComplete = false;
    std::size_t choices = 1;    ///< of notes for the cassettes
    std::size_t unpayable = 0;  ///< of them those that cannot pay what the service asks
    std::size_t tried = 0;      ///< loadings of which the module was asked
    std::string lastCode;       ///< error code that the proposal's last run left; empty: none

    std::vector<FillPoint> points;     ///< of the loadings of which all runs are known
    std::vector<FillPoint> curve;      ///< the best of them by money; empty: it was not drawn
    std::optional<FillLevels> levels;  ///< with the proposed loading; none: they were not asked
};

}  // namespace qxmix
