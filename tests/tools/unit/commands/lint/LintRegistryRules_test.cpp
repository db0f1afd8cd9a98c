#include "LintOf.h"

namespace qxmix {
namespace {

TEST(LintQX301, FindsAMinimumThatIsNoText) {
    LintOf lint("EUR:50x10");
    lint.dispenser.registry.push_back({kCstMinimum4Mix6, kRegDword, DwordBytes(250)});
    const auto found = lint.Findings("QX301");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].pointer, "/registry/CSTMinimum4Mix6");
    EXPECT_EQ(found[0].advice, "write \"CSTMinimum4Mix6\": \"100\"");
    lint.registryFile = "device.reg";
    EXPECT_EQ(lint.Findings("QX301")[0].advice,
              "qxmix registry device.reg --set CSTMinimum4Mix6=100 --output F");
    EXPECT_EQ(Said(LintOf("EUR:50x10").Minimum("250"), "QX301"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10").Minimum("abc"), "QX301").size(), 1U);
}

TEST(LintRegistry, TellsOfEachValueUnderItsOwnRule) {
    LintOf lint("EUR:50x10");
    lint.dispenser.registry = {{kTraceLevel, kRegSz, TextBytes("3")},
                               {kCstMinimum4Mix6, kRegDword, DwordBytes(250)}};
    Lines ids;
    for (const LintFinding& finding : CheckAll(lint.Case())) {
        ids.push_back(finding.id);
    }
    EXPECT_EQ(ids, (Lines{"QX301", "QX303"}));
}

TEST(LintQX302, FindsAMinimumThatLeavesNothing) {
    EXPECT_EQ(Said(LintOf("EUR:50x250,20x90").Minimum("250").Mixes({1, 6}), "QX302"),
              (Lines{"/registry/CSTMinimum4Mix6: the minimum 250 is not below the largest unit, "
                     "250: nothing is left (mix 6)"}));
    EXPECT_EQ(Said(LintOf("EUR:50x250").Minimum("249").Mixes({6}), "QX302"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:20x90,50x120,10x7,5x9000:rejectCassette").Minimum("250").Mixes({6}),
                   "QX302"),
              (Lines{"/registry/CSTMinimum4Mix6: the minimum 250 is not below the largest unit, "
                     "120: nothing is left"}))
        << "of those that it would draw from";
    EXPECT_EQ(Said(LintOf("EUR:50x250").Minimum("-1").Mixes({9}), "QX302").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x10").Mixes({1, 5}), "QX302"), Lines{}) << "not read";
}

TEST(LintQX303, FindsATraceLevelThatIsNoNumber) {
    LintOf lint("EUR:50x10");
    lint.dispenser.registry.push_back({kTraceLevel, kRegSz, TextBytes("3")});
    EXPECT_EQ(Said(lint, "QX303").size(), 1U);
    lint.dispenser.registry.back() = {kTraceLevel, kRegDword, DwordBytes(3)};
    EXPECT_EQ(Said(lint, "QX303"), Lines{});
}

TEST(LintQX304, FindsARegistryWithoutTheKey) {
    LintOf lint("EUR:50x10");
    lint.registry = "REGEDIT4\n";
    EXPECT_EQ(Said(lint, "QX304").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x10"), "QX304"), Lines{});
}

TEST(LintQX305, FindsACodeLeftBefore) {
    LintOf lint("EUR:50x10");
    lint.registry = WithErrorCode(RegistryOf({}), "971A3");
    EXPECT_EQ(Said(lint, "QX305").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x10").Amounts({55}), "QX305"), Lines{})
        << "what is asked comes later";
}

TEST(LintQX306, FindsAValueThatIsStoredElsewhere) {
    LintOf lint("EUR:50x10");
    lint.registry = "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode]\n\n"
                    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\n\"TraceLevel\"=dword:00000001\n";
    EXPECT_EQ(Said(lint, "QX306").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x10"), "QX306"), Lines{});
}

}  // namespace
}  // namespace qxmix
