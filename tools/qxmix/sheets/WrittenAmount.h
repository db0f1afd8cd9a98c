#pragma once

#include "dispenser/Money.h"

#include <cstddef>
#include <optional>
#include <string>

namespace qxmix {

/// An amount as it was written, before it is known which mark stands before its decimals.
struct WrittenAmount {
    enum class Form {
        Plain,     ///< 1234
        Grouped,   ///< 1'234 or 1,234,567
        Decimals,  ///< 50.00 or 1.234,00
        Either     ///< 1.234: grouped, or with decimals
    };

    static constexpr std::size_t kGroup = 3;  ///< digits

    std::string text;
    Form form = Form::Plain;
    /// Before decimals, "." or ",", as far as the form shows it, else '\0'; of Either the one that
    /// it has.
    char mark = '\0';

    /// The money that it is.
    ///
    /// @param decimalMark  "." or ","; anything else: all marks part groups.
    Money Value(char decimalMark) const;
};

/// Reads digits, in groups or not, with decimals or not. Groups are parted by points, commas,
/// apostrophes or blanks; each has three digits, or all but the last two, as in India.
std::optional<WrittenAmount> ParseWrittenAmount(const std::string& text);

}  // namespace qxmix
