#pragma once

#include "dispenser/Dispenser.h"
#include "options/CommonOptions.h"
#include "workers/Asker.h"

#include <map>
#include <string>
#include <vector>

namespace qxmix {

/// Asks one library for requests that bring different registries: an asker for each registry.
class AskerPool {
public:
    /// @param registry  what the module reads for requests that bring nothing.
    /// @param replaces  that registry stands before what requests bring.
    AskerPool(std::string library, std::string registry, bool replaces, TraceSink trace);

    /// Opens the library.
    ///
    /// @throw WorkError when it cannot be used.
    void Open() { For({}).Open(); }

    Reply Ask(const Dispenser& dispenser, const MixRequest& request, Milliseconds deadline);

    /// Version that the library names; empty when it names none. Known once it is open.
    const std::string& ModuleVersion() { return For({}).ModuleVersion(); }

    const std::string& Library() const { return library_; }

    /// The registry that is left when the calculations were made one after the other.
    std::string RegistryLeft();

private:
    Asker& For(const std::vector<StoredValue>& values);

    std::string library_;
    std::string registry_;
    bool replaces_;
    TraceSink trace_;
    std::string lastCode_;
    std::map<std::string, Asker> askers_;  // by registry
};

/// Opens the library of a command that asks one, or the two that it holds against each other.
///
/// @throw InputError when more were given, WorkError when one cannot be used.
std::vector<AskerPool> OpenLibraries(const CommonOptions& options);

/// What tells the libraries apart: their file names, or the whole paths where those are the same.
std::vector<std::string> NamesOf(const std::vector<AskerPool>& libraries);

}  // namespace qxmix
