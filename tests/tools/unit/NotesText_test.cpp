#include "dispenser/NotesText.h"

#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

const char* const kTwoOfTwenty = "EUR:20x9,50x9,20x9,USD20x9,USD50x9";

std::string Notes(const CassetteItems& items, bool tellsCassettes = false) {
    Dispenser dispenser = ReadInlineDispenser(kTwoOfTwenty);
    dispenser.cassettes[2].label = "B";
    return NotesText(dispenser, items, tellsCassettes);
}

TEST(NotesText, AddsUpWhatIsOneNoteToACustomerTheLargestFirst) {
    EXPECT_EQ(Notes({}), "");
    EXPECT_EQ(Notes({1}), "1x20");
    EXPECT_EQ(Notes({2, 3, 4}), "3x50 6x20");
    EXPECT_EQ(Notes({0, 3, 4}), "3x50 4x20");
    EXPECT_EQ(Notes({4294967295U, 0, 4294967295U}), "8589934590x20");
}

TEST(NotesText, TellsCurrenciesThatAreNotTheDispensersOwn) {
    EXPECT_EQ(Notes({1, 1, 1, 1, 1}), "1x50 1x50USD 2x20 1x20USD");
}

TEST(NotesText, TellsCassettesWhereSeveralHoldTheNote) {
    EXPECT_EQ(Notes({1, 1, 2, 1, 1}, true), "1x50 1x50USD 0:1x20 B:2x20 1x20USD");
    EXPECT_EQ(Notes({0, 0, 2}, true), "B:2x20");
    EXPECT_EQ(Notes({}, true), "");
}

TEST(NotesText, TellsCoinsByTheirWorth) {
    Dispenser dispenser = ReadInlineDispenser("CHF:50x9,50x9:coinDispenser");
    dispenser.cassettes[1].worth = Money::Parse("0.5");
    EXPECT_EQ(NotesText(dispenser, {1, 2}, true), "1x50 2x0.50");
}

}  // namespace
}  // namespace qxmix
