// The harness itself: each of its checks must see what it is there for.

#include "Machine.h"

#include <gtest/gtest.h>

namespace emulation {
namespace {

constexpr std::uint32_t kBase = 0x00400000;
constexpr std::uint32_t kCode = 0x1000;
constexpr std::uint32_t kConstants = 0x2000;
constexpr std::uint32_t kVariables = 0x3000;
constexpr std::uint32_t kImported = 0x4000;

/// A library of a few words of ARM code: a section of each kind.
PeFile LibraryOf(const std::vector<std::uint32_t>& code) {
    PeFile library;
    library.machine = kMachineArm;
    library.base = kBase;
    library.size = 0x5000;
    library.image.resize(library.size);
    library.sections = {{".text", kCode, 0x1000, 0x60000020, 0, 0},
                        {".rdata", kConstants, 0x1000, 0x40000040, 0, 0},
                        {".data", kVariables, 0x1000, 0xC0000040, 0, 0},
                        {".idata", kImported, 0x1000, 0xC0000040, 0, 0}};
    library.exports["Run"] = kCode;
    for (std::size_t index = 0; index < code.size(); ++index) {
        for (unsigned byte = 0; byte < 4; ++byte) {
            library.image[kCode + 4 * index + byte] =
                static_cast<std::uint8_t>(code[index] >> (8 * byte));
        }
    }
    return library;
}

/// Runs code that is given one argument.
CallReport RunCode(const std::vector<std::uint32_t>& code,
                   std::uint32_t argument = 0,
                   std::uint64_t budget = 1000) {
    Machine machine(LibraryOf(code), kBase, {});
    return machine.Call(machine.Export("Run"), {argument}, Convention::Cdecl, budget);
}

constexpr std::uint32_t kReturn = 0xE1A0F00E;           // mov pc, lr
constexpr std::uint32_t kLoadWord = 0xE5900000;         // ldr r0, [r0]
constexpr std::uint32_t kStoreWord = 0xE5800000;        // str r0, [r0]
constexpr std::uint32_t kLoadHalfWord = 0xE1D000B0;     // ldrh r0, [r0]
constexpr std::uint32_t kStoreBelowStack = 0xE50D0004;  // str r0, [sp, #-4]

::testing::AssertionResult Fails(const CallReport& report, const std::string& fault) {
    if (report.fault.find(fault) != std::string::npos && !report.returned) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << '\'' << report.fault << '\'';
}

TEST(Machine, CountsInstructionsAndGivesTheResult) {
    const CallReport report = RunCode({0xE2800005, kReturn}, 7);  // add r0, r0, #5
    EXPECT_TRUE(report.returned);
    EXPECT_EQ("", report.fault);
    EXPECT_EQ(12U, report.value);
    EXPECT_EQ(2U, report.instructions);
    EXPECT_EQ(0U, report.stackBytes);
}

TEST(Machine, SeesUnalignedWordsAndHalfWords) {
    EXPECT_EQ("", RunCode({kLoadWord, kReturn}, kBase + kConstants).fault);
    EXPECT_EQ("", RunCode({kLoadHalfWord, kReturn}, kBase + kConstants + 2).fault);
    EXPECT_TRUE(Fails(RunCode({kLoadWord, kReturn}, kBase + kConstants + 2), "unaligned"));
    EXPECT_TRUE(Fails(RunCode({kLoadHalfWord, kReturn}, kBase + kConstants + 1), "unaligned"));
}

TEST(Machine, SeesWritesToAllButVariables) {
    EXPECT_EQ("", RunCode({kStoreWord, kReturn}, kBase + kVariables).fault);
    for (const std::uint32_t section : {kCode, kConstants, kImported}) {
        EXPECT_TRUE(Fails(RunCode({kStoreWord, kReturn}, kBase + section + 64), "forbidden write"));
    }
}

TEST(Machine, SeesReadsOutsideTheSections) {
    EXPECT_TRUE(Fails(RunCode({kLoadWord, kReturn}, kBase), "forbidden read"));
    EXPECT_TRUE(Fails(RunCode({kLoadWord, kReturn}, GuestMemory::kStart), "forbidden read"));
    EXPECT_TRUE(Fails(RunCode({kLoadWord, kReturn}, 0), "access to nothing"));
}

TEST(Machine, HoldsAccessesToTheBlocksHandedOut) {
    Machine machine(LibraryOf({kLoadWord, kReturn, kStoreWord, kReturn}), kBase, {});
    const std::uint32_t load = machine.Export("Run");
    const std::uint32_t store = load + 8;
    const std::uint32_t block = machine.Memory().Allocate(8, Rights::Read);
    const auto call = [&machine](std::uint32_t function, std::uint32_t address) {
        return machine.Call(function, {address}, Convention::Cdecl);
    };
    EXPECT_EQ("", call(load, block + 4).fault);
    EXPECT_TRUE(Fails(call(load, block + 8), "forbidden read"));
    EXPECT_TRUE(Fails(call(load, block - 4), "forbidden read"));
    EXPECT_TRUE(Fails(call(store, block), "forbidden write"));
    EXPECT_TRUE(machine.Memory().Free(block));
    EXPECT_FALSE(machine.Memory().Free(block));
    EXPECT_TRUE(Fails(call(load, block), "forbidden read"));
}

TEST(Machine, SeesTheCallersFrameTouched) {
    EXPECT_EQ(4U, RunCode({kStoreBelowStack, kReturn}).stackBytes);
    EXPECT_TRUE(Fails(RunCode({0xE58D0000, kReturn}), "forbidden write"));  // str r0, [sp]
    EXPECT_TRUE(Fails(RunCode({0xE59D0000, kReturn}), "forbidden read"));   // ldr r0, [sp]
}

TEST(Machine, SeesAStackPageLeftOut) {
    const std::uint32_t twoPagesDown = 0xE24DCA02;  // sub ip, sp, #8192
    const std::uint32_t storeThere = 0xE58C0000;    // str r0, [ip]
    EXPECT_TRUE(Fails(RunCode({twoPagesDown, storeThere, kReturn}), "forbidden write"));
    const std::uint32_t onePageDown = 0xE24DCA01;
    EXPECT_EQ(8192U,
              RunCode({onePageDown, storeThere, twoPagesDown, storeThere, kReturn}).stackBytes);
}

TEST(Machine, SeesRegistersThatAreNotRestored) {
    for (std::uint32_t name = 4; name < 12; ++name) {
        const CallReport report = RunCode({0xE3A00000 | (name << 12U), kReturn});  // mov rN, #0
        EXPECT_NE(std::string::npos, report.fault.find("r" + std::to_string(name)));
    }
    const CallReport report = RunCode({0xE24DD004, kReturn});  // sub sp, sp, #4
    EXPECT_NE(std::string::npos, report.fault.find("stack pointer"));
}

TEST(Machine, SeesDataExecuted) {
    EXPECT_TRUE(
        Fails(RunCode({0xE1A0F000}, kBase + kConstants), "execution of data"));  // mov pc, r0
}

TEST(Machine, SeesAReturnThatDoesNotSwitchToThumb) {
    const auto damage = [](std::uint32_t instruction) {
        Machine machine(LibraryOf({instruction}), kBase, {}, HostCode::Thumb);
        return machine.Call(machine.Export("Run"), {}, Convention::Cdecl).fault;
    };
    EXPECT_EQ("", damage(0xE12FFF1E));  // bx lr
    EXPECT_NE("", damage(kReturn));
}

TEST(Machine, SeesInstructionsNewerThanTheDevices) {
    EXPECT_TRUE(Fails(RunCode({0xE16F0F10, kReturn}), "Invalid instruction"));  // clz r0, r0
    EXPECT_TRUE(Fails(RunCode({0xE12FFF1E}), "Invalid instruction"));           // bx lr
}

TEST(Machine, StopsAtTheBudget) {
    const CallReport report = RunCode({0xEAFFFFFE}, 0, 50);  // b .
    EXPECT_FALSE(report.returned);
    EXPECT_EQ("", report.fault);
    EXPECT_EQ(50U, report.instructions);
}

TEST(Machine, MovesWordsAndBindsImports) {
    PeFile library = LibraryOf({0xE59F0000, kReturn, kBase + kVariables});  // ldr r0, [pc]
    library.fixups = {kCode + 8};
    library.imports = {{"a.dll", "Seven", kImported}};
    const TrappedFunction seven{Convention::Stdcall, 0,
                                [](const std::vector<std::uint32_t>&) { return 7U; }};
    Machine machine(library, 0x10000000, {{"Seven", seven}});
    EXPECT_EQ(0x10000000 + kVariables,
              machine.Call(machine.Export("Run"), {0}, Convention::Cdecl).value);
    const std::uint32_t import = machine.ImageWord(machine.Base() + kImported);
    EXPECT_EQ(7U, machine.Call(import, {}, Convention::Cdecl).value);
    EXPECT_THROW(Machine(library, kBase, {}), std::runtime_error);
}

}  // namespace
}  // namespace emulation
