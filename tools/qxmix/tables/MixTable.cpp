#include "MixTable.h"

#include "text/TextList.h"

namespace qxmix {

NotesByWorth MixTable::NotesOf(const Row& row, const Dispenser& dispenser) const {
    NotesByWorth notes;
    for (std::size_t column = 0; column < header.size(); ++column) {
        if (row.counts[column] != 0) {
            notes[AskedMoney(dispenser, header[column])] = row.counts[column];
        }
    }
    return notes;
}

std::string TextOf(const NotesByWorth& notes) {
    std::vector<std::string> parts;
    for (auto note = notes.rbegin(); note != notes.rend(); ++note) {
        parts.push_back(std::to_string(note->second) + "x" + note->first.ShortText());
    }
    return Join(parts, " ");
}

}  // namespace qxmix
