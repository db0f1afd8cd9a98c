#include "ErrorText.h"
#include "sheets/AmountColumn.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Amounts = std::vector<std::uint32_t>;
using Lines = std::vector<std::string>;

/// The amounts of a column at a dispenser whose unit is 10 to this power.
Amounts AmountsOf(const Lines& texts, std::int16_t exponent = 0, std::string* money = nullptr) {
    Dispenser dispenser;
    dispenser.currency = "EUR";
    dispenser.exponent = exponent;
    AmountColumn column("list.csv", dispenser);
    for (std::size_t place = 0; place < texts.size(); ++place) {
        column.Add(texts[place], place + 2);
    }
    Amounts amounts = column.Amounts();
    if (money != nullptr) {
        *money = column.MoneyText();
    }
    return amounts;
}

std::string ErrorOfAmounts(const Lines& texts, std::int16_t exponent = 0) {
    return ErrorText([&] { AmountsOf(texts, exponent); });
}

std::string OpenError(const std::string& where, const std::string& text) {
    return "list.csv:" + where + ": amount: " + text +
           " has thousands or decimals, and no row decides it; expected amounts without thousands "
           "separators";
}

TEST(AmountColumn, ReadsThousandsAndDecimalsThatAreNone) {
    for (const char* text : {"1234", "1234.00", "1234,00", "1,234.00", "1.234,00", "1'234.00",
                             "1'234", "1 234", "1 234,0",
                             "1\xE2\x80\x99"
                             "234",
                             "1\xC2\xA0"
                             "234,00",
                             "1\xE2\x80\xAF"
                             "234",
                             "1\xE2\x80\x89"
                             "234",
                             "01234", "1234.0000"}) {
        EXPECT_EQ(AmountsOf({text}), Amounts{1234}) << text;
    }
    EXPECT_EQ(AmountsOf({"1,234,567", "50"}), (Amounts{1234567, 50}));
    EXPECT_EQ(AmountsOf({"123,456,789"}), Amounts{123456789});
    EXPECT_EQ(AmountsOf({"12,345,678"}), Amounts{12345678});
    EXPECT_EQ(AmountsOf({"123'456"}), Amounts{123456});
    EXPECT_EQ(AmountsOf({"12,34,567.00"}), Amounts{1234567}) << "as in India";
    EXPECT_EQ(AmountsOf({"1,23,456"}), Amounts{123456});
    EXPECT_EQ(AmountsOf({"0", "4,294,967,295"}), (Amounts{0, 4294967295}));
}

TEST(AmountColumn, LetsTheColumnDecideWhatOneMarkIs) {
    EXPECT_EQ(AmountsOf({"1,234"}), Amounts{1234}) << "1.234 is no multiple of 1";
    EXPECT_EQ(AmountsOf({"1.000", "50"}), (Amounts{1000, 50})) << "small amounts have no decimals";
    EXPECT_EQ(AmountsOf({"1.000", "50,00"}), (Amounts{1000, 50}));
    EXPECT_EQ(AmountsOf({"1.000", "50.00"}), (Amounts{1, 50}));
    EXPECT_EQ(AmountsOf({"1.000", "1,000,000"}), (Amounts{1, 1000000}));
    EXPECT_EQ(AmountsOf({"1'000", "20.000"}), (Amounts{1000, 20}));
    EXPECT_EQ(AmountsOf({"0.000", "20.000"}), (Amounts{0, 20}));
    EXPECT_EQ(AmountsOf({"1'234'567", "50,00"}), (Amounts{1234567, 50}));
    EXPECT_EQ(AmountsOf({"1'234'567", "50.00"}), (Amounts{1234567, 50}));
    EXPECT_EQ(AmountsOf({"1.234.567", "50,00"}), (Amounts{1234567, 50}));
    EXPECT_EQ(AmountsOf({"1.000", "5"}), (Amounts{1000, 5}));
    EXPECT_EQ(AmountsOf({"1.000", "500"}), (Amounts{1000, 500}));
    EXPECT_EQ(AmountsOf({"5", "1.000", "500"}, -2), (Amounts{5, 1000, 500}));
    EXPECT_EQ(AmountsOf({"1,000", "20.00"}, -2), (Amounts{100000, 2000}));
}

TEST(AmountColumn, GuessesNothing) {
    EXPECT_EQ(ErrorOfAmounts({"1.000", "20.000"}), OpenError("2", "1.000"));
    EXPECT_EQ(ErrorOfAmounts({"1.000", "2000"}), OpenError("2", "1.000")) << "2000 has no mark";
    EXPECT_EQ(ErrorOfAmounts({"1,250", "50", "1.250"}), OpenError("4", "1.250"));
    EXPECT_EQ(ErrorOfAmounts({"50", "1.250"}, -3), OpenError("3", "1.250"));
    EXPECT_EQ(AmountsOf({"1.250", "0.5"}, -3), (Amounts{1250, 500}));
    EXPECT_EQ(ErrorOfAmounts({"1,234.00", "50,00"}),
              "list.csv:3: amount: 50,00 has a comma before decimals; expected a point as in line "
              "2 (1,234.00)");
}

TEST(AmountColumn, TakesAMarkThatPartsThousandsForNoDecimals) {
    EXPECT_EQ(ErrorOfAmounts({"1,234,567", "50,00"}),
              "list.csv:3: amount: 50,00 has a comma before decimals; expected a point as in line "
              "2 (1,234,567)");
    EXPECT_EQ(ErrorOfAmounts({"1.234.567", "50.00"}),
              "list.csv:3: amount: 50.00 has a point before decimals; expected a comma as in line "
              "2 (1.234.567)");
}

TEST(AmountColumn, TakesNoMarksWithinAGroup) {
    for (const char* text : {"1.0,0,00", "1,0.0.00", "1'0.0'000", "1,2'3,000"}) {
        EXPECT_NE(ErrorOfAmounts({text}).find("is not allowed"), std::string::npos) << text;
    }
}

TEST(AmountColumn, ReadsOrRefusesWhateverMarksThereAre) {
    const std::string characters = "10.,'";
    constexpr unsigned kMost = 7;
    std::vector<std::string> texts = {""};
    for (std::size_t next = 0; next < texts.size(); ++next) {
        const std::string text = texts[next];
        ErrorOfAmounts({text});  // anything but an amount or this kind of error ends the test
        for (const char character : characters) {
            if (text.size() < kMost) {
                texts.push_back(text + character);
            }
        }
    }
    EXPECT_EQ(texts.size(), 97656U);
}

TEST(AmountColumn, RefusesMoneyThatCannotBePaid) {
    EXPECT_EQ(ErrorOfAmounts({"50.50"}),
              "list.csv:2: amount: 50.50 cannot be paid; expected a multiple of 1 EUR");
    EXPECT_EQ(ErrorOfAmounts({"50.00", "1.250"}),
              "list.csv:3: amount: 1.250 cannot be paid; expected a multiple of 1 EUR");
    EXPECT_EQ(ErrorOfAmounts({"70.5", "70.505"}, -2),
              "list.csv:3: amount: 70.505 cannot be paid; expected a multiple of 0.01 EUR");
    EXPECT_EQ(ErrorOfAmounts({"1500.00"}, 3),
              "list.csv:2: amount: 1500.00 cannot be paid; expected a multiple of 1000 EUR");
    EXPECT_EQ(ErrorOfAmounts({"4294967296"}),
              "list.csv:2: amount: 4294967296 is not allowed; expected 0 "
              "to 4294967295 in units of 1 EUR");
    EXPECT_EQ(ErrorOfAmounts({"42949672.96"}, -2),
              "list.csv:2: amount: 42949672.96 is not allowed; expected 0 to 4294967295 in units "
              "of 0.01 EUR");
}

TEST(AmountColumn, ReadsUnitsUnlessOneHasDecimals) {
    std::string money;
    EXPECT_EQ(AmountsOf({"7050", "2,005"}, -2, &money), (Amounts{7050, 2005}));
    EXPECT_EQ(money, "");
    EXPECT_EQ(AmountsOf({"70", "70.5", "1,070.50"}, -2, &money), (Amounts{7000, 7050, 107050}));
    EXPECT_EQ(money, "70.5");
    EXPECT_EQ(AmountsOf({"5,000.00", "20000"}, 3, &money), (Amounts{5, 20}));
    EXPECT_EQ(money, "5,000.00");
    EXPECT_EQ(AmountsOf({"50.00"}, 0, &money), Amounts{50});
    EXPECT_EQ(money, "") << "a unit is money anyway";
}

TEST(AmountColumn, RefusesWhatIsNoAmount) {
    for (const char* text :
         {"",           "-50",           "+50",           "50 EUR",     "50.",
          ".50",        "1,,234",        "1,23",          "12,3456.00", "1,234'567",
          "1.234.56",   "1'23",          "1,234.567.890", "1,2345,678", "1e3",
          "1 2",        "12345,678,901", "0x10",          "\xD9\xA1",   "1'23.50",
          "1'23.00",    "12'34,5",       "1 23.5",        "1234'567",   "1'2345",
          "123,45,678", "1,23,4567"}) {
        const std::string error = ErrorOfAmounts({text});
        EXPECT_NE(error, "accepted") << text;
    }
    EXPECT_EQ(ErrorOfAmounts({"-50"}),
              "list.csv:2: amount: -50 is not allowed; expected 0 to 4294967295 "
              "in units of 1 EUR");
}

}  // namespace
}  // namespace qxmix
