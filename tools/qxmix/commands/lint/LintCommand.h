#pragma once

#include "LintAnswers.h"
#include "LintReport.h"
#include "options/AmountRange.h"
#include "options/AskOptions.h"
#include "options/Command.h"
#include "options/JobsOption.h"

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
    LintQuestions Prepare(const CommonOptions& options) const;
    std::string RenderJson(const LintCase& lint,
                           const std::vector<LintFinding>& findings,
                           ExitStatus status,
                           const Asker& asker) const;

    std::string dispenser_;  // as named on the command line
    std::string rawIn_;      // empty: not given
    AmountRangeOptions range_;
    std::string slow_;  // empty: not given
    JobsOption jobs_;
    AskOptions ask_;
};

}  // namespace qxmix
