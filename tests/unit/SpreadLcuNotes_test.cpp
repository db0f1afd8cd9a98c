#include "SpreadLcuNotes.h"

#include "RequestBuilder.h"

#include "CMixAlgorithm.h"

#include <gtest/gtest.h>

namespace {

using Numbers = std::vector<std::uint32_t>;
using Spread = void (*)(const LcuTable&, const LcuNotes&, MixResult&) noexcept;

/// Spreads so many items per unit over the cassettes of a request, units and cassettes in its
/// order.
Numbers Spreading(Spread spread, const Request& request, const Numbers& items) {
    LcuTable table;
    CMixAlgorithm::BuildLCUTable(request.record, table);
    LcuNotes notes{};
    std::copy(items.begin(), items.end(), notes.aulNotes);
    MixResult result{};
    spread(table, notes, result);
    const unsigned cassettes = request.record.usNumPhysicalCUs;
    return {result.aulNotes, result.aulNotes + std::max(cassettes, 2U)};
}

Numbers InOrder(const Request& request, const Numbers& items) {
    return Spreading(SpreadInOrder, request, items);
}

Numbers RoundRobin(const Request& request, const Numbers& items) {
    return Spreading(SpreadRoundRobin, request, items);
}

TEST(SpreadInOrder, EmptiesOneCassetteAfterTheOther) {
    const Request request = Request().Bill(10, 30).Bill(10, 20).Bill(10, 10);
    EXPECT_EQ(InOrder(request, {0}), (Numbers{0, 0, 0}));
    EXPECT_EQ(InOrder(request, {30}), (Numbers{30, 0, 0}));
    EXPECT_EQ(InOrder(request, {31}), (Numbers{30, 1, 0}));
    EXPECT_EQ(InOrder(request, {60}), (Numbers{30, 20, 10}));
}

TEST(SpreadInOrder, LeavesOutWhatTheCassettesDoNotHold) {
    EXPECT_EQ(InOrder(Request().Bill(10, 30).Bill(10, 20), {51}), (Numbers{30, 20}));
    EXPECT_EQ(InOrder(Request().Bill(10, 4), {0xFFFFFFFF}), (Numbers{4, 0}));
}

TEST(SpreadInOrder, TakesOnlyFromOkAndLowCassettes) {
    for (unsigned status = 0; status <= 10; ++status) {
        const bool gives = status == 0 || status == 3;
        EXPECT_EQ(InOrder(Request().Bill(10, 30).Status(status).Bill(10, 20), {40}),
                  gives ? (Numbers{30, 10}) : (Numbers{0, 20}))
            << status;
    }
    for (const unsigned status : {32U, 35U, 256U, 0xFFFFU}) {
        EXPECT_EQ(InOrder(Request().Bill(10, 30).Status(status), {40}), (Numbers{0, 0}));
    }
}

TEST(SpreadInOrder, SpreadsEachUnitOverItsOwnCassettes) {
    EXPECT_EQ(InOrder(Request().Bill(10, 5).Bill(20, 5).Bill(10, 5).Bill(20, 5), {7, 6}),
              (Numbers{5, 5, 2, 1}));
}

TEST(SpreadInOrder, WritesToThePositionOfACassette) {
    EXPECT_EQ(InOrder(Request().Bill(10, 5).At(2).Bill(10, 5).At(0).Bill(20, 9), {7, 0}),
              (Numbers{2, 0, 5}));
}

TEST(SpreadInOrder, PassesOverPositionsThatTheResultDoesNotHave) {
    for (const unsigned position : {6U, 7U, 0x7FFFU, 0xFFFFU}) {
        EXPECT_EQ(InOrder(Request().Bill(10, 5).At(position).Bill(10, 4), {7}), (Numbers{0, 4}));
    }
    EXPECT_EQ(InOrder(Request().Bill(10, 5).At(5).Bill(10, 4), {7}), (Numbers{0, 2}));
}

TEST(SpreadInOrder, AssignsWhereTwoCassettesShareAPosition) {
    EXPECT_EQ(InOrder(Request().Bill(10, 5).At(1).Bill(10, 4).At(1), {7}), (Numbers{0, 2}));
    EXPECT_EQ(InOrder(Request().Bill(10, 5).At(1).Bill(20, 4).At(1), {3, 0}), (Numbers{0, 3}));
    EXPECT_EQ(InOrder(Request().Bill(10, 5).At(1).Bill(20, 4).At(1), {3, 2}), (Numbers{0, 2}));
}

TEST(SpreadInOrder, AssignsEvenNothingFromAnEmptyCassette) {
    // The second cassette holds nothing, and its nothing replaces what the first one gave.
    EXPECT_EQ(InOrder(Request().Bill(10, 5).At(1).Bill(10, 0).At(1), {7}), (Numbers{0, 0}));
}

TEST(SpreadRoundRobin, DealsOneAtATime) {
    const Request request = Request().Bill(10, 10).Bill(10, 10);
    EXPECT_EQ(RoundRobin(request, {0}), (Numbers{0, 0}));
    EXPECT_EQ(RoundRobin(request, {1}), (Numbers{1, 0}));
    EXPECT_EQ(RoundRobin(request, {5}), (Numbers{3, 2}));
    EXPECT_EQ(RoundRobin(request, {20}), (Numbers{10, 10}));
}

TEST(SpreadRoundRobin, GoesOnWithTheFullerCassettes) {
    EXPECT_EQ(RoundRobin(Request().Bill(10, 9).Bill(10, 1).Bill(10, 3), {10}), (Numbers{6, 1, 3}));
}

TEST(SpreadRoundRobin, EndsWhenNothingMoreCanBeGiven) {
    EXPECT_EQ(RoundRobin(Request().Bill(10, 3).Bill(10, 2), {6}), (Numbers{3, 2}));
    EXPECT_EQ(RoundRobin(Request().Bill(10, 3).Bill(10, 2), {0xFFFFFFFF}), (Numbers{3, 2}));
    EXPECT_EQ(RoundRobin(Request().Bill(10, 3).Status(1), {1}), (Numbers{0, 0}));
    EXPECT_EQ(RoundRobin(Request().Bill(10, 3).At(6), {1}), (Numbers{0, 0}));
}

TEST(SpreadRoundRobin, DealsOnlyToOkAndLowCassettes) {
    for (unsigned status = 0; status <= 10; ++status) {
        const bool gives = status == 0 || status == 3;
        EXPECT_EQ(RoundRobin(Request().Bill(10, 30).Status(status).Bill(10, 20), {4}),
                  gives ? (Numbers{2, 2}) : (Numbers{0, 4}))
            << status;
    }
}

TEST(SpreadRoundRobin, AddsWhereTwoCassettesShareAPosition) {
    // Each may give only while the position they share is below what it holds itself.
    EXPECT_EQ(RoundRobin(Request().Bill(10, 5).At(1).Bill(10, 4).At(1), {9}), (Numbers{0, 5}));
    EXPECT_EQ(RoundRobin(Request().Bill(10, 5).At(1).Bill(20, 4).At(1), {3, 2}), (Numbers{0, 4}));
}

TEST(SpreadLcuNotes, TakesNothingFromWhatLiesBehindTheLastCassetteOfAUnit) {
    for (const Spread spread : {SpreadInOrder, SpreadRoundRobin}) {
        LcuTable table;
        CMixAlgorithm::BuildLCUTable(Request().Bill(10, 4).Bill(10, 3).Bill(10, 9).record, table);
        table.aLCUs[0].usNumPhysicalCUs = 2;
        LcuNotes notes{};
        notes.aulNotes[0] = 8;
        MixResult result{};
        spread(table, notes, result);
        EXPECT_EQ((Numbers{result.aulNotes, result.aulNotes + 3}), (Numbers{4, 3, 0}));
    }
}

TEST(SpreadRoundRobin, SpreadsEachUnitOverItsOwnCassettes) {
    EXPECT_EQ(RoundRobin(Request().Bill(10, 5).Bill(20, 5).Bill(10, 5).Bill(20, 5), {3, 4}),
              (Numbers{2, 2, 1, 2}));
}

}  // namespace
