#include "EndlessCall.h"

#include <csignal>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ErrorCode.h"

namespace property {
namespace {

int answerPipe = -1;

void Tell(const std::string& text) {
    const ssize_t written = write(answerPipe, text.data(), text.size());
    _exit(written == static_cast<ssize_t>(text.size()) ? 0 : 1);
}

/// The call spins by now and holds no lock: what it has recorded can be read.
void TellCode(int) {
    Tell("spins " + TakeErrorCode());
}

[[noreturn]] void Call(ModuleUnderTest& module, const reference::Object& object, Answer& answer) {
    constexpr itimerval kTenth{{}, {0, 100000}};
    std::signal(SIGVTALRM, TellCode);
    setitimer(ITIMER_VIRTUAL, &kTenth, nullptr);
    module.Calculate(object, 0, answer);
    Tell("returned");
    _exit(1);
}

}  // namespace

std::string
WatchEndlessCall(ModuleUnderTest& module, const reference::Object& object, Answer answer) {
    int ends[2];
    if (pipe(ends) != 0) {
        return "no pipe";
    }
    const pid_t child = fork();
    if (child == 0) {
        answerPipe = ends[1];
        Call(module, object, answer);
    }
    close(ends[1]);
    char text[64];
    const ssize_t size = read(ends[0], text, sizeof(text));
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return size > 0 ? std::string(text, static_cast<std::size_t>(size)) : "died";
}

}  // namespace property
