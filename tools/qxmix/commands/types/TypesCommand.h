#pragma once

#include "options/Command.h"

namespace qxmix {

/// `qxmix types`: the catalogue of mixes as the module returns it.
class TypesCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;
};

}  // namespace qxmix
