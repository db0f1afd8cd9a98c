/// Writes the import library of the device's or the desktop's library:
///
///     make-import-library device|windows EXPORTS.def OUTPUT.lib

#include "ImageError.h"
#include "ImportLibrary.h"
#include "OutputFile.h"

#include <cstdio>

int main(int argc, char** argv) {
    const std::string target = argc == 4 ? argv[1] : "";
    if (target != "device" && target != "windows") {
        std::fputs("usage: make-import-library device|windows EXPORTS.def OUTPUT.lib\n", stderr);
        return 2;
    }
    try {
        const image::ImportMachine& machine =
            target == "device" ? image::kDeviceMachine : image::kDesktopMachine;
        const image::Definition definition = image::ReadDefinition(image::ReadFile(argv[2]));
        image::WriteFile(argv[3], image::EncodeImportLibrary(machine, definition));
    } catch (const image::ImageError& error) {
        std::fprintf(stderr, "make-import-library: %s: %s\n", argv[2], error.what());
        return 1;
    }
    return 0;
}
