#include "commands/explain/Explanation.h"

#include "AskedAmount.h"
#include "FakeModule.h"
#include "commands/explain/ExplainForms.h"
#include "dispenser/InlineDispenser.h"
#include "json/Json.h"
#include "text/TextList.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

const Painter kPlain(ColorMode::Never);

struct Asked {
    MixQuestions questions;
    Explanation story;
};

Asked Ask(const Dispenser& dispenser,
          std::uint32_t amount,
          std::uint16_t mix = 1,
          const char* library = QXMIX_MODULE) {
    AskedAmount asked(dispenser, amount, mix, Milliseconds(200), library);
    return {asked.questions, Explain(asked.questions, asked.answer, asked.asker)};
}

Asked Ask(const char* dispenser, std::uint32_t amount, std::uint16_t mix = 1) {
    return Ask(ReadInlineDispenser(dispenser), amount, mix);
}

std::string TextOf(const Asked& asked) {
    return ExplainText(asked.questions, asked.story, kPlain);
}

/// Whether the text says this.
testing::AssertionResult Says(const Asked& asked, const std::string& part) {
    const std::string text = TextOf(asked);
    return text.find(part) != std::string::npos ? testing::AssertionSuccess()
                                                : testing::AssertionFailure() << text;
}

TEST(Explanation, FindsNothingThatDecidedAPaidAmount) {
    const Asked asked = Ask("EUR:50x10,20x10", 70);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Nothing);
    EXPECT_EQ(asked.story.taken, (std::vector<std::uint32_t>{1, 1}));
    EXPECT_TRUE(Says(asked, "50, 20: adds up to 70"));
}

TEST(Explanation, FindsTheSmallestNote) {
    EXPECT_EQ(Ask("EUR:50x10,20x10", 19).story.decidedBy, DecidedBy::SmallestNote);
    EXPECT_EQ(Ask("EUR:50x10,20x10", 19, 10).story.decidedBy, DecidedBy::SmallestNote);
    EXPECT_EQ(Ask("EUR:50x10,20x10", 20).story.decidedBy, DecidedBy::Nothing);
}

TEST(Explanation, FindsThatNoUnitServes) {
    const Asked asked = Ask("EUR:50x10:empty,USD20x10", 50);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::NoUnits);
    EXPECT_TRUE(Says(asked, "no cassette serves it"));
}

TEST(Explanation, FindsTheCapacity) {
    EXPECT_EQ(Ask("EUR:50x2,20x3", 161).story.decidedBy, DecidedBy::Capacity);
    EXPECT_EQ(Ask("EUR:50x2,20x3", 151).story.decidedBy, DecidedBy::Search);
}

TEST(Explanation, FindsTheCapacityWhereAMixGivesNoPartialAnswer) {
    EXPECT_EQ(Ask("EUR:50x2,20x3,10x5", 2000, 4).story.decidedBy, DecidedBy::Capacity);
}

TEST(Explanation, FindsTheCapacityThatLoweredAnAmount) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x2,20x3");
    dispenser.partial = true;
    const Asked asked = Ask(dispenser, 161);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Capacity);
    EXPECT_TRUE(Says(asked, "160 EUR counted: the amount is lowered"));
}

TEST(Explanation, FindsTheLimitBehindALoweredAmount) {
    Dispenser dispenser = ReadInlineDispenser("EUR:20x4");
    dispenser.partial = true;
    dispenser.maxDispenseItems = 3;
    for (const std::uint16_t mix : std::vector<std::uint16_t>{1, 2, 3, 4, 10}) {
        const Asked asked = Ask(dispenser, 200, mix);
        EXPECT_EQ(asked.story.decidedBy, DecidedBy::Limit) << mix;
        EXPECT_TRUE(Says(asked, "what the cassettes hold takes more than 3 items"));
        EXPECT_TRUE(Says(asked, "80 EUR counted: the amount is lowered"));
        EXPECT_TRUE(Says(asked, "20: adds up to 80"));
        EXPECT_TRUE(Says(asked, "4 notes: more than 3"));
    }
}

TEST(Explanation, FindsTheNumberOfUnits) {
    const char* const five = "EUR:200x9,100x9,50x9,20x9,10x9";
    EXPECT_EQ(Ask(five, 80).story.decidedBy, DecidedBy::Nothing);
    EXPECT_EQ(Ask((std::string(five) + ",5x9").c_str(), 80).story.decidedBy, DecidedBy::UnitCount);
}

TEST(Explanation, FindsTheLimitBehindItsOwnCode) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x10,20x10");
    dispenser.maxDispenseItems = 5;
    const Asked asked = Ask(dispenser, 330);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Limit);
    EXPECT_TRUE(Says(asked, "9 notes: more than 5"));
}

TEST(Explanation, FindsTheLimitByAskingWithoutOne) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x10,20x10");
    dispenser.maxDispenseItems = 5;
    EXPECT_EQ(Ask(dispenser, 330, 3).story.decidedBy, DecidedBy::Limit);
    EXPECT_EQ(Ask(dispenser, 310, 3).story.decidedBy, DecidedBy::Limit);
    EXPECT_EQ(Ask(dispenser, 30, 3).story.decidedBy, DecidedBy::Search);
}

TEST(Explanation, FindsTheLimitThatLeftAPartialAmount) {
    Dispenser dispenser = ReadInlineDispenser("EUR:100x10,50x10,20x10");
    dispenser.maxDispenseItems = 2;
    dispenser.partial = true;
    const Asked asked = Ask(dispenser, 130, 2);
    EXPECT_EQ(asked.story.answer.outcome, Outcome::PaidInPart);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Limit);
    EXPECT_TRUE(Says(asked, "the whole takes more than 2"));
}

TEST(Explanation, FindsTheSearch) {
    EXPECT_EQ(Ask("EUR:50x10,20x10", 30).story.decidedBy, DecidedBy::Search);
    EXPECT_EQ(Ask("EUR:100x400,50x400,20x400", 110, 4).story.decidedBy, DecidedBy::Search);
}

TEST(Explanation, FindsTheSearchThatDoesNotEnd) {
    const Asked asked = Ask("EUR:50x1000,20x900,100x100,200x40", 60, 4);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Search);
    EXPECT_TRUE(Says(asked, "goes round for ever"));
}

TEST(Explanation, FindsACassetteThatIsWorthNothing) {
    const Asked asked = Ask("EUR:0x10:coupon,20x100", 40);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Search);
    EXPECT_TRUE(Says(asked, "nothing can be divided by 0"));
}

TEST(Explanation, FindsCassettesThatCountAndDoNotGive) {
    const Asked asked = Ask("EUR:20x30:empty,20x1", 60);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Spreading);
    EXPECT_TRUE(Says(asked, "20 EUR: 1 of 3 given"));
    EXPECT_EQ(std::string(NameOf(DecidedBy::Spreading)), "none");
}

TEST(Explanation, FindsAnAmountThatWrapped) {
    Dispenser dispenser = ReadInlineDispenser("EUR:100x40,2x40");
    dispenser.exponent = 3;
    const Asked asked = Ask(dispenser, 4294968);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::Amount);
    EXPECT_TRUE(Says(asked, "4294968000 is read as 704"));
}

TEST(Explanation, FindsTheMixNumber) {
    const Asked asked = Ask(ReadInlineDispenser("EUR:50x10"), 50, kLastMix + 1);
    EXPECT_EQ(asked.story.decidedBy, DecidedBy::MixNumber);
}

TEST(Explanation, TellsWhyEachUnitIsPassedOver) {
    const Asked asked =
        Ask("EUR:100x500:empty,50x500:rejectCassette,20x100,10x0,0x500,USD5x500", 50, 6);
    for (const char* reason :
         {"no: empty", "no: type rejectCassette", "no: 100, minimum 100", "no: nothing counts",
          "no: worth nothing", "no: currency is not EUR"}) {
        EXPECT_TRUE(Says(asked, reason)) << reason;
    }
    EXPECT_TRUE(Says(Ask("EUR:50x3000000000,20x5", 20), "no: reads as negative"));
}

TEST(Explanation, FitsTheTerminalWithEveryCassetteLabelled) {
    Dispenser dispenser = ReadInlineDispenser(
        "EUR:4000000000x4000000000:manipulated,50x10:inoperative,50x10:manipulated,"
        "20x10:rejectCassette,2x1000:coinDispenser,USD5x10");
    for (Cassette& cassette : dispenser.cassettes) {
        cassette.label = "the uppermost cassette of them all";
    }
    for (const std::string& line : Split(TextOf(Ask(dispenser, 66)), '\n')) {
        EXPECT_LE(ColumnsOf(line), kPlainWidth) << line;
    }
}

TEST(Explanation, SaysInJsonWhatADroppedUnitIs) {
    const Asked asked = Ask("EUR:20x0:empty,20x140:inoperative,50x10", 50);
    const Json units = ExplainJson(asked.questions, asked.story)["units"];
    EXPECT_EQ(units[0], Json::parse(R"({"cassettes":[0,1],"value":20,"currency":"EUR",
        "counted":null,"order":null,"dropped":"status","unitStatus":"inoperative"})"));
    EXPECT_EQ(units[1], Json::parse(R"({"cassettes":[2],"value":50,"currency":"EUR",
        "counted":10,"order":0,"dropped":null,"unitStatus":"ok"})"));
}

}  // namespace
}  // namespace qxmix
