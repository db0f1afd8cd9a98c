#include "FillOutcome.h"

#include "dispenser/Draining.h"

#include <algorithm>

namespace qxmix {

namespace {

using Times = std::vector<std::optional<std::int64_t>>;

bool IsLow(const Cassette& cassette) {
    return cassette.count <= std::max(cassette.lowThreshold, cassette.emptyThreshold);
}

/// When each cassette runs low in one run.
Times LowTimes(Dispenser dispenser,
               const Demand& demand,
               const std::vector<SimulationStep>& steps) {
    Times times(dispenser.cassettes.size());
    std::vector<bool> wasLow;
    for (const Cassette& cassette : dispenser.cassettes) {
        wasLow.push_back(IsLow(cassette));
    }
    for (std::size_t index = 0; index < steps.size(); ++index) {
        if (!steps[index].IsTaken()) {
            continue;
        }
        TakeItems(dispenser, steps[index].items);
        for (std::size_t place = 0; place < wasLow.size(); ++place) {
            if (!wasLow[place] && IsLow(dispenser.cassettes[place])) {
                wasLow[place] = true;
                times[place] = demand.withdrawals[index].time;
            }
        }
    }
    return times;
}

/// Of an even count the lower of the two in the middle; what a run does not have is later than all.
std::optional<std::int64_t> MedianTime(Times times) {
    std::sort(times.begin(), times.end(), [](const auto& left, const auto& right) {
        return left && (!right || *left < *right);
    });
    return times[(times.size() - 1) / 2];
}

}  // namespace

FillOutcome OutcomeOf(const FillQuestions& questions,
                      const RunDemands& demands,
                      const Dispenser& loaded,
                      const std::vector<FillRun>& runs) {
    FillOutcome outcome;
    outcome.worth = ValueHeld(loaded);
    std::vector<ServedShare> shares;
    std::vector<Times> low(loaded.cassettes.size());
    for (std::size_t run = 0; run < runs.size(); ++run) {
        shares.push_back(runs[run].Served(*demands[run]));
        outcome.reaching += shares.back().Reaches(questions.service) ? 1U : 0U;
        outcome.dangerous += runs[run].summary.Dangerous() > 0 ? 1U : 0U;
        const Times times = LowTimes(loaded, *demands[run], runs[run].steps);
        for (std::size_t place = 0; place < times.size(); ++place) {
            low[place].push_back(times[place]);
        }
    }
    std::sort(shares.begin(), shares.end(), [](const ServedShare& left, const ServedShare& right) {
        return !left.Reaches(right);
    });
    outcome.worst = shares.front();
    outcome.median = shares[(shares.size() - 1) / 2];
    outcome.promised = shares[questions.MostMisses()];
    for (const Times& times : low) {
        outcome.low.push_back(MedianTime(times));
    }
    return outcome;
}

}  // namespace qxmix
