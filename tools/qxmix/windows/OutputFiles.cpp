#include "LastError.h"
#include "WindowsApi.h"
#include "errors/Errors.h"
#include "files/Output.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace qxmix {

namespace {

namespace fs = std::filesystem;

void Write(const std::string& path,
           std::ios::openmode mode,
           const std::string& content,
           const std::string& nameInErrors) {
    std::ofstream file(path, std::ios::binary | mode);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) {
        throw WorkError(nameInErrors + ": cannot be written: " + std::strerror(errno));
    }
}

}  // namespace

OutputFiles::~OutputFiles() {
    for (const Staged& staged : staged_) {
        DeleteFileA(staged.beside.c_str());
    }
}

void OutputFiles::Add(const std::string& file, const std::string& content) {
    if (file.empty()) {
        return;
    }
    std::error_code error;
    if (fs::exists(file, error) && !fs::is_regular_file(file, error)) {
        Write(file, std::ios::out, content, file);
        return;
    }
    const std::string beside = file + ".part" + std::to_string(GetCurrentProcessId());
    staged_.push_back({file, beside});
    Write(beside, std::ios::trunc, content, file);
}

void OutputFiles::Commit() {
    while (!staged_.empty()) {
        const Staged& staged = staged_.front();
        if (MoveFileExA(staged.beside.c_str(), staged.place.c_str(), MOVEFILE_REPLACE_EXISTING) ==
            0) {
            throw WorkError(staged.place + ": cannot be written: " + LastErrorText());
        }
        staged_.erase(staged_.begin());
    }
}

void AppendToFile(const std::string& file, const std::string& content) {
    Write(file, std::ios::app, content, file);
}

}  // namespace qxmix
