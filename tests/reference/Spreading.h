#pragma once

#include "Searches.h"
#include "UnitTable.h"

namespace reference {

/// Puts the notes of each unit on its cassettes, each as far as it goes before the next.
/// Counts the notes down as they are placed; result is by cassette position.
void SpreadInOrder(const UnitTable& table, Notes& notes, Notes& result, Journal& journal);

/// Deals the notes of each unit one at a time over its cassettes.
void SpreadRoundRobin(const UnitTable& table, const Notes& notes, Notes& result, Journal& journal);

}  // namespace reference
