#pragma once

#include <cstdint>
#include <string>

namespace property {

/// The fields of a request in a few lines of text, for the message about a difference.
std::string Describe(const std::uint8_t* request);

}  // namespace property
