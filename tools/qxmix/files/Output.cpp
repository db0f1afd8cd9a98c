#include "Output.h"

#include "errors/Errors.h"
#include "terminal/Terminal.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace qxmix {

void WriteStandardOutput(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0) {
        throw WorkError(std::string("standard output: cannot be written: ") + std::strerror(errno));
    }
}

void Complain(const std::string& line) {
    std::fprintf(stderr, "qxmix: %s\n", Printable(line).c_str());
}

}  // namespace qxmix
