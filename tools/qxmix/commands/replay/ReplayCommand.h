#pragma once

#include "Journal.h"
#include "JournalReplay.h"
#include "ReplayAnswers.h"
#include "options/Command.h"

#include <string>

namespace qxmix {

/// `qxmix replay`: recorded requests asked again.
class ReplayCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    std::string EnvelopeTextOf(const ReplayAnswers& answers,
                               const CommonOptions& options,
                               std::vector<AskerPool>& libraries) const;

    void CheckTrace(const CommonOptions& options) const;

    std::string trace_;  // as named on the command line
    JournalArguments journal_ = {"", "", JournalSheet()};
    bool stops_ = false;
    bool refusesFiles_ = false;
};

}  // namespace qxmix
