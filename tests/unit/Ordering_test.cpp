#include "RequestBuilder.h"
#include "Terminal.h"
#include "TestHost.h"

#include <set>

namespace {

using Codes = std::set<unsigned>;

/// What tells one ordering from another, as the tests expect it.
struct Ordering {
    const char* name;
    void (CMixAlgorithm::*routine)(const MixRequest&, LcuTable&) const noexcept;
    std::string prefix;
    Codes types;
    Codes droppedStatuses;
    bool hasMinimum;
};

void PrintTo(const Ordering& ordering, std::ostream* out) {
    *out << ordering.name;
}

const Ordering kOrderings[] = {
    {"ByDenomination",
     &CMixAlgorithm::SortLCUByDenomination,
     "SortLCUByDenomination() : ",
     {3, 4, 5, 7},
     {4, 5, 6, 7, 8},
     false},
    {"ByTotalAmount",
     &CMixAlgorithm::SortLCUByTotalAmount,
     "SortLCUByTotalAmount() : ",
     {3, 4, 5, 7},
     {4, 5, 6, 7, 8},
     false},
    {"WithoutLOWCST",
     &CMixAlgorithm::SortLCUByDenominationWithoutLOWCST,
     "SortLCUByDenominationWithoutLOWCST() : ",
     {3, 4, 5, 7},
     {3, 4, 5, 6, 7, 8},
     false},
    {"WithoutCSTBelowCSTMin",
     &CMixAlgorithm::SortLCUByDenomWithoutCSTBelowCSTMin,
     "SortLCUByDenomWithoutCSTBelowCSTMin() : ",
     {3, 4, 5, 7},
     {4, 5, 6, 7, 8},
     true},
    {"TotalWithoutCSTBelowCSTMin",
     &CMixAlgorithm::SortLCUByTotalAmountWithoutCSTBelowCSTMin,
     "CMixAlgorithm::SortLCUByTotalAmountWithoutCSTBelowCSTMin() ",
     {3, 4, 5, 7, 12},
     {4, 5, 6, 7, 8, 9},
     true},
};

/// What an ordering kept, as numbers of the full table, and what it traced.
struct Kept {
    std::vector<unsigned> numbers;
    Lines lines;

    friend bool operator==(const Kept& first, const Kept& second) {
        return first.numbers == second.numbers && first.lines == second.lines;
    }
    friend std::ostream& operator<<(std::ostream& out, const Kept& kept) {
        return out << testing::PrintToString(kept.numbers) << testing::PrintToString(kept.lines);
    }
};

class EachOrdering : public TerminalTest, public testing::WithParamInterface<Ordering> {
protected:
    Kept Order(const Request& request) {
        const TraceLines lines;
        (module_.Inner().*GetParam().routine)(request.record, table_);
        Kept kept{{}, lines.All()};
        for (unsigned index = 0; index < table_.usCount; ++index) {
            kept.numbers.push_back(table_.aLCUs[index].usNumber);
        }
        return kept;
    }

    Kept Dropped(const std::string& line) { return {{0}, {GetParam().prefix + line}}; }
    static Kept Both() { return {{0, 1}, {}}; }

    /// A request whose first cassette serves every ordering; the tests add the second one.
    static Request WithGoodOne() { return Request().Bill(100, 200); }

    Module module_;
    LcuTable table_{};
};

std::string NameOf(const testing::TestParamInfo<Ordering>& test) {
    return test.param.name;
}

INSTANTIATE_TEST_SUITE_P(Ordering, EachOrdering, testing::ValuesIn(kOrderings), NameOf);

TEST_P(EachOrdering, KeepsOnlyItsTypes) {
    for (const unsigned type : {0U,  1U,  2U,  3U,  4U,  5U,  6U,  7U,  8U,   9U,      10U,    11U,
                                12U, 13U, 31U, 32U, 35U, 36U, 39U, 44U, 259U, 0x8003U, 0xFFFFU}) {
        const std::string line = "The type of Cassette 1 is " + std::to_string(type) + ".";
        const bool kept = GetParam().types.count(type) != 0;
        EXPECT_EQ(Order(WithGoodOne().Cassette(type, 10, 200)), kept ? Both() : Dropped(line));
    }
}

TEST_P(EachOrdering, DropsItsStatuses) {
    for (const unsigned status : {0U,  1U,  2U,  3U,  4U,  5U,  6U,  7U,   8U,      9U,
                                  10U, 11U, 31U, 32U, 35U, 36U, 40U, 260U, 0x8004U, 0xFFFFU}) {
        const std::string line = "The status of Cassette 1 is " + std::to_string(status) + ".";
        const bool dropped = GetParam().droppedStatuses.count(status) != 0;
        EXPECT_EQ(Order(WithGoodOne().Bill(10, 200).Status(status)),
                  dropped ? Dropped(line) : Both());
    }
}

TEST_P(EachOrdering, DropsZeroValuesOfEverythingButCoupons) {
    for (const unsigned type : GetParam().types) {
        const Request request = WithGoodOne().Cassette(type, 0, 200);
        EXPECT_EQ(Order(request), type == 7 ? Both() : Dropped("The Cassette 1 is not available."));
    }
}

TEST_P(EachOrdering, DropsOtherCurrenciesWithoutATrace) {
    for (const char* currency : {"USD", "EUX", "EXR", "XUR", "eur"}) {
        EXPECT_EQ(Order(WithGoodOne().Bill(10, 200).In(currency)), (Kept{{0}, {}})) << currency;
    }
}

TEST_P(EachOrdering, NamesTheFirstReasonOnly) {
    EXPECT_EQ(Order(WithGoodOne().Cassette(2, 0, 0).Status(4).In("USD")),
              Dropped("The type of Cassette 1 is 2."));
    EXPECT_EQ(Order(WithGoodOne().Bill(0, 0).Status(4).In("USD")),
              Dropped("The status of Cassette 1 is 4."));
    EXPECT_EQ(Order(WithGoodOne().Bill(0, 200).In("USD")),
              Dropped("The Cassette 1 is not available."));
}

TEST_P(EachOrdering, NamesUnitsByTheirPlaceInTheFullTable) {
    const Kept kept = Order(Request().Cassette(2, 1, 200).Bill(20, 200).Cassette(6, 1, 200));
    EXPECT_EQ(kept, (Kept{{1},
                          {GetParam().prefix + "The type of Cassette 0 is 2.",
                           GetParam().prefix + "The type of Cassette 2 is 6."}}));
}

TEST_P(EachOrdering, DropsCountsThatAreTooSmall) {
    module_.Inner().ulCstMinimum4Mix6 = 100U;
    const bool hasMinimum = GetParam().hasMinimum;
    for (const std::uint32_t count : {0U, 1U, 100U, 101U, 0x7FFFFFFFU}) {
        const bool kept = count > (hasMinimum ? 100U : 0U);
        const bool reusesStatusLine = GetParam().name == std::string("WithoutCSTBelowCSTMin");
        const std::string line = reusesStatusLine ? "The status of Cassette 1 is 1."
                                                  : "The Cassette 1 is not available.";
        // Sorted by total, the second unit can come first.
        const std::size_t expected = kept ? 2 : 1;
        const Kept order = Order(WithGoodOne().Bill(10, count).Status(1));
        EXPECT_EQ(order.numbers.size(), expected) << count;
        EXPECT_EQ(order.lines, kept ? Lines{} : Lines{GetParam().prefix + line}) << count;
    }
}

TEST_P(EachOrdering, ReadsCountsFrom2To31UpAsNegativeUnlessOnlyTheMinimumIsAsked) {
    const bool asksOnlyMinimum = GetParam().name == std::string("TotalWithoutCSTBelowCSTMin");
    for (const std::uint32_t count : {0x80000000U, 0xFFFFFFFFU}) {
        const Kept order = Order(Request().Bill(10, count));
        if (asksOnlyMinimum) {
            EXPECT_EQ(order, (Kept{{0}, {}}));
        } else {
            EXPECT_EQ(order, (Kept{{}, {GetParam().prefix + "The Cassette 0 is not available."}}));
        }
    }
}

TEST_P(EachOrdering, ComparesTheMinimumWithoutASign) {
    module_.Inner().ulCstMinimum4Mix6 = 0xFFFFFFFFU;  // as "-1" in the registry gives
    const Kept order = Order(Request().Bill(10, 0x7FFFFFFF));
    EXPECT_EQ(order.numbers.empty(), GetParam().hasMinimum);
}

TEST_P(EachOrdering, AcceptsAMinimumOfZero) {
    module_.Inner().ulCstMinimum4Mix6 = 0U;
    EXPECT_EQ(Order(Request().Bill(10, 1)), (Kept{{0}, {}}));
    EXPECT_TRUE(Order(Request().Bill(10, 0)).numbers.empty());
}

TEST_P(EachOrdering, RescalesNotesButNoCoinsByANegativeExponent) {
    const bool rescales = GetParam().name != std::string("TotalWithoutCSTBelowCSTMin");
    const Request request =
        Request().Bill(21, 200).Coupon(22, 200).Coin(23, 200).Cassette(5, 24, 200).Exponent(-2);
    Order(request);
    for (unsigned index = 0; index < 4; ++index) {
        const LogicalCashUnit& unit = table_.aLCUs[index];
        const std::uint32_t value = 21U + unit.usNumber;
        EXPECT_EQ(unit.ulValues, rescales && unit.usNumber < 2 ? value * 100 : value);
        EXPECT_EQ(unit.ulCount, 200U);
    }
}

TEST_P(EachOrdering, RescalesNothingWithoutANegativeExponent) {
    for (const int exponent : {0, 1, 2, 32767}) {
        Order(Request().Bill(21, 200).Exponent(exponent));
        EXPECT_EQ(table_.aLCUs[0].ulValues, 21U);
    }
}

TEST_P(EachOrdering, LeavesEntriesBehindTheKeptOnesUntouched) {
    std::memset(&table_, 0x77, sizeof(table_));
    LcuTable rubbish = table_;
    Order(Request().Bill(10, 200).Cassette(2, 1, 1).Bill(20, 200));
    EXPECT_EQ(table_.usCount, 2);
    EXPECT_EQ(std::memcmp(&table_.aLCUs[2], &rubbish.aLCUs[2], 4 * sizeof(LogicalCashUnit)), 0);
}

TEST_P(EachOrdering, EmptiesTheTableWhenNothingServes) {
    std::memset(&table_, 0x77, sizeof(table_));
    LcuTable rubbish = table_;
    Order(Request());
    EXPECT_EQ(table_.usCount, 0);
    EXPECT_EQ(std::memcmp(table_.aLCUs, rubbish.aLCUs, sizeof(table_.aLCUs)), 0);
}

TEST_P(EachOrdering, CopiesUnitsWhole) {
    const Request request = Request().Bill(10, 200).At(4);
    Order(request);
    LcuTable full;
    CMixAlgorithm::BuildLCUTable(request.record, full);
    EXPECT_EQ(std::memcmp(&table_.aLCUs[0], &full.aLCUs[0], sizeof(LogicalCashUnit)), 0);
}

}  // namespace
