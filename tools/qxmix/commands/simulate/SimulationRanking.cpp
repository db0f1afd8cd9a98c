#include "SimulationReport.h"

#include <algorithm>
#include <tuple>

namespace qxmix {

namespace {

using Summary = SimulationSummary;

template <typename Number>
bool IsLess(const Number& left, const Number& right) {
    return left < right;
}

template <typename Number>
bool IsLess(const std::optional<Number>& left, const std::optional<Number>& right) {
    return left && (!right || *left < *right);
}

/// The numbers of one mix in all runs.
class RunNumbers {
public:
    RunNumbers(const SimulationAnswers& answers, std::size_t place)
        : answers_(answers), place_(place) {}

    template <typename Number>
    RunRange<Number> Range(Number (*number)(const Summary&)) const {
        std::vector<Number> numbers;
        for (const auto& run : answers_.runs) {
            numbers.push_back(number(run[place_]));
        }
        std::sort(numbers.begin(), numbers.end(),
                  [](const Number& left, const Number& right) { return IsLess(left, right); });
        return {numbers[(numbers.size() - 1) / 2], numbers.front(), numbers.back()};
    }

    std::size_t Dangerous() const {
        return static_cast<std::size_t>(
            std::count_if(answers_.runs.begin(), answers_.runs.end(),
                          [this](const auto& run) { return run[place_].Dangerous() > 0; }));
    }

private:
    const SimulationAnswers& answers_;
    std::size_t place_;
};

std::optional<std::int64_t> RefusalTime(const Summary& summary) {
    return summary.firstRefusal ? std::make_optional(summary.firstRefusal->asked.time)
                                : std::nullopt;
}

std::optional<std::int64_t> EmptyTime(const Summary& summary) {
    return summary.emptied.empty() ? std::nullopt
                                   : std::make_optional(summary.emptied.front().time);
}

std::optional<Money> LeftThen(const Summary& summary) {
    return summary.firstRefusal ? std::make_optional(summary.firstRefusal->left) : std::nullopt;
}

SimulationRow RowOfMix(const SimulationQuestions& questions,
                       const SimulationAnswers& answers,
                       std::size_t place) {
    const RunNumbers runs(answers, place);
    SimulationRow row;
    row.place = place;
    row.mix = questions.mixes[place];
    row.dangerousRuns = runs.Dangerous();
    row.served = runs.Range<std::uint64_t>([](const Summary& s) { return s.Served(); });
    row.inPart = runs.Range<std::uint64_t>([](const Summary& s) { return s.InPart(); });
    row.refused = runs.Range<std::uint64_t>([](const Summary& s) { return s.Refused(); });
    row.dangerous = runs.Range<std::uint64_t>([](const Summary& s) { return s.Dangerous(); });
    row.tenths =
        runs.Range<std::uint64_t>([](const Summary& s) { return s.TenthsPerWithdrawal(); });
    row.spread =
        runs.Range<std::uint64_t>([](const Summary& s) { return std::uint64_t{s.spread}; });
    row.firstRefusal = runs.Range(&RefusalTime);
    row.firstEmpty = runs.Range(&EmptyTime);
    row.left = runs.Range(&LeftThen);
    return row;
}

/// Whether one mix stands before another.
bool IsBetter(const SimulationRow& left, const SimulationRow& right) {
    const bool isRanked = left.dangerousRuns == 0;
    if (isRanked != (right.dangerousRuns == 0)) {
        return isRanked;
    }
    const auto served = [isRanked](const SimulationRow& row) {
        return isRanked ? std::make_tuple(row.served.median, row.inPart.median)
                        : std::make_tuple(std::uint64_t{0}, std::uint64_t{0});
    };
    return served(left) != served(right) ? served(left) > served(right) : left.mix < right.mix;
}

}  // namespace

std::vector<SimulationRow> RankMixes(const SimulationQuestions& questions,
                                     const SimulationAnswers& answers) {
    std::vector<SimulationRow> rows;
    for (std::size_t place = 0; place < questions.mixes.size(); ++place) {
        rows.push_back(RowOfMix(questions, answers, place));
    }
    std::sort(rows.begin(), rows.end(), &IsBetter);
    std::size_t rank = 0;
    for (SimulationRow& row : rows) {
        if (row.dangerousRuns == 0) {
            row.rank = ++rank;
        }
    }
    return rows;
}

}  // namespace qxmix
