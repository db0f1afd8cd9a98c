#include "Costs.h"
#include "ImageTest.h"

namespace emulation {
namespace {

/// The device's processor runs about 200 million instructions a second.
constexpr std::uint64_t kTypicalCall = 20'000;
constexpr std::uint64_t kLongestWalk = 2'000'000;
constexpr std::uint32_t kDeepestStack = 16 * 1024;
constexpr unsigned kQuestions = 100;
constexpr std::uint16_t kLimits[] = {40, 60, 200};

class Costs : public ImageTest {
protected:
    void SetUp() override {
        ImageTest::SetUp();
        if (!IsSkipped()) {
            player_ = std::make_unique<RequestPlayer>(Module());
        }
    }

    RequestPlayer& Player() { return *player_; }

private:
    std::unique_ptr<RequestPlayer> player_;
};

TEST_P(Costs, TypicalCallOfEachMixStaysBelowATenthOfAMillisecond) {
    std::vector<bench::QuestionSet> sets{bench::SmallAmounts(kQuestions / 2)};
    for (const std::uint16_t limit : kLimits) {
        sets.push_back(bench::RealisticSet(bench::kFull, limit, kQuestions / 2));
    }
    for (const bench::QuestionSet& set : sets) {
        for (const CostRow& row : MeasureCosts(Player(), set, kWalkedMixes, Machine::kPatience)) {
            EXPECT_LE(row.Median(), kTypicalCall) << row.set << ", mix " << row.mix;
        }
    }
}

TEST_P(Costs, TypicalCallOfAllStaysBelowATenthOfAMillisecond) {
    CostRow all;
    for (const bench::QuestionSet& set : bench::RealisticSets(kQuestions / 5)) {
        for (const CostRow& row : MeasureCosts(Player(), set, kWalkedMixes, Machine::kPatience)) {
            all.costs.insert(all.costs.end(), row.costs.begin(), row.costs.end());
        }
    }
    EXPECT_LE(all.Median(), kTypicalCall);
}

TEST_P(Costs, WalkOverFullCassettesStaysBelowTenMilliseconds) {
    for (const std::uint16_t limit : kLimits) {
        const bench::QuestionSet set = bench::RealisticSet(bench::kFull, limit, kQuestions);
        for (const CostRow& row : MeasureCosts(Player(), set, {1, 2, 3, 10}, Machine::kPatience)) {
            EXPECT_LE(row.Most(), kLongestWalk) << row.set << ", mix " << row.mix;
        }
    }
}

TEST_P(Costs, StackStaysBelowSixteenKilobytes) {
    const bench::QuestionSet set = bench::RealisticSet(bench::kFull, 40, kQuestions / 5);
    for (const std::vector<unsigned>& mixes : {kWalkedMixes, kFirstFitMixes}) {
        for (const CostRow& row : MeasureCosts(Player(), set, mixes, kLongestWalk)) {
            EXPECT_LE(row.DeepestStack(), kDeepestStack) << "mix " << row.mix;
            EXPECT_GT(row.DeepestStack(), 6316U) << "a table of units lies there";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Images,
                         Costs,
                         testing::Combine(testing::Values(Target::Device),
                                          testing::Values(kBases[0])),
                         NameOfParameters);

}  // namespace
}  // namespace emulation
