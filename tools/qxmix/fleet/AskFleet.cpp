#include "AskFleet.h"

#include "workers/ModuleHere.h"

#include <deque>
#include <optional>

namespace qxmix {

namespace {

/// Before the name of a dispenser: whether its module is asked in the worker's own process.
constexpr char kHere = 'h';
constexpr char kElsewhere = 'a';

/// The work is no item with a deadline; its calculations have theirs.
constexpr Milliseconds kNoDeadline = std::chrono::hours(24);

class FleetDesk final : public Desk {
public:
    FleetDesk(const std::vector<std::string>& names, const FleetSink& sink)
        : names_(names), sink_(sink) {}

    std::optional<WorkerPool::Task> NextTask() override {
        if (!again_.empty()) {
            const std::size_t place = again_.front();
            again_.pop_front();
            return TaskOf(place, kElsewhere);
        }
        if (next_ == names_.size()) {
            return std::nullopt;
        }
        return TaskOf(next_++, kHere);
    }

    void Take(const WorkerPool::Task& task, const Reply& reply) override {
        const auto place = static_cast<std::size_t>(task.number);
        if (reply.report.empty() && task.job.front() == kHere) {
            again_.push_back(place);
            return;
        }
        CountDone(1, 0);
        sink_(place, reply.report, reply.ending.crash);
    }

private:
    WorkerPool::Task TaskOf(std::size_t place, char where) const {
        WorkerPool::Task task;
        task.number = place;
        task.request = MixRequest{};
        task.deadline = kNoDeadline;
        task.job = where + names_[place];
        return task;
    }

    const std::vector<std::string>& names_;
    const FleetSink& sink_;
    std::size_t next_ = 0;
    std::deque<std::size_t> again_;
};

}  // namespace

bool AskFleet(const std::vector<std::string>& names,
              const FleetWorkers& workers,
              const DispenserWork& work,
              const FleetSink& sink) {
    const auto modules = std::make_shared<LastModuleHere>();
    const Job job = [&work, modules](const std::string& bytes, AtWork& at) {
        const bool isHere = bytes.front() == kHere;
        std::string report = work(bytes.substr(1), [&](const OpenOrder& wanted) {
            return isHere ? modules->For(wanted) : nullptr;
        });
        if (modules->Count() >= kMostModules) {
            at.WearOut();
        }
        return report;
    };
    FleetDesk desk(names, sink);
    return WorkOff(desk, workers.order, workers.jobs, nullptr, workers.listen, job);
}

}  // namespace qxmix
