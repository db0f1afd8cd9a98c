#pragma once

#include "FillQuestions.h"
#include "demand/Simulation.h"
#include "workers/WorkerPool.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// How one run went with a loading.
struct FillRun {
    std::vector<SimulationStep> steps;
    SimulationSummary summary;
    std::string lastCode;  ///< error code that was left last; empty: none

    ServedShare Served(const Demand& demand) const {
        return {summary.Served(), demand.withdrawals.size()};
    }
};

/// Asks the module what becomes of loadings: of each in the same runs.
class FillRuns {
public:
    /// Is told of each stretch of a run that was asked.
    using Listener = std::function<void()>;

    /// @param order  the library and what it reads.
    /// @param trace  hears the module's lines; one withdrawal after the other is asked then.
    FillRuns(const FillQuestions& questions,
             const RunDemands& demands,
             const OpenOrder& order,
             const TraceSink& trace,
             Listener listener);

    /// All runs of a mix with a loaded dispenser, by run.
    ///
    /// @throw WorkError when the library cannot be used, Interruption after Ctrl-C; after that
    /// nothing more can be asked.
    std::vector<FillRun> All(std::uint16_t mix, const Dispenser& loaded);

    /// The same if enough of them reach a service and none is dangerous, else nothing; then it
    /// does not ask more than it needs to know that.
    std::optional<std::vector<FillRun>>
    Reaching(std::uint16_t mix, const Dispenser& loaded, const ServedShare& service);

private:
    struct OpenRun {
        std::size_t run;
        Simulation simulation;
        std::size_t oneByOne = 0;  // so many withdrawals more are asked one by one
    };

    std::vector<FillRun> Ask(std::uint16_t mix, const Dispenser& loaded);
    void BeginRun(std::uint16_t mix, const Dispenser& loaded, std::size_t place);
    WorkerPool::Task NextTask(std::uint16_t mix, std::size_t place);
    void Take(const WorkerPool::Task& task, const Reply& reply);
    void Close(OpenRun& open);
    bool IsEnough() const;

    const FillQuestions& questions_;
    const RunDemands& demands_;
    bool traces_;
    Listener listener_;
    WorkerPool pool_;
    std::vector<std::size_t> order_;  // of the runs: those that failed last come first

    // Of the loading that is asked.
    std::optional<ServedShare> service_;  // to be reached; none: all runs are wanted
    std::vector<std::optional<OpenRun>> open_;
    std::vector<std::size_t> ready_;  // places of open_ that wait for nothing
    std::vector<FillRun> came_;
    std::vector<std::size_t> failed_;  // runs that miss the service
    bool isDangerous_ = false;
};

}  // namespace qxmix
