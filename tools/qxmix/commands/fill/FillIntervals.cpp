#include "FillIntervals.h"

#include <utility>

namespace qxmix {

namespace {

/// Whether an interval is proposed in place of a shorter one.
bool IsBetter(const FillInterval& later, const FillInterval& earlier) {
    if (later.best.load.has_value() != earlier.best.load.has_value()) {
        return later.best.load.has_value();
    }
    if (later.best.isReached != earlier.best.isReached) {
        return later.best.isReached;
    }
    if (!later.best.isReached || !later.cost) {
        return false;
    }
    return !earlier.cost || *later.cost < *earlier.cost;
}

}  // namespace

FillReport FillIntervals(FillQuestions questions, const IntervalFill& fill) {
    const auto answer = [&fill](FillQuestions asked) {
        RunDemands demands = asked.Demands();
        FillAnswers answers = fill(asked, demands);
        return FillReport(std::move(asked), std::move(demands), std::move(answers));
    };
    if (!questions.range) {
        return answer(std::move(questions));
    }
    std::vector<FillInterval> intervals;
    std::optional<FillReport> chosen;
    std::size_t best = 0;
    bool isComplete = true;
    for (std::uint32_t days = questions.range->from; isComplete && days <= questions.range->to;
         ++days) {
        SetDays(questions.demand, days);
        FillReport report = answer(questions);
        isComplete = report.answers.isComplete;
        const MixFill& mix = report.answers.mixes.front();
        intervals.push_back({days, mix, report.CostOf(mix)});
        if (!chosen || IsBetter(intervals.back(), intervals[best])) {
            best = intervals.size() - 1;
            chosen.emplace(std::move(report));
        }
    }
    chosen->answers.isComplete = isComplete;
    return {std::move(chosen->questions), std::move(chosen->demands), std::move(chosen->answers),
            std::move(intervals)};
}

}  // namespace qxmix
