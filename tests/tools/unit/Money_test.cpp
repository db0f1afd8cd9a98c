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

TEST(Money, IsShortenedFromFortyOneCharactersOn) {
    EXPECT_EQ(ReadableText(MoneyOf(std::string(40, '7'))), std::string(40, '7'));
    EXPECT_EQ(ReadableText(MoneyOf(std::string(41, '7'))), std::string(40, '7') + "...e1");
    EXPECT_EQ(ReadableText(MoneyOf(std::string(40, '7') + "0")), std::string(40, '7') + "e1");
    EXPECT_EQ(ReadableText(Money(), 38), "0." + std::string(38, '0'));
    EXPECT_EQ(ReadableText(Money(), 39), "0") << "41 characters";
    EXPECT_EQ(ReadableText(MoneyOf("7"), 39), "7e0");
    EXPECT_EQ(ReadableText(MoneyOf("7"), 40), "7e0");
    const std::string both = std::string(30, '7') + "." + std::string(9, '3');
    EXPECT_EQ(ReadableText(MoneyOf(both)), both);
    EXPECT_EQ(ReadableText(MoneyOf(both + "3")), std::string(30, '7') + "3333333333e-10");
    EXPECT_EQ(ReadableText(MoneyOf(both + "33")), std::string(30, '7') + "3333333333...e-10");
    EXPECT_EQ(ReadableText(Money::Of(105, -41)), "105e-41");
}

TEST(Money, CountsInAUnitWhereThatIsExact) {
    const auto in = [](const char* text, int exponent) {
        const auto count = MoneyOf(text).In(exponent);
        return count ? std::to_string(*count) : "none";
    };
    EXPECT_EQ(in("280", 0), "280");
    EXPECT_EQ(in("280", 1), "28");
    EXPECT_EQ(in("280", 2), "none");
    EXPECT_EQ(in("280", -2), "28000");
    EXPECT_EQ(in("70.5", -1), "705");
    EXPECT_EQ(in("70.5", -2), "7050");
    EXPECT_EQ(in("70.5", 0), "none");
    EXPECT_EQ(in("0", 3), "0");
    EXPECT_EQ(in("0", -3), "0");
    EXPECT_EQ(in("0.1", 5), "none");
    EXPECT_EQ(in("1000", 3), "1");
    EXPECT_EQ(in("1000", 4), "none");
    EXPECT_EQ(in("4294967295", 0), "4294967295");
    EXPECT_EQ(in("4294967296", 0), "none");
    EXPECT_EQ(in("42949672.95", -2), "4294967295");
    EXPECT_EQ(in("42949672.96", -2), "none");
    EXPECT_EQ(in("42949672950", 1), "4294967295");
    EXPECT_EQ(in("42949672960", 1), "none");
    EXPECT_EQ(in("99999999999999999999999", 0), "none");
}

TEST(Money, ComparesDigitByDigitFromTheHighest) {
    const std::vector<const char*> rising = {"0",   "0.09", "0.1",  "0.11", "0.9", "1",  "1.01",
                                             "9.9", "10",   "10.5", "11",   "99",  "100"};
    for (std::size_t left = 0; left < rising.size(); ++left) {
        for (std::size_t right = 0; right < rising.size(); ++right) {
            const Money one = MoneyOf(rising[left]);
            const Money other = MoneyOf(rising[right]);
            EXPECT_EQ(one < other, left < right) << rising[left] << " " << rising[right];
            EXPECT_EQ(one > other, left > right) << rising[left] << " " << rising[right];
            EXPECT_EQ(one == other, left == right) << rising[left] << " " << rising[right];
        }
    }
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
