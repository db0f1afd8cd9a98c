#include "ErrorText.h"
#include "commands/simulate/SimulationForms.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

constexpr std::uint16_t kOk = 0;
constexpr std::uint16_t kFull = 1;
constexpr std::uint16_t kLow = 3;
constexpr std::uint16_t kEmpty = 4;

Dispenser TwoCassettes() {
    Dispenser dispenser;
    dispenser.currency = "EUR";
    dispenser.cassettes.resize(2);
    dispenser.cassettes[0].currency = dispenser.cassettes[1].currency = "EUR";
    dispenser.cassettes[0].value = 50;
    dispenser.cassettes[0].count = 10;
    dispenser.cassettes[0].lowThreshold = 5;
    dispenser.cassettes[0].emptyThreshold = 2;
    dispenser.cassettes[1].value = 20;
    dispenser.cassettes[1].count = 4;
    return dispenser;
}

SimulationStep Step(Outcome outcome, std::uint32_t first = 0, std::uint32_t second = 0) {
    SimulationStep step;
    step.outcome = outcome;
    step.items[0] = first;
    step.items[1] = second;
    return step;
}

Demand Withdrawals(std::size_t count) {
    Demand demand;
    demand.currencies = {"EUR"};
    for (std::size_t index = 0; index < count; ++index) {
        demand.withdrawals.push_back({static_cast<std::int64_t>(index) * 60, 100, 0});
    }
    return demand;
}

SimulationSummary Summary(const std::vector<SimulationStep>& steps) {
    return SummaryOf(TwoCassettes(), Withdrawals(steps.size()), steps);
}

/// The status of the first cassette after some of its ten items were taken.
std::uint16_t StatusAfter(std::uint16_t before, std::uint32_t taken) {
    Dispenser dispenser = TwoCassettes();
    dispenser.cassettes[0].status = before;
    TakeItems(dispenser, {taken, 1});
    EXPECT_EQ(dispenser.cassettes[0].count, 10 - taken);
    return dispenser.cassettes[0].status;
}

TEST(TakeItems, GivesADrawnCassetteItsStatusFromItsThresholds) {
    EXPECT_EQ(StatusAfter(kOk, 4), kOk);
    EXPECT_EQ(StatusAfter(kOk, 5), kLow);
    EXPECT_EQ(StatusAfter(kOk, 7), kLow);
    EXPECT_EQ(StatusAfter(kOk, 8), kEmpty);
    EXPECT_EQ(StatusAfter(kLow, 1), kOk);
    EXPECT_EQ(StatusAfter(kLow, 10), kEmpty);
}

TEST(TakeItems, LeavesOtherStatusesAndUndrawnCassettesAlone) {
    EXPECT_EQ(StatusAfter(kFull, 9), kFull);
    EXPECT_EQ(StatusAfter(kEmpty, 1), kEmpty);
    EXPECT_EQ(StatusAfter(kLow, 0), kLow);
}

TEST(SimulationSummary, TakesNothingForDangerousAnswersAndRefusals) {
    const SimulationSummary summary =
        Summary({Step(Outcome::Overpaid, 10, 4), Step(Outcome::NotDispensable),
                 Step(Outcome::Paid, 2), Step(Outcome::PaidInPart, 0, 1)});
    EXPECT_EQ(summary.end, (std::vector<std::uint32_t>{8, 3}));
    EXPECT_EQ(summary.Served(), 1U);
    EXPECT_EQ(summary.InPart(), 1U);
    EXPECT_EQ(summary.Refused(), 1U);
    EXPECT_EQ(summary.Dangerous(), 1U);
    EXPECT_EQ(summary.notes, 3U);
    EXPECT_EQ(summary.paid.Text(), "120");
    EXPECT_EQ(summary.left.Text(), "460");
    EXPECT_EQ(summary.TenthsPerWithdrawal(), 15U);
}

TEST(SimulationSummary, KeepsTheFirstWithdrawalWithNothingTaken) {
    const SimulationSummary summary =
        Summary({Step(Outcome::Paid, 1), Step(Outcome::PaidInPart, 0, 1),
                 Step(Outcome::NothingPaid), Step(Outcome::NotDispensable)});
    ASSERT_TRUE(summary.firstRefusal);
    EXPECT_EQ(summary.firstRefusal->withdrawal, 2U);
    EXPECT_EQ(summary.firstRefusal->asked.time, 120);
    EXPECT_EQ(summary.firstRefusal->outcome, Outcome::NothingPaid);
    EXPECT_EQ(summary.firstRefusal->left.Text(), "510");
}

TEST(SimulationSummary, KeepsWhenEachCassetteRanEmpty) {
    const SimulationSummary summary = Summary({Step(Outcome::Paid, 7), Step(Outcome::Paid, 0, 4),
                                               Step(Outcome::Paid, 1), Step(Outcome::Paid, 1)});
    ASSERT_EQ(summary.emptied.size(), 2U);
    EXPECT_EQ(summary.emptied[0].cassette, 1U);
    EXPECT_EQ(summary.emptied[0].withdrawal, 1U);
    EXPECT_EQ(summary.emptied[1].cassette, 0U);
    EXPECT_EQ(summary.emptied[1].withdrawal, 2U);
    EXPECT_EQ(summary.spread, 100U);
}

/// A mix that serves so many of ten, some of the others in part, and perhaps answers dangerously.
SimulationSummary Served(std::uint64_t served, std::uint64_t inPart = 0, bool isDangerous = false) {
    SimulationSummary summary;
    summary.asked = 10;
    summary.counts[static_cast<std::size_t>(Outcome::Paid)] = served;
    summary.counts[static_cast<std::size_t>(Outcome::PaidInPart)] = inPart;
    summary.counts[static_cast<std::size_t>(Outcome::NoAnswer)] = isDangerous ? 1 : 0;
    return summary;
}

SimulationQuestions Mixes(const std::vector<std::uint16_t>& mixes) {
    SimulationQuestions questions;
    questions.mixes = mixes;
    return questions;
}

TEST(RankMixes, PutsTheMixFirstThatServesMost) {
    SimulationAnswers answers;
    answers.runs = {{Served(7), Served(9, 0, true), Served(8), Served(8, 1), Served(8)}};
    std::vector<std::uint16_t> order;
    for (const SimulationRow& row : RankMixes(Mixes({1, 2, 3, 4, 5}), answers)) {
        order.push_back(row.mix);
        EXPECT_EQ(row.rank.has_value(), row.mix != 2);
    }
    EXPECT_EQ(order, (std::vector<std::uint16_t>{4, 3, 5, 1, 2}));
}

TEST(RankMixes, TakesTheLowerMedianOfAnEvenCountOfRuns) {
    SimulationAnswers answers;
    answers.runs = {{Served(9)}, {Served(3)}, {Served(5)}, {Served(7)}};
    answers.runs[0][0].firstRefusal = {4, {240, 100, 0}, Outcome::NothingPaid, Money()};
    const SimulationRow row = RankMixes(Mixes({1}), answers).front();
    EXPECT_EQ(row.served.median, 5U);
    EXPECT_EQ(row.served.least, 3U);
    EXPECT_EQ(row.served.most, 9U);
    EXPECT_EQ(row.firstRefusal.least, 240);
    EXPECT_FALSE(row.firstRefusal.median) << "most runs have none, and none counts as late";
}

TEST(RankMixes, RanksNoMixThatIsDangerousInAnyRun) {
    SimulationAnswers answers;
    answers.runs = {{Served(9)}, {Served(9, 0, true)}};
    const SimulationRow row = RankMixes(Mixes({1}), answers).front();
    EXPECT_FALSE(row.rank);
    EXPECT_EQ(row.dangerousRuns, 1U);
}

/// The page of so many withdrawals, all paid, by mixes 1 and on.
std::string PageText(std::size_t withdrawals, std::size_t mixes) {
    SimulationQuestions questions;
    questions.dispenser = TwoCassettes();
    questions.dispenser.cassettes[0].count = 4000000;
    SimulationAnswers answers;
    answers.demand = Withdrawals(withdrawals);
    answers.planned = withdrawals;
    answers.sizes = {withdrawals};
    answers.runs.resize(1);
    for (std::size_t place = 0; place < mixes; ++place) {
        questions.mixes.push_back(static_cast<std::uint16_t>(place + 1));
        answers.steps.emplace_back(withdrawals, Step(Outcome::Paid, 2));
        answers.runs[0].push_back(
            SummaryOf(questions.dispenser, answers.demand, answers.steps.back()));
    }
    questions.demand = answers.demand;
    Envelope envelope;
    envelope.command = "simulate";
    envelope.input = SimulationInputJson(questions);
    const SimulationReport report(questions, answers);
    envelope.result = SimulationResultJson(report);
    return SimulationPage(report, envelope, "qxmix simulate ...");
}

TEST(SimulationPage, NamesTheMixesThatFitWhenItIsTooLarge) {
    const std::string refused = ErrorText([] { PageText(350000, 2); });
    const std::string end = "; expected at most 5000000, as with --mixes 1";
    ASSERT_GE(refused.size(), end.size()) << refused;
    EXPECT_EQ(refused.substr(refused.size() - end.size()), end);
    EXPECT_LE(PageText(350000, 1).size(), 5000000U);
}

}  // namespace
}  // namespace qxmix
