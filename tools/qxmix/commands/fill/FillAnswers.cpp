#include "FillAnswers.h"

#include "MixSearch.h"
#include "errors/Errors.h"

#include <algorithm>

namespace qxmix {

namespace {

/// Whether one mix stands before another.
bool IsBetter(const MixFill& left, const MixFill& right) {
    if (left.load.has_value() != right.load.has_value()) {
        return left.load.has_value();
    }
    if (left.isReached != right.isReached) {
        return left.isReached;
    }
    if (!left.load) {
        return left.mix < right.mix;
    }
    const FillOutcome& mine = left.load->outcome;
    const FillOutcome& other = right.load->outcome;
    const bool isAsGood = mine.promised.Reaches(other.promised);
    if (!left.isReached && isAsGood != other.promised.Reaches(mine.promised)) {
        return isAsGood;
    }
    const Price& price = left.load->price;
    const bool isDearer = right.load->price < price;
    return price < right.load->price || (!isDearer && left.mix < right.mix);
}

}  // namespace

FillAnswers Fill(const FillQuestions& questions,
                 const RunDemands& demands,
                 const OpenOrder& order,
                 const TraceSink& trace,
                 const std::function<void(const FillProgress&)>& progress) {
    FillProgress known;
    const FillLoading loading(questions.dispenser, questions.bundle, demands);
    FillRuns runs(questions, demands, order, trace, [&] { progress(known); });
    FillAnswers answers;
    answers.least = LeastWorth(questions, demands, questions.service);
    answers.cassettes = loading.Cassettes();
    MixSearch search({questions, demands, runs, known});
    for (const std::uint16_t mix : questions.mixes) {
        answers.mixes.emplace_back();
        answers.mixes.back().mix = mix;
        try {
            search.Run(answers.mixes.back());
        } catch (const Interruption&) {
            answers.isComplete = false;
            break;
        }
    }
    std::sort(answers.mixes.begin(), answers.mixes.end(), &IsBetter);
    return answers;
}

}  // namespace qxmix
