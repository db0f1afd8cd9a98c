#include "terminal/StandardStreams.h"

#include <cstdio>
#include <fcntl.h>
#include <initializer_list>
#include <io.h>

namespace qxmix {

void PrepareStandardStreams() {
    // The same bytes as on every other system: no carriage returns.
    for (std::FILE* stream : {stdin, stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
}

}  // namespace qxmix
