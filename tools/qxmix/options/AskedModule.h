#pragma once

#include "CommonOptions.h"
#include "dispenser/Dispenser.h"
#include "workers/Asker.h"
#include "workers/OpenedModule.h"

#include <string>

namespace qxmix {

/// The module that a command asks about a dispenser: its library and the registry that it reads.
struct AskedModule {
    /// @param library    as named with --library; empty: not given.
    /// @param dispenser  keeps of its registry what the module takes.
    /// @param here       opens it in this process; empty: workers are asked.
    /// @throw InputError, or WorkError when a named library is not there.
    AskedModule(const std::string& library,
                const CommonOptions& options,
                Dispenser& dispenser,
                const OpenHere& here = nullptr);

    /// Opens the library, so that it is known to work, and keeps what that leaves in the registry.
    ///
    /// @throw WorkError when the library cannot be used.
    void Open();

    const OpenOrder order;  ///< for further workers
    Asker asker;
};

}  // namespace qxmix
