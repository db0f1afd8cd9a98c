#pragma once

#include "sweeps/MapAnswers.h"
#include "tables/MixTable.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// A mix table that is held against what a mix of a dispenser pays.
struct TableQuestions {
    MapQuestions asked;  ///< of the one mix, and of all amounts of the table
    MixTable table;
};

/// How the table stands to the mix on an amount. The order is from worst to best.
enum class TableChange {
    NotThere,  ///< its notes are not there, or are too many
    NotPaid,   ///< the mix does not pay
    Other,     ///< both pay, with different notes
    Missing,   ///< it has no row, and the mix pays
    Same,      ///< both pay the same notes, or neither pays
};

/// In JSON and CSV.
const char* NameOf(TableChange change);

/// Why the notes of a row cannot be paid.
enum class Lack { None, NoNote, TooFew, OverLimit };

/// In JSON and CSV; empty: nothing is lacking.
const char* NameOf(Lack lack);

/// An amount on which table and mix differ.
struct TableDifference {
    TableChange change = TableChange::Same;
    Lack lack = Lack::None;
    std::string lackText;  ///< for people; empty: nothing is lacking
    std::uint32_t amount = 0;
    Outcome outcome = Outcome::Paid;  ///< of the mix
    NotesByWorth table;
    NotesByWorth mix;  ///< of what it pays exactly
};

/// A comparison with everything that is told of it in any form.
struct TableComparison {
    std::array<std::uint64_t, 5> counts{};  ///< amounts by change
    std::uint64_t dangers = 0;              ///< answers of the mix that must be stopped
    bool hasCrash = false;
    std::vector<TableDifference> differences;  ///< worst first, then by amount
    std::vector<Money> notes;                  ///< that any of them has, the largest first

    std::uint64_t Count(TableChange change) const {
        return counts[static_cast<std::size_t>(change)];
    }
};

TableComparison CompareTable(const TableQuestions& questions, const MapAnswers& answers);

ExitStatus ExitStatusOf(const TableComparison& comparison);

}  // namespace qxmix
