#pragma once

#include "CommonOptions.h"
#include "Parser.h"
#include "errors/Errors.h"

#include <memory>
#include <string>
#include <vector>

namespace qxmix {

/// What --help says of a command beside its options.
struct CommandInfo {
    std::string name;
    std::string sentence;               ///< one sentence with its full stop
    std::vector<std::string> synopsis;  ///< without the tool's name
    std::vector<std::string> examples;  ///< without the tool's name
};

/// One command of the tool: its options, and what it does with them.
class Command {
public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    virtual const CommandInfo& Info() const = 0;

    /// Adds the command's own options; those of every command are there already.
    virtual void AddOptions(CLI::App& command) = 0;

    /// Does it.
    ///
    /// @throw ToolError
    virtual ExitStatus Run(const CommonOptions& options) = 0;
};

/// All commands, in the order in which the tool lists them.
std::vector<std::unique_ptr<Command>> AllCommands();

}  // namespace qxmix
