#include "Reference.h"
#include "VectorFile.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace reference {
namespace {

/// More than any of them takes: where the module steps over turns that end before they have begun,
/// so does the reference.
constexpr std::uint64_t kBudget = 100'000'000;

Object ObjectOf(const VectorCase& asked) {
    return {asked.firstMix, asked.lastMix, asked.minimum};
}

/// Every vector by the judge itself: what the module is held to, the reference is held to as well.
class ReferenceVectors : public testing::TestWithParam<std::string> {};

std::set<std::string> VectorFiles() {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(QXMIX_VECTORS)) {
        const std::string name = entry.path().stem();
        if (entry.path().extension() == ".txt" && name != "CMakeLists" && name != "digest") {
            files.insert(name);
        }
    }
    return files;
}

TEST_P(ReferenceVectors, AreAnsweredAsExpected) {
    VectorFile file((std::string(QXMIX_VECTORS) + "/" + GetParam() + ".txt").c_str());
    ASSERT_TRUE(file.IsOpen());
    unsigned answered = 0;
    for (VectorCase next; file.ReadCase(next);) {
        SCOPED_TRACE(next.name);
        std::array<std::uint8_t, kRequestBytes> request{};
        std::array<std::uint8_t, kResultBytes> result{};
        std::memcpy(request.data(), &next.request, request.size());
        result.fill(0x5A);
        const Outcome outcome =
            MixCalculate(ObjectOf(next), request.data(), result.data(), kBudget);
        EXPECT_TRUE(outcome.finished);
        ++answered;
        MixRequest afterwards;
        MixResult paid;
        std::memcpy(&afterwards, request.data(), sizeof(afterwards));
        std::memcpy(&paid, result.data(), sizeof(paid));
        EXPECT_EQ(next.returned, outcome.returned);
        EXPECT_TRUE(std::equal(next.notes, next.notes + kMaxCashUnits, paid.aulNotes));
        EXPECT_EQ(next.remainder, afterwards.ulRemainder);
        EXPECT_EQ(next.amount, afterwards.ulAmount);
        EXPECT_EQ(next.code, outcome.lastCode);
    }
    EXPECT_EQ(0U, file.WrongLine());
    EXPECT_LT(0U, answered);
}

INSTANTIATE_TEST_SUITE_P(Files,
                         ReferenceVectors,
                         testing::ValuesIn(VectorFiles()),
                         [](const auto& file) { return file.param; });

}  // namespace
}  // namespace reference
