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
