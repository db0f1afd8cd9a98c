#include "JournalItems.h"

#include "Journal.h"
#include "errors/Errors.h"
#include "json/JsonFields.h"
#include "text/ParseWhole.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

bool Has(const SheetColumns& columns, std::size_t wanted) {
    return columns.places[wanted] != SheetColumns::kNone;
}

/// The first cassette that holds the dispenser's own note of this worth; none: no cassette does.
std::optional<std::size_t> CassetteOf(const Dispenser& dispenser, const std::string& worth) {
    const std::optional<Money> money = Money::Parse(worth);
    const auto cassette = std::find_if(dispenser.cassettes.begin(), dispenser.cassettes.end(),
                                       [&dispenser, &money](const Cassette& candidate) {
                                           return money &&
                                                  candidate.currency == dispenser.currency &&
                                                  candidate.Worth() == *money;
                                       });
    return cassette == dispenser.cassettes.end() ? std::nullopt
                                                 : std::make_optional(static_cast<std::size_t>(
                                                       cassette - dispenser.cassettes.begin()));
}

std::string NotesOf(const Dispenser& dispenser) {
    std::vector<std::string> notes;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        if (cassette.currency == dispenser.currency && NotePlace(dispenser, index) == index) {
            notes.push_back(cassette.Worth().ShortText());
        }
    }
    return Join(notes, ", ");
}

}  // namespace

JournalItems::JournalItems(const std::string& file,
                           const std::vector<WantedColumn>& wanted,
                           const SheetColumns& columns,
                           const Dispenser& dispenser)
    : file_(file), dispenser_(dispenser) {
    for (const WantedColumn& column : wanted) {
        names_.push_back(column.name);
    }
    AddCassettes(columns);
    if (!places_.empty()) {
        way_ = Way::Cassettes;
    } else if (!Has(columns, kJournalDispensed)) {
        way_ = Way::Notes;
        AddNotes(columns);
    }
}

void JournalItems::AddCassettes(const SheetColumns& columns) {
    const std::size_t count = dispenser_.cassettes.size();
    for (std::size_t index = 0; index < kMaxCashUnits; ++index) {
        if (!Has(columns, kJournalCassettes + index)) {
            continue;
        }
        if (index >= count) {
            throw InputError(file_ + ":1: column c" + std::to_string(index) +
                             ": no such cassette; expected c0 to c" + std::to_string(count - 1));
        }
        places_.push_back({kJournalCassettes + index, index});
    }
}

void JournalItems::AddNotes(const SheetColumns& columns) {
    for (std::size_t place = kJournalNotes; place < names_.size(); ++place) {
        if (!Has(columns, place)) {
            continue;
        }
        const auto cassette = CassetteOf(dispenser_, names_[place]);
        if (!cassette) {
            throw InputError("--columns: " + names_[place] +
                             " is no note of the dispenser; expected " + NotesOf(dispenser_));
        }
        places_.push_back({place, *cassette});
    }
    if (places_.empty()) {
        throw InputError(file_ +
                         ": no column tells what was dispensed; expected dispensed, c0 to c" +
                         std::to_string(dispenser_.cassettes.size() - 1) +
                         ", or one for each note: " + NotesOf(dispenser_));
    }
}

CassetteItems JournalItems::Read(const SheetColumns& columns,
                                 const std::vector<SheetCell>& row) const {
    if (way_ == Way::Text) {
        return ReadText(columns.CellOf(row, kJournalDispensed));
    }
    CassetteItems items{};
    for (const Place& place : places_) {
        const SheetCell& cell = columns.CellOf(row, place.wanted);
        if (cell.text.empty() || cell.text == "-") {
            continue;
        }
        const auto count = ParseWhole<std::uint32_t>(cell.text);
        if (!count || *count > UINT32_MAX - items[place.cassette]) {
            Fail(cell,
                 names_[place.wanted] + ": " + NotAllowed(cell.text, RangeText(0, UINT32_MAX)));
        }
        items[place.cassette] += *count;
    }
    return items;
}

/// "2x100 1x50"; blanks, commas, semicolons and plus signs part the notes.
CassetteItems JournalItems::ReadText(const SheetCell& cell) const {
    CassetteItems items{};
    std::string text = cell.text;
    std::replace_if(
        text.begin(), text.end(),
        [](char letter) {
            return letter == ',' || letter == ';' || letter == '+' || letter == '\t';
        },
        ' ');
    for (const std::string& part : Split(text, ' ')) {
        if (part.empty() || part == "-" || part == "0") {
            continue;
        }
        const std::size_t at = part.find('x');
        const auto count = ParseWhole<std::uint32_t>(part.substr(0, at));
        const auto cassette =
            at == std::string::npos ? std::nullopt : CassetteOf(dispenser_, part.substr(at + 1));
        if (!count || !cassette || *count > UINT32_MAX - items[*cassette]) {
            Fail(cell, "dispensed: " + NotAllowed(part, "items such as 2x50 of the notes " +
                                                            NotesOf(dispenser_)));
        }
        items[*cassette] += *count;
    }
    return items;
}

void JournalItems::Fail(const SheetCell& cell, const std::string& wrong) const {
    throw InputError(file_ + ":" + std::to_string(cell.line) + ": " + wrong);
}

}  // namespace qxmix
