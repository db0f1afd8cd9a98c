#pragma once

#include "MapReport.h"
#include "options/AmountRange.h"
#include "options/AskOptions.h"
#include "options/AskedModule.h"
#include "options/Command.h"
#include "options/JobsOption.h"
#include "options/OutputOption.h"
#include "sweeps/MapAnswers.h"

#include <string>
#include <vector>

namespace qxmix {

/// `qxmix map`: every amount by every mix.
class MapCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    std::vector<MapQuestions> Prepare(const CommonOptions& options) const;
    MapReports Ask(std::vector<MapQuestions> questions,
                   AskedModule& module,
                   const CommonOptions& options) const;
    std::string CommandLine(const MapReports& reports, const CommonOptions& options) const;

    std::string dispenser_;  // as named on the command line
    std::string rawIn_;      // empty: not given
    AmountRangeOptions range_;
    JobsOption jobs_;
    OutputOption output_{FormsWithMixTable()};
    AskOptions ask_;
};

}  // namespace qxmix
