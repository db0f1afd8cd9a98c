#include "CompletionWords.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

/// Within single quotes, and free of what _arguments takes for its own.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char letter : text) {
        if (letter == '\'') {
            escaped += "'\\''";
        } else {
            escaped +=
                std::string(letter == ':' || letter == '[' || letter == ']' ? "\\" : "") + letter;
        }
    }
    return escaped;
}

std::string ActionOf(const CompletionValue& value) {
    return value.isFile ? "_files" : value.words.empty() ? " " : "(" + Join(value.words, " ") + ")";
}

std::string OptionWord(const std::string& name, const CompletionOption& option) {
    return "'" + name + "[" + Escaped(option.help) + "]" +
           (option.typeName.empty()
                ? ""
                : ":" + Escaped(option.typeName) + ":" + ActionOf(option.value)) +
           "'";
}

std::string OptionLines(const CompletionCommand& command, const std::string& indent) {
    std::string text;
    for (const CompletionOption& option : command.options) {
        for (const std::string& name : option.names) {
            text += " \\\n" + indent + OptionWord(name, option);
        }
    }
    return text;
}

std::string CommandCase(const CompletionCommand& command) {
    const bool hasArguments = command.argument.isFile || !command.argument.words.empty();
    return "        " + command.name + ")\n            _arguments" +
           OptionLines(command, "                ") +
           (hasArguments ? " \\\n                '*:argument:" + ActionOf(command.argument) + "'"
                         : "") +
           "\n            ;;\n";
}

}  // namespace

std::string ZshCompletions(const CompletionWords& words) {
    std::string names;
    std::string cases;
    for (const CompletionCommand& command : words.commands) {
        names += "            '" + command.name + ":" + Escaped(command.help) + "'\n";
        cases += CommandCase(command);
    }
    return "#compdef qxmix\n"
           "# zsh completion for qxmix; made by: qxmix completions zsh\n"
           "_qxmix() {\n"
           "    local curcontext=$curcontext state line\n"
           "    typeset -A opt_args\n"
           "    _arguments -C" +
           OptionLines(words.tool, "        ") +
           " \\\n        '1: :->command' \\\n        '*:: :->arguments'\n"
           "    case $state in\n"
           "    command)\n"
           "        local -a commands=(\n" +
           names +
           "        )\n"
           "        _describe command commands\n"
           "        ;;\n"
           "    arguments)\n"
           "        case $line[1] in\n" +
           cases +
           "        esac\n"
           "        ;;\n"
           "    esac\n"
           "}\n"
           // Run by the completion system when the file is found, or defined when it is sourced.
           "if [[ $funcstack[1] == _qxmix ]]; then\n"
           "    _qxmix \"$@\"\n"
           "else\n"
           "    compdef _qxmix qxmix\n"
           "fi\n";
}

}  // namespace qxmix
