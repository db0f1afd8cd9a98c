#include "terminal/StandardStreams.h"

#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace qxmix {

void PrepareStandardStreams() {
    // Keeps files of the tool from taking the place of a standard stream that the caller has
    // closed: what is written there then fails, as it should.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1) {
            // Opened the wrong way round on purpose, and taken by the lowest free number.
            static_cast<void>(open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
        }
    }
    std::signal(SIGPIPE, SIG_DFL);
    // A file that grows beyond what the caller allows (ulimit -f) is an error like a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace qxmix
