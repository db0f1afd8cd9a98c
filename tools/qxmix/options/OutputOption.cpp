#include "OutputOption.h"

#include "OutputFileOption.h"

#include <CLI/App.hpp>

namespace qxmix {

void OutputOption::AddTo(CLI::App& command, const std::string& answer) {
    AddOutputFileOption(command, "--output", file_,
                        "writes the " + answer + ", too; the name ends in " + forms_.endings);
}

std::optional<OutputForm> OutputOption::Form(const CommonOptions& options,
                                             const std::vector<NamedOutput>& others) const {
    std::vector<NamedOutput> outputs = {{"--output", file_},
                                        {"--registry-out", options.registryOut}};
    outputs.insert(outputs.end(), others.begin(), others.end());
    RequireDifferentFiles(outputs);
    return OutputFormOf(file_, forms_);
}

ExitStatus OutputOption::Write(const CommonOptions& options,
                               const Envelope& envelope,
                               const AnswerForms& answer,
                               const std::string& registry,
                               const std::vector<WrittenFile>& others) const {
    OutputFiles files;
    files.Add(options.registryOut, registry);
    if (const auto form = OutputFormOf(file_, forms_)) {
        files.Add(file_, answer.File(*form, envelope));
    }
    for (const WrittenFile& other : others) {
        files.Add(other.file, other.content);
    }
    files.Commit();
    WriteStandardOutput(options.json ? EnvelopeText(envelope)
                                     : answer.text(Painter(options.color)));
    return envelope.exitStatus;
}

void OutputOption::AddFormatTo(CLI::App& command) {
    command
        .add_option(
            "--format", format_,
            "form on standard output: text, json, csv, html, sarif, junit, or github for the "
            "notes of a workflow")
        ->type_name("FORM");
}

OutputForm OutputOption::StandardForm(const CommonOptions& options) const {
    const OutputForm plain = options.json ? OutputForm::JsonFile : OutputForm::TextFile;
    const OutputForm form = format_.empty() ? plain : FormNamed(format_, forms_);
    if (options.json && form != OutputForm::JsonFile) {
        throw InputError("--format: given beside --json; expected one of them");
    }
    return form;
}

void OutputOption::WriteParts(
    const CommonOptions& options,
    const std::function<void(OutputForm form, const Painter& painter, const TakePart& take)>& write,
    const std::string& registry) const {
    OutputFiles files;
    files.Add(options.registryOut, registry);
    if (const auto form = OutputFormOf(file_, forms_)) {
        files.Add(file_,
                  [&](const TakePart& take) { write(*form, Painter(ColorMode::Never), take); });
    }
    files.Commit();
    write(StandardForm(options), Painter(options.color), &WriteStandardOutput);
}

}  // namespace qxmix
