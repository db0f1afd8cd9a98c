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
#include "workers/ProgressInTurn.h"

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
    DescribeCurrencyOfEach(command);
    AddJobsOption(command, jobs_);
    output_.AddTo(command, "map");
}

ExitStatus MapCommand::Run(const CommonOptions& options) {
    const std::optional<OutputForm> form = output_.Form(options);
    std::vector<MapQuestions> questions = Prepare(options);
    CheckFormHolds(form, questions);
    AskedModule module(options.Library(), options, questions.front().dispenser);
    module.Open();
    const MapReports reports = Ask(std::move(questions), module, options);
    if (reports.maps.front().answers.amountCount == 0 && !options.json) {
        throw Interruption();
    }
    if (IsMixTable(form) && !reports.IsComplete()) {
        throw Interruption();  // a table cut short would refuse customers
    }

    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.version = reports.AreSeveral() ? kVersionOfCurrencies : envelope.version;
    envelope.complete = reports.IsComplete();
    envelope.warnings = reports.Findings();
    envelope.exitStatus = reports.Status();
    if (options.json || NeedsResult(form)) {
        envelope.input = MapInputJson(reports);
        envelope.result = MapResultJson(reports);
    }
    const AnswerForms forms{
        [&](const Painter& painter) { return MapText(reports, painter); },
        [&] { return MapCsv(reports); },
        [&] { return MapPage(reports, envelope, CommandLine(reports, options)); },
        [&](OutputForm tableForm) {
            const MapReport& report = reports.maps.front();
            const MixTable table = PaidTable(report.questions, report.answers);
            return tableForm == OutputForm::MixTableJson ? MixTableJson(table) : MixTableCsv(table);
        }};
    return output_.Write(options, envelope, forms,
                         WithErrorCode(module.asker.Registry(), reports.LastCode()));
}

std::vector<MapQuestions> MapCommand::Prepare(const CommonOptions& options) const {
    std::vector<MapQuestions> each;
    for (const Dispenser& dispenser : InEachCurrency(dispenser_, rawIn_, ask_)) {
        MapQuestions questions;
        questions.dispenser = dispenser;
        questions.mixes = ask_.MixesOrAll(dispenser);
        const AmountRange range = range_.RangeOf(dispenser);
        questions.from = range.from;
        questions.to = range.to;
        questions.step = range.step;
        CheckCellCount(questions, kMostCells, "--step");
        questions.deadline = options.deadline.value_or(questions.deadline);
        questions.jobs = jobs_.Count();
        each.push_back(questions);
    }
    return each;
}

MapReports MapCommand::Ask(std::vector<MapQuestions> questions,
                           AskedModule& module,
                           const CommonOptions& options) const {
    std::uint64_t cells = 0;
    for (const MapQuestions& one : questions) {
        cells += one.CellCount();
    }
    Progress progress(Info().name, cells, options.quiet);
    ProgressInTurn inTurn([&progress](const WorkProgress& now) { progress.Show(now); });
    OwnDecisions decisions(module.order.library, module.asker.Open().minimum);
    const bool areSeveral = questions.size() > 1;
    MapReports reports;
    for (MapQuestions& one : questions) {
        const bool isInterrupted = !reports.maps.empty() && !reports.IsComplete();
        MapAnswers answers;
        if (!isInterrupted) {
            // Of the registry the module has taken what it reads.
            one.dispenser.registry = questions.front().dispenser.registry;
            answers = AskMap(one, module.order, options.Trace(), inTurn.Next());
        }
        if (!reports.maps.empty() && answers.amountCount == 0) {
            reports.notAsked.push_back(one.dispenser.currency);
            continue;
        }
        const std::vector<Finding> differences = DifferencesOf(one, answers, decisions);
        reports.maps.emplace_back(one, std::move(answers), differences, areSeveral);
    }
    progress.Wipe();
    return reports;
}

std::string MapCommand::CommandLine(const MapReports& reports, const CommonOptions& options) const {
    const MapQuestions& questions = reports.maps.front().questions;
    std::string line = "qxmix map" + (rawIn_.empty() ? "" : " --raw-in " + ShellWord(rawIn_)) +
                       (dispenser_.empty() ? "" : " " + ShellWord(dispenser_)) + " --mixes " +
                       MixListWord(questions.mixes);
    const auto add = [&](const char* name, bool isGiven, std::uint32_t number) {
        // Of several currencies each has its own.
        if (isGiven || !reports.AreSeveral()) {
            line += std::string(" ") + name + " " + std::to_string(number);
        }
    };
    add("--from", !range_.from.empty(), questions.from);
    add("--to", !range_.to.empty(), questions.to);
    add("--step", range_.step.has_value(), questions.step);
    return line + AskingWords(ask_, options);
}

}  // namespace qxmix
