#pragma once

#include "FillReport.h"
#include "demand/DemandOptions.h"
#include "options/AskOptions.h"
#include "options/Command.h"
#include "options/JobsOption.h"
#include "options/OutputOption.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// `qxmix fill`: the least money with which a dispenser serves its customers until the next refill.
class FillCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    void TakeDays(const std::string& text);
    void TakeNotes(const std::string& text);
    void CheckNotes(const Dispenser& dispenser) const;
    FillQuestions Prepare(const CommonOptions& options) const;
    void PrepareDemand(FillQuestions& questions) const;
    ExitStatus Write(const FillReport& report,
                     const CommonOptions& options,
                     const std::optional<OutputForm>& form,
                     Asker& asker) const;
    std::string CommandLine(const FillQuestions& questions, const CommonOptions& options) const;

    std::string dispenser_;  // as named on the command line
    DemandOptions demand_;
    std::string service_ = "99.5";
    std::uint32_t bundle_ = 100;
    std::optional<std::uint32_t> days_;
    std::optional<DayRange> dayRange_;
    std::vector<std::uint32_t> notes_;  // empty: those that the cassettes have
    std::string save_;                  // file for the loaded dispenser; empty: none
    JobsOption jobs_;
    OutputOption output_{AllForms()};
    AskOptions ask_;
};

}  // namespace qxmix
