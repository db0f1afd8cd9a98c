#include "RequestBuilder.h"
#include "TestHost.h"

#include <csignal>
#include <sys/resource.h>

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

TEST(EndlessSearchDeathTest, ReturnsInTimeWhereTheFirstCombinationPays) {
    EXPECT_EXIT(CalculateWithinASecond(Payable().Amount(70)), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(CalculateWithinASecond(Payable().Mix(1)), testing::ExitedWithCode(0), "");
}

}  // namespace
