#include "PartFile.h"
#include "files/FileCalls.h"
#include "files/Output.h"

#include <filesystem>

namespace qxmix {

namespace fs = std::filesystem;

/// A file that waits beside its place.
class OutputFiles::Staged {
public:
    Staged(const std::string& file, const std::string& content) : part_(file) {
        part_.File().Write(content);
        part_.File().Synchronise();
        part_.File().Close();
    }

    void Commit() { part_.TakePlace(); }

private:
    PartFile part_;
};

OutputFiles::OutputFiles() = default;
OutputFiles::~OutputFiles() = default;

void OutputFiles::Add(const std::string& file, const std::string& content) {
    if (file.empty()) {
        return;
    }
    std::error_code error;
    if (fs::exists(file, error)) {
        // What may not be written is not replaced either.
        WritableFile there(OpenThere(file), file);
        if (!fs::is_regular_file(file, error)) {
            there.Write(content);
            there.Close();
            return;
        }
    }
    staged_.push_back(std::make_unique<Staged>(file, content));
}

void OutputFiles::Commit() {
    while (!staged_.empty()) {
        staged_.front()->Commit();
        staged_.erase(staged_.begin());
    }
}

}  // namespace qxmix
