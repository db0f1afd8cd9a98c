#include "commands/fill/FillNotes.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace qxmix {
namespace {

using Values = std::vector<std::uint32_t>;

Dispenser DispenserOfNotes(const Values& values) {
    Dispenser dispenser;
    dispenser.currency = "EUR";
    for (const std::uint32_t value : values) {
        Cassette cassette;
        cassette.value = value;
        cassette.currency = "EUR";
        dispenser.cassettes.push_back(cassette);
    }
    return dispenser;
}

Values ValuesOf(const Dispenser& dispenser) {
    Values values;
    for (const Cassette& cassette : dispenser.cassettes) {
        values.push_back(cassette.value);
    }
    return values;
}

std::vector<Values> ChoicesOf(const Dispenser& dispenser, const Values& notes) {
    std::vector<Values> choices;
    for (const Dispenser& choice : NoteChoices(dispenser, notes)) {
        choices.push_back(ValuesOf(choice));
    }
    EXPECT_EQ(NoteChoiceCount(dispenser, notes), choices.size());
    return choices;
}

RunDemands RunsOf(const std::vector<Values>& runs) {
    RunDemands demands;
    for (const Values& amounts : runs) {
        Demand demand;
        demand.currencies = {"EUR"};
        for (const std::uint32_t amount : amounts) {
            demand.withdrawals.push_back({0, amount, 0});
        }
        demands.push_back(std::make_shared<const Demand>(demand));
    }
    return demands;
}

FillQuestions QuestionsFor(const RunDemands& demands, const ServedShare& service) {
    FillQuestions questions;
    questions.runs = static_cast<std::uint32_t>(demands.size());
    questions.service = service;
    return questions;
}

TEST(ParseNotes, TakesEachNoteOnceFromTheLargestOn) {
    EXPECT_EQ(ParseNotes("5,100,20"), (Values{100, 20, 5}));
    EXPECT_EQ(ParseNotes("5"), (Values{5}));
    for (const char* text :
         {"", ",", "5,", "5,,10", "0", "5,5", "5 ,10", "4294967296", "-5", "ten"}) {
        EXPECT_FALSE(ParseNotes(text)) << text;
    }
    EXPECT_EQ(NoteListWord({100, 20, 5}), "100,20,5");
}

TEST(NoteChoices, AreTheMultisetsOfEqualCassettesThoseFirstThatChangeFewest) {
    const std::vector<Values> choices = ChoicesOf(DispenserOfNotes({20, 50}), {100, 50, 20});
    EXPECT_EQ(choices, (std::vector<Values>{
                           {20, 50}, {100, 50}, {20, 100}, {50, 50}, {20, 20}, {100, 100}}));
}

TEST(NoteChoices, OfFiveEqualCassettesAndFiveNotesAreEachMultisetOnce) {
    const std::vector<Values> choices =
        ChoicesOf(DispenserOfNotes({100, 50, 20, 20, 10}), {100, 50, 20, 10, 5});
    EXPECT_EQ(choices.size(), 126U);
    std::set<std::multiset<std::uint32_t>> sets;
    for (const Values& choice : choices) {
        sets.emplace(choice.begin(), choice.end());
    }
    EXPECT_EQ(sets.size(), 126U);
    EXPECT_EQ(choices.front(), (Values{100, 50, 20, 20, 10}));
}

TEST(NoteChoices, TellApartCassettesThatDiffer) {
    Dispenser dispenser = DispenserOfNotes({20, 50, 10});
    dispenser.cassettes[1].capacity = 2000;
    EXPECT_EQ(ChoicesOf(dispenser, {50, 20}).size(), 6U);  // 2 of the one, 3 of the other two
    dispenser.cassettes[2].bundle = 50;
    EXPECT_EQ(ChoicesOf(dispenser, {50, 20}).size(), 8U);
}

TEST(NoteChoices, LeaveOthersAsTheyAre) {
    Dispenser dispenser = DispenserOfNotes({20, 50, 2, 10, 5});
    dispenser.cassettes[1].currency = "USD";
    dispenser.cassettes[2].type = 5;    // a coin dispenser
    dispenser.cassettes[3].status = 5;  // inoperative
    dispenser.cassettes[4].worth = Money::Of(5, 0);
    EXPECT_EQ(ChoicesOf(dispenser, {100, 20}),
              (std::vector<Values>{{20, 50, 2, 10, 5}, {100, 50, 2, 10, 5}}));
    dispenser.cassettes[0].status = 6;
    EXPECT_EQ(NoteChoiceCount(dispenser, {100, 20}), 0U);
}

TEST(NoteChoiceCount, EndsBeyondTheMost) {
    Dispenser dispenser = DispenserOfNotes({20, 50, 10, 100, 5, 200});
    for (std::size_t place = 0; place < 6; ++place) {
        dispenser.cassettes[place].capacity = 1000 + static_cast<std::uint32_t>(place);
    }
    EXPECT_EQ(NoteChoiceCount(dispenser, {5, 10, 20}), 729U);
    EXPECT_EQ(NoteChoiceCount(dispenser, {5, 10, 20, 50}), kMostChoices + 1);
    Values many(200000);
    std::iota(many.begin(), many.end(), 1);
    EXPECT_EQ(NoteChoiceCount(DispenserOfNotes({1, 2, 3, 4, 5, 6}), many), kMostChoices + 1);
}

/// Whether so many notes at most make an amount, all ways tried.
bool IsMadeOf(const Values& values, std::uint32_t amount, std::uint32_t limit) {
    if (amount == 0) {
        return true;
    }
    for (const std::uint32_t value : values) {
        if (limit > 0 && value <= amount && IsMadeOf(values, amount - value, limit - 1)) {
            return true;
        }
    }
    return false;
}

TEST(CanServe, CountsWhatNoteOfTheseValuesCanPay) {
    std::mt19937 random(1);
    std::size_t could = 0;
    for (int round = 0; round < 200; ++round) {
        const Values values = {static_cast<std::uint32_t>(random() % 9 + 2),
                               static_cast<std::uint32_t>(random() % 9 + 2)};
        const auto limit = static_cast<std::uint16_t>(random() % 5 + 1);
        std::vector<Values> runs;
        std::size_t misses = 0;
        for (int run = 0; run < 20; ++run) {
            runs.emplace_back();
            std::size_t unpayable = 0;
            for (int count = 0; count < 6; ++count) {
                runs.back().push_back(static_cast<std::uint32_t>(
                    random() % 3 * values[0] + random() % 3 * values[1] + 1 - random() % 2));
                runs.back().back() += runs.back().back() == 0 ? values[0] : 0;
                unpayable += IsMadeOf(values, runs.back().back(), limit) ? 0 : 1;
            }
            misses += unpayable > 4 ? 1 : 0;  // a fifth of six is served by two
        }
        Dispenser dispenser = DispenserOfNotes(values);
        dispenser.maxDispenseItems = limit;
        const RunDemands demands = RunsOf(runs);
        const bool can = CanServe(QuestionsFor(demands, {1, 5}), demands, dispenser);
        EXPECT_EQ(can, misses <= 1) << round;
        could += can ? 1 : 0;
    }
    EXPECT_GT(could, 20U);
    EXPECT_LT(could, 180U);
}

TEST(CanServe, CountsCoinsAndHundredths) {
    const RunDemands demands = RunsOf({{7050}});
    Dispenser dispenser = DispenserOfNotes({50, 20, 50});
    dispenser.exponent = -2;
    dispenser.cassettes[2].type = 5;
    dispenser.cassettes[2].worth = *Money::Parse("0.50");
    EXPECT_TRUE(CanServe(QuestionsFor(demands, {1, 1}), demands, dispenser));
    dispenser.cassettes[2].worth = *Money::Parse("0.20");
    EXPECT_FALSE(CanServe(QuestionsFor(demands, {1, 1}), demands, dispenser));
    dispenser.cassettes[2].worth = *Money::Parse("0.001");
    EXPECT_TRUE(CanServe(QuestionsFor(demands, {1, 1}), demands, dispenser)) << "not known";
}

}  // namespace
}  // namespace qxmix
