#include "SimulationAnswers.h"

#include "demand/Simulation.h"

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <utility>

namespace qxmix {

namespace {

/// Hands out the withdrawals of several simulations in turn, and files what came of them.
///
/// As many simulations wait for an answer as there are busy workers: whoever brings an answer
/// takes the next question of some simulation with it.
class SimulationDesk final : public Desk {
public:
    SimulationDesk(const SimulationQuestions& questions, SimulationAnswers& answers)
        : questions_(questions), answers_(answers), codes_(questions.mixes.size()) {
        answers_.planned = static_cast<std::size_t>(SizeOf(questions.demand, questions.seed));
    }

    std::optional<WorkerPool::Task> NextTask() override {
        if (ready_.empty() && nextRun_ < questions_.runs) {
            BeginRun();
        }
        if (ready_.empty()) {
            return std::nullopt;
        }
        // The one that waits longest, so that all mixes are about as far when Ctrl-C comes.
        const std::uint64_t number = ready_.front();
        ready_.pop_front();
        WorkerPool::Task task;
        task.number = number;
        task.request = open_.at(number)->NextRequest();
        task.deadline = questions_.deadline;
        return task;
    }

    void Take(const WorkerPool::Task& task, const Reply& reply) override {
        Simulation& simulation = *open_.at(task.number);
        simulation.Take(reply);
        CountDone(1, reply.ending.kind == Ending::Kind::NoAnswer ? 1 : 0);
        if (!simulation.IsOver()) {
            ready_.push_back(task.number);
            return;
        }
        const auto run = static_cast<std::size_t>(task.number / questions_.mixes.size());
        CountDone(answers_.sizes[run] - simulation.Steps().size(), 0);
        Close(task.number);
    }

    /// Keeps what is whole; of the first run what all mixes have.
    void Interrupt() {
        answers_.isComplete = false;
        if (answers_.wholeRuns > 0) {
            answers_.runs.resize(answers_.wholeRuns);
            answers_.sizes.resize(answers_.wholeRuns);
            return;
        }
        std::size_t common = answers_.planned;
        for (std::size_t row = 0; row < questions_.mixes.size(); ++row) {
            const auto simulation = open_.find(row);
            if (simulation != open_.end()) {
                answers_.steps[row] = simulation->second->Steps();
                codes_[row] = simulation->second->LastCode();
                common = std::min(common, answers_.steps[row].size());
            }
        }
        answers_.demand.withdrawals.resize(common);
        for (std::size_t row = 0; row < questions_.mixes.size(); ++row) {
            std::vector<SimulationStep>& steps = answers_.steps[row];
            steps.resize(std::min(common, steps.size()));
            answers_.runs[0][row] = SummaryOf(questions_.dispenser, answers_.demand, steps);
        }
        answers_.runs.resize(1);
        answers_.sizes = {common};
    }

    void KeepLastCode() {
        for (const std::string& code : codes_) {
            answers_.lastCode = code.empty() ? answers_.lastCode : code;
        }
    }

private:
    void BeginRun() {
        const std::size_t mixes = questions_.mixes.size();
        const auto demand = std::make_shared<const Demand>(questions_.DemandOfRun(nextRun_));
        if (nextRun_ == 0) {
            answers_.demand = *demand;
            answers_.steps.resize(mixes);
        }
        answers_.runs.emplace_back(mixes);
        answers_.sizes.push_back(demand->withdrawals.size());
        left_.push_back(mixes);
        for (std::size_t row = 0; row < mixes; ++row) {
            const std::uint64_t number = nextRun_ * mixes + row;
            open_[number] =
                std::make_unique<Simulation>(questions_.dispenser, demand, questions_.mixes[row]);
            ready_.push_back(number);
        }
        ++nextRun_;
    }

    void Close(std::uint64_t number) {
        const auto run = static_cast<std::size_t>(number / questions_.mixes.size());
        const auto row = static_cast<std::size_t>(number % questions_.mixes.size());
        const std::unique_ptr<Simulation> simulation = std::move(open_.at(number));
        open_.erase(number);
        answers_.runs[run][row] = simulation->Summary();
        codes_[row] = simulation->LastCode();
        if (run == 0) {
            answers_.steps[row] = simulation->Steps();
        }
        --left_[run];
        while (answers_.wholeRuns < left_.size() && left_[answers_.wholeRuns] == 0) {
            ++answers_.wholeRuns;
        }
    }

    const SimulationQuestions& questions_;
    SimulationAnswers& answers_;
    std::map<std::uint64_t, std::unique_ptr<Simulation>> open_;  // by run times mixes plus row
    std::deque<std::uint64_t> ready_;                            // those that wait for nothing
    std::uint32_t nextRun_ = 0;
    std::vector<std::size_t> left_;   // simulations of each run that are not over
    std::vector<std::string> codes_;  // that each mix left last
};

}  // namespace

SimulationAnswers Simulate(const SimulationQuestions& questions,
                           const OpenOrder& order,
                           const TraceSink& trace,
                           const ProgressListener& progress) {
    SimulationAnswers answers;
    SimulationDesk desk(questions, answers);
    if (!WorkOff(desk, order, questions.jobs, trace, progress)) {
        desk.Interrupt();
    }
    desk.KeepLastCode();
    return answers;
}

}  // namespace qxmix
