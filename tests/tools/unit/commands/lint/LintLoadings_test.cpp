#include "LintOf.h"
#include "commands/lint/LintCures.h"

namespace qxmix {
namespace {

/// "fill 0: 50x2000": what is done, where, and what is there then.
std::string Text(const Loading& loading) {
    static const char* const kinds[] = {"service", "fill", "add", "replace"};
    const Cassette& cassette = loading.cassette;
    EXPECT_EQ(cassette.status, 0U) << "what is loaded gives";
    EXPECT_EQ(cassette.currency, "EUR");
    std::string text = std::string(kinds[static_cast<std::size_t>(loading.kind)]) + " " +
                       std::to_string(loading.place) + ": " + std::to_string(cassette.value) + "x" +
                       std::to_string(cassette.count);
    text += cassette.type == 3 ? "" : " type " + std::to_string(cassette.type);
    text += cassette.worth ? " worth " + cassette.worth->Text() : "";
    return text + (cassette.position == loading.place
                       ? ""
                       : " in slot " + std::to_string(cassette.position));
}

/// What is tried for the first mix, up to an amount of `most`.
Lines Tried(const LintOf& of, std::uint32_t most) {
    const LintCase lint = of.Case();
    Lines lines;
    for (const Loading& loading : LoadingsToTry(lint, lint.mixes.front(), most)) {
        lines.push_back(Text(loading));
    }
    return lines;
}

/// The same without new cassettes: no note is worth nothing.
Lines Mended(const LintOf& of) {
    return Tried(of, 0);
}

TEST(LintLoadings, BringsIntoServiceBeforeItFills) {
    EXPECT_EQ(Mended(LintOf("EUR:50x10:full,20x0:empty")),
              (Lines{"service 0: 50x10", "fill 0: 50x2000", "fill 1: 20x2000"}));
    EXPECT_EQ(Mended(LintOf("EUR:50x1999:low,20x0,10x2500:high")),
              (Lines{"service 2: 10x2500", "fill 0: 50x2000", "fill 1: 20x2000"}))
        << "what is low gives";
}

TEST(LintLoadings, LeavesFullCassettesAsTheyAre) {
    EXPECT_EQ(Mended(LintOf("EUR:50x2000,20x2001:low")), Lines{});
    EXPECT_EQ(Mended(LintOf("EUR:50x1999,20x2001")), Lines{"fill 0: 50x2000"});
}

TEST(LintLoadings, FillsBeyondTheMinimumOfTheMixesThatKeepOne) {
    const LintOf lint("EUR:50x10");
    EXPECT_EQ(Mended(LintOf(lint).Mixes({6}).Minimum("1999")), Lines{"fill 0: 50x2000"});
    EXPECT_EQ(Mended(LintOf(lint).Mixes({6}).Minimum("2000")), Lines{"fill 0: 50x2001"});
    EXPECT_EQ(Mended(LintOf(lint).Mixes({1}).Minimum("2000")), Lines{"fill 0: 50x2000"});
    EXPECT_EQ(Mended(LintOf(lint).Mixes({6}).Minimum("4294967295")), Lines{"fill 0: 50x1073741824"})
        << "four of them still count";
}

TEST(LintLoadings, PassesOverWhatNoFillingHelps) {
    EXPECT_EQ(Mended(LintOf("EUR:50x9,USD20x9")), Lines{"fill 0: 50x2000"});
    EXPECT_EQ(Mended(LintOf("EUR:50x9,0x9,20x9:rejectCassette")), Lines{"fill 0: 50x2000"});
    EXPECT_EQ(Mended(LintOf("EUR:50x9:recycling,20x9").Mixes({9})),
              (Lines{"fill 0: 50x2000 type 12", "fill 1: 20x2000"}));
    EXPECT_EQ(Mended(LintOf("EUR:50x9:recycling,20x9")), Lines{"fill 1: 20x2000"});
}

/// Of the first cassette of a unit the items count whatever its status: QX202 and QX203 come first.
TEST(LintLoadings, LeavesMiscountedCassettesToTheirOwnRule) {
    EXPECT_EQ(Mended(LintOf("EUR:20x30:empty,20x400")), Lines{"fill 1: 20x2000"});
    EXPECT_EQ(Mended(LintOf("EUR:20x30:manipulated,20x400")), Lines{"fill 1: 20x2000"});
    EXPECT_EQ(Mended(LintOf("EUR:20x400,20x30:empty")),
              (Lines{"service 1: 20x30", "fill 0: 20x2000", "fill 1: 20x2000"}));
    EXPECT_EQ(Mended(LintOf("EUR:20x30:low,20x400")),
              (Lines{"fill 0: 20x2000", "fill 1: 20x2000"}));
    EXPECT_EQ(Mended(LintOf("EUR:20x0:empty,20x400")),
              (Lines{"fill 0: 20x2000", "fill 1: 20x2000"}));
    EXPECT_EQ(Mended(LintOf("EUR:20x30:empty")), (Lines{"service 0: 20x30", "fill 0: 20x2000"}))
        << "the unit is passed over, so that nothing counts";
}

TEST(LintLoadings, AddsEveryNoteUpToTheAmountTheLargestFirst) {
    const LintOf lint("EUR:50x2000");
    EXPECT_EQ(Tried(lint, 100),
              (Lines{"add 1: 100x2000", "add 1: 50x2000", "add 1: 20x2000", "add 1: 10x2000",
                     "add 1: 5x2000", "add 1: 2x2000", "add 1: 1x2000"}));
    EXPECT_EQ(Tried(lint, 99).front(), "add 1: 50x2000");
    const Lines largest = Tried(lint, 4294967295);
    EXPECT_EQ(largest.front(), "add 1: 5000000x2000");
    EXPECT_EQ(largest.size(), 21U);
}

TEST(LintLoadings, AddsCoinsBelowAWholeUnit) {
    const Lines cents = {"add 1: 1x2000 type 5 worth 0.01", "add 1: 2x2000 type 5 worth 0.02",
                         "add 1: 5x2000 type 5 worth 0.05", "add 1: 10x2000 type 5 worth 0.1",
                         "add 1: 20x2000 type 5 worth 0.2", "add 1: 50x2000 type 5 worth 0.5"};
    EXPECT_EQ(Tried(LintOf("EUR:50x2000").Exponent(-2), 99), cents);
    Lines withNotes = {"add 1: 2x2000", "add 1: 1x2000"};
    withNotes.insert(withNotes.end(), cents.begin(), cents.end());
    EXPECT_EQ(Tried(LintOf("EUR:50x2000").Exponent(-2), 200), withNotes);
    EXPECT_EQ(Tried(LintOf("EUR:50x2000").Exponent(-4), 1).size(), 12U);
    EXPECT_EQ(Tried(LintOf("EUR:50x2000").Exponent(-5), 1), Lines{}) << "no money has such coins";
}

TEST(LintLoadings, CountsAnAmountByItsExponent) {
    EXPECT_EQ(Tried(LintOf("EUR:50x2000").Exponent(1), 2).front(), "add 1: 20x2000");
}

TEST(LintLoadings, AddsNothingWherePositionsAreNotThePlaces) {
    EXPECT_EQ(Tried(LintOf("EUR:50x9,20x9").Position(0, 1).Position(1, 0), 100),
              (Lines{"fill 0: 50x2000 in slot 1", "fill 1: 20x2000 in slot 0"}));
}

TEST(LintLoadings, ReplacesWhatIsSpareWhenAllPlacesAreTaken) {
    const auto tried = [](const char* dispenser) { return Tried(LintOf(dispenser), 1); };
    const char* const six = "EUR:50x2000,20x2000,10x2000,5x2000,2x2000,1x2000";
    EXPECT_EQ(tried(six), Lines{}) << "each is the only one of its note";
    EXPECT_EQ(tried("EUR:50x2000,50x2000,20x2000,10x2000,5x2000,2x2000"),
              (Lines{"replace 1: 1x2000", "replace 0: 1x2000"}));
    EXPECT_EQ(tried("EUR:50x2000,20x2000,10x2000,5x2000,2x2000,7x9:rejectCassette"),
              Lines{"replace 5: 1x2000"});
    EXPECT_EQ(tried("EUR:50x2000,20x2000,10x2000,5x2000,2x2000,USD7x9"), Lines{})
        << "somebody else may ask for it";
}

TEST(LintLoadings, KeepsCassettesOfCurrenciesThatAreAskedToo) {
    LintOf lint("EUR:50x2000,20x2000,10x2000,5x2000,2x2000,USD9x9:rejectCassette");
    EXPECT_EQ(Tried(lint, 1), Lines{"replace 5: 1x2000"});
    lint.currencies = {"EUR", "USD"};
    EXPECT_EQ(Tried(lint, 1), Lines{});
}

TEST(LintLoadings, PutsOneCassetteIntoADispenser) {
    const Dispenser dispenser = ReadInlineDispenser("EUR:50x9,20x9");
    Cassette cassette = dispenser.cassettes[0];
    cassette.count = 7;
    const Dispenser filled = WithLoading(dispenser, {Loading::Kind::Fill, 0, cassette});
    ASSERT_EQ(filled.cassettes.size(), 2U);
    EXPECT_EQ(filled.cassettes[0].count, 7U);
    EXPECT_EQ(filled.cassettes[1].count, 9U);
    const Dispenser added = WithLoading(dispenser, {Loading::Kind::Add, 2, cassette});
    ASSERT_EQ(added.cassettes.size(), 3U);
    EXPECT_EQ(added.cassettes[2].count, 7U);
    EXPECT_EQ(added.cassettes[0].count, 9U);
}

}  // namespace
}  // namespace qxmix
