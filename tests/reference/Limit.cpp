#include "Searches.h"

namespace reference {

std::int32_t CheckLimit(const Question& question, const Notes& notes, Journal& journal) {
    std::uint32_t coins = 0;
    std::uint32_t bankNotes = 0;
    for (std::size_t i = 0; i < question.units.size(); ++i) {
        const std::uint16_t type = question.units[i].type;
        if (type == 4 || type == 5) {
            coins += notes[i];
        } else {
            bankNotes += notes[i];
        }
    }
    if (bankNotes > question.limit) {
        journal.Record("971A3");
        return kTooManyItems;
    }
    if (coins > question.limit) {
        journal.Record("971A4");
        return kTooManyItems;
    }
    return kPaid;
}

}  // namespace reference
