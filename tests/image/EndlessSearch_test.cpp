#include "ImageTest.h"
#include "Requests.h"

#include "RequestBytes.h"

#include <algorithm>

namespace emulation {
namespace {

class EndlessSearch : public ImageTest {};

/// First-fit emptying over three units, and an amount that no combination makes.
TEST_P(EndlessSearch, IsStillSearchingAfterTenMillionInstructions) {
    RequestPlayer player(Module());
    reference::RequestBytes bytes;
    bytes.Mix(4).Amount(37).Bill(50, 100).Bill(20, 100).Bill(10, 100);
    property::Answer answer;
    std::copy_n(bytes.Bytes(), reference::kRequestBytes, answer.request.begin());
    const CallReport report = player.Calculate(reference::Object{}, 0, answer, 10'000'000);
    EXPECT_FALSE(report.returned);
    EXPECT_EQ("", report.fault);
    EXPECT_EQ(10'000'000U, report.instructions);
    EXPECT_TRUE(TheTerminal().calls.empty()) << TheTerminal().calls.front();
}

/// What a host finds that gives up the calling thread.
TEST_P(EndlessSearch, LeavesTheCodeOfTheLastCombinationOverTheLimit) {
    RequestPlayer player(Module());
    reference::RequestBytes bytes;
    bytes.Mix(4).Amount(1370).Limit(20).Bill(50, 24).Coin(10, 19).Coin(5, 30);
    property::Answer answer;
    std::copy_n(bytes.Bytes(), reference::kRequestBytes, answer.request.begin());
    const CallReport report = player.Calculate(reference::Object{}, 0, answer, 10'000'000);
    EXPECT_FALSE(report.returned);
    EXPECT_EQ("", report.fault);
    EXPECT_EQ("971A3", answer.lastCode);
}

TEST_P(EndlessSearch, EndsForTwoUnits) {
    RequestPlayer player(Module());
    reference::RequestBytes bytes;
    bytes.Mix(4).Amount(37).Bill(50, 100).Bill(20, 100);
    property::Answer answer;
    std::copy_n(bytes.Bytes(), reference::kRequestBytes, answer.request.begin());
    const CallReport report = player.Calculate(reference::Object{}, 0, answer, 10'000'000);
    EXPECT_TRUE(report.returned);
    EXPECT_EQ(-306, answer.returned);
    EXPECT_EQ("971A2", answer.lastCode);
}

FOR_EVERY_LIBRARY(EndlessSearch);

}  // namespace
}  // namespace emulation
