#include "RequestBuilder.h"
#include "Terminal.h"
#include "TestHost.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <thread>

namespace {

/// Calculates within one second of processor time; beyond it the system ends the process.
void CalculateWithinASecond(const Request& request) {
    const rlimit seconds{1, 2};
    setrlimit(RLIMIT_CPU, &seconds);
    TestHost host;
    IMixAlgorithm* const outer = host.Create();
    MixRequest record = request.record;
    MixResult result;
    std::_Exit(outer->MixCalculate(&record, &result) == 0 ? 0 : 1);
}

Request Payable() {
    return Request().Mix(4).Bill(50, 1000).Bill(20, 900).Bill(100, 100).Bill(200, 40).Amount(60);
}

TEST(EndlessSearchDeathTest, NeverReturnsFromAnAmountThatCouldBePaid) {
    EXPECT_EXIT(CalculateWithinASecond(Payable()), testing::KilledBySignal(SIGXCPU), "");
}

/// Calculates in a thread that is given up, as a host does, and looks at what it has left.
void GiveUpAndReadCode(const Request& request) {
    static std::atomic<bool> hasReturned{false};
    TestHost host;
    IMixAlgorithm* const outer = host.Create();
    std::thread([outer, record = request.record]() mutable {
        MixResult result;
        outer->MixCalculate(&record, &result);
        hasReturned = true;
    }).detach();
    for (int wait = 0; wait < 1000 && RecordedCode().empty(); ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::fputs(RecordedCode().c_str(), stderr);
    std::_Exit(hasReturned ? 1 : 0);
}

TEST(EndlessSearchDeathTest, LeavesTheCodeOfTheLastCombinationOverTheLimit) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(GiveUpAndReadCode(
                    Request().Mix(4).Bill(50, 24).Coin(10, 19).Coin(5, 30).Amount(1370).Limit(20)),
                testing::ExitedWithCode(0), "971A3");
}

TEST(EndlessSearchDeathTest, ReturnsInTimeWhereTheFirstCombinationPays) {
    EXPECT_EXIT(CalculateWithinASecond(Payable().Amount(70)), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(CalculateWithinASecond(Payable().Mix(1)), testing::ExitedWithCode(0), "");
}

}  // namespace
