#include "PlatformTest.h"
#include "TraceSink.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <set>
#include <thread>

namespace {

constexpr unsigned kThreads = 4;
constexpr unsigned kRounds = 300;

/// Runs work(thread) in several threads at once.
void InThreads(const std::function<void(unsigned)>& work) {
    std::vector<std::thread> threads;
    for (unsigned thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back(work, thread);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

class Threads : public PlatformTest {};

TEST_F(Threads, WriteOneValueAndTheLastWriteWins) {
    InThreads([](unsigned thread) {
        for (unsigned round = 0; round < kRounds; ++round) {
            const HKEY key = OpenErrorCode();
            EXPECT_EQ(Set(key, u"CDM", REG_SZ, Bytes(5, static_cast<std::uint8_t>(thread))), 0);
            EXPECT_EQ(RegCloseKey(key), 0);
        }
    });
    const Bytes stored = StoredBytes(kErrorCodeKey, "CDM");
    EXPECT_EQ(stored, Bytes(5, stored.at(0)));
    EXPECT_EQ(QxmixRegistryOpenKeys(), 0U);
    EXPECT_EQ(QxmixCallCount(kQxmixRegSetValueExW), kThreads * kRounds);
    EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 3 * kThreads * kRounds);
}

TEST_F(Threads, ReadWhileTheContentIsReplaced) {
    InThreads([](unsigned thread) {
        for (unsigned round = 0; round < kRounds; ++round) {
            HKEY key = nullptr;
            if (thread == 0) {
                QxmixRegistryReset();
            } else if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\ErrorCode", 0,
                                     KEY_ALL_ACCESS, &key) == 0) {
                const LONG result = Set(key, u"CDM", REG_SZ, {1});
                EXPECT_TRUE(result == 0 || result == kQxmixErrorKeyDeleted) << result;
                EXPECT_EQ(RegCloseKey(key), 0);
            }
        }
    });
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 1);
}

TEST_F(Threads, AllocateAndFreeMemory) {
    InThreads([](unsigned) {
        for (unsigned round = 0; round < kRounds; ++round) {
            void* root = nullptr;
            void* linked = nullptr;
            EXPECT_EQ(WFMAllocateBuffer(16, WFS_MEM_ZEROINIT, &root), 0);
            EXPECT_EQ(WFMAllocateMore(16, root, &linked), 0);
            EXPECT_EQ(WFMFreeBuffer(root), 0);
        }
    });
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
}

TEST_F(Threads, SetOneEvent) {
    void* event = QxmixEventCreate();
    InThreads([event](unsigned) {
        for (unsigned round = 0; round < kRounds; ++round) {
            EXPECT_EQ(EventModify(event, EVENT_SET), 1);
        }
    });
    EXPECT_EQ(QxmixEventSignals(event), kThreads * kRounds);
}

TEST_F(Threads, LogEveryCallOnce) {
    QxmixLogCalls(1);
    InThreads([](unsigned thread) {
        for (unsigned round = 0; round < kRounds; ++round) {
            EventModify(nullptr, thread * kRounds + round);
        }
    });
    std::set<std::uint32_t> operations;
    QxmixCall call;
    for (std::uint32_t index = 0; QxmixGetLoggedCall(index, &call) == 1; ++index) {
        operations.insert(call.options);
    }
    EXPECT_EQ(QxmixLoggedCalls(), kThreads * kRounds);
    EXPECT_EQ(operations.size(), kThreads * kRounds);
}

TEST_F(Threads, FailOnceForOneOrder) {
    QxmixFailCall(kQxmixRegCloseKey, kThreads * kRounds / 2, -99);
    std::atomic<unsigned> failures{0};
    InThreads([&failures](unsigned) {
        for (unsigned round = 0; round < kRounds; ++round) {
            failures += RegCloseKey(HKEY_LOCAL_MACHINE) == -99 ? 1 : 0;
        }
    });
    EXPECT_EQ(failures, 1U);
}

TEST_F(Threads, TraceOneLineAtATime) {
    constexpr unsigned kLines = 10;
    struct Heard {
        std::atomic<unsigned> lines{0};
        std::atomic<unsigned> inside{0};
        std::atomic<unsigned> meetings{0};
    } heard;
    const auto listen = [](void* context, const char*) {
        Heard& known = *static_cast<Heard*>(context);
        known.meetings += known.inside++ == 0 ? 0 : 1;
        // So long that the others come, too, where nothing keeps them out.
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        --known.inside;
        ++known.lines;
    };
    QxmixSetTraceListener(listen, &heard);
    InThreads([](unsigned) {
        for (unsigned round = 0; round < kLines; ++round) {
            if (TraceWanted()) {
                TraceLine("line");
            }
        }
    });
    QxmixSetTraceListener(nullptr, nullptr);
    EXPECT_EQ(heard.lines, kThreads * kLines);
    EXPECT_EQ(heard.meetings, 0U);
}

TEST_F(Threads, TakeTheListenerBackForGood) {
    std::atomic<bool> gone{false};
    const auto listen = [](void* context, const char*) {
        EXPECT_FALSE(*static_cast<std::atomic<bool>*>(context));
    };
    InThreads([&](unsigned thread) {
        if (thread == 0) {
            QxmixSetTraceListener(listen, &gone);
            QxmixSetTraceListener(nullptr, nullptr);
            gone = true;
        } else {
            for (unsigned round = 0; round < kRounds; ++round) {
                QxmixTraceLine("line");
            }
        }
    });
    EXPECT_TRUE(gone);
}

}  // namespace
