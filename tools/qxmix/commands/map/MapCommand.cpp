#include "MapCommand.h"

#include "MapJson.h"
#include "MapOutput.h"
#include "MapText.h"
#include "MapVerdict.h"
#include "answers/Envelope.h"
#include "dispenser/DispenserReader.h"
#include "files/Output.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/MixList.h"
#include "options/ShellWords.h"
#include "terminal/Progress.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

constexpr std::uint64_t kMostCells = 100000000;

}  // namespace

const CommandInfo& MapCommand::Info() const {
    static const CommandInfo info = {
        "map",
        "Shows for every amount what every mix does.",
        {"map DISPENSER [--mixes all] [--from A] [--to A] [--step A] [--output F]"},
        {"map examples/four-notes.json --to 600 --mixes 1,4,9",
         "map EUR:50x100,20x200 --output map.html"}};
    return info;
}

void MapCommand::AddOptions(CLI::App& command) {
    command.add_option("DISPENSER", dispenser_, "dispenser file, - or inline");
    AddAmountRangeOptions(command, range_);
    AddAskOptions(command, ask_);
    AddJobsOption(command, jobs_);
    command
        .add_option("--output", output_,
                    "writes the map, too; the name ends in " + std::string(kOutputFormsExpected))
        ->type_name("FILE");
}

ExitStatus MapCommand::Run(const CommonOptions& options) {
    RequireDifferentFiles({{"--output", output_}, {"--registry-out", options.registryOut}});
    MapQuestions questions = Prepare(options);
    const std::optional<OutputForm> form = MapFormOf(output_, questions);
    const std::string registry = options.RegistryOr(questions.dispenser.registry);
    questions.dispenser.registry = TakenValues(registry);

    const OpenOrder order{FindLibrary(options.Library()), registry};
    Asker asker(order.library, order.registry, options.Trace());
    asker.Open();
    asker.KeepRegistry();
    Progress progress(Info().name, questions.CellCount(), options.quiet);
    const MapAnswers answers =
        AskMap(questions, order, options.Trace(),
               [&progress](const MapProgress& now) { progress.Show(now.done, now.misses); });
    progress.Wipe();
    if (answers.AmountCount() == 0 && !options.json) {
        throw Interruption();
    }

    Envelope envelope;
    envelope.module = asker.ModuleVersion();
    envelope.library = FileNameOf(asker.Library());
    envelope.command = Info().name;
    envelope.complete = answers.isComplete;
    envelope.warnings = FindingsOf(questions, answers);
    envelope.exitStatus = ExitStatusOf(answers);
    if (options.json || NeedsResult(form)) {
        envelope.input = MapInputJson(questions);
        envelope.result = MapResultJson(questions, answers);
    }
    OutputFiles files;
    files.Add(options.registryOut, WithErrorCode(asker.Registry(), answers.lastCode));
    if (form) {
        files.Add(output_,
                  MapFile(*form, questions, answers, envelope, CommandLine(questions, options)));
    }
    files.Commit();
    WriteStandardOutput(options.json ? EnvelopeText(envelope)
                                     : MapText(questions, answers, Painter(options.color)));
    return envelope.exitStatus;
}

MapQuestions MapCommand::Prepare(const CommonOptions& options) const {
    if (dispenser_.empty()) {
        throw InputError("DISPENSER: missing; expected a file, - or a dispenser such as "
                         "EUR:50x10,20x10");
    }
    MapQuestions questions;
    questions.dispenser = OpenDispenser(dispenser_);
    ask_.ApplyTo(questions.dispenser);
    const bool namesMixes = !ask_.mix.empty() || !ask_.mixes.empty();
    questions.mixes = namesMixes ? ask_.Mixes(questions.dispenser) : AllMixes();
    const AmountRange range = range_.RangeOf(questions.dispenser);
    questions.from = range.from;
    questions.to = range.to;
    questions.step = range.step;
    CheckCellCount(questions, kMostCells, "--step");
    questions.deadline = options.deadline.value_or(questions.deadline);
    questions.jobs = jobs_.Count();
    return questions;
}

std::string MapCommand::CommandLine(const MapQuestions& questions,
                                    const CommonOptions& options) const {
    return "qxmix map " + ShellWord(dispenser_) + " --mixes " + MixListWord(questions.mixes) +
           " --from " + std::to_string(questions.from) + " --to " + std::to_string(questions.to) +
           " --step " + std::to_string(questions.step) + AskingWords(ask_, options);
}

}  // namespace qxmix
