#include "LineCount.h"

#include <algorithm>

namespace qxmix {

void LineCount::Add(const char* bytes, std::size_t size) {
    if (size > 0) {
        ended_ += static_cast<std::uint64_t>(std::count(bytes, bytes + size, '\n'));
        last_ = bytes[size - 1];
    }
}

}  // namespace qxmix
