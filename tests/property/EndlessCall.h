#pragma once

#include <string>

#include "ModuleUnderTest.h"

namespace property {

/// What becomes of a call that is expected never to return, after a tenth of a second of processor
/// time in a process of its own.
///
/// @return "spins", with the code that the call has left in the registry behind a blank; "returned"
///   when it came back.
std::string
WatchEndlessCall(ModuleUnderTest& module, const reference::Object& object, Answer answer);

}  // namespace property
