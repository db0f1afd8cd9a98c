#include "CompletionWords.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char letter : text) {
        quoted += std::string(letter == '\'' || letter == '\\' ? "\\" : "") + letter;
    }
    return quoted + "'";
}

/// "-s q -l quiet"
std::string NameWords(const CompletionOption& option) {
    std::string text;
    for (const std::string& name : option.names) {
        const bool isLong = name.compare(0, 2, "--") == 0;
        text += isLong ? " -l " + name.substr(2) : " -s " + name.substr(1);
    }
    return text;
}

std::string ValueWords(const CompletionValue& value) {
    return value.isFile
               ? " -r -F"
               : " -x" + (value.words.empty() ? "" : " -a " + Quoted(Join(value.words, " ")));
}

std::string CommandLines(const CompletionCommand& command, const std::string& condition) {
    std::string text;
    const std::string begin = "complete -c qxmix -n " + Quoted(condition);
    for (const CompletionOption& option : command.options) {
        text += begin + NameWords(option) +
                (option.typeName.empty() ? "" : ValueWords(option.value)) + " -d " +
                Quoted(option.help) + "\n";
    }
    if (command.argument.isFile) {
        text += begin + " -F\n";
    } else if (!command.argument.words.empty()) {
        text += begin + " -a " + Quoted(Join(command.argument.words, " ")) + "\n";
    }
    return text;
}

}  // namespace

std::string FishCompletions(const CompletionWords& words) {
    std::string text = "# fish completion for qxmix; made by: qxmix completions fish\n"
                       "complete -c qxmix -f\n" +
                       CommandLines(words.tool, "__fish_use_subcommand");
    for (const CompletionCommand& command : words.commands) {
        text += "complete -c qxmix -n '__fish_use_subcommand' -a " + command.name + " -d " +
                Quoted(command.help) + "\n" +
                CommandLines(command, "__fish_seen_subcommand_from " + command.name);
    }
    return text;
}

}  // namespace qxmix
