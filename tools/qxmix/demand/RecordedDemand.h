#pragma once

#include "Demand.h"
#include "dispenser/Dispenser.h"
#include "sheets/SheetOptions.h"

#include <string>

namespace qxmix {

/// How a recorded list is read unless options say otherwise: its columns are time, amount and, if
/// need be, currency.
SheetOptions RecordedSheet();

/// Reads a recorded list of withdrawals: CSV with a line of column names, in any order of columns
/// and rows.
///
/// @param file  as it stands in errors.
/// @param text  UTF-8.
/// @throw InputError FILE:LINE
Demand ReadRecordedDemand(const std::string& file,
                          const std::string& text,
                          const Dispenser& dispenser,
                          const SheetOptions& options);

}  // namespace qxmix
