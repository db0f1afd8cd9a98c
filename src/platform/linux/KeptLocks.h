#pragma once

#include <mutex>

/// What the stand-in keeps from call to call, each part under a lock of its own.
enum class Kept { Calls, Events, Registry, Listener, Memory };

/// The lock of a part. A forked child finds it free and the part whole, whatever other threads of
/// its parent did at that moment: who forks waits for all of these locks. So nothing is waited for
/// while one of them is held, another of them least of all.
std::mutex& LockOf(Kept part) noexcept;
