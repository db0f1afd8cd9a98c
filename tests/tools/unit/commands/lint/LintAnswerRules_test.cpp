#include "LintOf.h"
#include "mixes/MixTraits.h"
#include "options/MixList.h"

#include <gmock/gmock.h>

namespace qxmix {
namespace {

TEST(LintQX501, FindsSuccessesThatPayTooLittle) {
    const LintOf lint = LintOf("EUR:50x400:full,20x400").Amounts({20, 50, 70});
    EXPECT_EQ(Said(lint, "QX501"),
              (Lines{"/mix: mix 1 succeeds, pays too little on 2 amounts: 50 pays 0, ..."}));
    EXPECT_EQ(lint.Findings("QX501").front().advice,
              "mend QX201; until then book what the remainder leaves");
    EXPECT_EQ(Said(LintOf("EUR:50x400,20x400").Amounts({20, 50, 70}), "QX501"), Lines{});
    EXPECT_EQ(Said(LintOf(lint).Partial(), "QX501"), Lines{}) << "asked for";
}

TEST(LintQX501, NamesTheRuleThatIsBehindIt) {
    const auto advice = [](const LintOf& lint) { return lint.Findings("QX501").front().advice; };
    EXPECT_EQ(advice(LintOf("EUR:20x30:empty,20x1").Amounts({60})),
              "mend QX203; until then book what the remainder leaves");
    EXPECT_EQ(advice(LintOf("EUR:20x30:manipulated").Amounts({60})),
              "mend QX202; until then book what the remainder leaves");
    EXPECT_EQ(advice(LintOf("EUR:20x30").Position(0, 6).Amounts({60})),
              "mend QX102; until then book what the remainder leaves");
}

TEST(LintQX501, NamesTheRuleOfEachStatus) {
    const auto advice = [](const std::string& dispenser, std::uint32_t amount) {
        const auto found = LintOf(dispenser.c_str()).Amounts({amount}).Findings("QX501");
        return found.empty() ? "" : found.front().advice;
    };
    const std::string rest = "; until then book what the remainder leaves";
    for (const auto& [status, rule] :
         std::map<std::string, std::string>{{"full", "QX201"},
                                            {"high", "QX201"},
                                            {"empty", "QX203"},
                                            {"inoperative", "QX203"},
                                            {"missing", "QX203"},
                                            {"noValue", "QX203"},
                                            {"noReference", "QX203"},
                                            {"manipulated", "QX202"}}) {
        EXPECT_EQ(advice("EUR:20x30:" + status + ",20x1", 60), "mend " + rule + rest) << status;
    }
    EXPECT_EQ(advice("EUR:20x3,20x30:full", 200), "mend QX201" + rest);
    EXPECT_EQ(advice("EUR:20x3:low,20x30:high", 200), "mend QX201" + rest) << "what is low gives";
    EXPECT_EQ(advice("EUR:20x3:full,20x0:empty,20x5:missing", 60), "mend QX201" + rest)
        << "what is empty and no first cassette does not count";
    EXPECT_EQ(advice("EUR:20x0:empty,20x5:full,20x9:empty", 60), "mend QX201" + rest)
        << "a first cassette of no items does not either";
    EXPECT_EQ(advice("EUR:20x9:empty,20x5:full", 200), "mend QX201 QX203" + rest) << "both";
}

TEST(LintQX502, FindsAmountsBelowTheSmallestNote) {
    const LintOf lint = LintOf("EUR:50x400,20x400").Amounts({10, 19, 20, 30});
    EXPECT_EQ(Said(lint, "QX502"),
              (Lines{"/mix: mix 1 succeeds and pays nothing on 2 amounts: 10, 19"}));
    EXPECT_EQ(lint.Findings("QX502").front().severity, Severity::Note);
    EXPECT_EQ(Said(LintOf(lint).Amounts({20}), "QX502"), Lines{});
}

TEST(LintQX503, FindsDeadButtons) {
    LintOf lint = LintOf("EUR:50x400:low,20x400").Mixes({1, 5}).Amounts({20, 30, 50});
    lint.dispenser.amounts["EUR"].buttons = {20, 30, 50};
    EXPECT_EQ(Said(lint, "QX503"),
              (Lines{"/amounts/buttons/1: dead button: 30 EUR is not paid",
                     "/amounts/buttons/2: dead button: 50 EUR is not paid (mix 5)"}));
    lint.dispenser.amounts["EUR"].buttons = {20};
    EXPECT_EQ(Said(lint, "QX503"), Lines{});
}

TEST(LintQX503, SaysWhatCanBeDoneAboutAButton) {
    LintOf lint = LintOf("EUR:50x400:low,20x400").Mixes({5}).Amounts({50});
    lint.dispenser.amounts["EUR"].buttons = {50};
    EXPECT_THAT(
        lint.Findings("QX503").front().advice,
        testing::MatchesRegex("take it off, or choose mixes 1 2 3 6 7 8 10.*, or see QX512"));
    // No rule tells of what fails in a way of its own.
    LintCase failed = lint.Case();
    failed.payers.clear();
    MapCell cell;
    cell.outcome = Outcome::Failed;
    failed.mixes.front().row = MapRow();
    failed.mixes.front().row.Add(cell);
    for (const LintFinding& finding : CheckAll(failed)) {
        if (finding.id == "QX503") {
            EXPECT_EQ(finding.advice, "take it off");
        }
        if (finding.id == "QX508") {
            EXPECT_EQ(finding.message, "mix 5 pays nothing here: all fail");
        }
    }
}

TEST(LintQX504, FindsWhatTheLimitStops) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Limit(5).Amounts({30, 60, 330}), "QX504"),
              (Lines{"/maxDispenseItems: the limit of 5 stops mix 1 on 1 amount: 330"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Limit(5).Mixes({3}).Amounts({30, 60, 330}), "QX504"),
              (Lines{"/maxDispenseItems: the limit of 5 stops mix 3 on 1 amount: 330"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Limit(9).Amounts({30, 60, 330}), "QX504"), Lines{});
}

TEST(LintQX505, FindsSearchesThatEndAtTheLimit) {
    // 9 notes and 3 coins come first; 8 notes and 8 coins would be within the limit.
    const LintOf lint = LintOf("EUR:10x100,2x100:coinDispenser").Limit(8).Mixes({2}).Amounts({96});
    EXPECT_EQ(Said(lint, "QX505"),
              (Lines{"/mix: mix 2 stops at a combination over the limit on 1 amount: 96"}));
    EXPECT_EQ(Said(LintOf("EUR:10x100,2x100").Limit(8).Mixes({2}).Amounts({96}), "QX505"), Lines{})
        << "no coins";
    EXPECT_EQ(Said(LintOf(lint).Mixes({1}), "QX505"), Lines{}) << "another search";
    EXPECT_EQ(Said(LintOf(lint).Mixes({7}).Minimum("0"), "QX505").size(), 1U);
    EXPECT_EQ(Said(LintOf(lint).Limit(9), "QX505"), Lines{}) << "within the limit";
    EXPECT_EQ(Said(LintOf("EUR:10x100,2x100:coinDispenser,500x9").Limit(8).Mixes({2}).Amounts({96}),
                   "QX505"),
              Lines{})
        << "three units";
    EXPECT_EQ(
        Said(
            LintOf("EUR:10x100:coinCylinder,2x100:coinDispenser").Limit(8).Mixes({2}).Amounts({96}),
            "QX505"),
        Lines{})
        << "coins alone";
}

TEST(LintQX506, FindsCodesLeftByASuccess) {
    const LintOf lint = LintOf("EUR:50x10,20x10").Limit(5).Mixes({3}).Amounts({70, 140});
    EXPECT_EQ(Said(lint, "QX506"),
              (Lines{"/mix: mix 3 pays and leaves a stale code on 1 amount: 140 971A3"}));
    EXPECT_EQ(lint.Findings("QX506").front().amounts->first[0]["registry"], "971A3");
    EXPECT_EQ(Said(LintOf(lint).Amounts({70}), "QX506"), Lines{});
}

TEST(LintQX507, FindsTheSlowestAnswer) {
    LintCase lint = LintOf("EUR:50x10,20x10").Amounts({20, 50, 70}).Case();
    const auto said = [&lint] {
        Lines lines;
        for (const LintFinding& finding : CheckAll(lint)) {
            if (finding.id == "QX507") {
                lines.push_back(finding.message);
            }
        }
        return lines;
    };
    MapRow row;
    for (const int microseconds : {10, 20000, 500}) {
        MapCell cell;
        cell.outcome = Outcome::Paid;
        cell.took = std::chrono::microseconds(microseconds);
        row.Add(cell);
    }
    lint.mixes.front().row = row;
    EXPECT_EQ(said(), Lines{}) << "as long as is allowed";
    lint.slow = Milliseconds(19);
    EXPECT_EQ(said(), (Lines{"mix 1 takes 20 ms for 50 EUR"}));
}

TEST(LintQX508, FindsMixesThatPayNothing) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Mixes({1, 6}).Amounts({20, 30}), "QX508"),
              (Lines{"/mix: mix 6 pays nothing here: no cassette serves: 50 EUR counts 10, the "
                     "minimum is 100, 20 EUR counts 10, the minimum is 100"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10").Amounts({20, 50}), "QX508"), Lines{});
}

TEST(LintQX508, SaysWhyAndWhatWouldHelp) {
    const auto saidAndAdvised = [](const LintOf& lint) {
        const LintFinding finding = lint.Findings("QX508").front();
        return finding.message.substr(finding.message.find(": ") + 2) + " / " + finding.advice;
    };
    EXPECT_EQ(saidAndAdvised(LintOf("USD:20x0:empty").Amounts({20, 40})),
              "no cassette serves: 20 USD is empty / load 20 USD: 2000 in cassette 0 would do");
    EXPECT_EQ(saidAndAdvised(LintOf("EUR:50x10:inoperative,20x5:missing").Amounts({50, 70})),
              "no cassette serves: 50 EUR is inoperative, 20 EUR is missing / bring cassette 0, "
              "50 EUR, into service: that would pay 1 of 2");
    EXPECT_EQ(saidAndAdvised(LintOf("EUR:50x10,20x10").Amounts({10, 15})),
              "all are below the smallest note, 20 EUR / see QX502");
    EXPECT_EQ(saidAndAdvised(LintOf("EUR:50x10,20x10").Limit(1).Amounts({30, 100})),
              "1 are over the limit of 1, 1 are refused / see QX504, QX512");
    EXPECT_EQ(saidAndAdvised(LintOf("EUR:USD50x10").Amounts({50})),
              "no cassette serves: 50 USD is not EUR / load 50 EUR: 2000 in one more cassette "
              "would do");
}

TEST(LintQX508, SaysOfEachUnitWhyItIsPassedOver) {
    const auto said = [](LintOf lint) {
        const std::string message = lint.Findings("QX508").front().message;
        return message.substr(message.find("serves: ") + 8);
    };
    EXPECT_EQ(said(LintOf("EUR:50x0,20x2147483648")), "50 EUR holds nothing, 20 EUR reads as "
                                                      "negative");
    EXPECT_EQ(said(LintOf("EUR:50x9:retractCassette,0x9")),
              "50 EUR is retractCassette, 0 EUR is worth nothing");
    EXPECT_EQ(said(LintOf("EUR:50x100,20x9").Mixes({6})),
              "50 EUR counts 100, the minimum is 100, 20 EUR counts 9, the minimum is 100");
    EXPECT_EQ(said(LintOf("EUR:50x9:low").Mixes({5})), "50 EUR is low");
    EXPECT_EQ(said(LintOf("EUR:USD50x9:empty")), "50 USD is not EUR") << "that comes first";
}

TEST(LintQX512, FindsWhatIsRefusedThoughTheLimitAllowsIt) {
    const LintOf lint = LintOf("EUR:100x500,50x500").Mixes({1, 5}).Amounts({40, 50, 60, 70, 4100});
    EXPECT_EQ(Said(lint, "QX512"), (Lines{"/amounts: mix 1 refuses 2 of 5 amounts: 60, 70",
                                          "/amounts: mix 5 refuses 2 of 5 amounts: 60, 70"}));
    EXPECT_EQ(lint.Findings("QX512").front().severity, Severity::Warning);
    EXPECT_EQ(lint.Findings("QX512").front().advice,
              "load 20 EUR: 2000 in one more cassette would do");
    EXPECT_EQ(Said(LintOf(lint).Amounts({40, 50, 4100}), "QX512"), Lines{}) << "below, over";
}

TEST(LintQX512, TellsProgramsWhatWouldHelp) {
    const LintOf lint = LintOf("EUR:100x500,50x500").Amounts({40, 50, 60});
    const Json refused = lint.Findings("QX512").front().cures;
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_EQ(refused[0]["loading"]["cassette"]["value"], 20);
    const Json over =
        LintOf("EUR:50x10,20x10").Limit(5).Amounts({30, 60, 330}).Findings("QX504").front().cures;
    ASSERT_FALSE(over.empty());
    EXPECT_EQ(over[0], Json({{"maxDispenseItems", 9}}));
    const Json none = LintOf("USD:20x0:empty").Amounts({20, 40}).Findings("QX508").front().cures;
    ASSERT_FALSE(none.empty());
    EXPECT_EQ(none[0]["loading"]["paid"], 2);
}

TEST(LintQX512, IsANoteWhereNobodyNamedTheAmounts) {
    LintOf lint = LintOf("EUR:100x500,50x500").Amounts({60});
    lint.isRangeNamed = false;
    EXPECT_EQ(lint.Findings("QX512").front().severity, Severity::Note);
}

TEST(LintQX512, OffersTheCheapestCures) {
    const auto advice = [](const LintOf& lint) { return lint.Findings("QX512").front().advice; };
    std::vector<std::uint16_t> payers;
    for (const std::uint16_t mix : AllMixes()) {
        const MixTraits& traits = Traits(mix);
        if (!traits.passesOverLow && !traits.keepsMinimum && !traits.isFirstFit) {
            payers.push_back(mix);
        }
    }
    EXPECT_EQ(advice(LintOf("EUR:50x10,20x10:low,20x0:empty").Mixes({5}).Amounts({50, 70})),
              MixesText(payers) + " pay it; or load 20 EUR: 2000 in cassette 1 would do");
    EXPECT_EQ(advice(LintOf("EUR:100x300,50x300,10x0:empty").Amounts({100, 160, 170})),
              "load 10 EUR: 2000 in cassette 2 would do");
    EXPECT_EQ(advice(LintOf("EUR:100x300,50x300,10x30:missing").Amounts({100, 160, 170})),
              "bring cassette 2, 10 EUR, into service: that would do");
    EXPECT_EQ(advice(LintOf("EUR:100x9,50x9,50x9,100x9,50x9,50x9").Amounts({100, 160, 170})),
              "load 20 EUR: 2000 in cassette 5 instead would do");
}

TEST(LintQX504, OffersTheCheapestCure) {
    const auto advice = [](const LintOf& lint) { return lint.Findings("QX504").front().advice; };
    EXPECT_EQ(advice(LintOf("EUR:50x10,20x10").Limit(5).Amounts({30, 60, 330})),
              "a limit of 9 would do");
    EXPECT_EQ(advice(LintOf("EUR:50x10,20x10").Limit(2).Amounts({50, 200})),
              "load 200 EUR: 2000 in one more cassette would do; or a limit of 4 would do");
    EXPECT_EQ(advice(LintOf("EUR:500x10,200x100,20x500").Limit(5).Amounts({600})).substr(0, 5),
              "mixes");
}

}  // namespace
}  // namespace qxmix
