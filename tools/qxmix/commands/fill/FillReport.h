#pragma once

#include "FillAnswers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// What refilling after so many days comes to.
struct FillInterval {
    std::uint32_t days = 1;
    MixFill best;               ///< the best mix
    std::optional<Money> cost;  ///< in a day; none: nothing is proposed
};

/// Which loading is proposed, with everything that is told of it in any form.
struct FillReport {
    /// @param compared  where several numbers of days were asked.
    FillReport(FillQuestions asking,
               RunDemands drawn,
               FillAnswers came,
               std::vector<FillInterval> compared = {});

    FillQuestions questions;
    RunDemands demands;
    FillAnswers answers;
    std::vector<FillInterval> intervals;  ///< the shortest first; empty: one was asked
    std::vector<std::string> headline;    ///< what to load, or why nothing is proposed
    std::vector<std::string> remarks;     ///< on the best mix: how it fares, and what was checked
    std::vector<Finding> findings;        ///< how the demand was read
    ExitStatus status;

    /// The best mix with a loading; null: none has one.
    const MixFill* Best() const;

    /// What a loading of this mix costs in a day: the one that is there, or the proposed one; none:
    /// nobody said what loading costs.
    std::optional<Money> CostNow(const MixFill& mix) const;
    std::optional<Money> CostOf(const MixFill& mix) const;

    /// A sum for people, without the currency.
    std::string MoneyText(const Money& money) const;
};

/// "3 days".
std::string DaysText(std::uint32_t days);

/// "50 of 50 runs".
std::string RunsText(std::size_t count, std::size_t all);

}  // namespace qxmix
