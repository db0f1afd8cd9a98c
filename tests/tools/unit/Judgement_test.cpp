#include "answers/Answer.h"

#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Reply Answered(std::int32_t returned, std::vector<std::uint32_t> values) {
    Reply reply;
    reply.ending.kind = Ending::Kind::Answered;
    reply.calculation.returned = returned;
    reply.calculation.request = MixRequest{};
    reply.calculation.result = MixResult{};
    for (std::size_t slot = 0; slot < values.size(); ++slot) {
        reply.calculation.result.aulNotes[slot] = values[slot];
    }
    return reply;
}

Outcome OutcomeOf(const char* dispenser, std::uint32_t amount, const Reply& reply) {
    return Judge(ReadInlineDispenser(dispenser), amount, reply).outcome;
}

Outcome OutcomeOf(std::uint32_t amount, std::int32_t returned, std::vector<std::uint32_t> values) {
    return OutcomeOf("EUR:50x100,20x100,2x100:coinDispenser", amount,
                     Answered(returned, std::move(values)));
}

TEST(Judgement, IsNoAnswerWhenTheDeadlineWasMissed) {
    Reply reply;
    reply.ending.kind = Ending::Kind::NoAnswer;
    EXPECT_EQ(OutcomeOf("EUR:50x100", 50, reply), Outcome::NoAnswer);
}

TEST(Judgement, IsCrashedWhenTheChildEnded) {
    Reply reply;
    reply.ending.kind = Ending::Kind::Crashed;
    EXPECT_EQ(OutcomeOf("EUR:50x100", 50, reply), Outcome::Crashed);
}

TEST(Judgement, NamesEachCodeThatTheModuleReturns) {
    EXPECT_EQ(OutcomeOf(50, -304, {}), Outcome::InvalidMixNumber);
    EXPECT_EQ(OutcomeOf(50, -306, {}), Outcome::NotDispensable);
    EXPECT_EQ(OutcomeOf(50, -307, {}), Outcome::TooManyItems);
    EXPECT_EQ(OutcomeOf(50, -315, {}), Outcome::TooManyUnits);
    EXPECT_EQ(OutcomeOf(50, -14, {}), Outcome::Failed);
    EXPECT_EQ(OutcomeOf(50, 1, {1}), Outcome::Failed);
}

TEST(Judgement, IsOverpaidFromTheFirstCentTooMuch) {
    EXPECT_EQ(OutcomeOf(70, 0, {1, 1}), Outcome::Paid);
    EXPECT_EQ(OutcomeOf(69, 0, {1, 1}), Outcome::Overpaid);
}

TEST(Judgement, IsOverpaidBeforeItIsOverdrawn) {
    EXPECT_EQ(OutcomeOf(50, 0, {101}), Outcome::Overpaid);
}

TEST(Judgement, IsOverdrawnWithMoreNotesThanTheLimit) {
    EXPECT_EQ(OutcomeOf(2000, 0, {40}), Outcome::Paid);
    EXPECT_EQ(OutcomeOf(2020, 0, {40, 1}), Outcome::Overdrawn);
    EXPECT_EQ(OutcomeOf(9999, 0, {40, 1}), Outcome::Overdrawn);
}

TEST(Judgement, CountsCoinsApartFromNotes) {
    EXPECT_EQ(OutcomeOf(2080, 0, {40, 0, 40}), Outcome::Paid);
    EXPECT_EQ(OutcomeOf(82, 0, {0, 0, 41}), Outcome::Overdrawn);
    EXPECT_EQ(OutcomeOf("EUR:2x100:coinCylinder", 82, Answered(0, {41})), Outcome::Overdrawn);
    EXPECT_EQ(OutcomeOf("EUR:2x100:coupon,2x100:coinCylinder", 160, Answered(0, {40, 40})),
              Outcome::Paid);
}

TEST(Judgement, IsOverdrawnWithMoreThanACassetteHolds) {
    EXPECT_EQ(OutcomeOf("EUR:50x2", 100, Answered(0, {2})), Outcome::Paid);
    EXPECT_EQ(OutcomeOf("EUR:50x2", 150, Answered(0, {3})), Outcome::Overdrawn);
}

TEST(Judgement, IsOverdrawnWithItemsFromASlotThatNoCassetteHas) {
    EXPECT_EQ(OutcomeOf("EUR:50x2", 100, Answered(0, {2, 0, 0, 0, 0, 1})), Outcome::Overdrawn);
}

TEST(Judgement, CountsItemsOfSlotsThatNoCassetteHasAsNotes) {
    const Answer answer = Judge(ReadInlineDispenser("EUR:50x9,2x9:coinDispenser"), 100,
                                Answered(0, {1, 2, 3, 0, 4, 5}));
    EXPECT_EQ(answer.notes, 13U);
    EXPECT_EQ(answer.coins, 2U);
    EXPECT_FALSE(answer.isHeld);
    EXPECT_EQ(answer.paid.Text(), "54");
    EXPECT_TRUE(Judge(ReadInlineDispenser("EUR:50x9"), 50, Answered(0, {9})).isHeld);
    EXPECT_FALSE(Judge(ReadInlineDispenser("EUR:50x9"), 50, Answered(0, {10})).isHeld);
}

TEST(Judgement, TellsNothingFromSomething) {
    EXPECT_EQ(OutcomeOf(50, 0, {}), Outcome::NothingPaid);
    EXPECT_EQ(OutcomeOf(50, 0, {0, 1}), Outcome::PaidInPart);
    EXPECT_EQ(OutcomeOf(0, 0, {}), Outcome::Paid);
}

TEST(Judgement, GoesByWhatItemsAreWorth) {
    Dispenser dispenser = ReadInlineDispenser("CHF:50x10,50x10:coinDispenser");
    dispenser.exponent = -2;
    dispenser.cassettes[1].worth = Money::Parse("0.50");
    EXPECT_EQ(Judge(dispenser, 5050, Answered(0, {1, 1})).outcome, Outcome::Paid);
    EXPECT_EQ(Judge(dispenser, 5049, Answered(0, {1, 1})).outcome, Outcome::Overpaid);
    EXPECT_EQ(Judge(dispenser, 5050, Answered(0, {1, 1})).paid.Text(2), "50.50");
}

TEST(Judgement, GoesByTheAmountAsItWasAsked) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x100");
    dispenser.exponent = 2;
    Reply reply = Answered(0, {10});
    reply.calculation.request.ulAmount = 499;
    EXPECT_EQ(Judge(dispenser, 5, reply).outcome, Outcome::Paid);
    EXPECT_EQ(Judge(dispenser, 5, reply).asked.Text(), "500");
}

TEST(Judgement, AddsUpCountsThatAreNoThirtyTwoBitNumbersAnyMore) {
    Dispenser dispenser = ReadInlineDispenser("EUR:4294967295x4294967295,1x4294967295");
    const Answer judgement = Judge(dispenser, 10, Answered(0, {4294967295U, 4294967295U}));
    EXPECT_EQ(judgement.outcome, Outcome::Overpaid);
    EXPECT_EQ(judgement.paid.Text(), "18446744069414584320");
    EXPECT_EQ(judgement.notes, 8589934590U);
}

TEST(Judgement, HandsTheItemsOfASlotToTheCassetteOfThatPosition) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x10,20x10,10x10");
    dispenser.cassettes[0].position = 1;
    dispenser.cassettes[1].position = 0;
    dispenser.cassettes[2].position = 9;
    const Answer judgement = Judge(dispenser, 110, Answered(0, {3, 1}));
    EXPECT_EQ(judgement.taken[0], 1U);
    EXPECT_EQ(judgement.taken[1], 3U);
    EXPECT_EQ(judgement.taken[2], 0U);
    EXPECT_EQ(judgement.outcome, Outcome::Paid);
}

}  // namespace
}  // namespace qxmix
