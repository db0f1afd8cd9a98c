#pragma once

/// Trace lines: formatted into 256 bytes and handed to the build's sink.
///
/// Where the sink is empty the calls compile to nothing; where nobody listens nothing is formatted.

#include "TraceSink.h"

#include <cstdint>
#include <cstdio>

/// Prints like %d: the low 32 bits as a signed number.
inline int TraceNumber(std::uint32_t value) noexcept {
    return static_cast<int>(value);
}

/// A line that is put together from pieces; text beyond 255 characters is cut off, and a piece that
/// cannot be formatted is left out.
class TraceText {
public:
    TraceText() noexcept { line_[0] = '\0'; }

    template <typename... Values>
    void Append(const char* format, Values... values) noexcept {
        const int added =
            std::snprintf(line_ + length_, sizeof(line_) - length_, format, values...);
        if (added > 0) {
            length_ += static_cast<unsigned>(added);
            length_ = length_ < sizeof(line_) ? length_ : unsigned{sizeof(line_)} - 1;
        }
        line_[length_] = '\0';  // what stands behind it after an error is anybody's guess
    }

    const char* Line() const noexcept { return line_; }

private:
    char line_[256];
    unsigned length_ = 0;
};

/// Hands one formatted line to the sink.
template <typename... Values>
void Trace(const char* format, Values... values) noexcept {
    if constexpr (kHasTraceSink) {
        if (TraceWanted()) {
            TraceText text;
            text.Append(format, values...);
            TraceLine(text.Line());
        }
    }
}

/// Hands "heading number number ... ." to the sink; `number(index)` gives each of the `count`.
template <typename Number>
void TraceNumbers(const char* heading, unsigned count, Number number) noexcept {
    if constexpr (kHasTraceSink) {
        if (TraceWanted()) {
            TraceText text;
            text.Append("%s", heading);
            for (unsigned index = 0; index < count; ++index) {
                text.Append(" %d", TraceNumber(number(index)));
            }
            text.Append("%s", ".");
            TraceLine(text.Line());
        }
    }
}
