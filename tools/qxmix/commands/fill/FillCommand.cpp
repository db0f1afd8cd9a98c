#include "FillCommand.h"

#include "FillForms.h"
#include "FillIntervals.h"
#include "FillNotes.h"
#include "FillPictures.h"
#include "FillProgressLine.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "json/JsonFields.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/DispenserArgument.h"
#include "options/OutputFileOption.h"
#include "options/ShellWords.h"
#include "text/ParseWhole.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

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

/// Whether there are seeds for all runs, and time for what is asked in them.
void CheckRuns(const FillQuestions& questions) {
    CheckSeeds(questions.seed, questions.runs);
    const std::uint64_t all = SizeOfRuns(questions.demand, questions.seed, questions.runs);
    if (all > kMostAsked) {
        throw InputError("--runs: " + std::to_string(all) +
                         " withdrawals in all runs are too many; expected at most " +
                         std::to_string(kMostAsked));
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
    AddDemandOption(command, demand_,
                    "withdrawals: a JSON file to draw them from, or recorded ones (CSV: "
                    "time,amount,currency)");
    command
        .add_option("--service", service_,
                    "percent of the withdrawals to serve in 95 % of the runs; 99.5 without it")
        ->type_name("PERCENT");
    command
        .add_option_function<std::string>(
            "--days", [this](const std::string& text) { TakeDays(text); },
            "days until the next refill, or a range such as 1-14 to find which number of them "
            "costs least; those of the demand without it")
        ->type_name("DAYS");
    AddWholeOption(
        command, "--bundle", 1, INT32_MAX,
        [this](std::int64_t number) { bundle_ = static_cast<std::uint32_t>(number); },
        "items that are loaded together, where a cassette does not say; 100 without it");
    command
        .add_option_function<std::string>(
            "--notes", [this](const std::string& text) { TakeNotes(text); },
            "notes that the cassettes may have, such as 5,10,20,50: finds out, too, which belong "
            "into which")
        ->type_name("LIST");
    AddRunOptions(command, demand_, "runs with one seed after the other; 50 without it");
    AddOutputFileOption(command, "--save", save_,
                        "writes the dispenser file with the loading that is proposed");
    AddAskOptions(command, ask_);
    AddSheetOptions(command, demand_.sheet);
    AddJobsOption(command, jobs_);
    output_.AddTo(command, "answer");
}

void FillCommand::TakeDays(const std::string& text) {
    dayRange_ = ParseDayRange(text);
    const auto days = ParseWhole<std::uint32_t>(text);
    if (!dayRange_ && (!days || *days == 0 || *days > kMostDaysToRefill)) {
        throw InputError("--days: " + NotAllowed(text, RangeText(1, kMostDaysToRefill) +
                                                           ", or a range such as 1-14"));
    }
    days_ = days;
}

void FillCommand::TakeNotes(const std::string& text) {
    const auto notes = ParseNotes(text);
    if (!notes) {
        throw InputError("--notes: " + NotAllowed(text, "different notes such as 5,10,20,50"));
    }
    notes_ = *notes;
}

/// Whether there is a choice of notes, and not too much of it.
void FillCommand::CheckNotes(const Dispenser& dispenser) const {
    const std::uint64_t choices = NoteChoiceCount(dispenser, notes_);
    if (choices == 0) {
        throw InputError("--notes: no cassette can get other notes; expected one of bills that is "
                         "loaded, and does not say what an item is worth");
    }
    if (choices > kMostChoices) {
        throw InputError("--notes: more than " + std::to_string(kMostChoices) +
                         " choices for these cassettes are too many; expected fewer notes");
    }
}

ExitStatus FillCommand::Run(const CommonOptions& options) {
    const std::vector<NamedOutput> saved = {{"--save", save_}};
    const std::optional<OutputForm> form = output_.Form(options, saved);
    FillQuestions questions = Prepare(options);
    AskedModule module(options.Library(), options, questions.dispenser);
    module.Open();
    FillReport report = FillIntervals(
        std::move(questions), [&](const FillQuestions& asked, const RunDemands& demands) {
            FillProgressLine line(Info().name + (asked.range ? "  " + DaysText(asked.Days()) : ""),
                                  asked.dispenser, options.quiet);
            FillAnswers answers = Fill(asked, demands, module.order, options.Trace(),
                                       [&line](const FillProgress& now) { line.Show(now); });
            line.Wipe();
            return answers;
        });
    if (options.json || NeedsResult(form)) {
        FillProgressLine line(Info().name + "  curve", report.questions.dispenser, options.quiet);
        report = WithPictures(std::move(report), module.order, options.Trace(),
                              [&line](const FillProgress& now) { line.Show(now); });
        line.Wipe();
    }
    return Write(report, options, form, module.asker);
}

ExitStatus FillCommand::Write(const FillReport& report,
                              const CommonOptions& options,
                              const std::optional<OutputForm>& form,
                              Asker& asker) const {
    Envelope envelope = EnvelopeBy(asker, Info().name);
    envelope.complete = report.answers.isComplete;
    envelope.warnings = report.findings;
    envelope.exitStatus = report.status;
    if (options.json || NeedsResult(form)) {
        envelope.input = FillInputJson(report.questions);
        envelope.result = FillResultJson(report);
    }
    const AnswerForms forms{
        [&](const Painter& painter) { return FillText(report, options.quiet, painter); },
        [&] { return FillCsv(report); },
        [&] { return FillPage(report, envelope, CommandLine(report.questions, options)); }};
    const MixFill* const best = report.Best();
    const std::vector<WrittenFile> files = {
        {best == nullptr ? "" : save_, best == nullptr ? "" : LoadedFile(report)}};
    return output_.Write(options, envelope, forms,
                         WithErrorCode(asker.Registry(), best == nullptr ? "" : best->lastCode),
                         files);
}

FillQuestions FillCommand::Prepare(const CommonOptions& options) const {
    RequireDispenser(dispenser_);
    demand_.Require(dispenser_);
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
    if (FillLoading(questions.dispenser, questions.bundle, {}).Cassettes().empty()) {
        throw InputError(dispenser_ + ": no cassette can be loaded; expected one of " +
                         questions.dispenser.currency + " that gives notes or coins");
    }
    if (!notes_.empty()) {
        CheckNotes(questions.dispenser);
        questions.notes = notes_;
    }
    questions.deadline = options.deadline.value_or(questions.deadline);
    questions.jobs = jobs_.Count();
    return questions;
}

void FillCommand::PrepareDemand(FillQuestions& questions) const {
    questions.demand = demand_.Open().For(questions.dispenser);
    if (const Demand* const record = RecordOf(questions.demand);
        record != nullptr && record->currencies.size() > 1) {
        throw InputError(demand_.file + ": withdrawals in " + record->currencies[1] +
                         " are not allowed; expected " + questions.dispenser.currency + " only");
    }
    questions.seed = demand_.seed.value_or(questions.seed);
    questions.runs = questions.IsRecorded() ? 1 : demand_.runs.value_or(questions.runs);
    if (questions.IsRecorded()) {
        RefuseForRecorded(demand_.seed         ? "--seed"
                          : demand_.runs       ? "--runs"
                          : days_ || dayRange_ ? "--days"
                                               : nullptr);
    } else {
        SetDays(questions.demand, dayRange_ ? dayRange_->to : days_.value_or(questions.Days()));
        questions.range = dayRange_;
        if (dayRange_ && !questions.dispenser.costs) {
            throw InputError(dispenser_ + ": costs: missing; expected what loading costs, which "
                                          "decides between the days of --days");
        }
    }
    CheckRuns(questions);
}

std::string FillCommand::CommandLine(const FillQuestions& questions,
                                     const CommonOptions& options) const {
    std::string line = "qxmix fill " + ShellWord(dispenser_) + demand_.Words() + " --service " +
                       questions.serviceText + " --mixes " + MixListWord(questions.mixes) +
                       " --bundle " + std::to_string(questions.bundle);
    if (!questions.IsRecorded()) {
        line += " --days " + (questions.range ? std::to_string(questions.range->from) + "-" +
                                                    std::to_string(questions.range->to)
                                              : std::to_string(questions.Days()));
        line += " --seed " + std::to_string(questions.seed) + " --runs " +
                std::to_string(questions.runs);
    }
    return line + (notes_.empty() ? "" : " --notes " + NoteListWord(notes_)) +
           SheetWords(demand_.sheet) + AskingWords(ask_, options);
}

}  // namespace qxmix
