#include "LintOf.h"
#include "json/Json.h"
#include "requests/Request.h"

namespace qxmix {
namespace {

const char* const kFourNotes = "EUR:50x1000,20x900,100x100,200x40";

std::vector<LintFinding> FindingsOf(const LintOf& lint, const std::string& id) {
    return lint.Findings(id);
}

TEST(LintQX401, FindsAmountsThatAreOverpaidAndSaysWhy) {
    const auto found =
        FindingsOf(LintOf("EUR:100x400,50x400,20x400").Mixes({4}).Amounts({10, 100, 110}), "QX401");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].message, "mix 4 overpays on 2 amounts: 10 pays 20060, 110 pays 20160");
    EXPECT_EQ(found[0].amounts->count, 2U);
    EXPECT_EQ(found[0].amounts->of, 3U);
    EXPECT_EQ(found[0].amounts->first[0],
              Json::parse(R"({"amount":10,"outcome":"overpaid","paid":"20060","emptied":[1],
                              "why":"noCombination"})"));
    EXPECT_EQ(found[0].amounts->first[1]["why"], "searchOrder") << "110 is 50 + 3 x 20";
}

TEST(LintQX401, SaysWhenTheLimitIsBehindIt) {
    // 50 and 3 x 20 are four notes.
    const LintOf lint = LintOf("EUR:100x40,50x40,20x40").Mixes({4}).Amounts({110}).Limit(3);
    const auto found = FindingsOf(lint, "QX401");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].amounts->first[0]["why"], "limit");
}

TEST(LintQX401, FindsWhatIsOverdrawn) {
    LintCase lint = LintOf("EUR:50x10").Amounts({100}).Case();
    MapCell cell;
    cell.outcome = Outcome::Overdrawn;
    cell.values[0] = 2;
    lint.mixes.front().row = MapRow();
    lint.mixes.front().row.Add(cell);
    const std::vector<LintFinding> found = CheckAll(lint);
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.front().message, "mix 1 overdraws on 1 amount: 100 pays 100");
    EXPECT_EQ(found.front().amounts->first[0]["why"], nullptr) << "nobody asked";
}

TEST(LintQX401, AdvisesAnotherMixWhereThereIsOne) {
    LintCase lint = LintOf("EUR:100x400,50x400,20x400").Mixes({4}).Amounts({10}).Case();
    const auto advice = [&lint] { return CheckAll(lint).front().advice; };
    EXPECT_EQ(advice(), "choose another mix, or check what is paid before money moves");
    lint.slow = Milliseconds(-1);  // whatever answers is too slow
    EXPECT_EQ(advice(), "check what is paid before money moves");
}

TEST(LintQX401, LeavesExactAnswersAlone) {
    EXPECT_EQ(Said(LintOf("EUR:100x400,50x400,20x400").Mixes({4}).Amounts({100, 120}), "QX401"),
              Lines{});
}

TEST(LintQX402, FindsMissedDeadlinesAndProvesThem) {
    const auto found = FindingsOf(LintOf(kFourNotes).Mixes({4}).Amounts({50, 60}), "QX402");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].message, "mix 4 never answers on 1 amount: 60");
    EXPECT_EQ(found[0].amounts->first[0],
              Json::parse(R"({"amount":60,"outcome":"noAnswer","paid":null,"proved":true})"));
    EXPECT_EQ(Said(LintOf(kFourNotes).Mixes({4}).Amounts({50}), "QX402"), Lines{});
}

TEST(LintQX402, SaysHowManyOfTheMissedAreProved) {
    LintCase lint = LintOf("EUR:50x10,20x10").Mixes({4}).Amounts({50, 60, 70}).Case();
    const auto said = [&lint](const std::vector<int>& deadlines) {
        lint.mixes.front().row = MapRow();
        for (const int deadline : deadlines) {
            MapCell cell;
            cell.deadline = Milliseconds(deadline);
            lint.mixes.front().row.Add(cell);
        }
        for (const LintFinding& finding : CheckAll(lint)) {
            if (finding.id == "QX402") {
                return finding.message;
            }
        }
        return std::string();
    };
    EXPECT_EQ(said({0, 0, 0}), "mix 4 never answers on 3 amounts: 50, 60, 70");
    EXPECT_EQ(said({9, 9, 9}), "mix 4 gives no answer on 3 amounts: 50, 60, 70");
    EXPECT_EQ(said({9, 0, 9}), "mix 4 gives no answer on 3 amounts, 1 proved: 50, 60, 70");
    EXPECT_EQ(said({0, 0, 9}), "mix 4 gives no answer on 3 amounts, 2 proved: 50, 60, 70");
    EXPECT_EQ(said({9, 0}),
              "mix 4 gives no answer on 2 amounts, 1 proved, given up at the last: 50, 60");
    EXPECT_EQ(said({0}), "mix 4 never answers on 1 amount, given up at the last: 50");
}

TEST(LintQX403, FindsASecondUnitThatHoldsNearlyEverything) {
    // 4294967295 / 20 is 214748364; one note more, and what the unit is worth wraps to 4, so that
    // it comes second.
    const LintOf lint = LintOf("EUR:50x10,20x214748365").Mixes({4}).Amounts({20});
    EXPECT_EQ(Said(lint, "QX403"),
              (Lines{"/cassettes/1/count: 214748365 is at least 214748364: amounts that cannot be "
                     "made may never be answered"}));
    // Beside 5 times 858993459, which is worth 4294967295, it comes second without wrapping.
    const auto second = [](const char* dispenser) {
        return Said(LintOf(dispenser).Mixes({4}).Amounts({20}), "QX403").size();
    };
    EXPECT_EQ(second("EUR:5x858993459,20x214748364"), 1U);
    EXPECT_EQ(second("EUR:5x858993459,20x214748363"), 0U);
    EXPECT_EQ(Said(LintOf(lint).Mixes({1}), "QX403"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x9").Mixes({4}).Amounts({20}), "QX403"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x214748365,10x9").Mixes({4}).Amounts({20}), "QX403"),
              Lines{})
        << "three units";
}

TEST(LintQX404, WarnsOfMixesThatAreCleanByLuck) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Mixes({1, 4}), "QX404"),
              (Lines{"/mix: clean on the amounts asked only: on others the unit next to last by "
                     "worth can be paid out whole (mix 4)"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10").Mixes({4}), "QX404"), Lines{}) << "one unit";
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Mixes({4}).Amounts({30}), "QX404"), Lines{})
        << "QX401 tells more";
    EXPECT_EQ(Said(LintOf(kFourNotes).Mixes({4}).Amounts({50, 60}), "QX404"), Lines{})
        << "QX402 does";
    EXPECT_EQ(Said(LintOf(kFourNotes).Mixes({4}).Amounts({50}), "QX404").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x9,20x9,10x9,5x9,2x9").Mixes({4}).Amounts({50}), "QX404").size(),
              1U);
    EXPECT_EQ(Said(LintOf("EUR:50x9,20x9,10x9,5x9,2x9,1x9").Mixes({4}).Amounts({50}), "QX404"),
              Lines{})
        << "six are not searched";
}

TEST(LintQX405, WarnsOfPartialAmounts) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10,10x10").Mixes({4}).Partial(), "QX405"),
              (Lines{"/partial: a partial amount does not end the search"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Mixes({4}).Partial(), "QX405"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10,10x10").Mixes({1}).Partial(), "QX405"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10,10x10").Mixes({4}), "QX405"), Lines{});
}

TEST(LintQX406, TellsWhereAnotherLibraryDiffersFromTheModule) {
    const LintOf lint = LintOf(kFourNotes).Mixes({1, 4}).Amounts({50, 60, 1002});
    EXPECT_EQ(
        Said(LintOf(lint).Library(QXMIX_FAKE_MODULE), "QX406"),
        (Lines{"/mix: mix 1: the library gives no answer, where the tool's own module ends on "
               "1 amount: 1002",
               "/mix: mix 4: the library answers, where the tool's own module never does on 1 "
               "amount: 60"}));
    EXPECT_EQ(Said(lint, "QX406"), Lines{}) << "the module itself";
}

}  // namespace
}  // namespace qxmix
