#pragma once

#include "WorkerMessages.h"
#include "module/ModuleLibrary.h"

namespace qxmix {

using TraceListener = void (*)(void* context, const char* line);

/// Hears the module's lines as long as it lives.
class TraceListening {
public:
    /// @param listener  null: nobody hears them, and none are made.
    TraceListening(TraceListener listener, void* context);
    TraceListening(const TraceListening&) = delete;
    TraceListening& operator=(const TraceListening&) = delete;
    ~TraceListening();
};

/// What the library's object took from the registry.
Opening OpeningOf(const ModuleLibrary& library);

/// One calculation in this process, in the stand-in's registry as it is.
///
/// An error code that stood there before is set aside, so that it shows whether this call writes
/// one; it stays when the call does not.
///
/// A call that is known never to end is not made.
///
/// @param listener  hears the module's lines during the call, see TraceListening.
Calculation CallModule(const ModuleLibrary& library,
                       const MixRequest& request,
                       TraceListener listener,
                       void* context);

/// The same for many calculations one after the other, in a fraction of the time: nobody hears
/// lines, `took` is 0, and the error code that a call leaves stays where it stands, so `written`
/// is empty (TakeErrorCode before the first, ErrorCodeBytes behind the last).
Calculation CallModuleQuickly(const ModuleLibrary& library, const MixRequest& request);

}  // namespace qxmix
