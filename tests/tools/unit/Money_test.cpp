#include "dispenser/Money.h"
#include "dispenser/ReadableMoney.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Money Read(const std::string& text) {
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
    EXPECT_EQ(Read("0.50").Text(), "0.5");
    EXPECT_EQ(Read("007").Text(), "7");
    EXPECT_EQ(Read("12345678901234567890.125").Text(), "12345678901234567890.125");
    for (const char* text : {"", ".", ".5", "5.", "-1", "+1", "1e2", "1.2.3", " 1", "1,5"}) {
        EXPECT_FALSE(Money::Parse(text)) << text;
    }
}

TEST(Money, ShowsAsManyDecimalsAsAskedAndNeverFewerThanItNeeds) {
    EXPECT_EQ(Read("70.5").Text(2), "70.50");
    EXPECT_EQ(Read("70").Text(2), "70.00");
    EXPECT_EQ(Read("70.125").Text(2), "70.125");
    EXPECT_EQ(Money().Text(), "0");
    EXPECT_EQ(Money().Text(2), "0.00");
}

TEST(Money, ShowsWholeNumbersToPeopleWithoutDecimals) {
    EXPECT_EQ(Read("50.00").ShortText(), "50");
    EXPECT_EQ(Read("0.5").ShortText(), "0.50");
    EXPECT_EQ(Read("0.125").ShortText(), "0.125");
}

TEST(Money, AddsUnlikeDecimalsExactly) {
    Money sum = Read("0.1");
    sum += Read("0.25");
    sum += Read("999.65");
    EXPECT_EQ(sum.Text(), "1000");
    sum += Read("0.0001");
    EXPECT_EQ(sum.Text(), "1000.0001");
}

TEST(Money, MultipliesBeyondSixtyFourBits) {
    EXPECT_EQ(Read("9999999999.9999").Times(4294967295U).Text(), "42949672949999570503.2705");
    EXPECT_TRUE(Read("12.5").Times(0).IsZero());
    EXPECT_EQ(Read("0.5").Times(2).Text(), "1");
}

TEST(Money, ShortensForPeopleWhatNobodyCanRead) {
    EXPECT_EQ(ReadableText(Money::Of(60, -32768), 32768), "6e-32767");
    EXPECT_EQ(ReadableText(Money::Of(4294967295U, 32767)), "4294967295e32767");
    EXPECT_EQ(ReadableText(Money(), 32768), "0");
    EXPECT_EQ(ReadableText(Money::Of(7050, -2), 2), "70.50");
    EXPECT_EQ(ReadableText(Money::Of(1, 38)), "1" + std::string(38, '0')) << "that can be read";
    const std::string longest = std::string(60, '7');
    EXPECT_EQ(ReadableText(Read(longest)), std::string(40, '7') + "...e20");
    EXPECT_EQ(Read(longest).Text(), longest);
}

TEST(Money, ComparesByValueWhateverTheDecimals) {
    EXPECT_TRUE(Read("70.50") == Read("70.5"));
    EXPECT_TRUE(Read("9") < Read("10"));
    EXPECT_TRUE(Read("0.1") > Read("0.09"));
    EXPECT_TRUE(Read("1.01") > Read("1"));
    EXPECT_TRUE(Money() == Read("0.000"));
    EXPECT_TRUE(Money::Of(1, 32767) > Money::Of(4294967295U, 0));
    EXPECT_TRUE(Money::Of(4294967295U, -32768) < Read("0.0001"));
}

}  // namespace
}  // namespace qxmix
