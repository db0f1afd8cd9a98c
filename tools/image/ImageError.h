#pragma once

#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace image {

/// What is wrong with an input, in one line that names the place.
class ImageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An address as a message shows it.
inline std::string Hex(std::uint32_t address) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%08x", static_cast<unsigned>(address));
    return text;
}

}  // namespace image
