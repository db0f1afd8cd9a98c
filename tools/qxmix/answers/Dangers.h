#pragma once

#include "Outcome.h"
#include "findings/Findings.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// An outcome that must not be overlooked when a mix is asked many times.
struct Danger {
    Outcome outcome;
    const char* doing;   ///< what the mix does, for people
    const char* id;      ///< of its finding; empty: it has none
    const char* advice;  ///< what to do
};

const std::vector<Danger>& Dangers();

using OutcomeCounts = std::function<std::uint64_t(Outcome)>;

/// What a mix does, for people.
///
/// @param isProved  whether none of the answers that are missing will ever come.
const char* DoingOf(const Danger& danger, bool isProved);

/// A finding for each danger that a mix has: "mix 4 overpays on 20 of 100 amounts".
///
/// @param all       what was asked: "100 amounts".
/// @param isProved  as for DoingOf.
std::vector<Finding> DangerFindings(std::uint16_t mix,
                                    const OutcomeCounts& count,
                                    const std::string& all,
                                    bool isProved);

}  // namespace qxmix
