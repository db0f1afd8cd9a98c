#include "SimulateCommand.h"

#include "SimulationFleetForms.h"
#include "SimulationForms.h"
#include "answers/Envelope.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/DispenserArgument.h"
#include "options/ShellWords.h"
#include "terminal/Progress.h"
#include "text/Duration.h"

#include <CLI/App.hpp>
#include <utility>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostCalculations = 100000000;

}  // namespace

const CommandInfo& SimulateCommand::Info() const {
    static const CommandInfo info = {
        "simulate",
        "Asks every mix for the same withdrawals while cassettes drain.",
        {"simulate DISPENSER --demand FILE [--mixes all] [--seed N] [--output F]",
         "simulate DISPENSER --demand FILE --runs N [--mixes all] [--output F]",
         "simulate DISPENSER ... | @LIST --demand FILE [--all]"},
        {"simulate examples/euro.json --demand examples/week.json --mixes 1-4,8",
         "simulate examples/plain-euro.json --demand examples/week.json --runs 3"}};
    return info;
}

void SimulateCommand::AddOptions(CLI::App& command) {
    dispensers_.AddTo(command);
    AddDemandOption(
        command, demand_,
        "withdrawals: recorded (CSV: time,amount,currency), or a JSON file to draw them "
        "from");
    AddRunOptions(command, demand_, "runs with one seed after the other: medians and ranges");
    AddAskOptions(command, ask_);
    AddSheetOptions(command, demand_.sheet);
    command.add_flag("--all", tellsAll_, "of many dispensers each simulation, not rows alone");
    AddJobsOption(command, jobs_);
    output_.AddTo(command, "simulation");
}

ExitStatus SimulateCommand::Run(const CommonOptions& options) {
    return dispensers_.AreMany() ? RunMany(options) : RunOne(options);
}

ExitStatus SimulateCommand::RunOne(const CommonOptions& options) const {
    const std::optional<OutputForm> form = output_.Form(options);
    SimulationQuestions questions = Prepare(dispensers_.One(), options, nullptr);
    AskedModule module(options.Library(), options, questions.dispenser);
    module.Open();
    Progress progress(Info().name, questions.CalculationCount(), options.quiet);
    SimulationAnswers answers =
        Simulate(questions, module.order, options.Trace(),
                 [&progress](const WorkProgress& now) { progress.Show(now); });
    progress.Wipe();
    if (answers.demand.withdrawals.empty() && !options.json) {
        throw Interruption();
    }

    const SimulationReport report(std::move(questions), std::move(answers));
    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.complete = report.answers.isComplete;
    envelope.warnings = report.findings;
    envelope.exitStatus = report.status;
    if (options.json || NeedsResult(form)) {
        envelope.input = SimulationInputJson(report.questions);
        envelope.result = SimulationResultJson(report);
    }
    const AnswerForms forms{
        [&](const Painter& painter) { return SimulationText(report, options.quiet, painter); },
        [&] { return SimulationCsv(report); },
        [&] { return SimulationPage(report, envelope, CommandLine(report.questions, options)); }};
    return output_.Write(options, envelope, forms,
                         WithErrorCode(module.asker.Registry(), report.answers.lastCode));
}

ExitStatus SimulateCommand::RunMany(const CommonOptions& options) const {
    dispensers_.RefuseForMany("--demand -", demand_.file == "-");
    const std::vector<std::string> names = dispensers_.All(options);
    // What no dispenser can mend is said once.
    demand_.Require("");
    ask_.MixesOrAll(Dispenser());
    const DemandFile demand = demand_.Open();
    CheckDrawing(demand);
    const auto file = output_.Form(options);
    // Made here: a worker's standard output is another one. What is written twice has no colours.
    const Painter painter(file == OutputForm::TextFile ? ColorMode::Never : options.color);
    Dispenser none;
    AskedModule module(options.Library(), options, none);
    module.asker.Open();
    SimulationFleet fleet;
    Progress progress(Info().name, names.size(), options.quiet);
    SimulateFleet(
        fleet, names,
        {module.order, jobs_.Count(), [&progress](const WorkProgress& now) { progress.Show(now); }},
        [&](const std::string& name, const OpenHere& here) {
            return ReportBytes(name, options, demand, painter, here);
        });
    progress.Wipe();
    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.complete = fleet.isComplete;
    envelope.input = FleetInputJson(names.size(), options);
    envelope.exitStatus = fleet.Status();
    output_.WriteParts(
        options,
        [&](OutputForm form, const Painter& formPainter, const TakePart& take) {
            if (form == OutputForm::JsonFile) {
                WriteSimulationFleetJson(fleet, envelope, take);
            } else if (form == OutputForm::CsvFile) {
                WriteSimulationFleetCsv(fleet, take);
            } else if (form == OutputForm::Page) {
                take(SimulationFleetPage(fleet, envelope,
                                         {{"Dispensers", std::to_string(fleet.named)},
                                          {"Withdrawals", std::to_string(fleet.Withdrawals())}},
                                         FleetCommandLine(options)));
            } else {
                WriteSimulationFleetText(fleet, tellsAll_, formPainter, take);
            }
        },
        "");
    return envelope.exitStatus;
}

/// In a worker's process.
std::string SimulateCommand::ReportBytes(const std::string& dispenser,
                                         const CommonOptions& options,
                                         const DemandFile& demand,
                                         const Painter& painter,
                                         const OpenHere& here) const {
    try {
        SimulationQuestions questions = Prepare(dispenser, options, &demand);
        questions.jobs = 1;  // there is a worker for each core already
        const AskedModule module(options.Library(), options, questions.dispenser, here);
        SimulationAnswers answers =
            Simulate(questions, module.order, nullptr, [](const WorkProgress&) {});
        const SimulationReport report(std::move(questions), std::move(answers));
        SimulationFleetReport told = SimulationReportOf(dispenser, report);
        if (tellsAll_) {
            told.text = SimulationText(report, options.quiet, painter);
        }
        return ToBytes(told);
    } catch (const ToolError& error) {
        return ToBytes(SimulationReportOf(dispenser, error));
    }
}

Json SimulateCommand::FleetInputJson(std::size_t count, const CommonOptions& options) const {
    const SimulationQuestions defaults;
    const std::string mixes = ask_.mixes.empty() ? ask_.mix : ask_.mixes;
    Json json = {{"dispensers", count},
                 {"demand", demand_.file},
                 {"mixes", mixes.empty() ? Json() : Json(mixes)},
                 {"seed", demand_.seed ? Json(*demand_.seed) : Json()},
                 {"runs", demand_.runs.value_or(defaults.runs)},
                 {"deadline", DurationText(options.deadline.value_or(defaults.deadline))}};
    if (demand_.resample) {
        json["resampled"] = *demand_.resample;
    }
    return json;
}

SimulationQuestions SimulateCommand::Prepare(const std::string& dispenser,
                                             const CommonOptions& options,
                                             const DemandFile* demand) const {
    RequireDispenser(dispenser);
    demand_.Require(dispenser);
    SimulationQuestions questions;
    questions.dispenser = DispenserAsked(dispenser, ask_);
    questions.mixes = ask_.MixesOrAll(questions.dispenser);
    std::optional<DemandFile> opened;
    const DemandFile& file = demand != nullptr ? *demand : opened.emplace(demand_.Open());
    questions.demand = file.For(questions.dispenser);
    CheckDrawing(file);
    questions.seed = demand_.seed.value_or(questions.seed);
    questions.runs = demand_.runs.value_or(questions.runs);
    if (questions.CalculationCount() > kMostCalculations) {
        throw InputError("--runs: " + std::to_string(questions.CalculationCount()) +
                         " calculations are too many; expected at most " +
                         std::to_string(kMostCalculations));
    }
    questions.deadline = options.deadline.value_or(questions.deadline);
    questions.jobs = jobs_.Count();
    return questions;
}

void SimulateCommand::CheckDrawing(const DemandFile& demand) const {
    if (demand.IsRecorded()) {
        RefuseForRecorded(demand_.seed ? "--seed" : demand_.runs ? "--runs" : nullptr);
    }
    const SimulationQuestions defaults;
    CheckSeeds(demand_.seed.value_or(defaults.seed), demand_.runs.value_or(defaults.runs));
}

std::string SimulateCommand::CommandLine(const SimulationQuestions& questions,
                                         const CommonOptions& options) const {
    std::string line = "qxmix simulate " + ShellWord(dispensers_.One()) + demand_.Words() +
                       " --mixes " + MixListWord(questions.mixes);
    if (!questions.IsRecorded()) {
        line += " --seed " + std::to_string(questions.seed);
    }
    if (questions.runs > 1) {
        line += " --runs " + std::to_string(questions.runs);
    }
    return line + SheetWords(demand_.sheet) + AskingWords(ask_, options);
}

std::string SimulateCommand::FleetCommandLine(const CommonOptions& options) const {
    std::string line = "qxmix simulate" + dispensers_.Words() + demand_.Words();
    const std::string mixes = ask_.mixes.empty() ? ask_.mix : ask_.mixes;
    line += mixes.empty() ? "" : " --mixes " + ShellWord(mixes);
    line += demand_.seed ? " --seed " + std::to_string(*demand_.seed) : "";
    line += demand_.runs ? " --runs " + std::to_string(*demand_.runs) : "";
    return line + SheetWords(demand_.sheet) + AskingWords(ask_, options);
}

}  // namespace qxmix
