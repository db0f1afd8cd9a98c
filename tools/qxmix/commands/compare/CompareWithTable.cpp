#include "CompareCommand.h"

#include "TableForms.h"
#include "answers/Envelope.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/DispenserArgument.h"
#include "tables/MixTableFile.h"
#include "terminal/Progress.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostTableAmounts = 10000000;

/// The amounts of the range and those of the table.
std::vector<std::uint32_t> AllAmounts(const MapQuestions& range, const MixTable& table) {
    std::vector<std::uint32_t> amounts;
    for (std::uint64_t place = 0; place < range.AmountCount(); ++place) {
        amounts.push_back(range.Amount(place));
    }
    for (const MixTable::Row& row : table.rows) {
        amounts.push_back(row.amount);
    }
    std::sort(amounts.begin(), amounts.end());
    amounts.erase(std::unique(amounts.begin(), amounts.end()), amounts.end());
    return amounts;
}

}  // namespace

ExitStatus CompareCommand::RunTable(const CommonOptions& options) {
    TableQuestions questions = PrepareTable(options);
    AskedModule module(options.Library(), options, questions.asked.dispenser);
    module.Open();
    Progress progress(Info().name, questions.asked.CellCount(), options.quiet);
    const MapAnswers answers = AskMap(questions.asked, module.order, options.Trace(),
                                      [&progress](const WorkProgress& now) { progress.Show(now); });
    progress.Wipe();
    if (!answers.isComplete) {
        throw Interruption();
    }
    const TableComparison comparison = CompareTable(questions, answers);
    Envelope envelope = EnvelopeBy(module.asker, Info().name);
    envelope.input = TableInputJson(questions);
    envelope.result = TableResultJson(comparison);
    envelope.exitStatus = ExitStatusOf(comparison);
    const AnswerForms forms{[&](const Painter& painter) {
                                return TableText(questions, comparison,
                                                 table_ == "-" ? "table" : table_, painter);
                            },
                            [&] { return TableCsv(comparison); }, nullptr};
    return output_.Write(options, envelope, forms,
                         WithErrorCode(module.asker.Registry(), answers.lastCode));
}

TableQuestions CompareCommand::PrepareTable(const CommonOptions& options) const {
    RequireDispenser(a_);
    if (!b_.empty()) {
        throw InputError("B: given beside --table; expected one of them");
    }
    if (a_ == "-" && table_ == "-") {
        throw InputError("--table: standard input is A already; expected a file");
    }
    TableQuestions questions;
    MapQuestions& asked = questions.asked;
    asked = PrepareSide(a_, options);
    if (asked.mixes.size() != 1) {
        throw InputError("--table: " + std::to_string(asked.mixes.size()) +
                         " mixes are asked; expected one, as with --mix 1");
    }
    const AmountRange range = range_.RangeOf(asked.dispenser);
    asked.from = range.from;
    asked.to = range.to;
    asked.step = range.step;
    CheckCellCount(asked, kMostTableAmounts, "--step");
    questions.table = OpenMixTable(table_);
    asked.listed = AllAmounts(asked, questions.table);
    return questions;
}

}  // namespace qxmix
