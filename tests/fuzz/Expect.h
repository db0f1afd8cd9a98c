#pragma once

#include <cstdio>
#include <cstdlib>

namespace fuzz {

/// Ends the process, which is a finding, unless it is so.
inline void Expect(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "not so: %s\n", what);
        std::abort();
    }
}

}  // namespace fuzz
