#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Reference.h"

namespace reference {

using Counts = std::vector<std::uint32_t>;

/// A question put to a search, with what it answered.
class SearchCase {
public:
    SearchCase(Search search, std::vector<Unit> units)
        : search_(search), units_(std::move(units)) {}

    SearchCase& Amount(std::uint32_t amount) {
        amount_ = amount;
        return *this;
    }
    SearchCase& Partial(std::uint32_t partial) {
        partial_ = partial;
        return *this;
    }
    SearchCase& Limit(std::uint16_t limit) {
        limit_ = limit;
        return *this;
    }
    SearchCase& Budget(std::uint64_t budget) {
        budget_ = budget;
        return *this;
    }

    Outcome Run() {
        notes_.assign(kMaxUnits, 77);
        return RunSearch(search_, units_, amount_, partial_, limit_, notes_, budget_);
    }

    /// Expects success with these notes, entries beyond the units untouched, and this last code.
    void Pays(Counts notes, const std::string& lastCode = "") {
        const Outcome outcome = Run();
        ASSERT_TRUE(outcome.finished);
        EXPECT_EQ(0, outcome.returned);
        EXPECT_EQ(lastCode, outcome.lastCode);
        notes.resize(kMaxUnits, 77);
        EXPECT_EQ(notes, notes_);
    }

    /// Expects this failure and this last code.
    void Fails(std::int32_t returned, const std::string& lastCode) {
        const Outcome outcome = Run();
        ASSERT_TRUE(outcome.finished);
        EXPECT_EQ(returned, outcome.returned);
        EXPECT_EQ(lastCode, outcome.lastCode);
    }

private:
    Search search_;
    std::vector<Unit> units_;
    std::uint32_t amount_ = 0;
    std::uint32_t partial_ = 0;
    std::uint16_t limit_ = 65535;
    std::uint64_t budget_ = 10000000;
    Counts notes_;
};

/// A bill unit and a coin unit of a table.
inline Unit Bills(std::uint32_t value, std::uint32_t count) {
    return {value, count, 3};
}

inline Unit Coins(std::uint32_t value, std::uint32_t count) {
    return {value, count, 4};
}

/// Six units of different values.
inline std::vector<Unit> SixUnits() {
    return {Bills(100, 9), Bills(50, 9), Bills(20, 9), Bills(10, 9), Bills(5, 9), Bills(1, 9)};
}

}  // namespace reference
