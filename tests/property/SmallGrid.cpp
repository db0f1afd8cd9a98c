#include "SmallGrid.h"

namespace property {
namespace {

using Values = std::vector<std::uint32_t>;
using Table = std::vector<reference::Unit>;

/// Values with common divisors and without, with and without a value that pays everything.
const std::vector<Values> kFiveValues = {{1, 2, 3, 5, 7}, {2, 4, 5, 6, 9}};
const Values kPoolOfFewer = {1, 2, 4, 6, 7};
const Values kPoolOfPairs = {1, 2, 3, 4, 5, 6, 7};
constexpr std::uint32_t kCounts = 4;  // 0 to 3
constexpr std::uint16_t kBills = 3;
constexpr std::uint16_t kCoins = 4;

unsigned BitsIn(unsigned set) {
    unsigned bits = 0;
    for (; set != 0; set /= 2) {
        bits += set % 2;
    }
    return bits;
}

/// All choices of so many values from a pool.
std::vector<Values> Choices(const Values& pool, unsigned number) {
    std::vector<Values> choices;
    for (unsigned set = 0; set < 1U << pool.size(); ++set) {
        if (BitsIn(set) != number) {
            continue;
        }
        Values values;
        for (std::size_t i = 0; i < pool.size(); ++i) {
            if ((set >> i) % 2 == 1) {
                values.push_back(pool[i]);
            }
        }
        choices.push_back(values);
    }
    return choices;
}

std::vector<Values> AllValues() {
    std::vector<Values> all = kFiveValues;
    for (unsigned number = 1; number <= 4; ++number) {
        const std::vector<Values> some = Choices(number <= 2 ? kPoolOfPairs : kPoolOfFewer, number);
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

/// The table whose counts are the digits of a number.
Table TableOf(const Values& values, std::uint32_t digits, bool withCoins) {
    Table table;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool coins = withCoins && i % 2 == 1;
        table.push_back({values[i], digits % kCounts, coins ? kCoins : kBills});
        digits /= kCounts;
    }
    return table;
}

/// All tables of these values, each with bank notes only and with coins.
std::vector<Table> TablesOf(const Values& values) {
    std::uint32_t combinations = 1;
    for (std::size_t i = 0; i < values.size(); ++i) {
        combinations *= kCounts;
    }
    std::vector<Table> tables;
    for (std::uint32_t digits = 0; digits < combinations; ++digits) {
        tables.push_back(TableOf(values, digits, false));
        tables.push_back(TableOf(values, digits, true));
    }
    return tables;
}

}  // namespace

void ForEachSmallTable(std::uint64_t every, const std::function<void(const Table&)>& visit) {
    std::uint64_t number = 0;
    for (const Values& values : AllValues()) {
        for (const Table& table : TablesOf(values)) {
            if (number % every == 0) {
                visit(table);
            }
            ++number;
        }
    }
}

}  // namespace property
