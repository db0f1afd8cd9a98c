#include "dispenser/Money.h"
#include "dispenser/ReadableMoney.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Money MoneyOf(const std::string& text) {
    return Money::Parse(text).value();
}

TEST(Money, CountsAmountsInUnitsOfAPowerOfTen) {
    EXPECT_EQ(Money::Of(280, 0).Text(), "280");
    EXPECT_EQ(Money::Of(7050, -2).Text(), "70.5");
    EXPECT_EQ(Money::Of(5, 2).Text(), "500");
    EXPECT_EQ(Money::Of(1, -4).Text(), "0.0001");
    EXPECT_EQ(Money::Of(4294967295U, 3).Text(), "4294967295000");
}

TEST(Money, ReadsOnlyDigitsWithAPointBetweenThem) {
    EXPECT_EQ(MoneyOf("0.50").Text(), "0.5");
    EXPECT_EQ(MoneyOf("007").Text(), "7");
    EXPECT_EQ(MoneyOf("12345678901234567890.125").Text(), "12345678901234567890.125");
    for (const char* text : {"", ".", ".5", "5.", "-1", "+1", "1e2", "1.2.3", " 1", "1,5"}) {
        EXPECT_FALSE(Money::Parse(text)) << text;
    }
}

TEST(Money, ShowsAsManyDecimalsAsAskedAndNeverFewerThanItNeeds) {
    EXPECT_EQ(MoneyOf("70.5").Text(2), "70.50");
    EXPECT_EQ(MoneyOf("70").Text(2), "70.00");
    EXPECT_EQ(MoneyOf("70.125").Text(2), "70.125");
    EXPECT_EQ(Money().Text(), "0");
    EXPECT_EQ(Money().Text(2), "0.00");
}

TEST(Money, ShowsWholeNumbersToPeopleWithoutDecimals) {
    EXPECT_EQ(MoneyOf("50.00").ShortText(), "50");
    EXPECT_EQ(MoneyOf("0.5").ShortText(), "0.50");
    EXPECT_EQ(MoneyOf("0.125").ShortText(), "0.125");
}

TEST(Money, AddsUnlikeDecimalsExactly) {
    Money sum = MoneyOf("0.1");
    sum += MoneyOf("0.25");
    sum += MoneyOf("999.65");
    EXPECT_EQ(sum.Text(), "1000");
    sum += MoneyOf("0.0001");
    EXPECT_EQ(sum.Text(), "1000.0001");
}

TEST(Money, MultipliesBeyondSixtyFourBits) {
    EXPECT_EQ(MoneyOf("9999999999.9999").Times(4294967295U).Text(), "42949672949999570503.2705");
    EXPECT_TRUE(MoneyOf("12.5").Times(0).IsZero());
    EXPECT_EQ(MoneyOf("0.5").Times(2).Text(), "1");
}

TEST(Money, ShortensForPeopleWhatNobodyCanRead) {
    EXPECT_EQ(ReadableText(Money::Of(60, -32768), 32768), "6e-32767");
    EXPECT_EQ(ReadableText(Money::Of(4294967295U, 32767)), "4294967295e32767");
    EXPECT_EQ(ReadableText(Money(), 32768), "0");
    EXPECT_EQ(ReadableText(Money::Of(7050, -2), 2), "70.50");
    EXPECT_EQ(ReadableText(Money::Of(1, 38)), "1" + std::string(38, '0')) << "that can be read";
    const std::string longest = std::string(60, '7');
    EXPECT_EQ(ReadableText(MoneyOf(longest)), std::string(40, '7') + "...e20");
    EXPECT_EQ(MoneyOf(longest).Text(), longest);
}

TEST(Money, ComparesByValueWhateverTheDecimals) {
    EXPECT_TRUE(MoneyOf("70.50") == MoneyOf("70.5"));
    EXPECT_TRUE(MoneyOf("9") < MoneyOf("10"));
    EXPECT_TRUE(MoneyOf("0.1") > MoneyOf("0.09"));
    EXPECT_TRUE(MoneyOf("1.01") > MoneyOf("1"));
    EXPECT_TRUE(Money() == MoneyOf("0.000"));
    EXPECT_TRUE(Money::Of(1, 32767) > Money::Of(4294967295U, 0));
    EXPECT_TRUE(Money::Of(4294967295U, -32768) < MoneyOf("0.0001"));
}

}  // namespace
}  // namespace qxmix
