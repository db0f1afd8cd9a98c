#include "Costs.h"

#include "HostRequest.h"

#include <algorithm>
#include <cstring>

namespace emulation {

const std::vector<unsigned> kWalkedMixes{1, 2, 3, 5, 6, 7, 8, 10};
const std::vector<unsigned> kFirstFitMixes{4, 9};

namespace {

Cost AskOnce(RequestPlayer& player,
             const bench::Question& question,
             unsigned mix,
             std::uint64_t budget) {
    const MixRequest request = bench::RequestOf(question, mix);
    property::Answer answer;
    static_assert(sizeof(request) == sizeof(answer.request));
    std::memcpy(answer.request.data(), &request, sizeof(request));
    const CallReport report = player.Calculate(reference::Object{}, 0, answer, budget);
    if (!report.fault.empty()) {
        EmulatedModule::Value(report);  // throws
    }
    return {report.returned, report.instructions, report.stackBytes};
}

}  // namespace

std::uint64_t CostRow::Median() const {
    std::vector<std::uint64_t> answered;
    for (const Cost& cost : costs) {
        if (cost.answered) {
            answered.push_back(cost.instructions);
        }
    }
    if (answered.empty()) {
        return 0;
    }
    const auto middle = answered.begin() + static_cast<std::ptrdiff_t>(answered.size() / 2);
    std::nth_element(answered.begin(), middle, answered.end());
    return *middle;
}

std::uint64_t CostRow::Most() const {
    std::uint64_t most = 0;
    for (const Cost& cost : costs) {
        most = cost.answered ? std::max(most, cost.instructions) : most;
    }
    return most;
}

std::uint32_t CostRow::DeepestStack() const {
    std::uint32_t deepest = 0;
    for (const Cost& cost : costs) {
        deepest = std::max(deepest, cost.stackBytes);
    }
    return deepest;
}

std::size_t CostRow::Unanswered() const {
    return static_cast<std::size_t>(
        std::count_if(costs.begin(), costs.end(), [](const Cost& cost) { return !cost.answered; }));
}

std::vector<CostRow> MeasureCosts(RequestPlayer& player,
                                  const bench::QuestionSet& set,
                                  const std::vector<unsigned>& mixes,
                                  std::uint64_t budget) {
    std::vector<CostRow> rows;
    for (const unsigned mix : mixes) {
        CostRow row{set.name, mix, {}};
        for (const bench::Question& question : set.questions) {
            row.costs.push_back(AskOnce(player, question, mix, budget));
        }
        rows.push_back(row);
    }
    return rows;
}

}  // namespace emulation
