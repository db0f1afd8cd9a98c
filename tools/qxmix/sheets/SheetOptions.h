#pragma once

#include "SheetColumns.h"
#include "SheetTime.h"
#include "options/Parser.h"

#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// How a sheet is to be read, where it does not tell by itself.
struct SheetOptions {
    std::vector<WantedColumn> columns;  ///< that are read
    bool takesNotes = false;            ///< columns may be called by what a note is worth, too
    std::string columnsGiven;           ///< --columns; empty: not given
    std::optional<DateOrder> dates;     ///< --dates; none: not given
};

/// Adds --columns and --dates.
///
/// @param example  of --columns.
void AddSheetOptions(CLI::App& command,
                     SheetOptions& options,
                     const std::string& example = "time=NAME,amount=NAME");

/// The first of the options that was given; empty: none was.
std::string GivenSheetOption(const SheetOptions& options);

/// The options as they were given: each with a blank before it.
std::string SheetWords(const SheetOptions& options);

}  // namespace qxmix
