#include "requests/Request.h"

#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(Request, HoldsTheDispenserAndNothingElse) {
    Dispenser dispenser = ReadInlineDispenser("EUR:100x212,USD2x500:low:coinDispenser");
    dispenser.exponent = -2;
    dispenser.partial = true;
    dispenser.maxDispenseItems = 300;
    dispenser.cassettes[1].position = 4;
    const std::string bytes = RawBytes(BuildRequest(dispenser, 0x01020304, 9));
    std::string expected(1060, '\0');
    expected.replace(0, 4, std::string("\x09\x00\x2c\x01", 4));
    expected.replace(4, 4, std::string("\x01\x00\x00\x00", 4));
    expected.replace(8, 3, "EUR");
    expected.replace(12, 2, "\xfe\xff");
    expected.replace(16, 4, "\x04\x03\x02\x01");
    expected[20] = 2;
    expected[24 + 130] = 3;
    expected.replace(24 + 137, 3, "EUR");
    expected[24 + 148] = 100;
    expected[24 + 152] = static_cast<char>(212);
    const std::size_t second = 24 + 172;
    expected[second] = 4;
    expected[second + 130] = 5;
    expected.replace(second + 137, 3, "USD");
    expected[second + 148] = 2;
    expected.replace(second + 152, 2, "\xf4\x01");
    expected[second + 164] = 3;
    EXPECT_EQ(bytes, expected);
}

TEST(Request, IsReadBackAsTheDispenserThatMadeIt) {
    const Dispenser dispenser = ReadInlineDispenser("EUR:100x212,USD2x500:low:coinDispenser");
    const Dispenser again = DispenserOfRequest(BuildRequest(dispenser, 100, 4), Dispenser{});
    EXPECT_EQ(again.mix, 4);
    EXPECT_EQ(RawBytes(BuildRequest(again, 100, 4)), RawBytes(BuildRequest(dispenser, 100, 4)));
}

TEST(Request, BorrowsLabelsAndWorthsAndNothingElse) {
    Dispenser known = ReadInlineDispenser("USD:5x5,1x1");
    known.cassettes[0].label = "A";
    known.cassettes[0].worth = Money::Parse("0.05");
    const MixRequest request = BuildRequest(ReadInlineDispenser("EUR:100x212"), 100, 1);
    const Dispenser dispenser = DispenserOfRequest(request, known);
    ASSERT_EQ(dispenser.cassettes.size(), 1U);
    EXPECT_EQ(dispenser.cassettes[0].label, "A");
    EXPECT_EQ(dispenser.cassettes[0].Worth().Text(), "0.05");
    EXPECT_EQ(dispenser.cassettes[0].value, 100U);
    EXPECT_EQ(dispenser.currency, "EUR");
}

TEST(Request, OfAnyBytesGivesADispenserOfAtMostSixCassettes) {
    MixRequest request{};
    request.usNumPhysicalCUs = 65535;
    request.bAllowPartial = 2U;
    request.cCurrencyID = {{'\0', '\xff', '\n'}};
    const Dispenser dispenser = DispenserOfRequest(request, Dispenser{});
    EXPECT_EQ(dispenser.cassettes.size(), 6U);
    EXPECT_FALSE(dispenser.partial);
    EXPECT_EQ(dispenser.currency, "???");
    request.cCurrencyID = {{'~', '!', ' '}};
    EXPECT_EQ(DispenserOfRequest(request, Dispenser{}).currency, "~!?");
    request.cCurrencyID = {{'\x7f', 'A', 'z'}};
    EXPECT_EQ(DispenserOfRequest(request, Dispenser{}).currency, "?Az");
    for (const unsigned count : {0U, 5U, 6U, 7U}) {
        request.usNumPhysicalCUs = static_cast<std::uint16_t>(count);
        EXPECT_EQ(DispenserOfRequest(request, Dispenser{}).cassettes.size(),
                  std::min<std::size_t>(count, 6));
    }
    request.bAllowPartial = 1U;
    EXPECT_TRUE(DispenserOfRequest(request, Dispenser{}).partial);
}

}  // namespace
}  // namespace qxmix
