#include "Trace.h"

#include "Answer.h"
#include "Terminal.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstring>

namespace {

unsigned formattings = 0;
bool formattingFails = false;

}  // namespace

// What the module's snprintf is led to by the linker: counts, and formats as ever unless it has to
// fail, with rubbish left in the room.
extern "C" int
__wrap_snprintf(char* room, std::size_t size, const char* format, ...);  // NOLINT(*-vararg)

int __wrap_snprintf(char* room, std::size_t size, const char* format, ...) {
    ++formattings;
    if (formattingFails) {
        std::memset(room, '?', size);
        return -1;
    }
    va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(room, size, format, values);
    va_end(values);
    return length;
}

namespace {

using TraceTest = TerminalTest;

Lines LinesOf(const Request& request) {
    Module module;
    TraceLines lines;
    Ask(request, module);
    return lines.All();
}

TEST_F(TraceTest, TellsTheOutcomeOfACalculation) {
    EXPECT_EQ(LinesOf(Request().Bill(50, 9).Bill(20, 9).Amount(110)),
              (Lines{"<MixCalculate> Notes is 1 3.", "<MixCalculate> CashBox is 0."}));
}

TEST_F(TraceTest, TellsOnePieceOfTheOutcomePerCassette) {
    EXPECT_EQ(LinesOf(Request().Bill(10, 1).Bill(10, 1).Bill(10, 1).Amount(30).Partial()),
              (Lines{"<MixCalculate> Notes is 1 1 1.", "<MixCalculate> CashBox is 0."}));
    Request seven;
    for (unsigned index = 0; index < 6; ++index) {
        seven.Bill(10, 1);
    }
    seven.record.usNumPhysicalCUs = std::uint16_t{7};
    EXPECT_EQ(LinesOf(seven.Amount(10)).front(), "<MixCalculate> Notes is 1 0 0 0 0 0.");
}

TEST_F(TraceTest, TellsWrappedNumbersAsNegative) {
    EXPECT_EQ(LinesOf(Request().Mix(4).Bill(50, 10).Bill(20, 10).Amount(30)),
              (Lines{"<MixCalculate> Notes is 10 4.", "<MixCalculate> CashBox is -550."}));
}

TEST_F(TraceTest, SaysNothingOfASuccessBelowTheSmallestNote) {
    EXPECT_EQ(LinesOf(Request().Bill(20, 9).Amount(10)), Lines{});
}

TEST_F(TraceTest, TellsAnInvalidMixBeforeItsCode) {
    EXPECT_EQ(LinesOf(Request().Mix(65535)),
              (Lines{"MixCalculate() : Invalid Mix Algorithm (65535).",
                     "CMixAlgorithm::RegWriteError() Error Code is 971A5."}));
}

TEST_F(TraceTest, TellsTheOrderingBeforeTheFailure) {
    EXPECT_EQ(LinesOf(Request().Mix(5).Bill(20, 9).Status(3).Amount(20)),
              (Lines{"SortLCUByDenominationWithoutLOWCST() : The status of Cassette 0 is 3.",
                     "CMixAlgorithm::RegWriteError() Error Code is 971A2."}));
}

TEST_F(TraceTest, TellsTheRefusedCombinationOfAFailure) {
    EXPECT_EQ(LinesOf(Request().Bill(50, 9).Bill(20, 9).Limit(3).Amount(110)),
              (Lines{"CMixAlgorithm::RegWriteError() Error Code is 971A3.",
                     "CheckMaximumDispense() Calculated Notes are 1 3."}));
}

TEST_F(TraceTest, TellsOnlyTheLastRefusedCombinationOfASearch) {
    // Most combinations are over the limit; fourteen of the tens come last.
    const Request request =
        Request().Mix(2).Bill(50, 10).Bill(20, 10).Bill(10, 20).Amount(140).Limit(5);
    EXPECT_EQ(LinesOf(request),
              (Lines{"CMixAlgorithm::RegWriteError() Error Code is 971A3.",
                     "CheckMaximumDispense() Calculated Notes are 0 0 14.",
                     "<MixCalculate> Notes is 2 1 2.", "<MixCalculate> CashBox is 0."}));
}

TEST_F(TraceTest, FormatsNothingWhenNobodyListens) {
    Module module;
    formattings = 0;
    Ask(Request().Mix(4711), module);
    Ask(Request().Cassette(2, 1, 1).Bill(20, 9).Limit(1).Amount(40), module);
    Ask(Request().Bill(20, 9).Amount(40), module);
    Module another;
    EXPECT_EQ(formattings, 0U);
}

TEST_F(TraceTest, FormatsForAListener) {
    Module module;
    formattings = 0;
    TraceLines lines;
    Ask(Request().Mix(4711), module);
    EXPECT_EQ(formattings, lines.All().size());
}

TEST_F(TraceTest, ChangesNoAnswerByListening) {
    const Request request = Request().Mix(2).Bill(50, 10).Bill(20, 10).Amount(140).Limit(5);
    const Answer unheard = Ask(request);
    TraceLines lines;
    EXPECT_EQ(Ask(request), unheard);
}

/// Never part of its caller, so that each piece starts from what the one before has left in memory.
[[gnu::noinline]] void Append(TraceText& text, const std::string& piece) {
    text.Append("%s", piece.c_str());
}

TEST(TraceText, KeepsWhatIsThereWhenMoreIsCut) {
    TraceText text;
    Append(text, std::string(300, 'a'));
    Append(text, "b");
    Append(text, "c");
    EXPECT_EQ(text.Line(), std::string(255, 'a'));
}

TEST(TraceText, CutsBehind255Characters) {
    TraceText text;
    text.Append("%s", std::string(250, 'a').c_str());
    text.Append("%d", 12345);
    EXPECT_EQ(text.Line(), std::string(250, 'a') + "12345");
    text.Append("%d", 6);
    text.Append("%s", "more");
    EXPECT_EQ(text.Line(), std::string(250, 'a') + "12345");
    TraceText whole;
    whole.Append("%s", std::string(1000, 'b').c_str());
    EXPECT_EQ(whole.Line(), std::string(255, 'b'));
}

TEST(TraceText, WritesNothingBehindItself) {
    struct {
        TraceText text;
        std::array<unsigned char, 2000> behind;
    } memory;
    memory.behind.fill(0xC3);
    memory.text.Append("%s", std::string(1000, 'b').c_str());
    memory.text.Append("%s", std::string(500, 'b').c_str());
    EXPECT_EQ(std::count(memory.behind.begin(), memory.behind.end(), 0xC3), 2000);
}

TEST(TraceText, LeavesOutAPieceThatCannotBeFormatted) {
    volatile int number = 7;  // so that no compiler formats it beforehand
    TraceText text;
    text.Append("%d", int{number});
    formattingFails = true;
    text.Append("%d", int{number});
    formattingFails = false;
    EXPECT_STREQ(text.Line(), "7");
    text.Append("%d", int{number});
    EXPECT_STREQ(text.Line(), "77");
}

TEST(TraceText, IsEmptyAtFirst) {
    EXPECT_STREQ(TraceText().Line(), "");
}

TEST(TraceNumber, PrintsTheLow32BitsAsASignedNumber) {
    EXPECT_EQ(TraceNumber(0x7FFFFFFF), 2147483647);
    EXPECT_EQ(TraceNumber(0x80000000), -2147483647 - 1);
    EXPECT_EQ(TraceNumber(0xFFFFFFFF), -1);
}

}  // namespace
