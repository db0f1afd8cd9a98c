#include "ErrorText.h"
#include "dispenser/InlineDispenser.h"
#include "mixes/MixTraits.h"
#include "options/AskOptions.h"
#include "options/MixList.h"
#include "text/Duration.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Mixes = std::vector<std::uint16_t>;

TEST(MixList, ReadsNumbersRangesAndAll) {
    EXPECT_EQ(ParseMixList("4", "--mixes"), (Mixes{4}));
    EXPECT_EQ(ParseMixList("1,3-5", "--mixes"), (Mixes{1, 3, 4, 5}));
    EXPECT_EQ(ParseMixList("10,2,2,1-3", "--mixes"), (Mixes{1, 2, 3, 10}));
    EXPECT_EQ(ParseMixList("all", "--mixes"), AllMixes());
}

TEST(MixList, RefusesWhatIsNoMix) {
    const std::string last = std::to_string(kLastMix);
    const std::string next = std::to_string(kLastMix + 1);
    for (const std::string& text : std::vector<std::string>{
             "", "0", next, "1,", ",1", "5-3", "1-" + next, "-3", "3-", "x", "1 2", "ALL"}) {
        EXPECT_EQ(ErrorText([&text] { ParseMixList(text, "--mixes"); }),
                  "--mixes: " + text + " is not allowed; expected mixes from 1 to " + last +
                      " such as 1,3-5, or all");
    }
}

TEST(Duration, ReadsSecondsAndMilliseconds) {
    EXPECT_EQ(ParseDuration("2s"), std::chrono::milliseconds(2000));
    EXPECT_EQ(ParseDuration("100ms"), std::chrono::milliseconds(100));
    EXPECT_EQ(ParseDuration("1ms"), std::chrono::milliseconds(1));
    EXPECT_EQ(ParseDuration("86400s"), std::chrono::milliseconds(86400000));
    for (const char* text : {"", "2", "s", "0s", "0ms", "-1s", "1.5s", "86401s", "86400001ms",
                             "2 s", "2S", "99999999999999999999s", "9223372036854775807s"}) {
        EXPECT_FALSE(ParseDuration(text)) << text;
    }
}

TEST(Duration, IsWrittenInWholeSecondsWherePossible) {
    EXPECT_EQ(DurationText(std::chrono::milliseconds(2000)), "2s");
    EXPECT_EQ(DurationText(std::chrono::milliseconds(1500)), "1500ms");
    EXPECT_EQ(DurationWords(std::chrono::milliseconds(2000)), "2 s");
    EXPECT_EQ(DurationWords(std::chrono::milliseconds(100)), "100 ms");
}

Dispenser DispenserWith(std::int16_t exponent) {
    Dispenser dispenser = ReadInlineDispenser("CHF:50x10");
    dispenser.exponent = exponent;
    return dispenser;
}

std::string AmountError(const std::string& text, std::int16_t exponent) {
    return ErrorText([&] { ParseAmount(text, "--amount", DispenserWith(exponent)); });
}

TEST(ParseAmount, TakesWholeNumbersOfThirtyTwoBits) {
    EXPECT_EQ(ParseAmount("0", "--amount", DispenserWith(0)), 0U);
    EXPECT_EQ(ParseAmount("4294967295", "--amount", DispenserWith(-2)), 4294967295U);
    EXPECT_EQ(AmountError("4294967296", 0),
              "--amount: 4294967296 is not allowed; expected 0 to 4294967295 in units of 1 CHF");
    EXPECT_EQ(AmountError("-5", 2),
              "--amount: -5 is not allowed; expected 0 to 4294967295 in units of 100 CHF");
}

TEST(ParseAmount, SaysHowToWriteAnAmountOfMoney) {
    EXPECT_EQ(AmountError("70.50", -2),
              "--amount: 70.50 is not a whole number; in units of 0.01 CHF write 7050");
    EXPECT_EQ(AmountError("70.5", -2),
              "--amount: 70.5 is not a whole number; in units of 0.01 CHF write 7050");
    EXPECT_EQ(AmountError("0.05", -2),
              "--amount: 0.05 is not a whole number; in units of 0.01 CHF write 5");
    EXPECT_EQ(AmountError("0.00", -2),
              "--amount: 0.00 is not a whole number; in units of 0.01 CHF write 0");
}

TEST(ParseAmount, KnowsMoneyThatTheUnitCannotExpress) {
    EXPECT_EQ(AmountError("70.505", -2),
              "--amount: 70.505 is not a whole number; expected whole units of 0.01 CHF");
    EXPECT_EQ(AmountError("70.50", 0),
              "--amount: 70.50 is not a whole number; expected whole units of 1 CHF");
    EXPECT_EQ(AmountError("99999999.99", -2),
              "--amount: 99999999.99 is not a whole number; expected whole units of 0.01 CHF");
}

TEST(AskOptions, WinOverTheDispenser) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x10");
    AskOptions options;
    options.currency = "USD";
    options.exponent = static_cast<std::int16_t>(-2);
    options.limit = static_cast<std::uint16_t>(7);
    options.partial = true;
    options.ApplyTo(dispenser);
    EXPECT_EQ(dispenser.currency, "USD");
    EXPECT_EQ(dispenser.cassettes[0].currency, "EUR");
    EXPECT_EQ(dispenser.exponent, -2);
    EXPECT_EQ(dispenser.maxDispenseItems, 7);
    EXPECT_TRUE(dispenser.partial);
}

TEST(AskOptions, NameTheMixesToAsk) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x10");
    dispenser.mix = static_cast<std::uint16_t>(4);
    AskOptions options;
    EXPECT_EQ(options.Mixes(dispenser), (Mixes{4}));
    options.mix = "9";
    EXPECT_EQ(options.Mixes(dispenser), (Mixes{9}));
    EXPECT_FALSE(options.AsksList());
    options.mix = "all";
    EXPECT_EQ(options.Mixes(dispenser), AllMixes());
    EXPECT_TRUE(options.AsksList());
    options.mix = "4711";
    EXPECT_EQ(ErrorText([&] { options.Mixes(dispenser); }),
              "--mix: 4711 is not allowed; expected 1 to " + std::to_string(kLastMix) + " or all");
    options.mixes = "2";
    EXPECT_EQ(ErrorText([&] { options.Mixes(dispenser); }),
              "--mixes: given beside --mix; expected one of them");
    options.mix.clear();
    EXPECT_EQ(options.Mixes(dispenser), (Mixes{2}));
    EXPECT_TRUE(options.AsksList());
}

TEST(AmountsWithDefaults, AreTheDivisorOfTheValuesAndTenTimesTheLargest) {
    const Amounts amounts =
        AmountsWithDefaults(ReadInlineDispenser("EUR:100x1,50x1,20x1,USD500x1"));
    EXPECT_EQ(amounts.min, 10U);
    EXPECT_EQ(amounts.step, 10U);
    EXPECT_EQ(amounts.max, 1000U);
    EXPECT_TRUE(amounts.buttons.empty());
}

TEST(AmountsWithDefaults, ScaleBillsButNotCoinsUnderANegativeExponent) {
    Dispenser dispenser = ReadInlineDispenser("CHF:20x1,50x1:coinDispenser,10x1:coupon");
    dispenser.exponent = -2;
    const Amounts amounts = AmountsWithDefaults(dispenser);
    EXPECT_EQ(amounts.step, 50U);
    EXPECT_EQ(amounts.max, 20000U);
    dispenser.exponent = 2;
    EXPECT_EQ(AmountsWithDefaults(dispenser).max, 5U) << "units of 100";
}

TEST(AmountDecimals, AreThoseBehindTheUnitOfAnAmount) {
    Dispenser dispenser;
    EXPECT_EQ(AmountDecimals(dispenser), 0U);
    dispenser.exponent = 2;
    EXPECT_EQ(AmountDecimals(dispenser), 0U);
    dispenser.exponent = -2;
    EXPECT_EQ(AmountDecimals(dispenser), 2U);
}

TEST(AmountsWithDefaults, CountUnitsOfAPositiveExponent) {
    Dispenser dispenser = ReadInlineDispenser("JPY:10000x800,5000x200,1000x900");
    dispenser.exponent = 3;
    const Amounts amounts = AmountsWithDefaults(dispenser);
    EXPECT_EQ(amounts.min, 1U);
    EXPECT_EQ(amounts.step, 1U);
    EXPECT_EQ(amounts.max, 100U);
    dispenser.exponent = 32767;
    EXPECT_EQ(AmountsWithDefaults(dispenser).max, 1U) << "none below one unit";
}

TEST(AmountsWithDefaults, StayAmountsWhateverTheValues) {
    Dispenser dispenser = ReadInlineDispenser("CHF:4294967295x1,0x1");
    dispenser.exponent = -32768;
    EXPECT_EQ(AmountsWithDefaults(dispenser).max, 4294967295U);
    EXPECT_EQ(AmountsWithDefaults(ReadInlineDispenser("CHF:EUR50x1")).min, 1U);
    EXPECT_EQ(AmountsWithDefaults(ReadInlineDispenser("CHF:0x1")).step, 1U);
}

TEST(AmountsWithDefaults, KeepWhatTheFileSays) {
    Dispenser dispenser = ReadInlineDispenser("CHF:50x1");
    dispenser.amounts["CHF"].max = 75U;
    EXPECT_EQ(AmountsWithDefaults(dispenser).max, 75U);
    EXPECT_EQ(AmountsWithDefaults(dispenser).min, 50U);
}

}  // namespace
}  // namespace qxmix
