#include "LintCommand.h"

#include "LintFleetForms.h"
#include "LintForms.h"
#include "LintRules.h"
#include "answers/Envelope.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/MixList.h"
#include "options/ShellWords.h"
#include "requests/RawIn.h"
#include "terminal/Progress.h"
#include "text/Duration.h"
#include "workers/ProgressInTurn.h"

#include <CLI/App.hpp>
#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostCells = 1000000;

void WriteLintForm(OutputForm form,
                   const LintFleet& fleet,
                   const Envelope& envelope,
                   const TakePart& take) {
    switch (form) {
    case OutputForm::CsvFile:
        return WriteLintCsv(fleet, take);
    case OutputForm::Sarif:
        return WriteLintSarif(fleet, envelope, take);
    case OutputForm::JUnit:
        return WriteLintJUnit(fleet, take);
    default:
        return WriteLintGithub(fleet, take);
    }
}

/// The worst of what was found and of what the module did.
ExitStatus StatusOf(const LintCases& cases, const std::vector<LintFinding>& findings) {
    if (!cases.back().isComplete) {
        return ExitStatus::Interrupted;
    }
    ExitStatus status = ExitStatus::Well;
    for (const LintFinding& finding : findings) {
        status = finding.accepted ? status : std::max(status, ExitStatusOf(finding.severity));
    }
    return CrashLines(cases).empty() ? status : ExitStatus::CannotWork;
}

/// The error code written last, the currencies and their amounts in order.
std::string LastCode(const LintCases& cases) {
    std::string code;
    for (const LintCase& lint : cases) {
        code = lint.lastCode.empty() ? code : lint.lastCode;
    }
    return code;
}

std::uint64_t CellCount(const std::vector<LintQuestions>& questions) {
    std::uint64_t count = 0;
    for (const LintQuestions& one : questions) {
        count += one.map.CellCount();
    }
    return count;
}

}  // namespace

const CommandInfo& LintCommand::Info() const {
    static const CommandInfo info = {
        "lint",
        "Tells what is wrong with a dispenser, and what to do about it.",
        {"lint DISPENSER [--mixes N|all] [--slow 20ms]",
         "lint DISPENSER ... | @LIST [--all] [--output F]", "lint --raw-in F [DISPENSER]"},
        {"lint examples/trouble.json", "lint EUR:100x300,50x300:full,20x300 --mixes 1,4"}};
    return info;
}

void LintCommand::AddOptions(CLI::App& command) {
    dispensers_.AddTo(command);
    AddRawInOption(command, rawIn_);
    AddAmountRangeOptions(command, range_);
    AddAskOptions(command, ask_);
    DescribeCurrencyOfEach(command);
    AddDurationOption(
        command, "--slow", [this](Milliseconds slow) { slow_ = slow; },
        "answers that take longer are reported; 20ms unless given");
    command.add_flag(
        "--all", tellsAll_,
        "of many dispensers all that was found, not rows alone; accepted findings, too");
    command.add_option("--baseline", baseline_, "accepts what --json or --output had found before")
        ->type_name("FILE");
    AddJobsOption(command, jobs_);
    output_.AddTo(command, "findings");
    output_.AddFormatTo(command);
}

ExitStatus LintCommand::Run(const CommonOptions& options) {
    output_.Form(options);
    output_.StandardForm(options);
    const LintBaseline baseline(baseline_, dispensers_.AreMany());
    return dispensers_.AreMany() ? RunMany(options, baseline) : RunOne(options, baseline);
}

LintCommand::Linted LintCommand::Lint(const std::string& dispenser,
                                      std::vector<LintQuestions>& questions,
                                      AskedModule& module,
                                      const LintSetting& setting,
                                      const ProgressListener& listen) {
    Linted linted;
    ProgressInTurn progress(listen);
    for (LintQuestions& one : questions) {
        one.registry = module.order.registry;
        // Of the registry the module has taken what it reads.
        one.map.dispenser.registry = questions.front().map.dispenser.registry;
        linted.cases.push_back(
            AskLint(one, module.order, module.asker, setting.options.Trace(), progress.Next()));
        if (!linted.cases.back().isComplete) {
            break;
        }
    }
    linted.findings = CheckAll(linted.cases);
    if (linted.cases.back().isComplete) {
        const Dispenser& asked = linted.cases.front().TheDispenser();
        AcceptFindings(asked, linted.findings);
        setting.baseline.Accept(dispenser, asked.currency, linted.findings);
    }
    linted.status = StatusOf(linted.cases, linted.findings);
    return linted;
}

ExitStatus LintCommand::RunOne(const CommonOptions& options, const LintBaseline& baseline) const {
    const std::string name = dispensers_.One();
    std::vector<LintQuestions> questions = Prepare(name, options);
    AskedModule module(options.Library(), options, questions.front().map.dispenser);
    module.Open();
    Progress progress(Info().name, CellCount(questions), options.quiet);
    const Linted linted = Lint(name, questions, module, {options, baseline},
                               [&progress](const WorkProgress& now) { progress.Show(now); });
    progress.Wipe();
    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.complete = linted.cases.back().isComplete;
    envelope.version = questions.size() > 1 ? kVersionOfCurrencies : envelope.version;
    envelope.input = LintInputJson(linted.cases);
    envelope.result = LintResultJson(linted.findings);
    envelope.exitStatus = linted.status;
    LintFleet fleet;
    LintFleetReport report =
        ReportOf(name.empty() ? rawIn_ : name, linted.cases, linted.findings, linted.status, false);
    if (rawIn_.empty()) {
        AddPlaces(report);
    }
    fleet.Keep(report);
    fleet.isComplete = envelope.complete;
    output_.WriteParts(
        options,
        [&](OutputForm form, const Painter& painter, const TakePart& take) {
            if (form == OutputForm::TextFile) {
                take(LintText(linted.cases, linted.findings, options.quiet, tellsAll_, painter));
            } else if (form == OutputForm::JsonFile) {
                take(EnvelopeText(envelope));
            } else if (form == OutputForm::Page) {
                take(LintFleetPage(fleet, envelope, CommandLine(options)));
            } else {
                WriteLintForm(form, fleet, envelope, take);
            }
        },
        WithErrorCode(module.asker.Registry(), LastCode(linted.cases)));
    return linted.status;
}

ExitStatus LintCommand::RunMany(const CommonOptions& options, const LintBaseline& baseline) const {
    dispensers_.RefuseForMany("--raw-in", !rawIn_.empty());
    const std::vector<std::string> names = dispensers_.All(options);
    // What no dispenser can mend is said once.
    ask_.MixesOrAll(Dispenser());
    range_.RequireNumbers();
    // Made here: a worker's standard output is another one. What is written twice has no colours.
    const bool isWritten = output_.Form(options) == OutputForm::TextFile;
    const Painter painter(isWritten ? ColorMode::Never : options.color);
    Dispenser none;
    AskedModule module(options.Library(), options, none);
    module.asker.Open();
    LintFleet fleet;
    Progress progress(Info().name, names.size(), options.quiet);
    AskLintFleet(
        fleet, names,
        {module.order, jobs_.Count(), [&progress](const WorkProgress& now) { progress.Show(now); }},
        [&](const std::string& name, const OpenHere& here) {
            return ReportBytes(name, {options, baseline}, painter, here);
        });
    progress.Wipe();
    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.complete = fleet.isComplete;
    envelope.input = FleetInputJson(names.size(), options);
    envelope.exitStatus = fleet.Status();
    output_.WriteParts(
        options,
        [&](OutputForm form, const Painter& formPainter, const TakePart& take) {
            if (form == OutputForm::TextFile) {
                WriteFleetText(fleet, tellsAll_, formPainter, take);
            } else if (form == OutputForm::JsonFile) {
                WriteFleetJson(fleet, envelope, take);
            } else if (form == OutputForm::Page) {
                take(LintFleetPage(fleet, envelope, CommandLine(options)));
            } else {
                WriteLintForm(form, fleet, envelope, take);
            }
        },
        "");
    return envelope.exitStatus;
}

/// In a worker's process.
std::string LintCommand::ReportBytes(const std::string& dispenser,
                                     const LintSetting& setting,
                                     const Painter& painter,
                                     const OpenHere& here) const {
    const CommonOptions& options = setting.options;
    LintFleetReport report;
    try {
        std::vector<LintQuestions> questions = Prepare(dispenser, options);
        for (LintQuestions& one : questions) {
            one.map.jobs = 1;  // there is a worker for each core already
        }
        AskedModule module(options.Library(), options, questions.front().map.dispenser, here);
        const Linted linted =
            Lint(dispenser, questions, module, setting, [](const WorkProgress&) {});
        report = ReportOf(dispenser, linted.cases, linted.findings, linted.status, options.quiet);
        if (tellsAll_) {
            report.text = LintText(linted.cases, linted.findings, options.quiet, true, painter);
        }
    } catch (const ToolError& error) {
        report = ReportOf(dispenser, error);
    }
    AddPlaces(report);
    return ToBytes(report);
}

std::vector<LintQuestions> LintCommand::Prepare(const std::string& dispenser,
                                                const CommonOptions& options) const {
    std::vector<LintQuestions> questions;
    std::vector<std::string> currencies;
    for (const Dispenser& asked : InEachCurrency(dispenser, rawIn_, ask_)) {
        questions.push_back(PrepareOne(asked, options));
        currencies.push_back(asked.currency);
    }
    for (LintQuestions& one : questions) {
        one.currencies = currencies;
    }
    return questions;
}

LintQuestions LintCommand::PrepareOne(const Dispenser& dispenser,
                                      const CommonOptions& options) const {
    LintQuestions questions;
    MapQuestions& map = questions.map;
    map.dispenser = dispenser;
    map.mixes = map.dispenser.mix ? ask_.Mixes(map.dispenser) : ask_.MixesOrAll(map.dispenser);
    const AmountRange range = range_.RangeOf(map.dispenser);
    map.from = range.from;
    map.to = range.to;
    map.step = range.step;
    CheckCellCount(map, kMostCells, "--step");
    map.listed = AmountsAndButtons(map);
    map.deadline = options.deadline.value_or(map.deadline);
    map.jobs = jobs_.Count();
    questions.slow = slow_.value_or(questions.slow);
    questions.registryFile = options.registry;
    const Amounts& named = map.dispenser.AmountsTold();
    questions.isRangeNamed = named.min || named.max || named.step || range_.IsNamed();
    return questions;
}

Json LintCommand::FleetInputJson(std::size_t count, const CommonOptions& options) const {
    const LintQuestions defaults;
    const auto orNull = [](const std::string& text) { return text.empty() ? Json() : Json(text); };
    return {{"dispensers", count},
            {"mixes", orNull(ask_.mixes.empty() ? ask_.mix : ask_.mixes)},
            {"from", orNull(range_.from)},
            {"to", orNull(range_.to)},
            {"step", range_.step ? Json(*range_.step) : Json()},
            {"slow", DurationText(slow_.value_or(defaults.slow))},
            {"deadline", DurationText(options.deadline.value_or(defaults.map.deadline))}};
}

std::string LintCommand::CommandLine(const CommonOptions& options) const {
    std::string line = "qxmix lint" + dispensers_.Words();
    const auto add = [&line](const char* name, const std::string& value) {
        line += value.empty() ? "" : std::string(" ") + name + " " + ShellWord(value);
    };
    add("--raw-in", rawIn_);
    add("--mix", ask_.mix);
    add("--mixes", ask_.mixes);
    add("--from", range_.from);
    add("--to", range_.to);
    add("--step", range_.step ? std::to_string(*range_.step) : "");
    add("--slow", slow_ ? DurationText(*slow_) : "");
    add("--baseline", baseline_);
    return line + AskingWords(ask_, options);
}

}  // namespace qxmix
