#pragma once

#include "MixTable.h"
#include "files/InputFile.h"

#include <string>

namespace qxmix {

/// As XFS4IoT takes it (schema/mixtable.schema.json).
std::string MixTableJson(const MixTable& table);

/// As CSV: a column for the amount and one for each note, headed by what it is worth.
std::string MixTableCsv(const MixTable& table);

/// Reads a mix table of either form, whoever wrote it.
///
/// @throw InputError for what is no table, a row whose notes do not make its amount, and an amount
///   that has two rows.
MixTable ReadMixTable(const InputFile& file);

/// @param name  of the file; -: standard input.
/// @throw InputError when it cannot be read, and as ReadMixTable does.
MixTable OpenMixTable(const std::string& name);

}  // namespace qxmix
