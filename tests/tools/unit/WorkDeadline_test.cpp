#include "workers/WorkDeadline.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

constexpr Milliseconds kDeadline{200};

class WorkDeadlineTest : public testing::Test {
protected:
    WorkDeadlineTest() { deadline_.Start(kDeadline, start_); }

    Clock::time_point After(int milliseconds) const { return start_ + Milliseconds(milliseconds); }

    const Clock::time_point start_ = Clock::now();
    WorkDeadline deadline_;
};

TEST_F(WorkDeadlineTest, CannotBeMissedBeforeItIsOver) {
    EXPECT_EQ(deadline_.LookAgain(), After(200));
}

TEST_F(WorkDeadlineTest, IsMissedByWorkThatTookItAll) {
    EXPECT_TRUE(deadline_.IsMissed(Milliseconds(200), After(200)));
}

TEST_F(WorkDeadlineTest, WaitsForWhatIsLeftOnABusyMachine) {
    EXPECT_FALSE(deadline_.IsMissed(std::chrono::microseconds(50500), After(210)));
    EXPECT_EQ(deadline_.LookAgain(), After(360));  // what is left, in whole milliseconds
    EXPECT_FALSE(deadline_.IsMissed(Milliseconds(199), After(360)));
    EXPECT_EQ(deadline_.LookAgain(), After(361));
    EXPECT_TRUE(deadline_.IsMissed(Milliseconds(200), After(361)));
}

TEST_F(WorkDeadlineTest, IsMissedAfterTenTimesAsLongWhateverTheWorkTook) {
    EXPECT_FALSE(deadline_.IsMissed(Milliseconds(0), After(1950)));
    EXPECT_EQ(deadline_.LookAgain(), After(2000));
    EXPECT_TRUE(deadline_.IsMissed(Milliseconds(0), After(2000)));
}

TEST_F(WorkDeadlineTest, BeginsAnewWithTheNextWork) {
    EXPECT_TRUE(deadline_.IsMissed(Milliseconds(200), After(200)));
    deadline_.Start(Milliseconds(50), After(5000));
    EXPECT_EQ(deadline_.LookAgain(), After(5050));
    EXPECT_FALSE(deadline_.IsMissed(Milliseconds(1), After(5050)));
}

}  // namespace
}  // namespace qxmix
