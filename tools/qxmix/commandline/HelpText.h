#pragma once

#include "options/Command.h"
#include "options/Parser.h"

#include <memory>
#include <string>
#include <vector>

namespace qxmix {

/// The help of one command: a sentence, the synopsis, examples, the options of its parser.
std::string CommandHelp(const CommandInfo& info, const CLI::App& parser);

/// The list of commands, as the tool prints it when it is called alone.
std::string CommandList(const std::vector<std::unique_ptr<Command>>& commands);

}  // namespace qxmix
