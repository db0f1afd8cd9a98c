#pragma once

#include "answers/LineError.h"
#include "dispenser/Draining.h"
#include "findings/Findings.h"
#include "sheets/SheetOptions.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// What a journal says of one withdrawal.
struct JournalEntry {
    std::size_t line = 0;  ///< of the file, from 1
    std::string time;      ///< as it was written; empty: the journal has no times
    std::uint32_t amount = 0;
    std::string currency;
    std::uint16_t mix = 0;

    /// What was dispensed: by cassette, or of each note, at the first cassette that holds it.
    CassetteItems items{};

    std::string code;  ///< as it was written; empty: the journal does not say

    bool IsPaid() const;
};

/// A journal of withdrawals.
struct Journal {
    std::vector<JournalEntry> entries;  ///< in the order of their times
    std::vector<LineError> badLines;    ///< passed over, in the order of the file
    bool tellsCassettes = false;        ///< items are by cassette, and not by note
    std::vector<Finding> notes;         ///< how it was read
};

/// How a journal is read unless options say otherwise.
SheetOptions JournalSheet();

/// Reads a journal: CSV with a line of column names, in any order of columns and rows.
///
/// @param file       as it stands in errors.
/// @param text       UTF-8.
/// @param dispenser  that dispensed.
/// @throw InputError when no row can be understood: a column is missing, or nothing decides what
///   its dates or amounts mean.
Journal ReadJournal(const std::string& file,
                    const std::string& text,
                    const Dispenser& dispenser,
                    const SheetOptions& options);

/// The place of the first cassette that holds the same note as this one.
std::size_t NotePlace(const Dispenser& dispenser, std::size_t cassette);

/// Items by cassette as items of each note, at the first cassette that holds it.
CassetteItems ByNote(const Dispenser& dispenser, const CassetteItems& items);

}  // namespace qxmix
