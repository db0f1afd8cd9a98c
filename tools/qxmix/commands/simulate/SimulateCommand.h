#pragma once

#include "SimulationAnswers.h"
#include "demand/RecordedDemand.h"
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
    SimulationQuestions Prepare(const std::string& dispenser, const CommonOptions& options) const;
    ExitStatus RunOne(const CommonOptions& options) const;
    ExitStatus RunMany(const CommonOptions& options) const;
    std::string ReportBytes(const std::string& dispenser,
                            const CommonOptions& options,
                            const Painter& painter,
                            const OpenHere& here) const;
    Json FleetInputJson(std::size_t count, const CommonOptions& options) const;
    std::string FleetCommandLine(const CommonOptions& options) const;
    void CheckDrawing(const SimulationQuestions& questions) const;
    std::string CommandLine(const SimulationQuestions& questions,
                            const CommonOptions& options) const;

    DispenserNames dispensers_;
    std::string demand_;
    std::optional<std::uint32_t> seed_;
    std::optional<std::uint32_t> runs_;
    SheetOptions sheet_ = RecordedSheet();
    JobsOption jobs_;
    bool tellsAll_ = false;
    OutputOption output_{AllForms()};
    AskOptions ask_;
};

}  // namespace qxmix
