#include "AmountColumn.h"

#include "json/JsonFields.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

using Form = WrittenAmount::Form;

constexpr int kThousandths = -3;

const char* NameOf(char mark) {
    return mark == ',' ? "comma" : "point";
}

}  // namespace

AmountColumn::AmountColumn(std::string file, const Dispenser& dispenser)
    : file_(std::move(file)), dispenser_(dispenser) {
}

void AmountColumn::Add(const std::string& text, std::size_t line) {
    const std::optional<WrittenAmount> amount = ParseWrittenAmount(text);
    if (!amount) {
        Fail(line, NotAllowed(text, AllowedText()));
    }
    const bool showsMark = amount->mark != '\0' && amount->form != Form::Either;
    if (showsMark && mark_ != '\0' && amount->mark != mark_) {
        const Row& decider = rows_[decider_];
        Fail(line, text + " has a " + NameOf(amount->mark) + " before decimals; expected a " +
                       NameOf(mark_) + " as in line " + std::to_string(decider.line) + " (" +
                       decider.amount.text + ")");
    }
    if (showsMark && mark_ == '\0') {
        mark_ = amount->mark;
        decider_ = rows_.size();
    }
    rows_.push_back({*amount, line});
}

std::vector<std::uint32_t> AmountColumn::Amounts(const BadRow& passOver) {
    Decide();
    areMoney_ = dispenser_.exponent == 0 ||
                std::any_of(rows_.begin(), rows_.end(),
                            [this](const Row& row) { return HasDecimals(row.amount); });
    std::vector<std::uint32_t> amounts;
    for (const Row& row : rows_) {
        try {
            amounts.push_back(AmountOf(row.amount, row.line));
        } catch (const InputError& error) {
            if (passOver == nullptr) {
                throw;
            }
            passOver(amounts.size(), error);
            amounts.push_back(0);
        }
    }
    return amounts;
}

std::string AmountColumn::MoneyText() const {
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [this](const Row& one) { return HasDecimals(one.amount); });
    return dispenser_.exponent == 0 || row == rows_.end() ? "" : row->amount.text;
}

/// Decides by the other rows what a point or comma before three digits is, where none has both
/// thousands and decimals or decimals that are not three.
void AmountColumn::Decide() {
    const auto either = std::find_if(
        rows_.begin(), rows_.end(), [](const Row& row) { return row.amount.form == Form::Either; });
    if (mark_ != '\0' || either == rows_.end()) {
        return;
    }
    const char mark = either->amount.mark;
    if (HasForm(Form::Grouped)) {
        mark_ = mark;  // an apostrophe or blank parts thousands here
        return;
    }
    const auto open = std::find_if(either, rows_.end(), [mark](const Row& row) {
        return row.amount.form == Form::Either && row.amount.mark != mark;
    });
    if (open != rows_.end() || !IsGroupMark(mark)) {
        const Row& row = open == rows_.end() ? *either : *open;
        Fail(row.line, row.amount.text + " has thousands or decimals, and no row decides it; "
                                         "expected amounts without thousands separators");
    }
    mark_ = mark == '.' ? ',' : '.';
}

/// Whether decimals behind this mark would make amounts that are no multiples of the unit, or the
/// rows write all smaller amounts without it.
bool AmountColumn::IsGroupMark(char mark) const {
    std::size_t longest = 0;
    for (const Row& row : rows_) {
        const bool isEither = row.amount.form == Form::Either;
        if (isEither && !row.amount.Value(mark).In(dispenser_.exponent)) {
            return true;
        }
        longest = isEither ? longest : std::max(longest, row.amount.text.size());
    }
    return longest > 0 && longest <= WrittenAmount::kGroup && dispenser_.exponent > kThousandths;
}

bool AmountColumn::HasForm(Form form) const {
    return std::any_of(rows_.begin(), rows_.end(),
                       [form](const Row& row) { return row.amount.form == form; });
}

bool AmountColumn::HasDecimals(const WrittenAmount& amount) const {
    return amount.form == Form::Decimals || (amount.form == Form::Either && amount.mark == mark_);
}

std::uint32_t AmountColumn::AmountOf(const WrittenAmount& amount, std::size_t line) const {
    const int exponent = areMoney_ ? dispenser_.exponent : 0;
    const Money value = amount.Value(mark_);
    if (const auto units = value.In(exponent)) {
        return *units;
    }
    const bool isLarge = value > Money::Of(UINT32_MAX, exponent);
    Fail(line, isLarge ? NotAllowed(amount.text, AllowedText())
                       : amount.text + " cannot be paid; expected a multiple of " + UnitText());
}

std::string AmountColumn::UnitText() const {
    return Money::Of(1, dispenser_.exponent).Text() + " " + dispenser_.currency;
}

std::string AmountColumn::AllowedText() const {
    return RangeText(0, UINT32_MAX) + " in units of " + UnitText();
}

void AmountColumn::Fail(std::size_t line, const std::string& wrong) const {
    throw InputError(file_ + ":" + std::to_string(line) + ": amount: " + wrong);
}

}  // namespace qxmix
