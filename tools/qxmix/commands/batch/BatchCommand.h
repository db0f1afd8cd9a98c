#pragma once

#include "BatchRun.h"
#include "options/AskOptions.h"
#include "options/Command.h"
#include "options/JobsOption.h"

namespace qxmix {

/// `qxmix batch`: a stream of requests, one a line.
class BatchCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    void CheckMixes() const;

    bool hasEnvelope_ = false;
    bool refusesFiles_ = false;
    JobsOption jobs_;
    AskOptions ask_;
};

}  // namespace qxmix
