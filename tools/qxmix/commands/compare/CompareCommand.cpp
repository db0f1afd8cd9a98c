#include "CompareCommand.h"

#include "CompareForms.h"
#include "answers/Envelope.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/DispenserArgument.h"
#include "terminal/Progress.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <numeric>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostCells = 10000000;

void CheckAlike(const std::string& name,
                const std::string& field,
                const std::string& b,
                const std::string& a) {
    if (a != b) {
        throw InputError(name + ": " + field + " is " + b +
                         "; both files must have the same (A has " + a + ")");
    }
}

}  // namespace

const CommandInfo& CompareCommand::Info() const {
    static const CommandInfo info = {
        "compare",
        "Shows which amounts two dispensers or two builds pay differently.",
        {"compare A B [--mix N] [--from A] [--to A] [--step A]",
         "compare A --library X --library Y [--mixes all]",
         "compare A --table F [--mix N] [--from A] [--to A] [--step A]"},
        {"compare examples/euro.json examples/no-tens.json --mix 1 --to 100",
         "compare EUR:50x100,20x100 EUR:50x100,20x100,10x50 --mixes all --to 200"}};
    return info;
}

void CompareCommand::AddOptions(CLI::App& command) {
    command.add_option("A", a_, "dispenser file, - or inline");
    command.add_option("B", b_, "the other one; without it A is asked by two libraries");
    command
        .add_option("--table", table_,
                    "mix table, .json or .csv, to hold against what a mix of A pays")
        ->type_name("FILE");
    AddAmountRangeOptions(command, range_);
    AddAskOptions(command, ask_);
    AddJobsOption(command, jobs_);
    output_.AddTo(command, "differences");
}

ExitStatus CompareCommand::Run(const CommonOptions& options) {
    output_.Form(options);
    if (a_.empty()) {
        throw InputError("A: missing; expected a file, - or a dispenser such as EUR:50x10,20x10");
    }
    if (!table_.empty()) {
        return RunTable(options);
    }
    CompareQuestions questions = Prepare(options);
    const std::vector<std::string>& libraries = options.libraries;
    AskedModule a(libraries.empty() ? "" : libraries.front(), options, questions.a.dispenser);
    a.Open();
    AskedModule b(libraries.empty() ? "" : libraries.back(), options, questions.b.dispenser);
    b.Open();
    const std::uint64_t cells = questions.a.CellCount();
    Progress progress(Info().name, 2 * cells, options.quiet);
    const auto ask = [&](const MapQuestions& side, const AskedModule& by, std::uint64_t done) {
        return AskMap(side, by.order, options.Trace(), [&](const WorkProgress& now) {
            progress.Show({done + now.done, now.misses});
        });
    };
    const MapAnswers answersA = ask(questions.a, a, 0);
    if (!answersA.isComplete) {
        throw Interruption();
    }
    const MapAnswers answersB = ask(questions.b, b, cells);
    progress.Wipe();
    const CompareAnswers answers = Compare(questions, answersA, answersB);
    Envelope envelope = EnvelopeBy(b.asker, Info().name);
    envelope.complete = answers.isComplete;
    envelope.input = CompareInputJson(questions);
    envelope.input["libraries"] = {FileNameOf(a.asker.Library()), envelope.library};
    envelope.result = CompareResultJson(questions, answers);
    envelope.exitStatus = ExitStatusOf(answers);
    const AnswerForms forms{[&](const Painter& painter) {
                                return CompareText(questions, answers, Names(options), painter);
                            },
                            [&] { return CompareCsv(answers); }, nullptr};
    return output_.Write(options, envelope, forms,
                         WithErrorCode(b.asker.Registry(), answersB.lastCode));
}

CompareQuestions CompareCommand::Prepare(const CommonOptions& options) const {
    const std::size_t libraries = options.libraries.size();
    if (libraries > 2) {
        throw InputError("--library: given " + std::to_string(libraries) +
                         " times; expected once or twice");
    }
    if (b_.empty() && libraries < 2) {
        throw InputError("B: missing; expected a second dispenser, or --library twice");
    }
    if (a_ == "-" && b_ == "-") {
        throw InputError("B: standard input is A already; expected a file or a dispenser");
    }
    CompareQuestions questions;
    questions.a = PrepareSide(a_, options);
    questions.isOneDispenser = b_.empty();
    questions.b = b_.empty() ? questions.a : PrepareSide(b_, options);
    const Dispenser& a = questions.a.dispenser;
    const Dispenser& b = questions.b.dispenser;
    CheckAlike(b_, "currency", b.currency, a.currency);
    CheckAlike(b_, "exponent", std::to_string(b.exponent), std::to_string(a.exponent));
    const AmountRange range = RangeOf(questions);
    for (MapQuestions* const side : {&questions.a, &questions.b}) {
        side->from = range.from;
        side->to = range.to;
        side->step = range.step;
    }
    CheckCellCount(questions.a, kMostCells, "--step");
    return questions;
}

MapQuestions CompareCommand::PrepareSide(const std::string& name,
                                         const CommonOptions& options) const {
    MapQuestions side;
    side.dispenser = DispenserAsked(name, ask_);
    side.mixes = ask_.Mixes(side.dispenser);
    side.deadline = options.deadline.value_or(side.deadline);
    side.jobs = jobs_.Count();
    return side;
}

/// What the customers of either dispenser can ask.
AmountRange CompareCommand::RangeOf(const CompareQuestions& questions) const {
    const Amounts a = AmountsWithDefaults(questions.a.dispenser);
    const Amounts b = AmountsWithDefaults(questions.b.dispenser);
    Dispenser either = questions.a.dispenser;
    Amounts& amounts = either.amounts[either.currency];
    amounts.min = std::min(*a.min, *b.min);
    amounts.max = std::max(*a.max, *b.max);
    const std::uint32_t apart = std::max(*a.min, *b.min) - *amounts.min;
    amounts.step = std::gcd(std::gcd(*a.step, *b.step), apart);
    return range_.RangeOf(either);
}

std::array<std::string, 2> CompareCommand::Names(const CommonOptions& options) const {
    return b_.empty() ? std::array<std::string, 2>{options.libraries[0], options.libraries[1]}
                      : std::array<std::string, 2>{a_, b_};
}

}  // namespace qxmix
