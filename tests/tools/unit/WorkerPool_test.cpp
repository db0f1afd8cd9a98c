#include "workers/WorkerPool.h"

#include "FakeModule.h"
#include "dispenser/InlineDispenser.h"
#include "requests/Request.h"
#include "workers/Interrupt.h"

#include <gtest/gtest.h>

#include <csignal>
#include <map>
#include <unistd.h>

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

using Replies = std::vector<Reply>;

WorkerPool::Source OneJobEachOf(std::vector<std::string> jobs) {
    const auto next = std::make_shared<std::size_t>(0);
    return [jobs, next]() -> std::optional<WorkerPool::Task> {
        if (*next == jobs.size()) {
            return std::nullopt;
        }
        return WorkerPool::Task{*next, MixRequest{}, kShort, jobs[(*next)++]};
    };
}

/// The replies to jobs that a single worker does one after the other.
Replies DoAll(const Job& job, const std::vector<std::string>& jobs) {
    WorkerPool pool({QXMIX_FAKE_MODULE, ""}, 1, nullptr, job);
    Replies replies;
    pool.Run(OneJobEachOf(jobs),
             [&replies](const WorkerPool::Task&, const Reply& reply) { replies.push_back(reply); });
    return replies;
}

[[noreturn]] void WorkForEver() {
    for (volatile unsigned turns = 0;;) {
        turns = turns + 1;
    }
}

TEST(WorkerPool, BringsAJobsReportInParts) {
    const Job job = [](const std::string& bytes, AtWork& work) {
        work.Send(bytes + " 1");
        work.Send(bytes + " 2");
        return bytes + " 3";
    };
    const Replies replies = DoAll(job, {"a", "b"});
    ASSERT_EQ(replies.size(), 6U);
    EXPECT_EQ(replies[1].report, "a 2");
    EXPECT_FALSE(replies[1].isLast);
    EXPECT_EQ(replies[2].report, "a 3");
    EXPECT_TRUE(replies[2].isLast);
    EXPECT_EQ(replies[5].report, "b 3");
}

TEST(WorkerPool, TellsTheItemThatMissedItsDeadline) {
    const Job job = [](const std::string& bytes, AtWork& work) {
        work.Begin(6);
        work.End();
        work.Begin(7);
        if (bytes == "long") {
            WorkForEver();
        }
        return bytes;
    };
    const Replies replies = DoAll(job, {"long", "short"});
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(replies[0].ending.kind, Ending::Kind::NoAnswer);
    EXPECT_EQ(replies[0].item, 7U);
    EXPECT_EQ(replies[1].report, "short");
}

TEST(WorkerPool, GivesEachItemADeadlineOfItsOwn) {
    const Job job = [](const std::string& bytes, AtWork& work) {
        for (std::uint64_t item = 1; item <= 6; ++item) {
            work.Begin(item);
            const auto until = Clock::now() + kShort / 2;
            while (Clock::now() < until) {
            }
            work.End();
        }
        return bytes;
    };
    EXPECT_EQ(DoAll(job, {"three deadlines long"}).front().report, "three deadlines long");
}

TEST(WorkerPool, KeepsNoDeadlineBesideItems) {
    const Job job = [](const std::string& bytes, AtWork&) {
        const auto until = Clock::now() + kShort * 3;
        while (Clock::now() < until) {
        }
        return bytes;
    };
    EXPECT_EQ(DoAll(job, {"three deadlines long"}).front().report, "three deadlines long");
}

TEST(WorkerPool, TellsTheItemThatCrashed) {
    const Job job = [](const std::string& bytes, AtWork& work) {
        work.Begin(4);
        if (bytes == "beside") {
            work.End();
        }
        std::raise(SIGKILL);
        return bytes;
    };
    const Replies replies = DoAll(job, {"in an item", "beside"});
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(replies[0].ending.crash, "signal 9 (Killed)");
    EXPECT_EQ(replies[0].item, 4U);
    EXPECT_EQ(replies[1].ending.kind, Ending::Kind::Crashed);
    EXPECT_EQ(replies[1].item, 0U);
}

TEST(WorkerPool, ReplacesAWornWorkerAndNoOther) {
    const Job job = [](const std::string& bytes, AtWork& work) {
        if (bytes == "wears") {
            work.WearOut();
        }
        return std::to_string(getpid());
    };
    const Replies replies = DoAll(job, {"lasts", "wears", "lasts", "lasts"});
    ASSERT_EQ(replies.size(), 4U);
    EXPECT_EQ(replies[0].report, replies[1].report);
    EXPECT_NE(replies[1].report, replies[2].report);
    EXPECT_EQ(replies[2].report, replies[3].report);
}

TEST(WorkerPool, GivesUpWhatIsUnderWay) {
    const Job job = [](const std::string&, AtWork& work) -> std::string {
        work.Begin(9);
        work.Send("begun");
        WorkForEver();
    };
    WorkerPool pool({QXMIX_FAKE_MODULE, ""}, 1, nullptr, job);
    Replies replies;
    const auto sink = [&replies](const WorkerPool::Task&, const Reply& reply) {
        replies.push_back(reply);
    };
    CatchInterrupts();
    pool.HandOut(OneJobEachOf({"endless"}));
    while (replies.empty()) {
        EXPECT_FALSE(pool.Wait(kNoChannelEnd, Clock::time_point::max()));
        pool.TakeReplies(sink);
    }
    pool.GiveUp(sink);
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_FALSE(replies[0].isLast);
    EXPECT_EQ(replies[1].ending.kind, Ending::Kind::NoAnswer);
    EXPECT_EQ(replies[1].item, 9U);
    pool.GiveUp(sink);  // nothing is under way
    EXPECT_EQ(replies.size(), 2U);
}

}  // namespace
}  // namespace qxmix
