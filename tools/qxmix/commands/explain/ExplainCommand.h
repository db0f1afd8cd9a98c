#pragma once

#include "commands/mix/MixAnswers.h"
#include "options/AskOptions.h"
#include "options/Command.h"

#include <string>

namespace qxmix {

/// `qxmix explain`: why an amount is paid as it is, or is not.
class ExplainCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    MixQuestions Prepare() const;

    std::string dispenser_;  // as named on the command line
    std::string amount_;
    AskOptions ask_;
};

}  // namespace qxmix
