#pragma once

#include "Records.h"
#include "dispenser/Dispenser.h"
#include "options/AskOptions.h"
#include "options/Parser.h"

#include <string>
#include <vector>

namespace qxmix {

/// A captured request and the dispenser that it describes.
struct RawQuestion {
    MixRequest request;
    Dispenser dispenser;
};

/// Adds --raw-in.
///
/// @param file  takes the name; empty: not given.
void AddRawInOption(CLI::App& command, std::string& file);

/// @param known  dispenser that lends labels and worths, as named on the command line; empty: none.
/// @throw InputError
RawQuestion OpenRaw(const std::string& file, const std::string& known);

/// The dispenser of a command that asks several amounts: that of a captured request if there is
/// one, else the one that is named; with the options that win over it.
///
/// @throw InputError
Dispenser DispenserAsked(const std::string& name, const std::string& rawIn, const AskOptions& ask);

/// The same for each currency that is asked: all of the dispenser's, its own first, unless one is
/// named with --currency or by a captured request.
///
/// @throw InputError
std::vector<Dispenser>
InEachCurrency(const std::string& name, const std::string& rawIn, const AskOptions& ask);

}  // namespace qxmix
