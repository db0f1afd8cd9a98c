#include "LintOf.h"

namespace qxmix {
namespace {

/// What the rules say of a dispenser in all its currencies, those of one rule: "USD /mix: message".
Lines SaidInAll(LintOf lint, const std::string& id) {
    LintCases cases;
    lint.currencies = CurrenciesOf(lint.dispenser);
    for (const std::string& currency : lint.currencies) {
        LintOf one = lint;
        one.dispenser = InCurrency(lint.dispenser, currency);
        cases.push_back(one.Case());
    }
    Lines said;
    for (const LintFinding& finding : CheckAll(cases)) {
        if (finding.id == id) {
            said.push_back(finding.currency + " " + finding.pointer + ": " + finding.message);
        }
    }
    return said;
}

TEST(LintCurrencies, AreToldByWhatIsFoundInThem) {
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x1,20x1,USD50x1").Amounts({70, 100}), "QX512"),
              (Lines{"EUR /amounts: EUR: mix 1 refuses 1 of 2 amounts: 100",
                     "USD /amounts/USD: USD: mix 1 refuses 2 of 2 amounts: 70, 100"}));
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x1,20x1").Amounts({70, 100}), "QX512"),
              (Lines{" /amounts: mix 1 refuses 1 of 2 amounts: 100"}))
        << "one alone is not told";
}

TEST(LintCurrencies, AreNotPassedOverWhereTheyAreAsked) {
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x10,USD20x10,CHF20x10"), "QX104"), Lines{});
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x10,USD20x10,CHF20x10:rejectCassette"), "QX104"),
              (Lines{"EUR /cassettes/2/currency: EUR: CHF is not EUR: passed over in silence"}));
    EXPECT_EQ(SaidInAll(LintOf("EUR:USD20x10"), "QX104"),
              (Lines{"EUR /cassettes/0/currency: EUR: USD is not EUR: passed over in silence"}))
        << "no cassette has the dispenser's own";
}

TEST(LintCurrencies, TellOfACassetteInItsOwn) {
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x200,USD20x200,USD0x200,CHF5x9:rejectCassette"), "QX105"),
              (Lines{"EUR /cassettes/3/type: EUR: rejectCassette is never drawn from",
                     "USD /cassettes/2/value: USD: worth nothing: never drawn from"}));
    EXPECT_EQ(
        SaidInAll(LintOf("EUR:50x9,USD20x9,USD20x9:coupon"), "QX103"),
        (Lines{"USD /cassettes/2/type: USD: 20 USD is coupon here, billCassette in cassette 1: "
               "two units instead of one"}));
    EXPECT_EQ(SaidInAll(LintOf("CHF:EUR5x9:coinDispenser,50x9").Exponent(-2), "QX603").size(), 1U);
    EXPECT_EQ(SaidInAll(LintOf("CHF:EUR42949673x9,50x9").Exponent(-2), "QX604").size(), 1U);
}

TEST(LintCurrencies, KeepTheirCassettesWhateverWouldHelpAnother) {
    LintOf lint = LintOf("EUR:50x9,100x9,USD50x9,USD20x9,USD100x9,USD5x0:empty").Amounts({50, 60});
    const auto loading = [&lint] { return lint.Case().mixes.front().forRefused.loading; };
    ASSERT_TRUE(loading());
    EXPECT_EQ(loading()->kind, Loading::Kind::Replace);
    EXPECT_EQ(loading()->place, 5U) << "empty, and nobody asks for its currency";
    lint.currencies = {"EUR", "USD"};
    EXPECT_FALSE(loading());
}

TEST(LintCurrencies, ShareWhatIsSaidOfTheDispenser) {
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x9,USD20x9").Partial(), "QX605"),
              (Lines{" /partial: remainder 0 can mean a reduced amount"}));
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x9,USD20x9").Position(1, 0), "QX102").size(), 1U);
    EXPECT_EQ(SaidInAll(LintOf("EUR:50x9,USD20x9").Minimum("abc"), "QX301").size(), 1U);
}

}  // namespace
}  // namespace qxmix
