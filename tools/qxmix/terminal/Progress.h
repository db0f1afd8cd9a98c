#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace qxmix {

/// How far a long list of calculations is.
struct WorkProgress {
    std::uint64_t done = 0;
    std::uint64_t misses = 0;  ///< deadlines missed
};

/// A line on standard error that tells how far a long command is: only at a terminal, after half a
/// second, and wiped at the end.
class Progress {
public:
    /// @param command  name of the command.
    /// @param total    calculations.
    /// @param isQuiet  no line at all.
    Progress(std::string command, std::uint64_t total, bool isQuiet);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { Wipe(); }

    void Show(const WorkProgress& work);

    /// Takes the line away.
    void Wipe();

private:
    using Clock = std::chrono::steady_clock;

    std::string command_;
    std::uint64_t total_;
    bool isOn_;
    bool isShown_ = false;
    Clock::time_point start_;
    Clock::time_point next_;
};

/// "map  41%  24600/60000  8200/s  4 s left  (X 24)"
///
/// @param total   calculations.
/// @param passed  time since the beginning, above 0.
std::string ProgressText(const std::string& command,
                         const WorkProgress& work,
                         std::uint64_t total,
                         std::chrono::milliseconds passed);

}  // namespace qxmix
