#include "Spool.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstring>

namespace qxmix {

namespace {

[[noreturn]] void FailBySystem() {
    throw WorkError(std::string("temporary file: ") + std::strerror(errno));
}

}  // namespace

Spool::Spool() : file_(std::tmpfile()) {
    if (file_ == nullptr) {
        FailBySystem();
    }
}

Spool::Part Spool::Add(const std::string& text) {
    if (std::fseek(file_.get(), 0, SEEK_END) != 0) {
        FailBySystem();
    }
    const Part part{std::ftell(file_.get()), text.size()};
    if (part.at < 0 || std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size()) {
        FailBySystem();
    }
    return part;
}

std::string Spool::Read(const Part& part) const {
    std::string text(part.size, '\0');
    if (std::fseek(file_.get(), part.at, SEEK_SET) != 0 ||
        std::fread(text.data(), 1, text.size(), file_.get()) != text.size()) {
        FailBySystem();
    }
    return text;
}

}  // namespace qxmix
