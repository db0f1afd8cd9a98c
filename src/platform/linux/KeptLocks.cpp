#include "KeptLocks.h"

#include "RegistryStore.h"

#include <pthread.h>

namespace {

// Ready before any code runs.
std::mutex locks[static_cast<unsigned>(Kept::Memory) + 1];

void TakeAll() {
    // A fork amid the first call would leave it half made in the child. It is not made at load: a
    // host with registry functions of its own never needs it.
    RegistryStore::Instance();
    for (std::mutex& lock : locks) {
        lock.lock();
    }
}

void GiveBackAll() {
    for (std::mutex& lock : locks) {
        lock.unlock();
    }
}

// When the library is loaded; it stays loaded until the process ends.
[[maybe_unused]] const int registered = pthread_atfork(TakeAll, GiveBackAll, GiveBackAll);

}  // namespace

std::mutex& LockOf(Kept part) noexcept {
    return locks[static_cast<unsigned>(part)];
}
