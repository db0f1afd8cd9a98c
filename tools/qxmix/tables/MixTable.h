#pragma once

#include "dispenser/Dispenser.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qxmix {

/// Notes of each worth, none of which there is none.
using NotesByWorth = std::map<Money, std::uint64_t>;

/// A table of amounts with the notes that each is paid with, as an XFS service takes it. All money
/// is in the unit of an amount, as the service counts it.
struct MixTable {
    struct Row {
        std::uint32_t amount = 0;
        std::vector<std::uint16_t> counts;  ///< of each note of the header
    };

    // What a service can take: both are 16 bits there.
    static constexpr std::size_t kMostRows = UINT16_MAX;
    static constexpr std::size_t kMostNotes = UINT16_MAX;

    std::uint16_t number = 0;
    std::string name;
    std::vector<std::uint32_t> header;  ///< what a note is worth; each once
    std::vector<Row> rows;              ///< each amount once

    /// The notes of a row.
    NotesByWorth NotesOf(const Row& row, const Dispenser& dispenser) const;
};

/// Notes for people, the largest first: "1x50 3x20".
std::string TextOf(const NotesByWorth& notes);

}  // namespace qxmix
