#pragma once

namespace qxmix {

/// First argument of a tool that was started as another tool's worker; the second is the handle of
/// its end of the channel. Not for people, so --help does not list it.
constexpr const char* kWorkerArgument = "--worker-of-this-tool";

/// The life of such a tool.
///
/// @param handle  the second argument.
/// @return its exit status.
int RunWorkerProcess(const char* handle);

}  // namespace qxmix
