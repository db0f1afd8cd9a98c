#include "module/NeverAnswers.h"

#include "RandomRequests.h"
#include "module/RegistryImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace qxmix {
namespace {

struct Decided {
    unsigned compared = 0;
    unsigned never = 0;
    unsigned ends = 0;
    unsigned withCode = 0;
};

MixRequest AsRecord(const reference::RequestBytes& bytes) {
    MixRequest record;
    std::memcpy(&record, bytes.Bytes(), sizeof(record));
    return record;
}

/// Compares what is known of a call with what the second implementation comes to.
void Compare(property::RandomCase random, Decided& decided) {
    reference::Object object;
    object.cstMinimum = random.object.cstMinimum;
    const MixRequest request = AsRecord(random.request);
    std::uint8_t result[reference::kResultBytes];
    const reference::Outcome outcome =
        reference::MixCalculate(object, random.request.Bytes(), result, 50000);
    if (!outcome.finished && !outcome.neverEnds) {
        return;
    }
    ++decided.compared;
    ASSERT_EQ(NeverAnswers(request, object.cstMinimum), outcome.neverEnds);
    const CallEnding ending = DecideEnding(request, object.cstMinimum);
    ASSERT_NE(ending, outcome.neverEnds ? CallEnding::Ends : CallEnding::Never);
    decided.ends += ending == CallEnding::Ends ? 1U : 0U;
    if (outcome.neverEnds) {
        TakeErrorCode();
        LeaveAsEndlessCall(request, object.cstMinimum);
        ASSERT_EQ(ErrorCodeBytes(), outcome.lastCode);
        ++decided.never;
        decided.withCode += outcome.lastCode.empty() ? 0U : 1U;
    }
}

TEST(NeverAnswers, KnowsWhichCallsNeverEndAndWhatTheyLeave) {
    LoadRegistry("");
    Decided decided;
    for (std::uint64_t number = 0; number < 20000; ++number) {
        property::Draw draw(4, number);
        property::RandomCase random = property::MakeRandomCase(property::Kind::Adversarial, draw);
        random.request.Mix(number % 2 == 0 ? 4 : 9);
        Compare(random, decided);
        if (HasFatalFailure()) {
            FAIL() << "case " << number;
        }
    }
    EXPECT_GT(decided.compared, 15000U);
    EXPECT_GT(decided.never, 300U);
    EXPECT_GT(decided.ends, 12000U);
    EXPECT_GT(decided.withCode, 30U);
}

TEST(NeverAnswers, LeavesTheOtherSearchesToTheCall) {
    reference::RequestBytes bytes;
    bytes.Amount(60).Bill(50, 1000).Bill(20, 900).Bill(100, 100).Bill(200, 40);
    for (std::uint16_t mix = 0; mix <= 11; ++mix) {
        EXPECT_EQ(NeverAnswers(AsRecord(bytes.Mix(mix)), 0), mix == 4 || mix == 9) << mix;
    }
}

}  // namespace
}  // namespace qxmix
