#include "PartFile.h"

#include "errors/Errors.h"
#include "text/Hex.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

namespace qxmix {

namespace {

/// More than any command writes.
constexpr std::size_t kMostParts = 8;

/// What a handler of a signal has to know; plain memory, since it may run at any moment.
struct PartName {
    volatile std::sig_atomic_t isThere;
    int folder;
    char name[32];
};
PartName parts[kMostParts];
pid_t owner = 0;

void EndTool(int signal) {
    RemovePartFiles();
    // The handler was for one signal only: now it ends the tool as if there had been none.
    raise(signal);
}

/// Whoever ignores one of these (nohup) goes on doing so, and whoever catches one (Ctrl-C) too.
void CatchEnds() {
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGXCPU}) {
        struct sigaction action {};
        if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
            action.sa_handler = &EndTool;
            action.sa_flags = static_cast<int>(SA_RESETHAND);
            sigaction(signal, &action, nullptr);
        }
    }
}

std::size_t FreeIndex(const std::string& nameInErrors) {
    for (std::size_t index = 0; index < kMostParts; ++index) {
        if (parts[index].isThere == 0) {
            return index;
        }
    }
    throw WorkError(nameInErrors + ": cannot be written: too many files at a time");
}

}  // namespace

PartFile::Entry::Entry(int folder, const std::string& nameInErrors)
    : index_(FreeIndex(nameInErrors)) {
    char bytes[8];
    if (getrandom(bytes, sizeof(bytes), 0) != static_cast<ssize_t>(sizeof(bytes))) {
        FailToWrite(nameInErrors);
    }
    PartName& part = parts[index_];
    const std::string number = HexText(std::string(bytes, sizeof(bytes)));
    std::snprintf(part.name, sizeof(part.name), "qxmix-%s.part", number.c_str());
    part.folder = folder;
    owner = getpid();
    CatchEnds();
    part.isThere = 1;
}

PartFile::Entry::~Entry() {
    PartName& part = parts[index_];
    if (part.isThere != 0) {
        unlinkat(part.folder, part.name, 0);
        part.isThere = 0;
    }
}

const char* PartFile::Entry::Name() const {
    return parts[index_].name;
}

void PartFile::Entry::MoveTo(const std::string& name, const std::string& nameInErrors) {
    PartName& part = parts[index_];
    if (renameat(part.folder, part.name, part.folder, name.c_str()) != 0) {
        FailToWrite(nameInErrors);
    }
    part.isThere = 0;
}

PartFile::PartFile(int folder, mode_t mode, const std::string& nameInErrors)
    : entry_(folder, nameInErrors),
      file_(
          openat(folder, entry_.Name(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode),
          nameInErrors) {
}

void PartFile::MoveTo(const std::string& name) {
    entry_.MoveTo(name, file_.Name());
}

void RemovePartFiles() noexcept {
    if (owner != getpid()) {
        return;  // a worker: they are the tool's
    }
    for (const PartName& part : parts) {
        if (part.isThere != 0) {
            unlinkat(part.folder, part.name, 0);
        }
    }
}

}  // namespace qxmix
