#pragma once

#include "SimulationAnswers.h"
#include "demand/DemandOptions.h"
#include "fleet/AskFleet.h"
#include "fleet/DispenserNames.h"
#include "options/AskOptions.h"
#include "options/Command.h"
#include "options/JobsOption.h"
#include "options/OutputOption.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// `qxmix simulate`: the same withdrawals against cassettes that drain, by every mix.
class SimulateCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    /// @param demand  of many dispensers, read already; null: it is read after the dispenser.
    SimulationQuestions Prepare(const std::string& dispenser,
                                const CommonOptions& options,
                                const DemandFile* demand) const;
    ExitStatus RunOne(const CommonOptions& options) const;
    ExitStatus RunMany(const CommonOptions& options) const;
    std::string ReportBytes(const std::string& dispenser,
                            const CommonOptions& options,
                            const DemandFile& demand,
                            const Painter& painter,
                            const OpenHere& here) const;
    Json FleetInputJson(std::size_t count, const CommonOptions& options) const;
    std::string FleetCommandLine(const CommonOptions& options) const;
    void CheckDrawing(const DemandFile& demand) const;
    std::string CommandLine(const SimulationQuestions& questions,
                            const CommonOptions& options) const;

    DispenserNames dispensers_;
    DemandOptions demand_;
    JobsOption jobs_;
    bool tellsAll_ = false;
    OutputOption output_{AllForms()};
    AskOptions ask_;
};

}  // namespace qxmix
