/// Records that lie against memory that nobody may touch: an access beside one ends the process.

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstring>

#include "Describe.h"
#include "ErrorCode.h"
#include "LockedInRecord.h"
#include "ModuleUnderTest.h"
#include "RandomRequests.h"
#include "Settings.h"

namespace property {
namespace {

class GuardPages : public testing::TestWithParam<Against>, private MixAlgorithmHost {
protected:
    GuardPages() : outer_(CreateMixAlgorithm(this)) { TakeErrorCode(); }
    ~GuardPages() override {
        DeleteMixAlgorithm();
        inner_->Destroy(1);
    }

    /// Compares with the second implementation. @return whether that one came to an end.
    bool RunCase(const RandomCase& random) {
        Answer expected;
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, expected.request.begin());
        Answer actual;
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, request_.Bytes());
        const reference::Outcome outcome = reference::MixCalculate(
            random.object, expected.request.data(), expected.result.data(), kStepBudget);
        if (!outcome.finished) {
            return false;
        }
        expected.returned = outcome.returned;
        expected.lastCode = outcome.lastCode;
        auto* const object = static_cast<CMixAlgorithm*>(inner_);
        object->usFirstMixNumber = random.object.first;
        object->usLastMixNumber = random.object.last;
        object->ulCstMinimum4Mix6 = random.object.cstMinimum;
        actual.returned = outer_->MixCalculate(reinterpret_cast<MixRequest*>(request_.Bytes()),
                                               reinterpret_cast<MixResult*>(result_.Bytes()));
        actual.lastCode = TakeErrorCode();
        std::copy_n(request_.Bytes(), reference::kRequestBytes, actual.request.begin());
        std::copy_n(result_.Bytes(), reference::kResultBytes, actual.result.begin());
        EXPECT_EQ(Difference(expected, actual), "") << Describe(random.request.Bytes());
        return true;
    }

    static constexpr std::uint64_t kStepBudget = 20000;
    LockedInRecord<reference::kRequestBytes> request_{GetParam()};
    LockedInRecord<reference::kResultBytes> result_{GetParam()};

private:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        inner_ = object;  // the second of the two
        return 0;
    }

    IMixAlgorithm* inner_ = nullptr;
    IMixAlgorithm* outer_;
};

TEST_P(GuardPages, EndAProcessThatReachesBesideARecord) {
    // What the other tests rest on.
    EXPECT_DEATH(request_[-1 - std::ptrdiff_t{getpagesize()}] = 0, "");
    if (GetParam() == Against::Start) {
        EXPECT_DEATH(request_[-1] = 0, "");
        EXPECT_DEATH(result_[-1] = 0, "");
    } else {
        EXPECT_DEATH(request_[reference::kRequestBytes] = 0, "");
        EXPECT_DEATH(result_[reference::kResultBytes] = 0, "");
    }
}

TEST_P(GuardPages, AreNotReachedByAnyRequest) {
    const std::uint64_t cases = std::max<std::uint64_t>(1, Setting("QXMIX_CASES", 100000) / 10);
    std::uint64_t compared = 0;
    for (const Kind kind : kAllKinds) {
        for (std::uint64_t number = 0; number < cases && !HasFailure(); ++number) {
            Draw draw(Setting("QXMIX_SEED", 1), number);
            compared += RunCase(MakeRandomCase(kind, draw)) ? 1 : 0;
        }
    }
    EXPECT_GT(compared, 4 * cases);
}

TEST_P(GuardPages, AreNotReachedByWrongCountsAndPositions) {
    const std::uint16_t numbers[] = {0,   1,   5,     6,      7,      8,      23,    24,
                                     255, 256, 32767, 0x8000, 0x8001, 0xFFFA, 0xFFFF};
    for (unsigned mix = 1; mix <= reference::kLastMix; ++mix) {
        for (const std::uint16_t cassettes : numbers) {
            for (const std::uint16_t position : numbers) {
                RandomCase random;
                random.request.Mix(static_cast<std::uint16_t>(mix)).Amount(180).Partial(1);
                for (unsigned index = 0; index < 6; ++index) {
                    random.request.Bill(index % 2 == 0 ? 50 : 20, 200);
                    random.request.Position(index, index < 3 ? position : std::uint16_t{5});
                }
                random.request.CassetteNumber(cassettes);
                ASSERT_TRUE(RunCase(random)) << mix << ' ' << cassettes << ' ' << position;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Records,
                         GuardPages,
                         testing::Values(Against::Start, Against::End),
                         [](const testing::TestParamInfo<Against>& one) {
                             return one.param == Against::Start ? "BehindAPage" : "BeforeAPage";
                         });

}  // namespace
}  // namespace property
