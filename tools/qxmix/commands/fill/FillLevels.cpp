#include "FillLevels.h"

#include "dispenser/Draining.h"
#include "text/Dates.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::int64_t kMostTimes = 200;

/// Seconds between two times: hours that a day is a multiple of, or whole days.
std::int64_t StepFor(std::int64_t days) {
    for (const std::int64_t hours : {1, 2, 3, 4, 6, 8, 12}) {
        if (days * kSecondsInDay / (hours * kSecondsInHour) < kMostTimes) {
            return hours * kSecondsInHour;
        }
    }
    return (days / kMostTimes + 1) * kSecondsInDay;
}

/// What each cassette holds in one run, by time: before what is asked then.
std::vector<CassetteItems> HeldIn(Dispenser dispenser,
                                  const Demand& demand,
                                  const FillRun& run,
                                  std::int64_t step,
                                  std::size_t times) {
    std::vector<CassetteItems> held(times);
    std::size_t next = 0;
    for (std::size_t time = 0; time < times; ++time) {
        const std::int64_t now = static_cast<std::int64_t>(time) * step;
        for (; next < run.steps.size() && demand.withdrawals[next].time < now; ++next) {
            if (run.steps[next].IsTaken()) {
                TakeItems(dispenser, run.steps[next].items);
            }
        }
        for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
            held[time][index] = dispenser.cassettes[index].count;
        }
    }
    return held;
}

}  // namespace

FillLevels LevelsOf(const FillQuestions& questions,
                    const RunDemands& demands,
                    const Dispenser& loaded,
                    const std::vector<FillRun>& runs) {
    const std::int64_t days = questions.Days();
    FillLevels levels;
    levels.step = StepFor(days);
    const auto times =
        static_cast<std::size_t>((days * kSecondsInDay + levels.step - 1) / levels.step) + 1;
    std::vector<std::vector<CassetteItems>> held;
    for (std::size_t run = 0; run < runs.size(); ++run) {
        held.push_back(HeldIn(loaded, *demands[run], runs[run], levels.step, times));
    }
    for (std::size_t index = 0; index < loaded.cassettes.size(); ++index) {
        std::vector<HeldRange> ranges;
        for (std::size_t time = 0; time < times; ++time) {
            std::vector<std::uint32_t> counts;
            for (const std::vector<CassetteItems>& run : held) {
                counts.push_back(run[time][index]);
            }
            std::sort(counts.begin(), counts.end());
            ranges.push_back({counts[(counts.size() - 1) / 2], counts.front(), counts.back()});
        }
        levels.cassettes.push_back(std::move(ranges));
    }
    return levels;
}

}  // namespace qxmix
