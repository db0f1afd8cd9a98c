#pragma once

#include <cstddef>
#include <string>

namespace qxmix {

/// A place in a text, both numbers from 1 on; columns count characters, not bytes.
struct TextPlace {
    std::size_t line = 1;
    std::size_t column = 1;
};

/// Where a field stands in the text of a JSON document.
///
/// @param text     that was read as JSON before.
/// @param pointer  a JSON pointer; of what is not there, the nearest that is around it.
TextPlace PlaceOf(const std::string& text, const std::string& pointer);

}  // namespace qxmix
