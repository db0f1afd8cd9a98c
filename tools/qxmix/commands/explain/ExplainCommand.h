#pragma once

#include "amounts/AmountArguments.h"
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

    AmountArguments asked_;
};

}  // namespace qxmix
