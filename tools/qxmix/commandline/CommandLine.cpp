#include "CommandLine.h"

#include "HelpText.h"
#include "errors/NearestName.h"
#include "options/SystemOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace qxmix {

namespace {

std::vector<std::string> OptionNames(const CLI::App& parser) {
    std::vector<std::string> names;
    for (const CLI::Option* option : parser.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

/// The list of all options would be no help in an error; --help has it.
std::string UnknownOption(const std::string& name, const CLI::App& parser) {
    const std::string nearest = NearestName(name, OptionNames(parser));
    return name + ": unknown option; " +
           (nearest.empty() ? "--help lists the known ones" : "did you mean \"" + nearest + "\"?");
}

/// What is wrong with the number of an option's values.
///
/// @param message  the parser's; it begins with the option's name, a flag's without its dashes.
std::string WrongNumber(const std::string& message, const CLI::App& parser) {
    const std::string name = message.substr(0, message.find_first_of(": "));
    const CLI::Option* const option = parser.get_option_no_throw(name);
    if (name.compare(0, 1, "-") != 0 && option == nullptr) {
        return "--" + name + ": given with a value; expected none";
    }
    return name + (option != nullptr && option->count() > 1 ? ": given twice; expected once"
                                                            : ": without a value; expected one");
}

/// Lets no option be given in a way that would pass it over in silence.
void RefuseEmptyValues(CLI::App& parser) {
    for (CLI::Option* option : parser.get_options()) {
        if (option->get_items_expected_max() == 0) {
            option->disable_flag_override();
        } else if (!option->get_positional()) {
            option->check([](const std::string& value) {
                return std::string(value.empty() ? "empty; expected a value" : "");
            });
        }
    }
}

}  // namespace

CommandLine::CommandLine() : parser_("", "qxmix"), commands_(AllCommands()) {
    parser_.require_subcommand(0, 1);
    parser_.set_help_flag("-h,--help", "this text");
    parser_.add_flag("--version", wantsVersion_, "versions of the tool and the module");
    AddCommonOptions(parser_, options_);
    LimitOptions(parser_);
    RefuseEmptyValues(parser_);
    for (const auto& command : commands_) {
        CLI::App* const parser =
            parser_.add_subcommand(command->Info().name, command->Info().sentence);
        command->AddOptions(*parser);
        AddCommonOptions(*parser, options_);
        LimitOptions(*parser);
        RefuseEmptyValues(*parser);
        parsers_.push_back(parser);
    }
}

CommandLine::Request CommandLine::Parse(int argumentCount, const char* const* arguments) {
    std::vector<std::string> words(arguments + std::min(argumentCount, 1),
                                   arguments + argumentCount);
    if (!words.empty() && words.front() == "help") {
        words.erase(words.begin());
        words.emplace_back("--help");
    }
    std::reverse(words.begin(), words.end());  // so the parser wants them
    try {
        parser_.parse(words);
    } catch (const CLI::CallForHelp&) {
        if (ChosenIndex() == kNone && !parser_.remaining(true).empty()) {
            throw InputError(UnexpectedText());  // help on something that is not there
        }
        return Request::Help;
    } catch (const CLI::ParseError& error) {
        throw InputError(ErrorText(error));
    }
    if (wantsVersion_) {
        return Request::Version;
    }
    return ChosenIndex() == kNone ? Request::CommandList : Request::Command;
}

std::string CommandLine::HelpText() const {
    const std::size_t chosen = ChosenIndex();
    return chosen == kNone ? CommandList(commands_)
                           : CommandHelp(commands_[chosen]->Info(), *parsers_[chosen]);
}

std::size_t CommandLine::ChosenIndex() const {
    const auto chosen = std::find_if(parsers_.begin(), parsers_.end(),
                                     [](const CLI::App* parser) { return parser->parsed(); });
    return chosen == parsers_.end() ? kNone : static_cast<std::size_t>(chosen - parsers_.begin());
}

std::string CommandLine::ErrorText(const CLI::ParseError& error) const {
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        return UnexpectedText();
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        const std::size_t chosen = ChosenIndex();
        return WrongNumber(error.what(), chosen == kNone ? parser_ : *parsers_[chosen]);
    }
    return error.what();
}

std::string CommandLine::UnexpectedText() const {
    const std::vector<std::string> unexpected = parser_.remaining(true);
    const std::string first = unexpected.empty() ? "" : unexpected.front();
    const std::size_t chosen = ChosenIndex();
    if (first.compare(0, 1, "-") == 0) {
        return UnknownOption(first, chosen == kNone ? parser_ : *parsers_[chosen]);
    }
    if (chosen != kNone) {
        return first + ": unexpected; expected no further argument";
    }
    std::vector<std::string> names;
    for (const auto& command : commands_) {
        names.push_back(command->Info().name);
    }
    return first + ": unknown command" + DidYouMean(first, names);
}

}  // namespace qxmix
