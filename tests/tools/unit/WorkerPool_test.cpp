#include "workers/WorkerPool.h"

#include "FakeModule.h"
#include "dispenser/InlineDispenser.h"
#include "requests/Request.h"

#include <gtest/gtest.h>

#include <map>

namespace qxmix {
namespace {

constexpr Milliseconds kLong{20000};
constexpr Milliseconds kShort{50};

/// What became of each amount, asked in this order by so many workers.
std::map<std::uint32_t, Reply>
AskAll(const std::vector<std::uint32_t>& amounts, std::size_t workers, Milliseconds deadline) {
    WorkerPool pool({QXMIX_FAKE_MODULE, ""}, workers, nullptr);
    std::map<std::uint32_t, Reply> replies;
    std::size_t next = 0;
    pool.Run(
        [&]() -> std::optional<WorkerPool::Task> {
            if (next == amounts.size()) {
                return std::nullopt;
            }
            const MixRequest request =
                BuildRequest(ReadInlineDispenser("EUR:1x100"), amounts[next], 1);
            return WorkerPool::Task{next++, request, deadline};
        },
        [&](const WorkerPool::Task& task, const Reply& reply) {
            EXPECT_TRUE(
                replies.emplace(amounts[static_cast<std::size_t>(task.number)], reply).second);
        });
    return replies;
}

constexpr std::uint32_t Amount(FakeBehaviour behaviour) {
    return static_cast<std::uint32_t>(behaviour);
}

TEST(WorkerPool, AnswersEveryTaskOnce) {
    std::vector<std::uint32_t> amounts;
    for (std::uint32_t amount = 0; amount < 500; ++amount) {
        amounts.push_back(amount);
    }
    for (const std::size_t workers : {1U, 2U, 7U}) {
        const auto replies = AskAll(amounts, workers, kLong);
        ASSERT_EQ(replies.size(), amounts.size());
        for (const auto& [amount, reply] : replies) {
            ASSERT_EQ(reply.calculation.result.aulNotes[0], amount);
        }
    }
}

TEST(WorkerPool, IsDoneAtOnceWithoutTasks) {
    EXPECT_TRUE(AskAll({}, 3, kLong).empty());
}

TEST(WorkerPool, GoesOnAfterMissesAndCrashes) {
    const auto replies = AskAll({1, Amount(FakeBehaviour::Crash), 2, Amount(FakeBehaviour::Leave),
                                 Amount(FakeBehaviour::Hang), 3},
                                2, kShort);
    EXPECT_EQ(replies.at(Amount(FakeBehaviour::Crash)).ending.kind, Ending::Kind::Crashed);
    EXPECT_EQ(replies.at(Amount(FakeBehaviour::Leave)).ending.kind, Ending::Kind::Crashed);
    EXPECT_EQ(replies.at(Amount(FakeBehaviour::Hang)).ending.kind, Ending::Kind::NoAnswer);
    EXPECT_EQ(replies.at(3).ending.kind, Ending::Kind::Answered);
}

TEST(WorkerPool, GivesAHangingCalculationTenTimesItsDeadline) {
    const auto start = Clock::now();
    AskAll({Amount(FakeBehaviour::Hang)}, 1, kShort);
    EXPECT_GE(Clock::now() - start, kShort * 10);
    EXPECT_LT(Clock::now() - start, kLong);
}

TEST(WorkerPool, EndsACalculationThatOnlyTraces) {
    std::size_t lines = 0;
    WorkerPool pool({QXMIX_FAKE_MODULE, ""}, 1, [&lines](const std::string&) { ++lines; });
    bool isAsked = false;
    Ending::Kind kind = Ending::Kind::Answered;
    pool.Run(
        [&isAsked]() -> std::optional<WorkerPool::Task> {
            if (isAsked) {
                return std::nullopt;
            }
            isAsked = true;
            const auto amount = Amount(FakeBehaviour::TraceForEver);
            return WorkerPool::Task{0, BuildRequest(ReadInlineDispenser("EUR:1x100"), amount, 1),
                                    kShort};
        },
        [&kind](const WorkerPool::Task&, const Reply& reply) { kind = reply.ending.kind; });
    EXPECT_EQ(kind, Ending::Kind::NoAnswer);
    EXPECT_GT(lines, 0U);
}

}  // namespace
}  // namespace qxmix
