// The trace lines of a creation: which, when among the registry's calls, and that no trace level
// changes them.

#include "Answer.h"
#include "MixPlans.h"
#include "Terminal.h"
#include "TestHost.h"

namespace {

const std::string kVersionLine =
    "CMixAlgorithm::CMixAlgorithm() MixAlgorithm.dll Version = V 06.00.02.";

std::string MinimumLine(const char* number) {
    return std::string("CMixAlgorithm::CMixAlgorithm() CSTMinimum4Mix6 = ") + number + ".";
}

/// A terminal with both values in its registry.
class CreationTrace : public TerminalTest {
protected:
    CreationTrace() {
        SetTraceLevel(3);
        SetMinimum("250");
    }

    static void SetTraceLevel(std::uint32_t level) {
        QxmixRegistrySetNumber(kTraceKey, "TraceLevel", level);
    }
    static void SetMinimum(const char* text) {
        QxmixRegistrySetText(kMinimumKey, "CSTMinimum4Mix6", text);
    }

    static Lines LinesOfACreation() {
        TraceLines lines;
        Module module;
        return lines.All();
    }
};

TEST_F(CreationTrace, TellsVersionAndMinimum) {
    EXPECT_EQ(LinesOfACreation(), (Lines{kVersionLine, MinimumLine("250")}));
}

TEST_F(CreationTrace, TellsTheDefaultOnAFreshTerminal) {
    QxmixReset();
    EXPECT_EQ(LinesOfACreation(), (Lines{kVersionLine, MinimumLine("100")}));
}

TEST_F(CreationTrace, TellsMinimumsFrom2To31UpAsNegative) {
    SetMinimum("-5");
    EXPECT_EQ(LinesOfACreation(), (Lines{kVersionLine, MinimumLine("-5")}));
}

TEST_F(CreationTrace, TellsTheDefaultWhenTheKeyOfTheMinimumCannotBeHad) {
    QxmixFailCall(kQxmixRegCreateKeyExW, 1, 5);
    EXPECT_EQ(LinesOfACreation(), (Lines{kVersionLine, MinimumLine("100")}));
}

TEST_F(CreationTrace, TellsTheDefaultWhenTheMinimumCannotBeRead) {
    QxmixFailCall(kQxmixRegQueryValueExW, 2, 5);
    EXPECT_EQ(LinesOfACreation(), (Lines{kVersionLine, MinimumLine("100")}));
}

TEST_F(CreationTrace, TellsTheVersionBetweenTheTwoValuesAndTheMinimumLast) {
    Timeline timeline;
    Module module;
    EXPECT_EQ(timeline.All(),
              (Lines{"RegOpenKeyExW", "RegQueryValueExW", kVersionLine, "RegCreateKeyExW",
                     "RegQueryValueExW", "RegCloseKey", MinimumLine("250")}));
}

TEST_F(CreationTrace, KeepsTheOrderWhenNoKeyCanBeHad) {
    Timeline timeline;
    QxmixFailCallsFrom(kQxmixAnyFunction, 1, 5);
    Module module;
    EXPECT_EQ(timeline.All(),
              (Lines{"RegOpenKeyExW", kVersionLine, "RegCreateKeyExW", MinimumLine("100")}));
}

/// What the inner object held at each line.
struct FieldsSeen {
    TestHost host;
    std::vector<std::vector<std::uint32_t>> numbers;  ///< mixes, first, last, trace level
};

TEST_F(CreationTrace, ComesWithTheMixNumbersAndTheTraceLevelInPlace) {
    FieldsSeen seen;
    QxmixSetTraceListener(
        [](void* context, const char*) {
            auto& fields = *static_cast<FieldsSeen*>(context);
            const auto& inner = *static_cast<const CMixAlgorithm*>(fields.host.created.at(1));
            fields.numbers.push_back({inner.usNumMixTypes, inner.usFirstMixNumber,
                                      inner.usLastMixNumber, inner.ulTraceLevel});
        },
        &seen);
    seen.host.Create();
    QxmixSetTraceListener(nullptr, nullptr);
    EXPECT_EQ(seen.numbers,
              std::vector<std::vector<std::uint32_t>>(2, {kMixCount, 1, kMixCount, 3}));
}

/// Everything that a creation, a success and three kinds of failure trace and call.
Lines EventsOfALife() {
    Timeline timeline;
    Module module;
    Ask(Request().Mix(2).Bill(50, 10).Bill(20, 10).Bill(10, 20).Amount(140).Limit(5), module);
    Ask(Request().Bill(50, 9).Bill(20, 9).Limit(3).Amount(110), module);
    Ask(Request().Mix(5).Bill(20, 9).Status(3).Amount(20), module);
    Ask(Request().Mix(4711), module);
    return timeline.All();
}

TEST_F(CreationTrace, IsTheSameAtEveryTraceLevel) {
    const Lines atThree = EventsOfALife();
    EXPECT_GT(atThree.size(), 20U);
    for (const std::uint32_t level :
         {0U, 1U, 2U, 4U, 255U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        SetTraceLevel(level);
        EXPECT_EQ(Module().Inner().ulTraceLevel, level);
        EXPECT_EQ(EventsOfALife(), atThree) << level;
    }
}

TEST_F(CreationTrace, FailureTellsItsCodeBetweenTheSettingAndTheClosing) {
    Module module;
    Timeline timeline;
    Ask(Request().Mix(4711), module);
    EXPECT_EQ(
        timeline.All(),
        (Lines{"MixCalculate() : Invalid Mix Algorithm (4711).", "RegOpenKeyExW", "RegSetValueExW",
               "CMixAlgorithm::RegWriteError() Error Code is 971A5.", "RegCloseKey"}));
}

}  // namespace
