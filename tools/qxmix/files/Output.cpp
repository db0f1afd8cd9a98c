#include "Output.h"

#include "errors/Errors.h"
#include "terminal/Terminal.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>

namespace qxmix {

namespace fs = std::filesystem;

void WriteStandardOutput(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0) {
        throw WorkError(std::string("standard output: cannot be written: ") + std::strerror(errno));
    }
}

void RequireDifferentFiles(const std::vector<NamedOutput>& outputs) {
    std::map<fs::path, const char*> options;
    for (const NamedOutput& output : outputs) {
        if (output.file.empty()) {
            continue;
        }
        std::error_code error;
        const fs::path place = fs::weakly_canonical(fs::absolute(output.file, error), error);
        if (fs::exists(place, error) && !fs::is_regular_file(place, error)) {
            continue;  // a device takes more than one
        }
        const auto [first, isNew] = options.emplace(place, output.option);
        if (!isNew) {
            throw InputError(std::string(output.option) + ": " + output.file + " is written by " +
                             first->second + " already; expected another file");
        }
    }
}

void OutputFiles::Add(const std::string& file, const std::string& content) {
    Add(file, [&content](const TakePart& take) { take(content); });
}

void Complain(const std::string& line) {
    // A text of the input may be as long as a file.
    constexpr std::size_t kMostColumns = 2000;
    const std::string whole = Printable(line);
    const std::string shown = CutToColumns(whole, kMostColumns);
    std::fprintf(stderr, "qxmix: %s%s\n", shown.c_str(), shown == whole ? "" : "...");
}

}  // namespace qxmix
