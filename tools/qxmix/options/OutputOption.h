#pragma once

#include "CommonOptions.h"
#include "Parser.h"
#include "answers/Envelope.h"
#include "files/Output.h"
#include "files/OutputForm.h"

#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// A file that a command writes beside its answer; an empty name: none.
struct WrittenFile {
    std::string file;
    std::string content;
};

/// --output of the commands that write their answer to a file, too.
class OutputOption {
public:
    explicit OutputOption(const OutputForms& forms) : forms_(forms) {}

    /// @param answer  what is written, for people.
    void AddTo(CLI::App& command, const std::string& answer);

    /// The form that the file's name asks for; none without the option.
    ///
    /// @param others  files that the command writes besides.
    /// @throw InputError when the name asks for none of the forms, or is that of another file.
    std::optional<OutputForm> Form(const CommonOptions& options,
                                   const std::vector<NamedOutput>& others = {}) const;

    /// Writes an answer: the files of --output and --registry-out, then standard output.
    ///
    /// @param envelope  with input and result where they are needed: for --json and NeedsResult.
    /// @param registry  what the module has left.
    /// @param others    files that the command writes besides, with their content.
    /// @return the exit status of the answer.
    /// @throw InputError when a page would be too large, WorkError when a file cannot be written.
    ExitStatus Write(const CommonOptions& options,
                     const Envelope& envelope,
                     const AnswerForms& answer,
                     const std::string& registry,
                     const std::vector<WrittenFile>& others = {}) const;

    /// Adds --format, for the form of standard output.
    void AddFormatTo(CLI::App& command);

    /// The form of standard output: that of --format, else of --json, else text.
    ///
    /// @throw InputError when --format names none of the forms, or another than --json.
    OutputForm StandardForm(const CommonOptions& options) const;

    /// Writes an answer that is too large to be held: the files of --output and --registry-out,
    /// then standard output.
    ///
    /// @param write  gives a form part by part; a file has no colours.
    void WriteParts(
        const CommonOptions& options,
        const std::function<void(OutputForm form, const Painter& painter, const TakePart& take)>&
            write,
        const std::string& registry) const;

private:
    OutputForms forms_;
    std::string file_;    // empty: not given
    std::string format_;  // empty: not given
};

}  // namespace qxmix
