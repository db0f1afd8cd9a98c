#pragma once

#include <utility>

/// Scan order of the inner loop; it decides where equal entries end up.
enum class Scan { Downwards, Upwards };

/// Plain exchange sort: each entry in turn is exchanged with every later one that belongs before
/// it.
///
/// The order of equal entries is part of the module's behaviour, so no other sort can stand here.
///
/// @param entries     `count` entries, sorted in place.
/// @param outOfOrder  whether the first entry has to stand behind the second.
template <typename Entry, typename OutOfOrder>
void ExchangeSort(Entry* entries, unsigned count, Scan scan, OutOfOrder outOfOrder) noexcept {
    for (unsigned first = 0; first < count; ++first) {
        for (unsigned turn = first + 1; turn < count; ++turn) {
            const unsigned second = scan == Scan::Upwards ? turn : count + first - turn;
            if (outOfOrder(entries[first], entries[second])) {
                std::swap(entries[first], entries[second]);
            }
        }
    }
}
