#include "CaseWatch.h"

#include <charconv>
#include <csignal>
#include <cstring>
#include <sys/time.h>
#include <unistd.h>

namespace property {
namespace {

constexpr time_t kLongest = 60;  ///< seconds

volatile std::sig_atomic_t isWatched = 0;
std::uint64_t watched = 0;

void Say(const char* text, std::size_t size) {
    const ssize_t ignored = write(STDERR_FILENO, text, size);
    static_cast<void>(ignored);
}

void EndProgram(int) {
    if (isWatched == 0) {
        return;
    }
    char text[] = "case ....................: no answer within a minute of processor time\n";
    const std::to_chars_result end = std::to_chars(text + 5, text + 25, watched);
    Say(text, static_cast<std::size_t>(end.ptr - text));
    Say(text + 25, std::strlen(text + 25));
    _exit(1);
}

void SetTimer(time_t seconds) {
    const itimerval timer = {{0, 0}, {seconds, 0}};
    setitimer(ITIMER_PROF, &timer, nullptr);
}

}  // namespace

CaseWatch::CaseWatch(std::uint64_t number) {
    watched = number;
    isWatched = 1;
    std::signal(SIGPROF, &EndProgram);
    SetTimer(kLongest);
}

CaseWatch::~CaseWatch() {
    SetTimer(0);
    isWatched = 0;
}

}  // namespace property
