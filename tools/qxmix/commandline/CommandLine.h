#pragma once

#include "options/Command.h"

#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

namespace qxmix {

/// The tool's command line: all commands with their options.
class CommandLine {
public:
    CommandLine();

    /// What a command line asks for.
    enum class Request { Command, Help, CommandList, Version };

    /// @throw InputError when it is none.
    Request Parse(int argumentCount, const char* const* arguments);

    /// Request::Command: the command to run.
    Command& Chosen() const { return *commands_[ChosenIndex()]; }

    /// Request::Help: of the chosen command, or of the tool.
    std::string HelpText() const;

    const CommonOptions& Options() const { return options_; }
    const std::vector<std::unique_ptr<Command>>& Commands() const { return commands_; }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::size_t ChosenIndex() const;
    std::string ErrorText(const CLI::ParseError& error) const;
    std::string UnexpectedText() const;

    CLI::App parser_;
    CommonOptions options_;
    bool wantsVersion_ = false;
    std::vector<std::unique_ptr<Command>> commands_;
    std::vector<CLI::App*> parsers_;  // of the commands, in their order
};

}  // namespace qxmix
