#pragma once

#include "StatusLine.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// How far a long list of calculations is.
struct WorkProgress {
    std::uint64_t done = 0;
    std::uint64_t misses = 0;  ///< deadlines missed
};

/// The line that tells how far a long command is.
class Progress {
public:
    /// @param command  name of the command.
    /// @param total    calculations, or lines; none where nobody knows.
    /// @param isQuiet  no line at all.
    Progress(std::string command, std::optional<std::uint64_t> total, bool isQuiet);

    void Show(const WorkProgress& work);

    /// Takes the line away.
    void Wipe() { line_.Wipe(); }

private:
    std::string command_;
    std::optional<std::uint64_t> total_;
    StatusLine line_;
};

/// "map  41%  24600/60000  8200/s  4 s left  (X 24)", or "batch  24600 lines  8200/s" without a
/// total.
///
/// @param passed  time since the beginning, above 0.
std::string ProgressText(const std::string& command,
                         const WorkProgress& work,
                         std::optional<std::uint64_t> total,
                         std::chrono::milliseconds passed);

}  // namespace qxmix
