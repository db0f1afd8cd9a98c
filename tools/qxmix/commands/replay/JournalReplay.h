#pragma once

#include "options/CommonOptions.h"
#include "options/OutputOption.h"
#include "sheets/SheetOptions.h"

#include <string>

namespace qxmix {

/// What a replay of a journal is given.
struct JournalArguments {
    std::string journal;    ///< as named on the command line
    std::string dispenser;  ///< --dispenser; empty: not given, what is replayed is a trace
    SheetOptions sheet;
    OutputOption output{AllForms()};
    bool stops = false;
};

/// Asks the withdrawals of a journal again, and tells what has changed.
///
/// @throw InputError, WorkError
ExitStatus ReplayJournal(const JournalArguments& arguments, const CommonOptions& options);

}  // namespace qxmix
