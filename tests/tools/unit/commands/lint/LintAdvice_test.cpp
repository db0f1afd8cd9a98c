#include "LintOf.h"
#include "commands/lint/LintCures.h"
#include "json/Json.h"

namespace qxmix {
namespace {

/// Two cassettes, the first with a label.
LintCase TheCase() {
    LintCase lint;
    lint.questions.dispenser = ReadInlineDispenser("EUR:50x10,20x10");
    lint.questions.dispenser.cassettes[0].label = "A";
    return lint;
}

std::string Advice(const LintCures& cures) {
    return CuresText(TheCase(), cures);
}

LintCures Loaded(Loading::Kind kind, std::size_t place, std::size_t paid) {
    LintCures cures;
    cures.count = 3;
    cures.loading = Loading{kind, place, TheCase().TheDispenser().cassettes[0]};
    cures.loading->cassette.count = 2000;
    cures.paidByLoading = paid;
    return cures;
}

TEST(LintAdvice, SaysNothingWithoutACure) {
    EXPECT_EQ(Advice(LintCures()), "");
    EXPECT_EQ(CuresJson(LintCures()), Json::array());
}

TEST(LintAdvice, NamesTheMixesThatPay) {
    const auto advice = [](std::size_t count, std::vector<std::uint16_t> payers) {
        LintCures cures;
        cures.count = count;
        cures.payers = std::move(payers);
        EXPECT_EQ(CuresJson(cures), Json::array({{{"mixes", cures.payers}}}));
        return Advice(cures);
    };
    EXPECT_EQ(advice(1, {2}), "mix 2 pays it");
    EXPECT_EQ(advice(1, {2, 3}), "mixes 2 3 pay it");
    EXPECT_EQ(advice(2, {2}), "mix 2 pays them");
    EXPECT_EQ(advice(2, {2, 3}), "mixes 2 3 pay them");
    LintCures most;
    most.count = 5;
    most.bestPayer = 7;
    most.paidByBest = 3;
    EXPECT_EQ(Advice(most), "mix 7 pays 3 of them");
    EXPECT_EQ(CuresJson(most), Json::array()) << "that is no cure";
}

TEST(LintAdvice, SaysWhatToLoadAndWhere) {
    EXPECT_EQ(Advice(Loaded(Loading::Kind::Service, 0, 3)),
              "bring cassette A, 50 EUR, into service: that would do");
    EXPECT_EQ(Advice(Loaded(Loading::Kind::Service, 0, 2)),
              "bring cassette A, 50 EUR, into service: that would pay 2 of 3");
    EXPECT_EQ(Advice(Loaded(Loading::Kind::Fill, 0, 3)),
              "load 50 EUR: 2000 in cassette A would do");
    EXPECT_EQ(Advice(Loaded(Loading::Kind::Replace, 1, 3)),
              "load 50 EUR: 2000 in cassette 1 instead would do");
    EXPECT_EQ(Advice(Loaded(Loading::Kind::Add, 2, 1)),
              "load 50 EUR: 2000 in one more cassette would pay 1 of 3");
    const Json json = CuresJson(Loaded(Loading::Kind::Add, 2, 1));
    ASSERT_EQ(json.size(), 1U);
    EXPECT_EQ(json[0]["loading"]["place"], 2);
    EXPECT_EQ(json[0]["loading"]["paid"], 1);
    EXPECT_EQ(json[0]["loading"]["cassette"]["count"], 2000);
}

TEST(LintAdvice, NamesTheAmountsToOfferWhereNothingElseHelps) {
    LintCures cures;
    cures.count = 3;
    cures.amounts = AmountRange{40, 200, 10};
    EXPECT_EQ(Advice(cures), "offer 40 to 200 in steps of 10");
    cures.payers = {2};
    EXPECT_EQ(Advice(cures), "mix 2 pays them; or offer 40 to 200 in steps of 10");
    LintCures limited = cures;
    limited.limit = 9;
    EXPECT_EQ(Advice(limited), "mix 2 pays them; or a limit of 9 would do");
    LintCures loaded = Loaded(Loading::Kind::Fill, 0, 3);
    loaded.amounts = cures.amounts;
    EXPECT_EQ(Advice(loaded), "load 50 EUR: 2000 in cassette A would do");
    loaded.limit = 9;
    EXPECT_EQ(Advice(loaded), "load 50 EUR: 2000 in cassette A would do; or a limit of 9 would do");
    const Json json = CuresJson(loaded);
    ASSERT_EQ(json.size(), 3U) << "programs are told all";
    EXPECT_EQ(json[1], Json({{"maxDispenseItems", 9}}));
    EXPECT_EQ(json[2], Json::parse(R"({"amounts":{"min":40,"max":200,"step":10}})"));
}

}  // namespace
}  // namespace qxmix
