#include "FillCommand.h"

#include "FillForms.h"
#include "FillProgressLine.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/DispenserArgument.h"
#include "options/OutputFileOption.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

constexpr std::int64_t kMostDays = 3660;
constexpr std::int64_t kMostRuns = 10000;
constexpr std::uint64_t kMostAsked = 1000000;

/// The dispenser file with the loading that is proposed.
std::string LoadedFile(const FillReport& report) {
    Dispenser loaded = report.Best()->load->loaded;
    loaded.mix = report.Best()->mix;
    return DispenserJson(loaded).dump(2) + "\n";
}

/// Whether each cassette takes a bundle.
void CheckBundles(const std::string& name, const FillQuestions& questions) {
    for (std::size_t index = 0; index < questions.dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = questions.dispenser.cassettes[index];
        const std::uint32_t bundle = cassette.bundle.value_or(questions.bundle);
        if (cassette.capacity && *cassette.capacity < bundle) {
            throw InputError(name + ": /cassettes/" + std::to_string(index) + "/capacity: " +
                             NotAllowed(std::to_string(*cassette.capacity),
                                        "a bundle, " + std::to_string(bundle) + ", or more"));
        }
    }
}

}  // namespace

const CommandInfo& FillCommand::Info() const {
    static const CommandInfo info = {
        "fill",
        "Finds the least money that serves customers until the refill.",
        {"fill DISPENSER --demand FILE [--service PERCENT] [--save FILE]"},
        {"fill examples/branch.json --demand examples/week.json --days 3",
         "fill examples/branch.json --demand examples/week.json --days 2 --mix 2"}};
    return info;
}

void FillCommand::AddOptions(CLI::App& command) {
    AddDispenserArgument(command, dispenser_);
    command
        .add_option("--demand", demand_,
                    "withdrawals: a JSON file to draw them from, or recorded ones (CSV: "
                    "time,amount,currency)")
        ->type_name("FILE");
    command
        .add_option("--service", service_,
                    "percent of the withdrawals to serve in 95 % of the runs; 99.5 without it")
        ->type_name("PERCENT");
    AddWholeOption(
        command, "--days", 1, kMostDays,
        [this](std::int64_t number) { days_ = static_cast<std::uint32_t>(number); },
        "days until the next refill; those of the demand without it");
    AddWholeOption(
        command, "--bundle", 1, INT32_MAX,
        [this](std::int64_t number) { bundle_ = static_cast<std::uint32_t>(number); },
        "items that are loaded together, where a cassette does not say; 100 without it");
    AddWholeOption(
        command, "--seed", 0, UINT32_MAX,
        [this](std::int64_t number) { seed_ = static_cast<std::uint32_t>(number); },
        "draws other withdrawals; 1 without it");
    AddWholeOption(
        command, "--runs", 1, kMostRuns,
        [this](std::int64_t number) { runs_ = static_cast<std::uint32_t>(number); },
        "runs with one seed after the other; 50 without it");
    AddOutputFileOption(command, "--save", save_,
                        "writes the dispenser file with the loading that is proposed");
    AddAskOptions(command, ask_);
    AddSheetOptions(command, sheet_);
    AddJobsOption(command, jobs_);
    output_.AddTo(command, "answer");
}

ExitStatus FillCommand::Run(const CommonOptions& options) {
    const std::vector<NamedOutput> saved = {{"--save", save_}};
    const std::optional<OutputForm> form = output_.Form(options, saved);
    FillQuestions questions = Prepare(options);
    AskedModule module(options.Library(), options, questions.dispenser);
    module.Open();
    FillProgressLine line(Info().name, questions.dispenser, options.quiet);
    RunDemands demands = questions.Demands();
    FillAnswers answers = Fill(questions, demands, module.order, options.Trace(),
                               [&line](const FillProgress& now) { line.Show(now); });
    line.Wipe();

    const FillReport report(std::move(questions), std::move(demands), std::move(answers));
    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.complete = report.answers.isComplete;
    envelope.warnings = report.findings;
    envelope.exitStatus = report.status;
    if (options.json || NeedsResult(form)) {
        envelope.input = FillInputJson(report.questions);
        envelope.result = FillResultJson(report);
    }
    const AnswerForms forms{
        [&](const Painter& painter) { return FillText(report, options.quiet, painter); },
        [&] { return FillCsv(report); }, nullptr};
    const MixFill* const best = report.Best();
    const std::vector<WrittenFile> files = {
        {best == nullptr ? "" : save_, best == nullptr ? "" : LoadedFile(report)}};
    return output_.Write(
        options, envelope, forms,
        WithErrorCode(module.asker.Registry(), best == nullptr ? "" : best->lastCode), files);
}

FillQuestions FillCommand::Prepare(const CommonOptions& options) const {
    RequireDispenser(dispenser_);
    if (demand_.empty()) {
        throw InputError("--demand: missing; expected a file of withdrawals such as "
                         "examples/week.json");
    }
    if (dispenser_ == "-" && demand_ == "-") {
        throw InputError("--demand: - is taken by the dispenser; expected a file");
    }
    FillQuestions questions;
    const std::optional<ServedShare> service = ParsePercent(service_);
    if (!service) {
        throw InputError("--service: " +
                         NotAllowed(service_, "a percentage from 0.001 to 100 such as 99.5"));
    }
    questions.service = *service;
    questions.serviceText = service_;
    questions.bundle = bundle_;
    questions.dispenser = DispenserAsked(dispenser_, ask_);
    questions.mixes = ask_.Mixes(questions.dispenser);
    CheckBundles(dispenser_, questions);
    PrepareDemand(questions);
    if (FillLoading(questions, {}).Cassettes().empty()) {
        throw InputError(dispenser_ + ": no cassette can be loaded; expected one of " +
                         questions.dispenser.currency + " that gives notes or coins");
    }
    questions.deadline = options.deadline.value_or(questions.deadline);
    questions.jobs = jobs_.Count();
    return questions;
}

void FillCommand::PrepareDemand(FillQuestions& questions) const {
    questions.demand = OpenDemand(demand_, questions.dispenser, sheet_);
    questions.seed = seed_.value_or(questions.seed);
    questions.runs = questions.IsRecorded() ? 1 : runs_.value_or(questions.runs);
    if (questions.IsRecorded()) {
        if (seed_ || runs_ || days_) {
            throw InputError(
                std::string(seed_   ? "--seed"
                            : runs_ ? "--runs"
                                    : "--days") +
                ": given for recorded withdrawals; expected a JSON file to draw them from");
        }
        const auto& recorded = std::get<Demand>(questions.demand);
        if (recorded.currencies.size() > 1) {
            throw InputError(demand_ + ": withdrawals in " + recorded.currencies[1] +
                             " are not allowed; expected " + questions.dispenser.currency +
                             " only");
        }
    } else {
        auto& pattern = std::get<DemandPattern>(questions.demand);
        pattern.days = days_.value_or(pattern.days);
    }
    if (std::uint64_t{questions.seed} + questions.runs - 1 > UINT32_MAX) {
        throw InputError("--seed: " + std::to_string(questions.seed) +
                         " is too large; expected at most " +
                         std::to_string(UINT32_MAX - questions.runs + 1) + " for so many --runs");
    }
    if (questions.WithdrawalCount() * questions.runs > kMostAsked) {
        throw InputError("--runs: " + std::to_string(questions.WithdrawalCount() * questions.runs) +
                         " withdrawals in all runs are too many; expected at most " +
                         std::to_string(kMostAsked));
    }
}

}  // namespace qxmix
