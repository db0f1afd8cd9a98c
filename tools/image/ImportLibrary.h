#pragma once

#include "Bytes.h"

namespace image {

/// A processor as object files name it.
struct ImportMachine {
    std::uint32_t machine;           ///< IMAGE_FILE_MACHINE_...
    std::uint32_t offsetRelocation;  ///< type that makes a word an offset in the image
    const char* prefix;              ///< of a C function's name
};

constexpr ImportMachine kDeviceMachine{0x01C0, 2, ""};    ///< ARM, Windows CE
constexpr ImportMachine kDesktopMachine{0x014C, 7, "_"};  ///< x86

/// What a module definition file names.
struct Definition {
    std::string library;  ///< without the file's extension
    std::vector<std::string> exports;
};

/// Reads the statements LIBRARY and EXPORTS. Throws ImageError for anything else.
Definition ReadDefinition(const Bytes& text);

/// The library that a host links when it names the functions in its code instead of asking the
/// loaded file for them; in the form that the linkers of Microsoft and the GNU one read.
Bytes EncodeImportLibrary(const ImportMachine& machine, const Definition& definition);

}  // namespace image
