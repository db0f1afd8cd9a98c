#pragma once

#include "SimulationAnswers.h"
#include "demand/RecordedDemand.h"
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
    SimulationQuestions Prepare(const CommonOptions& options) const;
    void CheckDrawing(const SimulationQuestions& questions) const;
    std::string CommandLine(const SimulationQuestions& questions,
                            const CommonOptions& options) const;

    std::string dispenser_;  // as named on the command line
    std::string demand_;
    std::optional<std::uint32_t> seed_;
    std::optional<std::uint32_t> runs_;
    SheetOptions sheet_ = RecordedSheet();
    JobsOption jobs_;
    OutputOption output_{AllForms()};
    AskOptions ask_;
};

}  // namespace qxmix
