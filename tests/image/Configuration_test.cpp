#include "ImageTest.h"

namespace emulation {
namespace {

class Configuration : public ImageTest {
protected:
    std::uint32_t TraceLevel() { return Memory().WordAt(Module().created.at(1) + 8); }
    std::uint32_t CstMinimum() { return Memory().WordAt(Module().created.at(1) + 18); }
};

/// The class of the key of the settings is empty text, and no trailing backslash is missing.
const std::vector<std::string> kTrafficOfEmptyRegistry{
    "malloc 116",
    "malloc 124",
    "open HKCR WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser\\ options 0x0 access 0x20019",
    "create HKLM SOFTWARE\\ATM\\DevInfo\\CDM\\ class '' options 0x0 access 0xf003f security 0x0",
    "query CSTMinimum4Mix6 room 128",
    "close",
};

TEST_P(Configuration, ReadsTheRegistryOnceAndInThisOrder) {
    Module().Create();
    EXPECT_EQ(kTrafficOfEmptyRegistry, TheTerminal().calls);
    EXPECT_EQ(1U, TheTerminal().registry.count(Terminal::SettingsKey()));
    EXPECT_TRUE(TheTerminal().openKeys.empty());
    EXPECT_EQ(1U, TraceLevel());
    EXPECT_EQ(100U, CstMinimum());
}

TEST_P(Configuration, TraceLevelIsFourBytesOfAnyType) {
    for (const std::uint32_t type : {1U, 3U, 4U, 7U}) {
        Reload();
        TheTerminal().registry[Terminal::TraceKey()]["TraceLevel"] = {type,
                                                                      {0x78, 0x56, 0x34, 0xF2}};
        Module().Create();
        EXPECT_EQ(0xF2345678U, TraceLevel());
        EXPECT_EQ(1U, TheTerminal().openKeys.size());  // the key of the trace level stays open
    }
}

TEST_P(Configuration, TraceLevelOfAnotherSizeIsNotTaken) {
    TheTerminal().registry[Terminal::TraceKey()]["TraceLevel"] = {3, {1, 2, 3, 4, 5}};
    Module().Create();
    EXPECT_EQ(1U, TraceLevel());
}

TEST_P(Configuration, MinimumIsDecimalText) {
    const std::vector<std::pair<std::string, std::uint32_t>> texts{
        {"250", 250},
        {"", 0},
        {"abc", 0},
        {" \t\r\n\v\f12x4", 12},
        {"+7", 7},
        {"-1", 0xFFFFFFFF},
        {"- 1", 0},
        {"2147483647", 0x7FFFFFFF},
        {"2147483648", 0x7FFFFFFF},
        {"-2147483648", 0x80000000},
        {"-99999999999", 0x80000000},
        {std::string(62, '0') + "3", 3},
    };
    for (const auto& [text, number] : texts) {
        Reload();
        TheTerminal().registry[Terminal::SettingsKey()]["CSTMinimum4Mix6"] =
            Terminal::WideText(text);
        Module().Create();
        EXPECT_EQ(number, CstMinimum()) << '\'' << text << '\'';
    }
}

TEST_P(Configuration, MinimumOfAllCharactersNeedsNoEnd) {
    Terminal::Value value = Terminal::WideText(std::string(63, ' ') + "9");
    value.content.resize(128);
    TheTerminal().registry[Terminal::SettingsKey()]["CSTMinimum4Mix6"] = value;
    Module().Create();
    EXPECT_EQ(9U, CstMinimum());
}

TEST_P(Configuration, MinimumBeyondItsRoomIsNotTaken) {
    TheTerminal().registry[Terminal::SettingsKey()]["CSTMinimum4Mix6"] =
        Terminal::WideText(std::string(64, '1'));
    Module().Create();
    EXPECT_EQ(100U, CstMinimum());
}

TEST_P(Configuration, EveryRefusedCallLeavesTheDefaults) {
    for (unsigned refused = 3; refused <= 6; ++refused) {
        Reload();
        TheTerminal().registry[Terminal::TraceKey()]["TraceLevel"] = {4, {5, 0, 0, 0}};
        TheTerminal().registry[Terminal::SettingsKey()]["CSTMinimum4Mix6"] =
            Terminal::WideText("25");
        TheTerminal().RefuseCall(refused);
        Module().Create();
        EXPECT_EQ(refused <= 4 ? 1U : 5U, TraceLevel());
        EXPECT_EQ(refused >= 5 ? 100U : 25U, CstMinimum());
    }
}

FOR_EVERY_IMAGE(Configuration);

/// Calls that fail for a mix number that is none, and what they leave in the registry.
class ErrorCode : public ImageTest {
protected:
    std::uint32_t FailingCall() {
        constexpr std::uint32_t kRequestSize = 1060;
        const std::uint32_t request = Memory().Allocate(kRequestSize, Rights::ReadWrite, 1);
        const std::uint32_t result = Memory().Allocate(24, Rights::ReadWrite, 3);
        *Memory().At(request) = 11;
        *Memory().At(request + 1) = 0;
        const std::uint32_t value =
            EmulatedModule::Value(Module().Call(outer_, Slot::MixCalculate, {request, result}));
        for (std::uint32_t offset = 0; offset < 24; ++offset) {
            EXPECT_EQ(0, *Memory().At(result + offset));
        }
        for (std::uint32_t offset = 2; offset < kRequestSize; ++offset) {
            EXPECT_EQ(GuestMemory::Pattern(offset), *Memory().At(request + offset));
        }
        return value;
    }

    void CreateQuietly() {
        outer_ = Module().Create();
        TheTerminal().calls.clear();
    }

    static constexpr std::uint32_t kInvalidMixNumber = 0U - 304U;

private:
    std::uint32_t outer_ = 0;
};

TEST_P(ErrorCode, IsFiveBareBytesUnderATextType) {
    CreateQuietly();
    EXPECT_EQ(kInvalidMixNumber, FailingCall());
    const std::vector<std::string> expected{
        "open HKLM SOFTWARE\\ATM\\ErrorCode options 0x0 access 0xf003f",
        "set CDM type 1 to 971A5",
        "close",
    };
    EXPECT_EQ(expected, TheTerminal().calls);
    EXPECT_EQ("971A5", TheTerminal().ErrorCode());
    EXPECT_TRUE(TheTerminal().openKeys.empty());
}

TEST_P(ErrorCode, IsLostWithoutItsKey) {
    CreateQuietly();
    TheTerminal().registry.erase(Terminal::ErrorKey());
    EXPECT_EQ(kInvalidMixNumber, FailingCall());
    EXPECT_EQ(1U, TheTerminal().calls.size());
    EXPECT_EQ(0U, TheTerminal().registry.count(Terminal::ErrorKey()));
}

TEST_P(ErrorCode, RefusedCallsChangeNothingForTheCaller) {
    for (unsigned refused = 1; refused <= 3; ++refused) {
        Reload();
        CreateQuietly();
        TheTerminal().RefuseCall(refused);
        EXPECT_EQ(kInvalidMixNumber, FailingCall());
        EXPECT_EQ(refused == 3 ? "971A5" : "", TheTerminal().ErrorCode());
    }
}

FOR_EVERY_IMAGE(ErrorCode);

}  // namespace
}  // namespace emulation
