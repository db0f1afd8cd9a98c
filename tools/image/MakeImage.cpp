/// Writes the device's library from a linked program:
///
///     make-image PROGRAM.elf LIBRARY.dll

#include "ImageError.h"
#include "OutputFile.h"
#include "PeFormat.h"

#include <cstdio>

namespace {

image::Bytes ImageOf(const std::string& path) {
    const image::Bytes program = image::ReadFile(path);
    try {
        return image::EncodeImage(image::LayImage(image::ReadElf(program)));
    } catch (const image::ImageError& error) {
        throw image::ImageError(path + ": " + error.what());
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: make-image PROGRAM.elf LIBRARY.dll\n", stderr);
        return 2;
    }
    try {
        image::WriteFile(argv[2], ImageOf(argv[1]));
    } catch (const image::ImageError& error) {
        std::fprintf(stderr, "make-image: %s\n", error.what());
        return 1;
    }
    return 0;
}
