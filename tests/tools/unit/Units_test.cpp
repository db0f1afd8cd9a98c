#include "units/Units.h"

#include "dispenser/InlineDispenser.h"
#include "requests/Request.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

constexpr std::uint32_t kMinimum = 100;

Units UnitsOf(const Dispenser& dispenser, std::uint16_t mix, std::uint32_t minimum = kMinimum) {
    return Units(BuildRequest(dispenser, 80, mix), minimum);
}

Units UnitsOf(const char* dispenser, std::uint16_t mix, std::uint32_t minimum = kMinimum) {
    return UnitsOf(ReadInlineDispenser(dispenser), mix, minimum);
}

/// Why a mix passes the first unit over.
std::optional<Dropped> FirstDropped(const char* dispenser, std::uint16_t mix) {
    return UnitsOf(dispenser, mix).All().front().dropped;
}

TEST(Units, GroupCassettesOfOneNoteAndKeepTheirPlaces) {
    const Units units = UnitsOf("EUR:50x10,20x30,50x5", 1);
    ASSERT_EQ(units.All().size(), 2U);
    EXPECT_EQ(units.All()[0].cassettes, (std::vector<std::size_t>{0, 2}));
    EXPECT_EQ(units.All()[0].counted, 15U);
    EXPECT_EQ(units.All()[1].cassettes, (std::vector<std::size_t>{1}));
}

TEST(Units, KeepPlacesApartFromPositions) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x10,20x30");
    dispenser.cassettes[0].position = 1;
    dispenser.cassettes[1].position = 1;
    const Units units = UnitsOf(dispenser, 1);
    EXPECT_EQ(units.All()[0].cassettes.front(), 0U);
    EXPECT_EQ(units.All()[1].cassettes.front(), 1U);
}

TEST(Units, StandInTheOrderOfTheMix) {
    const char* const dispenser = "EUR:50x10,20x900,100x1";
    const std::vector<std::pair<std::uint16_t, std::vector<std::uint32_t>>> orders = {
        {1, {100, 50, 20}}, {10, {20, 50, 100}}, {4, {20, 50, 100}}, {9, {20}}};
    for (const auto& [mix, expected] : orders) {
        std::vector<std::uint32_t> values;
        for (const Unit& unit : UnitsOf(dispenser, mix).Kept()) {
            values.push_back(unit.searched);
        }
        EXPECT_EQ(values, expected) << "mix " << mix;
    }
}

TEST(Units, TellTheTypeThatNoMixDrawsFrom) {
    EXPECT_EQ(FirstDropped("EUR:50x10:rejectCassette", 1), Dropped::Type);
    EXPECT_EQ(FirstDropped("EUR:50x200:recycling", 8), Dropped::Type);
    EXPECT_EQ(FirstDropped("EUR:50x200:recycling", 9), std::nullopt);
}

TEST(Units, TellTheStatusThatIsPassedOver) {
    EXPECT_EQ(FirstDropped("EUR:50x10:empty", 1), Dropped::Status);
    EXPECT_EQ(FirstDropped("EUR:50x10:low", 1), std::nullopt);
    EXPECT_EQ(FirstDropped("EUR:50x10:low", 5), Dropped::Status);
    EXPECT_EQ(FirstDropped("EUR:50x200:empty", 6), Dropped::Status);
    EXPECT_EQ(FirstDropped("EUR:50x10:empty", 6), Dropped::Status);
    EXPECT_EQ(FirstDropped("EUR:50x200:manipulated", 9), Dropped::Status);
}

TEST(Units, TellTheMinimumThoughTheLineNamesTheStatus) {
    for (const std::uint16_t mix : std::vector<std::uint16_t>{6, 7, 8, 9}) {
        EXPECT_EQ(FirstDropped("EUR:50x100", mix), Dropped::Minimum) << "mix " << mix;
        EXPECT_EQ(FirstDropped("EUR:50x101", mix), std::nullopt) << "mix " << mix;
    }
    EXPECT_EQ(FirstDropped("EUR:50x100", 1), std::nullopt);
    EXPECT_EQ(UnitsOf("EUR:50x100", 6, 99).All().front().dropped, std::nullopt);
}

TEST(Units, TellCountsThatAreNoneOrReadAsNegative) {
    for (const std::uint16_t mix : std::vector<std::uint16_t>{1, 4, 5, 6, 9}) {
        EXPECT_EQ(FirstDropped("EUR:50x0", mix), Dropped::Count) << "mix " << mix;
    }
    EXPECT_EQ(FirstDropped("EUR:50x2147483648", 1), Dropped::Count);
    EXPECT_EQ(FirstDropped("EUR:50x2147483648", 9), std::nullopt);
}

TEST(Units, TellWhatIsWorthNothingAndIsNoCoupon) {
    EXPECT_EQ(FirstDropped("EUR:0x200", 1), Dropped::Value);
    EXPECT_EQ(FirstDropped("EUR:0x200", 9), Dropped::Value);
    EXPECT_EQ(FirstDropped("EUR:0x200:coupon", 1), std::nullopt);
}

TEST(Units, TellTheCurrencyOfWhichTheModuleSaysNothing) {
    EXPECT_EQ(FirstDropped("EUR:USD50x200", 1), Dropped::Currency);
    EXPECT_EQ(FirstDropped("EUR:USD50x200", 9), Dropped::Currency);
}

TEST(Units, BringNotesButNoCoinsToTheUnitOfTheAmount) {
    Dispenser dispenser = ReadInlineDispenser("CHF:50x200,20x300:coinDispenser");
    dispenser.exponent = -2;
    EXPECT_EQ(UnitsOf(dispenser, 1).All()[0].searched, 5000U);
    EXPECT_EQ(UnitsOf(dispenser, 1).All()[1].searched, 20U);
    EXPECT_EQ(UnitsOf(dispenser, 9).All()[0].searched, 50U);
    dispenser.exponent = 2;
    EXPECT_EQ(UnitsOf(dispenser, 1).All()[0].searched, 50U);
    EXPECT_EQ(UnitsOf(dispenser, 1).Amount(), 8000U);
}

TEST(Units, NameTheValueThatTheAmountMustReach) {
    EXPECT_EQ(UnitsOf("EUR:50x10,20x30", 1).ValueToReach(), 20U);
    EXPECT_EQ(UnitsOf("EUR:50x10,20x30", 10).ValueToReach(), 20U);
    EXPECT_EQ(UnitsOf("EUR:50x10,20x30", 4).ValueToReach(), std::nullopt);
    EXPECT_EQ(UnitsOf("EUR:50x10:empty", 1).ValueToReach(), std::nullopt);
}

TEST(Units, HoldNotesAndCoinsToTheLimitApart) {
    const Units units = UnitsOf("EUR:50x100,2x100:coinDispenser", 1);
    EXPECT_TRUE(units.PassesLimit({40, 40}));
    EXPECT_FALSE(units.PassesLimit({41, 0}));
    EXPECT_FALSE(units.PassesLimit({0, 41}));
}

TEST(Units, BecomeOneGivingCassetteEach) {
    const MixRequest request =
        UnitsOf("EUR:50x10:full,20x7:empty,50x5,10x3", 1).OneCassettePerUnit();
    ASSERT_EQ(request.usNumPhysicalCUs, 2);
    EXPECT_EQ(request.aPhysicalCUs[0].ulCount, 15U);
    EXPECT_EQ(request.aPhysicalCUs[0].usStatus, 0);
    EXPECT_EQ(request.aPhysicalCUs[1].ulValues, 10U);
    EXPECT_EQ(request.aPhysicalCUs[1].usPosition, 1);
}

}  // namespace
}  // namespace qxmix
