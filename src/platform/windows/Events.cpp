#include "PlatformApi.h"

/// The device system's call for events, as far as the module uses it.
///
/// @param operation  EVENT_SET; anything else is refused.
/// @return 1, or 0 when the event was not set.
BOOL EventModify(HANDLE event, DWORD operation) {
    return operation == EVENT_SET ? SetEvent(event) : FALSE;
}
