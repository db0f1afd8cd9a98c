#pragma once

#include "Dispenser.h"
#include "files/InputFile.h"
#include "json/JsonFields.h"
#include "json/JsonName.h"

#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// Reads a dispenser from the JSON of a dispenser file (schema/dispenser.schema.json).
///
/// @param place  where it stands, for errors.
/// @throw InputError naming the field that is wrong and what is expected.
Dispenser ReadDispenser(const Json& json, const Place& place);

/// The fields of a dispenser file, for an object that has others beside them.
const std::vector<std::string>& DispenserFieldNames();

/// @throw InputError when a field is missing without which there is no dispenser.
void RequireDispenserFields(const JsonFields& fields);

/// Reads the fields that are there; the others of the dispenser stay as they are.
///
/// @throw InputError
void ReadDispenserFields(const JsonFields& fields, Dispenser& dispenser);

/// Reads an input whole, or throws InputError.
using Reading = std::function<InputFile(const std::string& name)>;

/// Reads a dispenser as a person names it on the command line: a JSON file, "-" for standard input,
/// or inline (InlineDispenser.h).
///
/// @param reading  reads the file; one of at most 16 MiB unless told otherwise.
/// @throw InputError
Dispenser OpenDispenser(const std::string& name, const Reading& reading);
Dispenser OpenDispenser(const std::string& name);

}  // namespace qxmix
