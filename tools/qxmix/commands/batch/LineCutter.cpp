#include "LineCutter.h"

#include "files/InputFile.h"

#include <algorithm>
#include <cstring>

namespace qxmix {

namespace {

/// A block holds no further line once it has so many bytes.
constexpr std::size_t kFullBlock = std::size_t{256} << 10U;

}  // namespace

void LineCutter::Add(const char* bytes, std::size_t size) {
    const char* const end = bytes + size;
    while (bytes != end && !IsOver()) {
        const char* const lineEnd = std::find(bytes, end, '\n');
        const auto more = static_cast<std::size_t>(lineEnd - bytes);
        begun_.append(bytes, std::min(more, kLongestLine + 1 - begun_.size()));
        there_.Pass(lineEnd == end ? more : more + 1);
        if (lineEnd == end) {
            return;
        }
        whole_ += begun_;
        whole_ += '\n';
        begun_.clear();
        bytes = lineEnd + 1;
    }
}

void LineCutter::End() {
    if (!begun_.empty()) {
        Add("\n", 1);
    }
}

std::optional<LineBlock> LineCutter::Next() {
    if (taken_ == whole_.size()) {
        whole_.clear();
        taken_ = 0;
        return std::nullopt;
    }
    LineBlock block;
    block.firstLine = nextLine_;
    std::size_t end = taken_;
    for (std::size_t lines = 0;
         lines < mostLines_ && end < whole_.size() && end - taken_ < kFullBlock; ++lines) {
        end = whole_.find('\n', end) + 1;
        ++nextLine_;
    }
    block.lines = whole_.substr(taken_, end - taken_);
    taken_ = end;
    return block;
}

}  // namespace qxmix
