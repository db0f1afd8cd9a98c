#include "tables/PaidTable.h"

#include "ErrorText.h"
#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

MapQuestions Questions(const char* inlined) {
    MapQuestions questions;
    questions.dispenser = ReadInlineDispenser(inlined);
    questions.mixes = {3};
    questions.listed = {90, 100, 110};
    return questions;
}

MapCell Cell(Outcome outcome, CassetteItems values) {
    MapCell cell;
    cell.outcome = outcome;
    cell.values = values;
    return cell;
}

TEST(NotesPaid, AddUpCassettesOfOneNote) {
    const Dispenser dispenser = Questions("EUR:20x9,50x9,20x9").dispenser;
    const NotesByWorth notes = NotesPaid(dispenser, Cell(Outcome::Paid, {1, 1, 2}));
    EXPECT_EQ(TextOf(notes), "1x50 3x20");
    EXPECT_EQ(TextOf(NotesPaid(dispenser, Cell(Outcome::Paid, {0, 2, 0}))), "2x50");
}

TEST(NotesPaid, LeaveOutAnotherCurrency) {
    Dispenser dispenser = Questions("EUR:20x9,50x9").dispenser;
    dispenser.cassettes[1].currency = "USD";
    EXPECT_EQ(TextOf(NotesPaid(dispenser, Cell(Outcome::Paid, {1, 1}))), "1x20");
}

TEST(PaidTable, HasARowForEachAmountThatIsPaidExactly) {
    MapQuestions questions = Questions("EUR:20x9,50x9,20x9");
    MapAnswers answers;
    answers.rows.resize(1);
    answers.rows[0].Add(Cell(Outcome::Paid, {1, 1, 1}));
    answers.rows[0].Add(Cell(Outcome::PaidInPart, {0, 1, 0}));
    answers.rows[0].Add(Cell(Outcome::Paid, {2, 1, 1}));
    const MixTable table = PaidTable(questions, answers);
    EXPECT_EQ(table.number, 3);
    EXPECT_EQ(table.name, "mix 3");
    EXPECT_EQ(table.header, (std::vector<std::uint32_t>{50, 20}));
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.rows[0].amount, 90U);
    EXPECT_EQ(table.rows[0].counts, (std::vector<std::uint16_t>{1, 2}));
    EXPECT_EQ(table.rows[1].amount, 110U);
    EXPECT_EQ(table.rows[1].counts, (std::vector<std::uint16_t>{1, 3}));
    EXPECT_EQ(TextOf(table.NotesOf(table.rows[1], questions.dispenser)), "1x50 3x20");

    answers.rows[0] = MapRow();
    answers.rows[0].Add(Cell(Outcome::Paid, {0, 2, 0}));
    EXPECT_EQ(PaidTable(questions, answers).rows[0].counts, (std::vector<std::uint16_t>{2, 0}));
    questions.dispenser.name = "Hall";
    EXPECT_EQ(PaidTable(questions, answers).name, "Hall, mix 3");
}

/// Why a map is no mix table.
std::string Refusal(const MapQuestions& questions) {
    return ErrorText([&questions] { CheckTableHolds(questions); });
}

TEST(CheckTableHolds, WantsOneMixAndNoMoreAmountsThanRows) {
    MapQuestions questions = Questions("EUR:50x9");
    EXPECT_EQ(Refusal(questions), "accepted");
    questions.mixes = {1, 2};
    EXPECT_EQ(Refusal(questions),
              "--output: 2 mixes in a mix table; expected one, as with --mix 1");
    questions.mixes = {1};
    questions.listed.clear();
    questions.to = 65535;
    EXPECT_EQ(Refusal(questions), "accepted");
    questions.to = 65536;
    EXPECT_EQ(Refusal(questions), "--output: 65536 amounts in a mix table; expected at most "
                                  "65535, as with --to or --step");
}

TEST(CheckTableHolds, WantsNotesThatAnAmountCanName) {
    MapQuestions questions = Questions("EUR:50x9,20x9");
    questions.dispenser.cassettes[0].currency = "USD";
    EXPECT_EQ(Refusal(questions), "accepted");
    questions.dispenser.cassettes[1].currency = "USD";
    EXPECT_EQ(Refusal(questions), "--output: no note of EUR in a mix table; expected one");
    questions = Questions("EUR:50x9,20x9");
    questions.dispenser.cassettes[0].value = 0;
    EXPECT_EQ(Refusal(questions), "accepted");
    questions.dispenser.exponent = 2;
    EXPECT_EQ(Refusal(questions), "--output: a note of 20 in a mix table; expected multiples of "
                                  "the unit of an amount, 100");
}

}  // namespace
}  // namespace qxmix
