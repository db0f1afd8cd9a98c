#include "options/SystemOptions.h"

#include <CLI/App.hpp>

namespace qxmix {

void LimitOptions(CLI::App&) {
    // The stand-in of the terminal's system is the tool's own: every option can be kept.
}

}  // namespace qxmix
