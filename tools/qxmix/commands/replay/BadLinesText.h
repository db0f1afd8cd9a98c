#pragma once

#include <cstddef>
#include <string>

namespace qxmix {

/// "2 bad lines were passed over" as a line; empty when there are none.
inline std::string BadLinesText(std::size_t bad) {
    return bad == 0   ? ""
           : bad == 1 ? "1 bad line was passed over\n"
                      : std::to_string(bad) + " bad lines were passed over\n";
}

/// More differences than anybody reads are in the other forms only.
constexpr std::size_t kMostDifferencesShown = 20;

/// "and 5 more; --json has them all" as a line.
inline std::string MoreText(std::size_t differences) {
    return differences <= kMostDifferencesShown
               ? ""
               : "and " + std::to_string(differences - kMostDifferencesShown) +
                     " more; --json has them all\n";
}

}  // namespace qxmix
