#pragma once

/// What a worker does to the system around the module, beside the registry. The stand-in of other
/// systems has a header of this name with the same functions.

extern "C" {
/// Does nothing: the module for Windows has no trace lines.
inline void QxmixSetTraceListener(void (*)(void* context, const char* line), void*) {
}

/// Frees what the XFS manager allocated, as far as its library is loaded; the rest goes with the
/// process.
int WFMFreeBuffer(void* block);
}
