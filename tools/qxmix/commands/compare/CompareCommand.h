#pragma once

#include "CompareAnswers.h"
#include "TableComparison.h"
#include "options/AmountRange.h"
#include "options/AskOptions.h"
#include "options/Command.h"
#include "options/JobsOption.h"
#include "options/OutputOption.h"

#include <array>
#include <string>

namespace qxmix {

/// `qxmix compare`: two dispensers or two builds of the module, what changes for whom; or a mix
/// table, where it differs from a mix.
class CompareCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    ExitStatus RunTable(const CommonOptions& options);
    TableQuestions PrepareTable(const CommonOptions& options) const;
    CompareQuestions Prepare(const CommonOptions& options) const;
    MapQuestions PrepareSide(const std::string& name, const CommonOptions& options) const;
    AmountRange RangeOf(const CompareQuestions& questions) const;
    std::array<std::string, 2> Names(const CommonOptions& options) const;

    std::string a_;      // as named on the command line
    std::string b_;      // empty: the same as a_
    std::string table_;  // empty: not given
    AmountRangeOptions range_;
    AskOptions ask_;
    JobsOption jobs_;
    OutputOption output_{FormsWithoutPage()};
};

}  // namespace qxmix
