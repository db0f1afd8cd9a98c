#pragma once

#include "dispenser/Draining.h"
#include "sheets/SheetColumns.h"

#include <string>
#include <vector>

namespace qxmix {

/// The columns of a journal that tell what was dispensed: of each cassette (c0 to c5), of all in
/// one text (2x100 1x50), or of each note (100, 50). The first way that a journal has counts.
class JournalItems {
public:
    /// @param wanted     those that were looked for, named as above.
    /// @param dispenser  outlives this.
    /// @throw InputError when there is none, or for a note that no cassette holds.
    JournalItems(const std::string& file,
                 const std::vector<WantedColumn>& wanted,
                 const SheetColumns& columns,
                 const Dispenser& dispenser);

    bool AreByCassette() const { return way_ == Way::Cassettes; }

    /// What a row tells, see JournalEntry.
    ///
    /// @throw InputError
    CassetteItems Read(const SheetColumns& columns, const std::vector<SheetCell>& row) const;

private:
    enum class Way { Cassettes, Text, Notes };

    /// A column and the cassette, or first cassette of the note, that it is about.
    struct Place {
        std::size_t wanted;
        std::size_t cassette;
    };

    void AddCassettes(const SheetColumns& columns);
    void AddNotes(const SheetColumns& columns);
    CassetteItems ReadText(const SheetCell& cell) const;
    [[noreturn]] void Fail(const SheetCell& cell, const std::string& wrong) const;

    std::string file_;
    const Dispenser& dispenser_;
    Way way_ = Way::Text;
    std::vector<Place> places_;
    std::vector<std::string> names_;  // of the wanted columns
};

/// The columns of a journal, in this order; those of notes are behind them.
enum JournalColumn : std::size_t {
    kJournalTime,
    kJournalAmount,
    kJournalCurrency,
    kJournalMix,
    kJournalCode,
    kJournalDispensed,
    kJournalCassettes,
    kJournalNotes = kJournalCassettes + kMaxCashUnits
};

}  // namespace qxmix
