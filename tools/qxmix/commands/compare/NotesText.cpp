#include "NotesText.h"

#include "text/TextList.h"

#include <algorithm>
#include <map>
#include <utility>

namespace qxmix {

namespace {

/// What a customer takes an item for; the largest first.
struct Note {
    Money worth;
    std::string currency;

    bool operator<(const Note& other) const {
        return other.worth < worth || (worth == other.worth && currency < other.currency);
    }
};

std::string NoteText(const Dispenser& dispenser, const Note& note) {
    return note.worth.ShortText() + (note.currency == dispenser.currency ? "" : note.currency);
}

}  // namespace

std::string NotesText(const Dispenser& dispenser, const MapCell& cell, bool tellsCassettes) {
    std::map<Note, std::vector<std::size_t>> cassettes;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        cassettes[{cassette.Worth(), cassette.currency}].push_back(index);
    }
    std::array<std::uint32_t, kMaxCashUnits> left = cell.values;
    const auto take = [&left, &dispenser](std::size_t index) -> std::uint32_t {
        const std::uint16_t slot = dispenser.cassettes[index].position;
        return slot < left.size() ? std::exchange(left[slot], 0) : 0;
    };
    std::vector<std::string> parts;
    for (const auto& [note, holders] : cassettes) {
        const bool tells = tellsCassettes && holders.size() > 1;
        std::uint64_t all = 0;
        for (const std::size_t index : holders) {
            const std::uint32_t items = take(index);
            all += items;
            if (tells && items != 0) {
                parts.push_back(CassetteLabel(dispenser, index) + ":" + std::to_string(items) +
                                "x" + NoteText(dispenser, note));
            }
        }
        if (!tells && all != 0) {
            parts.push_back(std::to_string(all) + "x" + NoteText(dispenser, note));
        }
    }
    for (const std::uint32_t items : left) {
        if (items != 0) {
            parts.push_back(std::to_string(items) + "x?");
        }
    }
    return Join(parts, " ");
}

}  // namespace qxmix
