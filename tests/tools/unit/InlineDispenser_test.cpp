#include "dispenser/InlineDispenser.h"

#include "ErrorText.h"
#include "NumberedName.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(InlineDispenser, BeginsWithACurrencyAndAColon) {
    EXPECT_TRUE(IsInlineDispenser("EUR:50x10"));
    EXPECT_TRUE(IsInlineDispenser("EUR:"));
    EXPECT_FALSE(IsInlineDispenser("EUR"));
    EXPECT_FALSE(IsInlineDispenser("eur:50x10"));
    EXPECT_FALSE(IsInlineDispenser("./EUR:50x10"));
    EXPECT_FALSE(IsInlineDispenser("C:file.json"));
    EXPECT_FALSE(IsInlineDispenser(""));
}

TEST(InlineDispenser, ReadsValuesCountsStatusesTypesAndCurrencies) {
    const Dispenser dispenser =
        ReadInlineDispenser("EUR:100x212,20x0:empty,2x500:coinDispenser,USD50x500");
    EXPECT_EQ(dispenser.currency, "EUR");
    EXPECT_EQ(dispenser.maxDispenseItems, 40);
    ASSERT_EQ(dispenser.cassettes.size(), 4U);
    EXPECT_EQ(dispenser.cassettes[0].value, 100U);
    EXPECT_EQ(dispenser.cassettes[0].count, 212U);
    EXPECT_EQ(dispenser.cassettes[0].type, 3);
    EXPECT_EQ(dispenser.cassettes[1].status, 4);
    EXPECT_EQ(dispenser.cassettes[2].type, 5);
    EXPECT_EQ(dispenser.cassettes[2].status, 0);
    EXPECT_EQ(dispenser.cassettes[3].currency, "USD");
    EXPECT_EQ(dispenser.cassettes[3].position, 3);
}

TEST(InlineDispenser, ReadsStatusBesideTypeAndLongNames) {
    const Dispenser dispenser =
        ReadInlineDispenser("CHF:4294967295x4294967295:low:coinCylinder,1x1:WFS_CDM_STATCUNOVAL");
    EXPECT_EQ(dispenser.cassettes[0].value, 4294967295U);
    EXPECT_EQ(dispenser.cassettes[0].status, 3);
    EXPECT_EQ(dispenser.cassettes[0].type, 4);
    EXPECT_EQ(dispenser.cassettes[1].status, 7);
}

struct Refusal {
    const char* text;
    const char* error;
};

std::string NameOf(const testing::TestParamInfo<Refusal>& one) {
    return NumberedName(one.index, one.param.text);
}

class InlineText : public testing::TestWithParam<Refusal> {};

TEST_P(InlineText, IsRefusedWithThePlaceAndWhatIsExpected) {
    EXPECT_EQ(ErrorText([] { ReadInlineDispenser(GetParam().text); }),
              std::string(GetParam().text) + ": " + GetParam().error);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Wrong, InlineText, testing::Values(
    Refusal{"EUR:", R"(/cassettes/0: "" is not allowed; expected VALUExCOUNT such as 50x100)"},
    Refusal{"EUR:50", R"(/cassettes/0: "50" is not allowed; expected VALUExCOUNT such as 50x100)"},
    Refusal{"EUR:50x1,", R"(/cassettes/1: "" is not allowed; expected VALUExCOUNT such as 50x100)"},
    Refusal{"EUR:50x", R"(/cassettes/0/count: "" is not allowed; expected 0 to 4294967295)"},
    Refusal{"EUR:x5", R"(/cassettes/0/value: "" is not allowed; expected 0 to 4294967295)"},
    Refusal{"EUR:50x-1", R"(/cassettes/0/count: "-1" is not allowed; expected 0 to 4294967295)"},
    Refusal{"EUR:4294967296x1", R"(/cassettes/0/value: "4294967296" is not allowed; expected 0 to 4294967295)"},
    Refusal{"EUR:0.5x1", R"(/cassettes/0/value: "0.5" is not allowed; expected 0 to 4294967295)"},
    Refusal{"EUR:eur5x1", R"(/cassettes/0/value: "eur5" is not allowed; expected 0 to 4294967295)"},
    Refusal{"EUR:5x1:emty", R"(/cassettes/0: unknown status or type "emty"; did you mean "empty"?)"},
    Refusal{"EUR:5x1:low:empty", "/cassettes/0: status given twice; expected once"},
    Refusal{"EUR:5x1:coupon:coupon", "/cassettes/0: type given twice; expected once"},
    Refusal{"EUR:1x1,1x1,1x1,1x1,1x1,1x1,1x1", "/cassettes: 7 cassettes; expected 1 to 6"}), NameOf);
// clang-format on

TEST(InlineDispenser, IsCutInErrorsWhereItWouldFillTheLine) {
    EXPECT_EQ(
        ErrorText([] { ReadInlineDispenser("EUR:" + std::string(100, '1') + "y"); }).substr(0, 45),
        "EUR:" + std::string(33, '1') + "...: /ca");
    const auto place = [](std::size_t size) {
        const std::string text = "EUR:" + std::string(size - 4, 'y');
        return ErrorText([&text] { ReadInlineDispenser(text); }).substr(0, 45);
    };
    EXPECT_EQ(place(40), "EUR:" + std::string(36, 'y') + ": /ca") << "as it stands";
    EXPECT_EQ(place(41), "EUR:" + std::string(33, 'y') + "...: /ca");
}

TEST(InlineDispenser, TakesACurrencyBeforeAValueAlone) {
    const Dispenser dispenser = ReadInlineDispenser("EUR:USD5x1,7x2");
    EXPECT_EQ(dispenser.cassettes[0].currency, "USD");
    EXPECT_EQ(dispenser.cassettes[0].value, 5U);
    EXPECT_EQ(dispenser.cassettes[0].count, 1U);
    EXPECT_EQ(dispenser.cassettes[1].currency, "EUR");
    EXPECT_EQ(dispenser.cassettes[1].position, 1);
    EXPECT_EQ(ErrorText([] { ReadInlineDispenser("EUR:USDx1"); }),
              "EUR:USDx1: /cassettes/0/value: \"\" is not allowed; expected 0 to 4294967295");
    EXPECT_EQ(ErrorText([] { ReadInlineDispenser("EUR:1x1,2x2:x:y"); }).substr(0, 29),
              "EUR:1x1,2x2:x:y: /cassettes/1");
}

TEST(InlineDispenser, TakesSixCassettesAndEveryNameOnce) {
    EXPECT_EQ(ReadInlineDispenser("EUR:1x1,1x1,1x1,1x1,1x1,1x1").cassettes.size(), 6U);
    const auto error = [](const char* text) {
        return ErrorText([text] { ReadInlineDispenser(text); });
    };
    EXPECT_EQ(error("EUR:1x1:coupon:low"), "accepted");
    EXPECT_EQ(error("EUR:1x1:low:coupon"), "accepted");
    EXPECT_EQ(error("EUR:1x1:low:coupon:low"),
              "EUR:1x1:low:coupon:low: /cassettes/0: status given twice; expected once");
    EXPECT_EQ(error("EUR:1x1:coupon:low:recycling"),
              "EUR:1x1:coupon:low:recycling: /cassettes/0: type given twice; expected once");
    EXPECT_EQ(error("EUR:1x1:copuon"),
              "EUR:1x1:copuon: /cassettes/0: unknown status or type \"copuon\"; did you mean "
              "\"coupon\"?");
}

}  // namespace
}  // namespace qxmix
