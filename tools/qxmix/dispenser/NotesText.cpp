#include "NotesText.h"

#include "text/TextList.h"

#include <map>
#include <vector>

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

std::string NotesText(const Dispenser& dispenser, const CassetteItems& items, bool tellsCassettes) {
    std::map<Note, std::vector<std::size_t>> cassettes;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        cassettes[{cassette.Worth(), cassette.currency}].push_back(index);
    }
    std::vector<std::string> parts;
    for (const auto& [note, holders] : cassettes) {
        const bool tells = tellsCassettes && holders.size() > 1;
        std::uint64_t all = 0;
        for (const std::size_t index : holders) {
            all += items[index];
            if (tells && items[index] != 0) {
                parts.push_back(CassetteLabel(dispenser, index) + ":" +
                                std::to_string(items[index]) + "x" + NoteText(dispenser, note));
            }
        }
        if (!tells && all != 0) {
            parts.push_back(std::to_string(all) + "x" + NoteText(dispenser, note));
        }
    }
    return Join(parts, " ");
}

}  // namespace qxmix
