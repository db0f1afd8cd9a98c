#pragma once

#include "Parser.h"
#include "dispenser/Dispenser.h"
#include "terminal/Terminal.h"
#include "workers/Asker.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// The options that every command takes.
struct CommonOptions {
    bool json = false;
    std::vector<std::string> libraries;  ///< --library, as often as it was given
    std::string registry;                ///< --registry; empty: not given
    std::string registryOut;             ///< --registry-out; empty: not given
    std::optional<Milliseconds> deadline;
    bool trace = false;
    ColorMode color = ColorMode::Auto;
    bool quiet = false;

    /// The one library of a command that asks one only.
    ///
    /// @throw InputError when several were given.
    std::string Library() const;

    /// What the module reads: the registry file if one was given, else the values given here.
    ///
    /// @throw InputError
    std::string RegistryOr(const std::vector<StoredValue>& values) const;

    /// Where the module's lines go: standard error with --trace, else nowhere.
    TraceSink Trace() const;
};

void AddCommonOptions(CLI::App& command, CommonOptions& options);

/// Adds an option that takes a time.
///
/// @param store  takes the time, which is one that is allowed.
void AddDurationOption(CLI::App& command,
                       const std::string& name,
                       const std::function<void(Milliseconds)>& store,
                       const std::string& help);

/// Adds an option that takes a whole number.
///
/// @param store  takes the number, which is in the range.
void AddWholeOption(CLI::App& command,
                    const std::string& name,
                    std::int64_t least,
                    std::int64_t most,
                    const std::function<void(std::int64_t)>& store,
                    const std::string& help);

}  // namespace qxmix
