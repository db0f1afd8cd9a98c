#include "RecordedDemand.h"

#include "errors/Errors.h"
#include "findings/RuleTexts.h"
#include "json/JsonFields.h"
#include "sheets/AmountColumn.h"
#include "sheets/TimeColumn.h"
#include "text/Dates.h"

#include <algorithm>

namespace qxmix {

namespace {

enum Wanted : std::size_t { kTime, kAmount, kCurrency };

/// The midnight at or before a time, in days.
std::int64_t DayOfTime(std::int64_t time) {
    return (time - (time % kSecondsInDay + kSecondsInDay) % kSecondsInDay) / kSecondsInDay;
}

/// Reads the rows of one sheet.
class RecordedRows {
public:
    RecordedRows(std::string file, const Dispenser& dispenser, const SheetOptions& options)
        : dispenser_(dispenser), file_(std::move(file)), times_(file_, options.dates),
          amounts_(file_, dispenser) {
        demand_.currencies = {dispenser.currency};
    }

    Demand Read(const std::string& text, const std::vector<WantedColumn>& wanted) {
        SheetColumns columns = FindColumns(file_, text, wanted);
        std::vector<SheetCell> row;
        while (columns.rows.Next(row)) {
            columns.CheckLength(row, file_);
            Take(columns, row);
        }
        if (lines_.empty()) {
            throw InputError(file_ + ": no withdrawals; expected the columns time,amount,currency "
                                     "and a line for each, or JSON");
        }
        if (!columns.others.empty()) {
            demand_.notes.push_back(FindingOf(
                "QX702", file_ + ": columns passed over: " + HeadingList(columns.others)));
        }
        Fill();
        Sort();
        return std::move(demand_);
    }

private:
    void Take(const SheetColumns& columns, const std::vector<SheetCell>& row) {
        const SheetCell& time = columns.CellOf(row, kTime);
        if (lines_.size() == kMostWithdrawals) {
            throw InputError(Here(time) + "too many withdrawals; expected at most " +
                             std::to_string(kMostWithdrawals));
        }
        times_.Add(time.text, time.line);
        const SheetCell& amount = columns.CellOf(row, kAmount);
        amounts_.Add(amount.text, amount.line);
        currencies_.push_back(CurrencyPlace(columns.CellOf(row, kCurrency)));
        lines_.push_back(time.line);
    }

    std::string Here(const SheetCell& cell) const {
        return file_ + ":" + std::to_string(cell.line) + ": ";
    }

    std::size_t CurrencyPlace(const SheetCell& cell) {
        if (cell.text.empty()) {
            return 0;
        }
        if (!IsCurrency(cell.text)) {
            throw InputError(Here(cell) + "currency: " + NotAllowed(cell.text, kCurrencyExpected));
        }
        auto& known = demand_.currencies;
        const auto at = std::find(known.begin(), known.end(), cell.text);
        const auto place = static_cast<std::size_t>(at - known.begin());
        if (at == known.end()) {
            known.push_back(cell.text);
        }
        return place;
    }

    void Fill() {
        const std::vector<std::int64_t> times = times_.Seconds();
        const std::vector<std::uint32_t> amounts = amounts_.Amounts();
        for (std::size_t place = 0; place < times.size(); ++place) {
            demand_.withdrawals.push_back({times[place], amounts[place], currencies_[place]});
        }
        if (const std::string money = amounts_.MoneyText(); !money.empty()) {
            demand_.notes.push_back(FindingOf("QX703", file_ + ": amounts are read as money in " +
                                                           dispenser_.currency + ", since one is " +
                                                           money));
        }
    }

    /// Puts the withdrawals in order and counts from the first midnight.
    void Sort() {
        std::vector<Withdrawal>& withdrawals = demand_.withdrawals;
        std::size_t late = 0;
        std::size_t firstLate = 0;
        std::int64_t latest = withdrawals.front().time;
        for (std::size_t place = 0; place < withdrawals.size(); ++place) {
            const bool isLate = withdrawals[place].time < latest;
            firstLate = isLate && late == 0 ? lines_[place] : firstLate;
            late += isLate ? 1 : 0;
            latest = std::max(latest, withdrawals[place].time);
        }
        if (late > 0) {
            demand_.notes.push_back(FindingOf(
                "QX701", file_ + ":" + std::to_string(firstLate) + ": " + std::to_string(late) +
                             (late == 1 ? " row stands" : " rows stand") +
                             " below a later one; all were sorted by time"));
            std::stable_sort(withdrawals.begin(), withdrawals.end(),
                             [](const Withdrawal& left, const Withdrawal& right) {
                                 return left.time < right.time;
                             });
        }
        const bool hasDates = times_.HasDates();
        const std::int64_t firstDay = hasDates ? DayOfTime(withdrawals.front().time) : 0;
        for (Withdrawal& withdrawal : withdrawals) {
            withdrawal.time -= firstDay * kSecondsInDay;
        }
        demand_.calendar = DemandCalendar(hasDates ? std::make_optional(firstDay) : std::nullopt,
                                          withdrawals.back().time / kSecondsInDay + 1);
    }

    const Dispenser& dispenser_;
    std::string file_;
    TimeColumn times_;
    AmountColumn amounts_;
    std::vector<std::size_t> currencies_;
    std::vector<std::size_t> lines_;
    Demand demand_;
};

}  // namespace

SheetOptions RecordedSheet() {
    SheetOptions options;
    options.columns = {{"time", "", true}, {"amount", "", true}, {"currency", "", false}};
    return options;
}

Demand ReadRecordedDemand(const std::string& file,
                          const std::string& text,
                          const Dispenser& dispenser,
                          const SheetOptions& options) {
    return RecordedRows(file, dispenser, options).Read(text, options.columns);
}

}  // namespace qxmix
