#pragma once

/// The trace sink of the desktop Windows build is empty: no line is ever formatted.

constexpr bool kHasTraceSink = false;

inline bool TraceWanted() noexcept {
    return false;
}

inline void TraceLine(const char*) noexcept {
}
