#include "PlatformTest.h"
#include "TraceSink.h"

#include <atomic>
#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

class Forks : public PlatformTest {};

/// Uses each part of the stand-in once.
/// @return whether all of it worked.
bool UseEverything(void* event) {
    HKEY key = nullptr;
    void* block = nullptr;
    bool works = RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\ErrorCode", 0, KEY_ALL_ACCESS,
                               &key) == 0;
    works = Set(key, u"CDM", REG_SZ, {1, 2, 3, 4, 5}) == 0 && works;
    works = RegCloseKey(key) == 0 && works;
    works = WFMAllocateBuffer(8, 0, &block) == 0 && works;
    works = WFMFreeBuffer(block) == 0 && works;
    works = EventModify(event, EVENT_SET) != 0 && works;
    QxmixTraceLine("line");
    return works;
}

void Count(void* lines, const char*) {
    ++*static_cast<std::atomic<unsigned>*>(lines);
}

/// Waits for a child and gives its exit status, or -1 where a signal has ended it.
int StatusOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Forks, LeaveTheChildWhatOtherThreadsOfItsParentWereUsing) {
    constexpr unsigned kThreads = 3;
    constexpr unsigned kForks = 40;
    std::atomic<unsigned> lines{0};
    std::atomic<bool> ends{false};
    void* const event = QxmixEventCreate();
    QxmixSetTraceListener(Count, &lines);
    QxmixLogCalls(1);
    std::vector<std::thread> threads;
    for (unsigned thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&] {
            while (!ends) {
                UseEverything(event);
                QxmixSetTraceListener(Count, &lines);
                QxmixResetCalls();
            }
        });
    }
    while (lines < kThreads) {
        std::this_thread::yield();
    }
    for (unsigned number = 0; number < kForks && !HasFailure(); ++number) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(20);  // ends it where it waits for ever
            QxmixSetTraceListener(Count, &lines);
            const unsigned before = lines;
            const bool works = UseEverything(event) && QxmixCallCount(kQxmixAnyFunction) != 0;
            _exit(works && lines == before + 1 ? 0 : 1);
        }
        EXPECT_EQ(StatusOf(child), 0) << "child " << number;
    }
    ends = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(QxmixEventDestroy(event), 1);
}

TEST_F(Forks, DoNotWaitForAListenerNorDoesTheChild) {
    struct Hearing {
        std::atomic<bool> begins{false};
        std::atomic<bool> mayEnd{false};
    } hearing;
    QxmixSetTraceListener(
        [](void* context, const char*) {
            auto& shared = *static_cast<Hearing*>(context);
            shared.begins = true;
            while (!shared.mayEnd) {
                std::this_thread::yield();
            }
        },
        &hearing);
    std::thread hears([] { QxmixTraceLine("line"); });
    while (!hearing.begins) {
        std::this_thread::yield();
    }
    const pid_t child = fork();
    if (child == 0) {
        alarm(20);
        hearing.mayEnd = true;
        QxmixTraceLine("line");
        QxmixSetTraceListener(nullptr, nullptr);
        std::exit(QxmixTraceWanted());
    }
    EXPECT_EQ(StatusOf(child), 0);
    hearing.mayEnd = true;
    hears.join();
}

}  // namespace
