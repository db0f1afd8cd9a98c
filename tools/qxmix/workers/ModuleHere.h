#pragma once

#include "CallWatch.h"
#include "OpenedModule.h"
#include "module/ModuleLibrary.h"

#include <cstddef>
#include <memory>

namespace qxmix {

/// Modules that a process opens, one after the other or side by side, before it wants to be
/// replaced: the module does not give all of their objects back.
constexpr std::size_t kMostModules = 256;

/// A module opened in this process, in its stand-in's registry.
///
/// A call that crashes or takes too long ends the process.
class ModuleHere final : public OpenedModule {
public:
    /// @throw WorkError when the library cannot be used.
    explicit ModuleHere(const OpenOrder& order);

    const Opening& Opened() const override { return opening_; }

    Reply Answer(const MixRequest& request, Milliseconds deadline) override;

private:
    std::unique_ptr<ModuleLibrary> library_;
    Opening opening_;
    CallWatch watch_;
};

/// The module of the last order, opened anew where the order is another: objects read their
/// registry once, while they are created.
class LastModuleHere {
public:
    std::shared_ptr<OpenedModule> For(const OpenOrder& order);

    /// Modules opened so far.
    std::size_t Count() const { return count_; }

private:
    OpenOrder order_;
    std::size_t count_ = 0;
    std::shared_ptr<ModuleHere> module_;
};

}  // namespace qxmix
