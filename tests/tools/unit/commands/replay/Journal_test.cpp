#include "commands/replay/JournalAnswers.h"

#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

const char* const kTwoOfOneNote = "EUR:50x3,20x4,20x9";

Journal JournalOf(const std::string& text, const Dispenser& dispenser) {
    return ReadJournal("f", text, dispenser, JournalSheet());
}

/// A module that refuses everything but pays what the test says.
JournalAnswers Ask(const Journal& journal, const Dispenser& dispenser, const MixResult& result) {
    return AskJournal(
        journal, dispenser, false,
        [&result](const MixRequest& request) {
            Calculation calculation;
            calculation.request = request;
            calculation.result = result;
            return ReplyWith(calculation);
        },
        [](const WorkProgress&) {});
}

MixResult Result(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
    MixResult result{};
    result.aulNotes[0] = first;
    result.aulNotes[1] = second;
    result.aulNotes[2] = third;
    return result;
}

std::vector<std::uint32_t> CountsOf(const Dispenser& dispenser) {
    std::vector<std::uint32_t> counts;
    for (const Cassette& cassette : dispenser.cassettes) {
        counts.push_back(cassette.count);
    }
    return counts;
}

using Counts = std::vector<std::uint32_t>;

TEST(Journal, KeepsNotesAtTheFirstCassetteThatHoldsThem) {
    const Dispenser dispenser = ReadInlineDispenser(kTwoOfOneNote);
    const Journal journal = JournalOf("amount,dispensed\n90,1x50 + 2x20\n", dispenser);
    ASSERT_EQ(journal.entries.size(), 1U);
    EXPECT_FALSE(journal.tellsCassettes);
    EXPECT_EQ(journal.entries[0].items, (CassetteItems{1, 2}));
    EXPECT_EQ(ByNote(dispenser, {1, 1, 1}), (CassetteItems{1, 2}));
}

TEST(Journal, TakesNotesFromTheCassettesOfTheAnswerIfItHasAsMany) {
    const Dispenser dispenser = ReadInlineDispenser(kTwoOfOneNote);
    const Journal journal = JournalOf("amount,dispensed\n90,1x50 2x20\n", dispenser);
    EXPECT_EQ(CountsOf(Ask(journal, dispenser, Result(1, 0, 2)).end), (Counts{2, 4, 7}));
    EXPECT_EQ(CountsOf(Ask(journal, dispenser, Result(0, 0, 1)).end), (Counts{2, 2, 9}))
        << "other notes: one cassette after the other";
}

TEST(Journal, TakesNotesThatOneCassetteDoesNotHoldFromTheNext) {
    const Dispenser dispenser = ReadInlineDispenser(kTwoOfOneNote);
    const JournalAnswers answers =
        Ask(JournalOf("amount,dispensed\n120,6x20\n", dispenser), dispenser, MixResult{});
    EXPECT_EQ(CountsOf(answers.end), (Counts{3, 0, 7}));
    EXPECT_EQ(answers.beyond, 0U);
    EXPECT_EQ(answers.Count(JournalChange::PaidThoughRefused), 1U);
}

TEST(Journal, StopsAtZeroAndTellsSo) {
    const Dispenser dispenser = ReadInlineDispenser(kTwoOfOneNote);
    const JournalAnswers answers =
        Ask(JournalOf("amount,dispensed\n5,1x50\n400,20x20 4x50\n50,1x50\n", dispenser), dispenser,
            MixResult{});
    EXPECT_EQ(CountsOf(answers.end), (Counts{0, 0, 0}));
    EXPECT_EQ(answers.beyond, 2U);
    EXPECT_EQ(answers.firstBeyond, 3U);
}

}  // namespace
}  // namespace qxmix
