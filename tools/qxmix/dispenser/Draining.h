#pragma once

#include "Dispenser.h"
#include "Records.h"

#include <array>
#include <cstdint>
#include <string>

namespace qxmix {

/// Items by cassette of a dispenser.
using CassetteItems = std::array<std::uint32_t, kMaxCashUnits>;

/// Takes items that are there out of the cassettes. Each cassette that gives any, and was ok or
/// low, gets its status from its thresholds.
void TakeItems(Dispenser& dispenser, const CassetteItems& items);

/// The status that a cassette has by its count: ok, low or empty.
std::uint16_t StatusByCount(const Cassette& cassette);

/// Whether a cassette has run empty: it holds no more than its threshold says.
bool IsEmpty(const Cassette& cassette);

/// What the items in all cassettes of the dispenser's currency are worth.
Money ValueHeld(const Dispenser& dispenser);

/// What items are worth together.
Money WorthOf(const Dispenser& dispenser, const CassetteItems& items);

}  // namespace qxmix
