#include "PaidTable.h"

#include "errors/Errors.h"

#include <algorithm>
#include <functional>

namespace qxmix {

namespace {

bool IsOwn(const Dispenser& dispenser, const Cassette& cassette) {
    return cassette.currency == dispenser.currency && !cassette.Worth().IsZero();
}

/// The largest first, each once.
std::vector<std::uint32_t> HeaderOf(const Dispenser& dispenser) {
    std::vector<std::uint32_t> header;
    for (const Cassette& cassette : dispenser.cassettes) {
        if (IsOwn(dispenser, cassette)) {
            header.push_back(cassette.Worth().In(dispenser.exponent).value());
        }
    }
    std::sort(header.begin(), header.end(), std::greater<>());
    header.erase(std::unique(header.begin(), header.end()), header.end());
    return header;
}

}  // namespace

NotesByWorth NotesPaid(const Dispenser& dispenser, const MapCell& cell) {
    NotesByWorth notes;
    const CassetteItems taken = AnswerOf(dispenser, 0, 0, cell).taken;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        if (taken[index] != 0 && IsOwn(dispenser, cassette)) {
            notes[cassette.Worth()] += taken[index];
        }
    }
    return notes;
}

void CheckTableHolds(const MapQuestions& questions) {
    const Dispenser& dispenser = questions.dispenser;
    const auto refuse = [](const std::string& wrong) { throw InputError("--output: " + wrong); };
    if (questions.mixes.size() != 1) {
        refuse(std::to_string(questions.mixes.size()) +
               " mixes in a mix table; expected one, as with --mix 1");
    }
    if (questions.AmountCount() > MixTable::kMostRows) {
        refuse(std::to_string(questions.AmountCount()) +
               " amounts in a mix table; expected at most " + std::to_string(MixTable::kMostRows) +
               ", as with --to or --step");
    }
    if (std::none_of(
            dispenser.cassettes.begin(), dispenser.cassettes.end(),
            [&dispenser](const Cassette& cassette) { return IsOwn(dispenser, cassette); })) {
        refuse("no note of " + dispenser.currency + " in a mix table; expected one");
    }
    for (const Cassette& cassette : dispenser.cassettes) {
        if (IsOwn(dispenser, cassette) && !cassette.Worth().In(dispenser.exponent)) {
            refuse("a note of " + cassette.Worth().Text() +
                   " in a mix table; expected multiples of the unit of an amount, " +
                   Money::Of(1, dispenser.exponent).Text());
        }
    }
}

MixTable PaidTable(const MapQuestions& questions, const MapAnswers& answers) {
    const Dispenser& dispenser = questions.dispenser;
    MixTable table;
    table.number = questions.mixes.front();
    table.name = (dispenser.name.empty() ? "" : dispenser.name + ", ") + "mix " +
                 std::to_string(table.number);
    table.header = HeaderOf(dispenser);
    MapRowReader reader(answers.rows.front());
    for (std::uint64_t place = 0; place < answers.rows.front().Size(); ++place) {
        const MapCell& cell = reader.Next();
        if (cell.outcome != Outcome::Paid) {
            continue;
        }
        const NotesByWorth notes = NotesPaid(dispenser, cell);
        MixTable::Row row{questions.Amount(place), {}};
        for (const std::uint32_t note : table.header) {
            const auto found = notes.find(AskedMoney(dispenser, note));
            row.counts.push_back(
                static_cast<std::uint16_t>(found == notes.end() ? 0 : found->second));
        }
        table.rows.push_back(row);
    }
    return table;
}

}  // namespace qxmix
