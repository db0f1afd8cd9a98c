#pragma once

#include "WorkerMessages.h"
#include "module/ModuleLibrary.h"

namespace qxmix {

/// One calculation in this process, in the stand-in's registry as it is.
///
/// An error code that stood there before is set aside, so that it shows whether this call writes
/// one; it stays when the call does not.
Calculation CallModule(const ModuleLibrary& library, const MixRequest& request);

/// Hears the module's lines as long as it lives.
class TraceListening {
public:
    using Listener = void (*)(void* context, const char* line);

    /// @param listener  null: nobody hears them, and none are made.
    TraceListening(Listener listener, void* context);
    TraceListening(const TraceListening&) = delete;
    TraceListening& operator=(const TraceListening&) = delete;
    ~TraceListening();
};

}  // namespace qxmix
