#include "SimulateCommand.h"

#include "SimulationJson.h"
#include "SimulationOutput.h"
#include "SimulationText.h"
#include "SimulationVerdict.h"
#include "answers/Envelope.h"
#include "demand/DemandReader.h"
#include "dispenser/DispenserReader.h"
#include "files/Output.h"
#include "files/OutputForm.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/MixList.h"
#include "options/ShellWords.h"
#include "terminal/Progress.h"

namespace qxmix {

namespace {

constexpr std::int64_t kMostRuns = 10000;
constexpr std::uint64_t kMostCalculations = 100000000;

}  // namespace

const CommandInfo& SimulateCommand::Info() const {
    static const CommandInfo info = {
        "simulate",
        "Asks every mix for the same withdrawals while cassettes drain.",
        {"simulate DISPENSER --demand FILE [--mixes all] [--seed N] [--output F]",
         "simulate DISPENSER --demand FILE --runs N [--mixes all] [--output F]"},
        {"simulate examples/euro.json --demand examples/week.json --mixes 1-4,8",
         "simulate examples/plain-euro.json --demand examples/week.json --runs 3"}};
    return info;
}

void SimulateCommand::AddOptions(CLI::App& command) {
    command.add_option("DISPENSER", dispenser_, "dispenser file, - or inline");
    command
        .add_option(
            "--demand", demand_,
            "withdrawals: recorded (CSV: time,amount,currency), or a JSON file to draw them "
            "from")
        ->type_name("FILE");
    AddWholeOption(
        command, "--seed", 0, UINT32_MAX,
        [this](std::int64_t number) { seed_ = static_cast<std::uint32_t>(number); },
        "draws other withdrawals; 1 without it");
    AddWholeOption(
        command, "--runs", 1, kMostRuns,
        [this](std::int64_t number) { runs_ = static_cast<std::uint32_t>(number); },
        "runs with one seed after the other: medians and ranges");
    AddAskOptions(command, ask_);
    AddJobsOption(command, jobs_);
    command
        .add_option("--output", output_,
                    "writes the simulation, too; the name ends in " +
                        std::string(kOutputFormsExpected))
        ->type_name("FILE");
}

ExitStatus SimulateCommand::Run(const CommonOptions& options) {
    RequireDifferentFiles({{"--output", output_}, {"--registry-out", options.registryOut}});
    const std::optional<OutputForm> form = OutputFormOf(output_);
    SimulationQuestions questions = Prepare(options);
    const std::string registry = options.RegistryOr(questions.dispenser.registry);
    questions.dispenser.registry = TakenValues(registry);

    const OpenOrder order{FindLibrary(options.Library()), registry};
    Asker asker(order.library, order.registry, options.Trace());
    asker.Open();
    asker.KeepRegistry();
    Progress progress(Info().name, questions.CalculationCount(), options.quiet);
    const SimulationAnswers answers =
        Simulate(questions, order, options.Trace(), [&progress](const SimulationProgress& now) {
            progress.Show(now.done, now.misses);
        });
    progress.Wipe();
    if (answers.demand.withdrawals.empty() && !options.json) {
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
        envelope.input = SimulationInputJson(questions);
        envelope.result = SimulationResultJson(questions, answers);
    }
    OutputFiles files;
    files.Add(options.registryOut, WithErrorCode(asker.Registry(), answers.lastCode));
    if (form) {
        files.Add(output_, SimulationFile(*form, questions, answers, envelope,
                                          CommandLine(questions, options)));
    }
    files.Commit();
    WriteStandardOutput(options.json ? EnvelopeText(envelope)
                                     : SimulationText(questions, answers, Painter(options.color)));
    return envelope.exitStatus;
}

SimulationQuestions SimulateCommand::Prepare(const CommonOptions& options) const {
    if (dispenser_.empty()) {
        throw InputError("DISPENSER: missing; expected a file, - or a dispenser such as "
                         "EUR:50x10,20x10");
    }
    if (demand_.empty()) {
        throw InputError("--demand: missing; expected a file of withdrawals such as "
                         "examples/week.json");
    }
    if (dispenser_ == "-" && demand_ == "-") {
        throw InputError("--demand: - is taken by the dispenser; expected a file");
    }
    SimulationQuestions questions;
    questions.dispenser = OpenDispenser(dispenser_);
    ask_.ApplyTo(questions.dispenser);
    const bool namesMixes = !ask_.mix.empty() || !ask_.mixes.empty();
    questions.mixes = namesMixes ? ask_.Mixes(questions.dispenser) : AllMixes();
    questions.demand = OpenDemand(demand_, questions.dispenser);
    questions.seed = seed_.value_or(questions.seed);
    questions.runs = runs_.value_or(questions.runs);
    CheckDrawing(questions);
    questions.deadline = options.deadline.value_or(questions.deadline);
    questions.jobs = jobs_.Count();
    return questions;
}

void SimulateCommand::CheckDrawing(const SimulationQuestions& questions) const {
    if (questions.IsRecorded() && (seed_ || runs_)) {
        throw InputError(
            std::string(seed_ ? "--seed" : "--runs") +
            ": given for recorded withdrawals; expected a JSON file to draw them from");
    }
    const std::uint64_t lastSeed = std::uint64_t{questions.seed} + questions.runs - 1;
    if (lastSeed > UINT32_MAX) {
        throw InputError("--seed: " + std::to_string(questions.seed) +
                         " is too large; expected at most " +
                         std::to_string(UINT32_MAX - questions.runs + 1) + " for so many --runs");
    }
    if (questions.CalculationCount() > kMostCalculations) {
        throw InputError("--runs: " + std::to_string(questions.CalculationCount()) +
                         " calculations are too many; expected at most " +
                         std::to_string(kMostCalculations));
    }
}

std::string SimulateCommand::CommandLine(const SimulationQuestions& questions,
                                         const CommonOptions& options) const {
    std::string line = "qxmix simulate " + ShellWord(dispenser_) + " --demand " +
                       ShellWord(demand_) + " --mixes " + MixListWord(questions.mixes);
    if (!questions.IsRecorded()) {
        line += " --seed " + std::to_string(questions.seed);
    }
    if (questions.runs > 1) {
        line += " --runs " + std::to_string(questions.runs);
    }
    return line + AskingWords(ask_, options);
}

}  // namespace qxmix
