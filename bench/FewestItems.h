#pragma once

#include <cstdint>

namespace bench {

/// The least number of items that makes an amount exactly.
struct FewestItems {
    enum class Kind { Found, None, GaveUp };
    Kind kind;
    std::uint32_t items = 0;
};

}  // namespace bench
