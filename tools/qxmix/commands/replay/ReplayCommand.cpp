#include "ReplayCommand.h"

#include "ReplayText.h"
#include "TraceFile.h"
#include "answers/Envelope.h"
#include "files/Output.h"
#include "json/Json.h"
#include "module/LibrarySearch.h"
#include "terminal/Progress.h"
#include "text/Duration.h"

#include <CLI/App.hpp>

namespace qxmix {

namespace {

Milliseconds DeadlineOf(const CommonOptions& options) {
    return options.deadline.value_or(kUsualDeadline);
}

ExitStatus StatusOf(const ReplayAnswers& answers) {
    return !answers.isComplete           ? ExitStatus::Interrupted
           : !answers.badLines.empty()   ? ExitStatus::BadInput
           : answers.differences.empty() ? ExitStatus::Well
                                         : ExitStatus::HonestNo;
}

Json DifferencesJson(const ReplayAnswers& answers, bool isBetweenLibraries) {
    Json differences = Json::array();
    for (const ReplayDifference& difference : answers.differences) {
        differences.push_back({{"line", difference.line.number},
                               {"id", difference.line.id},
                               {isBetweenLibraries ? "a" : "recorded", difference.first},
                               {isBetweenLibraries ? "b" : "now", difference.second}});
    }
    return differences;
}

}  // namespace

const CommandInfo& ReplayCommand::Info() const {
    static const CommandInfo info = {
        "replay",
        "Asks recorded requests again and shows what is different.",
        {"replay TRACE.ndjson [--stop] [--no-files]", "replay TRACE.ndjson --library X --library Y",
         "replay JOURNAL.csv --dispenser DISPENSER [--columns LIST] [--output F]"},
        {"replay examples/trace.ndjson",
         "replay examples/dispensed.csv --dispenser examples/euro.json"}};
    return info;
}

void ReplayCommand::AddOptions(CLI::App& command) {
    command.add_option("TRACE", trace_,
                       "recorded lines, as mix --record writes them, a journal, or -");
    command
        .add_option("--dispenser", journal_.dispenser,
                    "dispenser before the first line of a journal: a file, - or inline")
        ->type_name("DISPENSER");
    AddSheetOptions(command, journal_.sheet, "time=NAME,50=NAME");
    journal_.output.AddTo(command, "answer to a journal");
    command.add_flag("--stop", stops_, "stops at the first difference");
    command.add_flag("--no-files", refusesFiles_,
                     "refuses requests that name a dispenser file: for those of strangers");
}

ExitStatus ReplayCommand::Run(const CommonOptions& options) {
    if (trace_.empty()) {
        throw InputError("TRACE: missing; expected a file of recorded lines, or -");
    }
    if (!journal_.dispenser.empty()) {
        journal_.journal = trace_;
        journal_.stops = stops_;
        return ReplayJournal(journal_, options);
    }
    CheckTrace(options);
    std::vector<AskerPool> libraries = OpenLibraries(options);
    TraceFile trace(trace_, libraries.size() == 1,
                    refusesFiles_ ? std::nullopt : std::make_optional(DeadlineOf(options)));
    Progress progress(Info().name, std::nullopt, options.quiet || options.trace);
    const ReplayAnswers answers =
        Replay([&trace] { return trace.Next(); }, libraries, DeadlineOf(options), stops_,
               [&progress](const WorkProgress& now) { progress.Show(now); },
               [&progress, &options](const LineError& line) {
                   // In JSON they stand in the answer.
                   if (!options.json) {
                       progress.Wipe();
                       Complain(line.text);
                   }
               });
    progress.Wipe();
    OutputFiles files;
    if (!options.registryOut.empty()) {
        files.Add(options.registryOut, libraries.back().RegistryLeft());
    }
    files.Commit();
    WriteStandardOutput(options.json
                            ? EnvelopeTextOf(answers, options, libraries)
                            : ReplayText(answers, NamesOf(libraries), Painter(options.color)));
    return StatusOf(answers);
}

void ReplayCommand::CheckTrace(const CommonOptions& options) const {
    std::string given = GivenSheetOption(journal_.sheet);
    given = given.empty() && journal_.output.Form(options) ? "--output" : given;
    const std::string ending = ".csv";
    const bool isSheet = trace_.size() > ending.size() &&
                         trace_.compare(trace_.size() - ending.size(), ending.size(), ending) == 0;
    if (!given.empty() || isSheet) {
        throw InputError("--dispenser: missing beside " + (isSheet ? trace_ : given) +
                         "; expected the dispenser before the first line of the journal");
    }
}

std::string ReplayCommand::EnvelopeTextOf(const ReplayAnswers& answers,
                                          const CommonOptions& options,
                                          std::vector<AskerPool>& libraries) const {
    Envelope envelope;
    envelope.module = libraries.back().ModuleVersion();
    envelope.library = FileNameOf(libraries.back().Library());
    envelope.command = Info().name;
    envelope.complete = answers.isComplete;
    envelope.input = {{"trace", trace_},
                      {"libraries", NamesOf(libraries)},
                      {"stop", stops_},
                      {"deadline", DurationText(DeadlineOf(options))}};
    envelope.result = {{"requests", answers.requests},
                       {"same", answers.requests - answers.differences.size()},
                       {"differences", DifferencesJson(answers, libraries.size() > 1)},
                       {"badLines", LineErrorsJson(answers.badLines)}};
    envelope.exitStatus = StatusOf(answers);
    return EnvelopeText(envelope);
}

}  // namespace qxmix
