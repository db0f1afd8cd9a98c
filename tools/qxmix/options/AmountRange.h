#pragma once

#include "Parser.h"
#include "dispenser/Dispenser.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// Amounts from one to another, in the unit of an amount.
struct AmountRange {
    std::uint32_t from = 1;
    std::uint32_t to = 1;  ///< not below `from`
    std::uint32_t step = 1;
};

/// The options of the commands that ask for many amounts: --from, --to and --step.
struct AmountRangeOptions {
    std::string from;  ///< empty: not given
    std::string to;    ///< empty: not given
    std::optional<std::uint32_t> step;

    /// Whether any of them was given.
    bool IsNamed() const { return !from.empty() || !to.empty() || step; }

    /// @throw InputError when a text is no amount of any dispenser.
    void RequireNumbers() const;

    /// What was given, or else what the dispenser's customers can ask.
    ///
    /// @throw InputError
    AmountRange RangeOf(const Dispenser& dispenser) const;
};

void AddAmountRangeOptions(CLI::App& command, AmountRangeOptions& options);

}  // namespace qxmix
