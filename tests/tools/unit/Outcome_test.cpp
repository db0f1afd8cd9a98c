#include "answers/Outcome.h"

#include <gtest/gtest.h>

#include <set>

namespace qxmix {
namespace {

/// "letter name: words, exit status".
std::string Told(Outcome outcome) {
    const OutcomeRow& row = RowOf(outcome);
    EXPECT_EQ(row.outcome, outcome);
    return row.letter + std::string(" ") + row.name + ": " + row.words + ", " +
           std::to_string(static_cast<int>(row.exitStatus));
}

TEST(Outcomes, HaveNamesThatProgramsReadAndAnExitStatus) {
    EXPECT_EQ(Told(Outcome::NoAnswer), "X noAnswer: no answer, 3");
    EXPECT_EQ(Told(Outcome::Crashed), "C crashed: crashed, 4");
    EXPECT_EQ(Told(Outcome::InvalidMixNumber), "i invalidMixNumber: no such mix, 1");
    EXPECT_EQ(Told(Outcome::Failed), "f failed: failed, 1");
    EXPECT_EQ(Told(Outcome::NotDispensable), "r notDispensable: refused, 1");
    EXPECT_EQ(Told(Outcome::TooManyItems), "t tooManyItems: too many items, 1");
    EXPECT_EQ(Told(Outcome::TooManyUnits), "u tooManyUnits: too many different notes, 1");
    EXPECT_EQ(Told(Outcome::Overpaid), "O overpaid: pays more than asked, 3");
    EXPECT_EQ(Told(Outcome::Overdrawn), "D overdrawn: takes more than allowed, 3");
    EXPECT_EQ(Told(Outcome::Paid), ". paid: paid, 0");
    EXPECT_EQ(Told(Outcome::NothingPaid), "n nothingPaid: nothing paid, 1");
    EXPECT_EQ(Told(Outcome::PaidInPart), "p paidInPart: paid in part, 1");
}

/// "ground letter, style": the colours of a cell, and of a terminal.
std::string Coloured(Outcome outcome) {
    const OutcomeRow& row = RowOf(outcome);
    return row.htmlColour + std::string(row.whiteLetter ? " white, " : " black, ") +
           row.terminalStyle;
}

/// Those that Okabe and Ito chose, so that everybody can tell them apart: a light ground has a
/// black letter, a dark one a white one.
TEST(Outcomes, HaveColoursThatCanBeToldApart) {
    EXPECT_EQ(Coloured(Outcome::NoAnswer), "#000000 white, 1;7");
    EXPECT_EQ(Coloured(Outcome::Crashed), "#000000 white, 1;7");
    EXPECT_EQ(Coloured(Outcome::InvalidMixNumber), "#0072B2 white, 38;5;25");
    EXPECT_EQ(Coloured(Outcome::Failed), "#0072B2 white, 38;5;25");
    EXPECT_EQ(Coloured(Outcome::NotDispensable), "#E69F00 black, 38;5;214");
    EXPECT_EQ(Coloured(Outcome::TooManyItems), "#CC79A7 black, 38;5;175");
    EXPECT_EQ(Coloured(Outcome::TooManyUnits), "#0072B2 white, 38;5;25");
    EXPECT_EQ(Coloured(Outcome::Overpaid), "#D55E00 black, 1;38;5;166");
    EXPECT_EQ(Coloured(Outcome::Overdrawn), "#D55E00 black, 1;38;5;166");
    EXPECT_EQ(Coloured(Outcome::Paid), "#56B4E9 black, 38;5;74");
    EXPECT_EQ(Coloured(Outcome::NothingPaid), "#BBBBBB black, 38;5;250");
    EXPECT_EQ(Coloured(Outcome::PaidInPart), "#F0E442 black, 38;5;227");
}

TEST(Outcomes, AreWorseWhenMoneyIsInDanger) {
    std::set<int> badness;
    for (const OutcomeRow& row : OutcomeTable()) {
        badness.insert(row.badness);
        EXPECT_EQ(row.badness > RowOf(Outcome::Failed).badness,
                  row.exitStatus > ExitStatus::HonestNo)
            << row.name;
        EXPECT_EQ(IsAnswered(row.outcome), row.badness < RowOf(Outcome::Crashed).badness)
            << row.name;
    }
    EXPECT_EQ(badness.size(), OutcomeTable().size());
    EXPECT_EQ(*badness.begin(), RowOf(Outcome::Paid).badness);
    EXPECT_EQ(*badness.rbegin(), RowOf(Outcome::NoAnswer).badness);
}

}  // namespace
}  // namespace qxmix
