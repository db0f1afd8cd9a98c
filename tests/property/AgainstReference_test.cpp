#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>

#include "CaseWatch.h"
#include "Describe.h"
#include "EndlessCall.h"
#include "ErrorCode.h"
#include "ModuleUnderTest.h"
#include "RandomRequests.h"
#include "Settings.h"
#include "module/NeverAnswers.h"

namespace property {
namespace {

/// Behind so many a kind is given up: what the module has done to itself by then is unknown.
constexpr unsigned kMostDifferences = 5;
constexpr std::uint64_t kNeverWatched = 15;

/// Share of a kind in all cases, in hundredths.
std::uint64_t ShareOf(Kind kind) {
    switch (kind) {
    case Kind::Realistic:
    case Kind::Adversarial:
        return 30;
    case Kind::Extreme:
        return 20;
    case Kind::Wrapping:
    case Kind::AnyBytes:
        return 10;
    }
    return 0;
}

/// What became of the cases of one kind.
struct Tally {
    std::uint64_t equal = 0;
    std::uint64_t exceeded = 0;
    std::uint64_t never = 0;
    std::uint64_t undecided = 0;  ///< of these: nobody has told but the reference
    std::uint64_t different = 0;
    std::uint64_t paid = 0;
    /// By mix number; 0 stands for all invalid ones.
    std::array<std::uint64_t, reference::kLastMix + 1> equalByMix{};
};

void Count(const Answer& answer, Tally& tally) {
    ++tally.equal;
    if (answer.returned == 0 && std::any_of(answer.result.begin(), answer.result.end(),
                                            [](std::uint8_t byte) { return byte != 0; })) {
        ++tally.paid;
    }
    const unsigned mix = reference::ReadU16(answer.request.data());
    ++tally.equalByMix[mix <= reference::kLastMix ? mix : 0];
}

class AgainstReference : public testing::TestWithParam<Kind> {
protected:
    void RunCase(std::uint64_t number) {
        Draw draw(seed_, number);
        const RandomCase random = MakeRandomCase(GetParam(), draw);
        Answer expected;
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, expected.request.begin());
        Answer actual = expected;
        const reference::Outcome outcome = reference::MixCalculate(
            random.object, expected.request.data(), expected.result.data(), stepBudget_);
        if (outcome.neverEnds) {
            WatchNever(number, random, outcome.lastCode);
            return;
        }
        if (!outcome.finished) {
            ++tally_.exceeded;
            return;
        }
        expected.returned = outcome.returned;
        expected.lastCode = outcome.lastCode;
        const bool intact = Calculate(random.object, number, actual);
        const std::string difference = Difference(expected, actual);
        if (intact && difference.empty()) {
            Count(actual, tally_);
            return;
        }
        ++tally_.different;
        ADD_FAILURE() << NameOf(GetParam()) << ", seed " << seed_ << ", case " << number << ": "
                      << (intact ? "" : "wrote beside its records; ") << difference
                      << "\nobject: mixes " << random.object.first << " to " << random.object.last
                      << ", minimum " << random.object.cstMinimum << "\n"
                      << Describe(random.request.Bytes());
    }

    bool Calculate(const reference::Object& object, std::uint64_t number, Answer& answer) {
        const CaseWatch watch(number);
        return module_.Calculate(object, static_cast<unsigned>(number % 8), answer);
    }

    /// Each call takes a tenth of a second: the first ones show that the module spins. Of the
    /// others it is asked what it has decided.
    void WatchNever(std::uint64_t number, const RandomCase& random, const std::string& code) {
        Answer answer;
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, answer.request.begin());
        const std::string seen = tally_.never++ < kNeverWatched
                                     ? WatchEndlessCall(module_, random.object, answer)
                                     : Decided(random.object, answer);
        // With counts of all sizes the plain loops may run, which do not know that they never end.
        const bool mayLeaveNothing = GetParam() == Kind::Extreme || GetParam() == Kind::AnyBytes;
        EXPECT_TRUE(seen == "spins " + code || (mayLeaveNothing && seen == "spins "))
            << seen << " instead of " << code << ": " << NameOf(GetParam()) << ", seed " << seed_
            << ", case " << number << '\n'
            << Describe(random.request.Bytes());
    }

    /// What a call comes to, in the words of WatchEndlessCall.
    std::string Decided(const reference::Object& object, Answer& answer) {
        const auto& request = *reinterpret_cast<const MixRequest*>(answer.request.data());
        switch (qxmix::DecideEnding(request, object.cstMinimum)) {
        case qxmix::CallEnding::Ends:
            return "returned";
        case qxmix::CallEnding::Unknown:
            ++tally_.undecided;
            return "spins ";
        case qxmix::CallEnding::Never:
            break;
        }
        TakeErrorCode();
        qxmix::LeaveAsEndlessCall(request, object.cstMinimum);
        return "spins " + TakeErrorCode();
    }

    std::uint64_t seed_ = Setting("QXMIX_SEED", 1);
    std::uint64_t first_ = Setting("QXMIX_FIRST", 0);
    std::uint64_t cases_ = Setting(
        "QXMIX_EACH",
        std::max<std::uint64_t>(1, Setting("QXMIX_CASES", 1200000) * ShareOf(GetParam()) / 100));
    std::uint64_t stepBudget_ = Setting("QXMIX_STEPS", 100000);
    Tally tally_;
    ModuleUnderTest module_;
};

TEST_P(AgainstReference, AnswersEveryRequestAlike) {
    std::uint64_t number = first_;
    for (; number < first_ + cases_ && tally_.different < kMostDifferences; ++number) {
        RunCase(number);
    }
    std::cout << NameOf(GetParam()) << ": seed " << seed_ << ", " << number - first_ << " of "
              << cases_ << " cases from " << first_ << ": " << tally_.equal << " equal ("
              << tally_.paid << " paid), " << tally_.different << " different, " << tally_.never
              << " never end (" << tally_.undecided << " undecided), " << tally_.exceeded
              << " not run (more than " << stepBudget_ << " steps)\n  equal by mix (0: invalid):";
    for (const std::uint64_t equal : tally_.equalByMix) {
        std::cout << ' ' << equal;
    }
    std::cout << std::endl;
    EXPECT_EQ(0U, tally_.different);
    if (cases_ >= 1000) {  // enough to tell that the cases are worth something
        EXPECT_LT(tally_.exceeded, cases_ / 5);
        EXPECT_GT(tally_.paid, cases_ / 30);
        EXPECT_GT(*std::min_element(tally_.equalByMix.begin(), tally_.equalByMix.end()), 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(Random,
                         AgainstReference,
                         testing::ValuesIn(kAllKinds),
                         [](const testing::TestParamInfo<Kind>& one) {
                             return std::string(NameOf(one.param));
                         });

}  // namespace
}  // namespace property
