#pragma once

#include "FillAnswers.h"
#include "terminal/StatusLine.h"

#include <chrono>
#include <string>

namespace qxmix {

/// The line that tells how far a search is.
class FillProgressLine {
public:
    FillProgressLine(std::string command, const Dispenser& dispenser, bool isQuiet);

    void Show(const FillProgress& now);

    /// Takes the line away.
    void Wipe() { line_.Wipe(); }

private:
    std::string command_;
    std::string currency_;
    unsigned decimals_;
    StatusLine line_;
};

/// "fill  mix 1  41 of about 150 loadings  about 8 s left  best 84000 EUR".
///
/// @param passed  time since the beginning.
std::string FillProgressText(const std::string& command,
                             const FillProgress& now,
                             const std::string& best,
                             std::chrono::milliseconds passed);

}  // namespace qxmix
