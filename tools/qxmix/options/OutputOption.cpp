#include "OutputOption.h"

#include "OutputFileOption.h"
#include "files/Output.h"

#include <CLI/App.hpp>

namespace qxmix {

void OutputOption::AddTo(CLI::App& command, const std::string& answer) {
    AddOutputFileOption(command, "--output", file_,
                        "writes the " + answer + ", too; the name ends in " + forms_.endings);
}

std::optional<OutputForm> OutputOption::Form(const CommonOptions& options) const {
    RequireDifferentFiles({{"--output", file_}, {"--registry-out", options.registryOut}});
    return OutputFormOf(file_, forms_);
}

ExitStatus OutputOption::Write(const CommonOptions& options,
                               const Envelope& envelope,
                               const AnswerForms& answer,
                               const std::string& registry) const {
    OutputFiles files;
    files.Add(options.registryOut, registry);
    if (const auto form = OutputFormOf(file_, forms_)) {
        files.Add(file_, answer.File(*form, envelope));
    }
    files.Commit();
    WriteStandardOutput(options.json ? EnvelopeText(envelope)
                                     : answer.text(Painter(options.color)));
    return envelope.exitStatus;
}

}  // namespace qxmix
