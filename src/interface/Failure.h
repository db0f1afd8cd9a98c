#pragma once

#include <cstdint>

/// Why a calculation fails, for the caller (result code) and for the terminal (registry code).
enum class Failure {
    InvalidMixNumber,  ///< outside the object's range, or no mix at all
    NotDispensable,    ///< no usable unit, too little money, or no combination
    TooManyNotes,      ///< notes above usMaxDispenseItems
    TooManyCoins,      ///< notes within usMaxDispenseItems, coins above
    TooManyUnits,      ///< not 1 to 5 units
};

/// Records the failure in the registry and gives the result code to return.
///
/// A path that fails without recording returns the plain code instead and says so.
std::int32_t Fail(Failure failure) noexcept;
