#pragma once

#include "errors/Errors.h"
#include "json/JsonName.h"

#include <cstddef>
#include <string>

namespace qxmix {

/// The name of a dispenser in a table: a long one keeps its end, since the beginning is what the
/// names of a fleet share.
std::string NameInTable(const std::string& name);

/// A text in so many columns, with dots where it was cut.
std::string CutToFit(const std::string& text, std::size_t columns);

/// "interrupted after 3 of 5 dispensers"
std::string FleetInterruption(std::size_t done, std::size_t named);

/// What is wrong, without the name of the dispenser that stands beside it already.
std::string WithoutFile(const std::string& error, const std::string& file);

/// The beginning of a dispenser's element in a result.
Json FleetElement(const std::string& file, ExitStatus status);

/// The element of a dispenser that could not be asked.
Json FleetElement(const std::string& file, const ToolError& error);

/// An element as text: the name of a file need not be UTF-8, JSON has to be.
std::string ElementText(const Json& element);

}  // namespace qxmix
