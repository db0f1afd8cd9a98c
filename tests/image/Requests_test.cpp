#include "ImageTest.h"
#include "Requests.h"

#include "Describe.h"
#include "RandomRequests.h"
#include "Settings.h"

#include <algorithm>
#include <iostream>

namespace emulation {
namespace {

constexpr std::uint64_t kStepBudget = 20000;
constexpr unsigned kMostDifferencesShown = 5;

/// The same requests to the emulated library, to the Linux library and to the second
/// implementation.
class Requests : public ImageTest {
protected:
    void SetUp() override {
        ImageTest::SetUp();
        if (!IsSkipped()) {
            player_ = std::make_unique<RequestPlayer>(Module());
        }
    }

    /// Returns false when the second implementation has no answer within its budget.
    bool Run(property::Kind kind, std::uint64_t number) {
        property::Draw draw(seed_, number);
        const property::RandomCase random = property::MakeRandomCase(kind, draw);
        property::Answer expected;
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, expected.request.begin());
        property::Answer linux = expected;
        property::Answer emulated = expected;
        const reference::Outcome outcome = reference::MixCalculate(
            random.object, expected.request.data(), expected.result.data(), kStepBudget);
        if (!outcome.finished) {
            return false;
        }
        expected.returned = outcome.returned;
        expected.lastCode = outcome.lastCode;
        const auto shift = static_cast<unsigned>(number % 8);
        linux_.Calculate(random.object, shift, linux);
        const CallReport report = player_->Calculate(random.object, shift, emulated);
        const std::string difference =
            report.fault + Difference(expected, emulated) + Difference(linux, emulated);
        if (!difference.empty() && ++different_ <= kMostDifferencesShown) {
            ADD_FAILURE() << NameOf(kind) << ", seed " << seed_ << ", case " << number << ": "
                          << difference << '\n'
                          << property::Describe(random.request.Bytes());
        }
        return true;
    }

    const std::uint64_t seed_ = property::Setting("QXMIX_SEED", 1);
    std::uint64_t different_ = 0;

private:
    std::unique_ptr<RequestPlayer> player_;
    property::ModuleUnderTest linux_;
};

TEST_P(Requests, GetTheAnswersOfTheLinuxLibrary) {
    const std::uint64_t cases = property::Setting("QXMIX_IMAGE_CASES", 6000) / 5;
    // Each image gets requests of its own.
    const std::uint64_t first = (std::get<1>(GetParam()) >> 16U) * 1000;
    std::uint64_t compared = 0;
    for (const property::Kind kind : property::kAllKinds) {
        for (std::uint64_t number = first; number < first + cases; ++number) {
            compared += Run(kind, number) ? 1 : 0;
        }
    }
    std::cout << "seed " << seed_ << ": " << compared << " of " << 5 * cases
              << " requests compared, " << different_ << " different" << std::endl;
    EXPECT_EQ(0U, different_);
    EXPECT_GT(compared, 4 * cases);
}

/// Wherever in a page the host's own frame ends: the system gives a stack its pages in turn.
TEST_P(Requests, LeaveOutNoPageOfTheStack) {
    constexpr std::uint32_t kPage = 0x1000;
    for (std::uint32_t used = 0; used < kPage; used += kPage / 32) {
        Module().TheMachine().usedOfStack = used;
        EXPECT_TRUE(Run(property::kAllKinds[0], 1));
    }
}

FOR_EVERY_IMAGE(Requests);

}  // namespace
}  // namespace emulation
