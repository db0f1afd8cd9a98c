#pragma once

#include "options/Command.h"

#include <string>
#include <vector>

namespace qxmix {

/// `qxmix registry`: what the module takes from a registry file, and writing such a file.
class RegistryCommand final : public Command {
public:
    const CommandInfo& Info() const override;
    void AddOptions(CLI::App& command) override;
    ExitStatus Run(const CommonOptions& options) override;

private:
    std::string ReadAndChange() const;

    std::string file_;
    std::vector<std::string> settings_;  // NAME=VALUE
    bool clearsError_ = false;
    std::string output_;
};

}  // namespace qxmix
