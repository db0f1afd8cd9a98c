#pragma once

#include "Units.h"
#include "answers/Answer.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace qxmix {

/// Items that the search takes of each unit kept, in the mix's order: the module is asked with each
/// unit as one cassette that gives what is taken of it. Empty when it does not pay that.
///
/// @param amount  as asked.
/// @param limit   most notes, and most coins, instead of the request's own.
std::vector<std::uint32_t> SearchedItems(const Units& units,
                                         std::uint32_t amount,
                                         Asker& asker,
                                         std::optional<std::uint16_t> limit = std::nullopt);

/// Items that the cassettes of each unit kept give, in the mix's order.
std::vector<std::uint32_t> GivenItems(const Units& units, const Answer& answer);

}  // namespace qxmix
