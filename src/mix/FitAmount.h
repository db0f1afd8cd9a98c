#pragma once

#include "Records.h"

/// Holds the amount to what the units hold; with a partial amount allowed it is lowered to that.
///
/// @return whether there is an amount to search for.
bool FitAmount(MixRequest& request, const LcuTable& table) noexcept;
