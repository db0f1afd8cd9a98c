#include "PartFile.h"
#include "files/FileCalls.h"
#include "files/Output.h"

#include <filesystem>

namespace qxmix {

namespace fs = std::filesystem;

/// A file that waits beside its place.
class OutputFiles::Staged {
public:
    Staged(const std::string& file, const std::function<void(const TakePart& take)>& write)
        : part_(file) {
        write([this](const std::string& part) { part_.File().Write(part); });
        part_.File().Synchronise();
        part_.File().Close();
    }

    void Commit() { part_.TakePlace(); }

private:
    PartFile part_;
};

OutputFiles::OutputFiles() = default;
OutputFiles::~OutputFiles() = default;

void OutputFiles::Add(const std::string& file,
                      const std::function<void(const TakePart& take)>& write) {
    if (file.empty()) {
        return;
    }
    std::error_code error;
    if (fs::exists(file, error)) {
        // What may not be written is not replaced either.
        WritableFile there(OpenThere(file), file);
        if (!fs::is_regular_file(file, error)) {
            write([&there](const std::string& part) { there.Write(part); });
            there.Close();
            return;
        }
    }
    staged_.push_back(std::make_unique<Staged>(file, write));
}

void OutputFiles::Commit() {
    while (!staged_.empty()) {
        staged_.front()->Commit();
        staged_.erase(staged_.begin());
    }
}

}  // namespace qxmix
