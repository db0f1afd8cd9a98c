#include "BatchCommand.h"

#include "files/Output.h"
#include "json/JsonFields.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/MixChoice.h"
#include "terminal/Console.h"
#include "terminal/Progress.h"

#include <CLI/App.hpp>

namespace qxmix {

const CommandInfo& BatchCommand::Info() const {
    static const CommandInfo info = {
        "batch",
        "Answers a stream of requests, one a line.",
        {"batch [--envelope] [--jobs N] < REQUESTS.ndjson > ANSWERS.ndjson",
         "batch --no-files < REQUESTS.ndjson > ANSWERS.ndjson"},
        {"batch < examples/two.ndjson", "batch --envelope --mix 3 < examples/two.ndjson"}};
    return info;
}

void BatchCommand::AddOptions(CLI::App& command) {
    command.add_flag("--envelope", hasEnvelope_,
                     "answers as --json of mix gives them, and not their result alone");
    command.add_flag("--no-files", refusesFiles_,
                     "refuses requests that name a dispenser file: for those of strangers");
    AddAskOptions(command, ask_, MixChoice::One);
    AddJobsOption(command, jobs_);
}

ExitStatus BatchCommand::Run(const CommonOptions& options) {
    CheckMixes();
    const bool hasRegistry = !options.registry.empty();
    Asker asker(FindLibrary(options.Library()), options.RegistryOr({}), options.Trace());
    asker.Open();
    asker.KeepRegistry();
    BatchSetting setting;
    setting.order = {asker.Library(), asker.Registry()};
    setting.replacesRegistry = hasRegistry;
    setting.ask = ask_;
    setting.deadline = options.deadline.value_or(setting.deadline);
    setting.takesFiles = !refusesFiles_;
    setting.traces = options.trace;
    setting.hasEnvelope = hasEnvelope_;
    setting.moduleVersion = asker.ModuleVersion();
    setting.command = Info().name;
    // At the terminal the answers themselves show how far it is.
    const bool isQuiet = options.quiet || options.trace || TerminalColumns() > 0;
    Progress progress(Info().name, std::nullopt, isQuiet);
    // Lines of several workers would be all mixed up.
    const BatchSummary summary =
        RunBatch(setting, options.trace ? 1 : jobs_.Count(),
                 [&progress](const WorkProgress& now) { progress.Show(now); });
    progress.Wipe();
    OutputFiles files;
    files.Add(options.registryOut, WithErrorCode(asker.Registry(), summary.lastCode));
    files.Commit();
    if (!summary.isComplete) {
        Complain("interrupted after " + std::to_string(summary.answeredLines) +
                 (summary.answeredLines == 1 ? " line" : " lines"));
        return ExitStatus::Interrupted;
    }
    return summary.badLines == 0 ? ExitStatus::Well : ExitStatus::BadInput;
}

void BatchCommand::CheckMixes() const {
    if (!ask_.mixes.empty()) {
        throw InputError("--mixes: a line asks one mix; expected --mix N");
    }
    if (ask_.Mixes(Dispenser{}).size() != 1) {
        throw InputError("--mix: a line asks one mix; expected " + RangeText(kFirstMix, kLastMix));
    }
}

}  // namespace qxmix
