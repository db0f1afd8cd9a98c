#pragma once

#include "dispenser/Dispenser.h"
#include "workers/Worker.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Every amount from one to another, or each of a list, asked of a dispenser by one or more mixes.
struct MapQuestions {
    Dispenser dispenser;
    std::vector<std::uint16_t> mixes;  ///< in order, each once
    std::uint32_t from = 1;
    std::uint32_t to = 1;  ///< not below `from`
    std::uint32_t step = 1;
    std::vector<std::uint32_t>
        listed;  ///< if not empty: these amounts, not those from one to another
    Milliseconds deadline{100};
    std::size_t jobs = 1;  ///< workers side by side

    /// Missed deadlines after which a mix is given up: its row ends there. None: never.
    std::optional<std::uint64_t> mostMisses;

    std::uint64_t AmountCount() const {
        return listed.empty() ? (to - from) / step + std::uint64_t{1} : listed.size();
    }

    std::uint32_t Amount(std::uint64_t index) const {
        return listed.empty() ? from + static_cast<std::uint32_t>(index) * step
                              : listed[static_cast<std::size_t>(index)];
    }

    std::uint64_t CellCount() const { return AmountCount() * mixes.size(); }
};

/// Refuses maps that are too large, and says which step would do.
///
/// @param most    cells.
/// @param option  that the error is about.
/// @throw InputError
void CheckCellCount(const MapQuestions& questions, std::uint64_t most, const std::string& option);

}  // namespace qxmix
