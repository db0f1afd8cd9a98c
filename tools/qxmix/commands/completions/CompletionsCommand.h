#pragma once

#include "options/Command.h"

#include <string>

namespace qxmix {

/// `qxmix completions`: a script that completes the tool's command lines in a shell.
class CompletionsCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    const CLI::App* parser_ = nullptr;
    std::string shell_;
};

}  // namespace qxmix
