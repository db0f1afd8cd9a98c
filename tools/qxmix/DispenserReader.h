#pragma once

#include "Dispenser.h"
#include "Json.h"

#include <string>

namespace qxmix {

/// Reads a dispenser from the JSON of a dispenser file (schema/dispenser.schema.json).
///
/// @param file  its name for errors.
/// @throw InputError naming the field that is wrong and what is expected.
Dispenser ReadDispenser(const Json& json, const std::string& file);

/// Reads a dispenser as a person names it on the command line: a JSON file, "-" for standard input,
/// or inline (InlineDispenser.h).
///
/// @throw InputError
Dispenser OpenDispenser(const std::string& name);

}  // namespace qxmix
