#include "files/Output.h"

#include "files/FileCalls.h"
#include "files/WritableFile.h"

#include <utility>

namespace qxmix {

/// A file that waits; the files of a page are in memory, so nobody sees one half-written.
class OutputFiles::Staged {
public:
    Staged(std::string file, std::string content)
        : file_(std::move(file)), content_(std::move(content)) {}

    void Commit() const {
        const int descriptor = OpenToAppend(file_);
        if (descriptor < 0 || CutFile(descriptor, 0) != 0) {
            FailToWrite(file_);
        }
        WritableFile place(descriptor, file_);
        place.Write(content_);
        place.Close();
    }

private:
    std::string file_;
    std::string content_;
};

OutputFiles::OutputFiles() = default;
OutputFiles::~OutputFiles() = default;

void OutputFiles::Add(const std::string& file,
                      const std::function<void(const TakePart& take)>& write) {
    if (!file.empty()) {
        std::string content;
        write([&content](const std::string& part) { content += part; });
        staged_.push_back(std::make_unique<Staged>(file, std::move(content)));
    }
}

void OutputFiles::Commit() {
    while (!staged_.empty()) {
        staged_.front()->Commit();
        staged_.erase(staged_.begin());
    }
}

}  // namespace qxmix
