#pragma once

#include "amounts/AmountArguments.h"
#include "amounts/MixAnswers.h"
#include "amounts/Neighbours.h"
#include "options/Command.h"

#include <optional>
#include <string>

namespace qxmix {

/// `qxmix mix`: what is paid, from where.
class MixCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    MixQuestions Prepare() const;
    void WriteFiles(const CommonOptions& options,
                    const MixQuestions& questions,
                    const MixAnswers& answers,
                    const std::string& registry) const;
    std::string Render(const CommonOptions& options,
                       const MixQuestions& questions,
                       const MixAnswers& answers,
                       const std::optional<Surroundings>& around,
                       const Asker& asker) const;

    AmountArguments asked_;
    std::string rawOut_;
    std::string record_;
};

}  // namespace qxmix
