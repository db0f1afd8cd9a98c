#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace qxmix {

/// A character of a text in UTF-8.
struct Character {
    std::uint32_t code = 0;  ///< its number in Unicode
    std::size_t size = 1;    ///< its bytes

    /// Columns that a terminal gives it: 2 to the wide ones of East Asia and to pictures, 0 to
    /// marks on the character before them.
    std::size_t Columns() const;

    /// Whether it could move the cursor, split a line or turn the direction of what follows. A byte
    /// that is no character could: terminals that do not read UTF-8 take some for controls.
    bool Moves() const;
};

/// The character that begins there; a byte that begins none stands for a character of its own.
Character CharacterAt(const std::string& utf8, std::size_t at);

}  // namespace qxmix
