#include "ImageTest.h"

#include <algorithm>

namespace emulation {
namespace {

class Fixups : public testing::TestWithParam<const char*> {
protected:
    static PeFile Read(const std::string& name) {
        return ReadPe(FileOf(DllFolder() + "/parts/" + GetParam() + "/" + name));
    }

    /// The words in which two images differ, headers and the list of fixups itself left out.
    static std::vector<std::uint32_t> DifferingWords(const PeFile& one, const PeFile& other) {
        std::vector<std::uint32_t> words;
        for (const PeSection& section : one.sections) {
            for (std::uint32_t at = 0; at < section.size; at += 4) {
                const std::uint32_t rva = section.rva + at;
                if (one.WordAt(rva) != other.WordAt(rva)) {
                    words.push_back(rva);
                }
            }
        }
        return words;
    }
};

/// The one proof that no word was forgotten and none too many is named.
TEST_P(Fixups, AreTheWordsThatDifferBetweenTwoLinks) {
    if (FileOf(DllFolder() + "/parts/" + GetParam() + "/QXMIX-moved.dll").empty()) {
        GTEST_SKIP() << "there is no second link in " << DllFolder()
                     << ": run scripts/lib/build-dlls";
    }
    const PeFile library = Read("QXMIX.dll");
    const PeFile moved = Read("QXMIX-moved.dll");
    ASSERT_NE(library.base, moved.base);
    EXPECT_EQ(library.size, moved.size);
    EXPECT_FALSE(library.fixups.empty());
    EXPECT_EQ(library.fixups, moved.fixups);
    EXPECT_EQ(library.fixups, DifferingWords(library, moved));
    EXPECT_TRUE(std::is_sorted(library.fixups.begin(), library.fixups.end()));
    for (const std::uint32_t fixup : library.fixups) {
        EXPECT_EQ(moved.base - library.base, moved.WordAt(fixup) - library.WordAt(fixup));
    }
}

INSTANTIATE_TEST_SUITE_P(Images,
                         Fixups,
                         testing::Values("device", "device-armv4t"),
                         [](const testing::TestParamInfo<const char*>& one) {
                             return std::string(one.param) == "device" ? "Device" : "DeviceThumb";
                         });

}  // namespace
}  // namespace emulation
