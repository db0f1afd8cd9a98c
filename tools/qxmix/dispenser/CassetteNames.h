#pragma once

#include "Dispenser.h"

#include <cstddef>
#include <string>

namespace qxmix {

/// "A   100 EUR" for each cassette of a dispenser, in columns.
class CassetteNames {
public:
    explicit CassetteNames(const Dispenser& dispenser);

    std::size_t LongestLabel() const { return longestLabel_; }

    std::string Text(std::size_t index, std::size_t labelWidth) const;

private:
    std::string Label(std::size_t index) const;
    std::string Worth(std::size_t index) const;

    const Dispenser& dispenser_;
    std::size_t longestLabel_ = 0;
    std::size_t longestWorth_ = 0;
};

}  // namespace qxmix
