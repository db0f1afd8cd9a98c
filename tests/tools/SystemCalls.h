#pragma once

#include <string>

namespace qxmix {

/// Listens to the calls by which a file gets to the disk and to its name, and lets them fail. One
/// at a time.
class SystemCalls {
public:
    SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;
    ~SystemCalls();

    /// From now on fsync fails with this error.
    void FailSynchronising(int error);

    /// The calls so far, in their order.
    std::string Text() const;
};

}  // namespace qxmix
