#pragma once

/// The trace sink of the Linux build: the stand-in library keeps, prints or drops the lines.

extern "C" {
/// Whether anybody listens; nothing is formatted when nobody does.
int QxmixTraceWanted();
/// Takes one finished line, without line end, terminated by 0.
void QxmixTraceLine(const char* line);
}

constexpr bool kHasTraceSink = true;

inline bool TraceWanted() noexcept {
    return QxmixTraceWanted() != 0;
}

inline void TraceLine(const char* line) noexcept {
    QxmixTraceLine(line);
}
