#pragma once

/// Plain nested loops over small tables: what the walks of the module are compared with.

#include "TableBuilder.h"

#include "CountDown.h"

#include <functional>
#include <vector>

using Combinations = std::vector<Counts>;

/// Each count from the most that fits downwards, one loop in the other; the last unit takes what
/// fits into the rest, and the innermost loop ends where that is more than the unit holds.
class PlainLoops {
public:
    explicit PlainLoops(const SearchUnits& units) : units_(units) {
        Counts combination{};
        Loop(0, units.amount, combination);
    }

    const Combinations& All() const { return all_; }
    const std::vector<std::uint32_t>& Unpaid() const { return unpaid_; }

    /// Those that make the whole amount, or those that do not.
    Combinations Exact() const { return Chosen(true); }
    Combinations Short() const { return Chosen(false); }

private:
    void Loop(unsigned unit, std::uint32_t rest, Counts& combination) {
        const unsigned last = units_.n - 1;
        for (std::uint32_t count = std::min(rest / units_.values[unit], units_.counts[unit]) + 1;
             count-- > 0;) {
            combination.at(unit) = count;
            const std::uint32_t left = rest - count * units_.values[unit];
            if (unit + 1 < last) {
                Loop(unit + 1, left, combination);
                continue;
            }
            combination[last] = left / units_.values[last];
            if (combination[last] > units_.counts[last]) {
                return;
            }
            all_.push_back(combination);
            unpaid_.push_back(left % units_.values[last]);
        }
    }

    Combinations Chosen(bool exact) const {
        Combinations chosen;
        for (std::size_t index = 0; index < all_.size(); ++index) {
            if ((unpaid_[index] == 0) == exact) {
                chosen.push_back(all_[index]);
            }
        }
        return chosen;
    }

    const SearchUnits& units_;
    Combinations all_;
    std::vector<std::uint32_t> unpaid_;
};

/// Calls visit with tables of two to five units, values with and without common divisors, in both
/// orders, each with all counts from 0 to 2 (to 4 for up to three units) and a choice of amounts.
inline void ForEachSmallTable(const std::function<void(const SearchUnits&)>& visit) {
    const std::vector<std::vector<std::uint32_t>> allValues = {
        {5, 2},       {2, 5},        {6, 4},           {10, 10},        {1, 9},
        {50, 20, 10}, {6, 10, 15},   {4, 6, 9},        {7, 7, 3},       {9, 6, 4, 2},
        {2, 3, 5, 7}, {12, 8, 6, 3}, {10, 10, 15, 25}, {7, 5, 3, 2, 1}, {6, 10, 15, 4, 9},
    };
    for (const auto& values : allValues) {
        const std::uint32_t kinds = values.size() <= 3 ? 5 : 3;
        std::uint32_t tables = 1;
        for (std::size_t unit = 0; unit < values.size(); ++unit) {
            tables *= kinds;
        }
        for (std::uint32_t digits = 0; digits < tables; ++digits) {
            Table table;
            std::uint32_t left = digits;
            std::uint32_t held = 0;
            for (const std::uint32_t value : values) {
                table.Unit(left % 2 == 0 ? 3 : 4, value, left % kinds);
                held += value * (left % kinds);
                left /= kinds;
            }
            const std::uint32_t step = values.size() <= 3 ? 1 : 3;
            for (std::uint32_t amount = digits % step; amount <= held + 2; amount += step) {
                visit(table.Amount(amount).Units());
            }
        }
    }
}
