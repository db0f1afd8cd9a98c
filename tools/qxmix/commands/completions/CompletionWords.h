#pragma once

#include "options/Parser.h"

#include <string>
#include <vector>

namespace qxmix {

/// What may stand behind an option, or in the place of an argument.
struct CompletionValue {
    bool isFile = false;
    std::vector<std::string> words;  ///< empty and no file: something that nobody can guess
};

struct CompletionOption {
    std::vector<std::string> names;  ///< with their dashes
    std::string help;
    std::string typeName;  ///< empty: takes no value
    CompletionValue value;
};

/// One command, or the tool itself without one.
struct CompletionCommand {
    std::string name;
    std::string help;
    std::vector<CompletionOption> options;
    CompletionValue argument;  ///< of what stands without an option
};

/// The tool's words, taken from its parser.
struct CompletionWords {
    CompletionCommand tool;
    std::vector<CompletionCommand> commands;
};

CompletionWords WordsOf(const CLI::App& tool);

/// All names of an option with one character between them.
std::string NamesOf(const CompletionOption& option, const std::string& separator);

std::string BashCompletions(const CompletionWords& words);
std::string ZshCompletions(const CompletionWords& words);
std::string FishCompletions(const CompletionWords& words);

}  // namespace qxmix
