#include "LintCommand.h"

#include "LintJson.h"
#include "LintRules.h"
#include "LintText.h"
#include "answers/Envelope.h"
#include "commands/map/MapOutput.h"
#include "dispenser/DispenserReader.h"
#include "files/Output.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/MixList.h"
#include "terminal/Progress.h"
#include "text/Duration.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostCells = 1000000;

/// The worst of what was found and of what the module did.
ExitStatus StatusOf(const LintCase& lint, const std::vector<LintFinding>& findings) {
    if (!lint.isComplete) {
        return ExitStatus::Interrupted;
    }
    ExitStatus status = ExitStatus::Well;
    for (const LintFinding& finding : findings) {
        status = std::max(status, ExitStatusOf(finding.severity));
    }
    const bool hasCrashed = std::any_of(lint.mixes.begin(), lint.mixes.end(), [](const auto& mix) {
        return mix.row.Count(Outcome::Crashed) > 0;
    });
    return hasCrashed ? ExitStatus::CannotWork : status;
}

}  // namespace

const CommandInfo& LintCommand::Info() const {
    static const CommandInfo info = {
        "lint",
        "Tells what is wrong with a dispenser, and what to do about it.",
        {"lint DISPENSER [--mixes N|all] [--slow 20ms]"},
        {"lint examples/trouble.json", "lint EUR:100x300,50x300:full,20x300 --mixes 1,4"}};
    return info;
}

void LintCommand::AddOptions(CLI::App& command) {
    command.add_option("DISPENSER", dispenser_, "dispenser file, - or inline");
    AddAmountRangeOptions(command, range_);
    AddAskOptions(command, ask_);
    command.add_option("--slow", slow_, "answers that take longer are reported; 20ms unless given")
        ->type_name("TIME");
    AddJobsOption(command, jobs_);
}

ExitStatus LintCommand::Run(const CommonOptions& options) {
    LintQuestions questions = Prepare(options);
    questions.registry = options.RegistryOr(questions.map.dispenser.registry);
    questions.map.dispenser.registry = TakenValues(questions.registry);

    const OpenOrder order{FindLibrary(options.Library()), questions.registry};
    Asker asker(order.library, order.registry, options.Trace());
    asker.Open();
    asker.KeepRegistry();
    Progress progress(Info().name, questions.map.CellCount(), options.quiet);
    const LintCase lint =
        AskLint(questions, order, asker, options.Trace(),
                [&progress](const MapProgress& now) { progress.Show(now.done, now.misses); });
    progress.Wipe();
    const std::vector<LintFinding> findings = CheckAll(lint);
    OutputFiles files;
    files.Add(options.registryOut, WithErrorCode(asker.Registry(), lint.lastCode));
    files.Commit();
    WriteStandardOutput(options.json
                            ? RenderJson(lint, findings, asker)
                            : LintText(lint, findings, options.quiet, Painter(options.color)));
    return StatusOf(lint, findings);
}

LintQuestions LintCommand::Prepare(const CommonOptions& options) const {
    if (dispenser_.empty()) {
        throw InputError("DISPENSER: missing; expected a file, - or a dispenser such as "
                         "EUR:50x10,20x10");
    }
    LintQuestions questions;
    MapQuestions& map = questions.map;
    map.dispenser = OpenDispenser(dispenser_);
    ask_.ApplyTo(map.dispenser);
    const bool namesMixes = map.dispenser.mix || !ask_.mix.empty() || !ask_.mixes.empty();
    map.mixes = namesMixes ? ask_.Mixes(map.dispenser) : AllMixes();
    const AmountRange range = range_.RangeOf(map.dispenser);
    map.from = range.from;
    map.to = range.to;
    map.step = range.step;
    CheckCellCount(map, kMostCells, "--step");
    map.listed = AmountsAndButtons(map);
    map.deadline = options.deadline.value_or(map.deadline);
    map.jobs = jobs_.Count();
    if (!slow_.empty()) {
        const auto slow = ParseDuration(slow_);
        if (!slow) {
            throw InputError("--slow: " + NotAllowed(slow_, kDurationExpected));
        }
        questions.slow = *slow;
    }
    questions.registryFile = FileNameOf(options.registry);
    return questions;
}

std::string LintCommand::RenderJson(const LintCase& lint,
                                    const std::vector<LintFinding>& findings,
                                    const Asker& asker) const {
    Envelope envelope;
    envelope.module = asker.ModuleVersion();
    envelope.library = FileNameOf(asker.Library());
    envelope.command = Info().name;
    envelope.complete = lint.isComplete;
    envelope.input = LintInputJson(lint);
    envelope.result = LintResultJson(findings);
    envelope.exitStatus = StatusOf(lint, findings);
    return EnvelopeText(envelope);
}

}  // namespace qxmix
