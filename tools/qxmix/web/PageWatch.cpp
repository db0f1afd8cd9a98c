#include "PageWatch.h"

#include <emscripten/emscripten.h>

// The page's own function; see worker.js.
// clang-format off
EM_JS(int, BeginCalculation, (), { return Module.beginCalculation() ? 1 : 0; })
// clang-format on

namespace qxmix {

bool TellPageOfCalculation() {
    return BeginCalculation() != 0;
}

}  // namespace qxmix
