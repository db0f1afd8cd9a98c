#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace qxmix {

/// Texts that are put away until they are wanted again, in a file without a name: what is told of
/// many dispensers need not stay in memory.
class Spool {
public:
    struct Part {
        long at = 0;
        std::size_t size = 0;
    };

    /// @throw WorkError
    Spool();

    /// @throw WorkError
    Part Add(const std::string& text);
    std::string Read(const Part& part) const;

private:
    struct Closer {
        void operator()(std::FILE* file) const noexcept { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, Closer> file_;
};

}  // namespace qxmix
