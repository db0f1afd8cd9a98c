#pragma once

#include "Demand.h"
#include "dispenser/Dispenser.h"
#include "sheets/SheetOptions.h"

#include <string>
#include <variant>

namespace qxmix {

/// Reads a demand file: JSON to draw from (schema/demand.schema.json), or a recorded list as CSV
/// with the columns time, amount and, if need be, currency.
///
/// @param name       a file, or "-" for standard input.
/// @param dispenser  whose amounts and currency they are.
/// @param options    how a list is read; given for JSON they are an error.
/// @throw InputError
std::variant<DemandPattern, Demand>
OpenDemand(const std::string& name, const Dispenser& dispenser, const SheetOptions& options);

}  // namespace qxmix
