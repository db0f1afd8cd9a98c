#include "CompletionWords.h"
#include "text/TextList.h"

#include <map>

namespace qxmix {

namespace {

std::string OptionWords(const CompletionCommand& command) {
    std::vector<std::string> names;
    for (const CompletionOption& option : command.options) {
        names.push_back(NamesOf(option, " "));
    }
    return Join(names, " ");
}

std::string CommandNames(const CompletionWords& words, const std::string& separator) {
    std::vector<std::string> names;
    for (const CompletionCommand& command : words.commands) {
        names.push_back(command.name);
    }
    return Join(names, separator);
}

/// Sets COMPREPLY to the words, or leaves it to the shell's own file names.
std::string ReplyWords(const CompletionValue& value) {
    return value.isFile          ? "return"
           : value.words.empty() ? "compopt +o default 2>/dev/null; return"
                                 : "words=\"" + Join(value.words, " ") + "\"";
}

/// A case for each option that takes a value; an option means the same in every command that has
/// it but for its value being a file or not, which their names tell apart.
std::string ValueCases(const CompletionWords& words) {
    std::map<std::string, std::string> cases;
    for (const CompletionCommand& command : words.commands) {
        for (const CompletionOption& option : command.options) {
            if (!option.typeName.empty()) {
                cases[NamesOf(option, " | ")] = ReplyWords(option.value);
            }
        }
    }
    std::string text;
    for (const auto& [names, reply] : cases) {
        text += "    " + names + ") " + reply + " ;;\n";
    }
    return text;
}

std::string CommandCases(const CompletionWords& words) {
    std::string text;
    for (const CompletionCommand& command : words.commands) {
        text += "    " + command.name + ")\n        options=\"" + OptionWords(command) + "\"\n" +
                "        words=\"" + Join(command.argument.words, " ") + "\"\n        ;;\n";
    }
    return text;
}

}  // namespace

std::string BashCompletions(const CompletionWords& words) {
    return "# bash completion for qxmix; made by: qxmix completions bash\n"
           "_qxmix() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
           "    local command= word words= options=\n"
           "    COMPREPLY=()\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        case $word in " +
           CommandNames(words, " | ") +
           ")\n            command=$word\n            break\n            ;;\n        esac\n"
           "    done\n"
           "    case $previous in\n" +
           ValueCases(words) +
           "    esac\n"
           "    if [[ -n $words ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
           "        return\n"
           "    fi\n"
           "    case $command in\n"
           "    '')\n        options=\"" +
           OptionWords(words.tool) + "\"\n        words=\"" + CommandNames(words, " ") +
           "\"\n        ;;\n" + CommandCases(words) +
           "    esac\n"
           "    [[ $current == -* ]] && words=$options\n"
           "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
           "}\n"
           "complete -o default -F _qxmix qxmix\n";
}

}  // namespace qxmix
