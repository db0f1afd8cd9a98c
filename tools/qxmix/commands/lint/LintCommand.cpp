#include "LintCommand.h"

#include "LintForms.h"
#include "LintRules.h"
#include "answers/Envelope.h"
#include "files/Output.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/DispenserArgument.h"
#include "options/MixList.h"
#include "requests/RawIn.h"
#include "terminal/Progress.h"
#include "text/Duration.h"

#include <CLI/App.hpp>
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
        {"lint DISPENSER [--mixes N|all] [--slow 20ms]", "lint --raw-in F [DISPENSER]"},
        {"lint examples/trouble.json", "lint EUR:100x300,50x300:full,20x300 --mixes 1,4"}};
    return info;
}

void LintCommand::AddOptions(CLI::App& command) {
    AddDispenserArgument(command, dispenser_);
    AddRawInOption(command, rawIn_);
    AddAmountRangeOptions(command, range_);
    AddAskOptions(command, ask_);
    command.add_option("--slow", slow_, "answers that take longer are reported; 20ms unless given")
        ->type_name("TIME");
    AddJobsOption(command, jobs_);
}

ExitStatus LintCommand::Run(const CommonOptions& options) {
    LintQuestions questions = Prepare(options);
    AskedModule module(options.Library(), options, questions.map.dispenser);
    questions.registry = module.order.registry;
    module.Open();
    Progress progress(Info().name, questions.map.CellCount(), options.quiet);
    const LintCase lint = AskLint(questions, module.order, module.asker, options.Trace(),
                                  [&progress](const WorkProgress& now) { progress.Show(now); });
    progress.Wipe();
    const std::vector<LintFinding> findings = CheckAll(lint);
    const ExitStatus status = StatusOf(lint, findings);
    OutputFiles files;
    files.Add(options.registryOut, WithErrorCode(module.asker.Registry(), lint.lastCode));
    files.Commit();
    WriteStandardOutput(options.json
                            ? RenderJson(lint, findings, status, module.asker)
                            : LintText(lint, findings, options.quiet, Painter(options.color)));
    return status;
}

LintQuestions LintCommand::Prepare(const CommonOptions& options) const {
    LintQuestions questions;
    MapQuestions& map = questions.map;
    map.dispenser = DispenserAsked(dispenser_, rawIn_, ask_);
    map.mixes = map.dispenser.mix ? ask_.Mixes(map.dispenser) : ask_.MixesOrAll(map.dispenser);
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
    questions.registryFile = options.registry;
    const Amounts& named = map.dispenser.amounts;
    questions.isRangeNamed = named.min || named.max || named.step || range_.IsNamed();
    return questions;
}

std::string LintCommand::RenderJson(const LintCase& lint,
                                    const std::vector<LintFinding>& findings,
                                    ExitStatus status,
                                    const Asker& asker) const {
    Envelope envelope = EnvelopeBy(asker, Info().name);
    envelope.complete = lint.isComplete;
    envelope.input = LintInputJson(lint);
    envelope.result = LintResultJson(findings);
    envelope.exitStatus = status;
    return EnvelopeText(envelope);
}

}  // namespace qxmix
