#include "Journal.h"

#include "JournalItems.h"
#include "demand/Demand.h"
#include "errors/Errors.h"
#include "findings/RuleTexts.h"
#include "json/JsonFields.h"
#include "sheets/AmountColumn.h"
#include "sheets/TimeColumn.h"
#include "text/ParseWhole.h"

#include <algorithm>

namespace qxmix {

namespace {

/// Reads the rows of one journal.
class JournalRows {
public:
    JournalRows(std::string file, const Dispenser& dispenser, const SheetOptions& options)
        : dispenser_(dispenser), file_(std::move(file)), times_(file_, options.dates),
          amounts_(file_, dispenser) {}

    Journal Read(const std::string& text, const std::vector<WantedColumn>& wanted) {
        SheetColumns columns = FindColumns(file_, text, wanted);
        const JournalItems items(file_, wanted, columns, dispenser_);
        hasTimes_ = columns.places[kJournalTime] != SheetColumns::kNone;
        journal_.tellsCassettes = items.AreByCassette();
        std::vector<SheetCell> row;
        while (NextRow(columns, row)) {
            if (rows_.size() + journal_.badLines.size() == kMostWithdrawals) {
                throw InputError(file_ + ": too many lines; expected at most " +
                                 std::to_string(kMostWithdrawals));
            }
            try {
                columns.CheckLength(row, file_);
                Take(columns, row, items);
            } catch (const InputError& error) {
                AddBad(row.front().line, error);
            }
        }
        if (rows_.empty() && journal_.badLines.empty()) {
            throw InputError(file_ + ": no withdrawals; expected a line for each");
        }
        if (!columns.others.empty()) {
            journal_.notes.push_back(FindingOf(
                "QX702", file_ + ": columns passed over: " + HeadingList(columns.others)));
        }
        TakeAmounts();
        TakeTimes();
        std::stable_sort(
            journal_.badLines.begin(), journal_.badLines.end(),
            [](const LineError& left, const LineError& right) { return left.line < right.line; });
        return std::move(journal_);
    }

private:
    /// A row, and where its time stands in its column; each row has an amount.
    struct Row {
        JournalEntry entry;
        std::size_t time;
        bool isBad = false;
    };

    bool NextRow(SheetColumns& columns, std::vector<SheetCell>& row) {
        for (;;) {
            try {
                return columns.rows.Next(row);
            } catch (const InputError& error) {
                AddBad(columns.rows.RowLine(), error);
                columns.rows.PassOverLine();
            }
        }
    }

    void Take(const SheetColumns& columns,
              const std::vector<SheetCell>& row,
              const JournalItems& items) {
        Row taken{{}, timeCount_};
        taken.entry.line = row.front().line;
        taken.entry.currency = CurrencyOf(columns.CellOf(row, kJournalCurrency));
        taken.entry.mix = MixOf(columns.CellOf(row, kJournalMix));
        taken.entry.code = columns.CellOf(row, kJournalCode).text;
        taken.entry.items = items.Read(columns, row);
        if (hasTimes_) {
            const SheetCell& time = columns.CellOf(row, kJournalTime);
            times_.Add(time.text, time.line);
            taken.entry.time = time.text;
            ++timeCount_;
        }
        const SheetCell& amount = columns.CellOf(row, kJournalAmount);
        amounts_.Add(amount.text, amount.line);
        rows_.push_back(taken);
    }

    std::string CurrencyOf(const SheetCell& cell) const {
        if (!cell.text.empty() && !IsCurrency(cell.text)) {
            Fail(cell, "currency: " + NotAllowed(cell.text, kCurrencyExpected));
        }
        return cell.text.empty() ? dispenser_.currency : cell.text;
    }

    std::uint16_t MixOf(const SheetCell& cell) const {
        const auto mix = ParseWhole<std::uint16_t>(cell.text);
        if (!cell.text.empty() && !mix) {
            Fail(cell, "mix: " + NotAllowed(cell.text, RangeText(0, UINT16_MAX)));
        }
        return mix.value_or(dispenser_.MixOrDefault());
    }

    [[noreturn]] void Fail(const SheetCell& cell, const std::string& wrong) const {
        throw InputError(file_ + ":" + std::to_string(cell.line) + ": " + wrong);
    }

    void AddBad(std::size_t line, const InputError& error) {
        LineError bad(line, {}, error);
        const std::string place = file_ + ":" + std::to_string(line) + ": ";
        if (bad.message.compare(0, place.size(), place) == 0) {
            bad.message.erase(0, place.size());
        }
        journal_.badLines.push_back(std::move(bad));
    }

    void TakeAmounts() {
        const std::vector<std::uint32_t> amounts =
            amounts_.Amounts([this](std::size_t place, const InputError& error) {
                rows_[place].isBad = true;
                AddBad(rows_[place].entry.line, error);
            });
        for (std::size_t place = 0; place < rows_.size(); ++place) {
            rows_[place].entry.amount = amounts[place];
        }
        if (const std::string money = amounts_.MoneyText(); !money.empty()) {
            journal_.notes.push_back(FindingOf("QX703", file_ + ": amounts are read as money in " +
                                                            dispenser_.currency +
                                                            ", since one is " + money));
        }
    }

    /// Hands the good rows over, by their times.
    void TakeTimes() {
        rows_.erase(
            std::remove_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.isBad; }),
            rows_.end());
        const std::vector<std::int64_t> times = times_.Seconds();
        const auto timeOf = [this, &times](const Row& row) {
            return hasTimes_ ? times[row.time] : 0;
        };
        const auto isEarlier = [&timeOf](const Row& left, const Row& right) {
            return timeOf(left) < timeOf(right);
        };
        if (!std::is_sorted(rows_.begin(), rows_.end(), isEarlier)) {
            const auto late = std::is_sorted_until(rows_.begin(), rows_.end(), isEarlier);
            journal_.notes.push_back(
                FindingOf("QX701", file_ + ":" + std::to_string(late->entry.line) +
                                       ": stands below a later row; all were sorted by time"));
            std::stable_sort(rows_.begin(), rows_.end(), isEarlier);
        }
        for (Row& row : rows_) {
            journal_.entries.push_back(std::move(row.entry));
        }
    }

    const Dispenser& dispenser_;
    std::string file_;
    TimeColumn times_;
    AmountColumn amounts_;
    bool hasTimes_ = false;
    std::size_t timeCount_ = 0;  // added to their column, those of bad rows too
    std::vector<Row> rows_;
    Journal journal_;
};

}  // namespace

bool JournalEntry::IsPaid() const {
    return std::any_of(items.begin(), items.end(), [](std::uint32_t count) { return count != 0; });
}

SheetOptions JournalSheet() {
    SheetOptions options;
    options.columns = {{"time", "", false}, {"amount", "", true}, {"currency", "", false},
                       {"mix", "", false},  {"code", "", false},  {"dispensed", "", false},
                       {"c0", "", false},   {"c1", "", false},    {"c2", "", false},
                       {"c3", "", false},   {"c4", "", false},    {"c5", "", false}};
    options.takesNotes = true;
    return options;
}

Journal ReadJournal(const std::string& file,
                    const std::string& text,
                    const Dispenser& dispenser,
                    const SheetOptions& options) {
    std::vector<WantedColumn> wanted = options.columns;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        const std::string name = cassette.Worth().ShortText();
        const bool isKnown =
            std::any_of(wanted.begin(), wanted.end(),
                        [&name](const WantedColumn& column) { return column.name == name; });
        if (cassette.currency == dispenser.currency && !isKnown) {
            wanted.push_back({name, "", false});
        }
    }
    return JournalRows(file, dispenser, options).Read(text, wanted);
}

std::size_t NotePlace(const Dispenser& dispenser, std::size_t cassette) {
    const Cassette& own = dispenser.cassettes[cassette];
    const auto first = std::find_if(
        dispenser.cassettes.begin(), dispenser.cassettes.end(), [&own](const Cassette& candidate) {
            return candidate.Worth() == own.Worth() && candidate.currency == own.currency;
        });
    return static_cast<std::size_t>(first - dispenser.cassettes.begin());
}

CassetteItems ByNote(const Dispenser& dispenser, const CassetteItems& items) {
    CassetteItems notes{};
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        notes[NotePlace(dispenser, index)] += items[index];
    }
    return notes;
}

}  // namespace qxmix
