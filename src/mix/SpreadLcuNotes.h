#pragma once

#include "Records.h"

/// Spreads the items decided for each unit over its cassettes, in the table's order of cassettes.
///
/// Only cassettes that are ok or low give items, and only those with a slot in the result. What
/// they cannot give is left out and shows in the remainder.
///
/// @param result  all zero before.

/// Empties one cassette after the other.
void SpreadInOrder(const LcuTable& table, const LcuNotes& notes, MixResult& result) noexcept;

/// Deals one item at a time in turn.
void SpreadRoundRobin(const LcuTable& table, const LcuNotes& notes, MixResult& result) noexcept;
