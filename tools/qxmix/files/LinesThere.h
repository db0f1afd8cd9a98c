#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace qxmix {

/// The lines that an input had when it was opened: a file to which somebody appends faster than it
/// is read would have no end. The last of them is read as far as it has come since. Pipes and
/// devices say themselves where they end.
class LinesThere {
public:
    /// All that come.
    LinesThere() = default;

    /// @param bytes  that lie ahead.
    explicit LinesThere(std::uint64_t bytes) : left_(bytes) {}

    /// @param name  of a file, or "-".
    static LinesThere In(const std::string& name);

    /// Takes note of bytes that were read.
    void Pass(std::size_t bytes) { left_ -= bytes < left_ ? bytes : left_; }

    /// Whether a line that begins here is one of them.
    bool HasNext() const { return left_ > 0; }

private:
    std::uint64_t left_ = UINT64_MAX;
};

}  // namespace qxmix
