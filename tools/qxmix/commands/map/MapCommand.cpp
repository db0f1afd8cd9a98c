#include "MapCommand.h"

#include "MapForms.h"
#include "answers/Envelope.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/DispenserArgument.h"
#include "options/ShellWords.h"
#include "requests/RawIn.h"
#include "sweeps/MapDifferences.h"
#include "tables/MixTableFile.h"
#include "tables/PaidTable.h"
#include "terminal/Progress.h"
#include "text/Duration.h"

#include <CLI/App.hpp>
#include <utility>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostCells = 100000000;

}  // namespace

const CommandInfo& MapCommand::Info() const {
    static const CommandInfo info = {
        "map",
        "Shows for every amount what every mix does.",
        {"map DISPENSER [--mixes all] [--from A] [--to A] [--step A] [--output F]",
         "map --raw-in F [DISPENSER] [--mixes all] [--output F]"},
        {"map examples/four-notes.json --to 600 --mixes 1,4,9",
         "map EUR:50x100,20x200 --output map.html"}};
    return info;
}

void MapCommand::AddOptions(CLI::App& command) {
    AddDispenserArgument(command, dispenser_);
    AddRawInOption(command, rawIn_);
    AddAmountRangeOptions(command, range_);
    AddAskOptions(command, ask_);
    AddJobsOption(command, jobs_);
    output_.AddTo(command, "map");
}

ExitStatus MapCommand::Run(const CommonOptions& options) {
    const std::optional<OutputForm> form = output_.Form(options);
    MapQuestions questions = Prepare(options);
    CheckFormHolds(form, questions);
    AskedModule module(options.Library(), options, questions.dispenser);
    module.Open();
    Progress progress(Info().name, questions.CellCount(), options.quiet);
    MapAnswers answers = AskMap(questions, module.order, options.Trace(),
                                [&progress](const WorkProgress& now) { progress.Show(now); });
    OwnDecisions decisions(module.order.library, module.asker.Open().minimum);
    const std::vector<Finding> differences = DifferencesOf(questions, answers, decisions);
    progress.Wipe();
    if (answers.amountCount == 0 && !options.json) {
        throw Interruption();
    }
    if (IsMixTable(form) && !answers.isComplete) {
        throw Interruption();  // a table cut short would refuse customers
    }

    const MapReport report(std::move(questions), std::move(answers), differences);
    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.complete = report.answers.isComplete;
    envelope.warnings = report.findings;
    envelope.exitStatus = report.status;
    if (options.json || NeedsResult(form)) {
        envelope.input = MapInputJson(report.questions);
        envelope.result = MapResultJson(report);
    }
    const AnswerForms forms{
        [&](const Painter& painter) { return MapText(report, painter); },
        [&] { return MapCsv(report); },
        [&] { return MapPage(report, envelope, CommandLine(report.questions, options)); },
        [&](OutputForm tableForm) {
            const MixTable table = PaidTable(report.questions, report.answers);
            return tableForm == OutputForm::MixTableJson ? MixTableJson(table) : MixTableCsv(table);
        }};
    return output_.Write(options, envelope, forms,
                         WithErrorCode(module.asker.Registry(), report.answers.lastCode));
}

MapQuestions MapCommand::Prepare(const CommonOptions& options) const {
    MapQuestions questions;
    questions.dispenser = DispenserAsked(dispenser_, rawIn_, ask_);
    questions.mixes = ask_.MixesOrAll(questions.dispenser);
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
    return "qxmix map" + (rawIn_.empty() ? "" : " --raw-in " + ShellWord(rawIn_)) +
           (dispenser_.empty() ? "" : " " + ShellWord(dispenser_)) + " --mixes " +
           MixListWord(questions.mixes) + " --from " + std::to_string(questions.from) + " --to " +
           std::to_string(questions.to) + " --step " + std::to_string(questions.step) +
           AskingWords(ask_, options);
}

}  // namespace qxmix
