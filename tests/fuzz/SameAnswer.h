#pragma once

#include "../reference/Reference.h"
#include "../reference/RequestBytes.h"

namespace fuzz {

/// Puts a request to the plain reference and, when that comes to an end within its budget, to the
/// module. Prints the request and aborts when return code, request, result or last code differ, or
/// when the module wrote beside its records.
///
/// @param shift  0 to 7: how far the records lie behind an aligned address.
void ExpectSameAnswer(const reference::Object& object,
                      const reference::RequestBytes& request,
                      unsigned shift);

}  // namespace fuzz
