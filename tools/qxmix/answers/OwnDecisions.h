#pragma once

#include "workers/Worker.h"

#include <cstdint>
#include <memory>
#include <string>

namespace qxmix {

/// How a library behaves where the module that is a part of the tool decides otherwise.
enum class LibraryDifference : std::uint8_t {
    None,      ///< alike, or nobody knows
    Answers,   ///< it answers what the module never does
    NoAnswer,  ///< it gives no answer where the module ends
};

/// "the library answers, where the tool's own module never does"; nothing where there is none.
std::string WordsOf(LibraryDifference difference);

/// What the tool's own module decides about calls of another library.
///
/// Deciding may take seconds where values are huge, so a child does it. What takes it too long
/// stays undecided, and everything after that.
class OwnDecisions {
public:
    /// @param library  that is asked; about the tool's own there is nothing to decide.
    /// @param minimum  what it took from the registry (Opening).
    OwnDecisions(const std::string& library, std::uint32_t minimum);
    ~OwnDecisions();

    /// Whether it is worth asking.
    bool AreWanted() const { return isWanted_; }

    /// @param ending  of the library's call.
    LibraryDifference Of(const MixRequest& request, Ending::Kind ending);

private:
    std::uint32_t minimum_;
    bool isWanted_;
    std::unique_ptr<ChildProcess> child_;  // null: none has been needed so far
};

}  // namespace qxmix
