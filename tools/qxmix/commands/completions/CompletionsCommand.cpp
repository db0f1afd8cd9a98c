#include "CompletionsCommand.h"

#include "CompletionWords.h"
#include "answers/Envelope.h"
#include "files/Output.h"

#include <CLI/App.hpp>
#include <map>

namespace qxmix {

const CommandInfo& CompletionsCommand::Info() const {
    static const CommandInfo info = {"completions",
                                     "Writes a script that completes command lines in a shell.",
                                     {"completions bash|zsh|fish"},
                                     {"completions bash", "completions fish"}};
    return info;
}

void CompletionsCommand::AddOptions(CLI::App& command) {
    parser_ = &command;
    command.add_option("SHELL", shell_, "bash, zsh or fish");
}

ExitStatus CompletionsCommand::Run(const CommonOptions& options) {
    using Writer = std::string (*)(const CompletionWords&);
    static const std::map<std::string, Writer> writers = {
        {"bash", &BashCompletions}, {"fish", &FishCompletions}, {"zsh", &ZshCompletions}};
    if (shell_.empty()) {
        throw InputError("SHELL: missing; expected bash, zsh or fish");
    }
    const auto writer = writers.find(shell_);
    if (writer == writers.end()) {
        throw InputError("SHELL: " + NotAllowed(shell_, "bash, zsh or fish"));
    }
    const std::string script = writer->second(WordsOf(*parser_->get_parent()));
    if (!options.json) {
        WriteStandardOutput(script);
        return ExitStatus::Well;
    }
    Envelope envelope;
    envelope.command = Info().name;
    envelope.input = {{"shell", shell_}};
    envelope.result = {{"shell", shell_}, {"script", script}};
    WriteStandardOutput(EnvelopeText(envelope));
    return ExitStatus::Well;
}

}  // namespace qxmix
