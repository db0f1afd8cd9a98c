#include "requests/RawIn.h"

#include "ErrorText.h"
#include "TemporaryFolder.h"
#include "dispenser/InlineDispenser.h"
#include "requests/Request.h"

#include <gtest/gtest.h>

#include <fstream>

namespace qxmix {
namespace {

class RawIn : public testing::Test {
protected:
    /// The name of a captured request.
    std::string Captured(const char* dispenser, std::uint16_t mix) const {
        MixRequest request{};
        if (*dispenser != '\0') {
            request = BuildRequest(ReadInlineDispenser(dispenser), 50, mix);
        }
        std::ofstream(name_, std::ios::binary) << RawBytes(request);
        return name_;
    }

    /// "EUR USD": the currencies that are asked.
    static std::string
    Currencies(const std::string& name, const std::string& rawIn, const AskOptions& ask = {}) {
        std::string currencies;
        for (const Dispenser& dispenser : InEachCurrency(name, rawIn, ask)) {
            currencies += (currencies.empty() ? "" : " ") + dispenser.currency;
        }
        return currencies;
    }

    const TemporaryFolder folder_;
    const std::string name_ = folder_.Name("request.bin");
};

TEST_F(RawIn, IsTheDispenserThatIsAsked) {
    const Dispenser dispenser = DispenserAsked("", Captured("EUR:50x9,USD20x9", 4), AskOptions());
    EXPECT_EQ(dispenser.cassettes.size(), 2U);
    EXPECT_EQ(dispenser.MixOrDefault(), 4);
    AskOptions ask;
    ask.limit = 7;
    EXPECT_EQ(DispenserAsked("", name_, ask).maxDispenseItems, 7) << "an option wins";
    EXPECT_EQ(DispenserAsked("EUR:10x1", "", ask).cassettes.front().value, 10U);
    EXPECT_EQ(DispenserAsked("EUR:10x1", "", ask).maxDispenseItems, 7);
    EXPECT_NE(ErrorText([] { DispenserAsked("", "", AskOptions()); }), "accepted");
}

TEST_F(RawIn, LosesAMixThatThereIsNot) {
    for (const std::uint16_t mix : {std::uint16_t{1}, std::uint16_t{kLastMix}}) {
        EXPECT_EQ(DispenserAsked("", Captured("EUR:50x9", mix), AskOptions()).mix, mix);
    }
    for (const int mix : {0, kLastMix + 1, UINT16_MAX}) {
        Captured("EUR:50x9", static_cast<std::uint16_t>(mix));
        EXPECT_EQ(DispenserAsked("", name_, AskOptions()).mix, std::nullopt) << mix;
    }
}

TEST_F(RawIn, HasACassetteAtLeast) {
    Captured("", 0);
    EXPECT_EQ(ErrorText([this] { DispenserAsked("", name_, AskOptions()); }),
              "--raw-in: " + name_ + " has no cassettes; expected one at least");
}

TEST_F(RawIn, IsAskedInItsOwnCurrencyAlone) {
    Captured("EUR:50x9,USD20x9", 1);
    EXPECT_EQ(Currencies("", name_), "EUR");
    EXPECT_EQ(Currencies("EUR:50x9,USD20x9", ""), "EUR USD");
    EXPECT_EQ(Currencies("USD:EUR50x9,USD20x9,CHF5x9", ""), "USD EUR CHF");
    AskOptions ask;
    ask.currency = "USD";
    EXPECT_EQ(Currencies("EUR:50x9,USD20x9", "", ask), "USD");
}

TEST_F(RawIn, BorrowsLabelsOfADispenser) {
    Captured("EUR:50x9", 1);
    const std::string known = folder_.Name("known.json");
    std::ofstream(known) << R"({"currency":"EUR","cassettes":[{"value":1,"count":1,"label":"A"}]})";
    EXPECT_EQ(OpenRaw(name_, known).dispenser.cassettes.front().label, "A");
    EXPECT_EQ(OpenRaw(name_, "").dispenser.cassettes.front().label, "");
    EXPECT_EQ(OpenRaw(name_, known).dispenser.cassettes.front().value, 50U);
}

}  // namespace
}  // namespace qxmix
