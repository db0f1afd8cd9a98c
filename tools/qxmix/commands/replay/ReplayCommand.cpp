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

constexpr Milliseconds kDeadline{2000};

Milliseconds DeadlineOf(const CommonOptions& options) {
    return options.deadline.value_or(kDeadline);
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

Json BadLinesJson(const ReplayAnswers& answers) {
    Json lines = Json::array();
    for (const LineError& line : answers.badLines) {
        lines.push_back(LineErrorJson(line));
    }
    return lines;
}

}  // namespace

const CommandInfo& ReplayCommand::Info() const {
    static const CommandInfo info = {
        "replay",
        "Asks recorded requests again and shows what is different.",
        {"replay TRACE.ndjson [--stop] [--no-files]",
         "replay TRACE.ndjson --library X --library Y"},
        {"replay examples/trace.ndjson", "replay examples/trace.ndjson --stop --json"}};
    return info;
}

void ReplayCommand::AddOptions(CLI::App& command) {
    command.add_option("TRACE", trace_, "recorded lines, as mix --record writes them, or -");
    command.add_flag("--stop", stops_, "stops at the first difference");
    command.add_flag("--no-files", refusesFiles_,
                     "refuses requests that name a dispenser file: for those of strangers");
}

ExitStatus ReplayCommand::Run(const CommonOptions& options) {
    if (trace_.empty()) {
        throw InputError("TRACE: missing; expected a file of recorded lines, or -");
    }
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
                       {"badLines", BadLinesJson(answers)}};
    envelope.exitStatus = StatusOf(answers);
    return EnvelopeText(envelope);
}

}  // namespace qxmix
