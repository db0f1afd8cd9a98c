#include "terminal/StandardStreams.h"

namespace qxmix {

void PrepareStandardStreams() {
    // The page takes what is written as it is.
}

}  // namespace qxmix
