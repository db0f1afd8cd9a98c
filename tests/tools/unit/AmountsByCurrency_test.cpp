#include "dispenser/DispenserJson.h"
#include "dispenser/DispenserReader.h"

#include "ErrorText.h"
#include "dispenser/InlineDispenser.h"
#include "json/Json.h"
#include "json/JsonText.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Currencies = std::vector<std::string>;

Dispenser WithAmounts(const std::string& amounts) {
    return ReadDispenser(ParseJson(R"({"currency":"EUR","cassettes":[{"value":50,"count":9},
                      {"value":20,"count":9,"currency":"USD"}],"amounts":)" +
                                       amounts + "}",
                                   "f"),
                         Place("f"));
}

std::string ErrorOfAmountsOf(const std::string& amounts) {
    return ErrorText([&amounts] { WithAmounts(amounts); });
}

/// "10 to 500 in 10": what is asked of a dispenser whose file names no amounts.
std::string Defaults(const char* inlined, int exponent) {
    Dispenser dispenser = ReadInlineDispenser(inlined);
    dispenser.exponent = static_cast<std::int16_t>(exponent);
    const Amounts amounts = AmountsWithDefaults(dispenser);
    return std::to_string(*amounts.min) + " to " + std::to_string(*amounts.max) + " in " +
           std::to_string(*amounts.step);
}

TEST(AmountsWithDefaults, GoInStepsOfWhatValuesHaveInCommonToTenTimesTheLargest) {
    EXPECT_EQ(Defaults("EUR:50x1,20x1", 0), "10 to 500 in 10");
    EXPECT_EQ(Defaults("EUR:50x1,USD200x1,20x1", 0), "10 to 500 in 10");
    EXPECT_EQ(Defaults("EUR:50x1,20x1", -1), "100 to 5000 in 100");
    EXPECT_EQ(Defaults("EUR:50x1,20x1", 1), "1 to 50 in 1");
    EXPECT_EQ(Defaults("EUR:50x1,20x1", 2), "1 to 5 in 1");
    EXPECT_EQ(Defaults("EUR:50x1,20x1", 3), "1 to 1 in 1") << "one at least";
    EXPECT_EQ(Defaults("EUR:0x1", 0), "1 to 1 in 1");
    EXPECT_EQ(Defaults("EUR:USD50x1", 0), "1 to 1 in 1");
}

TEST(AmountsWithDefaults, LeaveCoinsTheirValue) {
    for (const char* const coin : {"coinCylinder", "coinDispenser"}) {
        EXPECT_EQ(Defaults(("CHF:50x1:" + std::string(coin)).c_str(), -2), "50 to 500 in 50");
        EXPECT_EQ(Defaults(("CHF:50x1:" + std::string(coin)).c_str(), 1), "5 to 50 in 5");
    }
    for (const char* const note : {"billCassette", "coupon", "retractCassette", "recycling"}) {
        EXPECT_EQ(Defaults(("CHF:50x1:" + std::string(note)).c_str(), -2), "5000 to 50000 in 5000");
    }
}

TEST(AmountsWithDefaults, AreHeldToTheLargestAmount) {
    EXPECT_EQ(Defaults("EUR:4294967295x1", 0), "4294967295 to 4294967295 in 4294967295");
    EXPECT_EQ(Defaults("EUR:429496729x1", 0), "429496729 to 4294967290 in 429496729");
    EXPECT_EQ(Defaults("EUR:50x1", -9), "4294967295 to 4294967295 in 4294967295");
    EXPECT_EQ(Defaults("EUR:50x1", -32768), "4294967295 to 4294967295 in 4294967295");
}

TEST(AmountsByCurrency, AreReadForEach) {
    const Dispenser dispenser =
        WithAmounts(R"({"EUR":{"min":50,"buttons":[100]},"USD":{"max":80,"step":20}})");
    EXPECT_EQ(dispenser.AmountsTold().min, 50U);
    EXPECT_EQ(dispenser.AmountsTold().buttons, (std::vector<std::uint32_t>{100}));
    const Amounts dollars = AmountsWithDefaults(InCurrency(dispenser, "USD"));
    EXPECT_EQ(dollars.min, 20U);
    EXPECT_EQ(dollars.max, 80U);
    EXPECT_TRUE(dollars.buttons.empty());
}

TEST(AmountsByCurrency, OfOneListAreThoseOfTheDispensersOwn) {
    const Dispenser dispenser = WithAmounts(R"({"min":50,"max":70,"buttons":[60]})");
    EXPECT_EQ(dispenser.AmountsTold().max, 70U);
    const Dispenser dollars = InCurrency(dispenser, "USD");
    EXPECT_EQ(AmountsWithDefaults(dollars).max, 200U) << "ten times the largest";
    EXPECT_TRUE(dollars.AmountsTold().buttons.empty());
}

TEST(AmountsByCurrency, AreRefusedBesideOthers) {
    EXPECT_EQ(ErrorOfAmountsOf(R"({"EUR":{},"min":10})"),
              "f: /amounts/min: not allowed beside EUR; expected within it");
    EXPECT_EQ(ErrorOfAmountsOf(R"({"EUR":{"min":9},"USD":{"min":0}})"),
              "f: /amounts/USD/min: 0 is not allowed; expected 1 to 4294967295");
    EXPECT_EQ(ErrorOfAmountsOf(R"({"EUR":{"min":9,"max":8}})"),
              "f: /amounts/EUR/max: 8 is not allowed; expected 9 or more");
    EXPECT_EQ(ErrorOfAmountsOf(R"({"EURO":{}})"),
              "f: /amounts/EURO: unknown field; expected one of: min, max, step, buttons");
    EXPECT_EQ(ErrorOfAmountsOf(R"(["EUR"])"),
              "f: /amounts: a list is not allowed; expected an object");
}

TEST(AmountsByCurrency, AreWrittenAsTheyAreReadBack) {
    const std::vector<std::string> all = {
        R"({"min":50,"max":100})", R"({"EUR":{"min":50}})", R"({"USD":{"min":40}})",
        R"({"EUR":{"min":50,"max":60,"step":5,"buttons":[55]},"USD":{"buttons":[20]},"GBP":{}})"};
    for (const std::string& amounts : all) {
        const Dispenser dispenser = WithAmounts(amounts);
        const Json written = DispenserJson(dispenser);
        const Dispenser again = ReadDispenser(written, Place("f"));
        EXPECT_EQ(DispenserJson(again), written) << amounts;
        for (const std::string& currency : CurrenciesOf(dispenser)) {
            EXPECT_EQ(DispenserJson(InCurrency(again, currency)),
                      DispenserJson(InCurrency(dispenser, currency)))
                << amounts << " in " << currency;
        }
    }
    EXPECT_TRUE(DispenserJson(WithAmounts(all[0]))["amounts"].contains("min")) << "one list stays";
    EXPECT_EQ(DispenserJson(WithAmounts(all[2]))["amounts"]["EUR"]["max"], 500);
}

TEST(AmountsByCurrency, AreOfCurrenciesThatCanBePaidOrAreNamed) {
    EXPECT_EQ(CurrenciesOf(ReadInlineDispenser("EUR:50x1")), (Currencies{"EUR"}));
    EXPECT_EQ(
        CurrenciesOf(ReadInlineDispenser("EUR:USD50x1,CHF20x1:recycling,USD5x1,GBP5x1:coupon")),
        (Currencies{"EUR", "USD", "CHF", "GBP"}));
    EXPECT_EQ(CurrenciesOf(ReadInlineDispenser("EUR:50x1,USD50x1:rejectCassette,CHF5x1:empty")),
              (Currencies{"EUR", "CHF"}))
        << "no mix ever draws from what is rejected";
    EXPECT_EQ(CurrenciesOf(WithAmounts(R"({"JPY":{},"GBP":{}})")),
              (Currencies{"EUR", "USD", "GBP", "JPY"}));
}

TEST(AmountsByCurrency, HaveAPlaceOfTheirOwnInTheFile) {
    EXPECT_EQ(AmountsPointer(WithAmounts(R"({"min":50})")), "/amounts");
    EXPECT_EQ(AmountsPointer(InCurrency(WithAmounts(R"({"min":50})"), "USD")), "/amounts/USD");
    EXPECT_EQ(AmountsPointer(WithAmounts(R"({"EUR":{}})")), "/amounts/EUR");
}

}  // namespace
}  // namespace qxmix
