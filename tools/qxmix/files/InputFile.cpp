#include "InputFile.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace qxmix {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

std::string ReadAll(std::FILE* file, const std::string& name, std::size_t mostBytes) {
    std::string content;
    char block[65536];
    std::size_t size = 0;
    while ((size = std::fread(block, 1, sizeof(block), file)) > 0) {
        content.append(block, size);
        if (content.size() > mostBytes) {
            throw InputError(name + ": too large; expected at most " +
                             std::to_string(mostBytes >> 20U) + " MiB");
        }
    }
    if (std::ferror(file) != 0) {
        throw InputError(name + ": cannot be read: " + std::strerror(errno));
    }
    return content;
}

}  // namespace

InputFile ReadInput(const std::string& name, std::size_t mostBytes) {
    if (name == "-") {
        return {"standard input", ReadAll(stdin, "standard input", mostBytes)};
    }
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(name.c_str(), "rb"));
    if (file == nullptr) {
        throw InputError(name + ": cannot be opened: " + std::strerror(errno));
    }
    return {name, ReadAll(file.get(), name, mostBytes)};
}

}  // namespace qxmix
