#include "CompletionWords.h"

#include "mixes/MixTraits.h"
#include "options/MixList.h"
#include "text/TextList.h"

#include <CLI/App.hpp>
#include <map>

namespace qxmix {

namespace {

std::vector<std::string> MixWords() {
    std::vector<std::string> words;
    for (const std::uint16_t mix : AllMixes()) {
        words.push_back(std::to_string(mix));
    }
    words.emplace_back("all");
    return words;
}

/// What the parser does not know: which words a value has.
CompletionValue ValueOf(const std::string& option, const std::string& typeName) {
    static const std::map<std::string, std::vector<std::string>> known = {
        {"--mix", MixWords()},
        {"--mixes", MixWords()},
        {"--color", {"auto", "always", "never"}},
        {"--columns", {"time=", "amount=", "currency="}},
        {"--dates", {"dmy", "mdy"}},
        {"--set", {"TraceLevel=", "CSTMinimum4Mix6="}}};
    const auto words = known.find(option);
    return {typeName == "FILE", words == known.end() ? std::vector<std::string>() : words->second};
}

CompletionOption OptionOf(const CLI::Option& option) {
    CompletionOption words;
    for (const std::string& name : option.get_snames()) {
        words.names.push_back("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        words.names.push_back("--" + name);
    }
    words.help = option.get_description();
    if (option.get_expected_min() > 0) {
        words.typeName = option.get_type_name();
        words.value = ValueOf(words.names.back(), words.typeName);
    }
    return words;
}

CompletionCommand CommandOf(const CLI::App& parser) {
    CompletionCommand command;
    command.name = parser.get_name();
    command.help = parser.get_description();
    for (const CLI::Option* option : parser.get_options()) {
        if (option->nonpositional() && option->get_group().empty()) {
            continue;
        }
        if (option->nonpositional()) {
            command.options.push_back(OptionOf(*option));
        } else if (option->get_name() == "SHELL") {
            command.argument.words = {"bash", "zsh", "fish"};
        } else {
            command.argument.isFile = true;
        }
    }
    return command;
}

}  // namespace

CompletionWords WordsOf(const CLI::App& tool) {
    CompletionWords words;
    words.tool = CommandOf(tool);
    for (const CLI::App* command : tool.get_subcommands(nullptr)) {
        words.commands.push_back(CommandOf(*command));
    }
    return words;
}

std::string NamesOf(const CompletionOption& option, const std::string& separator) {
    return Join(option.names, separator);
}

}  // namespace qxmix
