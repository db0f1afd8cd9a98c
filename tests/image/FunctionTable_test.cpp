#include "FunctionTable.h"

#include "ArmCode.h"
#include "ElfBuilder.h"
#include "ImageError.h"
#include "PeFormat.h"

#include <gtest/gtest.h>

namespace image {
namespace {

constexpr std::uint32_t kStart = 0x10001000;

constexpr std::uint32_t kPush = 0xE92D4010;         // push {r4, lr}
constexpr std::uint32_t kPushReturn = 0xE52DE004;   // push {lr}
constexpr std::uint32_t kPop = 0xE8BD8010;          // pop {r4, pc}
constexpr std::uint32_t kPopBack = 0xE8BD4010;      // pop {r4, lr}
constexpr std::uint32_t kPopReturn = 0xE49DF004;    // pop {pc}
constexpr std::uint32_t kReserve8 = 0xE24DD008;     // sub sp, sp, #8
constexpr std::uint32_t kRelease8 = 0xE28DD008;     // add sp, sp, #8
constexpr std::uint32_t kReserve4K = 0xE24DDA01;    // sub sp, sp, #4096
constexpr std::uint32_t kRelease4K = 0xE28DDA01;    // add sp, sp, #4096
constexpr std::uint32_t kReturn = 0xE1A0F00E;       // mov pc, lr
constexpr std::uint32_t kExchange = 0xE12FFF1E;     // bx lr
constexpr std::uint32_t kMove = 0xE1A00001;         // mov r0, r1
constexpr std::uint32_t kOnlyIfEqual = 0xE0000000;  // taken off a condition: "always" becomes "eq"

/// `b` or `bl` over so many words, counted from itself.
constexpr std::uint32_t Jump(std::uint32_t kind, std::int32_t words) {
    return kind | (static_cast<std::uint32_t>(words - 2) & 0x00FFFFFFU);
}
constexpr std::uint32_t kBranch = 0xEA000000;
constexpr std::uint32_t kCall = 0xEB000000;

/// A program of functions one behind the other, named f0, f1, ...
ElfFile ProgramOf(const std::vector<std::vector<std::uint32_t>>& functions) {
    ElfFile elf;
    std::vector<std::uint32_t> all;
    for (const std::vector<std::uint32_t>& words : functions) {
        const auto address = static_cast<std::uint32_t>(kStart + 4 * all.size());
        elf.functions.push_back({"f" + std::to_string(elf.functions.size()), address,
                                 static_cast<std::uint32_t>(4 * words.size())});
        all.insert(all.end(), words.begin(), words.end());
    }
    elf.marks = {{kStart, true}};
    elf.sections = {{".text", kStart, static_cast<std::uint32_t>(4 * all.size()), WordsOf(all)}};
    return elf;
}

/// The entries as "start+prolog/length", the start in words.
std::string EntriesOf(const ElfFile& elf) {
    std::string text;
    for (const FunctionEntry& entry : FindFunctions(elf)) {
        text += (text.empty() ? "" : " ") + std::to_string((entry.start - kStart) / 4) + "+" +
                std::to_string(entry.prologLength) + "/" + std::to_string(entry.length);
    }
    return text;
}

std::string EntriesOf(const std::vector<std::uint32_t>& function) {
    return EntriesOf(ProgramOf({function}));
}

/// What is wrong with a function; empty when nothing is.
std::string Complaint(const ElfFile& elf) {
    try {
        FindFunctions(elf);
    } catch (const ImageError& error) {
        return error.what();
    }
    return "";
}

std::string Complaint(const std::vector<std::uint32_t>& function) {
    return Complaint(ProgramOf({function}));
}

TEST(FunctionTable, HasNoEntryForCodeWithoutAFrame) {
    EXPECT_EQ("", EntriesOf({kMove, kReturn}));
}

TEST(FunctionTable, HasThePrologOfEachFrame) {
    EXPECT_EQ("0+1/3", EntriesOf({kPush, kMove, kPop}));
    EXPECT_EQ("0+1/3", EntriesOf({kPushReturn, kMove, kPopReturn}));
    EXPECT_EQ("0+2/4", EntriesOf({kPush, kReserve8, kRelease8, kPop}));
    EXPECT_EQ("0+3/7",
              EntriesOf({kPush, kReserve4K, kReserve8, kMove, kRelease4K, kRelease8, kPop}));
    EXPECT_EQ("0+1/4", EntriesOf({kPush, kMove, kPopBack, kReturn}));
    EXPECT_EQ("0+1/4", EntriesOf({kPush, kMove, kPopBack, kExchange}));
    EXPECT_EQ("0+1/3 5+1/2",
              EntriesOf(ProgramOf({{kPush, kMove, kPop}, {kMove, kReturn}, {kPush, kPop}})));
}

TEST(FunctionTable, HasFramesWithArgumentsAboveWhatIsSaved) {
    EXPECT_EQ("0+2/5", EntriesOf({kReserve8, kPush, kPopBack, kRelease8, kReturn}));
    EXPECT_EQ("0+3/7",
              EntriesOf({kReserve8, kPush, kReserve4K, kRelease4K, kPopBack, kRelease8, kReturn}));
    EXPECT_EQ("f0 keeps room for arguments at 0x1000100c", Complaint({kReserve8, kPush, kPop}));
    EXPECT_EQ("f0 keeps room for arguments at 0x1000100c",
              Complaint({kReserve8, kPush, kPopBack, kReturn}));
    EXPECT_EQ("f0 goes on without its frame at 0x10001010",
              Complaint({kReserve8, kPush, kPopBack, kRelease8, kMove}));
    EXPECT_EQ("f0 moves the stack pointer outside a frame at 0x10001000",
              Complaint({kReserve4K, kPush, kPopBack, kRelease4K, kReturn}));
}

TEST(FunctionTable, FollowsWaysOutUnderACondition) {
    EXPECT_EQ("0+1/3", EntriesOf({kPush, kPop - kOnlyIfEqual, kPop}));
    EXPECT_EQ("0+1/4", EntriesOf({kPush, kPopBack - kOnlyIfEqual, kReturn - kOnlyIfEqual, kPop}));
    EXPECT_EQ("f0 takes down half a frame at 0x10001008",
              Complaint({kPush, kPopBack - kOnlyIfEqual, kReturn, kPop}));
    EXPECT_EQ("f0 takes down half a frame at 0x1000100c",
              Complaint({kPush, kReserve8, kRelease8 - kOnlyIfEqual, kPop}));
}

TEST(FunctionTable, TakesDataAmongTheCodeForWhatItIs) {
    ElfFile elf = ProgramOf({{kPush, kPop, kReserve8}});
    EXPECT_EQ("f0 moves the stack pointer inside a frame at 0x10001008", Complaint(elf));
    elf.marks.push_back({kStart + 8, false});
    EXPECT_EQ("0+1/3", EntriesOf(elf));
}

/// push {r0, r1, lr}; bl; pop {r1, r2, lr}: the division of the compiler's library.
TEST(FunctionTable, HasFramesThatBeginAndEndHalfway) {
    constexpr std::uint32_t kPushScratch = 0xE92D4003;
    constexpr std::uint32_t kPopScratch = 0xE8BD4006;
    EXPECT_EQ("1+1/3", EntriesOf({kMove, kPushScratch, Jump(kCall, -2), kPopScratch, kReturn}));
    EXPECT_EQ("f0 leaves a frame at 0x10001008",
              Complaint({kMove, kPushScratch, Jump(kBranch, -2), kPopScratch, kReturn}));
    EXPECT_EQ("f0 leaves a frame at 0x10001008",
              Complaint({kMove, kPushScratch, kReturn, kPopScratch, kReturn}));
    EXPECT_EQ("f0 moves the stack pointer inside a frame at 0x10001008",
              Complaint({kMove, kPushScratch, kPopBack, kReturn}));
    EXPECT_EQ("f0 ends inside a frame at 0x10001008", Complaint({kMove, kPushScratch}));
    EXPECT_EQ("f0 jumps out of a frame or into one at 0x10001000",
              Complaint({Jump(kBranch, 2), kPushScratch, kMove, kPopScratch, kReturn}));
}

TEST(FunctionTable, RefusesFramesThatNoSystemUnwinds) {
    constexpr std::uint32_t kPushOther = 0xE92D0010;   // push {r4}
    constexpr std::uint32_t kStoreBelow = 0xE52D4008;  // str r4, [sp, #-8]!
    constexpr std::uint32_t kMoveStack = 0xE1A0D004;   // mov sp, r4
    constexpr std::uint32_t kPopOther = 0xE8BD8020;    // pop {r5, pc}
    const std::string outside = "f0 moves the stack pointer outside a frame at ";
    const std::string inside = "f0 moves the stack pointer inside a frame at ";
    EXPECT_EQ(outside + "0x10001000", Complaint({kPushOther, kReturn}));
    EXPECT_EQ(outside + "0x10001000", Complaint({kStoreBelow, kReturn}));
    EXPECT_EQ(outside + "0x10001000", Complaint({kReserve8, kMove, kReturn}));
    EXPECT_EQ(inside + "0x10001008", Complaint({kPush, kMove, kReserve8, kRelease8, kPop}));
    EXPECT_EQ(inside + "0x10001004", Complaint({kPush, kMoveStack, kPop}));
    EXPECT_EQ(inside + "0x10001004", Complaint({kPush, kPopOther}));
    EXPECT_EQ(inside + "0x10001008", Complaint({kPush, kReserve8, kPop}));
    EXPECT_EQ(inside + "0x1000100c", Complaint({kPush, kReserve4K, kRelease8, kPop}));
}

TEST(FunctionTable, RefusesWaysOutThatAreNoReturn) {
    EXPECT_EQ("f0 goes on without its frame at 0x10001008",
              Complaint({kPush, kPopBack, Jump(kBranch, -2)}));
    EXPECT_EQ("f0 goes on without its frame at 0x10001008", Complaint({kPush, kPopBack}));
    EXPECT_EQ("f0 jumps out of a frame or into one at 0x10001004",
              Complaint(ProgramOf({{kPush, Jump(kBranch, 2), kPop}, {kReturn}})));
}

TEST(FunctionTable, RefusesCallsThatLoseTheReturnAddress) {
    EXPECT_EQ("f0 loses its return address at 0x10001000", Complaint({Jump(kCall, 0), kReturn}));
}

TEST(FunctionTable, RefusesJumpsIntoTheFrameOfAnother) {
    EXPECT_EQ("f0 jumps out of a frame or into one at 0x10001000",
              Complaint(ProgramOf({{Jump(kBranch, 2)}, {kPush, kPop}})));
    EXPECT_EQ("0+1/3 3+1/2", EntriesOf(ProgramOf({{kPush, Jump(kCall, 2), kPop}, {kPush, kPop}})));
    EXPECT_EQ("f0 jumps out of a frame or into one at 0x10001004",
              Complaint(ProgramOf({{kPush, Jump(kCall, 3), kPop}, {kPush, kPop}})));
}

TEST(FunctionTable, RefusesCodeOutsideFunctions) {
    ElfFile elf = ProgramOf({{kMove, kReturn}, {kPush, kPop}});
    elf.functions.pop_back();
    EXPECT_EQ("code outside any function at 0x10001008", Complaint(elf));
    elf.functions[0].address += 4;
    EXPECT_EQ("code outside any function at 0x10001000", Complaint(elf));
}

TEST(FunctionTable, RefusesFunctionsThatAreNone) {
    ElfFile elf = ProgramOf({{kMove, kReturn}});
    elf.functions[0].size = 12;
    EXPECT_EQ("a function without instructions at 0x10001008", Complaint(elf));
    elf.functions[0].size = 10;
    EXPECT_EQ("f0 cannot be a function at 0x10001000", Complaint(elf));
    elf.functions[0] = {"f0", kStart - 2, 12};
    EXPECT_EQ("f0 cannot be a function at 0x10000ffe", Complaint(elf));
}

TEST(FunctionTable, RefusesWhatAnEntryCannotHold) {
    std::vector<std::uint32_t> deep(255, 0xE24DD004);  // sub sp, sp, #4
    deep.insert(deep.begin(), kPush);
    deep.push_back(0xE28DDFFF);  // add sp, sp, #1020
    deep.push_back(kPop);
    EXPECT_EQ("a function too long for its entry at 0x10001000", Complaint(deep));
}

TEST(FunctionTable, TakesNamesOfOnePlaceForOneFunction) {
    ElfFile elf = ProgramOf({{kPush, kPop}});
    elf.functions.push_back({"alias", kStart, 8});
    elf.functions.push_back({"empty", kStart, 0});
    EXPECT_EQ("0+1/2", EntriesOf(elf));
}

TEST(FunctionTable, IsWrittenInEightBytesAnEntry) {
    const Bytes expected{0x00, 0x10, 0x00, 0x10, 0x03, 0x45, 0x23, 0x41};
    EXPECT_EQ(expected, EncodeFunctions({{0x10001000, 3, 0x12345}}));
    EXPECT_TRUE(EncodeFunctions({}).empty());
}

TEST(FunctionTable, StandsInASectionThatMovesWithTheImage) {
    ElfBuilder builder;
    builder.At(".text").content = WordsOf({kReturn, ElfBuilder::kCode, kPush, kPop});
    builder.AddFunction(ElfBuilder::kCode + 8, 8);
    const Image laid = LayImage(ReadElf(builder.File()));
    EXPECT_EQ((std::vector<std::uint32_t>{0x1004, 0x3000}), laid.fixups);
    const ImageSection& table = laid.sections.back();
    EXPECT_EQ(".pdata", table.name);
    EXPECT_EQ(0x3000U, table.rva);
    EXPECT_EQ(Directory::Functions, table.directory);
    EXPECT_EQ(WordsOf({0x10001008, 0x40000201}), table.content);
    constexpr std::size_t kExceptionDirectory = 0x40 + 24 + 96 + 3 * 8;
    const Bytes file = EncodeImage(laid);
    EXPECT_EQ(0x3000U, ReadU32(file, kExceptionDirectory));
    EXPECT_EQ(8U, ReadU32(file, kExceptionDirectory + 4));
}

TEST(ArmCode, KnowsWhichRegistersAnInstructionWrites) {
    struct Case {
        std::uint32_t word;
        const char* written;  ///< of sp, lr and r4
    };
    constexpr Case kCases[] = {
        {0xE1A0D00C, "sp"},      // mov sp, ip
        {0xE35D0004, ""},        // cmp sp, #4
        {0xE10F4000, "r4"},      // mrs r4, cpsr
        {0xE12FFF1E, ""},        // bx lr
        {0xE004E091, "r4"},      // mul r4, r1, r0
        {0xE08E4091, "lrr4"},    // umull r4, lr, r1, r0
        {0xE101E092, "lr"},      // swp lr, r2, [r1]
        {0xE1D040B0, "r4"},      // ldrh r4, [r0]
        {0xE1C040B0, ""},        // strh r4, [r0]
        {0xE0C040B2, ""},        // strh r4, [r0], #2
        {0xE0C400B2, "r4"},      // strh r0, [r4], #2
        {0xE59DE000, "lr"},      // ldr lr, [sp]
        {0xE49DE004, "splr"},    // ldr lr, [sp], #4
        {0xE58DE000, ""},        // str lr, [sp]
        {0xE52D4004, "sp"},      // str r4, [sp, #-4]!
        {0xE79D4001, "r4"},      // ldr r4, [sp, r1]
        {0xE7F000F0, ""},        // udf
        {0xE8BD4010, "splrr4"},  // pop {r4, lr}
        {0xE89D4010, "lrr4"},    // ldm sp, {r4, lr}
        {0xE88D4010, ""},        // stm sp, {r4, lr}
        {0xE92D0010, "sp"},      // push {r4}
        {0xEB000000, "lr"},      // bl
        {0xEA000000, ""},        // b
        {0xEF000000, ""},        // svc
    };
    for (const Case& one : kCases) {
        const std::string written = std::string(arm::Writes(one.word, 13) ? "sp" : "") +
                                    (arm::Writes(one.word, 14) ? "lr" : "") +
                                    (arm::Writes(one.word, 4) ? "r4" : "");
        EXPECT_EQ(one.written, written) << Hex(one.word);
    }
}

}  // namespace
}  // namespace image
