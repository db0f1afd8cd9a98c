#pragma once

#include "JsonName.h"

#include <string>

namespace qxmix {

/// Reads a JSON text whole.
///
/// @param file  its name for errors: FILE:LINE:COLUMN of a syntax error, FILE: POINTER of a field
///   that is given twice.
/// @throw InputError
Json ParseJson(const std::string& text, const std::string& file);

/// A value for an error line: short, on one line, texts in quotes.
std::string DescribeJson(const Json& value);

}  // namespace qxmix
