#include "RecordedDemand.h"

#include "errors/Errors.h"
#include "errors/NearestName.h"
#include "json/JsonFields.h"
#include "options/AskOptions.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::int64_t kSecondsInDay = 86400;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);
const std::vector<std::string> kColumns = {"time", "amount", "currency"};
constexpr const char* kTimeExpected = "a time such as 2026-11-16 09:46";

/// Reads the lines of one file.
class RecordedLines {
public:
    RecordedLines(const InputFile& file, const Dispenser& dispenser)
        : dispenser_(dispenser), file_(file.name) {
        demand_.currencies = {dispenser.currency};
        const bool hasMark = file.content.compare(0, 3, "\xEF\xBB\xBF") == 0;
        for (const std::string& line : Split(file.content.substr(hasMark ? 3 : 0), '\n')) {
            ++number_;
            const std::string text = line.substr(0, line.find_last_not_of(" \t\r") + 1);
            if (text.empty()) {
                continue;
            }
            if (places_.empty()) {
                ReadNames(Fields(text));
            } else {
                ReadWithdrawal(Fields(text));
            }
        }
        if (demand_.withdrawals.empty()) {
            throw InputError(file_ + ": no withdrawals; expected the columns time,amount,currency "
                                     "and a line for each, or JSON");
        }
    }

    Demand Taken() {
        const std::int64_t days = demand_.withdrawals.back().time / kSecondsInDay + 1;
        demand_.calendar = DemandCalendar(firstDay_, days);
        return std::move(demand_);
    }

private:
    std::string Here() const { return file_ + ":" + std::to_string(number_); }

    static std::string Unquoted(const std::string& text) {
        const std::size_t first = text.find_first_not_of(" \t");
        if (first == std::string::npos) {
            return "";
        }
        const std::string bare = text.substr(first, text.find_last_not_of(" \t") - first + 1);
        const bool isQuoted = bare.size() >= 2 && bare.front() == '"' && bare.back() == '"';
        return isQuoted ? bare.substr(1, bare.size() - 2) : bare;
    }

    static std::vector<std::string> Fields(const std::string& line) {
        std::vector<std::string> fields = Split(line, ',');
        std::transform(fields.begin(), fields.end(), fields.begin(), &Unquoted);
        return fields;
    }

    void ReadNames(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            if (std::find(kColumns.begin(), kColumns.end(), name) == kColumns.end()) {
                throw InputError(Here() + ": unknown column \"" + name + "\"" +
                                 DidYouMean(name, kColumns));
            }
            if (std::count(names.begin(), names.end(), name) > 1) {
                throw InputError(Here() + ": column " + name + " given twice; expected once");
            }
        }
        for (const std::string& column : kColumns) {
            const auto at = std::find(names.begin(), names.end(), column);
            const bool isThere = at != names.end();
            if (!isThere && column != "currency") {
                throw InputError(Here() + ": no column " + column +
                                 "; expected time,amount,currency");
            }
            places_.push_back(isThere ? static_cast<std::size_t>(at - names.begin()) : kNone);
        }
        columnCount_ = names.size();
    }

    void ReadWithdrawal(const std::vector<std::string>& fields) {
        if (fields.size() != columnCount_) {
            throw InputError(Here() + ": " + std::to_string(fields.size()) + " columns; expected " +
                             std::to_string(columnCount_));
        }
        if (demand_.withdrawals.size() == kMostWithdrawals) {
            throw InputError(Here() + ": too many withdrawals; expected at most " +
                             std::to_string(kMostWithdrawals));
        }
        Withdrawal withdrawal;
        withdrawal.time = Time(fields[places_[0]]);
        withdrawal.amount = ParseAmount(fields[places_[1]], Here() + ": amount", dispenser_);
        const std::string currency = places_[2] == kNone ? "" : fields[places_[2]];
        withdrawal.currency = currency.empty() ? 0 : CurrencyPlace(currency);
        demand_.withdrawals.push_back(withdrawal);
    }

    std::int64_t Time(const std::string& text) {
        constexpr std::size_t kDateLength = 10;
        const bool isSplit =
            text.size() > kDateLength && (text[kDateLength] == ' ' || text[kDateLength] == 'T');
        const auto day = isSplit ? ParseDate(text.substr(0, kDateLength)) : std::nullopt;
        const auto time = isSplit ? ParseTimeOfDay(text.substr(kDateLength + 1)) : std::nullopt;
        if (!day || !time) {
            throw InputError(Here() + ": time: " + NotAllowed(text, kTimeExpected));
        }
        firstDay_ = firstDay_.value_or(*day);
        const std::int64_t seconds = (*day - *firstDay_) * kSecondsInDay + *time;
        if (!demand_.withdrawals.empty() && seconds < demand_.withdrawals.back().time) {
            throw InputError(Here() + ": time: " + text +
                             " is before the withdrawal above it; expected the order of time");
        }
        return seconds;
    }

    std::size_t CurrencyPlace(const std::string& currency) {
        if (!IsCurrency(currency)) {
            throw InputError(Here() + ": currency: " + NotAllowed(currency, kCurrencyExpected));
        }
        auto& known = demand_.currencies;
        const auto at = std::find(known.begin(), known.end(), currency);
        const auto place = static_cast<std::size_t>(at - known.begin());
        if (at == known.end()) {
            known.push_back(currency);
        }
        return place;
    }

    const Dispenser& dispenser_;
    std::string file_;
    std::size_t number_ = 0;
    std::vector<std::size_t> places_;  // of time, amount and currency in a line
    std::size_t columnCount_ = 0;
    std::optional<std::int64_t> firstDay_;
    Demand demand_;
};

}  // namespace

Demand ReadRecordedDemand(const InputFile& file, const Dispenser& dispenser) {
    return RecordedLines(file, dispenser).Taken();
}

}  // namespace qxmix
