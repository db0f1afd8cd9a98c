#pragma once

#include "Worker.h"

#include <functional>
#include <memory>

namespace qxmix {

/// A module that is open in this process already, and answers without a worker.
///
/// Nothing saves this process from a call that crashes or does not return: somebody else has to
/// watch it, and to do its work again where it was lost.
class OpenedModule {
public:
    OpenedModule() = default;
    OpenedModule(const OpenedModule&) = delete;
    OpenedModule& operator=(const OpenedModule&) = delete;
    virtual ~OpenedModule() = default;

    virtual const Opening& Opened() const = 0;

    virtual Reply Answer(const MixRequest& request, Milliseconds deadline) = 0;
};

/// Opens a module in this process, or gives none: then workers are to be asked.
using OpenHere = std::function<std::shared_ptr<OpenedModule>(const OpenOrder& order)>;

}  // namespace qxmix
