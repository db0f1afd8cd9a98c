#pragma once

#include "LintAccept.h"
#include "LintAnswers.h"
#include "LintReport.h"
#include "fleet/AskFleet.h"
#include "fleet/DispenserNames.h"
#include "options/AmountRange.h"
#include "options/AskOptions.h"
#include "options/AskedModule.h"
#include "options/Command.h"
#include "options/JobsOption.h"
#include "options/OutputOption.h"

#include <string>
#include <vector>

namespace qxmix {

/// `qxmix lint`: what is wrong with a dispenser, and what to do about it.
class LintCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    /// What was asked of one dispenser, and what is wrong with it.
    struct Linted {
        LintCases cases;
        std::vector<LintFinding> findings;
        ExitStatus status;
    };

    /// What all dispensers of a run have in common beside this command's own options.
    struct LintSetting {
        const CommonOptions& options;
        const LintBaseline& baseline;
    };

    std::vector<LintQuestions> Prepare(const std::string& dispenser,
                                       const CommonOptions& options) const;
    LintQuestions PrepareOne(const Dispenser& dispenser, const CommonOptions& options) const;
    static Linted Lint(const std::string& dispenser,
                       std::vector<LintQuestions>& questions,
                       AskedModule& module,
                       const LintSetting& setting,
                       const ProgressListener& listen);
    ExitStatus RunOne(const CommonOptions& options, const LintBaseline& baseline) const;
    ExitStatus RunMany(const CommonOptions& options, const LintBaseline& baseline) const;
    std::string ReportBytes(const std::string& dispenser,
                            const LintSetting& setting,
                            const Painter& painter,
                            const OpenHere& here) const;
    Json FleetInputJson(std::size_t count, const CommonOptions& options) const;
    std::string CommandLine(const CommonOptions& options) const;

    DispenserNames dispensers_;
    std::string rawIn_;  // empty: not given
    AmountRangeOptions range_;
    std::optional<Milliseconds> slow_;
    JobsOption jobs_;
    bool tellsAll_ = false;
    std::string baseline_;  // empty: not given
    OutputOption output_{CheckForms()};
    AskOptions ask_;
};

}  // namespace qxmix
