#include "LinesThere.h"

#include "FileCalls.h"

#include <filesystem>

namespace qxmix {

namespace {

constexpr int kInputDescriptor = 0;  // as the C library numbers standard input

}  // namespace

LinesThere LinesThere::In(const std::string& name) {
    if (name == "-") {
        const std::int64_t bytes = BytesAhead(kInputDescriptor);
        return bytes < 0 ? LinesThere() : LinesThere(static_cast<std::uint64_t>(bytes));
    }
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error)) {
        return {};
    }
    const std::uint64_t bytes = std::filesystem::file_size(name, error);
    return error ? LinesThere() : LinesThere(bytes);
}

}  // namespace qxmix
