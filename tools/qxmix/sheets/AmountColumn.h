#pragma once

#include "WrittenAmount.h"
#include "dispenser/Dispenser.h"
#include "errors/Errors.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// The amounts of a sheet's rows. What a single one leaves open (1.234 can be more than a thousand,
/// or little more than one) the whole column has to decide.
class AmountColumn {
public:
    /// @param dispenser  whose amounts they are; outlives the column.
    AmountColumn(std::string file, const Dispenser& dispenser);

    /// Takes the amount of the next row.
    ///
    /// @param line  of the file.
    /// @throw InputError FILE:LINE: amount
    void Add(const std::string& text, std::size_t line);

    /// Hears of a row whose amount is none; `place` counts the rows that were added.
    using BadRow = std::function<void(std::size_t place, const InputError& error)>;

    /// All of them in the unit of an amount. Amounts with decimals are money, and then so are all
    /// others; else they are numbers of units already.
    ///
    /// @param passOver  hears of those that are not a multiple of the unit, which are 0 then.
    /// @throw InputError when nobody hears of them, or nothing decides what one is.
    std::vector<std::uint32_t> Amounts(const BadRow& passOver = nullptr);

    /// The first amount with decimals where that makes money of what else were numbers of units;
    /// empty: there is none, or one is the other. Known with the amounts.
    std::string MoneyText() const;

private:
    struct Row {
        WrittenAmount amount;
        std::size_t line;
    };

    void Decide();
    bool IsGroupMark(char mark) const;
    bool HasForm(WrittenAmount::Form form) const;
    bool HasDecimals(const WrittenAmount& amount) const;
    std::uint32_t AmountOf(const WrittenAmount& amount, std::size_t line) const;
    std::string UnitText() const;
    std::string AllowedText() const;
    [[noreturn]] void Fail(std::size_t line, const std::string& wrong) const;

    std::string file_;
    const Dispenser& dispenser_;
    std::vector<Row> rows_;
    char mark_ = '\0';         // before decimals; 0: not decided
    std::size_t decider_ = 0;  // place of the row that shows it
    bool areMoney_ = true;
};

}  // namespace qxmix
