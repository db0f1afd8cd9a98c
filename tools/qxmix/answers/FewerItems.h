#pragma once

#include "dispenser/Draining.h"

#include <cstdint>
#include <optional>

namespace qxmix {

/// A combination of few items that makes an amount, out of the cassettes of the dispenser's
/// currency that are ok or low.
///
/// @param most  items; fewer are looked for as long as that does not take long.
/// @return none where none was found.
std::optional<CassetteItems>
FewItemsFor(const Dispenser& dispenser, std::uint32_t amount, std::uint64_t most);

/// How many items they are.
std::uint64_t CountOf(const CassetteItems& items);

}  // namespace qxmix
