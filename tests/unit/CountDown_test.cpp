#include "PlainLoops.h"

namespace {

struct Recorder : CountDownRule {
    Combinations met;
    std::vector<std::uint32_t> unpaid;
    std::size_t most = static_cast<std::size_t>(-1);

    explicit Recorder(const SearchUnits& searched) : CountDownRule{searched} {}

    Verdict Visit(const Counts& combination, std::uint32_t left) {
        met.push_back(combination);
        unpaid.push_back(left);
        return met.size() == most ? Verdict::EndSearch : Verdict::GoOn;
    }
};

TEST(CountDown, MeetsWhatPlainLoopsMeetInTheirOrder) {
    ForEachSmallTable([](const SearchUnits& units) {
        Recorder recorder(units);
        CountDown(recorder);
        const PlainLoops plain(units);
        EXPECT_EQ(recorder.met, plain.All());
        EXPECT_EQ(recorder.unpaid, plain.Unpaid());
    });
}

TEST(CountDown, EndsAtOnceWhenItIsTold) {
    const Table table = Table().Bill(5, 3).Bill(4, 3).Bill(3, 3).Bill(2, 3).Bill(1, 3).Amount(20);
    const SearchUnits units = table.Units();
    const Combinations all = PlainLoops(units).All();
    ASSERT_GT(all.size(), 20U);
    for (std::size_t most = 1; most <= all.size(); ++most) {
        Recorder recorder(units);
        recorder.most = most;
        CountDown(recorder);
        EXPECT_EQ(recorder.met.size(), most);
    }
}

}  // namespace
