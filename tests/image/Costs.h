#pragma once

#include "Requests.h"

#include "Questions.h"

namespace emulation {

/// One call and what it took.
struct Cost {
    bool answered = false;  ///< false: stopped by the budget
    std::uint64_t instructions = 0;
    std::uint32_t stackBytes = 0;
};

/// The calls of one set of questions with one mix.
struct CostRow {
    std::string set;
    unsigned mix = 0;
    std::vector<Cost> costs;

    /// The middle and the largest of the calls that were answered; 0 when none was.
    std::uint64_t Median() const;
    std::uint64_t Most() const;
    std::uint32_t DeepestStack() const;
    std::size_t Unanswered() const;
};

/// Asks questions with one mix number after the other.
///
/// @param budget  instructions that a call may take.
std::vector<CostRow> MeasureCosts(RequestPlayer& player,
                                  const bench::QuestionSet& set,
                                  const std::vector<unsigned>& mixes,
                                  std::uint64_t budget);

/// The mixes whose searches walk, one per search and ordering, and those of first-fit emptying.
extern const std::vector<unsigned> kWalkedMixes;
extern const std::vector<unsigned> kFirstFitMixes;

}  // namespace emulation
