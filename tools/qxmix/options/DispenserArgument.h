#pragma once

#include "AskOptions.h"
#include "Parser.h"

#include <string>

namespace qxmix {

/// Adds DISPENSER, the dispenser that a command asks.
///
/// @param name  takes it as it was written: a file, - or a dispenser inline; empty: not given.
void AddDispenserArgument(CLI::App& command, std::string& name);

/// @throw InputError when no dispenser was given.
void RequireDispenser(const std::string& name);

/// The dispenser named on the command line, with the options that win over its file.
///
/// @throw InputError
Dispenser DispenserAsked(const std::string& name, const AskOptions& ask);

}  // namespace qxmix
