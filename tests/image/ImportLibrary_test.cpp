#include "ImportLibrary.h"

#include "ImageError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace image {
namespace {

Bytes TextOf(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

std::uint32_t HighFirst(const Bytes& bytes, std::size_t at) {
    return (std::uint32_t{bytes.at(at)} << 24U) | (std::uint32_t{bytes.at(at + 1)} << 16U) |
           (std::uint32_t{bytes.at(at + 2)} << 8U) | bytes.at(at + 3);
}

std::uint32_t U16(const Bytes& bytes, std::size_t at) {
    return bytes.at(at) | (std::uint32_t{bytes.at(at + 1)} << 8U);
}

std::string ZeroEnded(const Bytes& bytes, std::size_t at) {
    std::string text;
    for (; bytes.at(at) != 0; ++at) {
        text += static_cast<char>(bytes[at]);
    }
    return text;
}

/// The members of a library: offset of the header and content.
std::vector<std::pair<std::uint32_t, Bytes>> MembersOf(const Bytes& library) {
    std::vector<std::pair<std::uint32_t, Bytes>> members;
    EXPECT_EQ(TextOf("!<arch>\n"), Bytes(library.begin(), library.begin() + 8));
    for (std::size_t at = 8; at < library.size();) {
        EXPECT_EQ(TextOf("`\n"), Bytes(library.begin() + static_cast<std::ptrdiff_t>(at) + 58,
                                       library.begin() + static_cast<std::ptrdiff_t>(at) + 60));
        const std::size_t size = std::stoul(std::string(&library[at + 48], &library[at + 58]));
        const auto begin = library.begin() + static_cast<std::ptrdiff_t>(at + 60);
        members.emplace_back(static_cast<std::uint32_t>(at),
                             Bytes(begin, begin + static_cast<std::ptrdiff_t>(size)));
        at += 60 + size + size % 2;
    }
    return members;
}

const Definition kDefinition{"QXMIX", {"CreateMixAlgorithm", "DeleteMixAlgorithm"}};

class ImportLibrary : public testing::TestWithParam<ImportMachine> {
protected:
    const std::vector<std::pair<std::uint32_t, Bytes>> members_ =
        MembersOf(EncodeImportLibrary(GetParam(), kDefinition));
};

TEST_P(ImportLibrary, HasTwoIndexesThreeObjectsAndAMemberPerFunction) {
    ASSERT_EQ(7U, members_.size());
    for (std::size_t object = 2; object < 5; ++object) {
        EXPECT_EQ(GetParam().machine, U16(members_[object].second, 0));
    }
    for (std::size_t function = 5; function < 7; ++function) {
        const Bytes& member = members_[function].second;
        EXPECT_EQ(0U, U16(member, 0));
        EXPECT_EQ(0xFFFFU, U16(member, 2));
        EXPECT_EQ(GetParam().machine, U16(member, 6));
        const std::string symbol = GetParam().prefix + kDefinition.exports[function - 5];
        EXPECT_EQ(symbol, ZeroEnded(member, 20));
        EXPECT_EQ("QXMIX.dll", ZeroEnded(member, 20 + symbol.size() + 1));
        EXPECT_EQ(member.size() - 20, ReadU32(member, 12));
        const std::uint32_t nameType = U16(member, 18) >> 2U;
        EXPECT_EQ(symbol == kDefinition.exports[function - 5] ? 1U : 2U, nameType);
    }
}

TEST_P(ImportLibrary, IndexesLeadToTheMembers) {
    const Bytes& first = members_.at(0).second;
    const Bytes& second = members_.at(1).second;
    const std::uint32_t names = HighFirst(first, 0);
    const std::uint32_t count = ReadU32(second, 0);
    ASSERT_EQ(7U, names);
    ASSERT_EQ(5U, count);
    EXPECT_EQ(names, ReadU32(second, 4 + 4 * count));

    std::map<std::string, std::uint32_t> firstIndex;
    std::size_t text = 4 + 4 * names;
    for (std::uint32_t index = 0; index < names; ++index) {
        const std::string name = ZeroEnded(first, text);
        firstIndex[name] = HighFirst(first, 4 + 4 * index);
        text += name.size() + 1;
    }
    std::map<std::string, std::uint32_t> secondIndex;
    std::vector<std::string> order;
    text = 8 + 4 * count + 2 * names;
    for (std::uint32_t index = 0; index < names; ++index) {
        const std::string name = ZeroEnded(second, text);
        const std::uint32_t number = U16(second, 8 + 4 * count + 2 * index);
        secondIndex[name] = ReadU32(second, 4 * number);
        order.push_back(name);
        text += name.size() + 1;
    }
    EXPECT_EQ(firstIndex, secondIndex);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    const std::string prefix = GetParam().prefix;
    EXPECT_EQ(members_[5].first, firstIndex.at(prefix + "CreateMixAlgorithm"));
    EXPECT_EQ(members_[6].first, firstIndex.at("__imp_" + prefix + "DeleteMixAlgorithm"));
    EXPECT_EQ(members_[2].first, firstIndex.at("__IMPORT_DESCRIPTOR_QXMIX"));
    EXPECT_EQ(members_[3].first, firstIndex.at("__NULL_IMPORT_DESCRIPTOR"));
    EXPECT_EQ(members_[4].first, firstIndex.at("\x7fQXMIX_NULL_THUNK_DATA"));
}

INSTANTIATE_TEST_SUITE_P(Machines,
                         ImportLibrary,
                         testing::Values(kDeviceMachine, kDesktopMachine),
                         [](const testing::TestParamInfo<ImportMachine>& one) {
                             return one.param.machine == kDeviceMachine.machine ? "Device"
                                                                                : "Desktop";
                         });

TEST(Definition, NamesTheLibraryAndItsExports) {
    const Definition definition =
        ReadDefinition(TextOf("LIBRARY QXMIX\nEXPORTS\n    One\n    Two\n"));
    EXPECT_EQ("QXMIX", definition.library);
    EXPECT_EQ((std::vector<std::string>{"One", "Two"}), definition.exports);
}

TEST(Definition, RefusesWhatItDoesNotUnderstand) {
    for (const char* text : {"", "LIBRARY", "LIBRARY QXMIX", "NAME QXMIX EXPORTS One",
                             "LIBRARY QXMIX EXPORTS One=Two", "LIBRARY QXMIX EXPORTS One @1"}) {
        EXPECT_THROW(ReadDefinition(TextOf(text)), ImageError) << text;
    }
    EXPECT_THROW(EncodeImportLibrary(kDeviceMachine, {"ANameTooLong", {}}), ImageError);
}

}  // namespace
}  // namespace image
