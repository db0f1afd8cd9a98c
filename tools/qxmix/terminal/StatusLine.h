#pragma once

#include <chrono>
#include <string>

namespace qxmix {

/// A line on standard error that tells what is going on: only at a terminal, after half a second,
/// written over in place and wiped at the end. What standard output is plays no part.
class StatusLine {
public:
    /// @param isQuiet  no line at all.
    explicit StatusLine(bool isQuiet);
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    ~StatusLine() { Wipe(); }

    /// Whether it is time to show another text.
    bool IsDue() const { return isOn_ && Clock::now() >= next_; }

    /// Since the beginning.
    std::chrono::milliseconds Passed() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start_);
    }

    /// Shows a text in place of the last one; cut to the width of the terminal.
    void Show(const std::string& text);

    /// Takes the line away.
    void Wipe();

private:
    using Clock = std::chrono::steady_clock;

    bool isOn_;
    bool isShown_ = false;
    Clock::time_point start_;
    Clock::time_point next_;
};

}  // namespace qxmix
