#include "sweeps/MapRow.h"

#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

constexpr const char* kDispenser = "EUR:50x10,20x3,2x100:coinDispenser";
constexpr Milliseconds kDeadline{100};

Reply Ended(Ending::Kind kind) {
    Reply reply;
    reply.ending.kind = kind;
    reply.calculation.request = MixRequest{};
    reply.calculation.result = MixResult{};
    return reply;
}

Reply Answered(std::int32_t returned, std::vector<std::uint32_t> values) {
    Reply reply = Ended(Ending::Kind::Answered);
    reply.calculation.returned = returned;
    reply.calculation.request.ulRemainder = 7;
    reply.calculation.written = returned == 0 ? "" : "971A2";
    for (std::size_t slot = 0; slot < values.size(); ++slot) {
        reply.calculation.result.aulNotes[slot] = values[slot];
    }
    return reply;
}

/// An answer that a row has kept in between.
Answer Kept(const Answer& answer) {
    MapRow row;
    row.Add(CellOf(answer));
    return AnswerOf(ReadInlineDispenser(kDispenser), answer.amount, answer.mix,
                    MapRowReader(row).Next());
}

void ExpectSameBack(const Reply& reply, std::uint32_t amount) {
    const Answer answer = Judge(ReadInlineDispenser(kDispenser), {amount, 4, kDeadline}, reply);
    const Answer back = Kept(answer);
    EXPECT_EQ(back.amount, amount);
    EXPECT_EQ(back.mix, 4);
    EXPECT_EQ(back.outcome, answer.outcome);
    EXPECT_EQ(back.isProved, answer.isProved);
    EXPECT_EQ(back.asked.Text(), answer.asked.Text());
    EXPECT_EQ(back.paid.Text(), answer.paid.Text());
    EXPECT_EQ(back.notes, answer.notes);
    EXPECT_EQ(back.coins, answer.coins);
    EXPECT_EQ(back.taken, answer.taken);
    EXPECT_EQ(back.isHeld, answer.isHeld);
    EXPECT_EQ(back.values, answer.values);
    EXPECT_EQ(back.returned, answer.returned);
    EXPECT_EQ(back.remainder, answer.remainder);
    EXPECT_FALSE(back.amountAfter) << "a row does not keep it";
}

TEST(MapCell, GivesTheWholeAnswerBack) {
    ExpectSameBack(Answered(0, {1, 1, 5}), 80);
    ExpectSameBack(Answered(0, {1, 1}), 60);
    ExpectSameBack(Answered(0, {0, 4}), 80);
    ExpectSameBack(Answered(0, {1, 0, 0, 0, 0, 3}), 50);
    ExpectSameBack(Answered(0, {}), 50);
    ExpectSameBack(Answered(-306, {}), 50);
    ExpectSameBack(Ended(Ending::Kind::NoAnswer), 50);
    ExpectSameBack(Ended(Ending::Kind::Endless), 50);
    ExpectSameBack(Ended(Ending::Kind::Crashed), 50);
}

TEST(MapCell, KeepsTheCodeOfAnAnswer) {
    const Answer answer =
        Judge(ReadInlineDispenser(kDispenser), {50, 1, kDeadline}, Answered(-306, {}));
    EXPECT_EQ(Kept(answer).code, "971A2");
}

TEST(MapCell, IsNotJudgedAgain) {
    const Answer answer =
        Judge(ReadInlineDispenser(kDispenser), {100, 1, kDeadline}, Answered(0, {2}));
    const Answer back = AnswerOf(ReadInlineDispenser("EUR:50x1,20x3"), 100, 1, CellOf(answer));
    EXPECT_EQ(back.outcome, Outcome::Paid) << "as it was judged, whatever is held by now";
    EXPECT_FALSE(back.isHeld);
}

}  // namespace
}  // namespace qxmix
