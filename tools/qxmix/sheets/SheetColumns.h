#pragma once

#include "SheetReader.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qxmix {

/// A column that the tool reads.
struct WantedColumn {
    std::string name;     ///< as the tool calls it
    std::string heading;  ///< as the sheet calls it; empty: by the tool's name
    bool isRequired = true;
};

/// Where the columns of a sheet are.
struct SheetColumns {
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    SheetReader rows;                 ///< what is below the headings
    std::vector<std::size_t> places;  ///< of the wanted columns in a row; kNone: not there
    std::size_t count = 0;            ///< of all columns
    std::vector<std::string> others;  ///< headings of those that are passed over

    /// A cell of a row; one that is not there is empty.
    const SheetCell& CellOf(const std::vector<SheetCell>& row, std::size_t wanted) const;

    /// Holds a row to the headings: it may lack cells of columns that are passed over, as
    /// spreadsheets leave them out, and have empty ones behind the last.
    ///
    /// @throw InputError FILE:LINE
    void CheckLength(const std::vector<SheetCell>& row, const std::string& file) const;
};

/// Finds the columns by the first row: separated by commas, semicolons or tabs, whichever gives
/// more of the wanted ones, or as a line "sep=;" above it says. Capitals and small letters of
/// ASCII are the same.
///
/// @param text  outlives the columns.
/// @throw InputError when the text has no row, or a column is missing or there twice.
SheetColumns FindColumns(const std::string& file,
                         std::string_view text,
                         const std::vector<WantedColumn>& wanted);

/// Headings for people, not too many of them.
std::string HeadingList(const std::vector<std::string>& headings);

}  // namespace qxmix
