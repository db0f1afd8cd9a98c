#include "FillRuns.h"

#include "RunStretch.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace qxmix {

namespace {

/// Withdrawals of a stretch; fewer with a short deadline, which holds for the whole of it.
constexpr std::int64_t kMostOfStretch = 2048;
constexpr std::chrono::microseconds kTimeOfOne{20};

}  // namespace

FillRuns::FillRuns(const FillQuestions& questions,
                   const RunDemands& demands,
                   const OpenOrder& order,
                   const TraceSink& trace,
                   Listener listener)
    : questions_(questions), demands_(demands), traces_(trace != nullptr),
      listener_(std::move(listener)), pool_(order,
                                            traces_ ? 1 : questions.jobs,
                                            trace,
                                            RunJob(order.library, questions.dispenser, demands)),
      order_(demands.size()) {
    std::iota(order_.begin(), order_.end(), 0);
}

std::vector<FillRun> FillRuns::All(std::uint16_t mix, const Dispenser& loaded) {
    service_.reset();
    return Ask(mix, loaded);
}

std::optional<std::vector<FillRun>>
FillRuns::Reaching(std::uint16_t mix, const Dispenser& loaded, const ServedShare& service) {
    service_ = service;
    std::vector<FillRun> runs = Ask(mix, loaded);
    // A neighbour of this loading will most likely fail in the same runs.
    std::stable_partition(order_.begin(), order_.end(), [this](std::size_t run) {
        return std::count(failed_.begin(), failed_.end(), run) != 0;
    });
    return IsEnough() ? std::nullopt : std::make_optional(std::move(runs));
}

std::vector<FillRun> FillRuns::Ask(std::uint16_t mix, const Dispenser& loaded) {
    open_.clear();
    ready_.clear();
    failed_.clear();
    isDangerous_ = false;
    came_.assign(demands_.size(), FillRun());
    std::size_t begun = 0;
    const auto source = [&]() -> std::optional<WorkerPool::Task> {
        if (IsEnough()) {
            return std::nullopt;
        }
        if (ready_.empty() && begun < order_.size()) {
            BeginRun(mix, loaded, begun++);
        }
        if (ready_.empty()) {
            return std::nullopt;
        }
        const std::size_t place = ready_.back();
        ready_.pop_back();
        return NextTask(mix, place);
    };
    pool_.Run(source, [this](const WorkerPool::Task& task, const Reply& reply) {
        Take(task, reply);
        listener_();
    });
    return std::move(came_);
}

void FillRuns::BeginRun(std::uint16_t mix, const Dispenser& loaded, std::size_t place) {
    const std::size_t run = order_[place];
    open_.emplace_back(OpenRun{run, Simulation(loaded, demands_[run], mix)});
    ready_.push_back(open_.size() - 1);
}

WorkerPool::Task FillRuns::NextTask(std::uint16_t mix, std::size_t place) {
    OpenRun& open = *open_[place];
    WorkerPool::Task task;
    task.number = place;
    task.deadline = questions_.deadline;
    task.request = open.simulation.NextRequest();
    if (traces_ || open.oneByOne > 0) {
        return task;
    }
    RunOrder order;
    order.run = static_cast<std::uint32_t>(open.run);
    order.mix = mix;
    order.first = open.simulation.Done();
    order.most = static_cast<std::uint64_t>(
        std::clamp<std::int64_t>(questions_.deadline / kTimeOfOne, 1, kMostOfStretch));
    order.longest = std::chrono::microseconds(questions_.deadline) / 4;
    order.cassettes = open.simulation.Now().cassettes;
    task.job = ToJob(order);
    return task;
}

void FillRuns::Take(const WorkerPool::Task& task, const Reply& reply) {
    OpenRun& open = *open_[static_cast<std::size_t>(task.number)];
    const bool isAnswered = reply.ending.LeavesWorker();
    if (task.job.empty()) {
        open.simulation.Take(reply);
        open.oneByOne = isAnswered && open.oneByOne > 0 ? open.oneByOne - 1 : 0;
    } else if (isAnswered) {
        const RunAnswer answer = ReadRunAnswer(reply.report);
        for (const SimulationStep& step : answer.steps) {
            open.simulation.Take(step, answer.code);
        }
    } else {
        // Which withdrawal takes so long, or makes it crash, shows when they are asked one by one.
        open.oneByOne = kMostOfStretch;
    }
    if (open.simulation.IsOver()) {
        Close(open);
        open_[static_cast<std::size_t>(task.number)].reset();
    } else {
        ready_.push_back(static_cast<std::size_t>(task.number));
    }
}

void FillRuns::Close(OpenRun& open) {
    FillRun& run = came_[open.run];
    run.steps = open.simulation.Steps();
    run.summary = open.simulation.Summary();
    run.lastCode = open.simulation.LastCode();
    isDangerous_ = isDangerous_ || run.summary.Dangerous() > 0;
    if (service_ && !run.Served(*demands_[open.run]).Reaches(*service_)) {
        failed_.push_back(open.run);
    }
}

bool FillRuns::IsEnough() const {
    return service_ && (isDangerous_ || failed_.size() > questions_.MostMisses());
}

}  // namespace qxmix
