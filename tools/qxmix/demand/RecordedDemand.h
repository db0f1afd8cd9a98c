#pragma once

#include "Demand.h"
#include "dispenser/Dispenser.h"
#include "files/InputFile.h"

namespace qxmix {

/// Reads a recorded list of withdrawals: CSV with a line of column names. A time is
/// "2026-11-16 09:46", seconds and a T between date and time allowed; times never go back.
///
/// @throw InputError FILE:LINE
Demand ReadRecordedDemand(const InputFile& file, const Dispenser& dispenser);

}  // namespace qxmix
