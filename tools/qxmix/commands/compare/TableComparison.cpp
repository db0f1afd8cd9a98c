#include "TableComparison.h"

#include "OrderingRules.h"
#include "tables/PaidTable.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace qxmix {

namespace {

constexpr CodeSet kGiving = SetOf(CashUnitStatus::Ok, CashUnitStatus::Low);

/// Items of one worth that cassettes can give.
struct Held {
    std::uint64_t notes = 0;
    std::uint64_t coins = 0;
};

using HeldByWorth = std::map<Money, Held>;

HeldByWorth HeldOf(const Dispenser& dispenser) {
    HeldByWorth held;
    for (const Cassette& cassette : dispenser.cassettes) {
        if (cassette.currency == dispenser.currency && Contains(kAlsoRecycling, cassette.type) &&
            Contains(kGiving, cassette.status) && cassette.count != 0) {
            Held& here = held[cassette.Worth()];
            (Contains(kCoinTypes, cassette.type) ? here.coins : here.notes) += cassette.count;
        }
    }
    return held;
}

/// More of one kind than cassettes of the other kind have to leave.
std::uint64_t LeastOf(std::uint64_t items, std::uint64_t others) {
    return items > others ? items - others : 0;
}

/// Tells why no cassettes can give these notes within the limit, if so.
void TellLack(const HeldByWorth& held, std::uint64_t limit, TableDifference& row) {
    std::uint64_t all = 0;
    std::uint64_t leastNotes = 0;
    std::uint64_t leastCoins = 0;
    for (auto note = row.table.rbegin(); note != row.table.rend(); ++note) {
        const auto& [worth, items] = *note;
        const auto found = held.find(worth);
        if (found == held.end()) {
            row.lack = Lack::NoNote;
            row.lackText = "no " + worth.ShortText() + " is there";
            return;
        }
        const Held& there = found->second;
        if (items > there.notes + there.coins) {
            row.lack = Lack::TooFew;
            row.lackText =
                "holds " + std::to_string(there.notes + there.coins) + "x" + worth.ShortText();
            return;
        }
        all += items;
        leastNotes += LeastOf(items, there.coins);
        leastCoins += LeastOf(items, there.notes);
    }
    // Notes and coins are limited apart; one worth may be there as both.
    if (leastNotes > limit || leastCoins > limit || all > 2 * limit) {
        row.lack = Lack::OverLimit;
        row.lackText = "over the limit of " + std::to_string(limit);
    }
}

TableChange ChangeOf(const TableDifference& row) {
    const bool hasRow = !row.table.empty();
    const bool isPaid = row.outcome == Outcome::Paid;
    if (hasRow ? isPaid && row.table == row.mix : !isPaid) {
        return TableChange::Same;
    }
    return row.lack != Lack::None ? TableChange::NotThere
           : !hasRow              ? TableChange::Missing
           : isPaid               ? TableChange::Other
                                  : TableChange::NotPaid;
}

/// The largest first, each once.
std::vector<Money> NotesOf(const std::vector<TableDifference>& differences) {
    std::set<Money> notes;
    for (const TableDifference& row : differences) {
        for (const NotesByWorth* const side : {&row.table, &row.mix}) {
            for (const auto& [worth, count] : *side) {
                notes.insert(worth);
            }
        }
    }
    return {notes.rbegin(), notes.rend()};
}

}  // namespace

const char* NameOf(TableChange change) {
    constexpr const char* kNames[] = {"notThere", "notPaid", "other", "missing", "same"};
    return kNames[static_cast<std::size_t>(change)];
}

const char* NameOf(Lack lack) {
    constexpr const char* kNames[] = {"", "noNote", "tooFew", "overLimit"};
    return kNames[static_cast<std::size_t>(lack)];
}

TableComparison CompareTable(const TableQuestions& questions, const MapAnswers& answers) {
    const Dispenser& dispenser = questions.asked.dispenser;
    std::map<std::uint32_t, const MixTable::Row*> rows;
    for (const MixTable::Row& row : questions.table.rows) {
        rows[row.amount] = &row;
    }
    const HeldByWorth held = HeldOf(dispenser);
    TableComparison comparison;
    MapRowReader reader(answers.rows.front());
    for (std::uint64_t place = 0; place < answers.rows.front().Size(); ++place) {
        const MapCell& cell = reader.Next();
        TableDifference one;
        one.amount = questions.asked.Amount(place);
        one.outcome = cell.outcome;
        if (cell.outcome == Outcome::Paid) {
            one.mix = NotesPaid(dispenser, cell);
        }
        if (const auto row = rows.find(one.amount); row != rows.end()) {
            one.table = questions.table.NotesOf(*row->second, dispenser);
            TellLack(held, dispenser.maxDispenseItems, one);
        }
        one.change = ChangeOf(one);
        ++comparison.counts[static_cast<std::size_t>(one.change)];
        comparison.dangers += RowOf(one.outcome).exitStatus == ExitStatus::Danger ? 1U : 0U;
        comparison.hasCrash = comparison.hasCrash || one.outcome == Outcome::Crashed;
        if (one.change != TableChange::Same) {
            comparison.differences.push_back(one);
        }
    }
    std::sort(comparison.differences.begin(), comparison.differences.end(),
              [](const TableDifference& left, const TableDifference& right) {
                  return std::tie(left.change, left.amount) < std::tie(right.change, right.amount);
              });
    comparison.notes = NotesOf(comparison.differences);
    return comparison;
}

ExitStatus ExitStatusOf(const TableComparison& comparison) {
    return comparison.hasCrash              ? ExitStatus::CannotWork
           : comparison.dangers != 0        ? ExitStatus::Danger
           : comparison.differences.empty() ? ExitStatus::Well
                                            : ExitStatus::HonestNo;
}

}  // namespace qxmix
