#include "fleet/Spool.h"

#include "ErrorText.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace qxmix {
namespace {

/// Takes so much of a resource away from this process, while it lives.
class Shortage {
public:
    Shortage(__rlimit_resource resource, rlim_t most) : resource_(resource) {
        getrlimit(resource, &before_);
        const rlimit less{most, before_.rlim_max};
        setrlimit(resource, &less);
    }
    Shortage(const Shortage&) = delete;
    Shortage& operator=(const Shortage&) = delete;
    ~Shortage() { setrlimit(resource_, &before_); }

private:
    __rlimit_resource resource_;
    rlimit before_{};
};

TEST(Spool, GivesBackEachTextInAnyOrder) {
    Spool spool;
    const std::string large(100000, 'x');
    const Spool::Part first = spool.Add("first");
    const Spool::Part none = spool.Add("");
    const Spool::Part last = spool.Add(large);
    EXPECT_EQ(spool.Read(last), large);
    EXPECT_EQ(spool.Read(first), "first");
    EXPECT_EQ(spool.Read(none), "");
    EXPECT_EQ(spool.Read(spool.Add("more")), "more");
}

TEST(Spool, SaysWhatTheSystemRefuses) {
    Spool spool;
    const auto handled = std::signal(SIGXFSZ, SIG_IGN);
    {
        const Shortage shortage(RLIMIT_FSIZE, 1000);
        EXPECT_EQ(ErrorText([&spool] { spool.Add(std::string(100000, 'x')); }),
                  "temporary file: File too large");
    }
    std::signal(SIGXFSZ, handled);
    const Shortage shortage(RLIMIT_NOFILE, 0);
    EXPECT_EQ(ErrorText([] { const Spool none; }), "temporary file: Too many open files");
}

}  // namespace
}  // namespace qxmix
