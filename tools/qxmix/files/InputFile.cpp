#include "InputFile.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace qxmix {

namespace {

constexpr std::size_t kLargestInput = std::size_t{256} << 20U;

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

std::string ReadAll(std::FILE* file, const std::string& name) {
    std::string content;
    char block[65536];
    std::size_t size = 0;
    while ((size = std::fread(block, 1, sizeof(block), file)) > 0) {
        content.append(block, size);
        if (content.size() > kLargestInput) {
            throw InputError(name + ": too large; expected at most 256 MiB");
        }
    }
    if (std::ferror(file) != 0) {
        throw InputError(name + ": cannot be read: " + std::strerror(errno));
    }
    return content;
}

}  // namespace

InputFile ReadInput(const std::string& name) {
    if (name == "-") {
        return {"standard input", ReadAll(stdin, "standard input")};
    }
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(name.c_str(), "rb"));
    if (file == nullptr) {
        throw InputError(name + ": cannot be opened: " + std::strerror(errno));
    }
    return {name, ReadAll(file.get(), name)};
}

}  // namespace qxmix
