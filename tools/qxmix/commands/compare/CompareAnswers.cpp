#include "CompareAnswers.h"

#include "dispenser/NotesText.h"

#include <algorithm>
#include <tuple>

namespace qxmix {

namespace {

/// Whether an answer must not reach a customer.
bool MustBeStopped(const MapCell& cell) {
    return RowOf(cell.outcome).exitStatus == ExitStatus::Danger;
}

bool IsDangerous(const MapCell& cell) {
    return MustBeStopped(cell) || cell.outcome == Outcome::Crashed;
}

/// The items of an answer, those of slots that no cassette has at the end.
std::string ItemsText(const Dispenser& dispenser, const MapCell& cell, bool tellsCassettes) {
    std::string text = NotesText(dispenser, AnswerOf(dispenser, 0, 0, cell).taken, tellsCassettes);
    for (std::size_t slot = 0; slot < cell.values.size(); ++slot) {
        const bool hasOwner =
            std::any_of(dispenser.cassettes.begin(), dispenser.cassettes.end(),
                        [slot](const Cassette& cassette) { return cassette.position == slot; });
        if (cell.values[slot] != 0 && !hasOwner) {
            text += (text.empty() ? "" : " ") + std::to_string(cell.values[slot]) + "x?";
        }
    }
    return text;
}

/// "paid  1x50 1x10", "refused".
std::string CellText(const Dispenser& dispenser, const MapCell& cell, bool tellsCassettes) {
    const std::string words = cell.IsProved() ? "never answers" : RowOf(cell.outcome).words;
    const std::string notes =
        cell.IsAnswered() && cell.returned == 0 ? ItemsText(dispenser, cell, tellsCassettes) : "";
    return notes.empty() ? words : words + "  " + notes;
}

Change ChangeOf(const CompareDifference& difference) {
    if (difference.textA == difference.textB) {
        return Change::Same;
    }
    if (IsDangerous(difference.a) || IsDangerous(difference.b)) {
        return Change::Danger;
    }
    const bool wasPaid = difference.a.outcome == Outcome::Paid;
    const bool isPaid = difference.b.outcome == Outcome::Paid;
    return wasPaid && !isPaid ? Change::Lost : isPaid && !wasPaid ? Change::Gained : Change::Other;
}

void Count(const CompareDifference& one, CompareAnswers& answers) {
    ++answers.counts[static_cast<std::size_t>(one.change)];
    answers.hasCrash =
        answers.hasCrash || one.a.outcome == Outcome::Crashed || one.b.outcome == Outcome::Crashed;
    if (one.change == Change::Same) {
        answers.sameDangers += IsDangerous(one.a) ? 1U : 0U;
        return;
    }
    const bool isDanger = one.change == Change::Danger;
    answers.bothDangers += isDanger && MustBeStopped(one.a) && MustBeStopped(one.b) ? 1U : 0U;
    answers.isOtherwise =
        answers.isOtherwise || (one.change == Change::Other && one.a.outcome != Outcome::Paid);
    answers.differences.push_back(one);
}

bool IsWorse(const CompareDifference& left, const CompareDifference& right) {
    return std::tie(left.change, left.mixA, left.amount) <
           std::tie(right.change, right.mixA, right.amount);
}

}  // namespace

const char* NameOf(Change change) {
    constexpr const char* kNames[] = {"danger", "lost", "other", "gained", "same"};
    return kNames[static_cast<std::size_t>(change)];
}

CompareAnswers
Compare(const CompareQuestions& questions, const MapAnswers& a, const MapAnswers& b) {
    CompareAnswers answers;
    answers.isComplete = a.isComplete && b.isComplete;
    answers.amountCount = std::min(a.amountCount, b.amountCount);
    const bool tells = questions.isOneDispenser;
    for (std::size_t row = 0; row < questions.a.mixes.size(); ++row) {
        MapRowReader readerA(a.rows[row]);
        MapRowReader readerB(b.rows[row]);
        for (std::uint64_t index = 0; index < answers.amountCount; ++index) {
            CompareDifference difference;
            difference.amount = questions.a.Amount(index);
            difference.mixA = questions.a.mixes[row];
            difference.mixB = questions.b.mixes[row];
            difference.a = readerA.Next();
            difference.b = readerB.Next();
            difference.textA = CellText(questions.a.dispenser, difference.a, tells);
            difference.textB = CellText(questions.b.dispenser, difference.b, tells);
            difference.change = ChangeOf(difference);
            Count(difference, answers);
        }
    }
    std::sort(answers.differences.begin(), answers.differences.end(), IsWorse);
    return answers;
}

ExitStatus ExitStatusOf(const CompareAnswers& answers) {
    if (!answers.isComplete) {
        return ExitStatus::Interrupted;
    }
    if (answers.hasCrash) {
        return ExitStatus::CannotWork;
    }
    if (answers.Count(Change::Danger) + answers.sameDangers != 0) {
        return ExitStatus::Danger;
    }
    return answers.differences.empty() ? ExitStatus::Well : ExitStatus::HonestNo;
}

}  // namespace qxmix
