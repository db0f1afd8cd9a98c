#pragma once

/// Runs an action whose exceptions (want of memory, a listener of a C++ host) must end here, since
/// the callers are C functions.
template <typename Result, typename Action>
Result Guarded(Result whenItThrows, Action action) noexcept {
    try {
        return action();
    } catch (...) {
        return whenItThrows;
    }
}

/// As above, for an action that nobody asks how it ended.
template <typename Action>
void Guarded(Action action) noexcept {
    try {
        action();
    } catch (...) {
        return;
    }
}
