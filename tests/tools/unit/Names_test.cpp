#include "answers/Outcome.h"
#include "dispenser/UnitNames.h"
#include "errors/NearestName.h"
#include "registry/RegistryRules.h"

#include <gtest/gtest.h>

#include <set>

namespace qxmix {
namespace {

TEST(UnitNames, GiveEachTypeItsNumber) {
    const char* const names[] = {"notApplicable", "rejectCassette",  "billCassette", "coinCylinder",
                                 "coinDispenser", "retractCassette", "coupon"};
    std::uint16_t code = 1;
    for (const char* name : names) {
        EXPECT_EQ(TypeNames().Code(name), code) << name;
        EXPECT_EQ(TypeNames().Name(code), name);
        ++code;
    }
    EXPECT_EQ(TypeNames().Code("recycling"), 12);
    EXPECT_EQ(TypeNames().Code("WFS_CDM_TYPERECYCLING"), 12);
}

TEST(UnitNames, GiveEachStatusItsNumber) {
    const char* const names[] = {"ok",          "full",    "high",    "low",         "empty",
                                 "inoperative", "missing", "noValue", "noReference", "manipulated"};
    std::uint16_t code = 0;
    for (const char* name : names) {
        EXPECT_EQ(StatusNames().Code(name), code) << name;
        EXPECT_EQ(StatusNames().Text(code), name);
        ++code;
    }
    EXPECT_EQ(StatusNames().Code("WFS_CDM_STATCUMANIP"), 9);
}

/// Those of the device interface, all with the same beginning, by their numbers.
void ExpectXfsNames(const UnitNames& names,
                    const std::string& beginning,
                    const std::vector<std::pair<const char*, std::uint16_t>>& expected) {
    std::vector<std::string> all;
    for (const auto& [name, code] : expected) {
        all.push_back(beginning + name);
        EXPECT_EQ(names.Code(all.back()), code) << name;
    }
    EXPECT_EQ(names.XfsNames(), all);
}

TEST(UnitNames, AreAlsoThoseOfTheDeviceInterface) {
    ExpectXfsNames(TypeNames(), "WFS_CDM_TYPE",
                   {{"NA", 1},
                    {"REJECTCASSETTE", 2},
                    {"BILLCASSETTE", 3},
                    {"COINCYLINDER", 4},
                    {"COINDISPENSER", 5},
                    {"RETRACTCASSETTE", 6},
                    {"COUPON", 7},
                    {"DOCUMENT", 8},
                    {"REPCONTAINER", 11},
                    {"RECYCLING", 12}});
    ExpectXfsNames(StatusNames(), "WFS_CDM_STATCU",
                   {{"OK", 0},
                    {"FULL", 1},
                    {"HIGH", 2},
                    {"LOW", 3},
                    {"EMPTY", 4},
                    {"INOP", 5},
                    {"MISSING", 6},
                    {"NOVAL", 7},
                    {"NOREF", 8},
                    {"MANIP", 9}});
}

TEST(UnitNames, ShowACodeWithoutNameAsItsNumber) {
    EXPECT_EQ(TypeNames().Text(8), "8");
    EXPECT_EQ(StatusNames().Text(65535), "65535");
    EXPECT_FALSE(TypeNames().Name(8));
    EXPECT_FALSE(StatusNames().Code("OK"));
    EXPECT_FALSE(TypeNames().Code(""));
}

TEST(NearestName, FindsASlipOfTheFingers) {
    const std::vector<std::string> known = {"currency", "count", "value"};
    EXPECT_EQ(NearestName("curency", known), "currency");
    EXPECT_EQ(NearestName("Currency", known), "currency");
    EXPECT_EQ(NearestName("cuont", known), "count");
    EXPECT_EQ(NearestName("ocutn", known), "");
    EXPECT_EQ(NearestName("cunt", known), "count");
    EXPECT_EQ(NearestName("worth", known), "");
    EXPECT_EQ(NearestName("", known), "");
}

TEST(NearestName, ListsTheKnownNamesWhenNoneIsNear) {
    EXPECT_EQ(DidYouMean("curency", {"currency"}), "; did you mean \"currency\"?");
    EXPECT_EQ(DidYouMean("zz", {"low", "high"}), "; expected one of: low, high");
}

TEST(Outcome, HasOneRowForEachInTheOrderOfTheEnumeration) {
    ASSERT_EQ(OutcomeTable().size(), 12U);
    for (const OutcomeRow& row : OutcomeTable()) {
        EXPECT_EQ(&RowOf(row.outcome), &row) << row.name;
    }
}

TEST(Outcome, HasItsOwnNameLetterAndBadness) {
    std::set<std::string> names;
    std::set<char> letters;
    std::set<int> badness;
    for (const OutcomeRow& row : OutcomeTable()) {
        names.insert(row.name);
        letters.insert(row.letter);
        badness.insert(row.badness);
    }
    EXPECT_EQ(names.size(), 12U);
    EXPECT_EQ(letters.size(), 12U);
    EXPECT_EQ(badness.size(), 12U);
}

TEST(Outcome, OrdersLettersFromBadToGood) {
    const std::string worstFirst = "XCODfiutrnp.";
    for (const OutcomeRow& row : OutcomeTable()) {
        EXPECT_EQ(row.badness, static_cast<int>(worstFirst.size() - worstFirst.find(row.letter)))
            << row.name;
    }
}

TEST(Outcome, EndsWithTheStatusThatScriptsRelyOn) {
    for (const OutcomeRow& row : OutcomeTable()) {
        const bool isDanger = std::string("XOD").find(row.letter) != std::string::npos;
        const ExitStatus expected = row.letter == '.'   ? ExitStatus::Well
                                    : row.letter == 'C' ? ExitStatus::CannotWork
                                    : isDanger          ? ExitStatus::Danger
                                                        : ExitStatus::HonestNo;
        EXPECT_EQ(row.exitStatus, expected) << row.name;
    }
}

TEST(Outcome, ShowsCapitalLettersForWhatMustNotBeOverlooked) {
    for (const OutcomeRow& row : OutcomeTable()) {
        const bool isCapital = row.letter >= 'A' && row.letter <= 'Z';
        EXPECT_EQ(isCapital, row.exitStatus >= ExitStatus::Danger) << row.name;
    }
}

TEST(ErrorCodeMeaning, KnowsTheModulesFiveCodes) {
    EXPECT_EQ(ErrorCodeMeaning("971A2"), "not dispensable");
    EXPECT_EQ(ErrorCodeMeaning("971A3"), "more notes than the limit");
    EXPECT_EQ(ErrorCodeMeaning("971A4"), "more coins than the limit");
    EXPECT_EQ(ErrorCodeMeaning("971A5"), "no such mix");
    EXPECT_EQ(ErrorCodeMeaning("97194"), "more than five different notes");
    EXPECT_EQ(ErrorCodeMeaning("97195"), "unknown");
}

}  // namespace
}  // namespace qxmix
